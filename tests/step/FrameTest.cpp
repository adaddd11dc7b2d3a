// What stands around the instances.

#include "step/StepText.hpp"

namespace step_tests {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string Header = "ISO-10303-21;\nHEADER;\nFILE_SCHEMA(('IFC4'));\nENDSEC;\n";
const std::string End = "END-ISO-10303-21;\n";

struct Frame {
    const char* name;
    std::string bytes;
    std::vector<std::string> instances;
    std::vector<std::string> remarks;
};

std::ostream& operator<<(std::ostream& out, const Frame& frame) {
    return out << frame.bytes;
}

const std::string Incomplete = "the file is not complete: ";
const std::string Interrupted = "; writing or copying it was probably interrupted";
const std::string Padded = "; it ends in zero bytes, so writing or copying it was probably interrupted";

const std::vector<Frame> Frames = {
    {"NoFinalLineEnd", Header + "DATA;\n#1=A();\nENDSEC;\nEND-ISO-10303-21;", {"#1=A();"}, {}},
    {"AllOnOneLine",
     "ISO-10303-21;HEADER;FILE_SCHEMA(('IFC4'));ENDSEC;DATA;#1=A();ENDSEC;END-ISO-10303-21;",
     {"#1=A();"},
     {}},
    {"LowerCase",
     "iso-10303-21;\nheader;\nfile_schema(('IFC4'));\nendsec;\ndata;\n#1=a();\nendsec;\nend-iso-10303-21;\n",
     {"#1=a();"},
     {}},
    {"ByteOrderMark", "\xEF\xBB\xBF" + Header + "DATA;\n#1=A();\nENDSEC;\n" + End, {"#1=A();"}, {}},
    {"BlankLinesInFront", "\r\n  " + Header + "DATA;\n#1=A();\nENDSEC;\n" + End, {"#1=A();"}, {}},
    {"CommentsEverywhere",
     "/* a */ISO-10303-21/* b */;/* ENDSEC; */HEADER;/* DATA; */FILE_SCHEMA/* c */((/* d */'IFC4'));ENDSEC;/* e "
     "*/DATA;#1=A();"
     "/* ENDSEC; */ENDSEC/* f */;END-ISO-10303-21;/* g */",
     {"#1=A();"},
     {}},
    {"BlanksBeforeSemicolons",
     "ISO-10303-21 ;\nHEADER ;\nFILE_SCHEMA (('IFC4')) ;\nENDSEC ;\nDATA ;\n#1=A();\nENDSEC ;\nEND-ISO-10303-21 ;\n",
     {"#1=A();"},
     {}},
    {"FewerFieldsInFileName",
     "ISO-10303-21;\nHEADER;\nFILE_NAME('a','b',(),(),'c');\nFILE_SCHEMA(('IFC4'));\nENDSEC;\nDATA;\n#1=A();\nENDSEC;"
     "\n" +
         End,
     {"#1=A();"},
     {}},
    {"EndOfSectionInHeaderString",
     "ISO-10303-21;\nHEADER;\nFILE_NAME('ENDSEC; DATA; "
     "#9=B();');\nFILE_SCHEMA(('IFC4'));\nENDSEC;\nDATA;\n#1=A();\nENDSEC;\n" +
         End,
     {"#1=A();"},
     {}},
    {"SeveralDataSections",
     Header + "DATA('one',('IFC4'));\n#1=A();\nENDSEC;\nDATA ('two',('IFC4')) ;\n#2=B();\nENDSEC;\n" + End,
     {"#1=A();", "#2=B();"},
     {}},
    {"AnchorAndReferenceSections",
     Header +
         "ANCHOR;\n<it's;#5=/*>=#1;\nENDSEC;\nREFERENCE;\n#7=<http://x/"
         "*;ENDSEC;'>;\n@3=<a>;\nENDSEC;\nDATA;\n#1=A();\nENDSEC;\n" +
         End,
     {"#1=A();"},
     {}},
    {"SignatureSection",
     Header + "DATA;\n#1=A();\nENDSEC;\n" + End + "SIGNATURE;\nMII/+'=ENDSECx\n(\nENDSEC;\n",
     {"#1=A();"},
     {"0: the file is signed; saved with changes, its signature is no longer valid"}},
    {"SignatureWithoutSemicolon",
     Header + "DATA;\n#1=A();\nENDSEC;\n" + End + "SIGNATURE\nMII\nENDSEC;\n",
     {"#1=A();"},
     {"0: the file is signed; saved with changes, its signature is no longer valid"}},
    {"NoInstances", Header + "DATA;\nENDSEC;\n" + End, {}, {}},
    {"NoData", Header + End, {}, {}},

    {"EndMissing",
     Header + "DATA;\n#1=A();\nENDSEC;\n",
     {"#1=A();"},
     {"8: " + Incomplete + "END-ISO-10303-21 is missing" + Interrupted}},
    {"EndOfSectionMissing", Header + "DATA;\n#1=A();\n" + End, {"#1=A();"}, {"7: ENDSEC is missing"}},
    {"BothEndsMissing",
     Header + "DATA;\n#1=A();\n",
     {"#1=A();"},
     {"7: " + Incomplete + "ENDSEC and END-ISO-10303-21 are missing" + Interrupted}},
    {"CutInTheMiddle",
     Header + "DATA;\n#1=A();\n#2=B('x',#",
     {"#1=A();"},
     {"7: the instance #2 is malformed: a parenthesis is not closed; it is kept as it is and not used",
      "7: " + Incomplete + "ENDSEC and END-ISO-10303-21 are missing" + Interrupted}},
    {"CutInAString",
     Header + "DATA;\n#1=A();\n#2=B('x",
     {"#1=A();"},
     {"7: the instance #2 is malformed: a string is not closed; it is kept as it is and not used",
      "7: " + Incomplete + "ENDSEC and END-ISO-10303-21 are missing" + Interrupted}},
    {"CutAndPaddedWithZeros",
     Header + "DATA;\n#1=A();\n" + std::string(100, '\0'),
     {"#1=A();"},
     {"7: " + Incomplete + "ENDSEC and END-ISO-10303-21 are missing" + Padded}},
    {"CutInTheHeader",
     "ISO-10303-21;\nHEADER;\nFILE_NAME('",
     {},
     {"3: a malformed entry of the header", "3: " + Incomplete + "END-ISO-10303-21 is missing" + Interrupted,
      "0: FILE_SCHEMA is missing or names no schema"}},
    {"CutBehindTheKeywordData",
     Header + "DATA",
     {},
     {"5: the beginning of the section DATA is malformed",
      "5: " + Incomplete + "ENDSEC and END-ISO-10303-21 are missing" + Interrupted}},
    {"BytesBehindTheEnd",
     Header + "DATA;\n#1=A();\nENDSEC;\n" + End + "#2=B();\n",
     {"#1=A();"},
     {"9: 8 bytes behind the end of the file; they are kept as they are"}},
    {"ZerosBehindTheEnd",
     Header + "DATA;\n#1=A();\nENDSEC;\n" + End + std::string(512, '\0'),
     {"#1=A();"},
     {"9: 512 zero bytes behind the end of the file; they are kept as they are"}},
    {"HeaderNotEnded",
     "ISO-10303-21;\nHEADER;\nFILE_SCHEMA(('IFC4'));\nDATA;\n#1=A();\nENDSEC;\n" + End,
     {"#1=A();"},
     {"4: ENDSEC of the header is missing"}},
    {"HeaderEntryMalformed",
     "ISO-10303-21;\nHEADER;\nFILE_NAME('a',(;\nFILE_SCHEMA(('IFC4'));\nENDSEC;\nDATA;\n#1=A();\nENDSEC;\n" + End,
     {"#1=A();"},
     {"3: a malformed entry of the header"}},
    {"NoSchema",
     "ISO-10303-21;\nHEADER;\nENDSEC;\nDATA;\n#1=A();\nENDSEC;\n" + End,
     {"#1=A();"},
     {"0: FILE_SCHEMA is missing or names no schema"}},
    {"EmptySchema",
     "ISO-10303-21;\nHEADER;\nFILE_SCHEMA(());\nENDSEC;\nDATA;\n#1=A();\nENDSEC;\n" + End,
     {"#1=A();"},
     {"0: FILE_SCHEMA is missing or names no schema"}},
    {"TextBetweenSections",
     Header + "hello;\nDATA;\n#1=A();\nENDSEC;\n" + End,
     {"#1=A();"},
     {"5: unexpected text outside the sections"}},
    {"DataInData",
     Header + "DATA;\n#1=A();\nDATA;\n#2=B();\nENDSEC;\n" + End,
     {"#1=A();", "#2=B();"},
     {"7: ENDSEC is missing"}},
    {"LinkSectionNotEnded",
     Header + "ANCHOR;\n<a>=#1;\n",
     {},
     {"7: " + Incomplete + "ENDSEC of the section ANCHOR is missing" + Interrupted}},
    {"CommentNotClosedBetweenSections",
     Header + "/* open\nDATA;\n#1=A();\nENDSEC;\n" + End,
     {},
     {"5: a comment is not closed; nothing behind it is used"}},
};

class FileFrame : public ::testing::TestWithParam<Frame> {};

TEST_P(FileFrame, IsUnderstoodAndItsFaultsAreTold) {
    const auto file = opened(GetParam().bytes);
    EXPECT_EQ(instances(*file), GetParam().instances);
    EXPECT_EQ(remarks(*file), GetParam().remarks);
}

TEST_P(FileFrame, IsWrittenAsItWas) {
    EXPECT_EQ(opened(GetParam().bytes)->bytes(), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(Frames, FileFrame, ::testing::ValuesIn(Frames),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(SchemaNames, AreDecoded) {
    const auto names = [](const std::string& schema) {
        return opened("ISO-10303-21;HEADER;" + schema + ";ENDSEC;DATA;ENDSEC;END-ISO-10303-21;")->schemaNames();
    };
    EXPECT_THAT(names("FILE_SCHEMA(('IFC4X3_ADD2'))"), ElementsAre("IFC4X3_ADD2"));
    EXPECT_THAT(names("file_schema ( ( 'IFC2X3_TC1' , 'OTHER' ) )"), ElementsAre("IFC2X3_TC1", "OTHER"));
    EXPECT_THAT(names("FILE_SCHEMA(('\\X2\\00C4\\X0\\'))"), ElementsAre("\xC3\x84"));
    EXPECT_THAT(names("FILE_NAME()"), IsEmpty());
}

struct Foreign {
    const char* name;
    std::string bytes;
    const char* says;
};

class ForeignFile : public ::testing::TestWithParam<Foreign> {};

TEST_P(ForeignFile, IsRefusedWithWhatItSeemsToBe) {
    EXPECT_THAT(openingError(GetParam().bytes), HasSubstr(GetParam().says));
}

INSTANTIATE_TEST_SUITE_P(Kinds, ForeignFile,
                         ::testing::Values(Foreign{"Empty", "", "the file is empty"},
                                           Foreign{"Utf16WithMark", std::string("\xFF\xFEI\0S\0O\0", 8), "UTF-16"},
                                           Foreign{"Utf16BigEndian", std::string("\xFE\xFF\0I\0S\0O", 8), "UTF-16"},
                                           Foreign{"Utf16WithoutMark", std::string("I\0S\0O\0", 6), "UTF-16"},
                                           Foreign{"Xml", "<?xml version=\"1.0\"?><ifcXML/>", "it is XML, not"},
                                           Foreign{"Html", "<html><body>404</body></html>", "HTML"},
                                           Foreign{"Json", "{\"type\":1}", "JSON"},
                                           Foreign{"Gzip", "\x1F\x8B\x08", "gzip"},
                                           Foreign{"Text", "Dear customer,", "ISO-10303-21"},
                                           Foreign{"Blanks", " \n \n", "ISO-10303-21"},
                                           Foreign{"Zeros", std::string(4096, '\0'), "zero bytes"},
                                           Foreign{"Program",
                                                   std::string("\x7F"
                                                               "ELF\x02\x01\0\0",
                                                               8),
                                                   "ISO-10303-21"},
                                           Foreign{"OpenComment", "/* ISO-10303-21;", "ISO-10303-21"},
                                           Foreign{"LongerWord", "ISO-10303-211;", "ISO-10303-21"}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace step_tests
