#include "model/step/reading/Resync.hpp"

#include "model/step/syntax/Characters.hpp"

#include <string_view>

namespace model::step {

namespace {

/// With the equals sign: a reference that begins a line of a long list has none.
bool beginsInstance(std::string_view text) {
    const std::size_t digits = text.find_first_not_of("0123456789", 1);
    if (digits == 1 || digits == std::string_view::npos) return false;
    const std::size_t equals = text.find_first_not_of(" \t\r\n", digits);
    return equals != std::string_view::npos && text[equals] == '=';
}

bool beginsEnd(std::string_view text) {
    for (const std::string_view word : {"ENDSEC", "END-ISO-10303-21"})
        if (equalIgnoringCase(text.substr(0, word.size()), word)) return true;
    return false;
}

}  // namespace

const char* nextStatement(const char* malformed, const char* end) {
    bool first = false;
    for (const char* at = malformed == end ? end : malformed + 1; at != end; ++at) {
        const char c = *at;
        const std::string_view text(at, static_cast<std::size_t>(end - at));
        if (first && c == '#' && beginsInstance(text)) return at;
        if (first && upperCase(c) == 'E' && beginsEnd(text)) return at;
        // A parenthesis too, since the semicolon behind it may be what is missing.
        if (isLineEnd(c) || c == ';' || c == ')') {
            first = true;
        } else if (!isBlank(c)) {
            first = false;
        }
    }
    return end;
}

}  // namespace model::step
