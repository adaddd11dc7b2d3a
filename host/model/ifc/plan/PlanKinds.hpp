#pragma once

#include "model/base/PlanRecords.hpp"
#include "model/ifc/schema/Schema.hpp"

#include <unordered_map>

namespace model::ifc {

/// What plans take classes for: the one place that decides it. Found out once a class.
class PlanKinds {
public:
    PlanKind of(const Entity& entity);

private:
    std::unordered_map<const Entity*, PlanKind> known_;
};

}  // namespace model::ifc
