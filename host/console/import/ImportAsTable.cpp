#include "console/import/ImportReport.hpp"
#include "console/import/ReviewList.hpp"
#include "console/output/SafeText.hpp"
#include "console/output/Table.hpp"
#include "console/output/Text.hpp"

#include <fmt/format.h>

namespace console {
namespace {

Style styleOf(const ListRow& row) {
    if (row.color) return Style::Red;
    return row.status == DG_IS_ENABLE ? Style::Plain : Style::Dim;
}

Style messageStyleOf(const ListRow& row) {
    if (reviewlist::done(row)) return Style::Green;
    return reviewlist::failed(row) ? Style::Red : styleOf(row);
}

Table::Row tableRow(std::size_t number, const ListRow& row) {
    const Style style = styleOf(row);
    Table::Row cells{{std::to_string(number), style}};
    for (std::size_t column = 0; column < row.columns.size(); ++column)
        cells.push_back({row.columns[column], column == reviewlist::MessageColumn ? messageStyleOf(row) : style});
    return cells;
}

std::string list(const ImportReport& report, const Terminal& terminal) {
    std::vector<std::string> header{"Row"};
    header.insert(header.end(), report.header.begin(), report.header.end());
    Table table(std::move(header));
    if (report.header.size() > reviewlist::GuidColumn) table.yield(1 + reviewlist::GuidColumn, Yield::First);
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

}  // namespace

std::string asTable(const ImportReport& report, const Terminal& terminal) {
    std::string text = list(report, terminal);
    text.append("\n").append(outcome(report));
    for (const std::string& hint : report.hints) text += fmt::format("Hint: {}.\n", visible(hint));
    return text + ending(report);
}

}  // namespace console
