#include "console/output/HostText.hpp"
#include "console/output/Table.hpp"
#include "console/output/TerminalText.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace console {
namespace {

using namespace std::string_literals;

TEST(DisplayWidth, CountsColumnsOfATerminal) {
    EXPECT_EQ(displayWidth(""), 0);
    EXPECT_EQ(displayWidth("Wall"), 4);
    EXPECT_EQ(displayWidth("Tür"), 3);
    EXPECT_EQ(displayWidth("Tu\u0308r"), 3);
    EXPECT_EQ(displayWidth("和室"), 4);
    EXPECT_EQ(displayWidth("ﾊﾝｶｸ"), 4);
    EXPECT_EQ(displayWidth("\xFF"), 1);
}

TEST(CutToWidth, NeverExceedsTheWidth) {
    EXPECT_EQ(cutToWidth("Wall", 4), "Wall");
    EXPECT_EQ(cutToWidth("Wall-01", 4), "Wal…");
    EXPECT_EQ(cutToWidth("和室和室", 5), "和室…");
    EXPECT_EQ(cutToWidth("和室和室", 4), "和…");
    EXPECT_EQ(cutToWidth("Tu\u0308rblatt", 4), "Tu\u0308r…");
    EXPECT_EQ(cutToWidth("Wall", 0), "");
}

TEST(VisibleText, HoldsNothingThatATerminalObeys) {
    EXPECT_EQ(visible("a\tb\r\nc"), "a␉b␍␊c");
    EXPECT_EQ(visible("\x1B[31mred\x07"), "␛[31mred␇");
    EXPECT_EQ(visible("\0\x7F"s), "␀␡");
    EXPECT_EQ(visible("\u009B1m"), "\uFFFD1m");
    EXPECT_EQ(visible("abc\u202Ecba"), "abc\uFFFDcba");
    EXPECT_EQ(visible("a\u200Bb\u061Cc\u200Fd\uFEFF"), "a\uFFFDb\uFFFDc\uFFFDd\uFFFD");
    EXPECT_EQ(visible("می\u200Cخواهم \"\\"), "می\u200Cخواهم \"\\");
    EXPECT_EQ(visible("\xFFok"), "\uFFFDok");
    EXPECT_EQ(visible("Tür 補修"), "Tür 補修");
}

TEST(EscapedText, FitsIntoACellAndCanBeReadBack) {
    const Terminal pipe;
    EXPECT_EQ(escaped("a\tb\r\nc\\d", pipe), "a\\tb\\r\\nc\\\\d");
    EXPECT_EQ(escaped("\x1B\0"s, pipe), "\\u001B\\u0000");
    EXPECT_EQ(escaped("\u009B", pipe), "\\u009B");
    EXPECT_EQ(escaped("Tür \"補修\"", pipe), "Tür \"補修\"");
    EXPECT_EQ(escaped("a\u202Eb\u200Dc", pipe), "a\u202Eb\u200Dc");
    EXPECT_EQ(escaped("a\xFFz", pipe), "a\uFFFDz");
}

TEST(EscapedText, OnATerminalHoldsNothingThatIsNotSeen) {
    const Terminal terminal{true, false, 80};
    EXPECT_EQ(escaped("a\u202Eb\u200Dc\u200B\u061C\u200F", terminal), "a\\u202Eb\\u200Dc\\u200B\\u061C\\u200F");
    EXPECT_EQ(escaped("x\U000E0041", terminal), "x\\uDB40\\uDC41");
    EXPECT_EQ(escaped("Tür 補修", terminal), "Tür 補修");
}

TEST(TsvLine, SeparatesCellsByTabs) {
    const std::vector<std::string> cells{"a", "", "b\tc"}, first{"", "a"};
    EXPECT_EQ(tsvLine(cells, {}), "a\t\tb\\tc\n");
    EXPECT_EQ(tsvLine(first, {}), "\ta\n");
}

std::string jsonString(std::string_view utf8) {
    std::string json;
    appendJsonString(json, utf8);
    return json;
}

TEST(JsonString, HoldsNothingThatATerminalObeysOrDoesNotShow) {
    EXPECT_EQ(jsonString("a\"b\\c\n\x1B"), R"("a\"b\\c\n\u001B")");
    for (const char* hidden : {"\x7F", "\u0085", "\u009B", "\u061C", "\u200B", "\u200D", "\u200F", "\u2028", "\u202E",
                               "\u2066", "\uFEFF", "\U000E0041"}) {
        const std::string json = jsonString(hidden);
        EXPECT_TRUE(std::all_of(json.begin(), json.end(), [](char c) { return c >= 0x20 && c < 0x7F; })) << json;
        EXPECT_EQ(nlohmann::json::parse(json), hidden);
    }
    EXPECT_EQ(jsonString("Tür 補修 \U0001F3E0"), "\"Tür 補修 \U0001F3E0\"");
    EXPECT_EQ(jsonString("\xFFok"), "\"\uFFFDok\"");
}

TEST(Utf8Text, IsValidWhateverTheUnitsAre) {
    EXPECT_EQ(toUtf8(std::u16string_view(u"a\xD800z")), "a\uFFFDz");
    EXPECT_EQ(toUtf8(std::u16string_view(u"\xDC00\xD800")), "\uFFFD\uFFFD");
    EXPECT_EQ(toUtf8(std::u16string_view(u"\U0001F3E0")), "\U0001F3E0");
    EXPECT_EQ(toUtf8(std::u16string_view(u"a\0b", 3)), "a\0b"s);
    EXPECT_TRUE(isWellFormed(std::u16string_view(u"\U0001F3E0")));
    EXPECT_FALSE(isWellFormed(std::u16string_view(u"a\xD800z")));
    EXPECT_FALSE(isWellFormed(std::u16string_view(u"\xDC00")));
}

std::string laidOut(const Table& table, const Terminal& terminal) {
    std::string text;
    table.layOut(terminal, [&text](std::string_view line) { text += line; });
    return text;
}

Table doors() {
    Table table({"Name", "Remark"});
    table.add({{"Haustür"}, {"Done", Style::Green}});
    table.add({{"和室"}, {"error!", Style::Red}});
    return table;
}

TEST(Table, AlignsColumnsByDisplayWidth) {
    EXPECT_EQ(laidOut(doors(), {}), "Name     Remark\nHaustür  Done\n和室     error!\n");
}

TEST(Table, ColoursOnlyWhereATerminalWantsIt) {
    EXPECT_THAT(laidOut(doors(), {true, true, 80}), testing::HasSubstr("\x1B[31merror!\x1B[0m"));
    EXPECT_THAT(laidOut(doors(), {true, false, 80}), testing::Not(testing::HasSubstr("\x1B")));
}

TEST(Table, CutsTheWidestColumnsUntilALineFits) {
    Table table({"A", "B", "C"});
    table.add({{"short"}, {std::string(60, 'b')}, {std::string(60, 'c')}});
    for (const int width : {20, 40, 79, 200}) {
        const std::string text = laidOut(table, {true, false, width});
        for (std::size_t start = 0; start < text.size(); start = text.find('\n', start) + 1)
            EXPECT_LE(displayWidth(text.substr(start, text.find('\n', start) - start)), width);
        EXPECT_THAT(text, testing::HasSubstr("short")) << width;
    }
}

TEST(Table, CutsFirstWhatMayYieldFirstAndLastWhatIsWorthNothingCut) {
    Table table({"A", "B", "C"});
    table.yield(0, Yield::First);
    table.yield(2, Yield::Last);
    table.add({{std::string(20, 'a')}, {std::string(20, 'b')}, {std::string(20, 'c')}});
    const auto row = [&table](int width) {
        const std::string text = laidOut(table, {true, false, width});
        return text.substr(text.find('\n') + 1);
    };
    EXPECT_EQ(row(60), "aaaaaaaaaaaaaaa…  bbbbbbbbbbbbbbbbbbbb  cccccccccccccccccccc\n");
    EXPECT_EQ(row(43), "aaaaaaaa…  bbbbbbbbb…  cccccccccccccccccccc\n");
    EXPECT_EQ(row(26), "aaaaaaaa…  bb…  ccccccccc…\n");
}

TEST(Table, UsesTheWholeWidthWhenItCuts) {
    Table table({"A", "B"});
    table.add({{std::string(60, 'a')}, {std::string(61, 'b')}});
    const std::string text = laidOut(table, {true, false, 41});
    const std::string row = text.substr(text.find('\n') + 1);
    EXPECT_EQ(displayWidth(row.substr(0, row.find('\n'))), 41);
}

TEST(Table, InAPipeIsPaddedToALimitOnly) {
    constexpr std::size_t limit = Table::WidestAligned;
    for (const std::size_t length : {limit - 1, limit, limit + 1, std::size_t{400'000}}) {
        Table table({"A", "B"});
        table.add({{std::string(length, 'a')}, {"b"}});
        table.add({{"c"}, {"d"}});
        const std::string padding(std::min(length, limit) + 1, ' ');
        EXPECT_EQ(laidOut(table, {}), "A" + padding + "B\n" + std::string(length, 'a') + "  b\nc" + padding + "d\n")
            << length;
    }
}

TEST(Table, PrintsEverythingWithoutALimit) {
    Table table({"A"});
    table.add({{std::string(1000, 'a')}});
    EXPECT_THAT(laidOut(table, {}), testing::HasSubstr(std::string(1000, 'a')));
}

}  // namespace
}  // namespace console
