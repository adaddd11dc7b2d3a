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

Table list(const ImportReport& report) {
    std::vector<std::string> header{"Row"};
    header.insert(header.end(), report.header.begin(), report.header.end());
    Table table(std::move(header));
    if (report.header.size() > GuidColumn) table.yield(1 + GuidColumn, Yield::First);
    for (std::size_t i = 0; i < report.rows().size(); ++i) table.add(tableRow(i + 1, report.rows()[i]));
    return table;
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
    JsonValue json = asJson(report.model);
    if (!report.model.unknownClasses.empty()) json["unknownClasses"] = asJson(report.model.unknownClasses);
    return json;
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

void printAsTable(const ImportReport& report) {
    list(report).layOut(Terminal::standardOutput(), print);
    print("\n" + outcome(report));
    for (const std::string& hint : report.hints) print(fmt::format("Hint: {}.\n", visible(hint)));
    print(ending(report));
}

void printAsTsv(const ImportReport& report) {
    const Terminal terminal = Terminal::standardOutput();
    print(tsvLine(report.header, terminal));
    for (const ListRow& row : report.rows()) print(tsvLine(row.columns, terminal));
}

void printAsJson(const ImportReport& report) {
    JsonDocument document;
    document.member("model", modelOf(report));
    document.member("updates", JsonValue{{"path", report.updatesPath}});
    document.member("header", report.header);
    document.member("review", report.review);
    if (report.result) document.member("result", *report.result);
    document.member("summary", summaryOf(report.summary));
    document.member("hints", report.hints);
    document.member("report", report.report);
    if (report.saved) document.member("saved", *report.saved);
    document.finish();
}

}  // namespace console
