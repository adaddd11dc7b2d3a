// What people expect of any program on a command line: help, versions, "did you mean", standard input and output,
// colours, quiet, a pager.

#include "ConsoleTest.hpp"
#include "console/output/TerminalText.hpp"
#include "support/Places.hpp"

#include <sys/stat.h>

#include <algorithm>
#include <sstream>

namespace console_tests {
namespace {

class Conventions : public ConsoleTest {};

const Fields Commands{"import", "lookup", "list", "items", "export", "script", "help", "completion"};

TEST_F(Conventions, TheVersionNamesTheLibraries) {
    const Outcome outcome = run({"--version"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out,
                testing::MatchesRegex("modelhost [0-9.]+\nwith ICU [0-9.]+, libzip [0-9.]+, Expat [0-9.]+, "
                                      "libxlsxwriter [0-9.]+, .fmt. [0-9.]+, nlohmann-json [0-9.]+, "
                                      "CLI11 [0-9.]+\n"));
}

TEST_F(Conventions, HelpIsAskedForInThreeWays) {
    EXPECT_EQ(run({"help"}).out, run({"--help"}).out);
    for (const std::string& command : Commands) {
        const Outcome help = run({"help", command});
        EXPECT_EQ(help.status, 0) << command;
        EXPECT_THAT(help.out, HasSubstr("\nUsage: modelhost " + command)) << command;
        EXPECT_EQ(run({command, "--help"}).out, help.out) << command;
        EXPECT_EQ(run({command, "-h"}).out, help.out) << command;
    }
}

TEST_F(Conventions, HelpFitsATerminalOf80Columns) {
    Fields texts{run({"help"}).out};
    for (const std::string& command : Commands) texts.push_back(run({"help", command}).out);
    for (const std::string& text : texts) {
        std::istringstream lines(text);
        // An example is to be copied, and would not work in two lines.
        for (std::string line; std::getline(lines, line);)
            EXPECT_TRUE(line.size() <= 80 || line.starts_with("  modelhost ")) << line;
    }
}

/// In a folder with the sample, each example of each help does what it shows.
TEST_F(Conventions, TheExamplesOfTheHelpWork) {
    for (const char* sample : {"house.ifc", "updates.txt"})
        std::filesystem::copy_file(testing_support::projectFile("samples") / sample, folder_.path() / sample,
                                   std::filesystem::copy_options::overwrite_existing);
    write("steps.jsonl", "{\"menus\":true}\n");
    std::filesystem::create_directory(folder_.path() / "models");
    std::filesystem::copy_file(folder_.path() / "house.ifc", folder_.path() / "models/house.ifc");
    ASSERT_EQ(run({"export", "house.ifc", "--items", "Name", "--type", "Door", "-o", "doors.csv"}).status, 0);
    for (const std::string& command : Commands) {
        const std::string help = run({"help", command}).out;
        const std::size_t at = help.find("\nExamples:\n");
        ASSERT_NE(at, help.npos) << command << " has no examples";
        std::istringstream lines(help.substr(at + 11));
        for (std::string line; std::getline(lines, line);) {
            write("example.sh", "cd '" + folder_.path().string() +
                                    "'\nPATH=" + testing_support::builtFile("").string() + ":$PATH\n" + line + "\n");
            const std::string shell = "bash '" + (folder_.path() / "example.sh").string() + "' > /dev/null 2>&1";
            const int status = WEXITSTATUS(std::system(shell.c_str()));
            // The sample's update file has two updates that cannot be made.
            EXPECT_TRUE(status == 0 || (status == 2 && line.find("updates.txt") != line.npos)) << status << line;
        }
    }
}

struct Slip {
    Fields arguments;
    const char* meant;
};

class Meant : public Conventions, public testing::WithParamInterface<Slip> {};

TEST_P(Meant, IsSaid) {
    expectError(run(GetParam().arguments), {GetParam().meant});
}

INSTANTIATE_TEST_SUITE_P(
    Slips, Meant,
    testing::Values(
        Slip{{"imprt", "house.ifc"}, "there is no command 'imprt'; did you mean import? Else see modelhost --help"},
        Slip{{"EXPORT"}, "did you mean export?"}, Slip{{"look"}, "did you mean lookup?"},
        Slip{{"frobnicate"}, "there is no command 'frobnicate'; see modelhost --help"},
        Slip{{"help", "lst"}, "did you mean list?"}, Slip{{"--verison"}, "did you mean --version?"},
        Slip{{"import", "house.ifc", "--aply"},
             "modelhost import has no option --aply; did you mean --apply? Else see modelhost import --help"},
        Slip{{"list", "house.ifc", "--colour=never"}, "did you mean --color?"},
        Slip{{"list", "house.ifc", "--zzz"}, "modelhost list has no option --zzz; see modelhost list --help"},
        Slip{{"list", "house.ifc", "--type", "Dor"}, "--type Dor: there is no such type; did you mean Door?"},
        Slip{{"list", "house.ifc", "--class", "IfcDorr"}, "IFC4 has no such class; did you mean IfcDoor?"},
        Slip{{"list", "house.ifc", "--where", "IfcDorr"}, "IFC4 has no class IfcDorr, but IfcDoor"},
        Slip{{"export", "house.ifc", "--items", "FireRatign"},
             "no element has an item FireRatign; nearest: FireRating[WallCommon]"}));

TEST_F(Conventions, AnOptionsValueIsNotTakenForAnOption) {
    EXPECT_THAT(run({"export", "house.ifc", "--item", "--apply"}).err, HasSubstr("no element has an item --apply"));
}

// --- Nothing ---

TEST_F(Conventions, NoElementIsAnAnswerAndSaid) {
    for (const char* command : {"list", "items"}) {
        const Outcome outcome = run({command, "house.ifc", "--type", "Roof"});
        EXPECT_EQ(outcome.status, 0) << command;
        EXPECT_EQ(outcome.err,
                  "modelhost: no element of house.ifc is chosen; 'modelhost list' without a filter prints "
                  "those there are\n");
    }
    EXPECT_THAT(run({"lookup", "house.ifc", "--where", "IfcRoof"}).err, HasSubstr("no element of house.ifc is chosen"));
    EXPECT_THAT(run({"export", "house.ifc", "--items", "Name", "--type", "Roof"}).err,
                HasSubstr("no element of house.ifc is chosen"));
    EXPECT_EQ(run({"list", "house.ifc", "--type", "Wall"}).err, "");
}

TEST_F(Conventions, ASelectionByAnItemOfNobodyNamesTheNearest) {
    EXPECT_EQ(run({"list", "house.ifc", "--where", "Nmae=Wall-01"}).err,
              "modelhost: --where: no element has an item Nmae; nearest: Name\n");
    EXPECT_THAT(run({"list", "house.ifc", "--where", "Name=Roof"}).err, HasSubstr("no element of house.ifc is chosen"));
}

TEST_F(Conventions, AModelWithoutElementsIsSaidToBeOne) {
    write("empty.ifc", testing_support::IfcText("IFC4").text());
    EXPECT_EQ(run({"list", "empty.ifc"}).err, "modelhost: empty.ifc has no elements\n");
}

TEST_F(Conventions, AnItemOfNobodyIsSaidAndTheOthersAreExported) {
    const Outcome outcome = run({"export", "house.ifc", "--items", "Nmae,Tag"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, HasSubstr("modelhost: no element has an item Nmae; nearest: Name\n"));
}

TEST_F(Conventions, ItemsThatAreAllNobodysAreAnError) {
    const Outcome outcome = run({"export", "house.ifc", "--items", "Nmae,Tga"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "modelhost: no element has an item Nmae; nearest: Name\n"
              "modelhost: no element has an item Tga; nearest: Tag\n");
}

TEST_F(Conventions, AnItemOfNobodyIsNoErrorWhereItsCellsAreToBeFilledIn) {
    const Outcome outcome = run({"export", "house.ifc", "--items", "Colour[Custom]", "-o", "out.csv"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, HasSubstr("no element has an item Colour[Custom]"));
    // Without a set no import could make it.
    EXPECT_EQ(run({"export", "house.ifc", "--items", "Colour", "-o", "out.csv"}).status, 1);
}

TEST_F(Conventions, AnItemThatOnlyOthersHaveIsNoError) {
    const Outcome outcome = run({"export", "house.ifc", "--items", "FireRating[WallCommon]", "--type", "Door"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, HasSubstr("no element chosen has the item FireRating[WallCommon]"));
}

// --- Standard input and output ---

class Streams : public Conventions {
protected:
    Streams() { updates({{WallGuid, "FireRating[WallCommon]", "F 90", "F 60"}}); }
};

TEST_F(Streams, TheModelMayComeByStandardInput) {
    EXPECT_EQ(modelhost().input(house()).run({"list", "-"}).out, run({"list", "house.ifc"}).out);
    const Outcome outcome = modelhost().input(house()).run({"lookup", "-", UnknownGuid});
    EXPECT_THAT(outcome.err, HasSubstr("no element of standard input has the GUID"));
}

TEST_F(Streams, WhatIsNoModelIsSaidToHaveComeByStandardInput) {
    expectError(modelhost().input("").run({"list", "-"}), {"standard input is empty; send a model"});
    expectError(modelhost().input(std::string(100, '\0')).run({"list", "-"}), {"standard input is no IFC file"});
    const Outcome text = modelhost().input("hello").run({"list", "-"});
    expectError(text, {"standard input: "});
    EXPECT_THAT(text.err, Not(HasSubstr("/tmp")));
}

TEST_F(Streams, LeaveNothingBehind) {
    std::filesystem::create_directory(folder_.path() / "temporary");
    const std::string temporary = (folder_.path() / "temporary").string();
    for (const std::string& model : {house(), std::string("hello")})
        modelhost().with("TMPDIR", temporary).input(model).run({"list", "-"});
    EXPECT_TRUE(std::filesystem::is_empty(temporary));
}

TEST_F(Streams, TheChangedModelMayGoToStandardOutput) {
    ASSERT_EQ(run({"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"}).status, 0);
    const Outcome outcome = modelhost().input(house()).run({"import", "-", "updates.txt", "--apply", "-o", "-"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, bytes("out.ifc"));
    EXPECT_THAT(outcome.err, HasSubstr("1 done, 0 errors."));
}

TEST_F(Streams, AFullDiskBehindStandardOutputIsAnError) {
    const Outcome outcome =
        modelhost().outputTo("/dev/full").run({"import", "house.ifc", "updates.txt", "--apply", "-o", "-"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("cannot write the result to standard output"));
}

TEST_F(Streams, OneStreamIsNotReadTwiceNorSavedInPlace) {
    expectError(run({"import", "-", "-"}), {"MODEL and UPDATES cannot both be standard input"});
    expectError(run({"script", "-", "-"}), {"MODEL and STEPS cannot both be standard input"});
    expectError(run({"import", "-", "updates.txt", "--apply", "--in-place"}),
                {"standard input cannot be saved in place; write -o OUT.ifc, or -o - for standard output"});
}

// --- How it looks ---

TEST_F(Streams, ColoursAreAskedForOrNot) {
    const auto shown = [this](const Fields& more) {
        Fields arguments{"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    };
    const std::string escape = "\x1B[32m";
    EXPECT_THAT(run(shown({})).out, Not(HasSubstr(escape)));
    EXPECT_THAT(run(shown({"--color=always"})).out, HasSubstr(escape));
    EXPECT_THAT(modelhost().with("NO_COLOR", "1").run(shown({"--color", "always"})).out, HasSubstr(escape));
    EXPECT_THAT(modelhost().with("TERM", "xterm").runOnTerminal(shown({"--color", "auto"}), 100).out,
                HasSubstr(escape));
    EXPECT_THAT(modelhost().with("TERM", "xterm").runOnTerminal(shown({"--color=never"}), 100).out,
                Not(HasSubstr(escape)));
}

TEST_F(Streams, QuietSaysErrorsOnly) {
    updates({{UnknownGuid, "Name", "", "x"},
             {WallGuid, "IsExternal[WallCommon]", "", "false"},
             {DoorGuid, "GlobalId", "", "x"}});
    const Fields import{"import", "house.ifc", "updates.txt", "--format", "tsv", "--apply", "-o", "out.txt"};
    EXPECT_THAT(run(import).err, testing::AllOf(HasSubstr("hint: "), HasSubstr("does not end in .ifc")));
    Fields quietly = import;
    quietly.push_back("--quiet");
    const Outcome outcome = run(quietly);
    EXPECT_THAT(outcome.err, Not(HasSubstr("hint: ")));
    EXPECT_THAT(outcome.err, Not(HasSubstr("does not end in .ifc")));
    EXPECT_EQ(outcome.out, run(import).out);
    EXPECT_THAT(run({"list", "none.ifc", "--quiet"}).err, HasSubstr("No such file"));
}

TEST_F(Streams, SeveralLookUpsAreKeptApart) {
    const Json lookups = json({"lookup", "house.ifc", WallGuid, UnknownGuid}, 1)["lookups"];
    ASSERT_THAT(lookups, SizeIs(2));
    EXPECT_EQ(lookups[0]["guid"], WallGuid);
    EXPECT_EQ(lookups[0]["error"], nullptr);
    EXPECT_EQ(lookups[0]["rows"][1], Json({"Type", "Wall"}));
    EXPECT_EQ(lookups[1]["guid"], UnknownGuid);
    EXPECT_EQ(lookups[1]["error"], "BADID");
    EXPECT_THAT(run({"lookup", "house.ifc", WallGuid, DoorGuid}).out, HasSubstr("\n\nProperty"));
}

class Narrow : public Streams {
protected:
    Narrow() {
        updates({{WallGuid, "FireRating[WallCommon]", "F 90", "F 60"},
                 {WallGuid, "Name", "Wall-01", "North wall"},
                 {DoorGuid, "Name", "Door-01", "North door"}});
    }
    Outcome import(const Fields& more) {
        Fields arguments{"import", "house.ifc", "updates.txt"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return modelhost().with("COLUMNS", "80").run(arguments);
    }
};

TEST_F(Narrow, TablesBlankWhatRepeatsTheRowAbove) {
    const std::string text = import({}).out;
    EXPECT_THAT(text, HasSubstr("\n1    [X]    Wall-01  C0FFEE00"));
    EXPECT_THAT(text, testing::ContainsRegex("\n2    \\[X\\] +Name "));
    EXPECT_THAT(text, HasSubstr("\n3    [X]    Door-01  C0FFEE00"));
}

TEST_F(Narrow, WideTablesAreWhole) {
    const std::string text = import({"--wide"}).out;
    EXPECT_THAT(text, HasSubstr("\n2    [X]    Wall-01  Wall  " + WallGuid + "  Name "));
    EXPECT_THAT(text, Not(HasSubstr("…")));
}

TEST_F(Narrow, ColumnsThatOthersStandForAreLeftOutAndNamed) {
    const Outcome outcome = modelhost().with("COLUMNS", "80").run({"items", "house.ifc"});
    EXPECT_THAT(outcome.out, HasSubstr("\nLeft out for want of room: set, "));
    EXPECT_THAT(outcome.out, HasSubstr(" FireRating[WallCom"));
    std::istringstream lines(outcome.out);
    for (std::string line; std::getline(lines, line) && !line.empty();)
        EXPECT_LE(console::displayWidth(line), 80) << line;
    EXPECT_THAT(run({"items", "house.ifc"}).out, Not(HasSubstr("Left out")));
}

// --- Pager ---

class Paged : public Conventions {
protected:
    Paged() {
        testing_support::IfcText ifc;
        for (unsigned i = 1; i <= 60; ++i)
            ifc.element("IfcWall", testing_support::guidText(i), "Wall-" + std::to_string(i));
        write("long.ifc", ifc.text());
        write("pager", "#!/bin/sh\necho PAGED\nexec cat\n");
        ::chmod((folder_.path() / "pager").c_str(), 0755);
    }
    /// On a terminal of 50 lines.
    std::string list(const Fields& more, const std::string& pager = "./pager") {
        Fields arguments{"list"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return modelhost().with("PAGER", pager).runOnTerminal(arguments, 100).out;
    }
};

TEST_F(Paged, ATableLongerThanTheTerminalIs) {
    const std::string text = list({"long.ifc"});
    EXPECT_THAT(text, testing::StartsWith("PAGED\r\n"));
    EXPECT_THAT(text, HasSubstr("Wall-60"));
}

TEST_F(Paged, NothingElseIs) {
    EXPECT_THAT(list({"house.ifc"}), Not(HasSubstr("PAGED")));
    EXPECT_THAT(list({"long.ifc", "--no-pager"}), Not(HasSubstr("PAGED")));
    EXPECT_THAT(list({"long.ifc", "--format", "tsv"}), Not(HasSubstr("PAGED")));
    EXPECT_THAT(modelhost().with("PAGER", "./pager").run({"list", "long.ifc"}).out, Not(HasSubstr("PAGED")));
}

TEST_F(Paged, WithoutTheProgramTheTableIsPrinted) {
    for (const char* pager : {"", "cat", "./none", "no-such-program -x"})
        EXPECT_THAT(list({"long.ifc"}, pager), HasSubstr("Wall-60")) << pager;
}

TEST_F(Paged, LeavingThePagerEarlyIsNoError) {
    const Outcome outcome = modelhost().with("PAGER", "head -n 1").runOnTerminal({"list", "long.ifc"}, 100);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 1);
}

TEST_F(Paged, AMessageWaitsUntilThePagerIsLeft) {
    Fields arguments{"lookup", "long.ifc"};
    for (unsigned i = 1; i <= 10; ++i) arguments.push_back(testing_support::guidText(i));
    arguments.push_back(UnknownGuid);
    const std::string text = modelhost().with("PAGER", "cat -n").runOnTerminal(arguments, 200).out;
    EXPECT_THAT(text, testing::ContainsRegex("BADID\r\nmodelhost: no element of long.ifc has the GUID"));
}

}  // namespace
}  // namespace console_tests
