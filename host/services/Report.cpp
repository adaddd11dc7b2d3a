#include "services/Report.hpp"

#include <utility>

namespace host {

void Report::write(std::string text, bool alert) {
    written_.push_back({std::move(text), alert});
    if (!sink_) return;
    const ReportLine line = written_.back();  // A copy: what the sink starts may write further lines.
    sink_(line);
}

}  // namespace host
