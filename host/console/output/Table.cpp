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

/// The columns that go so that the others stay readable, in rising order.
std::vector<std::size_t> Table::leftOut(const std::vector<int>& widths, int lineWidth) const {
    int needed = -Gap;
    for (std::size_t column = 0; column < widths.size(); ++column) {
        const int least = yields_[column] == Yield::First ? LeastWidthOfFirst : readable_;
        needed += Gap + (yields_[column] == Yield::Last ? widths[column] : std::min(widths[column], least));
    }
    std::vector<std::size_t> gone;
    for (const std::size_t column : spare_) {
        if (needed <= lineWidth) break;
        const int least = yields_[column] == Yield::First ? LeastWidthOfFirst : readable_;
        needed -= Gap + (yields_[column] == Yield::Last ? widths[column] : std::min(widths[column], least));
        gone.push_back(column);
    }
    std::sort(gone.begin(), gone.end());
    return gone;
}

Table Table::without(const std::vector<std::size_t>& columns) const {
    const auto kept = [&columns](std::size_t column) {
        return !std::binary_search(columns.begin(), columns.end(), column);
    };
    Table table({});
    table.rows_.clear();
    for (const Row& row : rows_) {
        Row& shorter = table.rows_.emplace_back();
        for (std::size_t column = 0; column < row.size(); ++column)
            if (kept(column)) shorter.push_back(row[column]);
    }
    for (std::size_t column = 0; column < yields_.size(); ++column)
        if (kept(column)) table.yields_.push_back(yields_[column]);
    for (const std::size_t column : blanked_) {
        if (!kept(column)) continue;
        const auto before = std::lower_bound(columns.begin(), columns.end(), column) - columns.begin();
        table.blanked_.push_back(column - static_cast<std::size_t>(before));
    }
    return table;
}

std::vector<std::string> Table::layOut(const Terminal& terminal,
                                       const std::function<void(std::string_view)>& sink) const {
    std::vector<int> widths = naturalWidths(terminal.width > 0 ? terminal.width : WidestAligned);
    std::vector<std::string> headers;
    if (terminal.width > 0 && !widths.empty()) {
        const std::vector<std::size_t> gone = leftOut(widths, terminal.width);
        for (const std::size_t column : gone) headers.push_back(rows_.front()[column].text);
        if (!gone.empty()) {
            without(gone).layOut(terminal, sink);
            return headers;
        }
        fit(widths, terminal.width);
    }
    layOutFitted(terminal, widths, sink);
    return headers;
}

void Table::layOutFitted(const Terminal& terminal, const std::vector<int>& widths,
                         const std::function<void(std::string_view)>& sink) const {
    std::string line;
    const Row* above = nullptr;
    for (const Row& row : rows_) {
        std::vector<bool> repeats(row.size());
        for (const std::size_t column : blanked_) {
            if (terminal.width == 0 || above == nullptr || !(row[column].text == (*above)[column].text)) break;
            repeats[column] = true;
        }
        line.clear();
        for (std::size_t column = 0; column < row.size(); ++column) {
            appendCell(line, repeats[column] ? TableCell{} : row[column], widths[column], column + 1 == row.size(),
                       terminal);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        sink(line += '\n');
        above = &row;
    }
}

std::string leftOutNote(const std::vector<std::string>& headers) {
    if (headers.empty()) return {};
    std::string names;
    for (const std::string& header : headers) names += (names.empty() ? "" : ", ") + header;
    return "\nLeft out for want of room: " + names +
           (headers.size() == 1 ? ". --wide shows it.\n" : ". --wide shows them.\n");
}

}  // namespace console
