#include "tables/UpdateFiles.hpp"

#include "text/Message.hpp"

#include <algorithm>

namespace tables {
namespace {

constexpr std::size_t TabsOfALine = 3;

std::size_t lengthWithoutOld(const AskedUpdate& update) {
    return update.guid.size() + update.item.size() + update.value.size() + TabsOfALine;
}

bool breaksLine(std::string_view text) {
    using namespace std::string_view_literals;
    return text.find_first_of("\t\r\n\0"sv) != std::string_view::npos;
}

void appendLine(std::string& text, const AskedUpdate& update) {
    text.append(update.guid).append("\t").append(update.item).append("\t");
    // The old value may be missing from a line; the others are what the line asks for.
    const bool oldFits =
        update.old && !breaksLine(*update.old) && lengthWithoutOld(update) + update.old->size() <= LongestLine;
    if (oldFits) text += *update.old;
    text.append("\t").append(update.value).append("\n");
}

}  // namespace

std::optional<std::string> obstacleOf(const AskedUpdate& update) {
    if (lengthWithoutOld(update) > LongestLine) {
        return text::message("GUID, item and value together are longer than the {} bytes of a line; shorten the value",
                             LongestLine);
    }
    if (breaksLine(update.value) || breaksLine(update.item))
        return text::message("it holds a zero byte or a line end, which no line can hold; remove it");
    return std::nullopt;
}

std::vector<UpdateFile> writeUpdateFiles(std::span<const AskedUpdate> updates, std::size_t mostRows) {
    std::vector<UpdateFile> files;
    for (std::size_t first = 0; first < updates.size(); first += mostRows) {
        UpdateFile file{{}, first, std::min(mostRows, updates.size() - first)};
        for (const AskedUpdate& update : updates.subspan(first, file.count)) appendLine(file.text, update);
        files.push_back(std::move(file));
    }
    return files;
}

}  // namespace tables
