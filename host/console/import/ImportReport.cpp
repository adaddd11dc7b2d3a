#include "console/import/ImportReport.hpp"

#include "console/import/ReviewRows.hpp"
#include "console/output/Json.hpp"
#include "console/output/Table.hpp"
#include "console/output/TerminalText.hpp"
#include "updatefile/ReviewList.hpp"
#include "updatefile/Wording.hpp"

#include <fmt/format.h>

#include <algorithm>

namespace console {
namespace {

using updatefile::counted;
using updatefile::reviewlist::GuidColumn;
using updatefile::reviewlist::RemarksColumn;

template <class Predicate>
std::uint64_t count(const std::vector<ListRow>& rows, const Predicate& predicate) {
    return static_cast<std::uint64_t>(std::count_if(rows.begin(), rows.end(), predicate));
}

Style styleOf(const ListRow& row) {
    if (row.color) return Style::Red;
    return row.status == DG_IS_ENABLE ? Style::Plain : Style::Dim;
}

Style messageStyleOf(const ListRow& row) {
    if (done(row)) return Style::Green;
    return failed(row) ? Style::Red : styleOf(row);
}

Table::Row tableRow(std::size_t number, const ListRow& row) {
    const Style style = styleOf(row);
    Table::Row cells{{std::to_string(number), style}};
    for (std::size_t column = 0; column < row.columns.size(); ++column)
        cells.push_back({row.columns[column], column == RemarksColumn ? messageStyleOf(row) : style});
    return cells;
}

std::string list(const ImportReport& report, const Terminal& terminal) {
    std::vector<std::string> header{"Row"};
    header.insert(header.end(), report.header.begin(), report.header.end());
    Table table(std::move(header));
    if (report.header.size() > GuidColumn) table.yield(1 + GuidColumn, Yield::First);
    for (std::size_t i = 0; i < report.rows().size(); ++i) table.add(tableRow(i + 1, report.rows()[i]));
    return table.layOut(terminal);
}

std::string outcome(const ImportReport& report) {
    const ImportSummary& summary = report.summary;
    std::string text = fmt::format("{}, {}: {} tickable, {} ticked", counted(summary.lines, "line"),
                                   counted(summary.rows, "row"), summary.tickable, summary.ticked);
    if (report.result) text += fmt::format(", {} done, {}", summary.done, counted(summary.errors, "error"));
    return text + ".\n";
}

std::string ending(const ImportReport& report) {
    if (report.saved) return fmt::format("Saved {}\n", visible(*report.saved));
    if (report.result) return "Nothing changed, nothing was saved.\n";
    return "Dry run: nothing was changed. --apply with -o FILE or --in-place writes the ticked rows.\n";
}

JsonValue modelOf(const ImportReport& report) {
    return {{"path", report.modelPath},
            {"schema", report.schema},
            {"elements", report.elements},
            {"duplicateGlobalIds", report.duplicateGlobalIds},
            {"invalidGlobalIds", report.invalidGlobalIds},
            {"unknownClasses", toJson(report.unknownClasses)}};
}

JsonValue summaryOf(const ImportSummary& summary) {
    return {{"lines", summary.lines},      {"rows", summary.rows}, {"tickable", summary.tickable},
            {"ticked", summary.ticked},    {"done", summary.done}, {"errors", summary.errors},
            {"rowsLost", summary.rowsLost}};
}

}  // namespace

ImportSummary summarize(std::uint64_t lines, const std::vector<ListRow>& review,
                        const std::optional<std::vector<ListRow>>& result, std::uint64_t rowsLost) {
    ImportSummary summary;
    summary.lines = lines;
    summary.rows = review.size();
    summary.tickable = count(review, [](const ListRow& row) { return row.status == DG_IS_ENABLE; });
    summary.ticked = count(review, ticked);
    if (result) {
        summary.done = count(*result, done);
        summary.errors = count(*result, failed);
    }
    summary.rowsLost = rowsLost;
    return summary;
}

std::string asTable(const ImportReport& report, const Terminal& terminal) {
    std::string text = list(report, terminal);
    text.append("\n").append(outcome(report));
    for (const std::string& hint : report.hints) text += fmt::format("Hint: {}.\n", visible(hint));
    return text + ending(report);
}

std::string asTsv(const ImportReport& report) {
    std::string text = tsvLine(report.header);
    for (const ListRow& row : report.rows()) text += tsvLine(row.columns);
    return text;
}

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
