#pragma once

#include "model/ifc/index/Workspace.hpp"

#include <map>
#include <vector>

namespace model::ifc {

/// Numbers elements by where their data comes from: those of one number are given the same by the same relations and
/// the same type object. Whoever reads many elements so reads once what they share: a file may give thousands of
/// properties to thousands of elements in two lines. Valid until the next change of the model.
class SharedData {
public:
    explicit SharedData(Workspace& work) : work_(work) {}

    /// Elements of one number have the same properties and quantities.
    std::size_t properties(Element element);
    /// Elements of one number have the same classifications.
    std::size_t classifications(Element element);

private:
    using Sources = std::vector<step::Slot>;  // relations in file order, then the type object

    std::size_t number(std::map<Sources, std::size_t>& numbers, step::Slot object);

    Workspace& work_;
    Sources sources_;  // kept to save allocations
    std::map<Sources, std::size_t> properties_, classifications_;
};

}  // namespace model::ifc
