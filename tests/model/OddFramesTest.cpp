// Files framed in unusual ways, edited so that something is changed in place and something is added.

#include "TinyModel.hpp"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

std::string gid(unsigned number) {
    return "'" + TinyModel::globalIdText(number) + "'";
}

std::string replaced(std::string text, const std::string& what, const std::string& with) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

const std::string Wall = "#1=IFCWALL(" + gid(1) + ",$,'Wall',$,$,$,$,$,$);\n";

struct Frame {
    const char* name;
    std::string before;
    /// With "<NEW>" where the new instances are to stand, each with this frame's line end.
    std::string after;
    std::string lineEnd = "\n";
};

std::ostream& operator<<(std::ostream& out, const Frame& frame) {
    return out << frame.before;
}

class OddFrame : public testing::TestWithParam<Frame> {};

TEST_P(OddFrame, IsKeptWhileItsDataAreEdited) {
    Opened model(GetParam().before);
    ASSERT_EQ(model->elementCount(), 1U);
    ASSERT_TRUE(model.setAttribute(0, "Name", "New"));
    ASSERT_TRUE(model.setProperty(0, "S", "P", "x"));
    const std::string bytes = model->bytes();
    const auto at = GetParam().after.find("<NEW>");
    const std::string front = GetParam().after.substr(0, at), back = GetParam().after.substr(at + 5);
    ASSERT_EQ(bytes.substr(0, front.size()), front);
    ASSERT_GE(bytes.size(), front.size() + back.size());
    EXPECT_EQ(bytes.substr(bytes.size() - back.size()), back);
    const std::string added = bytes.substr(front.size(), bytes.size() - front.size() - back.size());
    const std::string joined = replaced(added, ");" + GetParam().lineEnd, ");");
    EXPECT_EQ(joined.find_first_of("\r\n"), std::string::npos) << "each is on a line of its own, ended like the others";
    EXPECT_TRUE(added.ends_with(");" + GetParam().lineEnd));
    EXPECT_EQ(Opened(bytes).property(0, "S", "P"), "x");
    EXPECT_TRUE(model->undo());
    EXPECT_TRUE(model->undo());
    EXPECT_EQ(model->bytes(), GetParam().before);
}

const std::string Header = "ISO-10303-21;\nHEADER;\nFILE_SCHEMA(('IFC4'));\nENDSEC;\n";
const std::string End = "END-ISO-10303-21;\n";
const std::string Whole = Header + "DATA;\n" + Wall + "ENDSEC;\n" + End;

std::string edited(const std::string& text) {
    return replaced(replaced(text, "'Wall'", "'New'"), "ENDSEC;\nEND-", "<NEW>ENDSEC;\nEND-");
}

INSTANTIATE_TEST_SUITE_P(
    Frames, OddFrame,
    testing::Values(
        Frame{"ByteOrderMark", "\xEF\xBB\xBF" + Whole, "\xEF\xBB\xBF" + edited(Whole)},
        Frame{"CarriageReturnLineFeeds", replaced(Whole, "\n", "\r\n"), replaced(edited(Whole), "\n", "\r\n"), "\r\n"},
        Frame{"CarriageReturns", replaced(Whole, "\n", "\r"), replaced(edited(Whole), "\n", "\r"), "\r"},
        Frame{"NoFinalLineEnd", Whole.substr(0, Whole.size() - 1), edited(Whole).substr(0, edited(Whole).size() - 1)},
        Frame{"LowerCase", replaced(replaced(Whole, "ENDSEC", "endsec"), "DATA", "data"),
              replaced(replaced(edited(Whole), "ENDSEC", "endsec"), "DATA", "data")},
        Frame{"SchemaWithAddendum", replaced(Whole, "'IFC4'", "'ifc4_add2_tc1'"),
              replaced(edited(Whole), "'IFC4'", "'ifc4_add2_tc1'")},
        Frame{"FiveFieldsInFileName", replaced(Whole, "FILE_SCHEMA", "FILE_NAME('a','b',(),(),'c');\nFILE_SCHEMA"),
              replaced(edited(Whole), "FILE_SCHEMA", "FILE_NAME('a','b',(),(),'c');\nFILE_SCHEMA")},
        Frame{"ZerosBehindTheEnd", Whole + std::string(600, '\0'), edited(Whole) + std::string(600, '\0')},
        Frame{"BytesBehindTheEnd", Whole + "#7=IFCWALL();\n\x1A", edited(Whole) + "#7=IFCWALL();\n\x1A"},
        Frame{"EndsMissing", Header + "DATA;\n" + Wall,
              Header + "DATA;\n" + replaced(Wall, "'Wall'", "'New'") + "<NEW>"},
        Frame{"CutAndPadded", Header + "DATA;\n" + Wall + std::string(512, '\0'),
              Header + "DATA;\n" + replaced(Wall, "'Wall'", "'New'") + "<NEW>" + std::string(512, '\0')},
        Frame{
            "NamedSections",
            Header + "DATA('a',('IFC4'));\n" + Wall + "ENDSEC;\nDATA('b',('IFC4'));\n#9=IFCLABEL('');\nENDSEC;\n" + End,
            Header + "DATA('a',('IFC4'));\n" + replaced(Wall, "'Wall'", "'New'") +
                "<NEW>ENDSEC;\nDATA('b',('IFC4'));\n#9=IFCLABEL('');\nENDSEC;\n" + End},
        Frame{"LinkSections",
              Header + "ANCHOR;\n<wall>=#1;\nENDSEC;\nREFERENCE;\n#70=<other.ifc#it's>;\nENDSEC;\nDATA;\n" + Wall +
                  "ENDSEC;\n" + End,
              Header + "ANCHOR;\n<wall>=#1;\nENDSEC;\nREFERENCE;\n#70=<other.ifc#it's>;\nENDSEC;\nDATA;\n" +
                  replaced(Wall, "'Wall'", "'New'") + "<NEW>ENDSEC;\n" + End},
        Frame{"Signature", Whole + "SIGNATURE;\nMIIB+'(;ENDSECx=\nENDSEC;\n",
              edited(Whole) + "SIGNATURE;\nMIIB+'(;ENDSECx=\nENDSEC;\n"},
        Frame{"CommentsAtTheEnd", replaced(Whole, "ENDSEC;\nEND-", "/* don't */\nENDSEC;\nEND-"),
              replaced(edited(Whole), "<NEW>", "/* don't */\n<NEW>")}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(NewInstances, StandInTheSectionOfTheirElement) {
    const std::string other = "#9=IFCWALL(" + gid(9) + ",$,'Other',$,$,$,$,$,$);\n";
    Opened model(Header + "DATA;\n" + Wall + "ENDSEC;\nDATA;\n" + other + "ENDSEC;\n" + End);
    ASSERT_TRUE(model.setProperty(1, "S", "P", "x"));
    const std::string bytes = model->bytes();
    EXPECT_GT(bytes.find("#10="), bytes.find("#9="));
    ASSERT_TRUE(model.setProperty(0, "S", "P", "y"));
    const std::string both = model->bytes();
    EXPECT_LT(both.find("#13="), both.find("#9="));
    EXPECT_EQ(Opened(both).snapshot(), model.snapshot());
}

}  // namespace
