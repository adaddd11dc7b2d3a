// Files as other programs write them: read as they are meant, and after an edit every byte but the edited value is as
// it was.

#include "TinyModel.hpp"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;
using testing::IsEmpty;

const std::string Header = "ISO-10303-21;\nHEADER;\nFILE_SCHEMA(('IFC4'));\nENDSEC;\n";
const std::string End = "END-ISO-10303-21;\n";

std::string gid(unsigned number) {
    return "'" + TinyModel::globalIdText(number) + "'";
}

/// A wall #1 with a set "S" whose only property is #2.
const std::string WallWithSet = "#1=IFCWALL(" + gid(1) + ",$,'Wall',$,$,$,$,$,$);\n#3=IFCPROPERTYSET(" + gid(2) +
                                ",$,'S',$,(#2));\n#4=IFCRELDEFINESBYPROPERTIES(" + gid(3) + ",$,$,$,(#1),#3);\n";

std::string fileWith(const std::string& property) {
    return Header + "DATA;\n" + WallWithSet + property + "\nENDSEC;\n" + End;
}

struct Spelling {
    const char* name;
    std::string before;  ///< The property's instance.
    std::string reads;
    std::string set;
    std::string after;
};

std::ostream& operator<<(std::ostream& out, const Spelling& row) {
    return out << row.before;
}

class OddValue : public testing::TestWithParam<Spelling> {};

TEST_P(OddValue, IsReadAsMeantAndAloneIsRewritten) {
    const Spelling& row = GetParam();
    Opened model(fileWith(row.before));
    EXPECT_THAT(model->remarks(), IsEmpty());
    EXPECT_EQ(model.property(0, "S", "P"), row.reads);
    ASSERT_TRUE(model.setProperty(0, "S", "P", row.reads)) << "the same value again";
    EXPECT_EQ(model->bytes(), fileWith(row.before)) << "the same value again";
    const auto status = model.setProperty(0, "S", "P", row.set);
    ASSERT_TRUE(status) << status.error().message;
    EXPECT_EQ(model->bytes(), fileWith(row.after));
    EXPECT_EQ(Opened(model->bytes()).property(0, "S", "P"), row.set);
    EXPECT_TRUE(model->undo());
    EXPECT_EQ(model->bytes(), fileWith(row.before));
}

/// The property with this as its value.
std::string valued(const std::string& value) {
    return "#2=IFCPROPERTYSINGLEVALUE('P',$," + value + ",$);";
}

