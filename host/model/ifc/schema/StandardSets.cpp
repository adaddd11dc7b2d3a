#include "model/ifc/schema/StandardSets.hpp"

#include "model/ifc/schema/NearName.hpp"

#include <algorithm>

namespace model::ifc {

namespace {

/// "IfcWall" of "IfcWallType", "IfcDoor" of "IfcDoorStyle"; the name itself for any other class.
std::string_view occurrenceName(std::string_view className) {
    for (const std::string_view end : {std::string_view("Type"), std::string_view("Style")}) {
        if (className.ends_with(end)) return className.substr(0, className.size() - end.size());
    }
    return className;
}

bool isForClass(std::string_view applicable, const Entity& ifcClass) {
    return ifcClass.isA(applicable) || ifcClass.isA(occurrenceName(applicable));
}

}  // namespace

StandardProperty StandardSet::property(std::size_t index) const {
    const StandardPropertyRow& row = tables_->properties[row_->firstProperty + index];
    return {tables_->names[row.name], row.kind, tables_->names[row.type]};
}

std::optional<StandardProperty> StandardSet::find(std::string_view propertyName) const {
    const auto rows = tables_->properties.subspan(row_->firstProperty, row_->propertyCount);
    const auto nameOf = [this](const StandardPropertyRow& row) { return tables_->names[row.name]; };
    const auto found = std::ranges::lower_bound(rows, propertyName, {}, nameOf);
    if (found == rows.end() || nameOf(*found) != propertyName) return std::nullopt;
    return property(static_cast<std::size_t>(found - rows.begin()));
}

bool StandardSet::isFor(const Entity& ifcClass) const {
    const auto rows = tables_->classes.subspan(row_->firstClass, row_->classCount);
    return std::ranges::any_of(
        rows, [&](const StandardClassRow& row) { return isForClass(tables_->names[row.name], ifcClass); });
}

bool StandardSet::isFor(const Entity& ifcClass, std::string_view predefinedType) const {
    const auto rows = tables_->classes.subspan(row_->firstClass, row_->classCount);
    return std::ranges::any_of(rows, [&](const StandardClassRow& row) {
        const std::string_view wanted = tables_->names[row.predefinedType];
        return (wanted.empty() || wanted == predefinedType) && isForClass(tables_->names[row.name], ifcClass);
    });
}

StandardSets::StandardSets(SchemaVersion version) : rows_(standardSetRows(version)) {
    for (std::size_t i = 0; i < rows_.sets.size(); ++i) {
        const StandardSet set = at(i);
        for (std::size_t j = 0; j < set.size(); ++j) {
            setsByProperty_[set.property(j).name].push_back(static_cast<std::uint16_t>(i));
        }
    }
}

const StandardSets& StandardSets::of(SchemaVersion version) {
    switch (version) {
        case SchemaVersion::Ifc2x3: {
            static const StandardSets sets(SchemaVersion::Ifc2x3);
            return sets;
        }
        case SchemaVersion::Ifc4: {
            static const StandardSets sets(SchemaVersion::Ifc4);
            return sets;
        }
        case SchemaVersion::Ifc4x3:
            break;
    }
    static const StandardSets sets(SchemaVersion::Ifc4x3);
    return sets;
}

std::optional<StandardSet> StandardSets::find(std::string_view setName) const {
    const auto nameOf = [this](const StandardSetRow& row) { return rows_.names[row.name]; };
    const auto found = std::ranges::lower_bound(rows_.sets, setName, {}, nameOf);
    if (found == rows_.sets.end() || nameOf(*found) != setName) return std::nullopt;
    return StandardSet(rows_, *found);
}

std::optional<StandardProperty> StandardSets::find(std::string_view setName, std::string_view propertyName) const {
    const auto set = find(setName);
    return set ? set->find(propertyName) : std::nullopt;
}

std::vector<StandardSet> StandardSets::having(std::string_view propertyName) const {
    std::vector<StandardSet> sets;
    const auto found = setsByProperty_.find(propertyName);
    if (found == setsByProperty_.end()) return sets;
    for (const std::uint16_t index : found->second) sets.push_back(at(index));
    return sets;
}

std::string_view StandardSets::nearestSet(std::string_view setName) const {
    NearestName nearest(setName);
    for (std::size_t i = 0; i < size(); ++i) nearest.offer(at(i).name());
    return nearest.found();
}

std::string_view StandardSets::nearestProperty(std::string_view propertyName, const Entity& ifcClass) const {
    NearestName nearest(propertyName);
    for (std::size_t i = 0; i < size(); ++i) {
        const StandardSet set = at(i);
        if (!set.isFor(ifcClass)) continue;
        for (std::size_t j = 0; j < set.size(); ++j) nearest.offer(set.property(j).name);
    }
    return nearest.found();
}

}  // namespace model::ifc
