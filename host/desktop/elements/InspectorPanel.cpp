#include "desktop/elements/InspectorPanel.hpp"

#include "desktop/QtText.hpp"
#include "desktop/elements/ValueText.hpp"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace desktop {

namespace {

/// The role of a cell's text as the model has it, for copying.
constexpr int StoredText = Qt::UserRole;

/// The role of the item's key; rows without it cannot be changed.
constexpr int ItemKey = Qt::UserRole + 1;

/// The role of whether several elements hold different values: the editor begins empty then.
constexpr int IsVarious = Qt::UserRole + 2;

/// Lets the second cell of rows that an update can change be written over. What is written is only told.
class ValueDelegate : public QStyledItemDelegate {
public:
    using Tell = std::function<void(const QModelIndex& index, const QString& value)>;
    ValueDelegate(QObject* parent, Tell tell) : QStyledItemDelegate(parent), tell_(std::move(tell)) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const override {
        if (index.column() != 1 || !index.siblingAtColumn(0).data(ItemKey).isValid()) return nullptr;
        auto* editor = new QLineEdit(parent);
        editor->setObjectName(QStringLiteral("valueEditor"));
        editor->setAccessibleName(
            InspectorPanel::tr("New value of %1").arg(index.siblingAtColumn(0).data().toString()));
        editor->setFrame(false);
        return editor;
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        static_cast<QLineEdit*>(editor)->setText(index.data(StoredText).toString());
        static_cast<QLineEdit*>(editor)->selectAll();
    }
    void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const override {
        const auto* line = static_cast<QLineEdit*>(editor);
        // An editor that was only looked at must not empty what differs.
        if (index.data(IsVarious).toBool() && !line->isModified()) return;
        tell_(index, line->text());
    }

private:
    Tell tell_;
};

QTreeWidgetItem* addRow(QTreeWidgetItem* group, const QString& name, const QString& value) {
    auto* row = new QTreeWidgetItem(group, {visible(name), visible(value)});
    row->setData(0, StoredText, name);
    row->setData(1, StoredText, value);
    row->setToolTip(0, asPlainToolTip(name));
    if (!value.isEmpty()) row->setToolTip(1, asPlainToolTip(value));
    return row;
}

}  // namespace

InspectorPanel::InspectorPanel(QWidget* parent)
    : QWidget(parent), heading_(new QLabel(this)), view_(new QTreeWidget(this)) {
    heading_->setObjectName(QStringLiteral("elementHeading"));
    heading_->setTextFormat(Qt::PlainText);
    heading_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    heading_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    view_->setObjectName(QStringLiteral("inspector"));
    view_->setAccessibleName(tr("Data of the selected element"));
    view_->setHeaderLabels({tr("Name"), tr("Value")});
    view_->header()->setDefaultSectionSize(fontMetrics().averageCharWidth() * 22);
    view_->setUniformRowHeights(true);
    // Room for a review below it on a small screen.
    view_->setMinimumHeight(2 * fontMetrics().height());
    view_->setAlternatingRowColors(true);
    view_->setIndentation(14);
    view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    view_->setItemDelegate(new ValueDelegate(view_, [this](const QModelIndex& index, const QString& value) {
        const auto item = Item::fromKey(index.siblingAtColumn(0).data(ItemKey).toString());
        // The rows are made anew by what comes of this: not while the editor is still open in one of them.
        if (item) QTimer::singleShot(0, this, [=, this] { Q_EMIT valueProposed(*item, value); });
    }));
    view_->installEventFilter(this);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 6, 6, 6);
    all->addWidget(heading_);
    all->addWidget(view_, 1);
    connect(view_, &QTreeWidget::itemCollapsed, this,
            [this](QTreeWidgetItem* item) { closedGroups_ += item->text(0); });
    connect(view_, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) { closedGroups_ -= item->text(0); });
    show(nullptr, {});
}

void InspectorPanel::show(const model::Model* model, const std::vector<model::Element>& elements) {
    // Elements of one kind have their data in the same places: what was in sight stays in sight from one to the next.
    const int scrolled = view_->verticalScrollBar()->value();
    elements_ = model ? elements : std::vector<model::Element>();
    view_->setUpdatesEnabled(false);
    keepCurrent([&] { fill(model); });
    view_->verticalScrollBar()->setValue(scrolled);
    view_->setUpdatesEnabled(true);
}

