#include "importing/Refusals.hpp"

#include "text/Ascii.hpp"
#include "text/Guid.hpp"
#include "updatefile/Designation.hpp"

namespace importing {
namespace {

/// A reason without the add-on interface's name for it, " (APIERR_BADVALUE)", which tells readers nothing.
std::string withoutCode(std::string reason) {
    const std::size_t at = reason.rfind(" (APIERR_");
    if (at != std::string::npos) reason.resize(at);
    return reason;
}

}  // namespace

Refusals::Refusals(const std::vector<std::string>& report) {
    for (std::size_t line = 0; line < report.size(); ++line) {
        const std::string& text = report[line];
        for (std::size_t at = text.find('('); at != std::string::npos; at = text.find('(', at + 1)) {
            const std::string guid = text.substr(at + 1, text::GuidLength);
            if (!text::parseGuid(guid) || text.compare(at + 1 + text::GuidLength, 3, "), ") != 0) continue;
            byGuid_[guid].emplace(text.substr(at + text::GuidLength + 4), line);
            break;
        }
        if (text.find(" (APIERR_") == std::string::npos) others_.push_back(text);
    }
}

/// Each name of an element is looked for once: a list may ask for the same item in thousands of rows.
std::string Refusals::reasonFor(const std::string& guid, const std::string& item) {
    const auto found = byGuid_.find(text::toUpperCase(guid));
    if (found == byGuid_.end()) return {};
    const auto [known, isNew] = known_.try_emplace({found->first, std::string(updatefile::nameIn(item))});
    if (isNew) known->second = find(found->second, known->first.second);
    return known->second;
}

/// The first in the report that is about the name, with a set in brackets or without.
std::string Refusals::find(const OfElement& refusals, const std::string& name) {
    auto first = refusals.end();
    for (const char behind : {':', '['}) {
        const std::string begin = name + behind;
        for (auto it = refusals.lower_bound(begin); it != refusals.end() && it->first.starts_with(begin); ++it) {
            if (it->first.find(": ", name.size()) == std::string::npos) continue;
            if (first == refusals.end() || it->second < first->second) first = it;
        }
    }
    return first == refusals.end() ? std::string()
                                   : withoutCode(first->first.substr(first->first.find(": ", name.size()) + 2));
}

}  // namespace importing
