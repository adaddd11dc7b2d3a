// Each line of the update file, checked against the model: what its row says.

#include "FakeHost.hpp"
#include "support/HostFixture.hpp"
#include "support/IfcText.hpp"

#include <gmock/gmock.h>

using namespace testing_support;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

constexpr const char* NotFound = " Property not found.";
constexpr const char* NoElement = " Element / Type not found.";
constexpr const char* Same = " Old and new values are the same.";

/// One wall with a bit of everything, and one without a name, in a real model.
class Validation : public HostFixture {
protected:
    void SetUp() override {
        IfcText ifc;
        const auto wall = ifc.element("IfcWall", guidText(1), "Wall-01");
        ifc.property(wall, "Pset_WallCommon", "FireRating", "IFCLABEL('60')");
        ifc.property(wall, "Pset_WallCommon", "IsExternal", "IFCBOOLEAN(.T.)");
        ifc.property(wall, "Pset_WallCommon", "Width", "IFCREAL(12.5)");
        ifc.property(wall, "Pset_Custom", "Note", "IFCLABEL('12.5')");
        ifc.property(wall, "Pset_Other", "FireRating", "IFCLABEL('90')");
        ifc.property(wall, "Pset_Custom", "Name", "IFCLABEL('a property')");
        ifc.classification(wall, "UniFormat Classification", "B2010", "Exterior Walls");
        ifc.element("IfcDoor", guidText(2), "");
        openText(ifc.text());
    }

    std::vector<ImportRow> rowsFor(std::string_view item, std::string_view value, unsigned element = 1) {
        return review(guidText(element) + "\t" + std::string(item) + "\tanything\t" + std::string(value) + "\n");
    }
    ImportRow rowFor(std::string_view item, std::string_view value, unsigned element = 1) {
        return rowsFor(item, value, element).at(0);
    }
};

TEST_F(Validation, RowShowsTheElementTheItemAndBothValues) {
    const ImportRow expected{"[  ]", "Wall-01", "Wall", guidText(1), "FireRating[WallCommon]",
                             "90",   "120",     "",     0,           false};
    EXPECT_EQ(rowFor("FireRating[WallCommon]", "120"), expected);
}

TEST_F(Validation, UnknownElementGivesNoRow) {
    const auto rows = review(guidText(99) + "\tName\t\tx\n" + guidText(1) + "\tName\t\tx\n");
    EXPECT_THAT(rows, ElementsAre(::testing::Field(&ImportRow::guid, guidText(1))));
}

TEST_F(Validation, TextThatIsNoGuidGivesNoRow) {
    EXPECT_THAT(review("Wall-01\tName\t\tx\n"), IsEmpty());
    EXPECT_THAT(review(guidText(1) + " \tName\t\tx\n"), IsEmpty());
    EXPECT_THAT(review("\xEF\xBB\xBF" + guidText(1) + "\tName\t\tx\n"), IsEmpty());
}

TEST_F(Validation, GuidIsShownAsWritten) {
    std::string lower = guidText(1);
    for (char& c : lower) c = static_cast<char>(std::tolower(c));
    EXPECT_EQ(review(lower + "\tName\t\tx\n").at(0).guid, lower);
}

TEST_F(Validation, AttributeNameGoesBeforeAPropertyOfThatName) {
    const ImportRow row = rowFor("Name", "x");
    EXPECT_EQ(row.name, "Wall-01");
    EXPECT_EQ(row.current, "Wall-01");
}

TEST_F(Validation, QualifierDoesNotRestrictTheMatch) {
    EXPECT_EQ(rowFor("FireRating[Nowhere]", "x").current, "90");
    EXPECT_EQ(rowFor("FireRating", "x").current, "90");
}

TEST_F(Validation, QualifierWithoutItsBracketIsCutAllTheSame) {
    EXPECT_EQ(rowFor("FireRating[B", "x").current, "90");
    EXPECT_EQ(rowFor("FireRating[", "x").current, "90");
    EXPECT_EQ(rowFor("FireRating[a[b]", "x").current, "90");
}

TEST_F(Validation, NamesAreComparedExactly) {
    for (const char* item : {"firerating", " FireRating", "FireRating ", "Pset_WallCommon", "FireRatin"})
        EXPECT_EQ(rowFor(item, "x").remarks, NotFound) << item;
}

TEST_F(Validation, ClassificationShowsItsItemReference) {
    EXPECT_EQ(rowFor("UniFormat Classification", "x").current, "B2010");
}

TEST_F(Validation, BooleanShortFormsBecomeWords) {
    EXPECT_EQ(rowFor("IsExternal", ".F.").proposed, "false");
    const ImportRow same = rowFor("IsExternal", ".T.");
    EXPECT_EQ(same.proposed, "true");
    EXPECT_EQ(same.remarks, Same);
}