/// The row of the same name in the same group stays the current one: people go through an item of many elements, and
/// on from an item that they have changed.
void InspectorPanel::keepCurrent(const std::function<void()>& refill) {
    const QTreeWidgetItem* before = view_->currentItem();
    const QString name = before && before->parent() ? before->text(0) : QString();
    const QString title = name.isEmpty() ? QString() : before->parent()->text(0);
    view_->clear();
    groups_.clear();
    refill();
    const QTreeWidgetItem* group = groups_.value(title);
    for (int i = 0; group && i < group->childCount(); ++i) {
        if (group->child(i)->text(0) == name) view_->setCurrentItem(group->child(i));
    }
}

void InspectorPanel::fill(const model::Model* model) {
    if (elements_.size() > 1) {
        showCommon(*model);
    } else if (elements_.size() == 1) {
        const model::Element element = elements_.front();
        const QString name = shownName(*model, element);
        const QString type = toQString(model->info(element).typeName.text());
        heading_->setText(visible(name.isEmpty() ? type : QStringLiteral("%1 – %2").arg(name, type)));
        addIdentity(*model, element);
        addAttributes(*model, element);
        addProperties(*model, element);
        addClassifications(*model, element);
    } else {
        heading_->setText(model ? tr("No element selected") : QString());
    }
}

void InspectorPanel::showCommon(const model::Model& model) {
    heading_->setText(tr("%1 elements selected").arg(number(static_cast<qint64>(elements_.size()))));
    if (elements_.size() > MostCompared) {
        addRow(group(tr("Element")), tr("Note"),
               tr("The values of more than %1 elements are not compared").arg(number(MostCompared)));
        return;
    }
    const CommonValues common = commonValues(model, elements_);
    if (common.unreadable) {
        addRow(group(tr("Element")), tr("Not readable"),
               tr("%1 of them").arg(number(static_cast<qint64>(common.unreadable))));
    }
    for (const CommonValue& value : common.values) addCommon(value);
}

void InspectorPanel::addCommon(const CommonValue& common) {
    const QString title = common.item.kind == ItemKind::Attribute  ? tr("Attributes")
                          : common.item.kind == ItemKind::Property ? common.item.set
                                                                   : tr("Classification references");
    QTreeWidgetItem* row = addRow(group(title), common.item.name, commonText(common));
    row->setData(1, StoredText, common.various ? QString() : common.value);
    row->setData(1, IsVarious, common.various);
    const QBrush grey = palette().brush(QPalette::Disabled, QPalette::Text);
    if (common.various) {
        QFont font = view_->font();
        font.setItalic(true);
        row->setFont(1, font);
    }
    if (common.changeable) {
        makeEditable(row, common.item);
    } else {
        row->setForeground(1, grey);
    }
}

QString InspectorPanel::commonText(const CommonValue& common) const {
    const bool all = common.elements == elements_.size();
    const QString some = number(static_cast<qint64>(common.elements));
    const QString whole = number(static_cast<qint64>(elements_.size()));
    if (common.various) return all ? tr("(various)") : tr("(various, in %1 of %2)").arg(some, whole);
    return all ? common.value : tr("%1   (in %2 of %3)").arg(common.value, some, whole);
}

/// The one of that title, made where there is none yet.
QTreeWidgetItem* InspectorPanel::group(const QString& title) {
    QTreeWidgetItem*& item = groups_[title];
    if (item) return item;
    item = new QTreeWidgetItem(view_, {title});
    QFont font = view_->font();
    font.setBold(true);
    item->setFont(0, font);
    item->setFirstColumnSpanned(true);
    item->setExpanded(!closedGroups_.contains(title));
    return item;
}

QString InspectorPanel::storedValue(const QTreeWidgetItem& row) const {
    return row.data(1, StoredText).toString();
}

void InspectorPanel::editValue(const QTreeWidgetItem& row) {
    view_->edit(view_->indexFromItem(&row, 1));
}

void InspectorPanel::setFooter(QWidget* footer) {
    layout()->addWidget(footer);
}

