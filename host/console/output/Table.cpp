#include "console/output/Table.hpp"

#include "console/output/TerminalText.hpp"

#include <algorithm>
#include <numeric>

namespace console {
namespace {

constexpr int Gap = 2;
/// A cut column still shows two letters and the ellipsis. On a terminal too narrow for that, lines wrap.
constexpr int LeastWidth = 3;
/// The first group of a GUID and the ellipsis.
constexpr int LeastWidthOfFirst = 9;

const char* sequence(Style style) {
    switch (style) {
        case Style::Bold:
            return "\x1B[1m";
        case Style::Dim:
            return "\x1B[2m";
        case Style::Red:
            return "\x1B[31m";
        case Style::Green:
            return "\x1B[32m";
        case Style::Plain:
            break;
    }
    return "";
}

int sum(const std::vector<int>& widths) {
    return std::accumulate(widths.begin(), widths.end(), 0);
}

/// The largest cap for which the columns, each no wider than the cap, fit into `room`; never below `least`.
int widestCap(const std::vector<int>& widths, int room, int least) {
    int low = least, high = std::max(least, *std::max_element(widths.begin(), widths.end()));
    while (low < high) {
        const int cap = (low + high + 1) / 2;
        const int total = std::accumulate(widths.begin(), widths.end(), 0,
                                          [cap](int all, int width) { return all + std::min(width, cap); });
        if (total <= room) {
            low = cap;
        } else {
            high = cap - 1;
        }
    }
    return low;
}

/// Cuts the widest until all fit into `room`.
void cutEvenly(std::vector<int>& widths, int room, int least) {
    if (widths.empty() || sum(widths) <= room) return;
    const std::vector<int> natural = widths;
    const int cap = widestCap(natural, room, least);
    for (int& width : widths) width = std::min(width, cap);
    // The columns that were cut share what the equal cap leaves over, from the left.
    int rest = room - sum(widths);
    for (std::size_t column = 0; column < widths.size() && rest > 0; ++column)
        if (widths[column] < natural[column]) ++widths[column], --rest;
}

int leastWidth(Yield when) {
    return when == Yield::First ? LeastWidthOfFirst : LeastWidth;
}

void appendCell(std::string& line, const TableCell& cell, int width, bool last, const Terminal& terminal) {
    const bool styled = terminal.colour && cell.style != Style::Plain && !cell.text.get().empty();
    if (styled) line += sequence(cell.style);
    const std::size_t begin = line.size();
    if (terminal.width > 0) {
        line += cutToWidth(cell.text, width);
    } else {
        appendVisible(line, cell.text);
    }
    const int blanks = width - displayWidth(std::string_view(line).substr(begin), width) + Gap;
    if (styled) line += "\x1B[0m";
    if (!last) line.append(static_cast<std::size_t>(blanks), ' ');
}

}  // namespace

Table::Table(std::vector<std::string> header) {
    Row row;
    for (std::string& text : header) row.push_back({std::move(text), Style::Bold});
    yields_.resize(row.size(), Yield::Evenly);
    add(std::move(row));
}

void Table::add(Row row) {
    if (!rows_.empty()) row.resize(rows_.front().size());
    rows_.push_back(std::move(row));
}

std::vector<int> Table::naturalWidths(int most) const {
    std::vector<int> widths(rows_.front().size(), 0);
    for (const Row& row : rows_) {
        for (std::size_t column = 0; column < widths.size(); ++column)
            widths[column] = std::max(widths[column], displayWidth(row[column].text, most));
    }
    return widths;
}

void Table::fit(std::vector<int>& widths, int lineWidth) const {
    const int room = lineWidth - Gap * (static_cast<int>(widths.size()) - 1);
    for (const Yield when : {Yield::First, Yield::Evenly, Yield::Last}) {
        std::vector<int> group;
        for (std::size_t column = 0; column < widths.size(); ++column)
            if (yields_[column] == when) group.push_back(widths[column]);
        const int others = sum(widths) - sum(group);
        cutEvenly(group, room - others, leastWidth(when));
        auto next = group.begin();
        for (std::size_t column = 0; column < widths.size(); ++column)
            if (yields_[column] == when) widths[column] = *next++;
    }
}

void Table::layOut(const Terminal& terminal, const std::function<void(std::string_view)>& sink) const {
    std::vector<int> widths = naturalWidths(terminal.width > 0 ? terminal.width : WidestAligned);
    if (terminal.width > 0 && !widths.empty()) fit(widths, terminal.width);
    std::string line;
    for (const Row& row : rows_) {
        line.clear();
        for (std::size_t column = 0; column < row.size(); ++column)
            appendCell(line, row[column], widths[column], column + 1 == row.size(), terminal);
        line.erase(line.find_last_not_of(' ') + 1);
        sink(line += '\n');
    }
}

}  // namespace console
