#include "desktop/window/FileKind.hpp"

#include "desktop/QtText.hpp"

#include <QFile>
#include <QFileInfo>

namespace desktop {

namespace {

constexpr qint64 GuidAndTab = 37;

bool beginsAsModel(const QByteArray& start) {
    return start.trimmed().startsWith("ISO-10303-21");
}

bool beginsAsUpdates(const QByteArray& start) {
    return start.endsWith('\t') && guidFromText(QString::fromLatin1(start.chopped(1)));
}

}  // namespace

bool holdsUpdates(const QString& path) {
    static const QStringList endings{QStringLiteral("txt"), QStringLiteral("csv"), QStringLiteral("tsv"),
                                     QStringLiteral("xlsx"), QStringLiteral("ods")};
    // A pipe is read once, by who can do something with it.
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return false;
    const QByteArray start = file.read(GuidAndTab);
    if (beginsAsModel(start)) return false;
    return beginsAsUpdates(start) || endings.contains(QFileInfo(path).suffix().toLower());
}

}  // namespace desktop
