#pragma once

#include "model/ifc/index/DistinctSlots.hpp"
#include "model/ifc/index/InverseReferences.hpp"
#include "model/ifc/schema/Classes.hpp"
#include "model/ifc/values/PropertyValues.hpp"

#include <optional>
#include <set>
#include <unordered_map>
#include <vector>

namespace model::ifc {

/// An IfcPropertySet with its properties as the host lists them: complex ones are left out. All texts stand in one
/// buffer, since a review reads thousands of sets.
class DecodedSet {
public:
    std::u16string_view name() const { return text(setName_); }
    std::size_t size() const { return rows_.size(); }
    step::Slot slot(std::size_t index) const { return rows_[index].slot; }
    std::u16string_view propertyName(std::size_t index) const { return text(rows_[index].name); }
    /// Its texts are valid as long as the set lives.
    PropertyView property(std::size_t index) const;

private:
    friend class PropertySets;

    struct Part {
        std::uint32_t begin = 0, length = 0;
    };
    struct Row {
        step::Slot slot = step::NoSlot;
        Part name, string;
        PropertyKind kind = PropertyKind::Single;
        Primitive primitive = Primitive::String;
        bool boolean = false;
        std::string_view type;
        std::int64_t integer = 0;
        double real = 0;
    };

    std::u16string_view text(Part part) const { return std::u16string_view(texts_).substr(part.begin, part.length); }
    std::size_t bytes() const { return sizeof(*this) + rows_.capacity() * sizeof(Row) + 2 * texts_.capacity(); }

    Part setName_;
    std::vector<Row> rows_;
    std::u16string texts_;
    std::size_t textsWhenRead_ = 0;  // length of the texts when nothing of them was unused
};

/// Property sets, decoded once: the lines of an update file that concern one element stand together, and elements share
/// sets.
class PropertySets {
public:
    PropertySets(const step::StepFile& file, Classes& classes, const Schema& schema);

    /// Its texts are valid until a change of the set or one of its properties, or trim().
    const DecodedSet& of(step::Slot set);
    /// The first property of that name in a set.
    std::optional<std::size_t> find(step::Slot set, std::u16string_view name);
    /// A property that is listed with a set but not in it (an overriding one), as a set of one that has no name; of
    /// none where it is complex or no property.
    const DecodedSet& overriding(step::Slot property);
    /// Keeps the memory within bounds. To be called where nothing of the above is held.
    void trim();
    void forgetAll() noexcept;
    /// Grows with each time that all was dropped.
    std::uint64_t generation() const { return trims_; }

    /// Of a property added to the end of a set, and no other change.
    void append(step::Slot set, step::Slot property);
    /// Of a property put in the place of another, and no other change of the set.
    void replace(step::Slot set, step::Slot from, step::Slot to);
    /// To be told of every change of the file but append() and replace().
    void beforeChange(step::Slot slot);
    void afterChange(step::Slot slot, InverseReferences& inverseReferences);

private:
    /// By name, and those of one name by place. No hash: a file can be made so that all its names have one.
    struct ByName {
        using is_transparent = void;
        const DecodedSet* set = nullptr;

        bool operator()(std::uint32_t a, std::uint32_t b) const {
            const auto order = set->propertyName(a).compare(set->propertyName(b));
            return order != 0 ? order < 0 : a < b;
        }
        bool operator()(std::uint32_t a, std::u16string_view name) const { return set->propertyName(a) < name; }
        bool operator()(std::u16string_view name, std::uint32_t b) const { return name < set->propertyName(b); }
    };
    /// The properties of a long set in the order of their names.
    struct SortedNames {
        std::size_t walks = 0;                    ///< How often a name was searched for in all of them;
        std::set<std::uint32_t, ByName> indexes;  ///< empty until that was often.
    };

    const SortedNames* sortedNames(step::Slot slot, const DecodedSet& set);
    SortedNames* knownOrder(step::Slot set);
    std::size_t bytesOf(step::Slot slot, const DecodedSet& set) const;
    void count(step::Slot slot, const DecodedSet& set);
    void dropSet(step::Slot set);
    void dropOverriding(step::Slot property);
    DecodedSet decode(step::Slot set);
    void addRow(step::Slot property, DecodedSet& set);
    bool readRow(step::Slot property, DecodedSet& set, DecodedSet::Row& row);
    bool readRowAgain(step::Slot property, DecodedSet& set, std::size_t index, SortedNames* names);
    void readAgain(step::Slot set, step::Slot property, step::Slot now);
    DecodedSet::Part putText(step::Value string, DecodedSet& set, DecodedSet::Part old);

    const step::StepFile& file_;
    Classes& classes_;
    const Schema& schema_;
    std::size_t byteLimit_;
    std::size_t knownBytes_ = 0;
    std::size_t largestSet_ = 0;  // bytes of the largest one known
    std::uint64_t trims_ = 0;
    std::unordered_map<step::Slot, DecodedSet> known_;
    std::unordered_map<step::Slot, SortedNames> sortedNames_;     // of long sets that are known
    std::unordered_map<step::Slot, DecodedSet> knownOverriding_;  // by property
    std::set<std::string, std::less<>> unknownTypes_;             // rows refer to these names
    step::Instance setInstance_, propertyInstance_;               // kept to save allocations
    std::vector<step::Value> members_;
    std::u16string decoded_;
};

/// The text of a string argument; empty for anything else.
std::u16string stringArgument(const step::Instance& instance, const Class& cls, Field field);

}  // namespace model::ifc
