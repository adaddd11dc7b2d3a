#pragma once
// The host's texts as the console prints and reads them: in UTF-8.

#include "UniString.hpp"
#include "text/Ascii.hpp"
#include "text/Unicode.hpp"

#include <string>
#include <string_view>

namespace console {

using text::equalIgnoringCase;
using text::isWellFormed;
using text::toUtf8;
using text::wellFormed;

inline std::string toUtf8(const GS::UniString& text) {
    return toUtf8(text.View());
}

inline GS::UniString toUniString(std::string_view utf8) {
    return GS::UniString(utf8.data(), static_cast<USize>(utf8.size()));
}

}  // namespace console
