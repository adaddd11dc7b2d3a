// Broken files: each fault is told with its line, and what is sound around it stays in use.

#include "step/StepText.hpp"
#include "support/Stopwatch.hpp"

namespace step_tests {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

struct Fault {
    const char* name;
    std::string data;
    std::vector<std::string> instances;
    std::vector<std::string> remarks;
};

std::ostream& operator<<(std::ostream& out, const Fault& fault) {
    return out << fault.data;
}

std::string malformed(int line, const std::string& which, const std::string& what) {
    return std::to_string(line) + ": the instance " + which + " is malformed: " + what +
           "; it is kept as it is and not used";
}

const std::string OpenString = "a string is not closed, or holds an apostrophe that is not doubled";
const std::string OpenParenthesis = "a parenthesis is not closed";

// The data begin in line 8.
const std::vector<Fault> Faults = {
    {"SemicolonMissing",
     "#1=A(1)\n#2=B();\n#3=C();\n",
     {"#2=B();", "#3=C();"},
     {malformed(8, "#1", "the semicolon is missing")}},
    {"SemicolonMissingOnOneLine",
     "#1=A(1)#2=B();#3=C();\n",
     {"#2=B();", "#3=C();"},
     {malformed(8, "#1", "the semicolon is missing")}},
    {"ParenthesisMissing", "#1=A((1,2);\n#2=B();\n", {"#2=B();"}, {malformed(8, "#1", OpenParenthesis)}},
    {"ParenthesisTooMany", "#1=A(1));\n#2=B();\n", {"#2=B();"}, {malformed(8, "#1", "the semicolon is missing")}},
    {"StringNotClosed",
     "#1=A('abc);\n#2=B('def');\n#3=C();\n",
     {"#2=B('def');", "#3=C();"},
     {malformed(8, "#1", OpenString)}},
    {"StringNotClosedOnOneLine",
     "#1=A('abc);#2=B('def');#3=C('x');\n",
     {"#2=B('def');", "#3=C('x');"},
     {malformed(8, "#1", OpenString)}},
    {"LastStringNotClosed", "#1=A();\n#2=B('abc);\n", {"#1=A();"}, {malformed(9, "#2", "a string is not closed")}},
    {"StringInListNotClosed",
     "#1=A(('abc),$);\n#2=B(('def'),$);\n",
     {"#2=B(('def'),$);"},
     {malformed(8, "#1", OpenString)}},
    {"ApostropheNotDoubled", "#1=A('Bob's house');\n#2=B('x');\n", {"#2=B('x');"}, {malformed(8, "#1", OpenString)}},
    {"ApostrophesNotDoubled",
     "#1=A('Bob's and Al's house');\n#2=B('x');\n",
     {"#2=B('x');"},
     {malformed(8, "#1", OpenString)}},
    {"CommentNotClosed", "#1=A();\n/* open\n#2=B();\n", {"#1=A();", "#2=B();"}, {"9: a comment is not closed"}},
    {"CommentInInstanceNotClosed",
     "#1=A(/*);\n#2=B();\n",
     {"#2=B();"},
     {malformed(8, "#1", "a comment is not closed")}},
    {"IdMissing",
     "#=A();\n#2=B();\n",
     {"#2=B();"},
     {"8: an instance is malformed: the id is missing; it is kept as it is and not used"}},
    {"IdZero",
     "#0=A();\n#2=B();\n",
     {"#2=B();"},
     {"8: an instance is malformed: 0 is no id; it is kept as it is and not used"}},
    {"IdTooLarge",
     "#18446744073709551616=A();\n#2=B();\n",
     {"#2=B();"},
     {"8: an instance is malformed: the id is too large; it is kept as it is and not used"}},
    {"EqualsMissing", "#1 A();\n#2=B();\n", {"#2=B();"}, {malformed(8, "#1", "'=' is missing")}},
    {"KeywordMissing", "#1=12;\n#2=B();\n", {"#2=B();"}, {malformed(8, "#1", "the keyword is missing")}},
    {"KeywordBeginsWithDigit", "#1=1A();\n#2=B();\n", {"#2=B();"}, {malformed(8, "#1", "the keyword is missing")}},
    {"ArgumentsMissing", "#1=A;\n#2=B();\n", {"#2=B();"}, {malformed(8, "#1", "a parenthesis is missing")}},
    {"TextBetweenInstances",
     "#1=A();\nhello\n#2=B();\n",
     {"#1=A();", "#2=B();"},
     {"9: unexpected text between the instances"}},
    {"KeywordWithoutId",
     "#1=A();\nIFCWALL();\n#2=B();\n",
     {"#1=A();", "#2=B();"},
     {"9: unexpected text between the instances"}},
    {"ZerosBetweenInstances",
     std::string("#1=A();\n\0\0\0\n#2=B();\n", 20),
     {"#1=A();", "#2=B();"},
     {"9: unexpected text between the instances"}},
    {"LinesCountedByAnyLineEnd",
     "#1=A();\r\n#2=B();\r#3=C()\r#4=D();\n",
     {"#1=A();", "#2=B();", "#4=D();"},
     {malformed(10, "#3", "the semicolon is missing")}},
};

class Malformed : public ::testing::TestWithParam<Fault> {};

TEST_P(Malformed, IsRemarkedAndTheRestIsRead) {
    const auto file = opened(fileOf(GetParam().data));
    EXPECT_EQ(instances(*file), GetParam().instances);
    EXPECT_EQ(remarks(*file), GetParam().remarks);
}

TEST_P(Malformed, IsKeptAsItIs) {
    EXPECT_EQ(opened(fileOf(GetParam().data))->bytes(), fileOf(GetParam().data));
}

TEST_P(Malformed, IsNotDisturbedByNewInstances) {
    Editing edit(fileOf(GetParam().data));
    const auto remarksBefore = remarks(*edit.file);
    const auto added = edit.append("X()", 2);
    ASSERT_TRUE(added) << added.error().message;
    const auto again = opened(edit.file->bytes());
    std::vector<std::string> expected = GetParam().instances;
    expected.emplace_back(edit.file->text(*added));
    EXPECT_THAT(instances(*again), ::testing::UnorderedElementsAreArray(expected));
    EXPECT_EQ(again->remarks().size(), remarksBefore.size());
}

INSTANTIATE_TEST_SUITE_P(Faults, Malformed, ::testing::ValuesIn(Faults),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(MalformedFile, TellsTheOffsetOfEachFault) {
    const std::string bytes = fileOf("#1=A();\n#2=B(;\n");
    const auto file = opened(bytes);
    ASSERT_EQ(file->remarks().size(), 1U);
    EXPECT_EQ(file->remarks()[0].offset, bytes.find("#2=B"));
}

TEST(MalformedFile, BrokenThroughoutIsReportedByItsFirstFaults) {
    std::string data;
    for (int i = 1; i <= 5000; ++i) data += "#" + std::to_string(i) + "=A(1\n";
    const auto file = opened(fileOf(data));
    ASSERT_EQ(file->remarks().size(), 1001U);
    EXPECT_EQ(remarks(*file).back(), "0: and 4000 more remarks like these");
}

struct Slow {
    const char* name;
    std::string line;
    std::string end;
};

class MalformedLines : public ::testing::TestWithParam<Slow> {};

TEST_P(MalformedLines, TakeLinearTime) {
    // At quadratic time 4 MB would take minutes.
    std::string data;
    while (data.size() < (4U << 20U)) data += GetParam().line;
    // Processor time, against a bound that only quadratic time comes near to: neither a busy machine nor a sanitizer
    // does.
    const testing_support::Stopwatch watch;
    const auto file = opened(fileOf(data + GetParam().end));
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
    EXPECT_FALSE(file->remarks().empty());
}

INSTANTIATE_TEST_SUITE_P(Adversaries, MalformedLines,
                         ::testing::Values(Slow{"OpenStrings", "#1=A('\n", ""}, Slow{"OpenComments", "#1=A(/*\n", ""},
                                           Slow{"CommentsClosedFarAway", "#1=A(/*\n", "*/"},
                                           Slow{"CommentsClosedFarAwayOutside", "/*\n#1=A(/*\n", "*/#"},
                                           Slow{"OpenParentheses", "#1=A((((\n", ""},
                                           Slow{"OpenStringsOnOneLine", "#1=A(';", ""}, Slow{"Parentheses", "(", ""},
                                           Slow{"Hashes", "#", ""}, Slow{"Semicolons", ";", "#"},
                                           Slow{"Zeros", std::string(1, '\0'), "x"}, Slow{"Apostrophes", "'", "#1=("},
                                           Slow{"StringsThenText", "#1=A('x'\n,", ""}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(DeepNesting, IsReadWithoutUsingUpTheStack) {
    const std::string depth(1U << 20U, '(');
    const std::string back(1U << 20U, ')');
    const auto file = opened(fileOf("#1=A(" + depth + back + ");\n#2=B();\n"));
    EXPECT_EQ(file->slotCount(), 2U);
    EXPECT_EQ(argument(*file, 1, 0).kind, ValueKind::Aggregate);
}

}  // namespace
}  // namespace step_tests
