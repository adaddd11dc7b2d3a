#pragma once

#include "model/Model.hpp"
#include "model/ifc/data/ElementFacts.hpp"
#include "model/ifc/data/SharedData.hpp"
#include "selection/Comparing.hpp"

#include <unordered_map>
#include <vector>

namespace selection {

/// Applies an expression to a model, one facet after the other to all elements that are left.
class Chooser {
public:
    Chooser(const model::Model& model, const Expression& expression);

    model::Result<std::vector<model::Element>> run();

private:
    using Elements = std::vector<model::Element>;
    using Places = std::unordered_map<model::step::Slot, bool>;

    model::Status choose(const Group& group);
    model::Result<Elements> base(const Group& group);
    model::Result<std::vector<bool>> named(const Facet& facet);
    std::vector<bool> ofClass(const model::ifc::Entity& ifcClass);
    void keep(const Facet& facet, Elements& elements);
    void keepByItem(const Facet& facet, Elements& elements);
    void keepByProperty(const Facet& facet, Elements& elements);
    bool standsIn(const Comparer& comparer, model::Element element, Places& known);
    void keepByType(const Facet& facet, Elements& elements);
    void keepByMaterial(const Facet& facet, Elements& elements);
    void keepByClassification(const Facet& facet, Elements& elements);
    void keepByLocation(const Facet& facet, Elements& elements);
    bool isAttribute(std::string_view name) const;
    model::Status givenUp() const;

    const model::Model& model_;
    const Expression& expression_;
    model::ifc::Workspace& work_;
    model::ifc::ElementFacts facts_;
    model::ifc::SharedData shared_;
    std::vector<bool> chosen_;
};

}  // namespace selection
