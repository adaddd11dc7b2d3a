#pragma once
// Two models made by a test, and what is said to be different between them.

#include "comparing/Comparison.hpp"
#include "support/IfcText.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace comparing_tests {

using testing_support::guidText;
using testing_support::IfcText;

inline std::unique_ptr<model::Model> opened(const std::string& bytes) {
    auto model = model::Model::fromBytes(bytes);
    if (!model) throw std::runtime_error(model.error().message);
    return std::move(*model);
}

inline comparing::Comparison compared(const std::string& a, const std::string& b) {
    const auto modelA = opened(a), modelB = opened(b);
    auto comparison = comparing::compare(*modelA, *modelB);
    if (!comparison) throw std::runtime_error(comparison.error().message);
    EXPECT_FALSE(modelA->modified());
    EXPECT_FALSE(modelA->undoSteps().undo);
    return std::move(*comparison);
}

/// "property FireRating[WallCommon]: F 30 -> F 90", " (REASON)" behind it where no update can make it so.
inline std::string lineOf(const comparing::Change& change) {
    return std::string(comparing::nameOf(change.kind)) + " " + change.item + ": " + change.old.value_or("nothing") +
           " -> " + change.now.value_or("nothing") + (change.writable() ? "" : " (" + change.obstacle + ")");
}

/// All changes of all elements.
inline std::vector<std::string> changes(const std::string& a, const std::string& b) {
    std::vector<std::string> lines;
    for (const auto& element : compared(a, b).changed)
        for (const auto& change : element.changes) lines.push_back(lineOf(change));
    return lines;
}

/// The kinds and items alone.
inline std::vector<std::string> changedItems(const std::string& a, const std::string& b) {
    std::vector<std::string> items;
    for (const auto& element : compared(a, b).changed)
        for (const auto& change : element.changes) items.push_back(change.item);
    return items;
}

}  // namespace comparing_tests
