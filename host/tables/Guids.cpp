#include "tables/Guids.hpp"

#include "tables/Text.hpp"
#include "text/Ascii.hpp"
#include "text/Guid.hpp"

namespace tables {

bool namesGuids(std::string_view header) {
    const std::string_view name = trimmed(header);
    return text::equalIgnoringCase(name, "GUID") || text::equalIgnoringCase(name, "GlobalId");
}

std::optional<std::string> parseGuid(std::string_view written) {
    written = trimmed(written);
    if (written.size() == text::GuidLength + 2 && written.starts_with('{') && written.ends_with('}'))
        written = written.substr(1, text::GuidLength);
    const auto guid = written.size() == text::GuidLength ? text::parseGuid(written) : text::fromGlobalId(written);
    return guid ? std::optional(text::guidText(*guid)) : std::nullopt;
}

}  // namespace tables
