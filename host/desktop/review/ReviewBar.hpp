#pragma once

#include "desktop/dialogs/RowFilterModel.hpp"
#include "desktop/review/ReviewNotes.hpp"

#include <QFrame>

class QBoxLayout;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace desktop {

class ElidedLabel;

/// The host's line below a review list: which rows to show, how many stand how, what can be done about those that are
/// not as asked, and what comes after Apply. Where it is too narrow for all of that, the buttons have
/// a line of their own.
class ReviewBar : public QFrame {
    Q_OBJECT

public:
    explicit ReviewBar(QWidget* parent);

    /// @param storable  rows that the host could store as asked.
    void setTotals(const ReviewTotals& totals, std::size_t storable);
    /// How many of the rows are chosen.
    void setShown(int rows);

    QString totals() const;
    QComboBox* choice() const { return choice_; }
    QLineEdit* filter() const { return filter_; }
    QPushButton* storeButton() const { return store_; }
    QPushButton* saveButton() const { return save_; }
    QPushButton* undoButton() const { return undo_; }
    QPushButton* reportButton() const { return report_; }

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

Q_SIGNALS:
    void chosen(desktop::RowChoice choice, const QString& text);
    void storeAsAskedWanted();
    void saveWanted();
    void undoWanted();
    void reportWanted();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showTotals();
    bool fits(int width) const;
    void fold();

    QBoxLayout *all_, *rows_, *buttons_;
    QComboBox* choice_;
    QLineEdit* filter_;
    ElidedLabel* totalsLabel_;
    QPushButton *store_, *report_, *undo_, *save_;
    ReviewTotals totals_;
    int shown_ = 0;
};

}  // namespace desktop
