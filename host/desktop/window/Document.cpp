#include "desktop/window/Document.hpp"

#include "desktop/QtText.hpp"

#include <QThread>

namespace desktop {

Document::Document(host::Host& host, QObject* parent) : QObject(parent), host_(host) {}

void Document::adopt(Opened opened, const QString& path) {
    // The windows hold pointers to the old model and its index: they let go of them before these are destroyed.
    Q_EMIT closing();
    host_.adoptModel(std::move(opened.model));
    // Only now: the model that has just gone may have held the lock of the same file.
    model()->takeLock();
    index_ = std::move(opened.index);
    path_ = path;
    revision_ = model()->revision();
    Q_EMIT replaced();
    Q_EMIT fileChanged();
}

void Document::close() {
    if (!isOpen()) return;
    Q_EMIT closing();
    host_.closeModel();
    index_.reset();
    path_.clear();
    Q_EMIT replaced();
    Q_EMIT fileChanged();
}

model::Model* Document::model() const {
    // Two threads in one model spoil its caches, and with them what is saved. So this is looked at in release builds
    // too.
    if (QThread::currentThread() != thread()) qFatal("The open model belongs to the user's thread");
    return host_.model();
}

model::Status Document::save(const QString& path, bool force, const model::Progress& progress) {
    model::SaveOptions options;
    options.progress = progress;
    options.force = force;
    options.moveLock = true;  // the file saved is the one shown from here on
    model::Status status = host_.save(toPath(path), options);
    if (status) {
        path_ = path;
        Q_EMIT fileChanged();
    }
    return status;
}

bool Document::modified() const {
    return isOpen() && model()->modified();
}

QString Document::lockHolder() const {
    return isOpen() ? toQString(model()->lockHolder()) : QString();
}

void Document::undo() {
    if (host_.undo()) noteCommand();
}

void Document::redo() {
    if (host_.redo()) noteCommand();
}

void Document::noteCommand() {
    if (!isOpen() || model()->revision() == revision_) return;
    revision_ = model()->revision();
    index_->refreshNames(*model());
    Q_EMIT edited();
    Q_EMIT fileChanged();
}

}  // namespace desktop
