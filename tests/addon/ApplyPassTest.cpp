// Applying the ticked rows, as one undoable step.

#include "FakeHost.hpp"
#include "support/HostFixture.hpp"
#include "support/IfcText.hpp"

#include <gmock/gmock.h>

using namespace testing_support;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

/// Three walls to rename in a real model. A GlobalId cannot be set, so a line for one fails.
class Applying : public HostFixture {
protected:
    void SetUp() override {
        IfcText ifc;
        for (unsigned i = 1; i <= 3; ++i) ifc.element("IfcWall", guidText(i), "Wall " + std::to_string(i));
        openText(ifc.text());
    }

    static std::string line(unsigned wall, const std::string& item, const std::string& value) {
        return guidText(wall) + "\t" + item + "\t\t" + value + "\n";
    }
    const std::string secondFails_ = line(1, "Name", "A") + line(2, "GlobalId", "no such") + line(3, "Name", "C");
};

TEST_F(Applying, FailingRowDoesNotStopTheOthers) {
    const auto rows = importUpdates(secondFails_, [](ImportDialog& dialog) { dialog.selectAll().apply(); });
    for (const std::size_t done : {0U, 2U}) {
        EXPECT_EQ(rows[done].remarks, "Done");
        EXPECT_FALSE(rows[done].ticked());
        EXPECT_EQ(rows[done].status, 2);
    }
    EXPECT_EQ(rows[1].remarks, "error!");
    EXPECT_TRUE(rows[1].ticked());
    EXPECT_EQ(rows[1].status, 0);
}

TEST_F(Applying, AllRowsOfOnePressAreOneUndoStep) {
    const std::string before = savedText();
    importUpdates(secondFails_, [](ImportDialog& dialog) { dialog.selectAll().apply(); });
    EXPECT_EQ(host_.model()->undoSteps().undo, "Apply Quillmarsh updates");
    EXPECT_THAT(savedText(), ::testing::AllOf(HasSubstr("'A'"), HasSubstr("'C'")));
    EXPECT_TRUE(host_.undo());
    EXPECT_EQ(savedText(), before);
    EXPECT_FALSE(host_.undo());
}

TEST_F(Applying, SecondPressAfterSuccessChangesNothing) {
    importUpdates(line(1, "Name", "A"), [this](ImportDialog& dialog) {
        const ImportRow done = dialog.tick(1).apply().row(1);
        const std::uint64_t revision = host_.model()->revision();
        EXPECT_EQ(dialog.apply().row(1), done);
        EXPECT_EQ(host_.model()->revision(), revision);
    });
}

TEST_F(Applying, NothingTickedChangesNothing) {
    const auto rows = importUpdates(secondFails_, [](ImportDialog& dialog) { dialog.apply(); });
    for (const ImportRow& row : rows) EXPECT_EQ(row.remarks, "");
    EXPECT_FALSE(host_.model()->undoSteps().undo.has_value());
}

TEST_F(Applying, RowTickedAlthoughDisabledIsPassedOver) {
    const auto rows = importUpdates(line(1, "Name", "Wall 1"), [](ImportDialog& dialog) { dialog.tick(1).apply(); });
    EXPECT_EQ(rows[0].remarks, " Old and new values are the same.");
    EXPECT_TRUE(rows[0].ticked());
    EXPECT_FALSE(host_.model()->undoSteps().undo.has_value());
}

TEST_F(Applying, EachPressIsAStepOfItsOwn) {
    importUpdates(line(1, "Name", "A") + line(2, "Name", "B"),
                  [](ImportDialog& dialog) { dialog.tick(1).apply().tick(2).apply(); });
    EXPECT_TRUE(host_.undo());
    EXPECT_THAT(savedText(), ::testing::AllOf(HasSubstr("'A'"), Not(HasSubstr("'B'"))));
    EXPECT_TRUE(host_.undo());
    EXPECT_FALSE(host_.undo());
}

TEST_F(Applying, RowsAreAppliedFromTheTop) {
    importUpdates(line(1, "Name", "A") + line(1, "Name", "B"),
                  [](ImportDialog& dialog) { dialog.selectAll().apply(); });
    EXPECT_THAT(savedText(), HasSubstr("'B'"));
}

// --- What the host is asked to do ----------------------------------------------------------------------------------

class ApplyPass : public FakeHostTest {};

TEST_F(ApplyPass, RunsAsANamedCommandEvenWithNothingTicked) {
    importUpdates(line("Name", "A"), [](ImportDialog& dialog) {
        dialog.apply();
        EXPECT_FALSE(dialog.shown().ended());
    });
    EXPECT_THAT(host_.undoNames, ElementsAre("Apply Quillmarsh updates"));
    EXPECT_THAT(host_.setAttributes, IsEmpty());
}

TEST_F(ApplyPass, FailedRowsAreTriedAgainAndNoOthers) {
    host_.attributes.Push(attribute("Tag", "1"));
    importUpdates(line("Name", "A") + line("Tag", "2"), [this](ImportDialog& dialog) {
        dialog.tick(1).apply().tick(2);
        host_.setError = APIERR_REFUSEDCMD;
        EXPECT_EQ(dialog.apply().row(2).remarks, "error!");
        host_.setError = NoError;
        EXPECT_EQ(dialog.apply().row(2).remarks, "Done");
        dialog.apply();
    });
    std::vector<std::string> names;
    for (const API_IFCAttribute& set : host_.setAttributes) names.push_back(narrow(set.attributeName));
    EXPECT_THAT(names, ElementsAre("Name", "Tag", "Tag"));
    EXPECT_EQ(host_.undoNames.size(), 4U);
}

TEST_F(ApplyPass, RowThatFailsTwiceCanBeTriedAThirdTime) {
    host_.setError = APIERR_REFUSEDCMD;
    importUpdates(line("Name", "A"), [this](ImportDialog& dialog) {
        const ImportRow failed = dialog.tick(1).apply().row(1);
        EXPECT_EQ(failed.remarks, "error!");
        EXPECT_EQ(dialog.apply().row(1), failed);
        host_.setError = NoError;
        EXPECT_EQ(dialog.apply().row(1).remarks, "Done");
    });
    EXPECT_EQ(host_.setAttributes.size(), 3U);
}

TEST_F(ApplyPass, AnyTickTextButTheExactOneCountsAsUnticked) {
    for (const char* text : {"[x]", "[X] ", " [X]", "X", ""}) {
        importUpdates(line("Name", "A"), [text](ImportDialog& dialog) {
            DGListSetTabItemText(dialog.shown().id(), ImportDialog::Review, 1, 1, text);
            dialog.apply();
        });
    }
    EXPECT_THAT(host_.setAttributes, IsEmpty());
}

TEST_F(ApplyPass, WritesWhatTheRowShows) {
    importUpdates(line("Name", "A"), [](ImportDialog& dialog) {
        DGListSetTabItemText(dialog.shown().id(), ImportDialog::Review, 1, 7, "typed over");
        dialog.tick(1).apply();
    });
    EXPECT_EQ(narrow(host_.setAttributes.at(0).attributeValue), "typed over");
}

TEST_F(ApplyPass, CommandThatTheHostRefusesLeavesTheRowsAsTheyAre) {
    host_.addOn.put<HostSlot::CallUndoableCommand>(nullptr);
    host_.addOn.bind();
    const auto rows = importUpdates(line("Name", "A"), [](ImportDialog& dialog) { dialog.tick(1).apply(); });
    EXPECT_EQ(rows[0].remarks, "");
    EXPECT_TRUE(rows[0].ticked());
}

}  // namespace
