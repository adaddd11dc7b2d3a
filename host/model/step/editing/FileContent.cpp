#include "model/step/editing/FileContent.hpp"

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

/// The line end that the lines before a place have; empty where there are none. Asked for in file order: a file may
/// have many sections and all of them on one line, which must not be passed over for each.
class LineEnds {
public:
    explicit LineEnds(std::string_view bytes) : bytes_(bytes) {}

    std::string_view before(std::uint64_t at) {
        const std::size_t found = bytes_.substr(searched_, at - searched_).find_last_of("\r\n");
        if (found != std::string_view::npos) last_ = lineEndAt(searched_ + found);
        searched_ = at;
        return last_;
    }

private:
    std::string_view lineEndAt(std::size_t at) const {
        const bool pair = at > 0 && bytes_[at] == '\n' && bytes_[at - 1] == '\r';
        return pair ? bytes_.substr(at - 1, 2) : bytes_.substr(at, 1);
    }

    std::string_view bytes_;
    std::size_t searched_ = 0;  ///< How far the file has been searched.
    std::string_view last_;     ///< The last one there.
};

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

constexpr std::uint32_t NoSection = 0xFFFFFFFFU;

std::vector<Edit> editsInPlace(const Index& index, Changes& changes) {
    std::vector<Edit> edits;
    for (const ChangedInstance& instance : changes.instances()) {
        if (instance.newId != 0 || std::holds_alternative<AsFound>(instance.now)) continue;
        const std::uint64_t end = instance.offset + index.lengths[instance.slot];
        if (std::holds_alternative<Absent>(instance.now)) {
            edits.push_back(erasure(index.bytes, instance.offset, end));
        } else {
            edits.push_back({instance.offset, end, changes.text(instance.slot)});
        }
    }
    return edits;
}

/// How new instances are set off from what is around them.
struct Setting {
    std::uint64_t at = 0;
    std::string_view before;
    std::string_view after;
};

/// The end of the line that `at` stands on, where nothing but blanks and comments comes before it; npos otherwise.
std::size_t endOfLineBehind(std::string_view bytes, std::size_t at) {
    while (at < bytes.size() && !isLineEnd(bytes[at])) {
        if (bytes.substr(at).starts_with("/*")) {
            // The comment first: looking for the line's end from each of many comments on it would pass over the rest
            // of the line each time.
            const std::size_t closed = bytes.find("*/", at + 2);
            if (closed == std::string_view::npos) return closed;
            if (bytes.substr(at, closed - at).find_first_of("\r\n") != std::string_view::npos)
                return std::string_view::npos;
            at = closed + 2;
        } else if (isBlank(bytes[at])) {
            ++at;
        } else {
            return std::string_view::npos;
        }
    }
    return at;
}

/// Behind an instance of the file: on the next line where it ends its line, so that a comment on that line stays with
/// it; otherwise right behind its semicolon, since what follows there cannot be told from what it belongs to.
Setting settingBehind(const Index& index, std::uint64_t end, const Section& section, LineEnds& lineEnds) {
    const std::string_view bytes = index.bytes;
    const std::size_t line = endOfLineBehind(bytes, end);
    if (line == std::string_view::npos) return {end, {}, {}};
    if (line == bytes.size()) return {end, lineEnds.before(end), {}};
    const std::string_view lineEnd = bytes.substr(line, bytes.substr(line).starts_with("\r\n") ? 2 : 1);
    // New instances at the end of the section may have to go in front of malformed text on that line.
    if (line + lineEnd.size() > section.insertAt) return {end, lineEnd, {}};
    return {line + lineEnd.size(), {}, lineEnd};
}

Setting settingAtEnd(const Section& section, LineEnds& lineEnds) {
    return {section.insertAt, {}, lineEnds.before(section.insertAt)};
}

/// In the order that they are written in.
std::vector<const ChangedInstance*> newInstances(Changes& changes) {
    std::vector<const ChangedInstance*> added;
    for (const ChangedInstance& instance : changes.instances()) {
        if (instance.newId != 0 && !std::holds_alternative<Absent>(instance.now)) added.push_back(&instance);
    }
    std::sort(added.begin(), added.end(),
              [&](const ChangedInstance* a, const ChangedInstance* b) { return changes.before(a->slot, b->slot); });
    return added;
}

std::vector<Edit> insertions(const Index& index, Changes& changes) {
    std::vector<Edit> edits;
    Slot root = NoSlot;
    std::uint32_t filled = NoSection;
    Setting setting;
    LineEnds lineEnds(index.bytes);
    for (const ChangedInstance* instance : newInstances(changes)) {
        const Position& place = instance->position;
        const Section& section = index.sections[place.section];
        const auto insert = [&](std::string_view text) { edits.push_back({setting.at, setting.at, text}); };
        if (!changes.isNew(place.root)) {
            if (place.root != root) {
                setting =
                    settingBehind(index, changes.offset(place.root) + index.lengths[place.root], section, lineEnds);
            }
        } else if (filled != place.section) {
            filled = place.section;
            setting = settingAtEnd(section, lineEnds);
            insert(separatorBefore(index.bytes, setting.at, setting.after));
        }
        root = place.root;
        insert(setting.before);
        insert(changes.text(instance->slot));
        insert(setting.after);
    }
    return edits;
}

}  // namespace

std::vector<std::string_view> fileContent(const Index& index, Changes& changes) {
    // At one place, what is new comes before what takes the place of something else.
    std::vector<Edit> edits = insertions(index, changes);
    const std::vector<Edit> inPlace = editsInPlace(index, changes);
    edits.insert(edits.end(), inPlace.begin(), inPlace.end());
    // Stable, so that edits at one place stay in the order that they were collected in.
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
