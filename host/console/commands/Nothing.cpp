#include "console/commands/Nothing.hpp"

#include "console/Failure.hpp"
#include "console/help/Nearest.hpp"
#include "console/output/Messages.hpp"
#include "console/several/Share.hpp"
#include "selection/Selection.hpp"
#include "updatefile/Designation.hpp"
#include "updatefile/ItemCensus.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

namespace console {
namespace {

bool isItem(const std::string& name, const std::vector<std::string>& items) {
    return std::any_of(items.begin(), items.end(),
                       [&name](const std::string& item) { return updatefile::nameIn(item) == name; });
}

/// Of items that are there, one that no element chosen has is what was asked about.
std::vector<std::string> unknownItems(const Models& models, const std::string& where) {
    std::vector<std::string> lines;
    const std::vector<std::string> names = selection::itemsNamed(where);
    if (names.empty()) return lines;
    std::vector<std::string> items;
    for (const model::Model& model : models) {
        for (std::string& item : itemsOf(model)) items.push_back(std::move(item));
    }
    for (const std::string& name : names) {
        if (isItem(name, items)) continue;
        const std::string meant = nearest(name, items);
        lines.push_back("--where: " + noSuchItem(name, std::string(updatefile::nameIn(meant))));
    }
    return lines;
}

std::string noneChosen(const std::string& models) {
    return fmt::format("no element of {} is chosen; 'modelhost list' without a filter prints those there are", models);
}

}  // namespace

std::vector<std::string> itemsOf(const model::Model& model) {
    updatefile::ItemCensus census(model);
    for (model::Element element = 0; element < model.elementCount(); ++element) throwUnlessDone(census.add(element));
    std::vector<std::string> items;
    for (updatefile::ItemRecord& record : census.records()) items.push_back(std::move(record.item));
    return items;
}

std::string noSuchItem(const std::string& item, const std::string& nearest) {
    const std::string text = fmt::format("no element has an item {}", item);
    return nearest.empty() ? text + "; 'modelhost items' prints those there are" : text + "; nearest: " + nearest;
}

void sayNothingChosen(const Models& models, const std::string& name, const std::string& where, Share* share) {
    const bool empty =
        std::all_of(models.begin(), models.end(), [](const model::Model& model) { return model.elementCount() == 0; });
    const std::vector<std::string> unknown = unknownItems(models, where);
    if (share != nullptr) {
        share->facts["nothingChosen"] = unknown;
    } else if (empty) {
        say(name + " has no elements");
    } else if (unknown.empty()) {
        say(noneChosen(name));
    } else {
        for (const std::string& line : unknown) say(line);
    }
}

void sayNothingChosen(ModelSession& session, const std::string& where, Share* share) {
    sayNothingChosen({session.model()}, session.shownName(), where, share);
}

void NothingInAny::add(const JsonValue& facts) {
    if (!facts.contains("nothingChosen")) {
        something_ = true;
        return;
    }
    const auto unknown = facts["nothingChosen"].get<std::set<std::string>>();
    if (!unknown_) unknown_ = unknown;
    std::erase_if(*unknown_, [&unknown](const std::string& line) { return !unknown.contains(line); });
}

void NothingInAny::say() const {
    if (something_ || !unknown_) return;
    if (unknown_->empty()) console::say(noneChosen("any of the models"));
    for (const std::string& line : *unknown_) console::say(line);
}

}  // namespace console
