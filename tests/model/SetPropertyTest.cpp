#include "TinyModel.hpp"

#include <gmock/gmock.h>

namespace {

using model::ErrorKind;
using model::Primitive;
using testing::HasSubstr;

/// One wall with one property of its own.
struct OneProperty {
    OneProperty(std::string schema, std::string value) : ifc(std::move(schema)) {
        wall = ifc.element("IfcWall", "Wall");
        property = ifc.single("P", value);
        set = ifc.set("S", {property});
        relation = ifc.give({wall}, set);
    }
    TinyModel ifc;
    Id wall, property, set, relation;
};

struct SetRow {
    std::string_view schema, before, text, after;
};

TEST(SetProperty, ReplacesTheValueAndKeepsTheType) {
    const SetRow table[] = {
        {"IFC4", "IFCLABEL('a')", "b's", "IFCLABEL('b''s')"},
        {"IFC4", "IfcLabel( /* old */ 'a' )", "b", "IfcLabel( /* old */ 'b' )"},
        {"IFC4", "IFCLABEL('a')", "", "IFCLABEL('')"},
        {"IFC4", "IFCREAL(1.)", "2.25", "IFCREAL(2.25)"},
        {"IFC4", "IFCREAL(1.)", "1e-05", "IFCREAL(1.E-05)"},
        {"IFC4", "IFCPOSITIVELENGTHMEASURE(1.)", "3", "IFCPOSITIVELENGTHMEASURE(3.)"},
        {"IFC4", "IFCINTEGER(1)", "-12", "IFCINTEGER(-12)"},
        {"IFC4", "IFCBOOLEAN(.F.)", "true", "IFCBOOLEAN(.T.)"},
        {"IFC4", "IFCLOGICAL(.U.)", "false", "IFCLOGICAL(.F.)"},
        {"IFC4", "IFCLOGICAL(.F.)", "unknown", "IFCLOGICAL(.U.)"},
        {"IFC2X3", "IFCCOUNTMEASURE(3.)", "4", "IFCCOUNTMEASURE(4.)"},
        {"IFC4X3", "IFCCOUNTMEASURE(3)", "4", "IFCCOUNTMEASURE(4)"},
        {"IFC4", "$", "new", "IFCLABEL('new')"},
        {"IFC4", "'bare'", "new", "'new'"},
    };
    for (const SetRow& row : table) {
        OneProperty one{std::string(row.schema), std::string(row.before)};
        Opened model(one.ifc);
        const auto status = model.setProperty(0, "S", "P", row.text);
        ASSERT_TRUE(status) << row.before << ": " << status.error().message;
        const OneProperty expected{std::string(row.schema), std::string(row.after)};
        EXPECT_EQ(model->bytes(), expected.ifc.text()) << row.before;
        EXPECT_TRUE(model->undo());
        EXPECT_EQ(model->bytes(), one.ifc.text());
    }
}

TEST(SetProperty, WithoutAValueBecomesALabelOrAText) {
    for (const auto& [length, type] : {std::pair<std::size_t, std::string>{255, "IFCLABEL("}, {256, "IFCTEXT("}}) {
        for (const std::string schema : {"IFC2X3", "IFC4"}) {
            OneProperty one(schema, "$");
            Opened model(one.ifc);
            EXPECT_TRUE(model.setProperty(0, "S", "P", std::string(length, 'x')));
            EXPECT_THAT(model->bytes(), HasSubstr(type)) << schema;
        }
    }
}

TEST(SetProperty, AnEqualValueChangesNothing) {
    const std::pair<std::string_view, std::string_view> table[] = {
        {"IFCLABEL('\\X\\C4')", "Ä"}, {"IFCREAL(2.50)", "2.5"},       {"IFCREAL(2)", "2"},
        {"IFCINTEGER(007)", "7"},     {"IFCBOOLEAN(.t.)", "true"},    {"$", ""},
        {"IFCLABEL('')", ""},         {"IFCLOGICAL(.U.)", "unknown"}, {"IFCINTEGER(7.5)", "9"},
        {"IFCBINARY(\"1\")", ""},     {"IFCFUTURE('x')", ""}};
    for (const auto& [before, text] : table) {
        OneProperty one("IFC4", std::string(before));
        Opened model(one.ifc);
        EXPECT_TRUE(model.setProperty(0, "S", "P", text)) << before;
        EXPECT_EQ(model->bytes(), one.ifc.text()) << before;
        EXPECT_FALSE(model->undoSteps().undo.has_value());
    }
}

TEST(SetProperty, ThatIsNoSingleValueChangesNothingAndSucceeds) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    const Id list = ifc.add("IfcPropertyListValue", {{"Name", "'P'"}, {"ListValues", "(IFCLABEL('a'))"}});
    ifc.give({wall}, ifc.set("S", {list}));
    Opened model(ifc);
    EXPECT_TRUE(model.setProperty(0, "S", "P", "x"));
    EXPECT_EQ(model->bytes(), ifc.text());
}

