#include "console/commands/Nothing.hpp"

#include "console/commands/ItemCensus.hpp"
#include "console/help/Nearest.hpp"
#include "console/output/Messages.hpp"
#include "selection/Selection.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

namespace console {
namespace {

bool isItem(const std::string& name, const std::vector<std::string>& items) {
    return std::any_of(items.begin(), items.end(), [&name](const std::string& item) {
        return std::string_view(item).substr(0, item.find('[')) == name;
    });
}

/// Of items that are there, one that no element chosen has is what was asked about.
bool saidOfItems(const Models& models, const std::string& where) {
    const std::vector<std::string> names = selection::itemsNamed(where);
    if (names.empty()) return false;
    std::vector<std::string> items;
    for (const model::Model& model : models) {
        for (std::string& item : itemsOf(model)) items.push_back(std::move(item));
    }
    bool said = false;
    for (const std::string& name : names) {
        if (isItem(name, items)) continue;
        const std::string meant = nearest(name, items);
        say("--where: " + noSuchItem(name, meant.substr(0, meant.find('['))));
        said = true;
    }
    return said;
}

}  // namespace

std::vector<std::string> itemsOf(const model::Model& model) {
    ItemCensus census(model);
    for (model::Element element = 0; element < model.elementCount(); ++element) census.add(element);
    std::vector<std::string> items;
    for (ItemRecord& record : census.records()) items.push_back(std::move(record.item));
    return items;
}

std::string noSuchItem(const std::string& item, const std::string& nearest) {
    const std::string text = fmt::format("no element has an item {}", item);
    return nearest.empty() ? text + "; 'modelhost items' prints those there are" : text + "; nearest: " + nearest;
}

void sayNothingChosen(const Models& models, const std::string& name, const std::string& where) {
    const bool empty =
        std::all_of(models.begin(), models.end(), [](const model::Model& model) { return model.elementCount() == 0; });
    if (empty) return say(name + " has no elements");
    if (!saidOfItems(models, where))
        say(fmt::format("no element of {} is chosen; 'modelhost list' without a filter prints those there are", name));
}

void sayNothingChosen(ModelSession& session, const std::string& where) {
    sayNothingChosen({session.model()}, session.shownName(), where);
}

}  // namespace console
