#include "updatefile/Designation.hpp"

#include "text/Unicode.hpp"

namespace updatefile {

std::string designationOf(std::u16string_view set, std::u16string_view name) {
    constexpr std::u16string_view Prefix = u"Pset_";
    std::string item = text::toUtf8(name);
    if (set.starts_with(Prefix)) item.append("[").append(text::toUtf8(set.substr(Prefix.size()))).append("]");
    return item;
}

}  // namespace updatefile
