#pragma once
// A person at the desktop program: real key presses and mouse clicks in real windows.
//
//     TEST_F(Importing, TickedRowIsWritten) {
//         openSample();
//         review(updates, [&](AddOnDialog& dialog) {
//             clickCell(dialog, 1, 1);
//             clickItem(dialog, applyItem);
//         });
//         EXPECT_THAT(savedText(), HasSubstr("..."));
//     }

#include "desktop/dialogs/AddOnDialog.hpp"
#include "desktop/dialogs/RowListView.hpp"
#include "desktop/window/MainWindow.hpp"
#include "support/TempFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QMessageBox>
#include <QtTest>
#include <functional>
#include <memory>
#include <string>

/// The condition holds, now or after the events that are on their way. (Qt's own macros would fail without a word to
/// the test's framework.)
#define EXPECT_SOON(condition) EXPECT_TRUE(QTest::qWaitFor([&] { return condition; })) << #condition

namespace desktop_tests {

inline constexpr Int16 addOnMenu = 32500;
inline constexpr Int32 ImportMenuItem = 1, LookupMenuItem = 2;
inline constexpr Int16 ApplyItem = 1, CloseItem = 2, SelectAllItem = 3, DeselectAllItem = 4, ReviewList = 5;
inline constexpr Int16 LookupItem = 1, GuidField = 3, LookupList = 4;

class Desk : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // --- The program ---
    /// A new window with an add-on; without a bundle the real one.
    void start(const std::filesystem::path& bundle = {});
    desktop::MainWindow& window() { return *window_; }
    /// Opens a copy of the sample in a folder of the test's own.
    void openSample();
    void openFile(const std::filesystem::path& path);
    /// Picks from a menu by mouse: first the menu's title, then the item's text or its beginning.
    void pick(const QString& menuText, const QString& itemText);
    QAction* menuItem(const QString& menu, const QString& item);

    // --- The add-on ---
    /// Picks the import, answers its file dialog by keyboard, lets the user act, closes the dialog where that is open.
    void review(std::string_view updates, const std::function<void(desktop::AddOnDialog&)>& user);
    void reviewFile(const std::filesystem::path& file, const std::function<void(desktop::AddOnDialog&)>& user);
    /// Picks the import of a file that the host refuses. @return the message; no review came up.
    std::string refusalOf(const std::filesystem::path& file);
    void lookUp(const std::function<void(desktop::AddOnDialog&)>& user);

    // --- Acting in the midst of a command or question ---
    /// Once a window of this kind and name has come up, acts in it. To be said before what brings it up.
    template <class Window>
    void whenShown(const QString& name, std::function<void(Window&)> act) {
        whenWindow(name, [act](QWidget& shown) {
            auto* wanted = qobject_cast<Window*>(&shown);
            ASSERT_NE(wanted, nullptr);
            act(*wanted);
        });
    }
    /// Answers a message by mouse. @return its text, once it has come.
    std::shared_ptr<QString> answer(const QString& name, QMessageBox::StandardButton button);

    std::string bytesOf(const std::filesystem::path& file) const { return testing_support::bytesOf(file); }

    testing_support::TempFolder folder_;
    std::filesystem::path model_;
    std::unique_ptr<desktop::MainWindow> window_;

private:
    /// Answers the add-on's file dialog by keyboard.
    void whenAskedForAFile(const std::filesystem::path& file, const std::function<void()>& before);
    void whenWindow(const QString& name, std::function<void(QWidget&)> act);
};

// --- Mouse and keyboard, sent through the window system's side of Qt: whatever lies at the place gets them ---

void clickAt(QWidget& widget, const QPoint& place, Qt::KeyboardModifiers modifiers = {});
void click(QWidget& widget);
void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
void type(QWidget& window, const QString& text);

desktop::RowListView& listOf(desktop::AddOnDialog& dialog, Int16 item = ReviewList);
void clickItem(desktop::AddOnDialog& dialog, Int16 item);
/// Clicks in the middle of a cell; row and column from 1.
void clickCell(desktop::AddOnDialog& dialog, int row, int column, Int16 item = ReviewList);
/// What the window shows in a cell; row and column from 1.
QString cell(desktop::AddOnDialog& dialog, int row, int column, Int16 item = ReviewList);
QColor cellColor(desktop::AddOnDialog& dialog, int row, int column, Int16 item = ReviewList);
int rowCount(desktop::AddOnDialog& dialog, Int16 item = ReviewList);

}  // namespace desktop_tests
