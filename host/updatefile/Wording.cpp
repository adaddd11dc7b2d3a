#include "updatefile/Wording.hpp"

#include "text/Message.hpp"
#include "updatefile/UpdateFileScan.hpp"

#include <fmt/format.h>

namespace updatefile {

std::string counted(std::uint64_t count, std::string_view noun) {
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

std::string listed(const LineNotes& notes) {
    std::string list;
    for (std::size_t i = 0; i < notes.first.size(); ++i) {
        const std::string number = std::to_string(notes.first[i]);
        const bool last = i > 0 && i + 1 == notes.count;
        if (last) {
            list = text::message("{} and {}", list, number);
        } else {
            list.append(i == 0 ? "" : ", ").append(number);
        }
    }
    if (notes.count <= notes.first.size()) return list;
    return text::message("{} and {} more", list, notes.count - notes.first.size());
}

std::string numberedLines(const LineNotes& notes) {
    return notes.count == 1 ? text::message("line {}", listed(notes)) : text::message("lines {}", listed(notes));
}

std::string numberedRows(const LineNotes& notes) {
    return notes.count == 1 ? text::message("row {}", listed(notes)) : text::message("rows {}", listed(notes));
}

}  // namespace updatefile
