#pragma once
// Which items elements have: what there is to export, and to change.

#include "model/Model.hpp"
#include "model/ifc/schema/StandardSets.hpp"

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace updatefile {

enum class ItemKind : std::uint8_t { Attribute, Property, Classification };

/// How an item stands to the IFC standard.
enum class Standing : std::uint8_t {
    No,          ///< The standard does not know it.
    OtherClass,  ///< It knows it, but not for the class of every element that has it.
    Yes,
};

struct ItemRecord {
    ItemKind kind = ItemKind::Attribute;
    std::string item;  ///< As an update file's second field writes it.
    std::string set;   ///< Of a property.
    std::string name;  ///< Without the set.
    std::string valueType;
    std::uint64_t elements = 0;  ///< That have it, be it without a value.
    std::uint64_t empty = 0;     ///< Of these, without a value.
    std::uint64_t distinct = 0;  ///< Different values.
    std::vector<std::string> examples;
    Standing standard = Standing::No;
    /// Whether an update that names it so changes it on every element that has it: on some a name may mean another
    /// item.
    bool changeable = true;
};

class ItemCensus {
public:
    explicit ItemCensus(const model::Model& model);

    /// @return why the element's data cannot be read; what of it was read until then counts.
    model::Status add(model::Element element);
    /// What the standard defines for the elements added, and none of them has.
    void addStandard();

    /// Attributes, properties, classifications; each in the order in which they were met.
    std::vector<ItemRecord> records() const;

private:
    using Entity = model::ifc::Entity;
    /// What an element is by its own class and that of its type object, which may be null.
    struct Classes {
        const Entity* own;
        const Entity* type;
        auto operator<=>(const Classes&) const = default;
    };
    struct Counted {
        ItemRecord record;
        std::unordered_set<std::size_t> values;  // their hashes: of a million texts two share one once in many millions
        std::set<Classes> judged;
    };

    Counted& entryFor(ItemKind kind, std::u16string_view set, std::u16string_view name);
    static void count(Counted& entry, const std::u16string& value);
    static void setType(ItemRecord& record, std::string_view type);
    model::Status addAttributes(model::Element element, const Entity& ifcClass);
    model::Status addProperties(model::Element element, const Classes& classes);
    model::Status addClassifications(model::Element element, const Entity& ifcClass);
    void judge(Counted& entry, const std::string& set, const std::string& name, const Classes& classes);
    bool isAttribute(const Entity& ifcClass, const std::string& name);

    const model::Model& model_;
    const model::ifc::StandardSets& standard_;
    std::vector<Counted> entries_;
    std::unordered_map<std::u16string, std::size_t> places_;
    std::set<std::pair<Classes, std::string>> met_;  // with the predefined type
    std::unordered_map<const Entity*, std::unordered_set<std::string>> attributeNames_;
};

}  // namespace updatefile
