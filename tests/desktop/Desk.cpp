#include "Desk.hpp"

#include "Display.hpp"
#include "desktop/QtText.hpp"
#include "desktop/window/AddOnMenu.hpp"
#include "desktop/window/FileMenu.hpp"
#include "support/Places.hpp"

#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>

namespace desktop_tests {

namespace {

constexpr int PatienceMs = 15000;

bool isShown(const QWidget& widget) {
    const QWindow* window = widget.window()->windowHandle();
    return widget.isVisible() && window && window->isExposed();
}

/// A window, or a dialog that is a part of one.
QWidget* findWindow(const QString& name) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == name && isShown(*widget)) return widget;
        auto* part = widget->findChild<QDialog*>(name);
        if (part && isShown(*part)) return part;
    }
    return nullptr;
}

/// A window that nobody expected would keep the test waiting for ever.
void closeAllDialogs() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* dialog = qobject_cast<QDialog*>(widget); dialog && dialog->isVisible()) dialog->reject();
        for (auto* part : widget->findChildren<desktop::AddOnDialog*>())
            if (part->isVisible()) part->reject();
    }
}

void waitFor(const QString& name, const std::function<void(QWidget&)>& act, int leftMs) {
    if (QWidget* shown = findWindow(name)) {
        shown->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(shown));
        act(*shown);
        return;
    }
    if (leftMs <= 0) {
        ADD_FAILURE() << "no window " << name.toStdString() << " came up";
        closeAllDialogs();
        return;
    }
    constexpr int pauseMs = 10;
    QTimer::singleShot(pauseMs, qApp, [=] { waitFor(name, act, leftMs - pauseMs); });
}

/// Without a window manager nobody gives the focus back to a window when another one closes.
void activate(QWidget& window) {
    if (window.isActiveWindow() || window.windowType() == Qt::Popup) return;
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

}  // namespace

void Desk::SetUp() {
    if (!Display::available()) GTEST_SKIP() << "Xvfb is not installed, so there is no display to test windows on";
    QSettings().clear();
    start();
}

void Desk::TearDown() {
    window_.reset();
}

void Desk::start(const std::filesystem::path& bundle) {
    window_.reset();
    window_ = std::make_unique<desktop::MainWindow>();
    window_->show();
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    const auto real = testing_support::builtFile("ZUNACAddin19.bundle");
    ASSERT_TRUE(window_->loadAddOn(bundle.empty() ? real : bundle));
}

void Desk::openSample() {
    model_ = folder_.write("house.ifc", bytesOf(testing_support::projectFile("samples/house.ifc")));
    openFile(model_);
}

void Desk::openFile(const std::filesystem::path& path) {
    ASSERT_TRUE(window_->openFile(desktop::pathText(path)));
    QCoreApplication::processEvents();
}

QAction* Desk::menuItem(const QString& menu, const QString& item) {
    for (QAction* title : window_->menuBar()->actions()) {
        if (title->text().remove(u'&') != menu) continue;
        Q_EMIT title->menu()->aboutToShow();
        for (QAction* action : title->menu()->actions()) {
            if (action->text().remove(u'&').startsWith(item)) return action;
        }
    }
    return nullptr;
}

void Desk::pick(const QString& menuText, const QString& itemText) {
    const QString menu = QString(menuText).remove(u'&'), item = QString(itemText).remove(u'&');
    for (QAction* title : window_->menuBar()->actions()) {
        if (title->text().remove(u'&') != menu) continue;
        clickAt(*window_->menuBar(), window_->menuBar()->actionGeometry(title).center());
        ASSERT_TRUE(QTest::qWaitForWindowExposed(title->menu()));
        for (QAction* action : title->menu()->actions()) {
            if (!action->text().remove(u'&').startsWith(item)) continue;
            EXPECT_TRUE(action->isEnabled()) << item.toStdString();
            if (!action->isEnabled()) break;
            clickAt(*title->menu(), title->menu()->actionGeometry(action).center());
            return;
        }
        title->menu()->close();
    }
    FAIL() << "no item " << item.toStdString() << " in menu " << menu.toStdString();
}

void Desk::review(std::string_view updates, const std::function<void(desktop::AddOnDialog&)>& user) {
    reviewFile(folder_.write("updates.txt", updates), user);
}

