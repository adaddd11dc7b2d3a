#pragma once
// The records last handed out. An update file names the same elements line after line, and an add-on fetches all
// records of an element for each line: the copy of an array is far cheaper than reading and converting it again.

#include "APITypes.hpp"
#include "model/Model.hpp"

#include <cstdint>
#include <vector>

namespace host {

/// A fixed number of entries, an element's place in it by its number: bounded, and no list to keep in order.
template <class Record>
class RecordCache {
public:
    /// The element's records as of this revision of the model; null where they are not known.
    const GS::Array<Record>* find(model::Element element, std::uint64_t revision) const {
        if (entries.empty()) return nullptr;
        const Entry& entry = entries[element % Size];
        return entry.used && entry.element == element && entry.revision == revision ? &entry.records : nullptr;
    }

    const GS::Array<Record>& put(model::Element element, std::uint64_t revision, GS::Array<Record> records) {
        if (entries.empty()) entries.resize(Size);
        Entry& entry = entries[element % Size];
        entry = {true, element, revision, std::move(records)};
        return entry.records;
    }

    void clear() { entries.clear(); }

private:
    static constexpr std::size_t Size = 64;
    struct Entry {
        bool used = false;
        model::Element element = 0;
        std::uint64_t revision = 0;
        GS::Array<Record> records;
    };
    std::vector<Entry> entries;
};

struct RecordCaches {
    RecordCache<API_IFCAttribute> attributes;
    RecordCache<API_IFCProperty> properties;
    RecordCache<API_IFCClassificationReference> classifications;

    void clear() {
        attributes.clear();
        properties.clear();
        classifications.clear();
    }
};

}  // namespace host
