#pragma once
// What the model says of an element, as plain records.

#include "model/base/PlanRecords.hpp"
#include "text/Message.hpp"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace model {

using Guid = std::array<std::uint8_t, 16>;  ///< Bytes in the order of the text form.

/// An element's place in the model: file order. Valid as long as the model lives; no edit changes it.
using Element = std::uint32_t;

struct ElementInfo {
    Guid guid;
    std::string globalId;      ///< The same in IFC's form, 22 characters.
    std::string ifcClass;      ///< In the schema's spelling, "IfcWall".
    std::int32_t typeId;       ///< Element type of the host interface.
    text::Phrase typeName;     ///< Display name, "Wall"; for files in English.
    std::uint64_t instanceId;  ///< The number behind '#' in the file.
};

/// A class that the file's schema does not have: its instances are kept in the file and not read.
struct UnknownClass {
    std::string name;  ///< Upper case.
    std::uint64_t instances = 0;
};

/// What an attribute's declared type is made of.
enum class AttributeType : std::uint8_t { Text, Integer, Real, Boolean, Logical, Enumeration };

struct Attribute {
    std::string_view name;  ///< In the schema's spelling, "Name"; a constant.
    std::u16string value;   ///< Empty where unset.
    AttributeType type = AttributeType::Text;
};

/// Which IfcProperty subtype holds it: IfcPropertySingleValue and so on.
enum class PropertyKind : std::uint8_t { Single, List, Bounded, Enumerated, Table, Reference };
/// What an IFC value type is based on. Other: BINARY and the like, which have no counterpart.
enum class Primitive : std::uint8_t { Integer, Real, Boolean, Logical, String, Other };

/// A property's value; which member counts is told by `primitive`.
struct PropertyValue {
    std::string type;  ///< In the schema's spelling, "IfcLabel"; empty for a single value without a nominal value.
    Primitive primitive = Primitive::String;
    std::int64_t integer = 0;  ///< Also the logical's code: 0 false, 1 unknown, 2 true.
    double real = 0.0;         ///< In the property's own or the project's unit, never converted.
    bool boolean = false;
    std::u16string string;
};

struct Property {
    std::u16string set;  ///< The name of the property set, as in the file.
    std::u16string name;
    PropertyKind kind = PropertyKind::Single;
    bool inherited = false;  ///< From the element's type object.
    PropertyValue value;
};

/// What a property is to hold, as a text that its type can read: for what a PropertyValue, which carries numbers and
/// truth values alone, cannot ask for.
struct PropertyText {
    std::u16string set;
    std::u16string name;
    std::u16string text;
    /// "IfcReal": the type to give the value; empty to keep the one it has.
    std::string type;
};

/// By which a property is found.
struct PropertyName {
    std::u16string_view set;
    std::u16string_view name;
};

/// A property without copies of its texts: they are valid during the visit.
struct PropertyView {
    std::u16string_view set;
    std::u16string_view name;
    PropertyKind kind = PropertyKind::Single;
    bool inherited = false;
    std::string_view type;
    Primitive primitive = Primitive::String;
    std::int64_t integer = 0;
    double real = 0.0;
    bool boolean = false;
    std::u16string_view string;
};

struct ClassificationReference {
    std::u16string system;  ///< The label: the relation's Name, or the classification's name where that is empty.
    std::optional<std::u16string> location, name, itemReference;  ///< Of the reference; nothing where unset.
    std::u16string source, edition, classificationName;           ///< Of the classification that it belongs to.
};

}  // namespace model
