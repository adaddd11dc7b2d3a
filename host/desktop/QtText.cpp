#include "desktop/QtText.hpp"

#include "text/Guid.hpp"

#include <QFile>
#include <QLocale>

namespace desktop {

QString toQString(const GS::UniString& text) {
    return toQString(text.View());
}

QString toQString(std::u16string_view text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

QString toQString(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

GS::UniString toUniString(const QString& text) {
    return GS::UniString(reinterpret_cast<const char16_t*>(text.utf16()), static_cast<USize>(text.size()));
}

std::filesystem::path toPath(const QString& path) {
    // Through QFile: a name in a file system need not be UTF-8, and must come back as it was.
    return std::filesystem::path(QFile::encodeName(path).toStdString());
}

QString pathText(const std::filesystem::path& path) {
    return QFile::decodeName(path.c_str());
}

QString guidText(const model::Guid& guid) {
    const auto text = text::guidCharacters(guid);
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

std::optional<model::Guid> guidFromText(QStringView text) {
    if (text.size() > static_cast<qsizetype>(text::GuidLength)) return std::nullopt;
    const std::string utf8 = text.toUtf8().toStdString();
    return text.size() == 22 ? model::fromGlobalId(utf8) : text::parseGuid(utf8);
}

QString number(qint64 value) {
    return QLocale::system().toString(value);
}

QString counted(qint64 value, const char* one, const char* many) {
    return number(value) + u' ' + QString::fromLatin1(value == 1 ? one : many);
}

QString asPlainToolTip(const QString& text) {
    if (text.isEmpty()) return {};
    return QStringLiteral("<span style='white-space:pre-wrap'>%1</span>").arg(text.toHtmlEscaped());
}

}  // namespace desktop
