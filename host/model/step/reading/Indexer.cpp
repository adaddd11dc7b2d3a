#include "model/step/reading/Indexer.hpp"

#include "model/step/reading/Lines.hpp"
#include "model/step/reading/SectionReader.hpp"

namespace model::step {

namespace {

void remarkDuplicates(Index& index) {
    for (const Slot slot : index.ids.duplicates()) {
        const std::string_view text = index.original(slot);
        const std::string id(text.substr(0, text.find_first_not_of("0123456789", 1)));
        index.remark(index.places[slot].where(),
                     "the id " + id + " is used more than once; its instances are not edited");
    }
}

/// Remarks on the file as a whole; they have no line. They are added behind the limit of remarks: each comes once.
void remarkWhole(Index& index) {
    const auto add = [&index](std::string message) { index.remarks.push_back({0, 0, std::move(message)}); };
    if (index.schemaNames.empty()) add("FILE_SCHEMA is missing or names no schema");
    if (index.signedFile) add("the file is signed; saved with changes, its signature is no longer valid");
    if (index.remarksLeftOut != 0) add("and " + std::to_string(index.remarksLeftOut) + " more remarks like these");
}

}  // namespace

Status indexFile(Index& index, const Progress& progress) {
    SectionReader reader(index, progress);
    if (Status read = reader.run(); !read) return read;
    index.ids.finish();
    remarkDuplicates(index);
    numberLines(index.bytes, index.remarks);
    remarkWhole(index);
    return {};
}

}  // namespace model::step
