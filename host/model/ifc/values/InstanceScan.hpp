#pragma once
// Looking into the text of an instance without cutting all of it into values: relations name thousands of elements.

#include "model/step/syntax/Instance.hpp"

#include <algorithm>
#include <cstddef>

namespace model::ifc {

/// Arguments from here on count as one: no schema has classes of so many, but a class that no schema knows may.
inline constexpr unsigned LastArgument = 62;

/// Calls visit(argument, token) for every "#12" among the arguments whose bit is set in `arguments`, nested ones
/// included, until it returns false. Strings, binaries and comments are passed over.
/// @param text  A whole instance, from '#' to ';'.
/// @param depth  0; 1 where the text is that of one argument.
template <class Visit>
void forEachReference(std::string_view text, std::uint64_t arguments, Visit&& visit, unsigned depth = 0) {
    unsigned argument = 0;
    const auto skipTo = [&](std::size_t at, std::string_view end) {
        const auto found = text.find(end, at);
        return found == std::string_view::npos ? text.size() : found + end.size();
    };
    for (std::size_t at = 0; at < text.size();) {
        switch (text[at]) {
            case '\'':
                at = skipTo(at + 1, "'");
                continue;  // A doubled apostrophe reads as two strings.
            case '"':
                at = skipTo(at + 1, "\"");
                continue;
            case '/':
                at = text.substr(at).starts_with("/*") ? skipTo(at + 2, "*/") : at + 1;
                continue;
            case '(':
                ++depth;
                break;
            case ')':
                if (depth <= 1) return;
                --depth;
                break;
            case ',':
                argument += depth == 1 ? 1U : 0U;
                break;
            case '#': {
                std::size_t end = at + 1;
                while (end < text.size() && text[end] >= '0' && text[end] <= '9') ++end;
                const unsigned bit = std::min(argument, LastArgument);
                const bool wanted = depth > 0 && (arguments >> bit & 1U) != 0;
                if (wanted && !visit(bit, text.substr(at, end - at))) return;
                at = end;
                continue;
            }
            default:
                break;
        }
        ++at;
    }
}

/// The argument at `attributeIndex`, quotes included, if it is a string; empty otherwise. Reads no further than its
/// end.
std::string_view leadingString(std::string_view instanceText, int attributeIndex);

/// Bytes of an instance that is read as fast as what was found in it is looked up.
inline constexpr std::size_t ShortText = 512;

inline constexpr std::uint64_t AllArguments = ~std::uint64_t{0};

/// The same for the text of one argument. Calls visit(token).
template <class Visit>
void forEachReferenceIn(std::string_view argument, Visit&& visit) {
    forEachReference(
        argument, 1, [&](unsigned, std::string_view token) { return visit(token); }, 1);
}

inline std::uint64_t argumentBit(int attributeIndex) {
    return attributeIndex < 0 || attributeIndex >= 64 ? 0 : std::uint64_t{1} << static_cast<unsigned>(attributeIndex);
}

/// The id of a token found by forEachReference.
inline step::InstanceId tokenId(std::string_view token) {
    return step::referenceId({step::ValueKind::Reference, token});
}

}  // namespace model::ifc
