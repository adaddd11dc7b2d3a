#pragma once

#include "model/ifc/schema/Classes.hpp"

#include <vector>

namespace model::ifc {

/// The file's elements in file order, and the way from a GUID to its element.
class Elements {
public:
    /// One pass over the index of the file; of each product no more than the GlobalId is read.
    Elements(const step::StepFile& file, Classes& classes);

    std::size_t size() const { return slots_.size(); }
    step::Slot slot(Element element) const { return slots_[element]; }
    const Guid& guid(Element element) const { return guids_[element]; }
    std::optional<Element> find(const Guid& guid) const;
    bool hasDuplicates(Element element) const;
    std::uint64_t duplicates() const { return duplicateCount_; }
    std::uint64_t invalid() const { return invalidCount_; }
    /// By name.
    const std::vector<UnknownClass>& unknownClasses() const { return unknownClasses_; }

private:
    void add(step::Slot slot, const Guid& guid);
    std::size_t bucketOf(const Guid& guid) const;

    std::vector<step::Slot> slots_;
    std::vector<Guid> guids_;
    std::vector<Element> buckets_;  // open addressing; a power of two, at most half full
    std::vector<Element> duplicated_;
    std::uint64_t duplicateCount_ = 0;
    std::uint64_t invalidCount_ = 0;
    std::vector<UnknownClass> unknownClasses_;
};

/// The GlobalId of a rooted instance: its first argument. Reads no further than that, since this is done for every
/// product when a file is opened. Nothing where it is no valid one.
std::optional<Guid> globalIdOf(std::string_view instanceText);

}  // namespace model::ifc