TEST_F(Validation, OnlyTheExactShortFormsAreConverted) {
    for (const char* value : {".t.", ".T. ", " .T.", ".T.{x}", "T", ".U."})
        EXPECT_EQ(rowFor("IsExternal", value).proposed, value);
}

TEST_F(Validation, SuffixInBracesIsShownButNotCompared) {
    const ImportRow row = rowFor("Note", "12.5{IfcReal}");
    EXPECT_EQ(row.proposed, "12.5{IfcReal}");
    EXPECT_EQ(row.remarks, Same);
    EXPECT_EQ(rowFor("UniFormat Classification", "B2010{Another name}").remarks, Same);
}

TEST_F(Validation, RealIsShownWithSixDecimalsAndSoDiffers) {
    const ImportRow row = rowFor("Width", "12.5");
    EXPECT_EQ(row.current, "12.500000");
    EXPECT_EQ(row.remarks, "");
    EXPECT_EQ(rowFor("Width", "12.500000").remarks, Same);
}

TEST_F(Validation, SameValueDisablesTheRowWithoutColour) {
    const ImportRow row = rowFor("Name", "Wall-01");
    EXPECT_EQ(row.remarks, Same);
    EXPECT_EQ(row.status, 2);
    EXPECT_FALSE(row.red);
}

TEST_F(Validation, MissingItemLeavesTheRowTickable) {
    const ImportRow row = rowFor("Unknown[Custom]", "x");
    EXPECT_EQ(row.remarks, NotFound);
    EXPECT_EQ(row.current, "");
    EXPECT_EQ(row.status, 0);
    EXPECT_FALSE(row.red);
}

TEST_F(Validation, MissingItemAndEmptyValueAreTheSame) {
    const ImportRow row = rowFor("Unknown", "");
    EXPECT_EQ(row.remarks, std::string(NotFound) + Same);
    EXPECT_EQ(row.status, 2);
    EXPECT_FALSE(row.red);
}

TEST_F(Validation, ElementWithoutANameIsCalledMissing) {
    const ImportRow row = rowFor("Unknown", "x", 2);
    EXPECT_EQ(row.name, "");
    EXPECT_EQ(row.type, "Door");
    EXPECT_EQ(row.remarks, std::string(NotFound) + NoElement);
    EXPECT_EQ(row.status, 2);
    EXPECT_TRUE(row.red);
}

TEST_F(Validation, AllRemarksStandInTheirOrder) {
    const ImportRow row = rowFor("Unknown", "", 2);
    EXPECT_EQ(row.remarks, std::string(NotFound) + NoElement + Same);
    EXPECT_TRUE(row.red);
}

TEST_F(Validation, RowsStandInFileOrderUnticked) {
    const auto rows = review(guidText(2) + "\tName\t\tb\n" + guidText(1) + "\tName\t\ta\n");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].proposed, "b");
    EXPECT_EQ(rows[1].proposed, "a");
    for (const ImportRow& row : rows) EXPECT_EQ(row.tick, "[  ]");
}

// --- With records and failures of the test's own making ------------------------------------------------------------

class Validating : public FakeHostTest {
protected:
    ImportRow rowFor(std::string_view item, std::string_view value) { return review(line(item, value)).at(0); }
};

TEST_F(Validating, SourcesAreAskedInOrderUntilOneHasTheItem) {
    host_.properties.Push(property("Pset_A", "Note", stringValue("a")));
    rowFor("Name", "x");
    EXPECT_THAT(host_.asked, ElementsAre("attributes"));
    host_.asked.clear();
    rowFor("Note", "x");
    EXPECT_THAT(host_.asked, ElementsAre("attributes", "properties"));
    host_.asked.clear();
    rowFor("Unknown", "x");
    EXPECT_THAT(host_.asked, ElementsAre("attributes", "properties", "classifications"));
}

TEST_F(Validating, LastOfSeveralMatchesWins) {
    host_.attributes.Push(attribute("Tag", "first"));
    host_.attributes.Push(attribute("Tag", "last"));
    host_.attributes.Push(attribute("Name", "Renamed"));
    host_.properties.Push(property("Pset_A", "Note", stringValue("first")));
    host_.properties.Push(property("Pset_B", "Note", stringValue("last")));
    host_.classifications.Push(classification("System", "first", ""));
    host_.classifications.Push(classification("System", "last", ""));
    for (const char* item : {"Tag", "Note", "System"}) EXPECT_EQ(rowFor(item, "x").current, "last") << item;
    EXPECT_EQ(rowFor("Tag", "x").name, "Renamed");
}

TEST_F(Validating, MatchWithAnEmptyValueIsAMatch) {
    host_.properties.Push(property("Pset_A", "Note", stringValue("")));
    EXPECT_EQ(rowFor("Note", "x").remarks, "");
    EXPECT_EQ(rowFor("Note", "").remarks, Same);
}

