#include "desktop/elements/ElementPanel.hpp"

#include "desktop/QtText.hpp"
#include "desktop/elements/ElementColumns.hpp"
#include "desktop/elements/ItemDialog.hpp"
#include "desktop/look/ElidedLabel.hpp"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSettings>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

namespace desktop {

namespace {

const QString AidsKey = QStringLiteral("elements/aids");

void setUpTable(QTableView* view) {
    view->setObjectName(QStringLiteral("elements"));
    view->setAccessibleName(ElementPanel::tr("Elements of the model"));
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setShowGrid(false);
    view->setWordWrap(false);
    view->setAlternatingRowColors(true);
    view->setTabKeyNavigation(false);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setCornerButtonEnabled(false);
    // Rows of one fixed height: the view never has to ask hundreds of thousands of rows for theirs.
    view->verticalHeader()->hide();
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + 6);
    view->horizontalHeader()->setHighlightSections(false);
    view->horizontalHeader()->setMinimumSectionSize(view->fontMetrics().averageCharWidth() * 8);
    view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    view->horizontalHeader()->setSortIndicatorClearable(true);
    view->horizontalHeader()->setAccessibleName(ElementPanel::tr("Columns of the elements"));
}

}  // namespace

ElementPanel::ElementPanel(QWidget* parent)
    : QWidget(parent),
      model_(new ElementTableModel(this)),
      filter_(new QLineEdit(this)),
      view_(new QTableView(this)),
      aids_(new QCheckBox(tr("Show &openings and aids"), this)),
      count_(new ElidedLabel(this)) {
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setAccessibleName(tr("Filter of the elements"));
    filter_->setPlaceholderText(tr("Filter: words from any column, or a GUID"));
    filter_->setClearButtonEnabled(true);
    filter_->installEventFilter(this);
    count_->setObjectName(QStringLiteral("elementCount"));
    count_->setAccessibleName(tr("Number of elements shown"));
    // The window may be made smaller than the line is.
    count_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    count_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    setUpTable(view_);
    view_->setModel(model_);
    view_->setSortingEnabled(true);
    view_->installEventFilter(this);
    columns_ = new ElementColumns(view_, model_);
    setUpSwitch();

    auto* below = new QHBoxLayout;
    below->addWidget(aids_);
    below->addWidget(count_, 1);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 6, 6, 6);
    all->addWidget(filter_);
    all->addWidget(view_, 1);
    all->addLayout(below);
    connectView();
    showCount();
}

ElementPanel::~ElementPanel() {
    columns_->keep();
}

void ElementPanel::setUpSwitch() {
    aids_->setObjectName(QStringLiteral("aids"));
    aids_->setToolTip(tr("Openings, annotations, grids, virtual elements, ports and structural analysis"));
    connect(aids_, &QCheckBox::toggled, model_, &ElementTableModel::setAidsShown);
    // Only what the user wants is kept, not what was needed to show an element.
    connect(aids_, &QCheckBox::clicked, this, [](bool checked) { QSettings().setValue(AidsKey, checked); });
}

void ElementPanel::connectView() {
    connect(filter_, &QLineEdit::textChanged, this, &ElementPanel::applyFilter);
    connect(columns_, &ElementColumns::itemWanted, this, &ElementPanel::chooseItem);
    // The selection and not the current row: a table that gets the focus makes its first row the current one by itself.
    connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!changing_) takeSelection();
    });
    connect(view_, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (const auto element = model_->element(index.row())) Q_EMIT elementClicked(*element);
    });
    // Sorting resets the rows; the same elements stay selected, and the current one in sight.
    connect(model_, &QAbstractItemModel::modelAboutToBeReset, this, [this] { changing_ = true; });
    connect(model_, &QAbstractItemModel::modelReset, this, [this] {
        restoreSelection();
        changing_ = false;
        showCount();
    });
}

void ElementPanel::setSource(const model::Model* model, const ElementIndex* index) {
    current_.reset();
    selected_.clear();
    {
        const QSignalBlocker quiet(filter_);
        filter_->clear();
        model_->setFilter({});
    }
    model_->setSource(model, index);
    columns_->takeSource();
    filter_->setEnabled(model != nullptr);
    aids_->setChecked(QSettings().value(AidsKey).toBool());
    aids_->setEnabled(index && index->aidCount() > 0);
    view_->scrollToTop();
    Q_EMIT currentChanged();
}

void ElementPanel::refresh() {
    model_->refresh();
    Q_EMIT currentChanged();
}

QString ElementPanel::cellText(const QModelIndex& index) const {
    const auto element = model_->element(index.row());
    return element ? model_->text(*element, index.column()) : QString();
}

const std::vector<model::Element>& ElementPanel::shown() const {
    return model_->shown();
}

std::vector<Item> ElementPanel::shownItems() const {
    const std::vector<Item> items = model_->items();
    std::vector<Item> shown;
    for (const int column : columns_->shown()) {
        if (column >= ElementColumnCount) shown.push_back(items[static_cast<std::size_t>(column - ElementColumnCount)]);
    }
    return shown;
}

bool ElementPanel::roomsShown() const {
    return !view_->isColumnHidden(static_cast<int>(ElementColumn::Room));
}

std::optional<model::Element> ElementPanel::current() const {
    return current_;
}

