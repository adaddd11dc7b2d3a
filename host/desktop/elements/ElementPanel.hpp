#pragma once

#include "desktop/elements/ElementTableModel.hpp"

#include <QWidget>

class QLabel;
class QLineEdit;
class QTableView;

namespace desktop {

/// The middle of the main window: the filter, the table of elements and how many are shown.
class ElementPanel : public QWidget {
    Q_OBJECT

public:
    explicit ElementPanel(QWidget* parent = nullptr);

    void setSource(const model::Model* model, const ElementIndex* index);
    void refresh();

    std::optional<model::Element> current() const;
    /// Makes the element's row the current one. A filter that hides it stays: the element is chosen all the same.
    void select(model::Element element);
    void focusFilter();

    QTableView* table() const { return view_; }
    QLineEdit* filterField() const { return filter_; }

    /// Of a row of the table, and the text of one of its cells as the model has it.
    std::optional<model::Element> elementAt(int row) const { return model_->element(row); }
    QString cellText(const QModelIndex& index) const;
    /// -1 where the filter hides it.
    int rowOf(model::Element element) const { return model_->rowOf(element); }
    /// Those that the filter leaves, in their order.
    const std::vector<model::Element>& shown() const;

Q_SIGNALS:
    void currentChanged();
    /// By the user, by mouse or with Return; not where somebody else has chosen it.
    void elementClicked(model::Element element);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void applyFilter();
    void restoreCurrent(std::optional<model::Element> element);
    void showCount();
    void copyRow();

    ElementTableModel* model_;
    QLineEdit* filter_;
    QTableView* view_;
    QLabel* count_;
    std::optional<model::Element> current_;  ///< Stays chosen while a filter hides it.
    bool changing_ = false;                  ///< Rows are being exchanged; the view's selection means nothing.
};

}  // namespace desktop
