#pragma once
// The forms in which `diff` prints what is different.

#include "comparing/Comparison.hpp"
#include "console/output/Json.hpp"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace console {

/// Two open models and what is different between them.
struct Difference {
    struct Side {
        const model::Model& model;
        std::filesystem::path path;
    };
    Side a, b;
    const comparing::Comparison& found;

    bool any() const { return !found.added.empty() || !found.removed.empty() || !found.changed.empty(); }
};

/// A line a change, with a sentence below.
void printAsTable(const Difference& difference);
void printAsTsv(const Difference& difference);
void printAsJson(const Difference& difference);
/// How many elements were added, removed and changed, and are the same.
JsonValue summaryOf(const Difference& difference);

/// The update file that gives the first model the second one's data.
std::string updatesOf(const Difference& difference);
/// What it leaves out, a line for each thing.
std::vector<std::string> leftOutOf(const Difference& difference);

/// On standard output where no file is named; a terminal shows it as visible() does.
void printWhole(const std::string& text, const std::optional<std::filesystem::path>& output);

}  // namespace console
