#include "desktop/QtText.hpp"

#include "Guid.hpp"

#include <QFile>
#include <QLocale>
#include <algorithm>

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
    return std::filesystem::path(QFile::encodeName(path).toStdString());
}

QString pathText(const std::filesystem::path& path) {
    return QFile::decodeName(path.c_str());
}

std::array<char, 36> guidCharacters(const model::Guid& guid) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::array<char, 36> text{};
    std::size_t at = 0;
    for (std::size_t i = 0; i < guid.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text[at++] = '-';
        text[at++] = digits[guid[i] >> 4U];
        text[at++] = digits[guid[i] & 15U];
    }
    return text;
}

QString guidText(const model::Guid& guid) {
    const auto text = guidCharacters(guid);
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

std::optional<model::Guid> guidFromText(QStringView text) {
    if (text.size() == 22) return model::fromGlobalId(text.toUtf8().toStdString());
    if (text.size() != 36) return std::nullopt;
    GS::Guid parsed;
    if (parsed.ConvertFromString(GS::UniString(text.utf16(), 36)) != NoError) return std::nullopt;
    model::Guid guid;
    std::copy(std::begin(parsed.bytes), std::end(parsed.bytes), guid.begin());
    return guid;
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
