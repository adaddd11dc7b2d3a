#include "model/step/reading/Indexer.hpp"

#include "model/step/reading/SectionReader.hpp"
#include "text/Message.hpp"

#include <algorithm>

namespace model::step {

namespace {

void remarkDuplicates(Index& index) {
    for (const Slot slot : index.ids.duplicates()) {
        const std::string_view text = index.original(slot);
        const std::string id(text.substr(0, text.find_first_not_of("0123456789", 1)));
        index.remark(index.places[slot].where(),
                     text::message("the id {} is used more than once; its instances are not edited", id));
    }
}

/// Remarks on the file as a whole; they have no line. They are added behind the limit of remarks: each comes once.
void remarkWhole(Index& index) {
    const auto add = [&index](std::string message) { index.remarks.push_back({0, 0, std::move(message)}); };
    if (index.schemaNames.empty()) add(text::message("FILE_SCHEMA is missing or names no schema"));
    if (index.signedFile)
        add(text::message("the file is signed; saved with changes, its signature is no longer valid"));
    if (index.remarksLeftOut != 0) add(text::message("and {} more remarks like these", index.remarksLeftOut));
}

std::uint64_t lineEnds(std::string_view bytes, std::uint64_t from, std::uint64_t to) {
    std::uint64_t count = 0;
    for (std::uint64_t i = from; i < to; ++i) {
        const bool pair = i + 1 < bytes.size() && bytes[i] == '\r' && bytes[i + 1] == '\n';
        count += (bytes[i] == '\n' || bytes[i] == '\r') && !pair ? 1U : 0U;
    }
    return count;
}

/// Sorts the remarks by offset and fills in their lines, counted from 1. Lines end with CR LF, LF or CR. Counting them
/// is a pass of its own over the bytes, made only as far as there is something to report.
void numberLines(std::string_view bytes, std::vector<Remark>& remarks) {
    std::stable_sort(remarks.begin(), remarks.end(),
                     [](const Remark& a, const Remark& b) { return a.offset < b.offset; });
    std::uint64_t line = 1;
    std::uint64_t counted = 0;
    for (Remark& remark : remarks) {
        line += lineEnds(bytes, counted, remark.offset);
        counted = remark.offset;
        remark.line = line;
    }
}

}  // namespace

Status indexFile(Index& index, const Progress& progress, const Sharing& sharing) {
    SectionReader reader(index, progress, sharing);
    if (Status read = reader.run(); !read) return read;
    // First: only now are ids beyond the table in order, and those that come again known.
    index.ids.finish();
    remarkDuplicates(index);
    numberLines(index.bytes, index.remarks);
    remarkWhole(index);
    return {};
}

}  // namespace model::step
