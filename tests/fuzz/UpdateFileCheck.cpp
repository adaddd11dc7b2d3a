#include "fuzz/Checks.hpp"
#include "updatefile/Hints.hpp"

#include <tuple>

namespace fuzz {

namespace {

using namespace updatefile;

auto counts(const UpdateFileFindings& found) {
    return std::make_tuple(found.lines, found.pieces, found.noGuid.count, found.globalId.count,
                           found.unknownElement.count, found.fewFields.count, found.leadingTab.count,
                           found.overlong.count, found.zeroBytes.count, found.quoted.count, found.notUtf8.count,
                           found.lineWithoutEnd, found.byteOrderMark, found.utf16, found.binary);
}

/// @param block  how many bytes are handed over at a time
UpdateFileFindings scanned(std::string_view bytes, std::size_t block) {
    UpdateFileScan scan([](const Guid& guid) { return guid[15] % 2 == 0; });
    for (std::size_t at = 0; at < bytes.size(); at += block) scan.read(bytes.substr(at, block));
    return scan.finish();
}

}  // namespace

void checkUpdateFile(std::string_view bytes) {
    const UpdateFileFindings found = scanned(bytes, bytes.size() + 1);
    for (const std::size_t block : {1U, 7U, 2048U})
        require(counts(scanned(bytes, block)) == counts(found), "findings hang on how the bytes were cut");
    for (const LineNotes* notes :
         {&found.noGuid, &found.globalId, &found.unknownElement, &found.fewFields, &found.leadingTab, &found.overlong,
          &found.zeroBytes, &found.quoted, &found.notUtf8}) {
        require(notes->first.size() <= LineNotes::Kept && notes->first.size() <= notes->count,
                "too many lines are kept");
        require(notes->count <= found.pieces + 1, "more lines have something in common than there are");
    }
    const std::uint64_t seen = found.pieces + (found.lineWithoutEnd != 0 ? 1 : 0);
    require(found.lines <= seen, "there are more lines than the add-on sees");
    ReviewCounts review;
    review.rows = found.pieces;
    for (const std::string& hint : hintsFor(found, review, "'modelhost list' prints"))
        require(!hint.empty() && hint.find('\n') == hint.npos, "a hint is no line of text");
    if (const auto useless = uselessBecause(found)) require(!useless->empty(), "a refusal gives no reason");
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkUpdateFile)
