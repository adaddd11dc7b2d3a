#pragma once
// What the model holds where an update was to be written, and whether that is what was asked for.

#include "readback/AskedText.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace readback {

/// The value of one item of an element. Which member counts is told by `kind`.
struct Stored {
    enum class Kind : std::uint8_t {
        Nothing,         ///< The item is not there, or holds `$`.
        Text,            ///< `text`
        Integer,         ///< `integer`
        Real,            ///< `real`
        Boolean,         ///< `truth`
        Logical,         ///< `truth`
        Enumeration,     ///< `text`, an item of the schema's.
        Enumerated,      ///< `items`, those chosen of a property that offers several.
        Classification,  ///< `text` is the code, `title` its title.
        Other,           ///< A list, a range, a table: nothing that one text could ask for.
    };

    Kind kind = Kind::Nothing;
    std::string text{}, title{};
    std::int64_t integer = 0;
    double real = 0;
    Truth truth = Truth::False;
    std::vector<std::string> items{};
    std::string type{};  ///< Of a property's single value, "IfcLabel"; else empty.
};

/// As people are shown it: numbers in the shortest decimal that reads back, *true*, *false*, *unknown*, a code with its
/// title in braces as an update has it, chosen items with commas between. Empty for Nothing and Other.
std::string textOf(const Stored& stored);

/// The code and the title that an update asks for: "B2010{Exterior Walls}". A title whose closing brace is missing is
/// asked for whole; the add-on drops its last character all the same, and so it is not stored as asked.
struct AskedClassification {
    std::string code, title;
};
AskedClassification askedClassification(std::string_view asked);

/// Whether the model holds what the text asks for, by the type of what is stored.
bool isAsAsked(std::string_view asked, const Stored& stored, DecimalSign sign = DecimalSign::Point);

}  // namespace readback
