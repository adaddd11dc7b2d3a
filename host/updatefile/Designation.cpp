#include "updatefile/Designation.hpp"

#include "text/Unicode.hpp"

namespace updatefile {

namespace {

constexpr std::u16string_view Prefix = u"Pset_";

}  // namespace

std::string designationOf(std::u16string_view set, std::u16string_view name) {
    std::string item = text::toUtf8(name);
    if (set.starts_with(Prefix)) item.append("[").append(text::toUtf8(set.substr(Prefix.size()))).append("]");
    return item;
}

Designation parseDesignation(std::u16string_view text) {
    const std::size_t bracket = text.find(u'[');
    if (bracket == std::u16string_view::npos) return {std::u16string(text), std::nullopt};
    std::u16string_view inner = text.substr(bracket + 1);
    if (!inner.empty()) inner.remove_suffix(1);
    return {std::u16string(text.substr(0, bracket)), std::u16string(Prefix).append(inner)};
}

std::string_view nameIn(std::string_view designation) {
    return designation.substr(0, designation.find('['));
}

}  // namespace updatefile
