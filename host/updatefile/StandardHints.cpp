#include "updatefile/StandardHints.hpp"

#include "model/ifc/schema/NearName.hpp"
#include "model/ifc/schema/StandardSets.hpp"
#include "text/Ascii.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"
#include "updatefile/Designation.hpp"
#include "updatefile/ReviewList.hpp"
#include "updatefile/UpdateFileScan.hpp"
#include "updatefile/Wording.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <optional>
#include <tuple>

namespace updatefile {

namespace {

using model::ifc::Attribute;
using model::ifc::BaseType;
using model::ifc::Entity;
using model::ifc::NearestName;
using model::ifc::StandardSet;
using model::ifc::StandardSets;

constexpr std::string_view Prefix = "Pset_";
/// Nobody reads more; and to seek what a name is near to takes a while.
constexpr std::size_t MostNames = 200;
constexpr std::size_t MostHints = 20;

std::string_view shortName(std::string_view set) {
    return set.starts_with(Prefix) ? set.substr(Prefix.size()) : set;
}

std::string written(std::string_view name, std::string_view set) {
    return fmt::format("{}[{}]", name, shortName(set));
}

/// Gives a reason and what to write for one name, or nothing.
class Advisor {
public:
    Advisor(const StandardSets& sets, const UnknownItem& item) : sets_(sets), item_(item) {
        const Designation meant = parseDesignation(text::fromUtf8(item.designation));
        name_ = text::toUtf8(meant.name);
        if (meant.set) set_ = text::toUtf8(*meant.set);
    }

    std::string advice() const {
        if (!set_ && meansClassification(item_.designation, item_.value)) return onClassification();
        return set_ ? onSet(*set_) : onBareName();
    }

private:
    bool isFor(const StandardSet& set) const {
        return set.isFor(*item_.ifcClass) || (item_.typeClass != nullptr && set.isFor(*item_.typeClass));
    }

    /// Of the sets for the element's class that have the property, the one that is common to the class, else the first.
    std::string setFor(std::string_view property) const {
        std::string found;
        for (const StandardSet& set : sets_.having(property)) {
            if (!isFor(set)) continue;
            if (found.empty() || set.name().ends_with("Common")) found = set.name();
        }
        return found;
    }

    std::string onClassification() const {
        NearestName nearest(name_);
        for (const std::string_view label : reviewlist::AddedSystems) nearest.offer(label);
        if (std::ranges::find(reviewlist::AddedSystems, name_) != reviewlist::AddedSystems.end()) return {};
        if (!nearest.found().empty()) return text::message("is nearly a classification: write {}", nearest.found());
        return text::message(
            "is no classification of the element, and only {} and {} can be given to an element that has none",
            reviewlist::AddedSystems[1], reviewlist::AddedSystems[0]);
    }

    std::string onSet(const std::string& setName) const {
        if (const std::string given = setName.substr(Prefix.size()); given.starts_with(Prefix)) {
            return text::message("would go into {}, since {} is put before every set: write {}", setName, Prefix,
                                 written(name_, given));
        }
        const auto set = sets_.find(setName);
        if (!set) {
            const std::string_view near = sets_.nearestSet(setName);
            return near.empty()
                       ? std::string()
                       : text::message("is nearly of the standard's set {}: write {}", near, written(name_, near));
        }
        return isFor(*set) ? onNameIn(*set) : onForeignSet(setName);
    }

    std::string onNameIn(const StandardSet& set) const {
        if (set.find(name_)) return {};
        NearestName nearest(name_);
        for (std::size_t i = 0; i < set.size(); ++i) nearest.offer(set.property(i).name);
        if (nearest.found().empty()) return {};
        return text::message("is nearly the standard's {} of {}: write {}", nearest.found(), set.name(),
                             written(nearest.found(), set.name()));
    }

    std::string onForeignSet(const std::string& setName) const {
        const std::string better = setFor(name_);
        const std::string_view ifcClass = item_.ifcClass->name();
        if (better.empty()) {
            return text::message(
                "would go into {}, which the standard has for other classes than {}: write a set of your own, as in {}",
                setName, ifcClass, written(name_, "Custom"));
        }
        return text::message("would go into {}, which the standard has for other classes than {}: write {}", setName,
                             ifcClass, written(name_, better));
    }

    /// Of those that an update can set.
    std::string_view nearestAttribute() const {
        NearestName nearest(name_);
        for (const Attribute& attribute : item_.ifcClass->attributes()) {
            const bool holdsText = attribute.base != BaseType::Reference && attribute.base != BaseType::Select &&
                                   attribute.base != BaseType::Aggregate && attribute.base != BaseType::Binary;
            if (holdsText && !attribute.derived && attribute.name != "GlobalId") nearest.offer(attribute.name);
        }
        return nearest.found();
    }

    std::string onBareName() const {
        std::string_view name = name_;
        std::string set = setFor(name);
        if (!set.empty())
            return text::message("is the standard's for {}: write {}", item_.ifcClass->name(), written(name, set));
        if (const std::string_view attribute = nearestAttribute(); !attribute.empty())
            return text::message("is nearly the attribute {0}: write {0}", attribute);
        name = sets_.nearestProperty(name, *item_.ifcClass);
        if (name.empty()) return {};
        set = setFor(name);
        return text::message("is nearly the standard's {} for {}: write {}", name, item_.ifcClass->name(),
                             written(name, set));
    }

    const StandardSets& sets_;
    const UnknownItem& item_;
    std::string name_;
    std::optional<std::string> set_;
};

bool isNotTheName(const UnknownItem& item) {
    constexpr std::size_t LongestLabel = 255;
    const bool tooLong = text::characterCount(text::fromUtf8(item.value)) > LongestLabel;
    return tooLong || (item.failed && item.designation.find('[') != std::string::npos);
}

}  // namespace

bool meansClassification(const std::string& designation, const std::string& value) {
    if (designation.find('[') != std::string::npos) return false;
    return text::toLowerCase(designation).find("classification") != std::string::npos ||
           value.find('{') != std::string::npos;
}

StandardHints standardHints(const std::vector<UnknownItem>& items, model::ifc::SchemaVersion schema) {
    const StandardSets& sets = StandardSets::of(schema);
    // One name on elements of one class is looked into once and told once.
    using Key = std::tuple<std::string, const Entity*, const Entity*, bool>;
    std::map<Key, std::string> known;
    std::vector<std::pair<std::string, LineNotes>> told;
    std::map<std::string, std::size_t> places;
    StandardHints hints;
    for (const UnknownItem& item : items) {
        if (item.ifcClass == nullptr || isNotTheName(item)) continue;
        const Key key(item.designation, item.ifcClass, item.typeClass,
                      meansClassification(item.designation, item.value));
        if (!known.contains(key)) {
            if (known.size() == MostNames) continue;
            known.emplace(key, Advisor(sets, item).advice());
        }
        const std::string& advice = known.at(key);
        if (advice.empty()) continue;
        hints.rows.push_back(item.row);
        const auto [place, isNew] = places.try_emplace(item.designation + " " + advice, told.size());
        if (isNew) told.emplace_back(place->first, LineNotes());
        told[place->second].second.add(item.row);
    }
    for (const auto& [text, rows] : told) {
        if (hints.texts.size() == MostHints) {
            hints.texts.push_back(
                text::message("{} more names could be better ones; fix these first", told.size() - MostHints));
            break;
        }
        hints.texts.push_back(rows.count == 1 ? text::message("Row {}: {}", listed(rows), text)
                                              : text::message("Rows {}: {}", listed(rows), text));
    }
    return hints;
}

}  // namespace updatefile
