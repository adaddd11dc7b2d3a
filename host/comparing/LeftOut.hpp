#pragma once
// What an update file leaves out, told once for all elements that it is the same for.

#include "comparing/Comparison.hpp"

namespace comparing {

struct LeftOut {
    std::string item;
    std::string why;
    std::uint64_t count = 0;
    std::vector<model::Element> examples;  ///< The first few, of the first model.
};

/// The changes that no update can make, by item and reason.
std::vector<LeftOut> leftOut(const Comparison& comparison);

}  // namespace comparing
