#pragma once
// The host's texts and GUIDs as the console prints and reads them: in UTF-8.

#include "UniString.hpp"
#include "model/Model.hpp"
#include "updatefile/FileKind.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace console {

/// Always well-formed: an unpaired surrogate becomes U+FFFD. Zero units are kept.
std::string toUtf8(std::u16string_view units);
inline std::string toUtf8(const GS::UniString& text) {
    return toUtf8(text.View());
}

inline GS::UniString toUniString(std::string_view utf8) {
    return GS::UniString(utf8.data(), static_cast<USize>(utf8.size()));
}

/// Reads the character at `at` and moves `at` behind it. @return -1 for an ill-formed byte.
std::int32_t nextCharacter(std::string_view utf8, std::size_t& at);
void appendCharacter(std::string& utf8, std::int32_t character);

/// The text with every ill-formed byte as U+FFFD: file names and messages may hold any bytes.
std::string wellFormed(std::string_view bytes);
using updatefile::isWellFormed;
/// Whether every surrogate has its other half, so that the text can be written as UTF-8 and read back.
bool isWellFormed(std::u16string_view units);

/// Equal but for the case of ASCII letters.
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// "A32931C7-B3B2-4117-8D6A-3038DD4E9A78"
std::string guidText(const model::Guid& guid);
/// Takes the 36-character form only.
std::optional<model::Guid> parseGuid(std::string_view text);

}  // namespace console
