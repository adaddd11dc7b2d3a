// modelhost script: the user's steps and what they are answered.

#include "ConsoleTest.hpp"

namespace console_tests {
namespace {

class ScriptCommand : public ConsoleTest {
protected:
    ScriptCommand() { updates({{WallGuid, "FireRating[WallCommon]", "F 90", "F 120"}}); }

    /// Runs the steps; one answer for each.
    std::vector<Json> play(const Fields& steps, int status = 0) {
        std::string text;
        for (const std::string& step : steps) text.append(step).append("\n");
        write("steps.jsonl", text);
        const Outcome outcome = run({"script", "house.ifc", "steps.jsonl"});
        EXPECT_EQ(outcome.status, status) << outcome.err;
        notes_ = outcome.err;
        std::vector<Json> answers;
        std::istringstream stream(outcome.out);
        for (std::string line; std::getline(stream, line);) answers.push_back(Json::parse(line, nullptr, false));
        EXPECT_EQ(answers.size(), steps.size()) << outcome.out;
        answers.resize(steps.size());
        return answers;
    }

    std::string notes_;
};

const std::string Menu1 = R"({"menu":1})", Menu2 = R"({"menu":2})", File = R"({"file":"updates.txt"})";
const std::string Close = R"({"click":2})", Apply = R"({"click":1})", SelectAll = R"({"click":3})";
const std::string Dump = R"({"dump":true})";

Json dialogOf(const Json& answer) {
    return answer["dump"];
}

Json itemOf(const Json& answer, int number) {
    for (const Json& item : answer["dump"]["items"])
        if (item["number"] == number) return item;
    return nullptr;
}

TEST_F(ScriptCommand, ImportsAsAUserWould) {
    const auto answers = play({Menu1, File, SelectAll, Apply, Dump, Close, R"({"save":"out.ifc"})"});
    EXPECT_EQ(answers[0], Json::parse(R"({"menu":1,"asks":{"file":"Select a TXT file"}})"));
    EXPECT_EQ(answers[1]["opened"]["dialog"], 32501);
    EXPECT_EQ(answers[2], Json::parse(SelectAll));
    EXPECT_EQ(itemOf(answers[4], 5)["rows"][0]["columns"][7], "Done");
    EXPECT_EQ(itemOf(answers[4], 5)["rows"][0]["status"], 2);
    EXPECT_EQ(itemOf(answers[4], 5)["rows"][0]["color"], nullptr);
    EXPECT_EQ(answers[5], Json::parse(R"({"click":2,"closed":2,"returned":0})"));
    EXPECT_EQ(answers[6], Json::parse(R"({"save":"out.ifc"})"));
    EXPECT_THAT(bytes("out.ifc"), HasSubstr("'F 120'"));
    EXPECT_EQ(notes_, "");
}

TEST_F(ScriptCommand, AFileCanBeNamedBeforeItIsAskedFor) {
    const auto answers = play({File, Menu1, Close});
    EXPECT_EQ(answers[0], Json::parse(File));
    EXPECT_EQ(answers[1]["opened"]["dialog"], 32501);
    EXPECT_FALSE(answers[1].contains("asks"));
}

TEST_F(ScriptCommand, ACancelledFileDialogEndsTheCommand) {
    const auto answers = play({Menu1, R"({"file":null})", Menu1, R"({"file":null})"});
    EXPECT_EQ(answers[1], Json::parse(R"({"file":null,"returned":0})"));
    EXPECT_EQ(answers[3]["returned"], 0);
}

TEST_F(ScriptCommand, DumpsTheDialog) {
    const auto answers = play({File, Menu1, Dump, Close});
    const Json dialog = dialogOf(answers[2]);
    EXPECT_EQ(dialog["dialog"], 32501);
    EXPECT_THAT(dialog["title"].get<std::string>(), Not(IsEmpty()));
    EXPECT_THAT(dialog["items"], SizeIs(5));
    EXPECT_EQ(itemOf(answers[2], 2)["kind"], "button");
    const Json list = itemOf(answers[2], 5);
    EXPECT_EQ(list["kind"], "list");
    EXPECT_THAT(list["rect"], SizeIs(4));
    EXPECT_THAT(list["header"], SizeIs(8));
    EXPECT_EQ(list["tabFields"][0],
              Json::parse(R"({"begin":0,"end":)" + list["tabFields"][0]["end"].dump() +
                          R"(,"justification":0,"truncation":0,"separator":true,"status":true})"));
    EXPECT_EQ(list["rows"][0]["columns"][4], "FireRating[WallCommon]");
}

TEST_F(ScriptCommand, AClickInTheTickColumnTicksTheRow) {
    const auto answers =
        play({File, Menu1, R"({"click":5,"row":1,"x":0})", Dump, R"({"click":5,"row":1,"x":600})", Dump, Close});
    EXPECT_EQ(itemOf(answers[3], 5)["rows"][0]["columns"][0], "[X]");
    EXPECT_EQ(itemOf(answers[5], 5)["rows"][0]["columns"][0], "[X]");
}

TEST_F(ScriptCommand, ResizingMovesTheItems) {
    const auto answers = play({File, Menu1, Dump, R"({"resize":[31,10]})", Dump, Close});
    const Json before = itemOf(answers[2], 1)["rect"], after = itemOf(answers[4], 1)["rect"];
    EXPECT_EQ(after[0].get<int>() - before[0].get<int>(), 15);
    EXPECT_EQ(after[1].get<int>() - before[1].get<int>(), 10);
    EXPECT_EQ(answers[3]["size"][0].get<int>(), dialogOf(answers[2])["size"][0].get<int>() + 31);
}

TEST_F(ScriptCommand, TypesIntoTheLookupDialog) {
    const auto answers = play({Menu2, R"({"text":")" + DoorGuid + R"(","item":3})", R"({"click":1})", Dump, Close});
    EXPECT_EQ(answers[0]["opened"]["dialog"], 32500);
    EXPECT_EQ(itemOf(answers[3], 3)["text"], DoorGuid);
    EXPECT_EQ(itemOf(answers[3], 4)["rows"][1]["columns"], Json({"Type", "Door"}));
}

TEST_F(ScriptCommand, UndoesAndRedoes) {
    const auto answers = play({File, Menu1, SelectAll, Apply, Close, R"({"undo":true})", R"({"save":"undone.ifc"})",
                               R"({"redo":true})", R"({"save":"redone.ifc"})"});
    EXPECT_EQ(answers[5]["name"], "Apply Quillmarsh updates");
    EXPECT_EQ(answers[7]["name"], "Apply Quillmarsh updates");
    EXPECT_EQ(bytes("undone.ifc"), bytes("house.ifc"));
    EXPECT_THAT(bytes("redone.ifc"), HasSubstr("'F 120'"));
}

TEST_F(ScriptCommand, ShowsMenusAndReport) {
    updates({{DoorGuid, "OverallHeight", "", "high"}});
    const auto answers = play({R"({"menus":true})", File, Menu1, SelectAll, Apply, R"({"report":true})", Close});
    ASSERT_THAT(answers[0]["menus"], SizeIs(1));
    EXPECT_EQ(answers[0]["menus"][0]["items"][1]["item"], 2);
    EXPECT_EQ(answers[0]["menus"][0]["items"][1]["enabled"], true);
    EXPECT_THAT(answers[5]["report"], SizeIs(1));
}

TEST_F(ScriptCommand, PointsAreTakenAsAnswers) {
    const auto answers =
        play({R"({"point":[1,2.5,-3]})", R"({"point":null})", R"({"point":[0,0,0],"hit":")" + WallGuid + R"("})"});
    for (const Json& answer : answers) EXPECT_FALSE(answer.contains("error"));
}

TEST_F(ScriptCommand, TheEndOfTheScriptClosesWhatIsOpen) {
    play({File, Menu1});
    play({Menu1});
}

TEST_F(ScriptCommand, UnsavedChangesAreSaid) {
    play({File, Menu1, SelectAll, Apply, Close});
    EXPECT_THAT(notes_, HasSubstr("changed and not saved"));
}

TEST_F(ScriptCommand, ReadsStandardInput) {
    const Outcome outcome = modelhost().input(Menu2 + "\n" + Close + "\n").run({"script", "house.ifc", "-"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr(R"("closed":2)"));
}

TEST_F(ScriptCommand, EmptyLinesArePassedOver) {
    write("steps.jsonl", "\n\r\n  \n{\"menus\":true}\r\n");
    const Outcome outcome = run({"script", "house.ifc", "steps.jsonl"});
    EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 1);
}

struct BadStep {
    Fields before;
    const char* step;
    const char* error;
};

class ImpossibleStep : public ScriptCommand, public testing::WithParamInterface<BadStep> {};

TEST_P(ImpossibleStep, IsAnsweredWithAnErrorAndTheScriptGoesOn) {
    Fields steps = GetParam().before;
    steps.push_back(GetParam().step);
    steps.push_back(R"({"report":true})");
    const auto answers = play(steps, 1);
    const Json& answer = answers[steps.size() - 2];
    ASSERT_TRUE(answer.contains("error")) << answer;
    EXPECT_THAT(answer["error"].get<std::string>(), HasSubstr(GetParam().error));
    EXPECT_EQ(answer["line"], steps.size() - 1);
    EXPECT_TRUE(answers.back().contains("report"));
}

const Fields InImport{File, Menu1};
const Fields InLookup{Menu2};

INSTANTIATE_TEST_SUITE_P(
    Steps, ImpossibleStep,
    testing::Values(
        BadStep{{}, "no json", "no JSON"}, BadStep{{}, "{\"menu\":", "no JSON"}, BadStep{{}, "[1]", "JSON object"},
        BadStep{{}, "{}", "unknown"}, BadStep{{}, R"({"jump":1})", "unknown"},
        BadStep{{}, R"({"menu":1,"row":2})", "has no \"row\""}, BadStep{{}, R"({"menu":3})", "no item 3"},
        BadStep{{}, R"({"menu":0})", "no item 0"}, BadStep{{}, R"({"menu":"1"})", "number"},
        BadStep{{}, R"({"menu":1e99})", "number"}, BadStep{{}, R"({"menu":99999999999})", "number"},
        BadStep{{}, R"({"click":1})", "no dialog is open"}, BadStep{{}, R"({"dump":true})", "no dialog is open"},
        BadStep{{}, R"({"file":7})", "path"}, BadStep{{}, R"({"point":[1,2]})", "three coordinates"},
        BadStep{{}, R"({"point":[0,0,0],"hit":"x"})", "GUID"}, BadStep{{}, R"({"undo":true})", "nothing to undo"},
        BadStep{{}, R"({"redo":true})", "nothing to redo"}, BadStep{{}, R"({"save":7})", "path"},
        BadStep{{}, R"({"save":"no/such/folder/out.ifc"})", "no/such/folder/out.ifc"},
        BadStep{InImport, R"({"menu":2})", "still running"}, BadStep{InImport, R"({"undo":true})", "still running"},
        BadStep{InImport, R"({"save":"out.ifc"})", "still running"}, BadStep{InImport, R"({"click":9})", "no button 9"},
        BadStep{InImport, R"({"click":5,"row":2})", "no row 2"},
        BadStep{InImport, R"({"click":3,"row":1})", "no list 3"},
        BadStep{InImport, R"({"click":5,"row":"1"})", "whole numbers"},
        BadStep{InImport, R"({"text":"x","item":3})", "no edit text 3"},
        BadStep{InImport, R"({"resize":31})", "growth"}, BadStep{InLookup, R"({"text":3,"item":3})", "takes a text"},
        BadStep{{Menu1}, R"({"click":1})", "file dialog is in front"}));

}  // namespace
}  // namespace console_tests
