#include "model/ifc/values/PropertyValues.hpp"

#include "model/ifc/values/InQuotes.hpp"
#include "model/ifc/values/ValueText.hpp"
#include "model/step/syntax/Characters.hpp"
#include "model/step/syntax/Instance.hpp"
#include "model/step/syntax/Numbers.hpp"
#include "model/step/syntax/StringDecoder.hpp"
#include "model/step/syntax/StringEncoder.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <cmath>

namespace model::ifc {

namespace {

using step::Value;
using step::ValueKind;

/// A record's logical code.
enum Logical : std::int64_t { False = 0, Unknown = 1, True = 2 };

/// What a value without a type says of itself.
BaseType baseOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::Integer:
            return BaseType::Integer;
        case ValueKind::Real:
            return BaseType::Real;
        case ValueKind::String:
            return BaseType::String;
        case ValueKind::Enumeration:
            return BaseType::Logical;
        default:
            return BaseType::Aggregate;
    }
}

Primitive primitiveOf(BaseType base) {
    switch (base) {
        case BaseType::Integer:
            return Primitive::Integer;
        case BaseType::Real:
        case BaseType::Number:
            return Primitive::Real;
        case BaseType::Boolean:
            return Primitive::Boolean;
        case BaseType::Logical:
            return Primitive::Logical;
        case BaseType::String:
            return Primitive::String;
        default:
            return Primitive::Other;
    }
}

/// The keyword and the inner value, whether the file gives a type or not.
struct NominalParts {
    std::string_view keyword;  ///< Empty where the file gives no type.
    Value inner;
};

NominalParts nominalParts(Value nominal) {
    NominalParts parts{{}, nominal};
    if (nominal.kind == ValueKind::Typed && !step::splitTyped(nominal, parts.keyword, parts.inner)) {
        parts.inner = {ValueKind::Malformed, nominal.text};
    }
    return parts;
}

/// An integer, also one written as a real of integral value.
std::optional<std::int64_t> readInteger(Value value) {
    if (value.kind == ValueKind::Integer) return step::integerValue(value);
    constexpr double Exact = 9007199254740992.0;  // 2^53: up to here a double tells integers apart.
    const auto real = step::realValue(value);
    if (!real || std::trunc(*real) != *real || std::abs(*real) > Exact) return std::nullopt;
    return static_cast<std::int64_t>(*real);
}

std::optional<Logical> readLogical(Value value) {
    const auto item = step::enumerationItem(value);
    if (step::equalIgnoringCase(item, "T")) return True;
    if (step::equalIgnoringCase(item, "F")) return False;
    if (step::equalIgnoringCase(item, "U")) return Unknown;
    return std::nullopt;
}

/// Sets the member that counts. @return false where the file's value is none of that base type.
bool readContent(Value inner, NominalValue& out) {
    switch (out.primitive) {
        case Primitive::Integer: {
            const auto number = readInteger(inner);
            out.integer = number.value_or(0);
            return number.has_value();
        }
        case Primitive::Real: {
            const auto number = step::realValue(inner);
            out.real = number.value_or(0);
            return number.has_value();
        }
        case Primitive::Boolean: {
            const auto logical = readLogical(inner);
            out.boolean = logical == True;
            return logical.has_value() && logical != Unknown;
        }
        case Primitive::Logical: {
            const auto logical = readLogical(inner);
            out.integer = logical.value_or(False);
            return logical.has_value();
        }
        case Primitive::String:
            out.string = inner;
            return inner.kind == ValueKind::String;
        case Primitive::Other:
            break;
    }
    return true;
}

Error badValue(const std::string& message) {
    return {ErrorKind::BadValue, message};
}

Result<std::string> encodeNumber(double number, std::string text, const DefinedType* type) {
    if (Status within = checkNumber(number, type); !within) {
        return badValue(step::displayReal(number) + " " + within.error().message);
    }
    return text;
}

Result<std::string> encodeLogical(std::int64_t code) {
    switch (code) {
        case False:
            return std::string(".F.");
        case Unknown:
            return std::string(".U.");
        case True:
            return std::string(".T.");
        default:
            return badValue(text::message("{} is no code of a logical (0 false, 1 unknown, 2 true)", code));
    }
}

