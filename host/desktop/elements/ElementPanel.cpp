#include "desktop/elements/ElementPanel.hpp"

#include "desktop/Text.hpp"

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
constexpr int columnCharacters[elementColumnCount] = {15, 13, 0, 38, 22};

void setUpTable(QTableView* view) {
    view->setObjectName(QStringLiteral("elements"));
    view->setAccessibleName(QStringLiteral("Elements of the model"));
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
    view->horizontalHeader()->setAccessibleName(QStringLiteral("Columns of the elements"));
}

}  // namespace

ElementPanel::ElementPanel(QWidget* parent)
    : QWidget(parent),
      model(new ElementTableModel(this)),
      filter(new QLineEdit(this)),
      view(new QTableView(this)),
      count(new QLabel(this)) {
    filter->setObjectName(QStringLiteral("filter"));
    filter->setAccessibleName(QStringLiteral("Filter of the elements"));
    filter->setPlaceholderText(QStringLiteral("Filter: words from any column, or a GUID"));
    filter->setClearButtonEnabled(true);
    filter->installEventFilter(this);
    count->setObjectName(QStringLiteral("elementCount"));
    count->setAccessibleName(QStringLiteral("Number of elements shown"));

    setUpTable(view);
    view->setModel(model);
    view->setSortingEnabled(true);
    view->installEventFilter(this);
    // Names have what the other columns leave.
    view->horizontalHeader()->setSectionResizeMode(static_cast<int>(ElementColumn::Name), QHeaderView::Stretch);
    for (int column = 0; column < elementColumnCount; ++column) {
        if (columnCharacters[column])
            view->setColumnWidth(column, view->fontMetrics().averageCharWidth() * columnCharacters[column]);
    }

    auto* top = new QHBoxLayout;
    top->addWidget(filter, 1);
    top->addWidget(count);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 6, 6, 6);
    all->addLayout(top);
    all->addWidget(view, 1);

    connect(filter, &QLineEdit::textChanged, this, &ElementPanel::applyFilter);
    // The selection and not the current row: a table that gets the focus makes its first row the current one by itself.
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this](const QItemSelection& rows) {
        if (changing || rows.isEmpty()) return;
        chosen = model->element(rows.first().top());
        Q_EMIT currentChanged();
    });
    // Sorting resets the rows; the same element stays the current one and in sight.
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this, [this] { changing = true; });
    connect(model, &QAbstractItemModel::modelReset, this, [this] {
        restoreCurrent(chosen);
        changing = false;
        showCount();
    });
    showCount();
}

void ElementPanel::setSource(const model::Model* source, const ElementIndex* index) {
    chosen.reset();
    {
        const QSignalBlocker quiet(filter);
        filter->clear();
        model->setFilter({});
    }
    model->setSource(source, index);
    filter->setEnabled(source != nullptr);
    view->scrollToTop();
    Q_EMIT currentChanged();
}

void ElementPanel::refresh() {
    model->refresh();
    Q_EMIT currentChanged();
}

std::optional<model::Element> ElementPanel::current() const {
    return chosen;
}

void ElementPanel::select(model::Element element) {
    if (chosen == element) return;
    chosen = element;
    {
        const QScopedValueRollback hold(changing, true);
        view->clearSelection();
        restoreCurrent(chosen);
    }
    Q_EMIT currentChanged();
}

void ElementPanel::focusFilter() {
    filter->setFocus(Qt::ShortcutFocusReason);
    filter->selectAll();
}

void ElementPanel::applyFilter() {
    model->setFilter(filter->text());
    if (!chosen || model->rowOf(*chosen) < 0) view->scrollToTop();
}

void ElementPanel::restoreCurrent(std::optional<model::Element> element) {
    const int row = element ? model->rowOf(*element) : -1;
    if (row < 0) return;
    const int column = std::max(view->currentIndex().column(), 0);
    view->setCurrentIndex(model->index(row, column));
    view->scrollTo(model->index(row, column));
}

void ElementPanel::showCount() {
    const int shown = model->rowCount();
    const QString all = counted(model->total(), "element", "elements");
    count->setText(shown == model->total() ? all : QStringLiteral("%1 of %2").arg(number(shown), all));
}

void ElementPanel::copyRow() {
    if (!chosen) return;
    QStringList cells;
    for (int column = 0; column < elementColumnCount; ++column) {
        cells += model->text(*chosen, static_cast<ElementColumn>(column));
    }
    QApplication::clipboard()->setText(cells.join(u'\t'));
}

bool ElementPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (watched == view && key->matches(QKeySequence::Copy)) {
            copyRow();
            return true;
        }
        if (watched == filter && key->key() == Qt::Key_Escape && !filter->text().isEmpty()) {
            filter->clear();
            return true;
        }
        const bool down = key->key() == Qt::Key_Down || key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (watched == filter && down && model->rowCount() > 0) {
            if (!view->selectionModel()->hasSelection()) view->selectRow(0);
            view->setFocus(Qt::TabFocusReason);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace desktop
