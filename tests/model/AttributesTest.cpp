#include "TinyModel.hpp"

#include <gmock/gmock.h>

namespace {

using model::ErrorKind;
using testing::HasSubstr;
using testing::IsEmpty;

std::string names(Opened& model) {
    std::string all;
    const auto attributes = model->attributes(0);
    for (const auto& attribute : *attributes) all += std::string(attribute.name) + " ";
    return all;
}

TEST(Attributes, ListSingleValuesInSchemaOrderWithoutReferencesAndAggregates) {
    const std::pair<std::string_view, std::string_view> table[] = {
        {"IFC2X3", "GlobalId Name Description ObjectType LongName CompositionType RefElevation LandTitleNumber "},
        {"IFC4", "GlobalId Name Description ObjectType LongName CompositionType RefElevation LandTitleNumber "},
        {"IFC4X3", "GlobalId Name Description ObjectType LongName CompositionType RefElevation LandTitleNumber "}};
    for (const auto& [schema, expected] : table) {
        TinyModel ifc{std::string(schema)};
        ifc.element("IfcSite", "Site", {{"RefLatitude", "(48,8,0)"}});
        Opened model(ifc);
        EXPECT_EQ(names(model), expected) << schema;
    }
}

struct TextRow {
    std::string_view ifcClass, attribute, step, text;
};

TEST(Attributes, AreShownAsTexts) {
    const TextRow table[] = {
        {"IfcWall", "Name", "'It''s'", "It's"},
        {"IfcWall", "Name", "'\\X2\\00C4\\X0\\'", "Ä"},
        {"IfcWall", "Name", "$", ""},
        {"IfcWall", "Name", "''", ""},
        {"IfcWall", "Name", "*", ""},
        {"IfcWall", "PredefinedType", ".SOLIDWALL.", "SOLIDWALL"},
        {"IfcWall", "PredefinedType", "$", ""},
        {"IfcWall", "Name", "12", "12"},
        {"IfcDoor", "OverallHeight", "2.1", "2.1"},
        {"IfcDoor", "OverallHeight", "2.", "2"},
        {"IfcDoor", "OverallHeight", "1.E-05", "1e-05"},
        {"IfcDoor", "OverallHeight", "2", "2"},
        {"IfcDoor", "OverallHeight", "0.1", "0.1"},
        {"IfcDistributionPort", "FlowDirection", ".SOURCE.", "SOURCE"},
        {"IfcStairFlight", "NumberOfRisers", "+0012", "12"},
        {"IfcStairFlight", "NumberOfRisers", "99999999999999999999", "99999999999999999999"},
        {"IfcStructuralCurveAction", "DestabilizingLoad", ".T.", "true"},
        {"IfcStructuralCurveAction", "DestabilizingLoad", ".F.", "false"},
        {"IfcStructuralCurveAction", "DestabilizingLoad", ".U.", "unknown"},
    };
    for (const TextRow& row : table) {
        TinyModel ifc;
        ifc.add(row.ifcClass, {{row.attribute, std::string(row.step)}});
        Opened model(ifc);
        EXPECT_EQ(model.attribute(0, row.attribute), row.text) << row.attribute << " " << row.step;
    }
}

struct SetRow {
    std::string_view schema, ifcClass, attribute, before, text, after;
};

/// The bytes of the only element.
std::string elementText(Opened& model) {
    const std::string bytes = model->bytes();
    const auto begin = bytes.rfind("\n#", bytes.find("ENDSEC;", bytes.find("DATA;"))) + 1;
    return bytes.substr(begin, bytes.find('\n', begin) - begin);
}

TEST(Attributes, AreWrittenByTheirDeclaredType) {
    const SetRow table[] = {
        {"IFC4", "IfcWall", "Name", "'a'", "Tür's", "'T\\X2\\00FC\\X0\\r''s'"},
        {"IFC4", "IfcWall", "Name", "'a'", "", "$"},
        {"IFC4", "IfcWall", "Name", "$", "x", "'x'"},
        {"IFC4", "IfcWall", "PredefinedType", "$", "SOLIDWALL", ".SOLIDWALL."},
        {"IFC4", "IfcWall", "PredefinedType", "$", "solidwall", ".SOLIDWALL."},
        {"IFC4", "IfcWall", "PredefinedType", ".SOLIDWALL.", "", "$"},
        {"IFC4", "IfcDoor", "OverallHeight", "2.1", "2.5", "2.5"},
        {"IFC4", "IfcDoor", "OverallHeight", "2.1", "3", "3."},
        {"IFC4", "IfcDoor", "OverallHeight", "2.1", "1e3", "1000."},
        {"IFC4", "IfcDoor", "OverallHeight", "2.1", "0.0001", "0.0001"},
        {"IFC4", "IfcStairFlight", "NumberOfRisers", "$", "+7", "7"},
        {"IFC4", "IfcStructuralCurveAction", "DestabilizingLoad", "$", "true", ".T."},
        {"IFC4", "IfcStructuralCurveAction", "DestabilizingLoad", ".T.", "False", ".F."},
        {"IFC2X3", "IfcSite", "CompositionType", ".ELEMENT.", "PARTIAL", ".PARTIAL."},
        {"IFC4X3", "IfcSite", "RefElevation", "1.", "-.5", "-0.5"},
    };
    for (const SetRow& row : table) {
        TinyModel ifc{std::string(row.schema)};
        ifc.add(row.ifcClass, {{row.attribute, std::string(row.before)}});
        Opened model(ifc);
        const std::string before = elementText(model);
        const auto status = model.setAttribute(0, row.attribute, row.text);
        ASSERT_TRUE(status) << row.attribute << " " << row.text << ": " << status.error().message;
        TinyModel expected{std::string(row.schema)};
        expected.add(row.ifcClass, {{row.attribute, std::string(row.after)}});
        Opened expectedModel(expected);
        EXPECT_EQ(elementText(model), elementText(expectedModel)) << row.attribute << " " << row.text;
        EXPECT_TRUE(model->undo());
        EXPECT_EQ(elementText(model), before);
    }
}

TEST(Attributes, AnEqualValueChangesNothing) {
    const TextRow table[] = {
        {"IfcWall", "Name", "'\\X\\C4'", "Ä"},
        {"IfcWall", "Name", "$", ""},
        {"IfcWall", "Name", "''", ""},
        {"IfcDoor", "OverallHeight", "2.10", "2.1"},
        {"IfcDoor", "OverallHeight", "2", "2.00"},
        {"IfcWall", "PredefinedType", ".solidwall.", "SOLIDWALL"},
        {"IfcStairFlight", "NumberOfRisers", "007", "7"},
    };
    for (const TextRow& row : table) {
        TinyModel ifc;
        ifc.add(row.ifcClass, {{row.attribute, std::string(row.step)}});
        Opened model(ifc);
        EXPECT_TRUE(model.setAttribute(0, row.attribute, row.text)) << row.step;
        EXPECT_EQ(model->bytes(), ifc.text()) << row.step;
        EXPECT_FALSE(model->undoSteps().undo.has_value());
    }
}

struct RefusalRow {
    std::string_view schema, ifcClass, attribute, before;
    std::string text;
    ErrorKind kind;
    std::string_view message;
};

TEST(Attributes, AreRefusedWithTheReason) {
    const std::string longest(255, 'x'), tooLong(256, 'x');
    const RefusalRow table[] = {
        {"IFC4", "IfcWall", "NoSuch", "", "x", ErrorKind::BadName, "IfcWall has no such attribute"},
        {"IFC4", "IfcWall", "name", "", "x", ErrorKind::BadName, "IfcWall has no such attribute"},
        {"IFC4", "IfcWall", "OwnerHistory", "$", "x", ErrorKind::BadName, "no such attribute"},
        {"IFC4", "IfcWall", "ObjectPlacement", "$", "x", ErrorKind::BadName, "no such attribute"},
        {"IFC4", "IfcSite", "RefLatitude", "$", "48", ErrorKind::BadName, "no such attribute"},
        {"IFC4", "IfcWall", "GlobalId", "", "2ZAJ77ix915urgC3ZTJffu", ErrorKind::ReadOnly, "GlobalId identifies"},
        {"IFC4", "IfcWall", "Name", "'a'", tooLong, ErrorKind::BadValue,
         "is 256 characters long; IfcLabel holds at most 255"},
        {"IFC4X3", "IfcWall", "Tag", "'a'", tooLong, ErrorKind::BadValue, "IfcIdentifier holds at most 255"},
        {"IFC4", "IfcWall", "PredefinedType", "$", "WOODEN", ErrorKind::BadValue,
         "\"WOODEN\" is no item of IfcWallTypeEnum (MOVABLE, "},
        {"IFC4", "IfcDoor", "OverallHeight", "2.1", "high", ErrorKind::BadValue, "\"high\" is no number"},
        {"IFC4", "IfcDoor", "OverallHeight", "2.1", "2,1", ErrorKind::BadValue, "the decimal sign is a point"},
        {"IFC4", "IfcDoor", "OverallHeight", "2.1", " 2", ErrorKind::BadValue, "is no number"},
        {"IFC4", "IfcDoor", "OverallHeight", "2.1", "inf", ErrorKind::BadValue, "is no number"},
        {"IFC4", "IfcDoor", "OverallHeight", "2.1", "nan", ErrorKind::BadValue, "is no number"},
        {"IFC4", "IfcDoor", "OverallHeight", "2.1", "0x10", ErrorKind::BadValue, "is no number"},
        {"IFC4", "IfcDoor", "OverallHeight", "2.1", "1e400", ErrorKind::BadValue, "outside the range of real numbers"},
        {"IFC4", "IfcDoor", "OverallHeight", "2.1", "0", ErrorKind::BadValue,
         "is not above 0, as IfcPositiveLengthMeasure asks"},
        {"IFC4", "IfcDoor", "OverallHeight", "2.1", "-1", ErrorKind::BadValue, "is not above 0"},
        {"IFC4", "IfcStairFlight", "NumberOfRisers", "$", "1.5", ErrorKind::BadValue, "is no whole number"},
        {"IFC4", "IfcStairFlight", "NumberOfRisers", "$", "1x", ErrorKind::BadValue, "is no whole number"},
        {"IFC4", "IfcStairFlight", "NumberOfRisers", "$", "+-1", ErrorKind::BadValue, "is no whole number"},
        {"IFC4", "IfcStairFlight", "NumberOfRisers", "$", "9223372036854775808", ErrorKind::BadValue, "64-bit"},
        {"IFC4", "IfcStructuralCurveAction", "DestabilizingLoad", "$", "yes", ErrorKind::BadValue,
         "is neither true nor false"},
        {"IFC4", "IfcStructuralCurveAction", "DestabilizingLoad", "$", "unknown", ErrorKind::BadValue,
         "is neither true nor false"},
        {"IFC2X3", "IfcSite", "CompositionType", ".ELEMENT.", "", ErrorKind::BadValue, "must have a value"},
        {"IFC4", "IfcWall", "Name", "*", "x", ErrorKind::Refused, "derived from other attributes"},
        {"IFC4", "IfcWall", "Name", "'\\X2\\00'", "x", ErrorKind::Refused, "cannot be decoded"},
        {"IFC4", "IfcWall", "Name", "#1", "x", ErrorKind::Refused, "no value of its type"},
        {"IFC4", "IfcWall", "Name", "('a')", "x", ErrorKind::Refused, "no value of its type"},
    };
    for (const RefusalRow& row : table) {
        TinyModel ifc{std::string(row.schema)};
        Values values;
        if (!row.before.empty()) values.emplace_back(row.attribute, std::string(row.before));
        ifc.add(row.ifcClass, values);
        Opened model(ifc);
        const auto status = model.setAttribute(0, row.attribute, row.text);
        ASSERT_FALSE(status) << row.attribute << " " << row.text;
        EXPECT_EQ(status.error().kind, row.kind) << row.attribute << " " << row.text;
        EXPECT_THAT(status.error().message, HasSubstr(std::string(row.message)));
        EXPECT_EQ(model->bytes(), ifc.text()) << "a refused change left something";
    }
    TinyModel ifc;
    ifc.element("IfcWall", "Wall");
    Opened model(ifc);
    EXPECT_TRUE(model.setAttribute(0, "Name", longest));
    EXPECT_EQ(model.attribute(0, "Name"), longest);
}

TEST(Attributes, LengthIsCountedInCharactersNotUnits) {
    TinyModel ifc;
    ifc.element("IfcWall", "Wall");
    Opened model(ifc);
    std::string pairs;
    for (int i = 0; i < 255; ++i) pairs += "\xF0\x9F\x8F\xA0";  // U+1F3E0, two UTF-16 units
    EXPECT_TRUE(model.setAttribute(0, "Name", pairs));
    EXPECT_EQ(model.attribute(0, "Name"), pairs);
    EXPECT_FALSE(model.setAttribute(0, "Name", pairs + "x"));
}

TEST(Attributes, LabelsOfIfc2x3HaveNoLimit) {
    TinyModel ifc("IFC2X3");
    ifc.element("IfcWall", "Wall");
    Opened model(ifc);
    EXPECT_TRUE(model.setAttribute(0, "Name", std::string(300, 'x')));
}

TEST(Attributes, AreNotChangedOutsideACommand) {
    TinyModel ifc;
    ifc.element("IfcWall", "Wall");
    Opened model(ifc);
    const auto status = model->setAttribute(0, "Name", u"x");
    ASSERT_FALSE(status);
    EXPECT_EQ(status.error().kind, ErrorKind::Refused);
}

TEST(Attributes, AnInstanceWithTooFewArgumentsShowsTheRestEmptyAndKeepsThem) {
    TinyModel ifc;
    ifc.raw("IFCWALL('" + TinyModel::globalIdText(1) + "',$,'Short')");
    Opened model(ifc);
    EXPECT_EQ(model.attribute(0, "Name"), "Short");
    EXPECT_EQ(model.attribute(0, "Tag"), "");
    const auto status = model.setAttribute(0, "Tag", "x");
    ASSERT_FALSE(status);
    EXPECT_EQ(status.error().kind, ErrorKind::Refused);
    EXPECT_TRUE(model.setAttribute(0, "Name", "Still short"));
}

TEST(Attributes, OfAnInstanceWhoseIdIsRepeatedAreReadButNotChanged) {
    TinyModel ifc;
    ifc.element("IfcWall", "Twice");
    std::string text = ifc.text();
    text.insert(text.find("ENDSEC;\nEND"), "#1=IFCLABEL('x');\n");
    Opened model(text);
    EXPECT_EQ(model.attribute(0, "Name"), "Twice");
    const auto status = model.setAttribute(0, "Name", "x");
    ASSERT_FALSE(status);
    EXPECT_EQ(status.error().kind, ErrorKind::Refused);
}

TEST(Attributes, AChangeToAnElementWithDuplicatesIsNotedOnce) {
    TinyModel ifc;
    const std::string id = "'" + TinyModel::globalIdText(500) + "'";
    ifc.element("IfcWall", "First", {{"GlobalId", id}});
    ifc.element("IfcWall", "Second", {{"GlobalId", id}});
    Opened model(ifc);
    EXPECT_TRUE(model.setAttribute(0, "Name", "First"));
    EXPECT_THAT(model->takeNotes(), IsEmpty());
    EXPECT_TRUE(model.setAttribute(0, "Name", "Changed"));
    EXPECT_THAT(model->takeNotes(), testing::ElementsAre(HasSubstr("only the first instance, #1, is changed")));
    EXPECT_TRUE(model.setAttribute(0, "Name", "Again"));
    EXPECT_THAT(model->takeNotes(), IsEmpty());
}

}  // namespace
