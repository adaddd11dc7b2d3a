// What stands around the instances.

#include "step/StepText.hpp"

namespace step_tests {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string header = "ISO-10303-21;\nHEADER;\nFILE_SCHEMA(('IFC4'));\nENDSEC;\n";
const std::string end = "END-ISO-10303-21;\n";

struct Frame {
    const char* name;
    std::string bytes;
    std::vector<std::string> instances;
    std::vector<std::string> remarks;
};

std::ostream& operator<<(std::ostream& out, const Frame& frame) {
    return out << frame.bytes;
}

const std::string incomplete = "the file is not complete: ";
const std::string interrupted = "; writing or copying it was probably interrupted";
const std::string padded = "; it ends in zero bytes, so writing or copying it was probably interrupted";

const std::vector<Frame> frames = {
    {"NoFinalLineEnd", header + "DATA;\n#1=A();\nENDSEC;\nEND-ISO-10303-21;", {"#1=A();"}, {}},
    {"AllOnOneLine",
     "ISO-10303-21;HEADER;FILE_SCHEMA(('IFC4'));ENDSEC;DATA;#1=A();ENDSEC;END-ISO-10303-21;",
     {"#1=A();"},
     {}},
    {"LowerCase",
     "iso-10303-21;\nheader;\nfile_schema(('IFC4'));\nendsec;\ndata;\n#1=a();\nendsec;\nend-iso-10303-21;\n",
     {"#1=a();"},
     {}},
    {"ByteOrderMark", "\xEF\xBB\xBF" + header + "DATA;\n#1=A();\nENDSEC;\n" + end, {"#1=A();"}, {}},
    {"BlankLinesInFront", "\r\n  " + header + "DATA;\n#1=A();\nENDSEC;\n" + end, {"#1=A();"}, {}},
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
         end,
     {"#1=A();"},
     {}},
    {"EndOfSectionInHeaderString",
     "ISO-10303-21;\nHEADER;\nFILE_NAME('ENDSEC; DATA; "
     "#9=B();');\nFILE_SCHEMA(('IFC4'));\nENDSEC;\nDATA;\n#1=A();\nENDSEC;\n" +
         end,
     {"#1=A();"},
     {}},
    {"SeveralDataSections",
     header + "DATA('one',('IFC4'));\n#1=A();\nENDSEC;\nDATA ('two',('IFC4')) ;\n#2=B();\nENDSEC;\n" + end,
     {"#1=A();", "#2=B();"},
     {}},
    {"AnchorAndReferenceSections",
     header +
         "ANCHOR;\n<it's;#5=/*>=#1;\nENDSEC;\nREFERENCE;\n#7=<http://x/"
         "*;ENDSEC;'>;\n@3=<a>;\nENDSEC;\nDATA;\n#1=A();\nENDSEC;\n" +
         end,
     {"#1=A();"},
     {}},
    {"SignatureSection",
     header + "DATA;\n#1=A();\nENDSEC;\n" + end + "SIGNATURE;\nMII/+'=ENDSECx\n(\nENDSEC;\n",
     {"#1=A();"},
     {"0: the file is signed; saved with changes, its signature is no longer valid"}},
    {"SignatureWithoutSemicolon",
     header + "DATA;\n#1=A();\nENDSEC;\n" + end + "SIGNATURE\nMII\nENDSEC;\n",
     {"#1=A();"},
     {"0: the file is signed; saved with changes, its signature is no longer valid"}},
    {"NoInstances", header + "DATA;\nENDSEC;\n" + end, {}, {}},
    {"NoData", header + end, {}, {}},

