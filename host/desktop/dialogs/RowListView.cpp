#include "desktop/dialogs/RowListView.hpp"

#include "desktop/QtText.hpp"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

namespace desktop {

namespace {

/// Letters typed within this time belong to one search.
constexpr qint64 SearchPauseMs = 1200;

/// Grey, but still to be read: what a style gives disabled controls is hardly that, and these rows have reasons in
/// them.
QColor greyText(const QPalette& palette) {
    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    const auto middle = [](int a, int b) { return (a * 11 + b * 9) / 20; };
    return {middle(text.red(), base.red()), middle(text.green(), base.green()), middle(text.blue(), base.blue())};
}

Int16 shortened(int value) {
    return static_cast<Int16>(std::clamp(value, -32768, 32767));
}

}  // namespace

RowListView::RowListView(const frontend::List& list, QWidget* parent)
    : QTableView(parent), rows_(new RowListModel(list, this)) {
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    // A scroll bar that comes and goes with the rows would shift the add-on's columns.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);

    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    horizontalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    setModel(rows_);
    takePalette();
    placeColumns();
}

void RowListView::refresh() {
    rows_->refresh();
    placeColumns();
}

void RowListView::showRow(int row) {
    if (row < 0 || row >= rows_->rowCount()) return;
    setCurrentIndex(rows_->index(row, std::max(currentIndex().column(), 0)));
    scrollTo(currentIndex());
}

/// A column reaches from its field's begin to the next field's, so that what is seen is where a click is counted.
/// Nothing lies behind the last one: it has the room up to the scroll bar, be that less or more than its field.
void RowListView::placeColumns() {
    const auto& fields = rows_->list().tabFields();
    QHeaderView* header = horizontalHeader();
    header->setVisible(rows_->list().headerVisible());
    header->setSectionsMovable(rows_->list().headerMovable());
    const int count = std::min(static_cast<int>(fields.size()), rows_->columnCount());
    for (int i = 0; i < count; ++i) {
        const frontend::TabField& field = fields[static_cast<std::size_t>(i)];
        const int begin = i == 0 ? 0 : field.begin;
        const int end = i + 1 < count ? fields[static_cast<std::size_t>(i) + 1].begin : viewport()->width();
        setColumnHidden(i, !field.status);
        if (columnWidth(i) != end - begin) setColumnWidth(i, std::max(end - begin, 1));
    }
}

void RowListView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    placeColumns();
}

void RowListView::takePalette() {
    rows_->setDisabledColor(greyText(palette()));
}

void RowListView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) takePalette();
    if (event->type() == QEvent::FontChange) verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
}

void RowListView::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton;
    pressedAt_ = event->position().toPoint();
    QTableView::mousePressEvent(event);
}

/// A click is a press and a release on one row: a drag over several selects them and clicks none.
void RowListView::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    const QPoint at = event->position().toPoint();
    const bool click = pressed_ && event->button() == Qt::LeftButton && viewport()->rect().contains(at) &&
                       rowAt(at.y()) == rowAt(pressedAt_.y()) &&
                       (at - pressedAt_).manhattanLength() < QApplication::startDragDistance();
    pressed_ = false;
    if (!click) return;
    const int row = rowAt(at.y());
    Q_EMIT rowClicked(shortened(row + 1), shortened(pressedAt_.x() + horizontalScrollBar()->value()));
}

void RowListView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copyRows();
    } else if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
        clickCurrentRows();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Escape) {
        event->ignore();  // the dialog's
    } else {
        QTableView::keyPressEvent(event);
    }
}

/// Space clicks in the middle of the first column: of the current row, and of the others selected with it.
void RowListView::clickCurrentRows() {
    const auto& fields = rows_->list().tabFields();
    if (fields.empty() || !currentIndex().isValid()) return;
    const int x = (fields.front().begin + fields.front().end) / 2;
    std::vector<int> clickedRows;
    for (const QModelIndex& index : selectionModel()->selectedRows()) clickedRows.push_back(index.row());
    const int current = currentIndex().row();
    if (std::find(clickedRows.begin(), clickedRows.end(), current) == clickedRows.end()) clickedRows = {current};
    std::sort(clickedRows.begin(), clickedRows.end());
    for (const int row : clickedRows) Q_EMIT rowClicked(shortened(row + 1), shortened(x));
}

void RowListView::copyRows() {
    QModelIndexList selected = selectionModel()->selectedRows();
    if (selected.isEmpty() && currentIndex().isValid()) selected = {currentIndex()};
    if (selected.isEmpty()) return;
    std::sort(selected.begin(), selected.end(),
              [](const QModelIndex& a, const QModelIndex& b) { return a.row() < b.row(); });
    QStringList lines;
    for (const QModelIndex& index : selected) {
        lines += toQString(rows_->list().rowText(static_cast<Int16>(index.row() + 1)));
    }
    QApplication::clipboard()->setText(lines.join(u'\n'));
}

bool RowListView::rowContains(int row, const QString& text) const {
    return toQString(rows_->list().rowText(static_cast<Int16>(row + 1))).contains(text, Qt::CaseInsensitive);
}

/// Goes to the next row with the typed letters in any of its cells. More letters may keep the row found by the first.
void RowListView::keyboardSearch(const QString& typed) {
    if (typed.isEmpty()) {
        searched_.clear();
        return;
    }
    const bool goesOn = sinceSearch_.isValid() && sinceSearch_.elapsed() < SearchPauseMs;
    const QString before = goesOn ? searched_ : QString();
    // One key pressed again and again goes from match to match.
    const bool again = !before.isEmpty() && before == typed;
    searched_ = again ? before : before + typed;
    sinceSearch_.start();

    const int count = rows_->rowCount();
    const int current = std::max(currentIndex().row(), 0);
    const int first = before.isEmpty() || again ? current + 1 : current;
    for (int step = 0; step < count; ++step) {
        const int row = (first + step) % count;
        if (!rowContains(row, searched_)) continue;
        showRow(row);
        return;
    }
}

void RowListView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    // Over the whole height, below the last row too: the columns are there whether rows are or not.
    QPainter painter(viewport());
    QColor line = palette().color(QPalette::Text);
    line.setAlphaF(0.18F);
    painter.setPen(line);
    const auto& fields = rows_->list().tabFields();
    for (int i = 0; i + 1 < rows_->columnCount(); ++i) {
        if (!fields[static_cast<std::size_t>(i)].separator || isColumnHidden(i)) continue;
        const int x = columnViewportPosition(i) + columnWidth(i) - 1;
        painter.drawLine(x, 0, x, viewport()->height());
    }
}

bool RowListView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    if (!showFullText(help->pos(), help->globalPos())) QToolTip::hideText();
    return true;
}

bool RowListView::showFullText(const QPoint& viewportPosition, const QPoint& globalPosition) {
    const QModelIndex index = indexAt(viewportPosition);
    if (!index.isValid()) return false;
    const QString text = rows_->wholeText(index.row(), index.column());
    const QRect cell = visualRect(index);
    const int margin = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1);
    const QString shown = index.data().toString();
    const bool cut = fontMetrics().horizontalAdvance(shown) + margin > cell.width() ||
                     cell.right() > viewport()->width() || shown != text;
    if (!cut) return false;
    QToolTip::showText(globalPosition, asPlainToolTip(text), viewport(), cell);
    return true;
}

}  // namespace desktop
