#pragma once

#include "desktop/elements/ElementTableModel.hpp"

#include <QWidget>

class QCheckBox;
class QItemSelection;
class QLabel;
class QLineEdit;
class QTableView;

namespace desktop {

class ElementColumns;

/// The middle of the main window: the filter, the table of elements and how many are shown.
class ElementPanel : public QWidget {
    Q_OBJECT

public:
    explicit ElementPanel(QWidget* parent = nullptr);
    ~ElementPanel() override;

    void setSource(const model::Model* model, const ElementIndex* index);
    void refresh();

    /// Of several that are selected, the one that the user has pointed at last.
    std::optional<model::Element> current() const;
    /// All that are selected, in the order of the table; what a filter hides stays selected behind them.
    const std::vector<model::Element>& selected() const { return selected_; }
    /// Makes the element's row the current one. A filter that hides it stays: the element is chosen all the same.
    /// Openings and the like come into sight.
    void select(model::Element element);
    void focusFilter();

    QTableView* table() const { return view_; }
    QLineEdit* filterField() const { return filter_; }
    QCheckBox* aidsSwitch() const { return aids_; }
    ElementColumns& columns() const { return *columns_; }

    /// Of a row of the table, and the text of one of its cells as the model has it.
    std::optional<model::Element> elementAt(int row) const { return model_->element(row); }
    QString cellText(const QModelIndex& index) const;
    /// -1 where it is not shown.
    int rowOf(model::Element element) const { return model_->rowOf(element); }
    /// Those that the filter leaves, in their order.
    const std::vector<model::Element>& shown() const;
    /// The items that have been added as columns, in the order of these.
    std::vector<Item> shownItems() const;
    bool roomsShown() const;

Q_SIGNALS:
    void currentChanged();
    /// By the user, by mouse or with Return; not where somebody else has chosen it.
    void elementClicked(model::Element element);
    /// Something was done that the user did not ask for.
    void said(const QString& what);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpSwitch();
    void connectView();
    void applyFilter();
    void takeSelection();
    void restoreSelection();
    QItemSelection rowsOf(const std::vector<model::Element>& elements) const;
    void showCount();
    void copyRows();
    void chooseItem();

    ElementTableModel* model_;
    QLineEdit* filter_;
    QTableView* view_;
    ElementColumns* columns_;
    QCheckBox* aids_;
    QLabel* count_;
    std::optional<model::Element> current_;  ///< Stays chosen while a filter hides it.
    std::vector<model::Element> selected_;
    bool changing_ = false;  ///< Rows are being exchanged; the view's selection means nothing.
};

}  // namespace desktop
