#include "desktop/elements/ItemDialog.hpp"

#include "desktop/QtText.hpp"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace desktop {

namespace {

/// Counting goes on in the window's thread, the only one that may ask the model: in slices, so that keys are answered.
constexpr int SliceMs = 12;
/// The list is shown for the first time after so many elements, then after twice as many each time: making it anew may
/// cost as much as counting has.
constexpr model::Element FirstFill = 500;
constexpr int ItemRole = Qt::UserRole, TextRole = Qt::UserRole + 1;

}  // namespace

ItemDialog::ItemDialog(const model::Model& model, QWidget* parent)
    : QDialog(parent),
      model_(model),
      census_(model),
      nextFill_(FirstFill),
      filter_(new QLineEdit),
      items_(new QTreeWidget),
      progress_(new QLabel) {
    setObjectName(QStringLiteral("itemDialog"));
    setWindowTitle(tr("Add Column"));
    filter_->setObjectName(QStringLiteral("itemFilter"));
    filter_->setAccessibleName(tr("Filter of the items"));
    filter_->setPlaceholderText(tr("Words of the name or the set"));
    filter_->setClearButtonEnabled(true);
    filter_->installEventFilter(this);
    items_->setObjectName(QStringLiteral("items"));
    items_->setAccessibleName(tr("Items of the model"));
    items_->setHeaderLabels({tr("Item"), tr("Set"), tr("Elements"), tr("Example")});
    items_->setRootIsDecorated(false);
    items_->setUniformRowHeights(true);
    items_->setAlternatingRowColors(true);
    const int character = fontMetrics().averageCharWidth();
    items_->setColumnWidth(0, 26 * character);
    items_->setColumnWidth(1, 26 * character);
    items_->setColumnWidth(2, 10 * character);
    progress_->setObjectName(QStringLiteral("itemProgress"));
    auto* buttons = new QDialogButtonBox;
    add_ = buttons->addButton(tr("&Add"), QDialogButtonBox::AcceptRole);
    add_->setObjectName(QStringLiteral("addItem"));
    add_->setEnabled(false);
    buttons->addButton(QDialogButtonBox::Cancel);
    auto* all = new QVBoxLayout(this);
    all->addWidget(filter_);
    all->addWidget(items_, 1);
    all->addWidget(progress_);
    all->addWidget(buttons);
    resize(QSize(88 * character, 26 * fontMetrics().height()));

    connect(filter_, &QLineEdit::textChanged, this, &ItemDialog::showMatching);
    connect(items_, &QTreeWidget::itemSelectionChanged, this, [this] { add_->setEnabled(item().has_value()); });
    connect(items_, &QTreeWidget::itemActivated, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(&counter_, &QTimer::timeout, this, &ItemDialog::countSome);
    filter_->setFocus();
    counter_.start(0);
}

QTreeWidgetItem* ItemDialog::rowOf(const updatefile::ItemRecord& record) {
    const Item item{record.kind, toQString(record.set), toQString(record.name)};
    const QString place = record.kind == ItemKind::Attribute  ? tr("(attribute)")
                          : record.kind == ItemKind::Property ? visible(item.set)
                                                              : tr("(classification)");
    const QString example = record.examples.empty() ? QString() : visible(toQString(record.examples.front()));
    auto* row = new QTreeWidgetItem({visible(item.name), place, number(static_cast<qint64>(record.elements)), example});
    row->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
    row->setData(0, ItemRole, item.key());
    row->setData(0, TextRole, QString(item.name + u' ' + place).toCaseFolded());
    row->setToolTip(0, asPlainToolTip(item.title()));
    row->setToolTip(3, asPlainToolTip(example));
    return row;
}

std::optional<Item> ItemDialog::item() const {
    const QList<QTreeWidgetItem*> chosen = items_->selectedItems();
    if (chosen.isEmpty()) return std::nullopt;
    return Item::fromKey(chosen.first()->data(0, ItemRole).toString());
}

void ItemDialog::countSome() {
    QElapsedTimer clock;
    clock.start();
    const auto count = static_cast<model::Element>(model_.elementCount());
    // What of an element cannot be read has no items; the element's data say why.
    while (next_ < count && clock.elapsed() < SliceMs) static_cast<void>(census_.add(next_++));
    if (complete()) {
        counter_.stop();
        progress_->clear();
        fill();
        return;
    }
    progress_->setText(tr("Reading the elements: %1 %").arg(100LL * next_ / count));
    if (next_ < nextFill_) return;
    nextFill_ = next_ * 2;
    fill();
}

void ItemDialog::fill() {
    const auto chosen = item();
    QList<QTreeWidgetItem*> rows;
    for (const updatefile::ItemRecord& record : census_.records()) rows += rowOf(record);
    items_->clear();
    items_->addTopLevelItems(rows);
    showMatching();
    if (!chosen) return;
    for (QTreeWidgetItem* row : rows) {
        if (row->data(0, ItemRole).toString() == chosen->key() && !row->isHidden()) items_->setCurrentItem(row);
    }
}

/// The first one that matches is chosen, so that Return takes it.
void ItemDialog::showMatching() {
    const QStringList words = filter_->text().simplified().toCaseFolded().split(u' ', Qt::SkipEmptyParts);
    QTreeWidgetItem* first = nullptr;
    for (int i = 0; i < items_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* row = items_->topLevelItem(i);
        const QString text = row->data(0, TextRole).toString();
        const bool matches =
            std::all_of(words.begin(), words.end(), [&](const QString& word) { return text.contains(word); });
        row->setHidden(!matches);
        if (matches && !first) first = row;
    }
    items_->setCurrentItem(words.isEmpty() ? nullptr : first);
    if (words.isEmpty()) items_->clearSelection();
}

bool ItemDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == filter_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        // From the line into the list without leaving the keys.
        if (key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_PageDown || key == Qt::Key_PageUp) {
            QCoreApplication::sendEvent(items_, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace desktop
