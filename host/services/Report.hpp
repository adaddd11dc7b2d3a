#pragma once
// The host's report: what add-ons write into it, and every edit and command that the host refused, with the reason.

#include "APITypes.hpp"
#include "services/Host.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace host {

class Report {
public:
    void write(std::string text, bool alert = false);
    void setSink(Host::ReportSink receiver) { sink_ = std::move(receiver); }
    const std::vector<ReportLine>& lines() const { return written_; }

private:
    std::vector<ReportLine> written_;
    Host::ReportSink sink_;
};

}  // namespace host
