#pragma once

#include "frameworks/FrontEnd.hpp"

#include <QDialog>
#include <QEventLoop>
#include <map>
#include <vector>

class QLabel;

namespace desktop {

class HintBar;
class RowListView;
struct SqueezedItem;

/// An add-on's dialog in a window. The dialog manager owns its items, their places and texts; this shows them and
/// carries the user's actions there, one at a time.
///
/// While it runs, commands are closed to the user, but the model can still be looked at: in the plan, the table and
/// the data of an element. So the window does not block the others, and may be a part of one.
class AddOnDialog : public QDialog {
    Q_OBJECT

public:
    AddOnDialog(frontend::Dialog& dialog, QWidget* parent);

    /// Shows the dialog until its handler ends it.
    void run();
    /// Something in the dialog changed; shown once all that belongs together has happened.
    void noteChange();

    /// Where this dialog stood when it was closed the last time.
    std::optional<QPoint> keptPlace() const;

    const frontend::Dialog& content() const { return dialog_; }
    QWidget* itemWidget(Int16 number) const;
    RowListView* list(Int16 number) const;
    QLabel* notice() const { return notice_; }
    /// Makes it a part of another window in place of one of its own; to be said before it runs.
    void embed();
    /// What the user would do: types a text in place of what a field has, clicks a button. A button that is off stays
    /// as it is.
    void type(Int16 number, const QString& text);
    void press(Int16 number);
    /// What the host adds to a button: a text behind the add-on's, and why it cannot be clicked now. Empty: it can.
    void setButtonNote(Int16 number, const QString& added, const QString& obstacle);
    /// Puts the host's part of a dialog below the add-on's items; to be said before it runs.
    void setFooter(QWidget* footer);
    /// Shows what the user should know of the file that the dialog is about, in place of what was shown.
    void showHints(const QString& file, const QStringList& hints);
    HintBar* hintBar() const { return hintBar_; }
    /// That of the add-on's least size, with what the host adds.
    int usualHeight() const;
    /// What the rows of its lists need, as far as they need less than that.
    int heightForRows() const;

    /// Escape and the close box.
    void reject() override;

Q_SIGNALS:
    /// The rows or their look changed, or the dialog has just come up.
    void contentChanged();
    void currentRowChanged(Int16 item, int row);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    template <class Action>
    void deliver(Action action);
    void makeItems();
    QWidget* makeItem(const frontend::Item& item);
    RowListView* makeList(const frontend::Item& item);
    void orderTabs();
    void chooseFocus();
    void takeChanges();
    void placeItems();
    void takeTexts();
    void showButton(Int16 number);
    void showRowsLost();
    int noticeHeight() const;
    int hintBarHeight() const;
    int footerHeight() const;
    std::vector<SqueezedItem> squeezable() const;
    /// What the window has above and below the add-on's items.
    int frameHeight() const { return noticeHeight() + footerHeight() + hintBarHeight(); }
    void placeFrame();
    void setSize();
    void followSize();
    QSize wantedSize(int extra) const;
    QString settingsKey(const char* what) const;

    frontend::Dialog& dialog_;
    QWidget* canvas_;
    QLabel* notice_;
    HintBar* hintBar_;
    QWidget* footer_ = nullptr;
    std::map<Int16, QWidget*> widgets_;
    QEventLoop loop_;
    struct ButtonNote {
        QString added, obstacle;
    };
    std::map<Int16, ButtonNote> buttonNotes_;
    bool embedded_ = false;
    bool changePending_ = false;
    bool ready_ = false;  ///< Sizes set before the window shows are no wish of the user's.
};

}  // namespace desktop
