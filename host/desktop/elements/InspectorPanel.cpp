#include "desktop/elements/InspectorPanel.hpp"

#include "desktop/QtText.hpp"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QScrollBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace desktop {

namespace {

/// The role of a cell's text as the model has it, for copying.
constexpr int StoredText = Qt::UserRole;

QTreeWidgetItem* addRow(QTreeWidgetItem* group, const QString& name, const QString& value) {
    auto* row = new QTreeWidgetItem(group, {visible(name), visible(value)});
    row->setData(0, StoredText, name);
    row->setData(1, StoredText, value);
    row->setToolTip(0, asPlainToolTip(name));
    if (!value.isEmpty()) row->setToolTip(1, asPlainToolTip(value));
    return row;
}

QString primitiveText(const model::PropertyValue& value) {
    switch (value.primitive) {
        case model::Primitive::Integer:
            return QString::number(value.integer);
        case model::Primitive::Real:
            return QString::number(value.real, 'g', QLocale::FloatingPointShortest);
        case model::Primitive::Boolean:
            return value.boolean ? QStringLiteral("true") : QStringLiteral("false");
        case model::Primitive::Logical:
            return value.integer == 2   ? QStringLiteral("true")
                   : value.integer == 1 ? QStringLiteral("unknown")
                                        : QStringLiteral("false");
        case model::Primitive::String:
        case model::Primitive::Other:
            break;
    }
    return toQString(value.string);
}

}  // namespace

QString valueText(const model::Property& property) {
    switch (property.kind) {
        case model::PropertyKind::Single:
            return primitiveText(property.value);
        case model::PropertyKind::List:
            return QStringLiteral("(list of values)");
        case model::PropertyKind::Bounded:
            return QStringLiteral("(bounded value)");
        case model::PropertyKind::Enumerated:
            return QStringLiteral("(enumerated value)");
        case model::PropertyKind::Table:
            return QStringLiteral("(table of values)");
        case model::PropertyKind::Reference:
            return QStringLiteral("(reference)");
    }
    return {};
}

InspectorPanel::InspectorPanel(QWidget* parent)
    : QWidget(parent), heading_(new QLabel(this)), view_(new QTreeWidget(this)) {
    heading_->setObjectName(QStringLiteral("elementHeading"));
    heading_->setTextFormat(Qt::PlainText);
    heading_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    heading_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    view_->setObjectName(QStringLiteral("inspector"));
    view_->setAccessibleName(QStringLiteral("Data of the selected element"));
    view_->setHeaderLabels({QStringLiteral("Name"), QStringLiteral("Value")});
    view_->header()->setDefaultSectionSize(fontMetrics().averageCharWidth() * 22);
    view_->setUniformRowHeights(true);
    view_->setAlternatingRowColors(true);
    view_->setIndentation(14);
    view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view_->installEventFilter(this);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 6, 6, 6);
    all->addWidget(heading_);
    all->addWidget(view_, 1);
    connect(view_, &QTreeWidget::itemCollapsed, this,
            [this](QTreeWidgetItem* item) { closedGroups_ += item->text(0); });
    connect(view_, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) { closedGroups_ -= item->text(0); });
    show(nullptr, std::nullopt);
}

void InspectorPanel::show(const model::Model* model, std::optional<model::Element> element) {
    // Elements of one kind have their data in the same places: what was in sight stays in sight from one to the next.
    const int scrolled = view_->verticalScrollBar()->value();
    view_->setUpdatesEnabled(false);
    view_->clear();
    if (model && element) {
        const QString name = toQString(model->name(*element));
        const QString type = toQString(model->info(*element).typeName);
        heading_->setText(visible(name.isEmpty() ? type : QStringLiteral("%1 – %2").arg(name, type)));
        addIdentity(*model, *element);
        addAttributes(*model, *element);
        addProperties(*model, *element);
        addClassifications(*model, *element);
    } else {
        heading_->setText(model ? QStringLiteral("No element selected") : QString());
    }
    view_->verticalScrollBar()->setValue(scrolled);
    view_->setUpdatesEnabled(true);
}

QTreeWidgetItem* InspectorPanel::group(const QString& title) {
    auto* item = new QTreeWidgetItem(view_, {title});
    QFont font = view_->font();
    font.setBold(true);
    item->setFont(0, font);
    item->setFirstColumnSpanned(true);
    item->setExpanded(!closedGroups_.contains(title));
    return item;
}

void InspectorPanel::addIdentity(const model::Model& model, model::Element element) {
    const model::ElementInfo info = model.info(element);
    QTreeWidgetItem* identity = group(QStringLiteral("Element"));
    addRow(identity, QStringLiteral("GUID"), guidText(info.guid));
    addRow(identity, QStringLiteral("Class"), toQString(info.ifcClass));
    addRow(identity, QStringLiteral("Storey"), toQString(model.storey(element)));
    addRow(identity, QStringLiteral("Instance"), QStringLiteral("#%1").arg(info.instanceId));
    // Only the first of them is read and changed; see Model::remarks.
    if (model.hasDuplicates(element)) {
        addRow(identity, QStringLiteral("Note"), QStringLiteral("Others in the file bear the same GlobalId"));
    }
}

void InspectorPanel::addAttributes(const model::Model& model, model::Element element) {
    QTreeWidgetItem* attributes = group(QStringLiteral("Attributes"));
    const auto read = model.attributes(element);
    if (!read) {
        addRow(attributes, QStringLiteral("Not readable"), toQString(read.error().message));
        return;
    }
    for (const model::Attribute& attribute : *read) {
        addRow(attributes, toQString(attribute.name), toQString(attribute.value));
    }
}

void InspectorPanel::addProperties(const model::Model& model, model::Element element) {
    const auto read = model.properties(element);
    if (!read) {
        addRow(group(QStringLiteral("Properties")), QStringLiteral("Not readable"), toQString(read.error().message));
        return;
    }
    QHash<QString, QTreeWidgetItem*> sets;
    for (const model::Property& property : *read) {
        QString title = toQString(property.set);
        if (property.inherited) title += QStringLiteral(" (from the type)");
        QTreeWidgetItem*& set = sets[title];
        if (!set) set = group(title);
        QTreeWidgetItem* row = addRow(set, toQString(property.name), valueText(property));
        // Grey: an update cannot change it.
        if (property.kind != model::PropertyKind::Single) {
            row->setForeground(1, palette().brush(QPalette::Disabled, QPalette::Text));
        }
    }
}

void InspectorPanel::addClassifications(const model::Model& model, model::Element element) {
    const auto read = model.classifications(element);
    if (read && read->empty()) return;
    QTreeWidgetItem* references = group(QStringLiteral("Classification references"));
    if (!read) {
        addRow(references, QStringLiteral("Not readable"), toQString(read.error().message));
        return;
    }
    for (const model::ClassificationReference& reference : *read) {
        const QString code = toQString(reference.itemReference.value_or(u""));
        const QString name = toQString(reference.name.value_or(u""));
        addRow(references, toQString(reference.system), QString(code + u' ' + name).trimmed());
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
    if (watched == view_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        copySelection();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace desktop
