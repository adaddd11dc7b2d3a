#pragma once

#include "desktop/dialogs/RowListModel.hpp"

#include <QElapsedTimer>
#include <QTableView>

namespace desktop {

/// An add-on's list: columns at the places of its tab fields, clicks reported as the host reports them.
class RowListView : public QTableView {
    Q_OBJECT

public:
    RowListView(const frontend::List& list, QWidget* parent);

    /// Takes rows, header and tab fields anew.
    void refresh();
    void showRow(int row);
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
    void takePalette();
    void clickCurrentRows();
    void copyRows();
    bool showFullText(const QPoint& viewportPosition, const QPoint& globalPosition);
    bool rowContains(int row, const QString& text) const;

    RowListModel* rows_;
    QPoint pressedAt_;
    bool pressed_ = false;
    QString searched_;
    QElapsedTimer sinceSearch_;
};

}  // namespace desktop