INSTANTIATE_TEST_SUITE_P(
    Texts, OddValue,
    testing::Values(Spelling{"Apostrophes", valued("IFCLABEL('it''s ''')"), "it's '", "''", valued("IFCLABEL('''''')")},
                    Spelling{"LoneBackslash", valued("IFCLABEL('C:\\temp')"), "C:\\temp", "C:\\tmp",
                             valued("IFCLABEL('C:\\\\tmp')")},
                    Spelling{"SectionSign", valued("IFCLABEL('\\S\\'' 5')"), "§ 5", "§ 6",
                             valued("IFCLABEL('\\X2\\00A7\\X0\\ 6')")},
                    Spelling{"CodePage", valued("IFCLABEL('\\PE\\\\S\\8')"), "И", "x", valued("IFCLABEL('x')")},
                    Spelling{"LowerCaseHexadecimal", valued("IFCLABEL('\\X2\\00e400df\\X0\\')"), "äß", "ä",
                             valued("IFCLABEL('\\X2\\00E4\\X0\\')")},
                    Spelling{"SurrogatePair", valued("IFCLABEL('\\X2\\D83CDFE0\\X0\\')"), "\xF0\x9F\x8F\xA0",
                             "\xF0\x9F\x8F\xA1", valued("IFCLABEL('\\X4\\0001F3E1\\X0\\')")},
                    Spelling{"BytesOfUtf8", valued("IFCLABEL('T\xC3\xBCr')"), "Tür", "Tor", valued("IFCLABEL('Tor')")},
                    Spelling{"BytesOfWindows", valued("IFCLABEL('T\xFCr')"), "Tür", "Tor", valued("IFCLABEL('Tor')")},
                    // In this code page a backslash is the second half of a character; here it stands before the quote.
                    Spelling{"BytesOfShiftJis", valued("IFCLABEL('\x95\x5C')"), "•\\", "x", valued("IFCLABEL('x')")},
                    Spelling{"RawTabAndLineEnd", valued("IFCLABEL('a\tb\r\nc')"), "a\tb\r\nc", "a\tc",
                             valued("IFCLABEL('a\\X2\\0009\\X0\\c')")},
                    Spelling{"EndOfSectionInside", valued("IFCLABEL('ENDSEC;\nEND-ISO-10303-21;')"),
                             "ENDSEC;\nEND-ISO-10303-21;", "#9=IFCWALL();", valued("IFCLABEL('#9=IFCWALL();')")},
                    Spelling{"CommentInside", valued("IFCLABEL('/* no comment')"), "/* no comment", "*/",
                             valued("IFCLABEL('*/')")},
                    Spelling{"EmptyIsNotUnset", valued("IFCLABEL('')"), "", "x", valued("IFCLABEL('x')")}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Numbers, OddValue,
    testing::Values(Spelling{"RealWithoutPoint", valued("IFCREAL(1E-05)"), "1e-05", "2e-05", valued("IFCREAL(2.E-05)")},
                    Spelling{"IntegerWhereARealIsDue", valued("IFCREAL(0)"), "0", "3", valued("IFCREAL(3.)")},
                    Spelling{"NegativeZero", valued("IFCREAL(-0.)"), "-0", "1.5", valued("IFCREAL(1.5)")},
                    Spelling{"SignedInteger", valued("IFCINTEGER(+007)"), "7", "-8", valued("IFCINTEGER(-8)")},
                    Spelling{"LargestInteger", valued("IFCINTEGER(9223372036854775806)"), "9223372036854775806",
                             "9223372036854775807", valued("IFCINTEGER(9223372036854775807)")},
                    Spelling{"SmallestInteger", valued("IFCINTEGER(-9223372036854775807)"), "-9223372036854775807",
                             "-9223372036854775808", valued("IFCINTEGER(-9223372036854775808)")},
                    // As far as doubles tell whole numbers apart.
                    Spelling{"RealWhereAnIntegerIsDue", valued("IFCINTEGER(9007199254740992.)"), "9007199254740992",
                             "1", valued("IFCINTEGER(1)")},
                    Spelling{"LowerCaseTruth", valued("IFCLOGICAL(.u.)"), "unknown", "true",
                             valued("IFCLOGICAL(.T.)")}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Layouts, OddValue,
    testing::Values(
        Spelling{"BlanksAndLines", "#2 =\r\n IfcPropertySingleValue ( 'P' ,\t$,\r\n IfcLabel ( 'a' ) , $ ) ;", "a", "b",
                 "#2 =\r\n IfcPropertySingleValue ( 'P' ,\t$,\r\n IfcLabel ( 'b' ) , $ ) ;"},
        Spelling{"Comments",
                 "#2/* ; ' */=/*#9=IFCWALL();*/IFCPROPERTYSINGLEVALUE('P'/*(*/,$,IFCLABEL(/*,*/'a'/*)*/),$);", "a", "b",
                 "#2/* ; ' */=/*#9=IFCWALL();*/IFCPROPERTYSINGLEVALUE('P'/*(*/,$,IFCLABEL(/*,*/'b'/*)*/),$);"},
        Spelling{"SeveralOnALine",
                 "#5=IFCPERSON('a');#2=IFCPROPERTYSINGLEVALUE('P',$,IFCLABEL('a'),$);#6=IFCPERSON('a');", "a", "b",
                 "#5=IFCPERSON('a');#2=IFCPROPERTYSINGLEVALUE('P',$,IFCLABEL('b'),$);#6=IFCPERSON('a');"},
        Spelling{"LeadingZeros", "#0002=IFCPROPERTYSINGLEVALUE('P',$,IFCLABEL('a'),#0007);", "a", "b",
                 "#0002=IFCPROPERTYSINGLEVALUE('P',$,IFCLABEL('b'),#0007);"},
        Spelling{"UnitAndDescriptionStay", "#2=IFCPROPERTYSINGLEVALUE('P','d',IFCLENGTHMEASURE(1.),#7);", "1", "2.5",
                 "#2=IFCPROPERTYSINGLEVALUE('P','d',IFCLENGTHMEASURE(2.5),#7);"},
        Spelling{"MoreArgumentsThanTheSchema", "#2=IFCPROPERTYSINGLEVALUE('P',$,IFCLABEL('a'),$,'new',(1));", "a", "b",
                 "#2=IFCPROPERTYSINGLEVALUE('P',$,IFCLABEL('b'),$,'new',(1));"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(OddValue, ThatIsNoExactIntegerIsNotRead) {
    for (const std::string value : {"9007199254740994.", "1.5", "9223372036854775808", "1.E+300"}) {
        Opened model(fileWith(valued("IFCINTEGER(" + value + ")")));
        EXPECT_EQ(model.property(0, "S", "P"), "?") << value;
    }
}

TEST(CodePage, OfOneStringIsNotThatOfTheNext) {
    const std::string first = "#2=IFCPROPERTYSINGLEVALUE('P','\\PE\\\\S\\8',IFCLABEL('\\S\\8'),$);";
    Opened model(fileWith(first));
    EXPECT_EQ(model.property(0, "S", "P"), "¸");
    ASSERT_TRUE(model.setProperty(0, "S", "P", "x"));
    EXPECT_THAT(model->bytes(), HasSubstr("('P','\\PE\\\\S\\8',IFCLABEL('x'),$)"));
}

TEST(Names, DifferByCaseAndByBlanksAtTheEnds) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    const std::vector<std::string> names = {"P", "p", " P", "P ", "P\t"};
    Ids properties;
    for (const std::string& name : names) properties.push_back(ifc.single(name, "IFCLABEL('" + name + "')"));
    ifc.give({wall}, ifc.set("S", properties));
    ifc.give({wall}, ifc.set("s ", {ifc.single("P", "IFCLABEL('other set')")}));
    for (const std::string& name : names) {
        Opened model(ifc);
        ASSERT_TRUE(model.setProperty(0, "S", name, "new"));
        for (const std::string& each : names) EXPECT_EQ(model.property(0, "S", each), each == name ? "new" : each);
        EXPECT_EQ(model.property(0, "s ", "P"), "other set");
    }
}

/// Every id of a text moved up.
std::string movedUp(std::string text, std::uint64_t by) {
    for (auto at = text.find('#'); at != std::string::npos; at = text.find('#', at + 1)) {
        const auto end = text.find_first_not_of("0123456789", at + 1);
        text.replace(at + 1, end - at - 1, std::to_string(std::stoull(text.substr(at + 1, end - at - 1)) + by));
    }
    return text;
}

TEST(Ids, OfAnySizeAreSplitAndAddedTo) {
    const std::string other = "#5=IFCWALL(" + gid(4) + ",$,'Other',$,$,$,$,$,$);\n#6=IFCRELDEFINESBYPROPERTIES(" +
                              gid(5) + ",$,$,$,(#5),#3);\n";
    const std::string data = WallWithSet + other + valued("IFCLABEL('a')") + "\n";
    for (const std::uint64_t by : {0U, 2147483640U, 4294967290U, 4294967295U}) {
        Opened model(Header + "DATA;\n" + movedUp(data, by) + "ENDSEC;\n" + End);
        ASSERT_TRUE(model.setProperty(0, "S", "P", "b")) << by;
        EXPECT_EQ(model.property(0, "S", "P"), "b");
        EXPECT_EQ(model.property(1, "S", "P"), "a");
        const std::string bytes = model->bytes();
        for (const std::uint64_t next : {7U, 8U})
            EXPECT_THAT(bytes, HasSubstr("\n#" + std::to_string(by + next) + "="));
        EXPECT_EQ(Opened(bytes).snapshot(), model.snapshot());
    }
}

TEST(Ids, WithLeadingZerosNameTheSameInstance) {
    std::string data = WallWithSet + valued("IFCLABEL('a')") + "\n";
    data.replace(data.find("(#1)"), 4, "(#001)");
    data.replace(data.find("(#2)"), 4, "(#00002)");
    Opened model(Header + "DATA;\n" + data + "ENDSEC;\n" + End);
    ASSERT_TRUE(model.setProperty(0, "S", "P", "b"));
    EXPECT_EQ(std::string(model->bytes()).find("#5="), std::string::npos) << "nobody shares it, so nothing is split";
    EXPECT_EQ(model.property(0, "S", "P"), "b");
}

}  // namespace