    {"EndMissing",
     header + "DATA;\n#1=A();\nENDSEC;\n",
     {"#1=A();"},
     {"8: " + incomplete + "END-ISO-10303-21 is missing" + interrupted}},
    {"EndOfSectionMissing", header + "DATA;\n#1=A();\n" + end, {"#1=A();"}, {"7: ENDSEC is missing"}},
    {"BothEndsMissing",
     header + "DATA;\n#1=A();\n",
     {"#1=A();"},
     {"7: " + incomplete + "ENDSEC and END-ISO-10303-21 are missing" + interrupted}},
    {"CutInTheMiddle",
     header + "DATA;\n#1=A();\n#2=B('x',#",
     {"#1=A();"},
     {"7: the instance #2 is malformed: a parenthesis is not closed; it is kept as it is and not used",
      "7: " + incomplete + "ENDSEC and END-ISO-10303-21 are missing" + interrupted}},
    {"CutInAString",
     header + "DATA;\n#1=A();\n#2=B('x",
     {"#1=A();"},
     {"7: the instance #2 is malformed: a string is not closed; it is kept as it is and not used",
      "7: " + incomplete + "ENDSEC and END-ISO-10303-21 are missing" + interrupted}},
    {"CutAndPaddedWithZeros",
     header + "DATA;\n#1=A();\n" + std::string(100, '\0'),
     {"#1=A();"},
     {"7: " + incomplete + "ENDSEC and END-ISO-10303-21 are missing" + padded}},
    {"CutInTheHeader",
     "ISO-10303-21;\nHEADER;\nFILE_NAME('",
     {},
     {"3: a malformed entry of the header", "3: " + incomplete + "END-ISO-10303-21 is missing" + interrupted,
      "0: FILE_SCHEMA is missing or names no schema"}},
    {"CutBehindTheKeywordData",
     header + "DATA",
     {},
     {"5: the beginning of the section DATA is malformed",
      "5: " + incomplete + "ENDSEC and END-ISO-10303-21 are missing" + interrupted}},
    {"BytesBehindTheEnd",
     header + "DATA;\n#1=A();\nENDSEC;\n" + end + "#2=B();\n",
     {"#1=A();"},
     {"9: 8 bytes behind the end of the file; they are kept as they are"}},
    {"ZerosBehindTheEnd",
     header + "DATA;\n#1=A();\nENDSEC;\n" + end + std::string(512, '\0'),
     {"#1=A();"},
     {"9: 512 zero bytes behind the end of the file; they are kept as they are"}},
    {"HeaderNotEnded",
     "ISO-10303-21;\nHEADER;\nFILE_SCHEMA(('IFC4'));\nDATA;\n#1=A();\nENDSEC;\n" + end,
     {"#1=A();"},
     {"4: ENDSEC of the header is missing"}},
    {"HeaderEntryMalformed",
     "ISO-10303-21;\nHEADER;\nFILE_NAME('a',(;\nFILE_SCHEMA(('IFC4'));\nENDSEC;\nDATA;\n#1=A();\nENDSEC;\n" + end,
     {"#1=A();"},
     {"3: a malformed entry of the header"}},
    {"NoSchema",
     "ISO-10303-21;\nHEADER;\nENDSEC;\nDATA;\n#1=A();\nENDSEC;\n" + end,
     {"#1=A();"},
     {"0: FILE_SCHEMA is missing or names no schema"}},
    {"EmptySchema",
     "ISO-10303-21;\nHEADER;\nFILE_SCHEMA(());\nENDSEC;\nDATA;\n#1=A();\nENDSEC;\n" + end,
     {"#1=A();"},
     {"0: FILE_SCHEMA is missing or names no schema"}},
    {"TextBetweenSections",
     header + "hello;\nDATA;\n#1=A();\nENDSEC;\n" + end,
     {"#1=A();"},
     {"5: unexpected text outside the sections"}},
    {"DataInData",
     header + "DATA;\n#1=A();\nDATA;\n#2=B();\nENDSEC;\n" + end,
     {"#1=A();", "#2=B();"},
     {"7: ENDSEC is missing"}},
    {"LinkSectionNotEnded",
     header + "ANCHOR;\n<a>=#1;\n",
     {},
     {"7: " + incomplete + "ENDSEC of the section ANCHOR is missing" + interrupted}},
    {"CommentNotClosedBetweenSections",
     header + "/* open\nDATA;\n#1=A();\nENDSEC;\n" + end,
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

INSTANTIATE_TEST_SUITE_P(Frames, FileFrame, ::testing::ValuesIn(frames),
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
                                           Foreign{"Xml", "<?xml version=\"1.0\"?><ifcXML/>", "XML"},
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
