#pragma once
// What a row of the review list probably meant, where its name is nearly one that the IFC standard gives to a property
// of such an element, or is one that goes into another set.

#include "model/ifc/schema/Schema.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace updatefile {

/// A row whose item the element has not got yet.
struct UnknownItem {
    std::uint64_t row = 0;                          ///< From 1.
    std::string designation;                        ///< "FireRating[WallCommon]"
    std::string value;                              ///< That is to be written.
    const model::ifc::Entity* ifcClass = nullptr;   ///< Of the element.
    const model::ifc::Entity* typeClass = nullptr;  ///< Of its type object; null where it has none.
    bool failed = false;                            ///< Applied, and ended in an error.
};

struct StandardHints {
    std::vector<std::string> texts;
    std::vector<std::uint64_t> rows;  ///< That they are about, in order.
};

/// Nothing is said of a row that failed although its set is named, or whose value is longer than a label may be: there
/// the name is not to blame. What is meant as a classification gets no property suggested.
StandardHints standardHints(const std::vector<UnknownItem>& items, model::ifc::SchemaVersion schema);

/// Whether the row means a classification reference: by its name, or by a value with a title in braces.
bool meansClassification(const std::string& designation, const std::string& value);

}  // namespace updatefile
