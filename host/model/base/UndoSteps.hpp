#pragma once

#include <optional>
#include <string>

namespace model {

/// The commands that undo and redo would act on, by name. Neither is there while a command is open.
struct UndoSteps {
    std::optional<std::string> undo;
    std::optional<std::string> redo;
};

}  // namespace model
