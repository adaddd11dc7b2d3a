#include "desktop/window/FileMenu.hpp"

#include "desktop/QtText.hpp"
#include "desktop/look/Message.hpp"
#include "desktop/window/FileKind.hpp"
#include "desktop/window/FileTasks.hpp"
#include "desktop/window/RecentFiles.hpp"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>

namespace desktop {

namespace {

const QString FolderKey = QStringLiteral("folders/models");
/// What the file dialogs offer. IFC models first.
QStringList modelFilters() {
    return {FileMenu::tr("IFC models (*.ifc *.ifczip *.ifcZIP *.IFC)"), FileMenu::tr("All files (*)")};
}

void showError(QWidget* window, const QString& title, const model::Error& error) {
    QMessageBox box(QMessageBox::Critical, title, title, QMessageBox::Ok, window);
    box.setObjectName(QStringLiteral("errorMessage"));
    box.setTextFormat(Qt::PlainText);
    setFurtherText(box, toQString(error.message) + u'.');
    box.exec();
}

}  // namespace

FileMenu::FileMenu(QMainWindow* window, Document& document, Busy& busy)
    : QObject(window), window_(window), document_(document), busy_(busy) {
    menu_ = window_->menuBar()->addMenu(tr("&File"));
    open_ = add(tr("&Open…"), QKeySequence::Open, tr("Open a model"), &FileMenu::openByDialog);
    menu_->setToolTipsVisible(true);
    recentMenu_ = menu_->addMenu(tr("Open &Recent"));
    menu_->addSeparator();
    save_ = add(tr("&Save"), QKeySequence::Save, tr("Save the model to its file"), &FileMenu::saveAction);
    saveAs_ = add(tr("Save &As…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), tr("Save the model to another file"),
                  &FileMenu::saveAsAction);
    beforeClose_ = menu_->addSeparator();
    close_ = add(tr("&Close"), QKeySequence(Qt::CTRL | Qt::Key_W), tr("Close the model"), &FileMenu::closeAction);
    quit_ = add(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), tr("Leave the program"), &FileMenu::quit);
    connect(recentMenu_, &QMenu::aboutToShow, this, &FileMenu::fillRecent);
    connect(&document_, &Document::fileChanged, this, &FileMenu::update);
    connect(&busy_, &Busy::changed, this, &FileMenu::update);
    update();
}

QAction* FileMenu::add(const QString& text, const QKeySequence& key, const QString& prompt, void (FileMenu::*what)()) {
    auto* action = menu_->addAction(text);
    action->setShortcut(key);
    action->setStatusTip(prompt);
    connect(action, &QAction::triggered, this, what);
    return action;
}

void FileMenu::update() {
    const bool free = !busy_.active();
    open_->setEnabled(free);
    recentMenu_->setEnabled(free && !RecentFiles::list().isEmpty());
    const QString holder = document_.lockHolder();
    save_->setEnabled(free && document_.modified());
    save_->setText(holder.isEmpty() ? tr("&Save") : tr("&Save Under Another Name…"));
    const QString prompt = holder.isEmpty() ? tr("Save the model to its file")
                                            : tr("The file is open in %1; save under another name").arg(holder);
    save_->setStatusTip(prompt);
    save_->setToolTip(asPlainToolTip(prompt));
    saveAs_->setEnabled(free && document_.isOpen());
    close_->setEnabled(free && document_.isOpen());
    quit_->setEnabled(free);
}

void FileMenu::fillRecent() {
    recentMenu_->clear();
    for (const QString& path : RecentFiles::list()) {
        // Names alone may be equal; the folder tells them apart.
        const QFileInfo file(path);
        QString text = QStringLiteral("%1 – %2").arg(file.fileName(), file.absolutePath());
        auto* action = recentMenu_->addAction(text.replace(u'&', QStringLiteral("&&")));
        action->setStatusTip(path);
        connect(action, &QAction::triggered, this, [this, path] { open(path); });
    }
    recentMenu_->addSeparator();
    connect(recentMenu_->addAction(tr("&Clear List")), &QAction::triggered, this, [this] {
        RecentFiles::clear();
        update();
    });
}

void FileMenu::openByDialog() {
    // Unsaved changes are asked about once a file is chosen: who cancels here has not been asked for nothing.
    QFileDialog dialog(window_, tr("Open Model"));
    dialog.setObjectName(QStringLiteral("openDialog"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(modelFilters());
    dialog.setDirectory(document_.isOpen() ? QFileInfo(document_.path()).absolutePath()
                                           : QSettings().value(FolderKey, QDir::homePath()).toString());
    if (dialog.exec() == QDialog::Accepted) open(dialog.selectedFiles().constFirst());
}

bool FileMenu::open(const QString& path) {
    if (busy_.active()) return false;
    if (holdsUpdates(path)) {
        Q_EMIT updatesOffered(path);
        return false;
    }
    if (!mayLoseModel()) return false;
    std::optional<model::Result<Document::Opened>> opened;
    {
        const Busy::Guard guard(busy_);
        opened = openWithProgress(window_, path);
    }
    if (!opened) {
        window_->statusBar()->showMessage(tr("Opening cancelled"), 5000);
        return false;
    }
    if (!*opened) {
        if (!QFileInfo::exists(path)) RecentFiles::remove(path);
        showError(window_, tr("%1 could not be opened").arg(QFileInfo(path).fileName()), opened->error());
        return false;
    }
    const QFileInfo file(path);
    QSettings().setValue(FolderKey, file.absolutePath());
    RecentFiles::add(path);
    document_.adopt(std::move(**opened), file.absoluteFilePath());
    return true;
}

bool FileMenu::save() {
    if (!document_.isOpen()) return false;
    return document_.lockHolder().isEmpty() ? saveTo(document_.path()) : saveAs();
}

bool FileMenu::saveAs() {
    if (!document_.isOpen()) return false;
    QFileDialog dialog(window_, tr("Save Model As"));
    dialog.setObjectName(QStringLiteral("saveDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(modelFilters());
    dialog.setDefaultSuffix(QFileInfo(document_.path()).suffix());
    dialog.setDirectory(QFileInfo(document_.path()).absolutePath());
    dialog.selectFile(QFileInfo(document_.path()).fileName());
    return dialog.exec() == QDialog::Accepted && saveTo(dialog.selectedFiles().constFirst());
}

bool FileMenu::saveTo(const QString& path, bool force) {
    if (!force && !mayReplace(path)) return false;
    std::optional<model::Status> status;
    {
        const Busy::Guard guard(busy_);
        status = saveWithProgress(window_, document_, path, force);
    }
    if (!status) {
        window_->statusBar()->showMessage(tr("Saving cancelled; the file is as it was"), 5000);
        return false;
    }
    if (!*status && status->error().kind == model::ErrorKind::ChangedSince)
        return askAboutChangedFile(path, status->error());
    if (!*status) {
        showError(window_, tr("%1 could not be saved").arg(QFileInfo(path).fileName()), status->error());
        return false;
    }
    RecentFiles::add(path);
    window_->statusBar()->showMessage(tr("Saved %1").arg(path), 5000);
    return true;
}

/// Saving puts a new file in place of the old one, which is more than some users of a shared folder expect.
/// @return false: the user leaves the file as it is.
bool FileMenu::mayReplace(const QString& path) {
    QStringList warnings;
    for (const std::string& warning : model::Model::targetWarnings(toPath(path))) warnings += toQString(warning);
    if (warnings.isEmpty()) return true;
    QMessageBox box(QMessageBox::Warning, tr("Save"),
                    tr("Saving %1 changes more than its content.").arg(QFileInfo(path).fileName()),
                    QMessageBox::Save | QMessageBox::Cancel, window_);
    box.setObjectName(QStringLiteral("targetQuestion"));
    box.setTextFormat(Qt::PlainText);
    setFurtherText(box, warnings.join(u'\n'));
    box.setDefaultButton(QMessageBox::Cancel);
    return box.exec() == QMessageBox::Save;
}

/// @return whether the model is saved after all.
bool FileMenu::askAboutChangedFile(const QString& path, const model::Error& error) {
    QMessageBox box(QMessageBox::Warning, tr("File Changed"),
                    tr("Another program has changed %1 since it was opened.").arg(QFileInfo(path).fileName()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, window_);
    box.setObjectName(QStringLiteral("changedQuestion"));
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(tr("Overwriting it loses what the other program has written."));
    box.setDetailedText(toQString(error.message));
    box.button(QMessageBox::Save)->setText(tr("Save Under Another &Name…"));
    box.button(QMessageBox::Discard)->setText(tr("&Overwrite"));
    box.setDefaultButton(QMessageBox::Save);
    box.setEscapeButton(QMessageBox::Cancel);
    switch (box.exec()) {
        case QMessageBox::Save:
            return saveAs();
        case QMessageBox::Discard:
            return saveTo(path, true);
        default:
            return false;
    }
}

bool FileMenu::mayLoseProposals() {
    if (!document_.isOpen() || proposals_() == 0) return true;
    QMessageBox box(QMessageBox::Question, tr("Changes by Hand"),
                    tr("Discard the changes that you have proposed by hand?"),
                    QMessageBox::Discard | QMessageBox::Cancel, window_);
    box.setObjectName(QStringLiteral("proposalsQuestion"));
    box.setInformativeText(tr("They have not been reviewed and applied."));
    box.setDefaultButton(QMessageBox::Cancel);
    return box.exec() == QMessageBox::Discard;
}

bool FileMenu::mayLoseModel() {
    if (busy_.active() || !mayLoseProposals()) return false;
    if (!document_.modified()) return true;
    QMessageBox box(QMessageBox::Question, tr("Unsaved Changes"),
                    tr("Save the changes to %1?").arg(QFileInfo(document_.path()).fileName()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, window_);
    box.setObjectName(QStringLiteral("unsavedQuestion"));
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(tr("Changes that are not saved are lost."));
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
        case QMessageBox::Save:
            return save();
        case QMessageBox::Discard:
            return true;
        default:
            return false;
    }
}

bool FileMenu::close() {
    if (!mayLoseModel()) return false;
    document_.close();
    return true;
}

void FileMenu::insert(QAction* action) {
    menu_->insertAction(beforeClose_, action);
}

void FileMenu::quit() {
    window_->close();
}

}  // namespace desktop
