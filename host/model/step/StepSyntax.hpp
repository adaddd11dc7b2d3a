#pragma once
// The clear-text encoding of exchange structures (ISO 10303-21): cutting an instance into its parts and reading and
// writing single values. Nothing here copies or owns: a Value is a view of the file's own bytes.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

/// An instance cut into its parts: "#12 = IFCWALL ( ... ) ;".
struct Instance {
    InstanceId id = 0;
    std::string_view keyword;      ///< As found, any case. Empty for a complex instance.
    std::vector<Value> arguments;  ///< Reused between calls to save allocations.
    bool complex = false;          ///< #1=(A(..)B(..)); its arguments are not split.
};

/// Cuts a whole instance. Blanks and comments may stand between any two tokens.
/// @return false where the text is not well formed; `out` is then not to be used.
bool splitInstance(std::string_view text, Instance& out);

/// The elements of an Aggregate. @return false where it is not well formed or no aggregate.
bool splitAggregate(Value aggregate, std::vector<Value>& out);

/// The keyword and the inner value of a Typed value.
bool splitTyped(Value typed, std::string_view& keyword, Value& inner);

/// The id of a Reference, 0 for anything else. Leading zeros name the same instance.
InstanceId referenceId(Value value);

/// Nothing where the digits do not fit 64 bits or the value is no Integer.
std::optional<std::int64_t> integerValue(Value value);

/// Accepts what ISO 10303-21 does not but files hold: reals without a point, an integer where a real is due. Always "."
/// whatever the locale. Nothing for a value that is no number or not finite.
std::optional<double> realValue(Value value);

/// The item of an Enumeration without its points; empty for anything else.
std::string_view enumerationItem(Value value);

/// How a string was read.
enum class Decoding : std::uint8_t {
    Exact,
    Guessed,      ///< Raw bytes above 126 or a lone backslash: shown by a fixed rule, kept as they are unless set anew.
    Undecodable,  ///< A directive that is cut short or holds no characters. Refuse to edit it blindly.
};

/// Decodes a String value (quotes included) by ISO 10303-21: doubled apostrophes and backslashes,
/// \X2\ \X4\ \X\ \S\ \P?\. Raw bytes above 126 are read as UTF-8 where well formed, as Windows-1252 otherwise. On
/// Undecodable `out` holds the raw text between the quotes.
Decoding decodeString(std::string_view quoted, std::u16string& out);

/// A String value with its quotes: ASCII 32 to 126 plain, the rest as \X2\ or, above U+FFFF, \X4\.
std::string encodeString(std::u16string_view text);

/// The shortest decimal that reads back to the same double, with the point that STEP asks for: "12.5", "1.", "1.E-05".
std::string encodeReal(double value);

/// The same number for a person: "12.5", "1", "1e-05".
std::string displayReal(double value);

bool equalIgnoringCase(std::string_view a, std::string_view b);  ///< ASCII letters only.

}  // namespace model::step
