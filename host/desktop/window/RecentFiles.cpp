#include "desktop/window/RecentFiles.hpp"

#include <QFileInfo>
#include <QSettings>

namespace desktop {

namespace {

const QString RecentFilesKey = QStringLiteral("recentFiles");

}  // namespace

QStringList RecentFiles::list() {
    return QSettings().value(RecentFilesKey).toStringList();
}

void RecentFiles::add(const QString& path) {
    const QString whole = QFileInfo(path).absoluteFilePath();
    QStringList files = list();
    files.removeAll(whole);
    files.prepend(whole);
    QSettings().setValue(RecentFilesKey, files.mid(0, Most));
}

void RecentFiles::remove(const QString& path) {
    QStringList files = list();
    files.removeAll(QFileInfo(path).absoluteFilePath());
    QSettings().setValue(RecentFilesKey, files);
}

void RecentFiles::clear() {
    QSettings().remove(RecentFilesKey);
}

}  // namespace desktop
