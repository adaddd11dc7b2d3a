#pragma once
// What an update's item names on an element, by the rules by which the add-on writes, and what the model holds there.

#include "model/Model.hpp"
#include "readback/Stored.hpp"

#include <string>
#include <string_view>

namespace readback {

/// Where the add-on writes the value of an item.
struct Place {
    enum class Kind : std::uint8_t { None, Attribute, Property, Classification };

    Kind kind = Kind::None;
    std::string attribute;
    std::u16string set, property;  ///< With the prefix that the add-on puts before a set's name.
    std::u16string system;         ///< The label of a classification.
    bool isNew = false;            ///< A property that the element does not have, nor its type object.
};

/// @param item  "FireRating", "FireRating[WallCommon]", "UniFormat Classification". The first attribute of the name;
/// else the first property of it, in any set; else, with a set in brackets, a new property; else a classification.
Place placeOf(const model::Model& model, model::Element element, std::string_view item);

/// What stands there now.
Stored storedAt(const model::Model& model, model::Element element, const Place& place);

/// Stores what the text asks for, where the item can hold it; only inside a command. An existing property keeps its
/// type.
/// @param newType  The type for a property that was made for this update, "IfcReal"; empty for any other.
/// @return why it cannot be stored, as the model says it.
model::Status storeAsAsked(model::Model& model, model::Element element, const Place& place, std::string_view asked,
                           DecimalSign sign, std::string_view newType);

}  // namespace readback
