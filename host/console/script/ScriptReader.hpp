#pragma once
// The steps of a script: one JSON object a line.

#include "console/output/Json.hpp"

#include <filesystem>
#include <fstream>
#include <istream>
#include <optional>
#include <string>

namespace console {

struct Step {
    std::uint64_t line = 0;
    JsonValue object;   ///< An object, or null where the line is none.
    std::string error;  ///< Why the line is no step.
};

class ScriptReader {
public:
    /// @param path  "-" is standard input. Throws Failure where the file cannot be read.
    explicit ScriptReader(const std::filesystem::path& path);

    /// Empty lines are passed over. Nothing at the end.
    std::optional<Step> next();

private:
    std::ifstream file_;
    std::istream* source_;
    std::uint64_t line_ = 0;
};

}  // namespace console
