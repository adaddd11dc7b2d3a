#pragma once
// Which items elements have: what there is to export, and to change.

#include "model/Model.hpp"
#include "model/ifc/data/ElementFacts.hpp"
#include "model/ifc/data/SharedData.hpp"
#include "model/ifc/schema/StandardSets.hpp"
#include "model/ifc/values/KeyedSum.hpp"
#include "updatefile/DistinctSums.hpp"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
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

/// Made for one pass over the elements and valid until the next change of the model. What elements share is read for
/// two of them and counted for the others.
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
        // Sums of them: of a million texts two share one once in many millions. By a key that nobody knows: a file can
        // be made so that all its texts have one hash.
        DistinctSums values;
        std::map<Classes, bool> judged;  // whether an update's name leads to it on elements of the classes
        std::size_t name = 0;            // items of one name have one number
    };
    /// What one element adds to an entry.
    struct Tally {
        std::size_t entry;
        bool empty;
    };
    /// Elements of one class whose properties, or classifications, come from the same.
    struct Alike {
        std::uint64_t met = 0;
        std::vector<Tally> tallies;  ///< Of each of them; known from the second on.
    };
    using AlikeBySource = std::map<std::pair<std::size_t, const Entity*>, Alike>;

    using Places = std::map<std::u16string, std::map<std::u16string, std::size_t, std::less<>>, std::less<>>;

    Counted& entryFor(ItemKind kind, std::u16string_view set, std::u16string_view name);
    void count(Counted& entry, const std::u16string& value);
    static void setType(ItemRecord& record, std::string_view type);
    model::Status addAttributes(model::Element element, const Entity& ifcClass);
    model::Status addShared(Alike& alike, const std::function<model::Status()>& read);
    void addProperties(model::Element element, const Classes& classes);
    model::Status addClassifications(model::Element element, const Entity& ifcClass);
    bool judge(Counted& entry, const Classes& classes);
    bool isAttribute(const Entity& ifcClass, const std::string& name);

    const model::Model& model_;
    const model::ifc::StandardSets& standard_;
    std::vector<Counted> entries_;
    std::array<Places, 3> places_;  // by kind, set and name; no hash, see Counted
    std::map<std::string, std::size_t> names_;
    std::vector<std::uint64_t> lastMet_;  // by name: the number of the last reading that met it
    std::uint64_t readings_ = 0;
    std::set<std::pair<Classes, std::string>> met_;  // with the predefined type
    std::map<const Entity*, std::set<std::string>> attributeNames_;
    const model::ifc::FingerprintKey key_ = model::ifc::randomKey();
    model::ifc::ElementFacts facts_;
    model::ifc::SharedData shared_;
    AlikeBySource alikeProperties_, alikeClassifications_;
    std::vector<Tally>* tallies_ = nullptr;  // where what is counted is noted down as well
};

}  // namespace updatefile