struct LimitRow {
    std::string_view schema, type, before;
    std::string accepted, refused;
    std::string_view reason;
};

TEST(SetProperty, StaysWithinTheLimitsOfTheType) {
    const LimitRow table[] = {
        {"IFC4", "IFCLABEL", "'a'", std::string(254, 'x'), std::string(256, 'x'), "IfcLabel holds at most 255"},
        {"IFC4", "IFCLABEL", "'a'", std::string(255, 'x'), std::string(256, 'x'), "256 characters"},
        {"IFC4", "IFCIDENTIFIER", "'a'", std::string(255, 'x'), std::string(256, 'x'), "IfcIdentifier"},
        {"IFC4", "IFCPOSITIVELENGTHMEASURE", "1.", "0.001", "0", "is not above 0"},
        {"IFC4", "IFCPOSITIVELENGTHMEASURE", "1.", "1", "-0.001", "is not above 0"},
        {"IFC4", "IFCNONNEGATIVELENGTHMEASURE", "1.", "0", "-0.001", "is not at least 0"},
        {"IFC4", "IFCNORMALISEDRATIOMEASURE", "0.5", "0", "-0.01", "is not at least 0"},
        {"IFC4", "IFCNORMALISEDRATIOMEASURE", "0.5", "1", "1.01", "is not at most 1"},
        {"IFC4", "IFCPHMEASURE", "7.", "14", "14.1", "is not at most 14"},
        {"IFC4", "IFCMONTHINYEARNUMBER", "6", "1", "0", "is not at least 1"},
        {"IFC4", "IFCMONTHINYEARNUMBER", "6", "12", "13", "is not at most 12"},
        {"IFC4", "IFCPOSITIVEINTEGER", "6", "1", "0", "is not above 0"},
        {"IFC2X3", "IFCSECONDINMINUTE", "6.", "59.9", "60", "is not below 60"},
        {"IFC4", "IFCFONTSTYLE", "'italic'", "normal", "bold", "is none of the texts of IfcFontStyle"},
        {"IFC4", "IFCREAL", "1.", "1e308", "1e999", "is not finite"},
        {"IFC4", "IFCREAL", "1.", "-1", "nan", "is not finite"},
    };
    for (const LimitRow& row : table) {
        OneProperty one{std::string(row.schema), std::string(row.type) + "(" + std::string(row.before) + ")"};
        Opened model(one.ifc);
        const auto refused = model.setProperty(0, "S", "P", row.refused);
        ASSERT_FALSE(refused) << row.type << " " << row.refused;
        EXPECT_EQ(refused.error().kind, ErrorKind::BadValue) << row.type;
        EXPECT_THAT(refused.error().message, HasSubstr(std::string(row.reason)));
        EXPECT_EQ(model->bytes(), one.ifc.text());
        EXPECT_TRUE(model.setProperty(0, "S", "P", row.accepted)) << row.type << " " << row.accepted;
    }
}

