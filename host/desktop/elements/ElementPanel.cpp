#include "desktop/elements/ElementPanel.hpp"

#include "desktop/QtText.hpp"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTableView>
#include <QVBoxLayout>

namespace desktop {

namespace {

/// Widths that show usual texts whole, in characters; 0 = what is left.
constexpr int ColumnCharacters[ElementColumnCount] = {15, 13, 0, 38, 22};

void setUpTable(QTableView* view) {
    view->setObjectName(QStringLiteral("elements"));
    view->setAccessibleName(ElementPanel::tr("Elements of the model"));
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
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
      count_(new QLabel(this)) {
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setAccessibleName(tr("Filter of the elements"));
    filter_->setPlaceholderText(tr("Filter: words from any column, or a GUID"));
    filter_->setClearButtonEnabled(true);
    filter_->installEventFilter(this);
    count_->setObjectName(QStringLiteral("elementCount"));
    count_->setAccessibleName(tr("Number of elements shown"));

    setUpTable(view_);
    view_->setModel(model_);
    view_->setSortingEnabled(true);
    view_->installEventFilter(this);
    // Names have what the other columns leave.
    view_->horizontalHeader()->setSectionResizeMode(static_cast<int>(ElementColumn::Name), QHeaderView::Stretch);
    for (int column = 0; column < ElementColumnCount; ++column) {
        if (ColumnCharacters[column])
            view_->setColumnWidth(column, view_->fontMetrics().averageCharWidth() * ColumnCharacters[column]);
    }

    auto* top = new QHBoxLayout;
    top->addWidget(filter_, 1);
    top->addWidget(count_);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 6, 6, 6);
    all->addLayout(top);
    all->addWidget(view_, 1);

    connect(filter_, &QLineEdit::textChanged, this, &ElementPanel::applyFilter);
    // The selection and not the current row: a table that gets the focus makes its first row the current one by itself.
    connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this](const QItemSelection& rows) {
        if (changing_ || rows.isEmpty()) return;
        current_ = model_->element(rows.first().top());
        Q_EMIT currentChanged();
    });
    connect(view_, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (const auto element = model_->element(index.row())) Q_EMIT elementClicked(*element);
    });
    // Sorting resets the rows; the same element stays the current one and in sight.
    connect(model_, &QAbstractItemModel::modelAboutToBeReset, this, [this] { changing_ = true; });
    connect(model_, &QAbstractItemModel::modelReset, this, [this] {
        restoreCurrent(current_);
        changing_ = false;
        showCount();
    });
    showCount();
}

void ElementPanel::setSource(const model::Model* model, const ElementIndex* index) {
    current_.reset();
    {
        const QSignalBlocker quiet(filter_);
        filter_->clear();
        model_->setFilter({});
    }
    model_->setSource(model, index);
    filter_->setEnabled(model != nullptr);
    view_->scrollToTop();
    Q_EMIT currentChanged();
}

void ElementPanel::refresh() {
    model_->refresh();
    Q_EMIT currentChanged();
}

QString ElementPanel::cellText(const QModelIndex& index) const {
    const auto element = model_->element(index.row());
    return element ? model_->text(*element, static_cast<ElementColumn>(index.column())) : QString();
}

const std::vector<model::Element>& ElementPanel::shown() const {
    return model_->shown();
}

std::optional<model::Element> ElementPanel::current() const {
    return current_;
}

void ElementPanel::select(model::Element element) {
    if (current_ == element) return;
    current_ = element;
    {
        const QScopedValueRollback hold(changing_, true);
        view_->clearSelection();
        restoreCurrent(current_);
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

void ElementPanel::restoreCurrent(std::optional<model::Element> element) {
    const int row = element ? model_->rowOf(*element) : -1;
    if (row < 0) return;
    const int column = std::max(view_->currentIndex().column(), 0);
    view_->setCurrentIndex(model_->index(row, column));
    view_->scrollTo(model_->index(row, column));
}

void ElementPanel::showCount() {
    const int shown = model_->rowCount();
    const QString all =
        counted(model_->total(), QT_TRANSLATE_NOOP("Counts", "element"), QT_TRANSLATE_NOOP("Counts", "elements"));
    count_->setText(shown == model_->total() ? all : tr("%1 of %2").arg(number(shown), all));
}

void ElementPanel::copyRow() {
    if (!current_) return;
    QStringList cells;
    for (int column = 0; column < ElementColumnCount; ++column) {
        cells += model_->text(*current_, static_cast<ElementColumn>(column));
    }
    QApplication::clipboard()->setText(cells.join(u'\t'));
}

bool ElementPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (watched == view_ && key->matches(QKeySequence::Copy)) {
            copyRow();
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
