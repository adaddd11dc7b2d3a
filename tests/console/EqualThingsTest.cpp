// What one import gives to several elements alike stands in the file once.

#include "ConsoleTest.hpp"

namespace console_tests {
namespace {

std::size_t countOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

class EqualThings : public ConsoleTest {
protected:
    /// The same value for the wall and the door, imported.
    std::string imported(const std::string& item, const std::string& value, Fields more = {}) {
        updates({{WallGuid, item, "", value}, {DoorGuid, item, "", value}});
        more.insert(more.begin(), {"import", "house.ifc", "updates.txt", "--apply", "-o", "changed.ifc"});
        const Outcome outcome = run(more);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return bytes("changed.ifc");
    }
};

TEST_F(EqualThings, ClassificationsOfOneImportAreOneReferenceAndOneRelation) {
    const std::string before = bytes("house.ifc");
    const std::string after = imported("SpecSection Classification", "330{Outer walls}");
    EXPECT_EQ(countOf(after, "'330'"), 1U);
    EXPECT_EQ(countOf(after, "IFCRELASSOCIATESCLASSIFICATION("),
              countOf(before, "IFCRELASSOCIATESCLASSIFICATION(") + 1);
    for (const std::string& guid : {WallGuid, DoorGuid})
        EXPECT_THAT(run({"lookup", "changed.ifc", guid}).out, HasSubstr("330 {Outer walls}"));
}

TEST_F(EqualThings, SetsOfOneImportAreOneOnlyWhereAskedFor) {
    EXPECT_EQ(countOf(imported("Note[Handover]", "done"), "'Pset_Handover'"), 2U);
    EXPECT_EQ(countOf(imported("Note[Handover]", "done", {"--share-sets"}), "'Pset_Handover'"), 1U);
    EXPECT_THAT(json({"diff", "house.ifc", "changed.ifc"})["changed"], SizeIs(2));
}

TEST_F(EqualThings, AreSplitByTheNextImport) {
    imported("Note[Handover]", "done", {"--share-sets"});
    updates({{DoorGuid, "Note[Handover]", "", "open"}});
    ASSERT_EQ(run({"import", "changed.ifc", "updates.txt", "--apply", "-o", "again.ifc"}).status, 0);
    EXPECT_EQ(countOf(bytes("again.ifc"), "'Pset_Handover'"), 2U);
    const Json changed = json({"diff", "changed.ifc", "again.ifc"})["changed"];
    ASSERT_THAT(changed, SizeIs(1));
    EXPECT_EQ(changed[0]["guid"], DoorGuid);
}

TEST_F(EqualThings, AreTakenBackAsOneStep) {
    updates({{WallGuid, "Note[Handover]", "", "done"}, {DoorGuid, "Note[Handover]", "", "done"}});
    write("steps.jsonl",
          "{\"menu\":1}\n{\"file\":\"updates.txt\"}\n{\"click\":3}\n{\"click\":1}\n{\"click\":2}\n{\"save\":\"applied."
          "ifc\"}\n"
          "{\"undo\":true}\n{\"save\":\"undone.ifc\"}\n");
    const Outcome outcome = run({"script", "house.ifc", "steps.jsonl", "--share-sets"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(countOf(bytes("applied.ifc"), "'Pset_Handover'"), 1U);
    EXPECT_EQ(bytes("undone.ifc"), bytes("house.ifc"));
}

}  // namespace
}  // namespace console_tests
