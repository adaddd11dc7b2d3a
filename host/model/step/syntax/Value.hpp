#pragma once
// One value of the clear-text encoding (ISO 10303-21) as it stands in a file. Nothing here copies or owns: a Value is a
// view of the file's own bytes.

#include <cstdint>
#include <string_view>

namespace model::step {

using InstanceId = std::uint64_t;  ///< The number behind '#'. 0 is none.

enum class ValueKind : std::uint8_t {
    Unset,    ///< $
    Derived,  ///< *
    Integer,
    Real,
    String,       ///< 'text', quotes included
    Enumeration,  ///< .ITEM., points included
    Binary,       ///< "0A1F", quotes included
    Reference,    ///< #12
    Aggregate,    ///< (a,b,c), parentheses included
    Typed,        ///< IFCLABEL('text')
    Malformed,    ///< Anything else; kept as it is and never edited.
};

/// One argument: its kind and its bytes, without the blanks and comments around it.
struct Value {
    ValueKind kind = ValueKind::Malformed;
    std::string_view text;
};

}  // namespace model::step
