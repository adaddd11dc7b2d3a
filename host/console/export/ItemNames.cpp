#include "console/export/ItemNames.hpp"

#include <fmt/format.h>

#include <algorithm>

namespace console {
namespace {

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

model::Status checkItem(std::string_view item) {
    if (item.substr(0, item.find('[')).empty())
        return model::Error{model::ErrorKind::BadName,
                            fmt::format("'{}' is no item: write an attribute, a property such as "
                                        "FireRating[WallCommon] or a classification",
                                        item)};
    if (item.find_first_of("\t\r\n") != std::string_view::npos)
        return model::Error{model::ErrorKind::BadName, "an item with a TAB or a line end fits into no update file"};
    return {};
}

model::Result<std::vector<std::string>> parseItems(std::string_view text) {
    std::vector<std::string> items;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t comma = std::min(text.find(',', start), text.size());
        items.emplace_back(trimmed(text.substr(start, comma - start)));
        if (const model::Status status = checkItem(items.back()); !status) return status.error();
        start = comma + 1;
    }
    return items;
}

}  // namespace console
