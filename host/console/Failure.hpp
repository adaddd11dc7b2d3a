#pragma once
// The console's own code reports an error by throwing a Failure, which only main catches and prints. A Failure must not
// be thrown through the add-on's code: a View keeps the problem and throws it after the add-on's command has returned.

#include "model/base/Result.hpp"

#include <stdexcept>
#include <string>

namespace console {

/// What the program's exit status says.
enum class ExitStatus : int {
    Done = 0,
    Failed = 1,      ///< Wrong usage, or a file that cannot be read, understood or written.
    RowsFailed = 2,  ///< At least one ticked row ended in "error!".
    Different = 2,   ///< Two models are not the same, and that was asked.
};

/// A complete message for a person: what, where, what to do. One line, no trailing period.
class Failure : public std::runtime_error {
public:
    explicit Failure(const std::string& message) : std::runtime_error(message) {}
    explicit Failure(const model::Error& error) : std::runtime_error(error.message) {}
};

inline void throwUnlessDone(const model::Status& status) {
    if (!status) throw Failure(status.error());
}

template <class Value>
Value valueOrThrow(model::Result<Value> result) {
    if (!result) throw Failure(result.error());
    return std::move(*result);
}

}  // namespace console
