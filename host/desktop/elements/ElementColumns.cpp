#include "desktop/elements/ElementColumns.hpp"

#include "desktop/QtText.hpp"
#include "desktop/elements/ElementTableModel.hpp"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QSettings>
#include <QTableView>
#include <algorithm>

namespace desktop {

namespace {

const QString ColumnsKey = QStringLiteral("elements/columns");
const QString GuidsKey = QStringLiteral("elements/wholeGuids");

/// Names in the settings, and widths that show usual texts whole, in characters; 0 = what is left.
constexpr struct {
    const char* key;
    int characters;
} Usual[ElementColumnCount] = {{"storey", 15}, {"type", 13}, {"name", 0}, {"room", 18}, {"guid", 16}, {"class", 22}};
constexpr int ItemCharacters = 18;
constexpr int WholeGuidCharacters = 38;
constexpr int SaveMs = 300;

constexpr int NameColumn = static_cast<int>(ElementColumn::Name);
constexpr int RoomColumn = static_cast<int>(ElementColumn::Room);
constexpr int GuidColumn = static_cast<int>(ElementColumn::Guid);

}  // namespace

ElementColumns::ElementColumns(QTableView* view, ElementTableModel* model)
    : QObject(view), view_(view), model_(model), menu_(new QMenu(tr("&Columns"), view)) {
    std::fill(std::begin(wanted_), std::end(wanted_), true);
    menu_->setObjectName(QStringLiteral("columnMenu"));
    QHeaderView* header = view_->horizontalHeader();
    header->setSectionsMovable(true);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QWidget::customContextMenuRequested, menu_,
            [this, header](const QPoint& place) { menu_->popup(header->viewport()->mapToGlobal(place)); });
    connect(menu_, &QMenu::aboutToShow, this, &ElementColumns::fillMenu);
    saver_.setSingleShot(true);
    saver_.setInterval(SaveMs);
    connect(&saver_, &QTimer::timeout, this, &ElementColumns::save);
    const auto changed = [this] {
        if (restored_) saver_.start();
    };
    connect(header, &QHeaderView::sectionMoved, this, changed);
    connect(header, &QHeaderView::sectionResized, this, changed);
    restore();
}

void ElementColumns::keep() {
    if (saver_.isActive()) save();
}

QString ElementColumns::keyOf(int column) const {
    if (column < ElementColumnCount) return QString::fromLatin1(Usual[column].key);
    return model_->items()[static_cast<std::size_t>(column - ElementColumnCount)].key();
}

std::vector<int> ElementColumns::shown() const {
    std::vector<int> columns;
    const QHeaderView* header = view_->horizontalHeader();
    for (int place = 0; place < header->count(); ++place) {
        const int column = header->logicalIndex(place);
        if (!header->isSectionHidden(column)) columns.push_back(column);
    }
    return columns;
}

/// The usual widths and order.
void ElementColumns::arrangeAnew() {
    QHeaderView* header = view_->horizontalHeader();
    const int character = view_->fontMetrics().averageCharWidth();
    // Names have what the other columns leave.
    header->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    for (int column = 0; column < header->count(); ++column) {
        header->moveSection(header->visualIndex(column), column);
        const int usual = column < ElementColumnCount ? Usual[column].characters : ItemCharacters;
        if (usual) header->resizeSection(column, usual * character);
    }
}

void ElementColumns::restore() {
    QSettings settings;
    model_->setGuidsWhole(settings.value(GuidsKey).toBool());
    struct Column {
        QString key;
        bool hidden;
        int width;
    };
    std::vector<Column> columns;
    const int count = settings.beginReadArray(ColumnsKey);
    for (int i = 0; i < count; ++i) {
        settings.setArrayIndex(i);
        columns.push_back({settings.value(QStringLiteral("key")).toString(),
                           settings.value(QStringLiteral("hidden")).toBool(),
                           settings.value(QStringLiteral("width")).toInt()});
        const auto item = Item::fromKey(columns.back().key);
        if (item) model_->addItem(*item);
    }
    settings.endArray();
    arrangeAnew();
    QHeaderView* header = view_->horizontalHeader();
    int place = 0;
    for (const Column& column : columns) {
        for (int i = 0; i < header->count(); ++i) {
            if (keyOf(i) != column.key) continue;
            header->moveSection(header->visualIndex(i), place++);
            if (i != NameColumn && column.width > 0) header->resizeSection(i, column.width);
            if (i < ElementColumnCount) wanted_[i] = !column.hidden;
            break;
        }
    }
    takeSource();
    // Only now: that columns were moved so far was no wish of the user's.
    restored_ = true;
}

