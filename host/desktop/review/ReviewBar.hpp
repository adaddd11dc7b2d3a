#pragma once

#include "desktop/review/ReviewNotes.hpp"

#include <QFrame>

class QLabel;
class QPushButton;

namespace desktop {

/// The host's line below a review list: how many rows stand how, and what can be done about those that are not as
/// asked.
class ReviewBar : public QFrame {
    Q_OBJECT

public:
    explicit ReviewBar(QWidget* parent);

    /// @param storable  rows that the host could store as asked.
    void setTotals(const ReviewTotals& totals, std::size_t storable);
    QString totals() const;
    QPushButton* storeButton() const { return store_; }

Q_SIGNALS:
    void storeAsAskedWanted();

private:
    QLabel* totals_;
    QPushButton* store_;
};

}  // namespace desktop
