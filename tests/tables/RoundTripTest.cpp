// What is written and read again unchanged asks for nothing; what was edited, and nothing else, is asked for.

#include "tables/Workbooks.hpp"
#include "tables/Writing.hpp"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <map>
#include <set>

namespace tables {
namespace {

/// Characters that some format treats as something else, and some of each length in UTF-8.
std::string anyText(bool controls) {
    static const std::vector<std::string> Pieces{
        "a",    "B", "ä",    "室",      "😀",  "\"", ",",      ";",      "|",      "\t",     "\n",         "\r",  " ",
        "=",    "-", "+",    "@",       "'",  "<",  "&",      ">",      "0",      "07",     "9.5",        "9,5", "1e3",
        "true", "#", "#N/A", "_x0041_", "_x", "_",  "\u00A0", "\uFFFE", "\uFFFF", "\u2028", "2024-05-17", "{",   "]]>"};
    static const std::vector<std::string> Controls{std::string(1, '\0'), "\x01", "\x0B", "\x1F", "\x7F"};
    auto pieces = *rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(Pieces));
    if (controls && *rc::gen::inRange(0, 4) == 0) pieces.push_back(*rc::gen::elementOf(Controls));
    std::string text;
    for (const std::string& piece : pieces) text += piece;
    return text;
}

std::string guidOf(std::size_t number) {
    const std::string digits = std::to_string(100'000'000'000 + number);
    return "4B77F0F7-86AA-47AF-8EC8-" + digits;
}

Grid anyGrid(bool controls) {
    Grid grid{{"GUID", "#Name"}, {}};
    const auto items = *rc::gen::inRange<std::size_t>(1, 5);
    for (std::size_t i = 0; i < items; ++i) grid.columns.push_back("Item, \"" + std::to_string(i) + "\"; [Set]");
    const auto rows = *rc::gen::inRange<std::size_t>(0, 12);
    for (std::size_t row = 0; row < rows; ++row) {
        grid.rows.push_back({guidOf(row), anyText(controls)});
        for (std::size_t i = 0; i < items; ++i) grid.rows.back().push_back(anyText(controls));
    }
    return grid;
}

AskOptions modelOf(const Grid& grid) {
    std::map<std::pair<std::string, std::string>, std::string> values;
    for (const auto& row : grid.rows)
        for (std::size_t i = 2; i < row.size(); ++i)
            if (!row[i].empty()) values[{row[0], grid.columns[i]}] = row[i];
    AskOptions options;
    options.clearEmpty = true;
    options.current = [values](std::string_view guid, std::string_view item) -> std::optional<std::string> {
        const auto found = values.find({std::string(guid), std::string(item)});
        return found == values.end() ? std::nullopt : std::optional(found->second);
    };
    return options;
}

/// "GUID item value" of each update.
std::multiset<std::string> updatesOf(const std::string& bytes, const std::string& name, const AskOptions& options) {
    const auto read = readBytes(bytes, name);
    RC_ASSERT(static_cast<bool>(read));
    const auto asked = findUpdates(*read, name, options);
    RC_ASSERT(static_cast<bool>(asked));
    RC_ASSERT(asked->leftOut.empty());
    std::multiset<std::string> updates;
    for (const AskedUpdate& update : asked->updates)
        updates.insert(update.guid + " " + update.item + " " + update.value);
    return updates;
}

/// Cells that ask for something else than before. Blanks alone ask for no more than nothing does.
std::multiset<std::string> edit(Grid& grid) {
    std::multiset<std::string> edits;
    for (auto& row : grid.rows)
        for (std::size_t i = 2; i < row.size(); ++i) {
            if (*rc::gen::inRange(0, 5) != 0) continue;
            row[i] = "edited " + std::to_string(*rc::gen::inRange(0, 1000));
            edits.insert(row[0] + " " + grid.columns[i] + " " + row[i]);
        }
    return edits;
}

/// A value of blanks alone is not to be told from none.
void dropBlanks(Grid& grid) {
    for (auto& row : grid.rows)
        for (std::string& cell : row)
            if (cell.find_first_not_of(" \t\r\n") == std::string::npos) cell.clear();
}

template <class Write>
void checkRoundTrip(const char* name, bool controls, Write write) {
    EXPECT_TRUE(rc::check(name, [&] {
        Grid grid = anyGrid(controls);
        dropBlanks(grid);
        const AskOptions model = modelOf(grid);
        RC_ASSERT(updatesOf(write(grid), name, model).empty());
        const auto edits = edit(grid);
        RC_ASSERT(updatesOf(write(grid), name, model) == edits);
    }));
}

TEST(RoundTrip, ByCommaAsksForExactlyWhatWasEdited) {
    checkRoundTrip("a.csv", false, [](const Grid& grid) { return writeDelimited(grid, ','); });
}

TEST(RoundTrip, ByTabAsksForExactlyWhatWasEdited) {
    checkRoundTrip("a.tsv", false, [](const Grid& grid) { return writeDelimited(grid, '\t'); });
}

TEST(RoundTrip, ByWorkbookAsksForExactlyWhatWasEdited) {
    checkRoundTrip("a.xlsx", true, [](const Grid& grid) {
        auto bytes = writeWorkbook(grid, false);
        RC_ASSERT(static_cast<bool>(bytes));
        return *bytes;
    });
}

TEST(RoundTrip, OfALongListAsksForExactlyWhatWasEdited) {
    EXPECT_TRUE(rc::check("long list", [] {
        Grid grid = anyGrid(false);
        dropBlanks(grid);
        const AskOptions model = modelOf(grid);
        Grid list{{std::begin(LongListColumns), std::end(LongListColumns)}, {}};
        const Grid before = grid;
        const auto edits = edit(grid);
        for (std::size_t row = 0; row < grid.rows.size(); ++row)
            for (std::size_t i = 2; i < grid.columns.size(); ++i)
                list.rows.push_back({grid.rows[row][0], grid.columns[i], before.rows[row][i], grid.rows[row][i]});
        RC_ASSERT(updatesOf(writeDelimited(list, ','), "a.csv", model) == edits);
    }));
}

}  // namespace
}  // namespace tables
