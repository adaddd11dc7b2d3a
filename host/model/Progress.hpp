#pragma once

#include <cstdint>
#include <functional>

namespace model {

/// Called now and then during a long operation, at most some ten times a second.
/// @param done, total  bytes. @return false to cancel: the operation ends with an error and leaves no trace.
using Progress = std::function<bool(std::uint64_t done, std::uint64_t total)>;

}  // namespace model
