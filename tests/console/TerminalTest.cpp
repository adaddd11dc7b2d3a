// What a person sees on a terminal.

#include "ConsoleTest.hpp"
#include "console/output/TerminalText.hpp"

namespace console_tests {
namespace {

class OnTerminal : public ConsoleTest {
protected:
    OnTerminal() {
        updates({{WallGuid, "FireRating[WallCommon]", "F 90", "F 120"},
                 {WallGuid, "IsExternal", "", ".T."},
                 {NamelessGuid, "Name", "", "和室和室和室和室和室"},
                 {DoorGuid, "OverallHeight", "", "high"}});
    }

    std::string shown(int columns, const std::string& noColor = "") {
        return modelhost()
            .with("TERM", "xterm-256color")
            .with("NO_COLOR", noColor)
            .runOnTerminal({"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"}, columns)
            .out;
    }
};

/// The list's lines: up to the empty line under it, without the report's lines.
Fields tableLines(const std::string& text) {
    Fields lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty()) break;
        if (!line.starts_with("modelhost:")) lines.push_back(line);
    }
    return lines;
}

class TerminalWidth : public OnTerminal, public testing::WithParamInterface<int> {};

TEST_P(TerminalWidth, IsNeverExceededByTheTable) {
    const Fields lines = tableLines(shown(GetParam(), "1"));
    ASSERT_THAT(lines, SizeIs(5));
    for (const std::string& line : lines) EXPECT_LE(console::displayWidth(line), GetParam()) << line;
}

INSTANTIATE_TEST_SUITE_P(Columns, TerminalWidth, testing::Values(60, 80, 100, 132));

TEST_F(OnTerminal, ColoursTellWhatBecameOfARow) {
    const std::string text = shown(200);
    EXPECT_THAT(text, HasSubstr("\x1B[32mDone\x1B[0m"));
    EXPECT_THAT(text, HasSubstr("\x1B[31merror!\x1B[0m"));
    EXPECT_THAT(text, HasSubstr("\x1B[31m" + NamelessGuid));
    EXPECT_THAT(text, HasSubstr("\x1B[2mIsExternal\x1B[0m"));
}

TEST_F(OnTerminal, NoColorIsRespected) {
    EXPECT_THAT(shown(200, "1"), Not(HasSubstr("\x1B")));
}

TEST_F(OnTerminal, ColumnsCountForAPipeToo) {
    const Outcome outcome = modelhost().with("COLUMNS", "60").run({"import", "house.ifc", "updates.txt"});
    for (const std::string& line : tableLines(outcome.out)) EXPECT_LE(console::displayWidth(line), 60) << line;
    EXPECT_THAT(outcome.out, HasSubstr("…"));
}

/// A review of some tenths of a second, made to last longer than a second by stopping it.
TEST_F(OnTerminal, AnOperationOfMoreThanASecondShowsHowFarItIs) {
    std::string lines;
    for (int i = 0; i < 150'000; ++i) lines += WallGuid + "\tName\t\tNorth wall\n";
    write("updates.txt", lines);
    const std::vector<std::string> arguments{"import", "house.ifc", "updates.txt", "--format", "json"};
    std::string shown;
    // How soon a busy machine gets it to the review is not known beforehand.
    for (int delay = 40; delay < 6000 && shown.find("Reviewing") == std::string::npos; delay *= 2)
        shown = modelhost().runOnTerminal(arguments, 100, std::chrono::milliseconds(delay)).out;
    EXPECT_THAT(shown, testing::ContainsRegex("Reviewing updates.txt  [0-9]+ %  [0-9]+ (s|min) left"));
    EXPECT_EQ(run(arguments).err, "");
}

TEST_F(OnTerminal, ExportedValuesDoNotSpeakToTheTerminal) {
    testing_support::IfcText ifc;
    ifc.element("IfcWall", WallGuid, "placeholder");
    std::string text = ifc.text();
    text.replace(text.find("'placeholder'"), 13, "'\\X2\\001B\\X0\\[2J'");
    write("house.ifc", text);
    EXPECT_THAT(modelhost().runOnTerminal({"export", "house.ifc", "--items", "Name"}, 80).out, HasSubstr("␛[2J"));
    EXPECT_THAT(run({"export", "house.ifc", "--items", "Name"}).out, HasSubstr("\x1B[2J"));
}

TEST_F(OnTerminal, JsonAndTsvHoldNothingThatIsNotSeen) {
    testing_support::IfcText ifc;
    ifc.element("IfcWall", WallGuid, "placeholder");
    std::string text = ifc.text();
    text.replace(text.find("'placeholder'"), 13, "'a\\X2\\202E009B200F061C200B\\X0\\z'");
    write("house.ifc", text);
    const std::string escapes = "a\\u202E\\u009B\\u200F\\u061C\\u200Bz";
    EXPECT_THAT(run({"list", "house.ifc", "--format", "json"}).out, HasSubstr(escapes));
    EXPECT_EQ(json({"list", "house.ifc"})["elements"][0]["name"], "a\u202E\u009B\u200F\u061C\u200Bz");
    for (const char* format : {"json", "tsv"})
        EXPECT_THAT(modelhost().runOnTerminal({"list", "house.ifc", "--format", format}, 80).out, HasSubstr(escapes));
}

TEST_F(OnTerminal, DifferencesAndReportsHoldNothingThatIsNotSeen) {
    testing_support::IfcText ifc;
    ifc.element("IfcWall", WallGuid, "placeholder");
    std::string text = ifc.text();
    write("before.ifc", text);
    text.replace(text.find("'placeholder'"), 13, "'a\\X2\\202E009B\\X0\\z'");
    write("after.ifc", text);
    const std::string seen =
        modelhost().runOnTerminal({"diff", "before.ifc", "after.ifc", "--format", "updates"}, 80).out;
    EXPECT_THAT(seen, HasSubstr(WallGuid + "\tName\t"));
    EXPECT_THAT(seen, HasSubstr("a\uFFFD\uFFFDz"));
    EXPECT_THAT(run({"diff", "before.ifc", "after.ifc", "--format", "updates"}).out, HasSubstr("a\u202E\u009Bz"));
    run({"diff", "before.ifc", "after.ifc", "--report", "changes.json"});
    EXPECT_THAT(bytes("changes.json"), HasSubstr("a\\u202e\\u009bz"));
}

}  // namespace
}  // namespace console_tests
