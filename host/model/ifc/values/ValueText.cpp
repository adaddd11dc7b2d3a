#include "model/ifc/values/ValueText.hpp"

#include "model/step/syntax/Characters.hpp"
#include "model/step/syntax/Instance.hpp"
#include "model/step/syntax/Numbers.hpp"
#include "model/step/syntax/StringDecoder.hpp"
#include "model/step/syntax/StringEncoder.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace model::ifc {

namespace {

using step::Value;
using step::ValueKind;

Error badValue(std::string reason) {
    return {ErrorKind::BadValue, std::move(reason)};
}

std::u16string widened(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

/// The text in one byte a character; empty where it has others than ASCII.
std::string narrowed(std::u16string_view text) {
    const bool ascii = std::all_of(text.begin(), text.end(), [](char16_t c) { return c < 0x80; });
    return ascii ? std::string(text.begin(), text.end()) : std::string{};
}

/// ISO 10303-21 spells them T, F and U; programs write them in lower case, too.
std::u16string truthText(std::string_view item) {
    if (step::equalIgnoringCase(item, "T")) return u"true";
    if (step::equalIgnoringCase(item, "F")) return u"false";
    if (step::equalIgnoringCase(item, "U")) return u"unknown";
    return widened(item);
}

/// std::from_chars takes no plus, people and ISO 10303-21 do.
std::string_view withoutPlus(std::string_view text) {
    return text.starts_with('+') ? text.substr(1) : text;
}

/// Digits with at most one point and an optional exponent; no inf, nan or hexadecimal forms.
bool looksLikeNumber(std::string_view text) {
    const auto digits = [&] {
        const auto count = std::min(text.find_first_not_of("0123456789"), text.size());
        text.remove_prefix(count);
        return count;
    };
    if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
    std::size_t mantissa = digits();
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        mantissa += digits();
    }
    if (mantissa == 0) return false;
    if (text.starts_with('e') || text.starts_with('E')) {
        text.remove_prefix(1);
        if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
        if (digits() == 0) return false;
    }
    return text.empty();
}

Result<std::string> parseReal(std::u16string_view text, const DefinedType* type) {
    const std::string ascii = narrowed(text);
    // Asked first: std::from_chars would take *inf*, *nan*, and the number at the beginning of *9.5 m*.
    if (!looksLikeNumber(ascii)) {
        const bool comma = ascii.find(',') != std::string::npos;
        return badValue(comma ? text::message("is no number; the decimal sign is a point")
                              : text::message("is no number"));
    }
    const std::string_view digits = withoutPlus(ascii);
    double number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc{} || !std::isfinite(number))
        return badValue(text::message("is outside the range of real numbers"));
    if (Status within = checkNumber(number, type); !within) return within.error();
    return step::encodeReal(number);
}

Result<std::string> parseInteger(std::u16string_view text, const DefinedType* type) {
    const std::string ascii = narrowed(text);
    const std::string_view digits = withoutPlus(ascii);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc::result_out_of_range)
        return badValue(text::message("is outside the range of 64-bit integers"));
    const bool whole = error == std::errc{} && end == digits.data() + digits.size();
    if (!whole || ascii.starts_with("+-")) return badValue(text::message("is no whole number"));
    if (Status within = checkNumber(static_cast<double>(number), type); !within) return within.error();
    return std::to_string(number);
}

Result<std::string> parseTruth(std::u16string_view text, bool unknownAllowed) {
    const std::string word = narrowed(text);
    if (step::equalIgnoringCase(word, "true")) return std::string(".T.");
    if (step::equalIgnoringCase(word, "false")) return std::string(".F.");
    if (unknownAllowed && step::equalIgnoringCase(word, "unknown")) return std::string(".U.");
    return badValue(unknownAllowed ? text::message("is none of true, false, unknown")
                                   : text::message("is neither true nor false"));
}

std::string listed(std::span<const std::string_view> items) {
    std::string list;
    for (const auto item : items) list += (list.empty() ? "" : ", ") + std::string(item);
    return list;
}

Result<std::string> parseItem(std::u16string_view text, const DefinedType& type) {
    const std::string word = narrowed(text);
    const auto item = std::find_if(type.items.begin(), type.items.end(), [&](std::string_view candidate) {
        return step::equalIgnoringCase(candidate, word);
    });
    if (item == type.items.end()) {
        return badValue(text::message("is no item of {} ({})", type.name, listed(type.items)));
    }
    return "." + std::string(*item) + ".";
}

