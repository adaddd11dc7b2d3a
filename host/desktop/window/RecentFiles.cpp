#include "desktop/window/RecentFiles.hpp"

#include <QFileInfo>
#include <QSettings>

namespace desktop {

namespace {

const QString key = QStringLiteral("recentFiles");

}  // namespace

QStringList RecentFiles::list() {
    return QSettings().value(key).toStringList();
}

void RecentFiles::add(const QString& path) {
    const QString whole = QFileInfo(path).absoluteFilePath();
    QStringList files = list();
    files.removeAll(whole);
    files.prepend(whole);
    QSettings().setValue(key, files.mid(0, maximum));
}

void RecentFiles::remove(const QString& path) {
    QStringList files = list();
    files.removeAll(QFileInfo(path).absoluteFilePath());
    QSettings().setValue(key, files);
}

void RecentFiles::clear() {
    QSettings().remove(key);
}

}  // namespace desktop
