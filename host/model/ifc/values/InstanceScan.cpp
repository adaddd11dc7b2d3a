#include "model/ifc/values/InstanceScan.hpp"

#include <algorithm>

namespace model::ifc {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/// Behind the end mark, or at the end of the text.
std::size_t behind(std::string_view text, std::size_t from, std::string_view end) {
    const auto found = text.find(end, from);
    return found == std::string_view::npos ? text.size() : found + end.size();
}

/// Behind blanks and comments.
std::size_t skipBlanks(std::string_view text, std::size_t at) {
    while (at < text.size()) {
        if (isBlank(text[at])) {
            ++at;
        } else if (text.substr(at).starts_with("/*")) {
            at = behind(text, at + 2, "*/");
        } else {
            break;
        }
    }
    return at;
}

/// Behind a string that begins at `at`, doubled apostrophes being part of it.
std::size_t skipString(std::string_view text, std::size_t at) {
    do {
        at = behind(text, at + 1, "'");
    } while (at < text.size() && text[at] == '\'');
    return at;
}

/// Behind the comma or closing parenthesis that ends the argument at `at`.
std::size_t skipArgument(std::string_view text, std::size_t at) {
    unsigned depth = 0;
    while (at < text.size()) {
        at = skipBlanks(text, at);
        if (at == text.size()) break;
        const char c = text[at];
        if (c == '\'') {
            at = skipString(text, at);
            continue;
        }
        ++at;
        if (c == '"') at = behind(text, at, "\"");
        if (c == '(') ++depth;
        if (c == ',' && depth == 0) return at;
        // The end of the instance: old exporters leave out the last attributes.
        if (c == ')' && depth-- == 0) return text.size();
    }
    return at;
}

}  // namespace

std::string_view leadingString(std::string_view text, int attributeIndex) {
    std::size_t at = 0;
    // Only a comment can hold a parenthesis that is none.
    while (at < text.size() && text[at] != '(') at = text[at] == '/' ? std::max(at + 1, skipBlanks(text, at)) : at + 1;
    ++at;
    for (int i = 0; i < attributeIndex && at < text.size(); ++i) at = skipArgument(text, at);
    if (at >= text.size()) return {};
    at = skipBlanks(text, at);
    if (at >= text.size() || text[at] != '\'') return {};
    return text.substr(at, skipString(text, at) - at);
}

}  // namespace model::ifc