Result<std::string> parseString(std::u16string_view text, const DefinedType* type) {
    if (Status within = checkText(text, type); !within) return within.error();
    return step::encodeString(text);
}

}  // namespace

std::u16string valueText(Value value, BaseType base) {
    switch (value.kind) {
        case ValueKind::Unset:
        case ValueKind::Derived:
            return {};
        case ValueKind::String: {
            std::u16string text;
            step::decodeString(value.text, text);
            return text;
        }
        case ValueKind::Integer:
            if (const auto number = step::integerValue(value)) return widened(std::to_string(*number));
            return widened(value.text);  // beyond 64 bits: as written
        case ValueKind::Real:
            if (const auto number = step::realValue(value)) return widened(step::displayReal(*number));
            return widened(value.text);
        case ValueKind::Enumeration: {
            const auto item = step::enumerationItem(value);
            return base == BaseType::Boolean || base == BaseType::Logical ? truthText(item) : widened(item);
        }
        default:
            return text::fromUtf8(value.text);
    }
}

Result<std::string> parseValue(std::u16string_view text, BaseType base, const DefinedType* type) {
    switch (base) {
        case BaseType::String:
            return parseString(text, type);
        case BaseType::Integer:
            return parseInteger(text, type);
        case BaseType::Real:
        case BaseType::Number:
            return parseReal(text, type);
        case BaseType::Boolean:
            return parseTruth(text, false);
        case BaseType::Logical:
            return parseTruth(text, true);
        case BaseType::Enumeration:
            return parseItem(text, *type);
        default:
            return badValue(text::message("cannot be set as a text"));
    }
}

Status checkNumber(double number, const DefinedType* type) {
    if (!std::isfinite(number)) return badValue(text::message("is not finite"));
    if (type == nullptr) return {};
    if (type->minimumExcluded ? number <= type->minimum : number < type->minimum) {
        const std::string bound = step::displayReal(type->minimum);
        return badValue(type->minimumExcluded ? text::message("is not above {}, as {} asks", bound, type->name)
                                              : text::message("is not at least {}, as {} asks", bound, type->name));
    }
    if (type->maximumExcluded ? number >= type->maximum : number > type->maximum) {
        const std::string bound = step::displayReal(type->maximum);
        return badValue(type->maximumExcluded ? text::message("is not below {}, as {} asks", bound, type->name)
                                              : text::message("is not at most {}, as {} asks", bound, type->name));
    }
    return {};
}

Status checkText(std::u16string_view text, const DefinedType* type) {
    if (!text::isWellFormed(text)) return badValue(text::message("holds half of a character (a lone surrogate)"));
    if (type == nullptr) return {};
    const std::size_t length = type->maxLength + type->exactLength == 0 ? 0 : text::characterCount(text);
    if (type->maxLength != 0 && length > type->maxLength) {
        return badValue(
            text::message("is {} characters long; {} holds at most {}", length, type->name, type->maxLength));
    }
    if (type->exactLength != 0 && length != type->exactLength) {
        return badValue(text::message("is {} characters long; {} holds {}", length, type->name, type->exactLength));
    }
    const auto equals = [&](std::string_view item) { return widened(item) == text; };
    if (!type->items.empty() && std::none_of(type->items.begin(), type->items.end(), equals)) {
        return badValue(text::message("is none of the texts of {} ({})", type->name, listed(type->items)));
    }
    return {};
}

/// Numbers are compared by value: 9., 9.0 and 9E0 are one real, and rewriting one as the other is no change.
bool sameValue(Value value, BaseType base, const std::string& stepText) {
    switch (base) {
        case BaseType::Real:
        case BaseType::Number: {
            const auto held = step::realValue(value);
            return held && held == step::realValue({ValueKind::Real, stepText});
        }
        case BaseType::Integer: {
            const auto held = step::integerValue(value);
            return held && held == step::integerValue({ValueKind::Integer, stepText});
        }
        default:
            return value.kind != ValueKind::String && step::equalIgnoringCase(value.text, stepText);
    }
}

}  // namespace model::ifc
