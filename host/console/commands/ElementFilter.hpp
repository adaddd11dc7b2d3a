#pragma once
// Which elements a command is about: --type and --class.

#include "model/Model.hpp"
#include "model/ifc/schema/Schema.hpp"

#include <string>
#include <vector>

namespace console {

class ElementFilter {
public:
    /// @param type      display name in any case, empty: any.
    /// @param ifcClass  in any case, itself or a class below it; empty: any.
    /// Throws Failure for a type that the host does not know and a class that the model's schema does not have.
    ElementFilter(const model::Model& model, std::string type, const std::string& ifcClass);

    /// The elements taken, in the order of the file.
    std::vector<model::Element> elements() const;

private:
    bool takes(const model::ElementInfo& info) const;

    const model::Model& model_;
    std::string type_;
    const model::ifc::Schema* schema_ = nullptr;
    const model::ifc::Entity* ifcClass_ = nullptr;
};

}  // namespace console
