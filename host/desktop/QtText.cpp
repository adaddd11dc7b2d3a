#include "desktop/QtText.hpp"

#include "text/Guid.hpp"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>

namespace desktop {

namespace {

constexpr char16_t FirstPicture = 0x2400, PictureOfDelete = 0x2421;

bool isHidden(char16_t c) {
    const bool c1Control = c >= 0x80 && c <= 0x9F;
    const bool withoutWidth = c == 0x200B || c == 0x2060 || c == 0xFEFF;
    const bool directionMark = c == 0x061C || c == 0x200E || c == 0x200F;
    const bool directionChange = (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
    return c1Control || withoutWidth || directionMark || directionChange;
}

}  // namespace

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
    return text.size() == 22 ? text::fromGlobalId(utf8) : text::parseGuid(utf8);
}

QString number(qint64 value) {
    return QLocale::system().toString(value);
}

QString counted(qint64 value, const char* one, const char* many) {
    return number(value) + u' ' + QCoreApplication::translate("Counts", value == 1 ? one : many);
}

QString visible(QString text) {
    for (QChar& c : text) {
        const char16_t unit = c.unicode();
        if (unit == u'\n' || unit == u'\r' || unit == u'\t') continue;
        if (unit < 0x20) {
            c = QChar(static_cast<char16_t>(FirstPicture + unit));
        } else if (unit == 0x7F) {
            c = QChar(PictureOfDelete);
        } else if (isHidden(unit)) {
            c = QChar::ReplacementCharacter;
        }
    }
    return text;
}

QString asPlainToolTip(const QString& text) {
    if (text.isEmpty()) return {};
    return QStringLiteral("<span style='white-space:pre-wrap'>%1</span>").arg(visible(text).toHtmlEscaped());
}

}  // namespace desktop