TEST(SetProperty, NeedsNames) {
    TinyModel ifc;
    ifc.element("IfcWall", "Wall");
    Opened model(ifc);
    const std::string tooLong(256, 'x');
    for (const auto& [set, name] :
         {std::pair<std::string, std::string>{"", "P"}, {"S", ""}, {tooLong, "P"}, {"S", tooLong}}) {
        const auto status = model.setProperty(0, set, name, "x");
        ASSERT_FALSE(status);
        EXPECT_EQ(status.error().kind, ErrorKind::BadName);
        EXPECT_EQ(model->bytes(), ifc.text());
    }
    EXPECT_TRUE(model.setProperty(0, std::string(255, 's'), std::string(255, 'p'), "x"));
}

TEST(SetProperty, OfAnotherKindThanTheOneThereIsRefused) {
    OneProperty one("IFC4", "IFCREAL(1.)");
    Opened model(one.ifc);
    model::Property wanted{u"S", u"P", model::PropertyKind::Single, false, valueOf("IfcLabel", Primitive::String, "x")};
    model::Status status;
    ASSERT_TRUE(model->command("c", [&] {
        status = model->setProperty(0, wanted);
        return 0;
    }));
    ASSERT_FALSE(status);
    EXPECT_EQ(status.error().kind, ErrorKind::BadValue);
}

TEST(SetProperty, ThatCannotBeDecodedIsNotOverwrittenBlindly) {
    OneProperty one("IFC4", "IFCLABEL('\\X2\\00')");
    Opened model(one.ifc);
    const auto status = model.setProperty(0, "S", "P", "x");
    ASSERT_FALSE(status);
    EXPECT_EQ(status.error().kind, ErrorKind::Refused);
    EXPECT_THAT(status.error().message, HasSubstr("cannot be decoded"));
}

TEST(SetProperty, OutsideACommandIsRefused) {
    OneProperty one("IFC4", "IFCLABEL('a')");
    Opened model(one.ifc);
    const auto status = model->setProperty(0, {u"S", u"P", model::PropertyKind::Single, false, {}});
    ASSERT_FALSE(status);
    EXPECT_EQ(status.error().kind, ErrorKind::Refused);
}

TEST(NewProperty, GoesIntoTheElementsOwnSetOfThatName) {
    OneProperty one("IFC4", "IFCLABEL('a')");
    Opened model(one.ifc);
    ASSERT_TRUE(model.setProperty(0, "S", "New", "5", "IfcInteger"));
    EXPECT_EQ(model.property(0, "S", "New"), "5");
    const std::string bytes = model->bytes();
    EXPECT_THAT(bytes, HasSubstr("#5=IFCPROPERTYSINGLEVALUE('New',$,IFCINTEGER(5),$);"));
    EXPECT_THAT(bytes, HasSubstr("'S',$,(#2,#5))"));
}

TEST(NewProperty, GoesIntoANewSetWhereThereIsNone) {
    for (const std::string schema : {"IFC2X3", "IFC4", "IFC4X3"}) {
        TinyModel ifc(schema);
        ifc.element("IfcWall", "Wall");
        ifc.element("IfcWall", "Other");
        Opened model(ifc);
        const std::string other = model.data(1);
        ASSERT_TRUE(model.setProperty(0, "Pset_New", "Note", "text"));
        EXPECT_EQ(model.property(0, "Pset_New", "Note"), "text");
        EXPECT_EQ(model.data(1), other);
        // Where the schema wants an owner history, it is the element's.
        const bool hasNoHistory = model->bytes().find("',$,'Pset_New'") != std::string::npos;
        EXPECT_EQ(hasNoHistory, schema != "IFC2X3") << schema;
        EXPECT_TRUE(model->undo());
        EXPECT_EQ(model->bytes(), ifc.text());
    }
}

