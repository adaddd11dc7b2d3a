#pragma once
// What is kept of a file besides its bytes: where each instance stands, its keyword, and the frame around them. The
// ids are not kept, they are read from the bytes again: that is 8 bytes less for each of millions of instances.

#include "model/step/disk/Region.hpp"
#include "model/step/index/IdTable.hpp"
#include "model/step/index/Keywords.hpp"
#include "model/step/index/Remark.hpp"
#include "model/step/index/Slot.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace model::step {

/// An instance's place, packed: millions of them are read in a row.
class Place {
public:
    /// The largest where(): 128 TiB, the most that a process can map.
    static constexpr std::uint64_t Maximum = (std::uint64_t{1} << 47U) - 1;

    Place() = default;
    Place(KeywordCode keyword, bool changed, std::uint64_t where)
        : bits_(std::uint64_t{keyword} << 48U | std::uint64_t{changed} << 47U | where) {}

    KeywordCode keyword() const { return static_cast<KeywordCode>(bits_ >> 48U); }
    /// Whether where() is a number in the list of changes; otherwise it is an offset in the file.
    bool changed() const { return (bits_ >> 47U & 1U) != 0; }
    std::uint64_t where() const { return bits_ & Maximum; }

private:
    std::uint64_t bits_ = 0;
};

/// One DATA section. Offsets in bytes from the beginning of the file. ISO 10303-21 allows several since its second
/// edition; ids are unique over all of them.
struct Section {
    std::uint64_t begin = 0;  ///< Behind the keyword.
    std::uint64_t end = 0;    ///< Before ENDSEC.
    /// Where new instances go: before ENDSEC, or behind the last sound instance where that is missing.
    std::uint64_t insertAt = 0;
};

/// A stretch of bytes that may mention ids.
struct Range {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};

struct Index {
    /// @param text  the whole file, followed by SlackBytes zeros. Not owned; outlives the index.
    explicit Index(std::string_view text) : bytes(text), ids(text.size()) {}

    std::string_view bytes;
    GrowingArray<Place> places;           ///< By slot.
    GrowingArray<std::uint32_t> lengths;  ///< By slot, in bytes, from '#' to ';'; 0 of a new instance.
    Keywords keywords;
    IdTable ids;
    std::vector<Section> sections;         ///< In file order.
    std::vector<Range> linkSections;       ///< ANCHOR and REFERENCE: kept, their ids are taken.
    std::vector<std::string> schemaNames;  ///< Of FILE_SCHEMA, decoded to UTF-8.
    std::vector<Remark> remarks;           ///< Their lines are filled in at the end.
    std::uint64_t remarksLeftOut = 0;      ///< Faults beyond those remarked.
    bool signedFile = false;               ///< It has a SIGNATURE section, which any change makes invalid.

    /// The next instance of the file. @param begin, end  in `bytes`, at most 4 GiB apart.
    void add(InstanceId id, KeywordCode keyword, const char* begin, const char* end) {
        const auto slot = static_cast<Slot>(places.size());
        places.push_back({keyword, false, static_cast<std::uint64_t>(begin - bytes.data())});
        lengths.push_back(static_cast<std::uint32_t>(end - begin));
        ids.add(id, slot);
    }

    /// A file that is broken throughout is reported by its first faults.
    void remark(std::uint64_t offset, std::string message) {
        constexpr std::size_t MostRemarks = 1000;
        if (remarks.size() < MostRemarks) {
            remarks.push_back({0, offset, std::move(message)});
        } else {
            ++remarksLeftOut;
        }
    }

    /// The text of an instance that was never changed: of one that was, the place tells something else.
    std::string_view original(std::size_t slot) const { return bytes.substr(places[slot].where(), lengths[slot]); }
};

}  // namespace model::step
