// The lookup dialog: one element's data as rows of name and value.

#include "FakeHost.hpp"
#include "support/HostFixture.hpp"
#include "support/IfcText.hpp"

#include <gmock/gmock.h>

using namespace testing_support;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsSupersetOf;
using ::testing::Pair;

namespace {

enum LookupItem : Int16 { LookUp = 1, Close = 2, GuidText = 3, Results = 4 };

constexpr const char* Sample = "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9";

class Lookup : public FakeHostTest {
protected:
    void inDialog(const std::function<void(frontend::Dialog&)>& user) {
        view_.inNextDialog(user);
        EXPECT_EQ(host_.pickMenuItem(2), NoError);
    }
};

// --- The dialog ----------------------------------------------------------------------------------------------------

TEST_F(Lookup, OpensWithTheSampleAndAnEmptyList) {
    inDialog([](frontend::Dialog& dialog) {
        EXPECT_EQ(narrow(dialog.item(GuidText)->text), Sample);
        EXPECT_EQ(dialog.list(Results)->rowCount(), 0);
    });
}

TEST_F(Lookup, ListHasTwoColumnsUnderTheirHeaders) {
    inDialog([](frontend::Dialog& dialog) {
        const frontend::List& list = *dialog.list(Results);
        const Int16 width = DGListGetItemWidth(dialog.id(), Results);
        const auto half = static_cast<Int16>(width / 2), end = static_cast<Int16>(half - 1);
        EXPECT_THAT(list.tabFields(), ElementsAre(frontend::TabField{0, end, 0, 0, true, true},
                                                  frontend::TabField{half, width, 0, 0, false, true}));
        ASSERT_EQ(list.header().size(), 2U);
        EXPECT_EQ(narrow(list.header()[0].text), "Property");
        EXPECT_EQ(narrow(list.header()[1].text), "Value");
        EXPECT_TRUE(list.headerVisible());
    });
}

TEST_F(Lookup, CloseEndsIt) {
    inDialog([](frontend::Dialog& dialog) {
        EXPECT_TRUE(dialog.clickItem(Close));
        EXPECT_TRUE(dialog.ended());
        EXPECT_EQ(dialog.result(), 2);
    });
}

TEST_F(Lookup, OtherItemsDoNothing) {
    inDialog([](frontend::Dialog& dialog) {
        dialog.clickRow(Results, 0, 5);
        EXPECT_FALSE(dialog.ended());
        EXPECT_EQ(dialog.list(Results)->rowCount(), 0);
    });
}

TEST_F(Lookup, GrowthMovesTheButtonsAndGrowsTextAndList) {
    inDialog([](frontend::Dialog& dialog) {
        const auto rect = [&](Int16 item) { return dialog.item(item)->rect; };
        const auto lookUp = rect(LookUp), close = rect(Close), text = rect(GuidText), list = rect(Results);
        const auto fields = dialog.list(Results)->tabFields();
        EXPECT_TRUE(dialog.resize(40, -20));
        EXPECT_EQ(rect(LookUp),
                  (frontend::Rect{lookUp.left + 40, lookUp.top - 20, lookUp.right + 40, lookUp.bottom - 20}));
        EXPECT_EQ(rect(Close), (frontend::Rect{close.left + 40, close.top - 20, close.right + 40, close.bottom - 20}));
        EXPECT_EQ(rect(GuidText), (frontend::Rect{text.left, text.top, text.right + 40, text.bottom}));
        EXPECT_EQ(rect(Results), (frontend::Rect{list.left, list.top, list.right + 40, list.bottom - 20}));
        EXPECT_EQ(dialog.list(Results)->tabFields(), fields);
    });
}

// --- The rows ------------------------------------------------------------------------------------------------------

TEST_F(Lookup, RowsComeFromEachSourceInTheHostsOrder) {
    host_.attributes.Push(attribute("Tag", "T1"));
    host_.properties.Push(property("Pset_WallCommon", "FireRating", integerValue(60)));
    host_.properties.Push(property("Loose", "Ratio", realValue(0.5)));
    host_.classifications.Push(classification("UniFormat Classification", "B2010", "Exterior Walls"));
    EXPECT_THAT(lookup(),
                ElementsAre(Pair("GUID", Sample), Pair("Type", "Wall"), Pair("Name", "Wall-01"), Pair("Tag", "T1"),
                            Pair("FireRating[Pset_WallCommon]", "60"), Pair("Ratio[Loose]", "0.500000"),
                            Pair("UniFormat Classification", "B2010 {Exterior Walls}")));
}

TEST_F(Lookup, SecondLookupAppendsItsRows) {
    inDialog([](frontend::Dialog& dialog) {
        dialog.clickItem(LookUp);
        const Int16 once = dialog.list(Results)->rowCount();
        dialog.clickItem(LookUp);
        EXPECT_EQ(dialog.list(Results)->rowCount(), 2 * once);
        for (Int16 row = 1; row <= once; ++row)
            EXPECT_EQ(dialog.list(Results)->rowText(row),
                      dialog.list(Results)->rowText(static_cast<Int16>(once + row)));
    });
}

TEST_F(Lookup, TextIsShownAsTyped) {
    EXPECT_THAT(lookup(" no guid "), Contains(Pair("GUID", " no guid ")));
}

struct ErrorCase {
    GSErrCode code;
    const char* name;
};

TEST_F(Lookup, NamedErrorsAreRowsAndEndTheLookup) {
    const ErrorCase cases[] = {{APIERR_BADID, "BADID"},
                               {APIERR_BADINDEX, "BADINDEX"},
                               {APIERR_BADPARS, "BADPARS"},
                               {APIERR_DELETED, "DELETED"}};
    for (const auto& [code, name] : cases) {
        host_.elementError = code;
        EXPECT_THAT(lookup(), ElementsAre(Pair("GUID", Sample), Pair("Error", name)));
    }
    EXPECT_TRUE(host_.asked.empty());
}

TEST_F(Lookup, OtherErrorsEndTheLookupInSilence) {
    for (const GSErrCode code : std::vector<GSErrCode>{APIERR_GENERAL, APIERR_BADNAME, APIERR_NOTSUPPORTED, -1, 1}) {
        host_.elementError = code;
        EXPECT_THAT(lookup(), ElementsAre(Pair("GUID", Sample))) << code;
    }
}

TEST_F(Lookup, TypeWithoutANameIsAnEmptyValue) {
    host_.typeName.reset();
    EXPECT_THAT(lookup(), Contains(Pair("Type", "")));
}

TEST_F(Lookup, FailingAttributesLeaveOneRowAndTheRestFollows) {
    host_.attributesError = APIERR_GENERAL;
    host_.properties.Push(property("Pset_A", "Note", stringValue("a")));
    EXPECT_THAT(lookup(),
                ElementsAre(Pair("GUID", Sample), Pair("Type", "Wall"), Pair("Err", "?"), Pair("Note[Pset_A]", "a")));
}

TEST_F(Lookup, FailingPropertiesAndClassificationsLeaveNoTrace) {
    host_.properties.Push(property("Pset_A", "Note", stringValue("a")));
    host_.classifications.Push(classification("System", "A", "b"));
    host_.propertiesError = APIERR_GENERAL;
    EXPECT_THAT(lookup(), ElementsAre(Pair("GUID", Sample), Pair("Type", "Wall"), Pair("Name", "Wall-01"),
                                      Pair("System", "A {b}")));
    host_.propertiesError = NoError;
    host_.classificationsError = APIERR_GENERAL;
    EXPECT_THAT(lookup(), ElementsAre(Pair("GUID", Sample), Pair("Type", "Wall"), Pair("Name", "Wall-01"),
                                      Pair("Note[Pset_A]", "a")));
}

TEST_F(Lookup, TabsOfTheModelAreShownAsBlanks) {
    host_.attributes.Push(attribute("Odd\tname", "odd\tvalue"));
    EXPECT_THAT(lookup(), Contains(Pair("Odd name", "odd value")));
}

TEST_F(Lookup, ReferenceWithoutANameShowsEmptyBraces) {
    host_.classifications.Push(classification("System", "", ""));
    EXPECT_THAT(lookup(), Contains(Pair("System", " {}")));
}

// --- In a real model -----------------------------------------------------------------------------------------------

class LookingUp : public HostFixture {
protected:
    void SetUp() override {
        IfcText ifc;
        const auto wall = ifc.element("IfcWall", guidText(1), "Wall-01");
        ifc.property(wall, "Pset_WallCommon", "FireRating", "IFCINTEGER(60)");
        ifc.classification(wall, "UniFormat Classification", "B2010", "Exterior Walls");
        openText(ifc.text());
    }
};

TEST_F(LookingUp, ListsAnElementsData) {
    using Row = std::pair<std::string, std::string>;
    const std::vector<Row> expected{{"GUID", guidText(1)},
                                    {"Type", "Wall"},
                                    {"Name", "Wall-01"},
                                    {"FireRating[Pset_WallCommon]", "60"},
                                    {"UniFormat Classification", "B2010 {Exterior Walls}"}};
    EXPECT_THAT(lookup(guidText(1)), IsSupersetOf(expected));
}

TEST_F(LookingUp, EmptyTextIsTheNullGuid) {
    EXPECT_THAT(lookup(""), ElementsAre(Pair("GUID", ""), Pair("Error", "BADPARS")));
}

TEST_F(LookingUp, UnknownElementIsABadId) {
    EXPECT_THAT(lookup(guidText(99)), ElementsAre(Pair("GUID", guidText(99)), Pair("Error", "BADID")));
}

TEST_F(LookingUp, ChangesNothing) {
    const std::string before = savedText();
    lookup(guidText(1));
    EXPECT_EQ(savedText(), before);
    EXPECT_FALSE(host_.model()->undoSteps().undo.has_value());
}

}  // namespace