void ElementColumns::save() {
    saver_.stop();
    QSettings settings;
    settings.setValue(GuidsKey, model_->guidsWhole());
    // The columns of a longer array would stay behind those of a shorter one.
    settings.remove(ColumnsKey);
    settings.beginWriteArray(ColumnsKey);
    const QHeaderView* header = view_->horizontalHeader();
    for (int place = 0; place < header->count(); ++place) {
        const int column = header->logicalIndex(place);
        settings.setArrayIndex(place);
        settings.setValue(QStringLiteral("key"), keyOf(column));
        settings.setValue(QStringLiteral("hidden"), column < ElementColumnCount && !wanted_[column]);
        // One that is hidden has no width of its own: it comes back with the usual one.
        settings.setValue(QStringLiteral("width"), header->sectionSize(column));
    }
    settings.endArray();
}

void ElementColumns::takeSource() {
    const bool noRooms = model_->index() && !model_->index()->hasRooms();
    for (int column = 0; column < ElementColumnCount; ++column)
        view_->setColumnHidden(column, !wanted_[column] || (column == RoomColumn && noRooms));
}

void ElementColumns::setWanted(ElementColumn column, bool wanted) {
    wanted_[static_cast<int>(column)] = wanted;
    takeSource();
    saver_.start();
}

void ElementColumns::addToggle(int column) {
    const QString title = model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    // An ampersand in a name of the model marks no shortcut key.
    QAction* toggle = menu_->addAction(QString(title).replace(u'&', QStringLiteral("&&")));
    toggle->setObjectName(QStringLiteral("column%1").arg(column));
    toggle->setCheckable(true);
    toggle->setChecked(column >= ElementColumnCount || wanted_[column]);
    // A table without columns has no header to bring one back by.
    toggle->setEnabled(!toggle->isChecked() || shown().size() > 1);
    connect(toggle, &QAction::triggered, this, [this, column](bool checked) {
        if (column < ElementColumnCount) {
            setWanted(static_cast<ElementColumn>(column), checked);
        } else {
            remove(column);
        }
    });
}

void ElementColumns::fillMenu() {
    menu_->clear();
    for (int column = 0; column < model_->columnCount(); ++column) addToggle(column);
    menu_->addSeparator();
    QAction* add = menu_->addAction(tr("&Add Column…"));
    add->setObjectName(QStringLiteral("addColumn"));
    add->setEnabled(model_->source() != nullptr);
    connect(add, &QAction::triggered, this, &ElementColumns::itemWanted);
    QAction* whole = menu_->addAction(tr("&Whole GUIDs"));
    whole->setObjectName(QStringLiteral("wholeGuids"));
    whole->setCheckable(true);
    whole->setChecked(model_->guidsWhole());
    connect(whole, &QAction::triggered, this, [this](bool checked) {
        model_->setGuidsWhole(checked);
        const int characters = checked ? WholeGuidCharacters : Usual[GuidColumn].characters;
        view_->setColumnWidth(GuidColumn, characters * view_->fontMetrics().averageCharWidth());
        saver_.start();
    });
    QAction* usual = menu_->addAction(tr("Columns as at &First"));
    usual->setObjectName(QStringLiteral("usualColumns"));
    connect(usual, &QAction::triggered, this, &ElementColumns::reset);
}

void ElementColumns::add(const Item& item) {
    const std::vector<Item> known = model_->items();
    const auto found = std::find(known.begin(), known.end(), item);
    const int column = ElementColumnCount + static_cast<int>(found - known.begin());
    if (found == known.end()) {
        model_->addItem(item);
        view_->setColumnWidth(column, ItemCharacters * view_->fontMetrics().averageCharWidth());
        saver_.start();
    }
    view_->scrollTo(model_->QAbstractTableModel::index(std::max(view_->currentIndex().row(), 0), column));
}

void ElementColumns::remove(int column) {
    QHeaderView* header = view_->horizontalHeader();
    const int sorted = header->sortIndicatorSection();
    const Qt::SortOrder order = header->sortIndicatorOrder();
    const int left = sorted == column ? -1 : sorted - (sorted > column);
    model_->removeItem(column - ElementColumnCount);
    // The rows stay as they are; the sign moves with its column, or goes with it.
    const QSignalBlocker quiet(header);
    header->setSortIndicator(left, order);
    saver_.start();
}

void ElementColumns::reset() {
    while (model_->columnCount() > ElementColumnCount) remove(ElementColumnCount);
    std::fill(std::begin(wanted_), std::end(wanted_), true);
    model_->setGuidsWhole(false);
    takeSource();
    arrangeAnew();
    saver_.start();
}

}  // namespace desktop
