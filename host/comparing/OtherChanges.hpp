#pragma once
// What is different of an element besides its data: its class, where and what it is made of.

#include "comparing/Comparison.hpp"
#include "model/ifc/data/ElementFacts.hpp"
#include "model/ifc/geometry/Spatial.hpp"
#include "model/ifc/index/Fingerprints.hpp"

#include <map>
#include <utility>
#include <vector>

namespace comparing {

/// One of the two models, and what is found out about it once.
struct Side {
    Side(model::ifc::Workspace& workspace, model::ifc::Fingerprints& ofInstances)
        : work(workspace), fingerprints(ofInstances), facts(workspace), storeys(workspace) {}

    model::ifc::Workspace& work;
    model::ifc::Fingerprints& fingerprints;
    model::ifc::ElementFacts facts;
    model::ifc::Storeys storeys;
};

/// Valid until the next change of either model.
class OtherChanges {
public:
    OtherChanges(Side a, Side b);

    /// In the order class, placement, geometry, storey, type, material; never writable. Of the materials of one element
    /// as many are named as a person reads.
    std::vector<Change> of(model::Element inA, model::Element inB);

private:
    bool samePlacement(model::step::Slot inA, model::step::Slot inB);
    bool sameTarget(model::step::Slot inA, model::step::Slot inB, model::ifc::Field field);
    bool sameType(model::step::Slot typeA, model::step::Slot typeB);

    Side a_, b_;
    std::map<std::pair<model::step::Slot, model::step::Slot>, bool> sameTypes_;
    /// Whatever shapes are made of stands in both files under the same numbers with the same bytes: a shape is the same
    /// where its number is.
    bool shapesAlike_;
};

}  // namespace comparing
