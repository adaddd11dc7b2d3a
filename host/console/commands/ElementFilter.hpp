#pragma once
// Which elements a command is about: --type, --class and --where.

#include "model/Model.hpp"
#include "model/ifc/schema/Schema.hpp"

#include <string>
#include <vector>

namespace console {

/// Throws Failure for the name of a type that the host does not know.
void checkType(const std::string& type);

class ElementFilter {
public:
    /// @param type      display name in any case, empty: any.
    /// @param ifcClass  in any case, itself or a class below it; empty: any.
    /// @param where     a selection, see selection/Selection.hpp; empty: any.
    /// Throws Failure as checkType, for a class that the model's schema does not have, and a
    /// mistake in the selection.
    ElementFilter(const model::Model& model, std::string type, const std::string& ifcClass, const std::string& where);

    /// The elements taken, in the order of the file.
    std::vector<model::Element> elements() const;

private:
    bool takes(model::Element element) const;

    const model::Model& model_;
    std::string type_;
    const model::ifc::Schema* schema_ = nullptr;
    const model::ifc::Entity* ifcClass_ = nullptr;
    std::vector<model::Element> chosen_;  ///< Of the selection; all where there is none.
};

}  // namespace console
