#include "tables/reading/Encoding.hpp"

#include "tables/Text.hpp"
#include "text/Ascii.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>

namespace tables {
namespace {

using namespace std::string_view_literals;

constexpr const char* Utf8 = "UTF-8";
constexpr const char* Windows = "Windows-1252";

struct Mark {
    std::string_view bytes;
    const char* encoding;
};
/// The longer ones first: that of UTF-32 begins like that of UTF-16.
constexpr std::array Marks{Mark{"\xEF\xBB\xBF"sv, Utf8}, Mark{"\xFF\xFE\0\0"sv, "UTF-32LE"},
                           Mark{"\0\0\xFE\xFF"sv, "UTF-32BE"}, Mark{"\xFF\xFE"sv, "UTF-16LE"},
                           Mark{"\xFE\xFF"sv, "UTF-16BE"}};

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

/// @return where the first byte stands that is no UTF-8, or the length.
std::size_t wellFormedLength(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t start = at;
        if (text::nextCharacter(bytes, at) == text::NoCharacter) return start;
    }
    return bytes.size();
}

std::size_t lineAt(std::string_view text) {
    std::size_t line = 1;
    for (std::size_t at = 0; at < text.size(); ++at)
        if (text[at] == '\n' || (text[at] == '\r' && (at + 1 == text.size() || text[at + 1] != '\n'))) ++line;
    return line;
}

Error notOf(std::string_view encoding, std::string_view textBefore) {
    return {text::message("line {}: bytes that are not {}; name the encoding, or save the file as UTF-8",
                          lineAt(textBefore), encoding)};
}

/// In steps, so that the text between is never whole in memory.
Result<std::string> convert(std::string_view bytes, UConverter* converter, std::string_view encoding) {
    std::string text;
    constexpr std::size_t Stretch = 8192;
    // In UTF-8; a pair of units takes four, two for each.
    constexpr std::size_t MostBytesOfAUnit = 3;
    std::array<UChar, Stretch> units{};
    std::array<char, MostBytesOfAUnit * Stretch> utf8{};
    const char* source = bytes.data();
    const char* const end = source + bytes.size();
    UErrorCode error = U_BUFFER_OVERFLOW_ERROR;
    UErrorCode out = U_ZERO_ERROR;
    const Converter toUtf8(ucnv_open(Utf8, &out));
    while (error == U_BUFFER_OVERFLOW_ERROR) {
        error = U_ZERO_ERROR;
        UChar* target = units.data();
        ucnv_toUnicode(converter, &target, units.data() + units.size(), &source, end, nullptr, 1, &error);
        const UChar* from = units.data();
        char* to = utf8.data();
        ucnv_fromUnicode(toUtf8.get(), &to, utf8.data() + utf8.size(), &from, target, nullptr, 0, &out);
        text.append(utf8.data(), to);
    }
    if (U_FAILURE(error) || U_FAILURE(out)) return notOf(encoding, text);
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    // The mark of an encoding that the user named came through the conversion.
    if (text.starts_with(ByteOrderMark)) text.erase(0, ByteOrderMark.size());
    return text;
}

Result<DecodedText> decodeAs(std::string_view bytes, const char* encoding, std::string_view shownAs) {
    UErrorCode error = U_ZERO_ERROR;
    const Converter converter(ucnv_open(encoding, &error));
    if (U_FAILURE(error))
        return Error{text::message("no encoding is called '{}'; try utf-8, utf-16le or windows-1252", encoding)};
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    Result<std::string> text = convert(bytes, converter.get(), shownAs);
    if (!text) return text.error();
    return DecodedText{std::move(*text), std::string(shownAs)};
}

Result<DecodedText> decodeUtf8(std::string_view bytes) {
    const std::size_t good = wellFormedLength(bytes);
    if (good < bytes.size()) return notOf(Utf8, bytes.substr(0, good));
    return DecodedText{std::string(bytes), Utf8};
}

/// Delimiters, digits and line ends leave a zero in every second byte, whatever the language of the rest.
const char* utf16WithoutMark(std::string_view bytes) {
    if (bytes.size() % 2 != 0 || bytes.empty()) return nullptr;
    std::array<std::size_t, 2> zeros{};
    for (std::size_t at = 0; at < bytes.size(); ++at)
        if (bytes[at] == '\0') ++zeros[at % 2];
    const auto [fewer, more] = std::minmax(zeros[0], zeros[1]);
    if (more < bytes.size() / 20 + 1 || fewer > more / 16) return nullptr;
    return zeros[1] > zeros[0] ? "UTF-16LE" : "UTF-16BE";
}

Result<DecodedText> decodeNamed(std::string_view bytes, const std::string& encoding) {
    std::string shown = encoding;
    for (const char* usual : {Utf8, Windows, "UTF-16LE", "UTF-16BE"})
        if (text::equalIgnoringCase(encoding, usual)) shown = usual;
    if (shown == Utf8) {
        if (bytes.starts_with(Marks[0].bytes)) bytes.remove_prefix(Marks[0].bytes.size());
        return decodeUtf8(bytes);
    }
    return decodeAs(bytes, encoding.c_str(), shown);
}

}  // namespace

Result<DecodedText> decode(std::string_view bytes, const std::string& encoding) {
    if (!encoding.empty()) return decodeNamed(bytes, encoding);
    for (const Mark& mark : Marks) {
        if (!bytes.starts_with(mark.bytes)) continue;
        bytes.remove_prefix(mark.bytes.size());
        return mark.encoding == Utf8 ? decodeUtf8(bytes) : decodeAs(bytes, mark.encoding, mark.encoding);
    }
    // Western UTF-16 is UTF-8 too, by its letter: with a zero behind each character, which no table means.
    const char* const utf16 = utf16WithoutMark(bytes);
    if (utf16 != nullptr)
        if (Result<DecodedText> decoded = decodeAs(bytes, utf16, utf16)) return decoded;
    if (wellFormedLength(bytes) == bytes.size()) return DecodedText{std::string(bytes), Utf8};
    return decodeAs(bytes, Windows, Windows);
}

}  // namespace tables
