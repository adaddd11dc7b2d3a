#include "desktop/look/Icons.hpp"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>
#include <algorithm>
#include <array>

namespace desktop {

namespace {

struct Names {
    const char* theme;
    const char* file;
};

constexpr std::array<Names, 7> Pictures{{{"document-open", "open"},
                                         {"document-save", "save"},
                                         {"edit-undo", "undo"},
                                         {"edit-redo", "redo"},
                                         {"document-import", "import"},
                                         {"edit-find", "look-up"},
                                         {"document-export", "report"}}};
constexpr int Sizes[] = {16, 20, 24, 32, 40, 48, 64, 96};
constexpr int ProgramSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

/// Pictures of two styles beside each other look like a mistake, so a theme gives all of them or none.
bool themeHasAll() {
    return std::all_of(Pictures.begin(), Pictures.end(),
                       [](const Names& names) { return QIcon::hasThemeIcon(QString::fromLatin1(names.theme)); });
}

QPixmap drawn(QSvgRenderer& picture, int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    picture.render(&painter);
    return pixmap;
}

QByteArray bytesOf(const QString& name) {
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

QIcon icon(Picture picture, const QPalette& palette) {
    const Names& names = Pictures[static_cast<std::size_t>(picture)];
    if (themeHasAll()) return QIcon::fromTheme(QString::fromLatin1(names.theme));
    QIcon icon;
    for (const auto& [mode, group] :
         {std::pair(QIcon::Normal, QPalette::Active), {QIcon::Disabled, QPalette::Disabled}}) {
        QByteArray drawing = bytesOf(QString::fromLatin1(names.file));
        drawing.replace("currentColor", palette.color(group, QPalette::ButtonText).name().toLatin1());
        QSvgRenderer renderer(drawing);
        for (const int size : Sizes) icon.addPixmap(drawn(renderer, size), mode);
    }
    return icon;
}

QIcon programIcon() {
    QSvgRenderer renderer(bytesOf(QStringLiteral("program")));
    QIcon icon;
    for (const int size : ProgramSizes) icon.addPixmap(drawn(renderer, size));
    return icon;
}

}  // namespace desktop
