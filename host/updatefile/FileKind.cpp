#include "updatefile/FileKind.hpp"

#include <algorithm>
#include <array>

namespace updatefile {
namespace {

using namespace std::string_view_literals;

/// Spreadsheets and other archives (zip, compound file), PDF, gzip, xz, ELF.
constexpr std::array Signatures{"PK\x03\x04"sv, "\xD0\xCF\x11\xE0"sv, "%PDF-"sv,
                                "\x1F\x8B"sv,   "\xFD\x37zXZ"sv,      "\x7F\x45LF"sv};

bool hasSignature(std::string_view beginning) {
    return std::any_of(Signatures.begin(), Signatures.end(),
                       [beginning](std::string_view signature) { return beginning.starts_with(signature); });
}

/// UTF-16 without a mark: in Western text nearly every second byte is zero, and none of the others.
bool zerosAlternate(std::string_view beginning) {
    std::array<std::size_t, 2> zeros{};
    for (std::size_t at = 0; at < beginning.size(); ++at)
        if (beginning[at] == '\0') ++zeros[at % 2];
    const auto [fewer, more] = std::minmax(zeros[0], zeros[1]);
    return more > beginning.size() / 4 && fewer <= more / 16;
}

bool isUtf16(std::string_view beginning) {
    return beginning.starts_with("\xFF\xFE"sv) || beginning.starts_with("\xFE\xFF"sv) || zerosAlternate(beginning);
}

/// More than one byte in ten is a control character that no text has. A stray one, or a few zero bytes, is still text.
bool mostlyControls(std::string_view beginning) {
    const auto controls = std::count_if(beginning.begin(), beginning.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 && c != '\t' && c != '\n' && c != '\r';
    });
    return static_cast<std::size_t>(controls) > beginning.size() / 10;
}

}  // namespace

FileKind detectFileKind(std::string_view beginning) {
    if (hasSignature(beginning)) return FileKind::Binary;
    if (isUtf16(beginning)) return FileKind::Utf16;
    if (mostlyControls(beginning)) return FileKind::Binary;
    return beginning.starts_with("\xEF\xBB\xBF"sv) ? FileKind::TextWithByteOrderMark : FileKind::Text;
}

}  // namespace updatefile
