#pragma once
// A selection as it was written, cut into its parts by Parser.cpp.

#include "selection/Pattern.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace selection {

/// A word, a text in quotes, or /an expression/.
struct Word {
    std::string text;  ///< UTF-8.
    std::optional<Pattern> pattern;
    std::size_t place = 0;  ///< In the selection's bytes.
};

enum class Operator : std::uint8_t { Equal, Contains, Greater, GreaterOrEqual, Less, LessOrEqual };

enum class Special : std::uint8_t { None, Null, True, False };

struct Comparison {
    Operator what = Operator::Equal;
    bool negated = false;
    Special special = Special::None;  ///< Where it is none, `value` counts.
    Word value;
};

enum class Subject : std::uint8_t {
    Class,     ///< `name`; no comparison.
    Instance,  ///< `name` is a GUID or GlobalId; no comparison.
    Item,      ///< An attribute or, where no class has one of the name, a property of any set.
    Property,  ///< `name` of `set`.
    Type,
    Material,
    Classification,
    Location,
};

struct Facet {
    Subject subject = Subject::Item;
    bool negated = false;  ///< Of a class or an instance: taken out.
    Word set, name;
    Comparison comparison;
};

using Group = std::vector<Facet>;  ///< All have to hold.

struct Expression {
    std::string text;
    std::vector<Group> groups;  ///< Any of them.
};

/// @return ErrorKind::BadValue with what is wrong and the text up to there, see complaint().
model::Result<Expression> parse(std::string_view text);

/// "REASON, in character 9: IfcDoor,<<here>> =3"
model::Error complaint(std::string_view text, std::size_t place, const std::string& reason);

}  // namespace selection
