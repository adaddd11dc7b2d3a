#include "console/import/ImportReport.hpp"

#include "console/output/Json.hpp"
#include "console/output/Table.hpp"
#include "console/output/TerminalText.hpp"
#include "importing/ReviewRows.hpp"
#include "updatefile/ReviewList.hpp"
#include "updatefile/Wording.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace console {
namespace {

using importing::done;
using importing::failed;
using importing::ListRow;
using importing::RowFacts;
using importing::ticked;

using updatefile::counted;
using updatefile::reviewlist::ElementColumn;
using updatefile::reviewlist::GuidColumn;
using updatefile::reviewlist::RemarksColumn;
using updatefile::reviewlist::TypeColumn;

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
    if (report.header.size() > GuidColumn) {
        constexpr int Readable = 10;
        table.yield(1 + GuidColumn, Yield::First);
        table.mayLeaveOut({1 + TypeColumn}, Readable);
        // Two elements may have one name: the GUID tells whether a row goes on with the element above.
        table.blankRepeats({1 + GuidColumn, 1 + ElementColumn, 1 + TypeColumn});
    }
    for (std::size_t i = 0; i < report.rows().size(); ++i) table.add(tableRow(i + 1, report.rows()[i]));
    return table;
}

std::uint64_t countFacts(const ImportReport& report, bool (*predicate)(const RowFacts&)) {
    return static_cast<std::uint64_t>(std::count_if(report.facts.begin(), report.facts.end(), predicate));
}

std::string outcome(const ImportReport& report) {
    const ImportSummary& summary = report.summary;
    std::string text = fmt::format("{}, {}: {} tickable, {} ticked", counted(summary.lines, "line"),
                                   counted(summary.rows, "row"), summary.tickable, summary.ticked);
    if (report.result) text += fmt::format(", {} done, {}", summary.done, counted(summary.errors, "error"));
    const auto add = [&text](std::uint64_t count, std::string_view what) {
        if (count > 0) text += fmt::format(", {} {}", count, what);
    };
    if (!report.result) add(countFacts(report, importing::notStored), "would end in an error");
    add(summary.exact, report.result ? "stored as asked by the host" : "would be stored as asked by the host");
    add(countFacts(report, importing::storedOtherwise), report.result ? "not as asked" : "would not be as asked");
    if (summary.conflicts > 0) text += fmt::format(", {}", counted(summary.conflicts, "conflict"));
    return text + ".\n";
}

std::string ending(const ImportReport& report) {
    if (report.saved && report.backup)
        return fmt::format("Saved {}\nKept as it was: {}\n", visible(*report.saved), visible(*report.backup));
    if (report.saved) return fmt::format("Saved {}\n", visible(*report.saved));
    if (report.result) return "Nothing changed, nothing was saved.\n";
    return "Dry run: nothing was changed. --apply with -o FILE or --in-place writes the ticked rows.\n";
}

JsonValue modelOf(const ImportReport& report) {
    JsonValue json = asJson(report.model);
    if (!report.model.unknownClasses.empty()) json["unknownClasses"] = asJson(report.model.unknownClasses);
    return json;
}

template <class Value>
JsonValue orNull(const std::optional<Value>& value) {
    return value ? JsonValue(*value) : JsonValue();
}

JsonValue rowOf(const ListRow& row, const RowFacts& facts) {
    static constexpr std::array<const char*, updatefile::reviewlist::ColumnCount> Names = {
        "tick", "element", "type", "guid", "item", "current", "new", "remarks"};
    JsonValue json = toJson(row);
    for (std::size_t column = 0; column < Names.size() && column < row.columns.size(); ++column)
        json[Names[column]] = row.columns[column].get();
    json["tick"] = ticked(row);
    if (facts.line > 0) json["line"] = facts.line;
    json["asked"] = orNull(facts.asked);
    json["stored"] = orNull(facts.outcome.stored);
    json["asAsked"] = orNull(facts.outcome.asAsked);
    json["conflict"] = orNull(facts.conflict);
    if (facts.outcome.exact) json["exact"] = true;
    return json;
}

void printRows(JsonDocument& document, std::string_view name, const std::vector<ListRow>& rows,
               const std::vector<RowFacts>& facts) {
    static const RowFacts none;
    document.member(name, rows.size(),
                    [&](std::size_t i) { return rowOf(rows[i], i < facts.size() ? facts[i] : none); });
}

JsonValue tableOf(const tables::ReadReport& table) {
    JsonValue json;
    json["format"] = table.format;
    if (!table.delimiter.empty()) json["delimiter"] = table.delimiter;
    if (!table.encoding.empty()) json["encoding"] = table.encoding;
    if (!table.sheet.empty()) json["sheet"] = table.sheet;
    json["layout"] = table.layout;
    json["elements"] = table.elements;
    json["items"] = table.items;
    json["updates"] = table.updates;
    json["unchanged"] = table.unchanged;
    json["leftOut"] = JsonValue::array();
    for (const tables::LeftOut& left : table.leftOut)
        json["leftOut"].push_back({{"line", left.line}, {"column", left.column}, {"why", left.why}});
    return json;
}

/// The rows that are not as asked or in conflict, one a line below the list.
std::string differences(const ImportReport& report) {
    std::string text;
    for (std::size_t i = 0; i < report.facts.size() && i < report.rows().size(); ++i) {
        const std::string difference = differenceOf(report.facts[i]);
        // A refused row says so in its remark, and the report says why.
        if (difference.empty() || (failed(report.rows()[i]) && !report.facts[i].conflict)) continue;
        text += fmt::format("Row {}, {}: {}.\n", i + 1,
                            visible(report.rows()[i].columns[updatefile::reviewlist::PropertyColumn].get()),
                            visible(difference));
    }
    return text;
}

}  // namespace

JsonValue asJson(const ImportSummary& summary) {
    return {{"lines", summary.lines},         {"rows", summary.rows},
            {"tickable", summary.tickable},   {"ticked", summary.ticked},
            {"done", summary.done},           {"errors", summary.errors},
            {"rowsLost", summary.rowsLost},   {"notAsAsked", summary.notAsAsked},
            {"conflicts", summary.conflicts}, {"linesWithoutRow", summary.linesWithoutRow},
            {"exact", summary.exact}};
}

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
    const auto leftOut = list(report).layOut(Terminal::standardOutput(), print);
    print(leftOutNote(leftOut));
    print("\n" + outcome(report));
    print(differences(report));
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
    if (report.table) document.member("table", tableOf(*report.table));
    printRows(document, "review", report.review, report.facts);
    if (report.result) printRows(document, "result", *report.result, report.facts);
    document.member("summary", asJson(report.summary));
    document.member("hints", report.hints);
    document.member("report", report.report);
    if (report.saved) document.member("saved", *report.saved);
    if (report.backup) document.member("backup", *report.backup);
    document.finish();
}

}  // namespace console
