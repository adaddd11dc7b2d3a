#pragma once
// Between the host's UTF-16 texts and the UTF-8 that the console prints.

#include "UniString.hpp"
#include "updates/Text.hpp"

#include <cstdint>
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

/// The text with every ill-formed byte as U+FFFD: file names and messages may hold any bytes.
std::string wellFormed(std::string_view bytes);
using updates::isWellFormed;

/// Whether every surrogate has its other half, so that the text can be written as UTF-8 and read back.
bool isWellFormed(std::u16string_view units);

using updates::counted;

/// Equal but for the case of ASCII letters.
bool equalIgnoringCase(std::string_view a, std::string_view b);

}  // namespace console
