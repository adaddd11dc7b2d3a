#pragma once
// Runs on several models at once, each in a process of its own: an add-on is loaded once in a process, and a model that
// brings one down leaves the others alone.

#include "console/Failure.hpp"
#include "console/output/Json.hpp"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

namespace console {

struct ChildResult {
    ExitStatus status = ExitStatus::Failed;
    std::string out;
    std::string err;  ///< Lines that begin with "modelhost: ".
    JsonValue facts;  ///< An empty object where it came to no result.
};

struct ChildPlan {
    std::size_t count = 0;
    unsigned atOnce = 1;
    std::filesystem::path input;  ///< What each gets as its standard input; empty: nothing.
    /// In the child, with its output kept.
    std::function<ExitStatus(std::size_t place, JsonValue& facts)> work;
    /// In this process, in the order of the places.
    std::function<void(std::size_t place, ChildResult result)> take;
};

/// An interrupt goes on to the children, which leave no half-written file; then it ends this process, too. Must be
/// called while this process has one thread and no model. Throws Failure where no process can be made.
void runChildren(const ChildPlan& plan);

}  // namespace console
