#pragma once
// What an update's item names on an element, by the rules by which the add-on writes, and what the model holds there.

#include "model/Model.hpp"
#include "readback/Stored.hpp"

#include <string>
#include <string_view>
#include <vector>

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

/// Many at a time, because an element may have thousands of properties and as many updates.
/// @param items  "FireRating", "FireRating[WallCommon]", "UniFormat Classification". The first attribute of the name;
/// else the first property of it, in any set; else, with a set in brackets, a new property; else a classification.
/// @return a place for each item.
std::vector<Place> placesOf(const model::Model& model, model::Element element,
                            const std::vector<std::string_view>& items);

/// What stands there now. @return a value for each place.
std::vector<Stored> storedAt(const model::Model& model, model::Element element,
                             const std::vector<const Place*>& places);

/// Stores what the text asks for, where the item can hold it; only inside a command. An existing property keeps its
/// type.
/// @param held  What stands there now.
/// @param newType  The type for a property that was made for this update, "IfcReal"; empty for any other.
/// @return why it cannot be stored, as the model says it.
model::Status storeAsAsked(model::Model& model, model::Element element, const Place& place, Stored::Kind held,
                           std::string_view asked, DecimalSign sign, std::string_view newType);

/// The same, with the type found for a property that the element does not have yet: the standard's for that set and
/// name, or by the text where the standard has none or its type cannot hold the text.
model::Status storeAsAsked(model::Model& model, model::Element element, const Place& place, Stored::Kind held,
                           std::string_view asked, DecimalSign sign);

}  // namespace readback
