#include "console/import/ImportReport.hpp"
#include "console/output/Json.hpp"

namespace console {
namespace {

JsonValue modelOf(const ImportReport& report) {
    return {{"path", report.modelPath},
            {"schema", report.schema},
            {"elements", report.elements},
            {"duplicateGlobalIds", report.duplicateGlobalIds},
            {"invalidGlobalIds", report.invalidGlobalIds}};
}

JsonValue summaryOf(const ImportSummary& summary) {
    return {{"lines", summary.lines},      {"rows", summary.rows}, {"tickable", summary.tickable},
            {"ticked", summary.ticked},    {"done", summary.done}, {"errors", summary.errors},
            {"rowsLost", summary.rowsLost}};
}

}  // namespace

void printAsJson(const ImportReport& report) {
    JsonValue document;
    document["model"] = modelOf(report);
    document["updates"]["path"] = report.updatesPath;
    document["header"] = report.header;
    document["review"] = toJson(report.review);
    if (report.result) document["result"] = toJson(*report.result);
    document["summary"] = summaryOf(report.summary);
    document["hints"] = report.hints;
    document["report"] = report.report;
    if (report.saved) document["saved"] = *report.saved;
    printDocument(document);
}

}  // namespace console