void ElementPanel::select(model::Element element) {
    if (current_ == element && selected_.size() == 1) return;
    current_ = element;
    selected_ = {element};
    // Checking resets the rows, and the reset selects the element.
    if (!aids_->isChecked() && model_->index()->isAid(element)) {
        aids_->setChecked(true);
        Q_EMIT said(tr("The element is one of the openings and aids, which are shown from now on"));
    } else {
        const QScopedValueRollback hold(changing_, true);
        view_->clearSelection();
        restoreSelection();
    }
    Q_EMIT currentChanged();
}

void ElementPanel::focusFilter() {
    filter_->setFocus(Qt::ShortcutFocusReason);
    filter_->selectAll();
}

void ElementPanel::applyFilter() {
    model_->setFilter(filter_->text());
    if (!current_ || model_->rowOf(*current_) < 0) view_->scrollToTop();
}

void ElementPanel::takeSelection() {
    const QItemSelection& selection = view_->selectionModel()->selection();
    // Nothing selected is no choice of an element: the one that is shown stays.
    if (selection.isEmpty()) return;
    std::vector<std::pair<int, int>> ranges;
    for (const QItemSelectionRange& range : selection) ranges.emplace_back(range.top(), range.bottom());
    std::sort(ranges.begin(), ranges.end());
    selected_.clear();
    for (const auto& [top, bottom] : ranges) {
        const auto begin = model_->shown().begin();
        selected_.insert(selected_.end(), begin + top, begin + bottom + 1);
    }
    const QModelIndex pointedAt = view_->currentIndex();
    current_ = pointedAt.isValid() && view_->selectionModel()->isSelected(pointedAt) ? model_->element(pointedAt.row())
                                                                                     : std::optional(selected_.front());
    showCount();
    Q_EMIT currentChanged();
}

QItemSelection ElementPanel::rowsOf(const std::vector<model::Element>& elements) const {
    std::vector<bool> wanted(static_cast<std::size_t>(model_->total()), false);
    for (const model::Element element : elements) wanted[element] = true;
    // Made of runs and not of rows: a selection passes over its ranges whenever it is asked about a row.
    QItemSelection rows;
    const std::vector<model::Element>& shown = model_->shown();
    const int last = model_->columnCount() - 1;
    for (std::size_t row = 0; row < shown.size();) {
        std::size_t end = row;
        while (end < shown.size() && wanted[shown[end]]) ++end;
        if (end > row) {
            const auto top = static_cast<int>(row), bottom = static_cast<int>(end) - 1;
            rows.append(QItemSelectionRange(model_->QAbstractTableModel::index(top, 0),
                                            model_->QAbstractTableModel::index(bottom, last)));
        }
        row = end + 1;
    }
    return rows;
}

void ElementPanel::restoreSelection() {
    const int row = current_ ? model_->rowOf(*current_) : -1;
    if (row >= 0) {
        const int column = std::max(view_->currentIndex().column(), 0);
        const QModelIndex index = model_->QAbstractTableModel::index(row, column);
        view_->selectionModel()->setCurrentIndex(index,
                                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        view_->scrollTo(index);
    }
    if (selected_.size() > 1) view_->selectionModel()->select(rowsOf(selected_), QItemSelectionModel::ClearAndSelect);
}

void ElementPanel::showCount() {
    const auto elements = [](int count) {
        return counted(count, QT_TRANSLATE_NOOP("Counts", "element"), QT_TRANSLATE_NOOP("Counts", "elements"));
    };
    const int shown = model_->rowCount(), hidden = model_->hiddenAids();
    const bool filtered = shown + hidden != model_->total();
    QStringList parts;
    if (selected_.size() > 1) parts += tr("%1 selected").arg(number(static_cast<qint64>(selected_.size())));
    parts += filtered ? tr("%1 of %2").arg(number(shown), elements(model_->total())) : elements(shown);
    if (hidden) parts += tr("%1 openings and aids hidden").arg(number(hidden));
    count_->setText(parts.join(QStringLiteral(" · ")));
    count_->setToolTip(count_->text());
}

/// Those that are selected, the columns as they are shown, the texts whole.
void ElementPanel::copyRows() {
    QStringList lines;
    for (const model::Element element : selected_) {
        QStringList cells;
        for (const int column : columns_->shown()) cells += model_->text(element, column);
        lines += cells.join(u'\t');
    }
    if (!lines.isEmpty()) QApplication::clipboard()->setText(lines.join(u'\n'));
}

void ElementPanel::chooseItem() {
    ItemDialog dialog(*model_->source(), window());
    if (dialog.exec() != QDialog::Accepted) return;
    if (const auto item = dialog.item()) columns_->add(*item);
    if (!filter_->text().isEmpty()) {
        model_->refresh();  // what a filter finds depends on the columns
    } else {
        const QScopedValueRollback hold(changing_, true);
        restoreSelection();  // the rows' new cells are no part of it yet
    }
}

bool ElementPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (watched == view_ && key->matches(QKeySequence::Copy)) {
            copyRows();
            return true;
        }
        if (watched == filter_ && key->key() == Qt::Key_Escape && !filter_->text().isEmpty()) {
            filter_->clear();
            return true;
        }
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (watched == view_ && enter && current_) {
            Q_EMIT elementClicked(*current_);
            return true;
        }
        const bool down = key->key() == Qt::Key_Down || key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (watched == filter_ && down && model_->rowCount() > 0) {
            if (!view_->selectionModel()->hasSelection()) view_->selectRow(0);
            view_->setFocus(Qt::TabFocusReason);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace desktop
