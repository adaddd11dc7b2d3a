#include "desktop/review/Imports.hpp"

#include "desktop/QtText.hpp"
#include "desktop/WaitCursor.hpp"
#include "desktop/dialogs/DesktopView.hpp"
#include "desktop/look/Message.hpp"
#include "desktop/report/ReportPanel.hpp"
#include "desktop/window/AddOnMenu.hpp"

#include <QAction>
#include <QFileInfo>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <utility>

namespace desktop {

Imports::Imports(QMainWindow* window, Document& document, DesktopView& view, AddOnMenu& menu, ReportPanel& report)
    : QObject(window), window_(window), document_(document), view_(view), menu_(menu), report_(report) {
    view_.setUpdatesReader([this](const QString& path) { return take(path); });
    connect(&menu_, &AddOnMenu::commandEnded, this, &Imports::commandEnded);
    connect(&document_, &Document::closing, this, [this] { picked_.reset(); });
}

void Imports::begin(const QString& path) {
    QAction* import = menu_.importAction();
    if (!import || !import->isEnabled()) return;
    view_.answerNextRequest(path);
    import->trigger();
}

/// @return what the add-on is to open in the file's place; nothing where there is nothing in it for the add-on.
std::optional<std::string> Imports::take(const QString& path) {
    // Asked for by commandEnded(): the next part of what has been read already.
    if (std::exchange(nextList_, false) && picked_) return picked_->part().path;
    picked_.reset();
    if (!document_.isOpen()) return toPath(path).string();
    const WaitCursor wait;
    auto read = PickedUpdates::read(path, *document_.model());
    if (!read) {
        refuse(path, toQString(read.error().message));
        return std::nullopt;
    }
    const QString how = read->howRead();
    if (!how.isEmpty()) {
        report_.append(how, false);
        window_->statusBar()->showMessage(how);
    }
    if (read->empty()) {
        refuse(path, tr("It asks for nothing that the model does not hold already.\n%1").arg(how));
        return std::nullopt;
    }
    picked_.emplace(std::move(*read));
    return picked_->part().path;
}

void Imports::refuse(const QString& path, const QString& why) {
    const WaitCursor::Pause usable;
    QMessageBox box(QMessageBox::Warning, tr("Import"),
                    tr("Nothing to import from %1.").arg(QFileInfo(path).fileName()), QMessageBox::Ok, window_);
    box.setObjectName(QStringLiteral("importMessage"));
    box.setTextFormat(Qt::PlainText);
    setFurtherText(box, why);
    box.exec();
}

void Imports::commandEnded() {
    // A command that asked for no file must not leave its answer to the next one.
    view_.forgetAnswer();
    if (!picked_) return;
    if (!picked_->goOn() || !mayGoOn()) {
        picked_.reset();
        return;
    }
    nextList_ = true;
    view_.answerNextRequest();
    // The menu that has just told of the end is still at it.
    QTimer::singleShot(0, this, [this] { menu_.pickAgain(); });
}

bool Imports::mayGoOn() {
    QMessageBox box(
        QMessageBox::Question, tr("Import"),
        tr("Go on with list %1 of %2?")
            .arg(number(static_cast<qint64>(picked_->list())), number(static_cast<qint64>(picked_->listCount()))),
        QMessageBox::Yes | QMessageBox::No, window_);
    box.setObjectName(QStringLiteral("nextListQuestion"));
    setFurtherText(box, tr("A list holds at most %1 rows, so %2 is reviewed in several.")
                            .arg(number(DG_LIST_MAX_ROWS), picked_->fileName()));
    box.button(QMessageBox::Yes)->setText(tr("&Go On"));
    box.button(QMessageBox::No)->setText(tr("&Stop Here"));
    box.setDefaultButton(QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes;
}

}  // namespace desktop