void Desk::reviewFile(const std::filesystem::path& file, const std::function<void(desktop::AddOnDialog&)>& user) {
    whenAskedForAFile(file, [=, this] {
        whenShown<desktop::AddOnDialog>(QStringLiteral("dialog32501"), [user](desktop::AddOnDialog& review) {
            user(review);
            if (review.isVisible()) clickItem(review, CloseItem);
        });
    });
    pick(QStringLiteral("Quillmarsh"), window_->addOnMenu().importAction()->text());
}

std::string Desk::refusalOf(const std::filesystem::path& file) {
    auto text = std::make_shared<QString>();
    whenAskedForAFile(file, [=, this] {
        whenShown<QMessageBox>(QStringLiteral("importMessage"), [text](QMessageBox& box) {
            *text = box.text() + u'\n' + box.informativeText();
            click(*box.button(QMessageBox::Ok));
        });
    });
    pick(QStringLiteral("Quillmarsh"), QStringLiteral("Import Updates"));
    EXPECT_TRUE(frontend::openDialogs().empty());
    return text->toStdString();
}

void Desk::whenAskedForAFile(const std::filesystem::path& file, const std::function<void()>& before) {
    whenShown<QFileDialog>(QStringLiteral("addOnFileDialog"), [=](QFileDialog& dialog) {
        before();
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(name, nullptr);
        name->setFocus();
        type(dialog, desktop::pathText(file));
        press(dialog, Qt::Key_Return);
    });
}

void Desk::lookUp(const std::function<void(desktop::AddOnDialog&)>& user) {
    whenShown<desktop::AddOnDialog>(QStringLiteral("dialog32500"), [user](desktop::AddOnDialog& dialog) {
        user(dialog);
        if (dialog.isVisible()) clickItem(dialog, CloseItem);
    });
    pick(QStringLiteral("Quillmarsh"), window_->addOnMenu().lookUpAction()->text());
}

std::shared_ptr<QString> Desk::answer(const QString& name, QMessageBox::StandardButton button) {
    auto text = std::make_shared<QString>();
    whenShown<QMessageBox>(name, [=](QMessageBox& box) {
        *text = box.text() + u'\n' + box.informativeText();
        click(*box.button(button));
    });
    return text;
}

void Desk::whenWindow(const QString& name, std::function<void(QWidget&)> act) {
    QTimer::singleShot(0, qApp, [=] { waitFor(name, act, PatienceMs); });
}

void clickAt(QWidget& widget, const QPoint& place, Qt::KeyboardModifiers modifiers) {
    QWidget* window = widget.window();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, modifiers, widget.mapTo(window, place));
}

void click(QWidget& widget) {
    clickAt(widget, widget.rect().center());
}

void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    activate(*window.window());
    QTest::keyClick(window.window()->windowHandle(), key, modifiers);
}

void type(QWidget& window, const QString& text) {
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, window.window()->windowHandle(), Qt::Key_unknown, c, {});
}

desktop::RowListView& listOf(desktop::AddOnDialog& dialog, Int16 item) {
    return *dialog.list(item);
}

void clickItem(desktop::AddOnDialog& dialog, Int16 item) {
    click(*dialog.itemWidget(item));
    QCoreApplication::processEvents();
}

void clickCell(desktop::AddOnDialog& dialog, int row, int column, Int16 item) {
    desktop::RowListView& list = listOf(dialog, item);
    const QModelIndex index = list.model()->index(row - 1, column - 1);
    list.scrollTo(index);
    clickAt(*list.viewport(), list.visualRect(index).center());
    QCoreApplication::processEvents();
}

QString cell(desktop::AddOnDialog& dialog, int row, int column, Int16 item) {
    return listOf(dialog, item).model()->index(row - 1, column - 1).data().toString();
}

QColor cellColor(desktop::AddOnDialog& dialog, int row, int column, Int16 item) {
    return listOf(dialog, item).model()->index(row - 1, column - 1).data(Qt::ForegroundRole).value<QColor>();
}

int rowCount(desktop::AddOnDialog& dialog, Int16 item) {
    return listOf(dialog, item).model()->rowCount();
}

}  // namespace desktop_tests
