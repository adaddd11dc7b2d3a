#include "services/Report.hpp"

#include <utility>

namespace host {

void Report::write(std::string text, bool alert) {
    written_.push_back({std::move(text), alert});
    if (!sink_) return;
    const ReportLine line = written_.back();  // A copy: what the sink starts may write further lines.
    sink_(line);
}

std::string utf8(const GS::UniString& text) {
    return text.ToCStr().Get();
}

std::string utf8(std::u16string_view text) {
    return utf8(GS::UniString(text));
}

std::string guidText(const API_Guid& guid) {
    return utf8(APIGuid2GSGuid(guid).ToUniString());
}

}  // namespace host
