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
#include <QSettings>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <numeric>

namespace desktop {

namespace {

/// Letters typed within this time belong to one search.
constexpr qint64 SearchPauseMs = 1200;

constexpr int WidestColumn = 320;
constexpr int RoomBesideText = 18;
/// What the last column, with the remarks, is to have before others get all that they need.
constexpr int LeastRemark = 240;
/// A column that gives way stays at least as wide as this: a text that is cut has a tool tip.
constexpr int LeastCutColumn = 110;

/// A tick column's texts are drawn as check boxes.
class RowDelegate : public QStyledItemDelegate {
public:
    explicit RowDelegate(const RowListView* view) : QStyledItemDelegate(), view_(view) {}

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.column() != view_->rows().tickColumn()) return;
        option->text.clear();
        if (!view_->rows().isEnabled(view_->listRow(index))) option->state &= ~QStyle::State_Enabled;
    }

public:
    /// The style's own frame is nearly as dark as a dark base.
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        if (index.column() != view_->rows().tickColumn()) return;
        QStyleOptionViewItem full = option;
        initStyleOption(&full, index);
        const QStyle& style = *view_->style();
        const QRect box = style.subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &full, view_);
        const bool selected = full.state.testFlag(QStyle::State_Selected);
        QColor frame = view_->palette().color(selected ? QPalette::HighlightedText : QPalette::Text);
        frame.setAlphaF(full.state.testFlag(QStyle::State_Enabled) ? 0.8F : 0.5F);
        painter->save();
        painter->setPen(frame);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(box.adjusted(0, 0, -1, -1));
        painter->restore();
    }

private:
    const RowListView* view_;
};

Int16 shortened(int value) {
    return static_cast<Int16>(std::clamp(value, -32768, 32767));
}

}  // namespace

RowListView::RowListView(const frontend::List& list, QWidget* parent)
    : QTableView(parent),
      rows_(new RowListModel(list, this)),
      shown_(new RowFilterModel(rows_)),
      delegate_(std::make_unique<RowDelegate>(this)) {
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
    setModel(shown_);
    setItemDelegate(delegate_.get());
    takePalette();
    placeColumns();
}

void RowListView::refresh() {
    rows_->refresh();
    placeColumns();
}

RowListView::~RowListView() {
    // The delegate goes before the view that it draws for.
    setItemDelegate(nullptr);
}

void RowListView::showRow(int row) {
    if (row < 0 || row >= rows_->rowCount()) return;
    const QModelIndex index = shown_->mapFromSource(rows_->index(row, std::max(currentIndex().column(), 0)));
    if (!index.isValid()) return;
    setCurrentIndex(index);
    scrollTo(index);
}

void RowListView::showFrom(int row) {
    const QModelIndex index = shown_->mapFromSource(rows_->index(row, 0));
    if (!index.isValid()) return;
    // Rows that have just come are not in the scroll bar's range yet.
    updateGeometries();
    scrollTo(index, PositionAtTop);
}

int RowListView::listRow(const QModelIndex& index) const {
    return index.isValid() ? shown_->mapToSource(index).row() : -1;
}

void RowListView::useColumnsOfTheUser(const QString& settingsKey) {
    columnsKey_ = settingsKey;
    QHeaderView* header = horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setMinimumSectionSize(fontMetrics().averageCharWidth() * 4);
    header->setStretchLastSection(true);
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSortIndicatorClearable(true);
    // In the list's own order until the user asks for another.
    header->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    for (int i = 0; i + 1 < rows_->columnCount(); ++i) {
        const int wanted = std::max(sizeHintForColumn(i), header->sectionSizeHint(i)) + RoomBesideText;
        wantedWidths_.push_back(std::min(wanted, WidestColumn));
    }
    fitColumns();
    const QList<QVariant> kept = QSettings().value(columnsKey_).toList();
    for (int i = 0; i < kept.size() && i + 1 < rows_->columnCount(); ++i)
        if (kept[i].toInt() > 0) setColumnWidth(i, kept[i].toInt());
    widthsChosen_ = !kept.isEmpty();
    // The last one has what the others leave; that is no choice of the user's.
    connect(header, &QHeaderView::sectionResized, this, [this](int column) {
        if (!fitting_ && column + 1 < rows_->columnCount()) widthsChosen_ = true;
    });
}