/// The value in STEP form without its type, within the limits of `type`.
Result<std::string> encodeContent(const PropertyValue& value, BaseType base, const DefinedType* type) {
    if (primitiveOf(base) != value.primitive) {
        return badValue(type != nullptr ? text::message("a value of another kind than {}", type->name)
                                        : text::message("a value of another kind than the one there"));
    }
    switch (value.primitive) {
        case Primitive::Integer:
            return encodeNumber(static_cast<double>(value.integer), std::to_string(value.integer), type);
        case Primitive::Real:
            return encodeNumber(value.real, step::encodeReal(value.real), type);
        case Primitive::Boolean:
            return std::string(value.boolean ? ".T." : ".F.");
        case Primitive::Logical:
            return encodeLogical(value.integer);
        case Primitive::String:
            if (Status within = checkText(value.string, type); !within) {
                return badValue(inQuotes(value.string) + " " + within.error().message);
            }
            return step::encodeString(value.string);
        case Primitive::Other:
            break;
    }
    return badValue(text::message("a value that is no number, truth value or text"));
}

}  // namespace

NominalValue readNominalValue(Value nominal, const Schema& schema) {
    NominalValue value;
    value.string.kind = ValueKind::Unset;
    // Nothing there reads as an empty text without a type.
    if (nominal.kind == ValueKind::Unset || nominal.kind == ValueKind::Derived) return value;
    const auto [keyword, inner] = nominalParts(nominal);
    if (keyword.empty()) {
        value.primitive = primitiveOf(baseOf(inner.kind));
    } else if (const DefinedType* type = schema.type(keyword)) {
        value.type = type->name;
        value.primitive = primitiveOf(type->base);
    } else {
        value.type = keyword;
        value.typeKnown = false;
        value.primitive = Primitive::Other;
    }
    if (!readContent(inner, value)) value.primitive = Primitive::Other;
    return value;
}

bool sameContent(const PropertyView& held, const PropertyValue& wanted) {
    if (held.primitive != wanted.primitive) return false;
    switch (held.primitive) {
        case Primitive::Integer:
        case Primitive::Logical:
            return held.integer == wanted.integer;
        case Primitive::Real:
            return held.real == wanted.real;
        case Primitive::Boolean:
            return held.boolean == wanted.boolean;
        case Primitive::String:
            return held.string == wanted.string;
        case Primitive::Other:
            break;
    }
    return true;
}

Result<std::string> encodeNominalValue(const PropertyValue& value, const Schema& schema) {
    constexpr std::size_t LongestLabel = 255;
    std::string_view name = value.type;
    if (name.empty() && value.primitive == Primitive::String) {
        name = text::characterCount(value.string) > LongestLabel ? "IfcText" : "IfcLabel";
    }
    const DefinedType* type = schema.type(name);
    if (type == nullptr || primitiveOf(type->base) == Primitive::Other) {
        return badValue(text::message("\"{}\" is no type of a property's value in this schema", name));
    }
    Result<std::string> content = encodeContent(value, type->base, type);
    if (!content) return content;
    return text::toUpperCase(type->name) + "(" + *content + ")";
}

Result<Replacement> replaceNominalValue(Value nominal, const PropertyValue& value, const Schema& schema) {
    if (nominal.kind == ValueKind::Unset) {
        Result<std::string> whole = encodeNominalValue(value, schema);
        if (!whole) return whole.error();
        return Replacement{nominal, std::move(*whole)};
    }
    const auto [keyword, inner] = nominalParts(nominal);
    std::u16string text;
    if (inner.kind == ValueKind::String && step::decodeString(inner.text, text) == step::Decoding::Undecodable) {
        return Error{
            ErrorKind::Refused,
            text::message("the file holds a text that cannot be decoded, {}; fix it in the program that wrote it",
                          inner.text)};
    }
    const DefinedType* type = keyword.empty() ? nullptr : schema.type(keyword);
    if (!keyword.empty() && type == nullptr) {
        return Error{ErrorKind::Refused,
                     text::message("the file gives its value a type this schema does not know, {}", keyword)};
    }
    Result<std::string> content = encodeContent(value, type != nullptr ? type->base : baseOf(inner.kind), type);
    if (!content) return content.error();
    return Replacement{inner, std::move(*content)};
}

}  // namespace model::ifc
