#pragma once
// Storeys by number: the headers of elements count them from the lowest.

#include "APITypes.hpp"
#include "model/Model.hpp"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace host {

class Storeys {
public:
    /// 0 for the lowest storey, and for an element that stands in none.
    Int16 floorOf(const model::Model& model, model::Element element);
    void clear();

private:
    void readOrder(const model::Model& model);
    void readNames(const model::Model& model);

    /// From the lowest to the highest. Which they are and where they lie no edit changes; their names it may.
    std::optional<std::vector<model::Element>> order;
    std::map<std::string, Int16, std::less<>> floorByName;
    std::uint64_t namesRevision = 0;
};

}  // namespace host