TEST(NewProperty, BytesFollowFromTheUpdatesAlone) {
    TinyModel ifc;
    ifc.element("IfcWall", "Wall");
    std::string first;
    for (int i = 0; i < 2; ++i) {
        Opened model(ifc);
        ASSERT_TRUE(model.setProperty(0, "Pset_New", "Note", "text"));
        if (i == 0) first = model->bytes();
        EXPECT_EQ(model->bytes(), first);
        ASSERT_TRUE(model->undo());
        ASSERT_TRUE(model.setProperty(0, "Pset_New", "Note", "text"));
        EXPECT_EQ(model->bytes(), first) << "after an undo";
        ASSERT_TRUE(model->undo());
        ASSERT_TRUE(model->redo());
        EXPECT_EQ(model->bytes(), first) << "after a redo";
    }
}

TEST(NewProperty, GlobalIdsAreNeverTakenTwice) {
    TinyModel ifc;
    ifc.element("IfcWall", "Wall");
    Opened model(ifc);
    ASSERT_TRUE(model.setProperty(0, "Pset_New", "Note", "text"));
    // The relation is gone, the set it gave is not: the same set is asked for once more.
    std::string bytes = model->bytes();
    const auto relation = bytes.find("#4=IFCRELDEFINESBYPROPERTIES");
    ASSERT_NE(relation, std::string::npos);
    bytes.erase(relation, bytes.find('\n', relation) + 1 - relation);
    Opened again(bytes);
    ASSERT_EQ(again.property(0, "Pset_New", "Note"), "(none)");
    ASSERT_TRUE(again.setProperty(0, "Pset_New", "Note", "text"));
    const std::string after = again->bytes();
    const auto globalIdAt = [&](std::string_view keyword, std::size_t from) {
        return after.substr(after.find(keyword, from) + keyword.size(), 24);
    };
    const auto firstSet = after.find("IFCPROPERTYSET(");
    EXPECT_NE(globalIdAt("IFCPROPERTYSET(", firstSet), globalIdAt("IFCPROPERTYSET(", firstSet + 1));
}

TEST(NewProperty, OfATypeThatNoPropertyHasIsRefused) {
    TinyModel ifc;
    ifc.element("IfcWall", "Wall");
    Opened model(ifc);
    for (const std::string type : {"IfcNoSuch", "IfcWallTypeEnum", "IfcComplexNumber"}) {
        model::Property wanted{u"S", u"P", model::PropertyKind::Single, false, valueOf(type, Primitive::String, "x")};
        model::Status status;
        ASSERT_TRUE(model->command("c", [&] {
            status = model->setProperty(0, wanted);
            return 0;
        }));
        ASSERT_FALSE(status) << type;
        EXPECT_EQ(status.error().kind, ErrorKind::BadValue);
        EXPECT_EQ(model->bytes(), ifc.text());
    }
}

TEST(NewProperty, WithTheNameOfAComplexOneIsRefused) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    const Id complex = ifc.add("IfcComplexProperty", {{"Name", "'P'"}, {"UsageName", "''"}, {"HasProperties", "()"}});
    ifc.give({wall}, ifc.set("S", {complex}));
    Opened model(ifc);
    const auto status = model.setProperty(0, "S", "P", "x");
    ASSERT_FALSE(status);
    EXPECT_THAT(status.error().message, HasSubstr("complex property of that name"));
    EXPECT_EQ(model->bytes(), ifc.text());
}

TEST(NewProperty, InOneOfTwoSetsOfThatNameIsNoted) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    ifc.give({wall}, ifc.set("S", {ifc.single("A", "IFCLABEL('1')")}));
    ifc.give({wall}, ifc.set("S", {ifc.single("A", "IFCLABEL('2')")}));
    Opened model(ifc);
    ASSERT_TRUE(model.setProperty(0, "S", "A", "x"));
    EXPECT_THAT(model->takeNotes(), testing::ElementsAre(HasSubstr("2 property sets \"S\"")));
    EXPECT_EQ(model.property(0, "S", "A"), "x");
}

}  // namespace
