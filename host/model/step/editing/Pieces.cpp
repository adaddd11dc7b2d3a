#include "model/step/editing/Pieces.hpp"

#include "model/step/syntax/Characters.hpp"

#include <algorithm>

namespace model::step {

namespace {

/// Bytes of the file that give way to others.
struct Edit {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
    std::string_view text;
};

/// The line end that the lines before `at` have; empty where there are none.
std::string_view lineEndBefore(std::string_view bytes, std::uint64_t at) {
    const std::string_view lines = bytes.substr(0, at);
    const std::size_t last = lines.find_last_of("\r\n");
    if (last == std::string_view::npos) return {};
    const bool pair = last > 0 && lines[last] == '\n' && lines[last - 1] == '\r';
    return pair ? lines.substr(last - 1, 2) : lines.substr(last, 1);
}

/// What sets the first new instance off from the bytes before it. Behind malformed text a line of its own is the only
/// way to be seen, even where the file has no lines.
std::string_view separatorBefore(std::string_view bytes, std::uint64_t at, std::string_view lineEnd) {
    std::uint64_t last = at;
    while (last > 0 && (bytes[last - 1] == ' ' || bytes[last - 1] == '\t')) --last;
    if (last > 0 && isLineEnd(bytes[last - 1])) return {};
    if (!lineEnd.empty() || last == 0 || bytes[last - 1] == ';') return lineEnd;
    return "\n";
}

/// An erased instance takes its line with it where it has one of its own.
Edit erasure(std::string_view bytes, std::uint64_t begin, std::uint64_t end) {
    std::uint64_t lineBegin = begin;
    while (lineBegin > 0 && !isLineEnd(bytes[lineBegin - 1]) && isBlank(bytes[lineBegin - 1])) --lineBegin;
    std::uint64_t lineEnd = end;
    while (lineEnd < bytes.size() && !isLineEnd(bytes[lineEnd]) && isBlank(bytes[lineEnd])) ++lineEnd;
    const bool ownLine =
        lineBegin > 0 && isLineEnd(bytes[lineBegin - 1]) && lineEnd < bytes.size() && isLineEnd(bytes[lineEnd]);
    if (!ownLine) return {begin, end, {}};
    lineEnd += bytes.substr(lineEnd).starts_with("\r\n") ? 2U : 1U;
    return {lineBegin, lineEnd, {}};
}

std::vector<Edit> editsInPlace(const Index& index, Changes& changes) {
    std::vector<Edit> edits;
    for (const ChangedInstance& instance : changes.instances()) {
        if (instance.newId != 0 || instance.now.kind == TextState::Kind::Original) continue;
        const std::uint64_t end = instance.offset + index.lengths[instance.slot];
        if (instance.now.kind == TextState::Kind::Absent)
            edits.push_back(erasure(index.bytes, instance.offset, end));
        else
            edits.push_back({instance.offset, end, instance.now.text});
    }
    return edits;
}

void addInsertions(const Index& index, Changes& changes, std::vector<Edit>& edits) {
    struct Place {
        std::string_view lineEnd;
        bool used = false;
    };
    std::vector<Place> places(index.sections.size());
    for (const ChangedInstance& instance : changes.instances()) {
        if (instance.newId == 0 || instance.now.kind == TextState::Kind::Absent) continue;
        const std::uint64_t at = index.sections[instance.section].insertAt;
        Place& place = places[instance.section];
        const auto insert = [&edits, at](std::string_view text) { edits.push_back({at, at, text}); };
        if (!place.used) {
            place = {lineEndBefore(index.bytes, at), true};
            insert(separatorBefore(index.bytes, at, place.lineEnd));
        }
        insert(instance.now.text);
        insert(place.lineEnd);
    }
}

}  // namespace

std::vector<std::string_view> pieces(const Index& index, Changes& changes) {
    std::vector<Edit> edits = editsInPlace(index, changes);
    addInsertions(index, changes, edits);
    std::stable_sort(edits.begin(), edits.end(), [](const Edit& a, const Edit& b) { return a.begin < b.begin; });
    std::vector<std::string_view> result;
    std::uint64_t written = 0;
    const auto add = [&result](std::string_view text) {
        if (!text.empty()) result.push_back(text);
    };
    for (const Edit& edit : edits) {
        add(index.bytes.substr(written, edit.begin - written));
        add(edit.text);
        written = edit.end;
    }
    add(index.bytes.substr(written));
    return result;
}

}  // namespace model::step