TEST_F(Validating, FailingSourcesAreSkipped) {
    host_.classifications.Push(classification("System", "B2010", ""));
    host_.propertiesError = APIERR_GENERAL;
    EXPECT_EQ(rowFor("System", "x").current, "B2010");
    host_.classificationsError = APIERR_GENERAL;
    EXPECT_EQ(rowFor("System", "x").remarks, NotFound);
}

TEST_F(Validating, FailingAttributesLeaveTheElementWithoutAName) {
    host_.properties.Push(property("Pset_A", "Note", stringValue("a")));
    host_.attributesError = APIERR_GENERAL;
    const ImportRow row = rowFor("Note", "x");
    EXPECT_EQ(row.current, "a");
    EXPECT_EQ(row.remarks, NoElement);
    EXPECT_TRUE(row.red);
}

TEST_F(Validating, ElementWithoutANameAttributeIsCalledMissing) {
    host_.attributes.Clear();
    EXPECT_EQ(rowFor("Unknown", "x").remarks, std::string(NotFound) + NoElement);
}

TEST_F(Validating, TypeWithoutANameIsCalledMissing) {
    host_.typeName.reset();
    const ImportRow row = rowFor("Name", "x");
    EXPECT_EQ(row.type, "");
    EXPECT_EQ(row.remarks, NoElement);
    EXPECT_EQ(row.status, 2);
    EXPECT_TRUE(row.red);
}

TEST_F(Validating, AnyErrorOfTheElementDropsTheLine) {
    for (const GSErrCode error : std::vector<GSErrCode>{APIERR_BADID, APIERR_BADPARS, APIERR_DELETED, -1, 1}) {
        host_.elementError = error;
        EXPECT_THAT(review(line("Name", "x")), IsEmpty()) << error;
    }
}

TEST_F(Validating, TabsOfTheModelAreShownAsBlanks) {
    host_.attributes.Clear();
    host_.attributes.Push(attribute("Name", "Wall\t01"));
    host_.typeName = "Curtain\tWall";
    const ImportRow row = rowFor("Name", "x");
    EXPECT_EQ(row.name, "Wall 01");
    EXPECT_EQ(row.type, "Curtain Wall");
    EXPECT_EQ(row.current, "Wall 01");
    EXPECT_EQ(row.proposed, "x");
    EXPECT_EQ(row.remarks, "");
}

TEST_F(Validating, TabsOfTheModelCountInTheComparison) {
    host_.attributes.Push(attribute("Tag", "a\tb"));
    EXPECT_EQ(rowFor("Tag", "a b").remarks, "");
}

TEST_F(Validating, EachRowHasItsSevenTabs) {
    host_.attributes.Push(attribute("Tag", ""));
    importUpdates(line("Tag", ""), [](ImportDialog& dialog) {
        const std::string text(dialog.list().rowText(1).ToCStr());
        EXPECT_EQ(std::count(text.begin(), text.end(), '\t'), 7);
    });
}

TEST_F(Validating, ShortFormWithASuffixIsComparedAsTheShortForm) {
    host_.attributes.Push(attribute("Note", ".T."));
    EXPECT_EQ(review(line("Note", ".T.{x}"))[0].remarks, " Old and new values are the same.");
    // Alone it is a word when it is compared.
    EXPECT_EQ(review(line("Note", ".T."))[0].remarks, "");
}

TEST_F(Validating, AttributeNamesGoToTheDebugOutput) {
    host_.attributes.Push(attribute("100%s", "x"));
    host_.pickMenuItem(0);
    debug_.text.clear();
    review(line("Name", "x"));
    EXPECT_EQ(debug_.text, "Property: NameProperty: 100%s");
}

TEST_F(Validating, UsedUpMemoryEndsTheCommandInsteadOfDroppingTheLine) {
    host_.pickMenuItem(0);
    host_.inAttributes = [] { throw std::bad_alloc(); };
    view_.pickNextFile(folder_.write("updates.txt", line("Name", "first")).string());
    EXPECT_THROW(host_.pickMenuItem(1), std::bad_alloc);
    EXPECT_TRUE(frontend::openDialogs().empty());
}

TEST_F(Validating, ExceptionDropsTheLineAndGoesToTheDebugOutput) {
    host_.pickMenuItem(0);
    debug_.text.clear();
    host_.inAttributes = [this] {
        if (host_.asked.size() == 1) throw GS::GSException("the list is damaged");
    };
    const auto rows = review(line("Name", "first") + line("Name", "second"));
    EXPECT_THAT(rows, ElementsAre(::testing::Field(&ImportRow::proposed, "second")));
    EXPECT_THAT(debug_.text, HasSubstr("the list is damaged\n"));
}

}  // namespace
