#include "console/output/GuidText.hpp"

#include "Guid.hpp"
#include "console/output/Text.hpp"

#include <algorithm>

namespace console {

std::string guidText(const model::Guid& guid) {
    GS::Guid hostGuid;
    std::copy(guid.begin(), guid.end(), std::begin(hostGuid.bytes));
    return toUtf8(hostGuid.ToUniString());
}

std::optional<model::Guid> parseGuid(std::string_view text) {
    GS::Guid hostGuid;
    if (hostGuid.ConvertFromString(toUniString(text)) != NoError) return std::nullopt;
    model::Guid guid;
    std::copy(std::begin(hostGuid.bytes), std::end(hostGuid.bytes), guid.begin());
    return guid;
}

}  // namespace console