/// As wide as their content; where the remarks would have no room, the widest of them give way.
void RowListView::fitColumns() {
    if (widthsChosen_ || wantedWidths_.empty()) return;
    std::vector<int> widths = wantedWidths_;
    int missing = std::accumulate(widths.begin(), widths.end(), LeastRemark) - viewport()->width();
    while (missing > 0) {
        const auto widest = std::max_element(widths.begin(), widths.end());
        const int least = std::max(LeastCutColumn, *widest - missing);
        if (*widest <= LeastCutColumn) break;
        // Step by step, so that columns of one width give way together.
        const int by = std::min({missing, *widest - least, fontMetrics().averageCharWidth()});
        *widest -= std::max(by, 1);
        missing -= std::max(by, 1);
    }
    fitting_ = true;
    for (int i = 0; i < static_cast<int>(widths.size()); ++i) setColumnWidth(i, widths[static_cast<std::size_t>(i)]);
    fitting_ = false;
}

void RowListView::keepColumns() const {
    if (columnsKey_.isEmpty() || !widthsChosen_) return;
    QList<QVariant> widths;
    for (int i = 0; i + 1 < rows_->columnCount(); ++i) widths += columnWidth(i);
    QSettings().setValue(columnsKey_, widths);
}

void RowListView::choose(RowChoice choice, const QString& text) {
    const int row = listRow(currentIndex());
    shown_->choose(choice, text);
    showRow(row);
}

/// A column reaches from its field's begin to the next field's, so that what is seen is where a click is counted.
/// Nothing lies behind the last one: it has the room up to the scroll bar, be that less or more than its field.
void RowListView::placeColumns() {
    if (!columnsKey_.isEmpty()) return;
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
    fitColumns();
    placeColumns();
}

void RowListView::takePalette() {
    rows_->setPalette(palette());
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
    const int row = listRow(indexAt({0, at.y()}));
    Q_EMIT rowClicked(shortened(row + 1), shortened(placeInList(pressedAt_.x())));
}

/// Where the add-on's list has what is shown at a place of the view: in the same column, as far into it. A click is
/// counted there, whatever widths the user has given the columns.
int RowListView::placeInList(int viewportX) const {
    const int x = viewportX + horizontalScrollBar()->value();
    const int column = columnAt(viewportX);
    const auto& fields = rows_->list().tabFields();
    if (columnsKey_.isEmpty() || column < 0 || static_cast<std::size_t>(column) >= fields.size()) return x;
    const auto place = static_cast<std::size_t>(column);
    const int begin = column == 0 ? 0 : fields[place].begin;
    const int end = place + 1 < fields.size() ? fields[place + 1].begin : std::max<int>(fields[place].end, begin + 1);
    const int into = viewportX - columnViewportPosition(column);
    return std::min(begin + into * (end - begin) / std::max(columnWidth(column), 1), end - 1);
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
    for (const QModelIndex& index : selectionModel()->selectedRows()) clickedRows.push_back(listRow(index));
    const int current = listRow(currentIndex());
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
        lines += toQString(rows_->list().rowText(static_cast<Int16>(listRow(index) + 1)));
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

    const int count = shown_->rowCount();
    const int current = std::max(currentIndex().row(), 0);
    const int first = before.isEmpty() || again ? current + 1 : current;
    for (int step = 0; step < count; ++step) {
        const int row = (first + step) % count;
        const int found = listRow(shown_->index(row, 0));
        if (!rowContains(found, searched_)) continue;
        showRow(found);
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
    const QString text = rows_->wholeText(listRow(index), index.column());
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
