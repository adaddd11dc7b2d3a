#include "desktop/dialogs/AddOnDialog.hpp"

#include "desktop/QtText.hpp"
#include "desktop/WaitCursor.hpp"
#include "desktop/dialogs/HintBar.hpp"
#include "desktop/dialogs/RowListView.hpp"
#include "desktop/dialogs/Squeeze.hpp"

#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QTimer>
#include <QToolButton>
#include <algorithm>

namespace desktop {

namespace {

QRect toQRect(const frontend::Rect& rect) {
    return {rect.left, rect.top, rect.width(), rect.height()};
}

/// A text whose ampersands are letters, not marks of shortcut keys.
QString withoutShortcut(QString text) {
    return text.replace(u'&', QStringLiteral("&&"));
}

}  // namespace

AddOnDialog::AddOnDialog(frontend::Dialog& dialog, QWidget* parent)
    : QDialog(parent),
      dialog_(dialog),
      canvas_(new QWidget(this)),
      notice_(new QLabel(this)),
      hintBar_(new HintBar(this)) {
    setObjectName(QStringLiteral("dialog%1").arg(dialog_.resourceId()));
    setWindowTitle(toQString(dialog_.title()));
    setAccessibleName(windowTitle());
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setSizeGripEnabled(dialog_.growable());

    notice_->setObjectName(QStringLiteral("notice"));
    notice_->setAccessibleName(tr("Notice"));
    notice_->setTextFormat(Qt::PlainText);
    notice_->setWordWrap(true);
    notice_->setMargin(8);
    notice_->setAutoFillBackground(true);
    notice_->setBackgroundRole(QPalette::ToolTipBase);
    notice_->setForegroundRole(QPalette::ToolTipText);
    notice_->hide();

    connect(hintBar_, &HintBar::folded, this, [this] {
        setSize();
        placeItems();
    });
    makeItems();
    orderTabs();
    showRowsLost();
    setSize();
    placeItems();
}

QWidget* AddOnDialog::itemWidget(Int16 number) const {
    const auto found = widgets_.find(number);
    return found == widgets_.end() ? nullptr : found->second;
}

RowListView* AddOnDialog::list(Int16 number) const {
    return qobject_cast<RowListView*>(itemWidget(number));
}

void AddOnDialog::run() {
    const WaitCursor::Pause usable;
    if (!embedded_) chooseFocus();
    show();
    // A part of a window that is up already cannot take the focus before it shows.
    if (embedded_) chooseFocus();
    ready_ = true;
    followSize();
    Q_EMIT contentChanged();
    if (!dialog_.ended()) loop_.exec();
    for (const auto& [number, widget] : widgets_)
        if (const auto* view = qobject_cast<RowListView*>(widget)) view->keepColumns();
    if (!embedded_) {
        QSettings settings;
        settings.setValue(settingsKey("size"), QSize(dialog_.width(), dialog_.height()));
        settings.setValue(settingsKey("place"), pos());
    }
    hide();
}

void AddOnDialog::embed() {
    embedded_ = true;
    setWindowFlags(Qt::Widget);
    setSizeGripEnabled(false);
    // A dialog that shows places itself in the middle of its parent otherwise.
    setAttribute(Qt::WA_Moved);
    setSize();
    placeItems();
}

void AddOnDialog::type(Int16 number, const QString& text) {
    auto* edit = qobject_cast<QLineEdit*>(itemWidget(number));
    if (!edit) return;
    edit->setText(text);
    // setText() alone tells nobody: textEdited comes of keys.
    deliver([&] { dialog_.typeText(number, toUniString(text)); });
}

void AddOnDialog::press(Int16 number) {
    auto* button = qobject_cast<QPushButton*>(itemWidget(number));
    if (button && button->isEnabled()) button->click();
}

void AddOnDialog::setButtonNote(Int16 number, const QString& added, const QString& obstacle) {
    buttonNotes_[number] = {added, obstacle};
    showButton(number);
}

void AddOnDialog::showButton(Int16 number) {
    auto* button = qobject_cast<QPushButton*>(itemWidget(number));
    if (!button) return;
    const ButtonNote note = buttonNotes_.contains(number) ? buttonNotes_.at(number) : ButtonNote{};
    QString text = toQString(dialog_.item(number)->text);
    if (!note.added.isEmpty()) text += u' ' + note.added;
    button->setText(withoutShortcut(text));
    button->setAccessibleName(text);
    button->setEnabled(note.obstacle.isEmpty());
    button->setToolTip(note.obstacle);
}

void AddOnDialog::noteChange() {
    if (changePending_) return;
    changePending_ = true;
    QTimer::singleShot(0, this, &AddOnDialog::takeChanges);
}

/// Brings one action to the handler. The dialog manager drops an action that comes while another is under way: the
/// handler may show a message or ask for a point, and events go on meanwhile.
template <class Action>
void AddOnDialog::deliver(Action action) {
    action();
    noteChange();
    if (dialog_.ended()) loop_.quit();
}

void AddOnDialog::makeItems() {
    for (const frontend::Item& item : dialog_.items()) {
        QWidget* widget = makeItem(item);
        widget->setObjectName(QStringLiteral("item%1").arg(item.number));
        widgets_[item.number] = widget;
    }
}

QWidget* AddOnDialog::makeItem(const frontend::Item& item) {
    const QString text = toQString(item.text);
    const Int16 number = item.number;
    switch (item.kind) {
        case frontend::ItemKind::Button: {
            auto* button = new QPushButton(withoutShortcut(text), canvas_);
            button->setAccessibleName(text);
            // Return is item 1 wherever the focus is, so no other button may take it.
            button->setAutoDefault(false);
            button->setDefault(number == DG_OK);
            // A click must not take the arrow keys away from the list.
            button->setFocusPolicy(Qt::TabFocus);
            connect(button, &QPushButton::clicked, this, [this, number] {
                const WaitCursor busy;
                deliver([&] { dialog_.clickItem(number); });
            });
            return button;
        }
        case frontend::ItemKind::EditText: {
            auto* edit = new QLineEdit(text, canvas_);
            edit->setAccessibleName(tr("Text field %1 of %2").arg(number).arg(windowTitle()));
            connect(edit, &QLineEdit::textEdited, this, [this, number](const QString& typed) {
                deliver([&] { dialog_.typeText(number, toUniString(typed)); });
            });
            return edit;
        }
        case frontend::ItemKind::List:
            return makeList(item);
        case frontend::ItemKind::StaticText:
            break;
    }
    auto* label = new QLabel(text, canvas_);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAccessibleName(text);
    return label;
}

RowListView* AddOnDialog::makeList(const frontend::Item& item) {
    const Int16 number = item.number;
    auto* view = new RowListView(*item.list, canvas_);
    view->setAccessibleName(tr("List of %1").arg(windowTitle()));
    connect(view, &RowListView::rowClicked, this,
            [this, number](Int16 row, Int16 x) { deliver([&] { dialog_.clickRow(number, row, x); }); });
    connect(
        view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        [this, number](const QModelIndex& index) { Q_EMIT currentRowChanged(number, list(number)->listRow(index)); });
    return view;
}

/// In reading order, whatever the items' numbers are; a line are those whose tops are near each other.
void AddOnDialog::orderTabs() {
    std::vector<const frontend::Item*> items;
    for (const frontend::Item& item : dialog_.items()) items.push_back(&item);
    std::stable_sort(items.begin(), items.end(), [](const frontend::Item* a, const frontend::Item* b) {
        constexpr int LineHeight = 12;
        const int lineA = a->rect.top / LineHeight, lineB = b->rect.top / LineHeight;
        return lineA != lineB ? lineA < lineB : a->rect.left < b->rect.left;
    });
    for (std::size_t i = 1; i < items.size(); ++i) {
        setTabOrder(widgets_[items[i - 1]->number], widgets_[items[i]->number]);
    }
}

void AddOnDialog::chooseFocus() {
    const auto of = [&](frontend::ItemKind kind) -> QWidget* {
        for (const frontend::Item& item : dialog_.items()) {
            if (item.kind == kind) return widgets_[item.number];
        }
        return nullptr;
    };
    if (auto* edit = qobject_cast<QLineEdit*>(of(frontend::ItemKind::EditText))) {
        edit->setFocus();
        edit->selectAll();
    } else if (auto* view = qobject_cast<RowListView*>(of(frontend::ItemKind::List))) {
        view->setFocus();
        view->showRow(0);
    }
}

void AddOnDialog::takeChanges() {
    changePending_ = false;
    showRowsLost();
    placeItems();
    takeTexts();
    followSize();
    for (const auto& [number, widget] : widgets_) {
        auto* view = qobject_cast<RowListView*>(widget);
        if (view && dialog_.list(number)->drawingEnabled()) view->refresh();
    }
    Q_EMIT contentChanged();
}

void AddOnDialog::placeItems() {
    canvas_->setGeometry(0, noticeHeight(), width(), height() - frameHeight());
    const std::vector<QRect> places = squeezed(squeezable(), {dialog_.width(), dialog_.height()}, canvas_->size());
    for (std::size_t i = 0; i < places.size(); ++i) widgets_[dialog_.items()[i].number]->setGeometry(places[i]);
}

/// The items in their order.
std::vector<SqueezedItem> AddOnDialog::squeezable() const {
    std::vector<SqueezedItem> items;
    for (const frontend::Item& item : dialog_.items()) {
        const bool gives = item.kind == frontend::ItemKind::List || item.kind == frontend::ItemKind::EditText;
        items.push_back({toQRect(item.rect), gives});
    }
    return items;
}

void AddOnDialog::takeTexts() {
    for (const frontend::Item& item : dialog_.items()) {
        const QString text = toQString(item.text);
        QWidget* widget = widgets_[item.number];
        // Only where it is another one: setting a text moves the cursor of who types.
        if (auto* edit = qobject_cast<QLineEdit*>(widget); edit && edit->text() != text) edit->setText(text);
        if (auto* label = qobject_cast<QLabel*>(widget)) label->setText(text);
        showButton(item.number);
    }
}

void AddOnDialog::showRowsLost() {
    std::uint64_t lost = 0;
    for (const frontend::Item& item : dialog_.items()) {
        if (item.list) lost += item.list->rowsLost();
    }
    if (lost == 0 || !notice_->isHidden()) return;
    notice_->setText(tr("The list is full: %1 more %2 not shown, since a list holds at most %3 rows. Split "
                        "the file and import its parts one after the other.")
                         .arg(number(static_cast<qint64>(lost)), lost == 1 ? tr("row is") : tr("rows are"),
                              number(DG_LIST_MAX_ROWS)));
    notice_->show();
    setSize();
}

int AddOnDialog::noticeHeight() const {
    return notice_->isHidden() ? 0 : notice_->heightForWidth(std::max(width(), dialog_.width()));
}

void AddOnDialog::setSize() {
    const int extra =
        (notice_->isHidden() ? 0 : notice_->heightForWidth(dialog_.minimumWidth())) + footerHeight() + hintBarHeight();
    if (embedded_) {
        // In a window that is too small for the add-on's least size its items are shown nearer to one another.
        const QSize least = leastPlace(squeezable(), {dialog_.width(), dialog_.height()});
        setMinimumSize(least.width(), least.height() + frameHeight());
        followSize();
    } else if (dialog_.growable()) {
        setMinimumSize(dialog_.minimumWidth(), dialog_.minimumHeight() + extra);
        const QSize size = wantedSize(extra);
        resize(size.width(), size.height() + extra);
        dialog_.resize(size.width() - dialog_.width(), size.height() - dialog_.height());
        resize(dialog_.width(), dialog_.height() + frameHeight());
    } else {
        setFixedSize(dialog_.width(), dialog_.height() + frameHeight());
    }
    placeFrame();
}

void AddOnDialog::placeFrame() {
    notice_->setGeometry(0, 0, width(), noticeHeight());
    hintBar_->setGeometry(0, height() - hintBarHeight(), width(), hintBarHeight());
    if (footer_) footer_->setGeometry(0, height() - hintBarHeight() - footerHeight(), width(), footerHeight());
}

void AddOnDialog::showHints(const QString& file, const QStringList& hints) {
    const bool first = hintBar_->isHidden();
    hintBar_->setHints(file, hints);
    // In a low window the rows need the room; the title says that there are hints.
    constexpr int LowWindow = 40;
    if (first && parentWidget()->window()->height() < LowWindow * fontMetrics().height())
        hintBar_->button()->setChecked(false);
    hintBar_->setVisible(!hints.isEmpty());
    setSize();
    placeItems();
}

void AddOnDialog::setFooter(QWidget* footer) {
    footer_ = footer;
    footer_->installEventFilter(this);
    setSize();
    placeItems();
}

int AddOnDialog::footerHeight() const {
    if (!footer_) return 0;
    return footer_->hasHeightForWidth() ? footer_->heightForWidth(width()) : footer_->sizeHint().height();
}

int AddOnDialog::usualHeight() const {
    return dialog_.minimumHeight() + frameHeight();
}

int AddOnDialog::hintBarHeight() const {
    return hintBar_->isHidden() ? 0 : hintBar_->sizeHint().height();
}

/// The size that the user gave this dialog the last time, as far as the screen has room for it; else the add-on's.
QSize AddOnDialog::wantedSize(int extra) const {
    const QSize kept = ready_ ? QSize() : QSettings().value(settingsKey("size")).toSize();
    const QSize wanted = kept.isValid() ? kept : QSize(dialog_.width(), dialog_.height());
    return wanted.boundedTo(screen()->availableSize() - QSize(0, extra))
        .expandedTo({dialog_.minimumWidth(), dialog_.minimumHeight()});
}

int AddOnDialog::heightForRows() const {
    constexpr int RowsOfLeastHeight = 3;
    int height = minimumHeight();
    for (const auto& [number, widget] : widgets_) {
        const auto* view = qobject_cast<RowListView*>(widget);
        if (!view) continue;
        const int rows = std::max(view->model()->rowCount() - RowsOfLeastHeight, 0);
        const int rowHeight = std::max(view->verticalHeader()->defaultSectionSize(), 1);
        height += std::min(rows, usualHeight() / rowHeight) * rowHeight;
    }
    return height;
}

/// A footer that gets more or fewer parts may need another height.
bool AddOnDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == footer_ && event->type() == QEvent::LayoutRequest && footer_->height() != footerHeight()) {
        setSize();
        placeItems();
    }
    return QDialog::eventFilter(watched, event);
}

void AddOnDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    // Below a narrow list the footer may need more height.
    if (embedded_ && footer_ && footer_->height() != footerHeight()) setSize();
    placeFrame();
    followSize();
    placeItems();
}

/// The window's size is the user's wish; the handler answers it by moving the items, which shows in the same frame.
void AddOnDialog::followSize() {
    if (!ready_) return;
    // The add-on's dialog never gets smaller than it can; what is shown of it does.
    const int horizontal = std::max(width(), dialog_.minimumWidth()) - dialog_.width();
    const int vertical = std::max(height() - frameHeight(), dialog_.minimumHeight()) - dialog_.height();
    if (horizontal || vertical) deliver([&] { dialog_.resize(horizontal, vertical); });
    placeItems();
}

void AddOnDialog::reject() {
    deliver([&] { dialog_.pressEscape(); });
}

/// The close box is a click on item 2; the handler decides whether the dialog ends.
void AddOnDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

void AddOnDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        // Return is a click on item 1, so it waits for what that waits for.
        const QWidget* button = itemWidget(DG_OK);
        if (button && !button->isEnabled()) return;
        const WaitCursor busy;
        deliver([&] { dialog_.pressReturn(); });
        return;
    }
    QDialog::keyPressEvent(event);
}

std::optional<QPoint> AddOnDialog::keptPlace() const {
    const QVariant place = QSettings().value(settingsKey("place"));
    if (!place.isValid()) return std::nullopt;
    return place.toPoint();
}

QString AddOnDialog::settingsKey(const char* what) const {
    return QStringLiteral("dialogs/%1/%2").arg(QString::number(dialog_.resourceId()), QString::fromLatin1(what));
}

}  // namespace desktop
