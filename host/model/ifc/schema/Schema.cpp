#include "model/ifc/schema/Schema.hpp"

#include "model/ifc/schema/SchemaTables.hpp"
#include "text/Ascii.hpp"

#include <algorithm>
#include <array>

namespace model::ifc {

namespace {

/// "IfcProperty" of "SET(LIST(IfcProperty))".
std::string_view innermostType(std::string_view typeName) {
    const auto open = typeName.rfind('(');
    if (open == std::string_view::npos) return typeName;
    return typeName.substr(open + 1, typeName.find(')') - open - 1);
}

}  // namespace

bool Entity::isA(std::string_view ancestor) const {
    for (const Entity* entity = this; entity != nullptr; entity = entity->parent_) {
        if (entity->entityName_ == ancestor) return true;
    }
    return false;
}

bool Entity::isA(const Entity& ancestor) const {
    for (const Entity* entity = this; entity != nullptr; entity = entity->parent_) {
        if (entity == &ancestor) return true;
    }
    return false;
}

int Entity::attributeIndex(std::string_view name) const {
    const auto found = std::find_if(allAttributes_.begin(), allAttributes_.end(),
                                    [&](const Attribute& attribute) { return attribute.name == name; });
    return found == allAttributes_.end() ? -1 : static_cast<int>(found - allAttributes_.begin());
}

Schema::Schema(SchemaVersion version) {
    const SchemaRows& rows = schemaRows(version);
    entities_.resize(rows.entities.size());
    std::vector<bool> ready(entities_.size());
    // An entity's ancestors come first, wherever they stand in the alphabetical table.
    const auto prepare = [&](const auto& self, std::size_t index) -> void {
        if (ready[index]) return;
        ready[index] = true;
        const EntityRow& row = rows.entities[index];
        Entity& entity = entities_[index];
        entity.entityName_ = row.name;
        entity.isAbstract_ = row.abstract;
        if (row.super >= 0) {
            const auto super = static_cast<std::size_t>(row.super);
            self(self, super);
            entity.parent_ = &entities_[super];
            entity.allAttributes_ = entities_[super].allAttributes_;
        }
        const auto own = rows.attributes.subspan(row.firstAttribute, row.attributeCount);
        entity.allAttributes_.insert(entity.allAttributes_.end(), own.begin(), own.end());
        for (const auto name : rows.derived.subspan(row.firstDerived, row.derivedCount)) {
            entity.allAttributes_[static_cast<std::size_t>(entity.attributeIndex(name))].derived = true;
        }
        entityByKeyword_.emplace(text::toUpperCase(row.name), &entity);
    };
    for (std::size_t index = 0; index < entities_.size(); ++index) prepare(prepare, index);
    for (const DefinedType& type : rows.types) typeByKeyword_.emplace(text::toUpperCase(type.name), &type);
}

const Schema& Schema::of(SchemaVersion version) {
    switch (version) {
        case SchemaVersion::Ifc2x3: {
            static const Schema schema(SchemaVersion::Ifc2x3);
            return schema;
        }
        case SchemaVersion::Ifc4: {
            static const Schema schema(SchemaVersion::Ifc4);
            return schema;
        }
        case SchemaVersion::Ifc4x3:
            break;
    }
    static const Schema schema(SchemaVersion::Ifc4x3);
    return schema;
}

std::optional<SchemaVersion> Schema::versionOf(std::string_view fileSchemaName) {
    const std::string upper = text::toUpperCase(fileSchemaName);
    for (const auto version : {SchemaVersion::Ifc2x3, SchemaVersion::Ifc4, SchemaVersion::Ifc4x3}) {
        const std::string_view plain = name(version);
        // An addendum or corrigendum follows an underscore and changes no positions.
        if (upper.starts_with(plain) && (upper.size() == plain.size() || upper[plain.size()] == '_')) return version;
    }
    return std::nullopt;
}

bool Schema::isReleaseCandidate(std::string_view fileSchemaName) {
    return versionOf(fileSchemaName) && text::toUpperCase(fileSchemaName).find("_RC") != std::string::npos;
}

bool Schema::isWithdrawn(std::string_view fileSchemaName) {
    const std::string upper = text::toUpperCase(fileSchemaName);
    return upper.starts_with("IFC4X1") || upper.starts_with("IFC4X2");
}

std::string_view Schema::name(SchemaVersion version) {
    switch (version) {
        case SchemaVersion::Ifc2x3:
            return "IFC2X3";
        case SchemaVersion::Ifc4:
            return "IFC4";
        case SchemaVersion::Ifc4x3:
            break;
    }
    return "IFC4X3";
}

namespace {

/// By a name of any case; null where there is none.
template <class Map>
typename Map::mapped_type lookUp(const Map& map, std::string_view name) {
    std::array<char, 64> upper{};  // No schema has a name that long.
    if (name.size() > upper.size()) return nullptr;
    std::transform(name.begin(), name.end(), upper.begin(), text::upperCase);
    const auto found = map.find(std::string_view(upper.data(), name.size()));
    return found == map.end() ? nullptr : found->second;
}

}  // namespace

const Entity* Schema::entity(std::string_view keyword) const {
    return lookUp(entityByKeyword_, keyword);
}

const DefinedType* Schema::type(std::string_view keyword) const {
    return lookUp(typeByKeyword_, keyword);
}

bool Schema::canReferTo(std::string_view typeName, const Entity& target) const {
    const std::string_view inner = innermostType(typeName);
    if (const Entity* declared = entity(inner)) return declared->isA(target) || target.isA(*declared);
    const DefinedType* defined = type(inner);
    if (defined == nullptr || (defined->base != BaseType::Select && defined->base != BaseType::Aggregate)) return false;
    return std::any_of(defined->items.begin(), defined->items.end(),
                       [&](std::string_view item) { return canReferTo(item, target); });
}

}  // namespace model::ifc
