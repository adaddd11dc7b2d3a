#pragma once
// The steps of a script: one JSON object a line.

#include "console/output/Json.hpp"

#include <cstdio>
#include <filesystem>
#include <memory>
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
    /// No step needs more than a few levels. A deeper one would use up the stack where it is copied and printed.
    static constexpr std::size_t DeepestNesting = 100;
    /// In bytes. Only a file that is no script has longer lines; it is not to be read into memory as one.
    static constexpr std::size_t LongestLine = 1U << 20U;

    /// @param path  "-" is standard input. Throws Failure where the file cannot be opened.
    explicit ScriptReader(const std::filesystem::path& path);

    /// Empty lines are passed over. Nothing at the end, and where it cannot be read any further: see failure().
    std::optional<Step> next();

    /// A complete message where the steps ended before their end: a read error, or a line that is too long.
    const std::optional<std::string>& failure() const { return failure_; }

private:
    struct Close {
        void operator()(std::FILE* open) const { std::fclose(open); }
    };

    /// @return false at the end, and where failure_ says why it is not the end.
    bool readLine(std::string& text);
    void stop(const std::string& reason);

    std::string name_;
    std::unique_ptr<std::FILE, Close> file_;
    std::uint64_t line_ = 0;
    std::optional<std::string> failure_;
};

}  // namespace console
