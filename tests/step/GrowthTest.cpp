// Files made to cost time with the square of their length: many places from each of which reading seems to go on to the
// end. At the sizes here that would take minutes, reading each byte a few times takes a fraction of a second.

#include "step/StepText.hpp"
#include "support/Stopwatch.hpp"

#include <functional>

namespace step_tests {
namespace {

using ::testing::Contains;

std::string repeated(std::size_t count, const std::string& text) {
    std::string all;
    all.reserve(count * text.size());
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}

/// "#10=" and so on, each followed by `text`.
std::string instancesOf(std::size_t count, const std::string& text) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += "#" + std::to_string(i + 10) + "=" + text;
    return all;
}

/// A file with `text` in front of its section DATA.
std::string beforeData(const std::string& text) {
    std::string file = fileOf("#1=A();\n#2=B('x');\n");
    return file.insert(file.find("DATA;"), text);
}

/// `data` between two sound instances.
std::string between(const std::string& data) {
    return fileOf("#1=A();\n" + data + "\n#2=B('x');\n");
}

struct Nasty {
    const char* name;
    std::function<std::string()> make;
};

const std::size_t Many = 150000;

const Nasty Table[] = {
    {"StringsThatAreNotClosed", [] { return between(instancesOf(Many, "A(/*',*/'\n")); }},
    {"StringsInsideListsThatAreNotClosed", [] { return between(instancesOf(Many, "A((/*',*/'\n")); }},
    {"ListsThatEndTogetherWithoutASemicolon",
     [] { return between(instancesOf(Many, "A((/*',*/'\n") + "'" + std::string(2 * Many, ')')); }},
    {"CommentsThatEndTogether", [] { return between(instancesOf(Many, "A(/*\n") + "*/" + repeated(Many * 5, "1,")); }},
    {"InstancesBeforeOneCommentThatIsNotClosed",
     [] {
         return fileOf("#1=A();\n#2=B('x');\n" + instancesOf(Many, "A();/*)") + "*/" + std::string(Many * 10, ' ') +
                       "/*");
     }},
    {"EntriesOfTheHeader",
     [] {
         std::string file = fileOf("#1=A();\n#2=B('x');\n");
         return file.insert(file.find("ENDSEC;"), repeated(Many, "X(/*',*/';\n"));
     }},
    {"ListsOfDataSections", [] { return beforeData(repeated(Many, "DATA(/*',*/'\nENDSEC;\n")); }},
    {"EmptyDataSections",
     [] {
         std::string file = fileOf("#1=A();\n#2=B('x');\n");
         return file.insert(file.find("END-ISO"), repeated(Many * 3, "DATA;ENDSEC;\n"));
     }},
    {"BracketsOfAnAnchorSection", [] { return beforeData("ANCHOR;\n" + std::string(Many * 5, '<') + "\nENDSEC;\n"); }},
    {"AnchorSectionsWithoutASemicolon",
     [] { return beforeData(repeated(Many, "ANCHOR/*;") + "*/" + std::string(Many * 10, ' ') + "x;\n"); }},
    {"EndsOfTheSignature",
     [] {
         return fileOf("#1=A();\n#2=B('x');\n") + "SIGNATURE;\n" + repeated(Many, "ENDSEC/*") + "*/" +
                std::string(Many * 10, ' ');
     }},
};

class Growth : public ::testing::TestWithParam<Nasty> {};

TEST_P(Growth, StaysLinearAndLosesNothing) {
    const std::string bytes = GetParam().make();
    const testing_support::Stopwatch watch;
    const auto file = opened(bytes);
    EXPECT_EQ(file->bytes(), bytes);
    ASSERT_NE(file->find(1), NoSlot);
    EXPECT_EQ(file->text(file->find(1)), "#1=A();");
    ASSERT_NE(file->find(2), NoSlot);
    EXPECT_EQ(file->text(file->find(2)), "#2=B('x');");
    ASSERT_TRUE(file->begin());
    ASSERT_TRUE(file->append("C()", file->find(1)));
    file->commit("Edit");
    EXPECT_THAT(instances(*opened(file->bytes())), Contains(::testing::EndsWith("=C();")));
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
}

INSTANTIATE_TEST_SUITE_P(Files, Growth, ::testing::ValuesIn(Table), [](const auto& row) { return row.param.name; });

/// All on one line, so that the end of a line is far from each of them.
TEST(GrowthOfEdits, OfSectionsWithNewInstancesIsLinear) {
    std::string bytes = fileOf("");
    std::string sections;
    for (std::size_t i = 1; i <= Many; ++i) sections += "DATA;#" + std::to_string(i) + "=A();ENDSEC;";
    bytes.insert(bytes.find("END-ISO"), sections);
    const testing_support::Stopwatch watch;
    const auto file = opened(bytes);
    ASSERT_TRUE(file->begin());
    for (Slot slot = 0; slot < Many; ++slot) ASSERT_TRUE(file->append("B()", slot));
    file->commit("Edit");
    EXPECT_EQ(opened(file->bytes())->slotCount(), 2 * Many);
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
}

TEST(GrowthOfEdits, OfCommentsBehindAnInstanceThatIsCopiedIsLinear) {
    const std::string comments = repeated(2 * Many, "/**/");
    const auto file = opened(fileOf("#1=A();" + comments + "\n#2=B();\n"));
    const testing_support::Stopwatch watch;
    ASSERT_TRUE(file->begin());
    ASSERT_TRUE(file->insertBehind("A()", file->find(1)));
    file->commit("Edit");
    EXPECT_EQ(dataOf(file->bytes()), "#1=A();" + comments + "\n#3=A();\n#2=B();\n");
    EXPECT_LT(watch.seconds(), testing_support::MostSeconds);
}

/// What a file that is broken throughout says of a sound instance behind: it is read by its layout then, and strings
/// still hold what they hold.
TEST(BrokenThroughout, StillFindsWhatIsSoundByItsLayout) {
    const std::string sound = "#2=B('it''s; \\S\\''',/*c*/(1,2));\n#3=C('a)b',$);\n\n#4=\n D ( ) ;\n";
    const auto file = opened(fileOf("#1=A();\n" + instancesOf(Many, "A(/*',*/'\n") + sound));
    EXPECT_EQ(file->text(file->find(2)), "#2=B('it''s; \\S\\''',/*c*/(1,2));");
    EXPECT_EQ(file->text(file->find(3)), "#3=C('a)b',$);");
    EXPECT_EQ(file->text(file->find(4)), "#4=\n D ( ) ;");
}

}  // namespace
}  // namespace step_tests
