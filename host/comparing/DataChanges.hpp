#pragma once
// The attributes, properties and classifications of elements in two models.

#include "comparing/Comparison.hpp"
#include "model/ifc/data/SharedData.hpp"

#include <map>
#include <tuple>
#include <utility>
#include <vector>

namespace comparing {

/// Valid until the next change of either model. What many elements share is compared once.
class DataChanges {
public:
    DataChanges(const model::Model& a, const model::Model& b);

    /// Gives the element its changes: by kind, of each the items of the first model in its order, then those that only
    /// the second has. What an update asks for is filled in; whether one can, is not decided yet, but for what is clear
    /// from the values alone.
    model::Status addTo(ChangedElement& element);

private:
    /// Where the properties or classifications of an element come from in either model.
    using Sources = std::tuple<ChangeKind, std::size_t, std::size_t>;

    model::Status addShared(const Sources& sources, ChangedElement& element);
    model::Result<std::vector<Change>> read(const ChangedElement& element, ChangeKind kind) const;
    std::vector<Change> readProperties(const ChangedElement& element) const;

    const model::Model& a_;
    const model::Model& b_;
    model::ifc::SharedData sharedA_, sharedB_;
    std::map<Sources, std::vector<Change>> known_;
    std::map<std::pair<Sources, Sources>, std::size_t> numbers_;
};

}  // namespace comparing
