#include "readback/Stored.hpp"

#include "text/Ascii.hpp"

#include <algorithm>
#include <array>
#include <charconv>

namespace readback {

namespace {

std::string shortest(double number) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return {digits.data(), end};
}

std::string_view wordOf(Truth truth) {
    switch (truth) {
        case Truth::True:
            return "true";
        case Truth::Unknown:
            return "unknown";
        case Truth::False:
            break;
    }
    return "false";
}

std::string joined(const std::vector<std::string>& items) {
    std::string text;
    for (const std::string& item : items) text.append(text.empty() ? "" : ", ").append(item);
    return text;
}

}  // namespace

std::string textOf(const Stored& stored) {
    switch (stored.kind) {
        case Stored::Kind::Text:
        case Stored::Kind::Enumeration:
            return stored.text;
        case Stored::Kind::Integer:
            return std::to_string(stored.integer);
        case Stored::Kind::Real:
            return shortest(stored.real);
        case Stored::Kind::Boolean:
        case Stored::Kind::Logical:
            return std::string(wordOf(stored.truth));
        case Stored::Kind::Enumerated:
            return joined(stored.items);
        case Stored::Kind::Classification:
            return stored.title.empty() ? stored.text : stored.text + "{" + stored.title + "}";
        case Stored::Kind::Nothing:
        case Stored::Kind::Other:
            break;
    }
    return {};
}

/// "CODE{Title}" or "CODE", the form that textOf() gives back.
AskedClassification askedClassification(std::string_view asked) {
    const std::size_t brace = asked.find('{');
    if (brace == std::string_view::npos) return {std::string(asked), {}};
    std::string_view title = asked.substr(brace + 1);
    if (title.ends_with('}')) title.remove_suffix(1);
    return {std::string(asked.substr(0, brace)), std::string(title)};
}

/// Numbers are compared as numbers and truths as truths: "0.90" and 0.9, "yes" and true are the same to who asked.
bool isAsAsked(std::string_view asked, const Stored& stored, DecimalSign sign) {
    switch (stored.kind) {
        case Stored::Kind::Nothing:
            return asked.empty();
        case Stored::Kind::Text:
            return asked == stored.text;
        case Stored::Kind::Integer:
            return wholeInteger(asked) == stored.integer;
        case Stored::Kind::Real:
            return wholeReal(asked, sign) == stored.real;
        case Stored::Kind::Boolean:
        case Stored::Kind::Logical:
            return truthValue(asked) == stored.truth;
        case Stored::Kind::Enumeration:
            return text::equalIgnoringCase(asked, stored.text);
        case Stored::Kind::Enumerated:
            return text::equalIgnoringCase(asked, joined(stored.items));
        case Stored::Kind::Classification: {
            const AskedClassification wanted = askedClassification(asked);
            return wanted.code == stored.text && wanted.title == stored.title;
        }
        case Stored::Kind::Other:
            break;
    }
    return false;
}

}  // namespace readback