void InspectorPanel::makeEditable(QTreeWidgetItem* row, const Item& item) {
    row->setFlags(row->flags() | Qt::ItemIsEditable);
    row->setData(0, ItemKey, item.key());
    if (proposals_) showProposal(row, item);
}

/// Beside what the model holds. Of several elements each may have another one, or none.
void InspectorPanel::showProposal(QTreeWidgetItem* row, const Item& item) {
    const std::string designation = item.designation();
    std::optional<QString> proposed;
    for (const model::Element element : elements_) {
        const auto one = proposals_(element, designation);
        if (one && proposed && *one != *proposed) proposed = tr("(various)");
        if (one && !proposed) proposed = one;
    }
    if (!proposed) return;
    row->setText(1, QStringLiteral("%1 → %2").arg(row->text(1), visible(*proposed)));
    QFont font = row->font(1);
    font.setBold(true);
    row->setFont(1, font);
    row->setToolTip(1, asPlainToolTip(tr("Proposed by hand: %1").arg(*proposed)));
}

void InspectorPanel::addIdentity(const model::Model& model, model::Element element) {
    const model::ElementInfo info = model.info(element);
    QTreeWidgetItem* identity = group(tr("Element"));
    addRow(identity, tr("GUID"), guidText(info.guid));
    addRow(identity, tr("Class"), toQString(info.ifcClass));
    addRow(identity, tr("Storey"), toQString(model.storey(element)));
    addRow(identity, tr("Instance"), QStringLiteral("#%1").arg(info.instanceId));
    // Only the first of them is read and changed; see Model::remarks.
    if (model.hasDuplicates(element)) {
        addRow(identity, tr("Note"), tr("Others in the file bear the same GlobalId"));
    }
}

void InspectorPanel::addAttributes(const model::Model& model, model::Element element) {
    QTreeWidgetItem* attributes = group(tr("Attributes"));
    const auto read = model.attributes(element);
    if (!read) {
        addRow(attributes, tr("Not readable"), toQString(read.error().message));
        return;
    }
    for (const model::Attribute& attribute : *read) {
        QTreeWidgetItem* row = addRow(attributes, toQString(attribute.name), toQString(attribute.value));
        makeEditable(row, {ItemKind::Attribute, {}, toQString(attribute.name)});
    }
}

void InspectorPanel::addProperties(const model::Model& model, model::Element element) {
    const auto read = model.properties(element);
    if (!read) {
        addRow(group(tr("Properties")), tr("Not readable"), toQString(read.error().message));
        return;
    }
    for (const model::Property& property : *read) {
        QString title = toQString(property.set);
        if (property.inherited) title += tr(" (from the type)");
        QTreeWidgetItem* row = addRow(group(title), toQString(property.name), valueText(property));
        // Grey: an update cannot change it.
        if (property.kind != model::PropertyKind::Single) {
            row->setForeground(1, palette().brush(QPalette::Disabled, QPalette::Text));
        } else {
            makeEditable(row, {ItemKind::Property, toQString(property.set), toQString(property.name)});
        }
    }
}

void InspectorPanel::addClassifications(const model::Model& model, model::Element element) {
    const auto read = model.classifications(element);
    if (read && read->empty()) return;
    QTreeWidgetItem* references = group(tr("Classification references"));
    if (!read) {
        addRow(references, tr("Not readable"), toQString(read.error().message));
        return;
    }
    for (const model::ClassificationReference& reference : *read) {
        addRow(references, toQString(reference.system), valueText(reference));
    }
}

void InspectorPanel::copySelection() {
    QStringList lines;
    for (const QTreeWidgetItem* item : view_->selectedItems()) {
        const auto stored = [item](int column) { return item->data(column, StoredText).toString(); };
        lines += item->childCount() ? item->text(0) : stored(0) + u'\t' + stored(1);
    }
    if (!lines.isEmpty()) QApplication::clipboard()->setText(lines.join(u'\n'));
}

bool InspectorPanel::eventFilter(QObject* watched, QEvent* event) {
    // What the user has just changed stays in sight when the line below the data comes up.
    if (watched == view_ && event->type() == QEvent::Resize && view_->currentItem())
        QTimer::singleShot(0, view_, [this] { view_->scrollTo(view_->currentIndex()); });
    if (watched == view_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        copySelection();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace desktop
