#pragma once
// Where the elements stand in plan, for the search of the nearest one.

#include "APITypes.hpp"
#include "model/Model.hpp"

#include <optional>
#include <vector>

namespace host {

/// Read once a model: no edit moves an element or changes its type.
class PlanIndex {
public:
    /// The element of the type (0 = any) whose placement's origin is nearest to the point and no farther than
    /// `distance`; of several as near, the first in the file. Elements without a placement are not found.
    std::optional<model::Element> nearest(const model::Model& model, API_ElemTypeID typeId, double x, double y,
                                          double distance);
    void clear() { places_.reset(); }

private:
    struct Place {
        model::Element element;
        API_ElemTypeID typeId;
        double x, y;
    };
    std::optional<std::vector<Place>> places_;
};

}  // namespace host
