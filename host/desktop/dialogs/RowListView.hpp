#pragma once

#include "desktop/dialogs/RowFilterModel.hpp"

#include <QElapsedTimer>
#include <QTableView>
#include <memory>

class QStyledItemDelegate;

namespace desktop {

/// An add-on's list: columns at the places of its tab fields, clicks reported as the host reports them. The user may
/// sort it, choose among its rows and size its columns; the add-on is told of a click as if nobody had.
class RowListView : public QTableView {
    Q_OBJECT

public:
    RowListView(const frontend::List& list, QWidget* parent);
    ~RowListView() override;

    /// Takes rows, header and tab fields anew.
    void refresh();
    /// Rows are the list's, from 0.
    void showRow(int row);
    /// Scrolls until this row is the first one in sight, as far as there are rows below it.
    void showFrom(int row);
    int currentRow() const { return listRow(currentIndex()); }
    /// The row of the list that an index of the view shows; -1 where it shows none.
    int listRow(const QModelIndex& index) const;
    const RowListModel& rows() const { return *rows_; }
    /// How many rows are chosen.
    int shownRows() const { return shown_->rowCount(); }
    void choose(RowChoice choice, const QString& text);

    /// Columns as wide as their content, then as the user makes them, and sorted by a click on the header.
    /// @param settingsKey  under which the widths are kept.
    void useColumnsOfTheUser(const QString& settingsKey);
    void keepColumns() const;
    /// What the host adds to the rows, one each.
    void setNotes(const std::vector<RowNote>& notes) { rows_->setNotes(notes); }

    void keyboardSearch(const QString& typed) override;

Q_SIGNALS:
    /// @param row  from 1; 0 for the space below the rows. @param x  from the list's left edge.
    void rowClicked(Int16 row, Int16 x);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void placeColumns();
    void fitColumns();
    int placeInList(int viewportX) const;
    void takePalette();
    void clickCurrentRows();
    void copyRows();
    bool showFullText(const QPoint& viewportPosition, const QPoint& globalPosition);
    bool rowContains(int row, const QString& text) const;

    RowListModel* rows_;
    RowFilterModel* shown_;
    std::unique_ptr<QStyledItemDelegate> delegate_;
    QString columnsKey_;             ///< Empty: the columns lie at the tab fields.
    std::vector<int> wantedWidths_;  ///< Of all columns but the last, by their content.
    bool widthsChosen_ = false;      ///< By the user.
    bool fitting_ = false;
    QPoint pressedAt_;
    bool pressed_ = false;
    QString searched_;
    QElapsedTimer sinceSearch_;
};

}  // namespace desktop
