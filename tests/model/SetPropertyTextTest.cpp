#include "TinyModel.hpp"

#include <gmock/gmock.h>

namespace {

using model::ErrorKind;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A wall whose one property is given as an instance of any class.
struct OneProperty {
    explicit OneProperty(const std::string& body, std::string schema = "IFC4") : ifc(std::move(schema)) {
        wall = ifc.element("IfcWall", "Wall");
        enumeration = ifc.add("IfcPropertyEnumeration",
                              {{"Name", "'Status'"}, {"EnumerationValues", "(IFCLABEL('NEW'),IFCLABEL('EXISTING'))"}});
        property = ifc.raw(body);
        ifc.give({wall}, ifc.set("S", {property}));
    }
    TinyModel ifc;
    Id wall, enumeration, property;
};

std::string single(const std::string& value) {
    return "IFCPROPERTYSINGLEVALUE('P',$," + value + ",$)";
}

model::Status set(Opened& model, std::string_view text, std::string type = {}) {
    model::Status status;
    const auto ran = model->command("Text", [&] {
        status = model->setPropertyText(0, {u"S", u"P", utf16(text), std::move(type)});
        return status ? 0 : 1;
    });
    EXPECT_TRUE(ran);
    return status;
}

struct TextRow {
    std::string before, text, type, after;
};

TEST(SetPropertyText, StoresWhatTheTextSays) {
    const TextRow table[] = {
        {single("IFCBOOLEAN(.T.)"), "false", "", single("IFCBOOLEAN(.F.)")},
        {single("IFCBOOLEAN(.T.)"), "", "", single("$")},
        {single("IFCINTEGER(9)"), "", "", single("$")},
        {single("IFCINTEGER(9)"), "9.5", "IfcReal", single("IFCREAL(9.5)")},
        {single("IFCINTEGER(2024)"), "2024-05-17", "IfcDate", single("IFCDATE('2024-05-17')")},
        {single("IFCINTEGER(171)"), "+49 171", "IfcLabel", single("IFCLABEL('+49 171')")},
        {single("IFCLABEL('true')"), ".T.", "", single("IFCLABEL('.T.')")},
        {single("IFCLABEL('x')"), "", "", single("IFCLABEL('')")},
        {single("IFCREAL( /* m */ 9. )"), "9.5", "", single("IFCREAL( /* m */ 9.5 )")},
        {single("$"), "x", "", single("IFCLABEL('x')")},
        {"IFCPROPERTYENUMERATEDVALUE('P',$,(IFCLABEL('NEW')),#2)", "existing", "",
         "IFCPROPERTYENUMERATEDVALUE('P',$,(IFCLABEL('EXISTING')),#2)"},
        {"IFCPROPERTYENUMERATEDVALUE('P',$,$,#2)", "NEW", "", "IFCPROPERTYENUMERATEDVALUE('P',$,(IFCLABEL('NEW')),#2)"},
    };
    for (const TextRow& row : table) {
        const OneProperty one(row.before);
        Opened model(one.ifc);
        ASSERT_EQ(one.enumeration, 2U);
        const auto status = set(model, row.text, row.type);
        ASSERT_TRUE(status) << row.before << ": " << status.error().message;
        EXPECT_EQ(model->bytes(), OneProperty(row.after).ifc.text()) << row.text;
        EXPECT_TRUE(model->undo());
        EXPECT_EQ(model->bytes(), one.ifc.text());
    }
}

struct RefusedRow {
    std::string before, text, type;
    ErrorKind kind;
    std::string message;
};

TEST(SetPropertyText, RefusesWhatThePropertyCannotHold) {
    const RefusedRow table[] = {
        {single("IFCINTEGER(9)"), "9.5", "", ErrorKind::BadValue, "\"9.5\""},
        {single("IFCREAL(9.)"), "9,5", "", ErrorKind::BadValue, "\"9,5\""},
        {single("IFCBOOLEAN(.T.)"), "maybe", "", ErrorKind::BadValue, "\"maybe\""},
        {single("IFCINTEGER(9)"), "x", "IfcNothing", ErrorKind::BadValue, "IfcNothing"},
        {"IFCPROPERTYENUMERATEDVALUE('P',$,(IFCLABEL('NEW')),#2)", "OLD", "", ErrorKind::BadValue,
         "\"OLD\" is none of the property's items (NEW, EXISTING)"},
        {"IFCPROPERTYENUMERATEDVALUE('P',$,(IFCLABEL('NEW')),$)", "NEW", "", ErrorKind::Refused,
         "the file does not say which items the property offers"},
        {"IFCPROPERTYLISTVALUE('P',$,(IFCLABEL('a')),$)", "b", "", ErrorKind::Refused,
         "the property holds no single value"},
    };
    for (const RefusedRow& row : table) {
        const OneProperty one(row.before);
        Opened model(one.ifc);
        const auto status = set(model, row.text, row.type);
        ASSERT_FALSE(status) << row.before;
        EXPECT_EQ(status.error().kind, row.kind) << status.error().message;
        EXPECT_THAT(status.error().message, HasSubstr(row.message));
        EXPECT_EQ(model->bytes(), one.ifc.text());
    }
}

TEST(SetPropertyText, IsSeenByTheNamedElementAlone) {
    TinyModel ifc("IFC4");
    const Id first = ifc.element("IfcWall", "First"), second = ifc.element("IfcWall", "Second");
    ifc.give({first, second}, ifc.set("S", {ifc.single("P", "IFCBOOLEAN(.T.)")}));
    Opened model(ifc);
    ASSERT_TRUE(set(model, "false"));
    EXPECT_EQ(model.property(0, "S", "P"), "false");
    EXPECT_EQ(model.property(1, "S", "P"), "true");
}

TEST(ChosenItems, AreTheTextsOfAnEnumeratedProperty) {
    const OneProperty one("IFCPROPERTYENUMERATEDVALUE('P',$,(IFCLABEL('NEW'),IFCINTEGER(5)),#2)");
    Opened model(one.ifc);
    EXPECT_THAT(model->chosenItems(0, {{u"S", u"P"}, {u"S", u"Q"}, {u"S", u"P"}}),
                ElementsAre(ElementsAre(u"NEW", u"5"), IsEmpty(), ElementsAre(u"NEW", u"5")));
    Opened other(OneProperty(single("IFCLABEL('NEW')")).ifc);
    EXPECT_THAT(other->chosenItems(0, {{u"S", u"P"}}), ElementsAre(IsEmpty()));
}

}  // namespace
