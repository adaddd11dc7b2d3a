#include "Guid.hpp"

#include "text/Guid.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace GS {

namespace {

std::optional<text::GuidBytes> parsed(std::u16string_view units) {
    // The length in UTF-16 is checked first: it is no other in ASCII, and so nothing longer is ever copied.
    std::array<char, text::GuidLength> characters{};
    if (units.size() != characters.size()) return std::nullopt;
    std::transform(units.begin(), units.end(), characters.begin(),
                   [](char16_t unit) { return unit < 0x80 ? static_cast<char>(unit) : '\0'; });
    return text::parseGuid({characters.data(), characters.size()});
}

}  // namespace

GSErrCode Guid::ConvertFromString(const UniString& text) {
    const std::optional<text::GuidBytes> read = parsed(text.View());
    *this = Guid();
    if (!read) return ErrBadFormat;
    std::copy(read->begin(), read->end(), bytes);
    return NoError;
}

GSErrCode Guid::ConvertFromString(const char* text) {
    return ConvertFromString(UniString(text));
}

UniString Guid::ToUniString() const {
    const auto characters = text::guidCharacters(bytes);
    return {characters.data(), static_cast<USize>(characters.size())};
}

bool Guid::IsNull() const {
    return std::all_of(std::begin(bytes), std::end(bytes), [](unsigned char byte) { return byte == 0; });
}

}  // namespace GS
