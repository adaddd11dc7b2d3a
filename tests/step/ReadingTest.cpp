// How instances are found, however they are laid out.

#include "model/step/syntax/Characters.hpp"
#include "step/StepText.hpp"

namespace step_tests {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Layout {
    const char* name;
    std::string data;
    std::vector<std::string> instances;
};

std::ostream& operator<<(std::ostream& out, const Layout& layout) {
    return out << layout.data;
}

const std::vector<Layout> Layouts = {
    {"OneALine", "#1=A();\n#2=B($);\n", {"#1=A();", "#2=B($);"}},
    {"SeveralALine", "#1=A();#2=B(); #3=C();\n", {"#1=A();", "#2=B();", "#3=C();"}},
    {"OverManyLines", "#1=A(\n1.,\n2.\n);\n", {"#1=A(\n1.,\n2.\n);"}},
    {"BlanksAroundTokens", "#1 = A ( $ , * ) ;\n", {"#1 = A ( $ , * ) ;"}},
    {"TabsAndLineEndsBetweenTokens", "#1\t=\r\nA\r\n('')\r\n;\r\n", {"#1\t=\r\nA\r\n('')\r\n;"}},
    {"Indented", "   #1=A();\n\t#2=B();\n", {"#1=A();", "#2=B();"}},
    {"CarriageReturnsAlone", "#1=A();\r#2=B();\r", {"#1=A();", "#2=B();"}},
    {"MixedLineEnds", "#1=A();\r\n#2=B();\n#3=C();\r", {"#1=A();", "#2=B();", "#3=C();"}},
    {"BlankLines", "\n\n#1=A();\n\n\n#2=B();\n\n", {"#1=A();", "#2=B();"}},
    {"LowerCaseKeywords", "#1=IfcWall('');\n", {"#1=IfcWall('');"}},
    {"UserDefinedKeyword", "#1=!MY_WALL(1);\n", {"#1=!MY_WALL(1);"}},
    {"ComplexInstance", "#1=(A(1)B('x;'));\n#2=C();\n", {"#1=(A(1)B('x;'));", "#2=C();"}},
    {"IdsUnordered", "#9=A(#3);\n#3=B();\n#5=C();\n", {"#9=A(#3);", "#3=B();", "#5=C();"}},
    {"LeadingZeros", "#0012=A();\n", {"#0012=A();"}},
    {"StraySemicolon", "#1=A();;\n;#2=B();\n", {"#1=A();", "#2=B();"}},

    {"SemicolonInString", "#1=A('a;b');\n#2=B(';');\n", {"#1=A('a;b');", "#2=B(';');"}},
    {"ApostropheInString", "#1=A('it''s; so');\n", {"#1=A('it''s; so');"}},
    {"NothingButApostrophes", "#1=A('''''','');\n", {"#1=A('''''','');"}},
    {"InstanceInString", "#1=A('#9=B();');\n", {"#1=A('#9=B();');"}},
    {"EndOfSectionInString",
     "#1=A('ENDSEC;END-ISO-10303-21;');\n#2=B();\n",
     {"#1=A('ENDSEC;END-ISO-10303-21;');", "#2=B();"}},
    {"CommentMarkInString", "#1=A('/* no comment');\n#2=B('*/');\n", {"#1=A('/* no comment');", "#2=B('*/');"}},
    {"ParenthesesInString", "#1=A(')(');\n", {"#1=A(')(');"}},
    {"EqualsInString", "#1=A('a=b');\n", {"#1=A('a=b');"}},
    {"LineEndInString", "#1=A('a\nb');\n#2=B();\n", {"#1=A('a\nb');", "#2=B();"}},
    {"BackslashBeforeClosingQuote", "#1=A('C:\\');\n#2=B();\n", {"#1=A('C:\\');", "#2=B();"}},
    {"SectionSignByShift", "#1=A('\\S\\''');\n#2=B();\n", {"#1=A('\\S\\''');", "#2=B();"}},
    {"RawBytesInString", "#1=A('\xE9\xFF\x80');\n", {"#1=A('\xE9\xFF\x80');"}},
    {"BinaryValue", "#1=A(\"0A1F\");\n", {"#1=A(\"0A1F\");"}},

    {"CommentBetweenInstances", "/* one */#1=A();/* two\n*/\n#2=B();\n", {"#1=A();", "#2=B();"}},
    {"CommentHoldsInstance", "/*#9=C();*/#1=A();\n", {"#1=A();"}},
    {"CommentHoldsQuotes", "#1=A();/* don't */\n#2=B('x');\n", {"#1=A();", "#2=B('x');"}},
    {"CommentsBetweenTokens", "#1/*;*/=/*(*/A/*'*/(/*)*/1/*;*/)/*x*/;\n", {"#1/*;*/=/*(*/A/*'*/(/*)*/1/*;*/)/*x*/;"}},
    {"CommentsDoNotNest", "/* /* */#1=A();\n", {"#1=A();"}},
    {"CommentOfStars", "/***/#1=A();/****/#2=B();\n", {"#1=A();", "#2=B();"}},
    {"PrintDirectivesBetweenTokens", "#1=A(1,\\N\\2);\\F\\#2=B();\n", {"#1=A(1,\\N\\2);", "#2=B();"}},
};

class Reading : public ::testing::TestWithParam<Layout> {};

TEST_P(Reading, EachInstanceIsFound) {
    const auto file = opened(fileOf(GetParam().data));
    EXPECT_EQ(instances(*file), GetParam().instances);
    EXPECT_THAT(remarks(*file), IsEmpty());
}

TEST_P(Reading, EachInstanceIsFoundBehindAComment) {
    // Behind a comment files are read token by token, otherwise in blocks: both must see the same.
    const auto file = opened(fileOf("/* don't */" + GetParam().data));
    EXPECT_EQ(instances(*file), GetParam().instances);
    EXPECT_THAT(remarks(*file), IsEmpty());
}

TEST_P(Reading, EachInstanceIsCutIntoItsParts) {
    const auto file = opened(fileOf(GetParam().data));
    Instance instance;
    for (Slot slot = 0; slot < file->slotCount(); ++slot) {
        EXPECT_TRUE(file->read(slot, instance)) << file->text(slot);
        EXPECT_EQ(file->find(instance.id), slot);
        EXPECT_EQ(file->id(slot), instance.id);
        EXPECT_TRUE(equalIgnoringCase(file->keywordText(file->keyword(slot)), instance.keyword));
        EXPECT_EQ(file->keyword(slot) == NoKeyword, instance.complex);
    }
}

TEST_P(Reading, UneditedFileIsWrittenAsItWas) {
    EXPECT_EQ(opened(fileOf(GetParam().data))->bytes(), fileOf(GetParam().data));
}

INSTANTIATE_TEST_SUITE_P(Layouts, Reading, ::testing::ValuesIn(Layouts),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Ids, MayExceed32Bits) {
    const auto file = opened(fileOf("#4294967296=A();\n#18446744073709551615=B();\n#7=C();\n"));
    EXPECT_EQ(file->text(file->find(4294967296)), "#4294967296=A();");
    EXPECT_EQ(file->text(file->find(18446744073709551615U)), "#18446744073709551615=B();");
    EXPECT_EQ(file->text(file->find(7)), "#7=C();");
}

TEST(Ids, OfNoInstanceAreNotFound) {
    const auto file = opened(fileOf("#5=A(#6);\n#70000000000=B();\n"));
    for (const InstanceId id : {InstanceId{0}, InstanceId{4}, InstanceId{6}, InstanceId{1000}, InstanceId{70000000001}})
        EXPECT_EQ(file->find(id), NoSlot) << id;
}

TEST(Ids, UsedTwiceAreRemarkedAndNotFound) {
    const auto file = opened(fileOf("#1=A();\n#2=B();\n#01=C();\n#70000000000=D();\n#70000000000=E();\n"));
    EXPECT_EQ(file->find(1), NoSlot);
    EXPECT_EQ(file->find(70000000000), NoSlot);
    EXPECT_NE(file->find(2), NoSlot);
    EXPECT_EQ(file->slotCount(), 5U);
    EXPECT_THAT(remarks(*file),
                ElementsAre("10: the id #01 is used more than once; its instances are not edited",
                            "12: the id #70000000000 is used more than once; its instances are not edited"));
}

TEST(Keywords, AreOneWhateverTheirCase) {
    const auto file = opened(fileOf("#1=IFCWALL();\n#2=IfcWall();\n#3=ifcwall();\n#4=IFCDOOR();\n#5=IfcSlab();\n"));
    EXPECT_EQ(file->keywordCount(), 3U);
    EXPECT_EQ(file->keyword(0), file->keyword(2));
    EXPECT_EQ(file->keywordCode("IFCSLAB"), file->keyword(4));
    EXPECT_EQ(file->keywordText(file->keyword(4)), "IFCSLAB");
    EXPECT_EQ(file->keywordCode("IFCROOF"), NoKeyword);
}

TEST(Keywords, BeyondTheCodesAreNotUsed) {
    std::string data;
    for (int i = 0; i < 70000; ++i) data += "#" + std::to_string(i + 1) + "=K" + std::to_string(i) + "();\n";
    const auto file = opened(fileOf(data));
    EXPECT_EQ(file->slotCount(), 70000U);
    EXPECT_EQ(file->keywordCount(), 65535U);
    EXPECT_EQ(file->keywordText(file->keyword(65534)), "K65534");
    EXPECT_EQ(file->keyword(65535), NoKeyword);
}

TEST(LongInstances, AreFoundLikeShortOnes) {
    std::string list = "1";
    for (int i = 0; i < 100000; ++i) list += ",1";
    const std::string longOne = "#1=A((" + list + "),'x');";
    const auto file = opened(fileOf(longOne + "\n#2=B();\n"));
    EXPECT_THAT(instances(*file), ElementsAre(longOne, "#2=B();"));
    EXPECT_EQ(argument(*file, 1, 1).text, "'x'");
}

}  // namespace
}  // namespace step_tests
