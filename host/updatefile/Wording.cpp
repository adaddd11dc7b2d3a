#include "updatefile/Wording.hpp"

#include "updatefile/UpdateFileScan.hpp"

#include <fmt/format.h>

namespace updatefile {

std::string counted(std::uint64_t count, std::string_view noun) {
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

std::string numbered(std::string_view noun, const LineNotes& notes) {
    std::string text = fmt::format("{}{} ", noun, notes.count == 1 ? "" : "s");
    for (std::size_t i = 0; i < notes.first.size(); ++i) {
        const bool last = i + 1 == notes.count;
        if (i > 0) text += last ? " and " : ", ";
        text += std::to_string(notes.first[i]);
    }
    if (notes.count > notes.first.size()) text += fmt::format(" and {} more", notes.count - notes.first.size());
    return text;
}

}  // namespace updatefile
