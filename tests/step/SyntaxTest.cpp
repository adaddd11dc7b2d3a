// Cutting instances, lists and typed values into their parts.

#include "model/step/syntax/Characters.hpp"
#include "step/StepText.hpp"

namespace step_tests {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Token {
    const char* text;
    ValueKind kind;
};

std::ostream& operator<<(std::ostream& out, const Token& token) {
    return out << token.text;
}

class Tokens : public ::testing::TestWithParam<Token> {};

TEST_P(Tokens, AreToldApart) {
    const std::string text = "#1=A($," + std::string(GetParam().text) + " /* c */ ,7);";
    Instance instance;
    ASSERT_TRUE(splitInstance(text, instance));
    ASSERT_EQ(instance.arguments.size(), 3U);
    // Of what is malformed only the comma is known to be its end.
    const bool malformed = GetParam().kind == ValueKind::Malformed;
    EXPECT_EQ(instance.arguments[1].text, std::string(GetParam().text) + (malformed ? " /* c */" : ""));
    EXPECT_EQ(instance.arguments[1].kind, GetParam().kind);
    EXPECT_EQ(instance.arguments[2].kind, ValueKind::Integer);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, Tokens,
    ::testing::Values(
        Token{"$", ValueKind::Unset}, Token{"*", ValueKind::Derived}, Token{"0", ValueKind::Integer},
        Token{"-12", ValueKind::Integer}, Token{"+0012", ValueKind::Integer}, Token{"1.", ValueKind::Real},
        Token{"-0.5", ValueKind::Real}, Token{"1.E-05", ValueKind::Real}, Token{"1.5e+3", ValueKind::Real},
        Token{"1E-05", ValueKind::Real}, Token{".5", ValueKind::Real}, Token{"-.5", ValueKind::Real},
        Token{"''", ValueKind::String}, Token{"'a,b)'", ValueKind::String}, Token{"'it''s'", ValueKind::String},
        Token{".T.", ValueKind::Enumeration}, Token{".NOT_DEFINED2.", ValueKind::Enumeration},
        Token{"\"0A1F\"", ValueKind::Binary}, Token{"\"\"", ValueKind::Binary}, Token{"#12", ValueKind::Reference},
        Token{"#0012", ValueKind::Reference}, Token{"()", ValueKind::Aggregate}, Token{"(1,2)", ValueKind::Aggregate},
        Token{"((1),('a)'),())", ValueKind::Aggregate}, Token{"IFCLABEL('x')", ValueKind::Typed},
        Token{"IfcLabel ( 'x' )", ValueKind::Typed}, Token{"!MINE(1)", ValueKind::Typed},
        Token{"A(B(.T.))", ValueKind::Typed}, Token{"abc", ValueKind::Malformed}, Token{"1.#IND", ValueKind::Malformed},
        Token{"1.E", ValueKind::Malformed}, Token{"-", ValueKind::Malformed}, Token{".T", ValueKind::Malformed},
        Token{"..", ValueKind::Malformed}, Token{"\"0X\"", ValueKind::Malformed}, Token{"#", ValueKind::Malformed},
        Token{"#PI", ValueKind::Malformed}, Token{"@3", ValueKind::Malformed}, Token{"1 2", ValueKind::Malformed},
        Token{"#1#2", ValueKind::Malformed}, Token{"$$", ValueKind::Malformed},
        Token{"IFCLABEL 'x'", ValueKind::Malformed}, Token{"a(1)b", ValueKind::Malformed}));

TEST(SplitInstance, TellsTheParts) {
    Instance instance;
    ASSERT_TRUE(splitInstance("#0012 /*a*/ = IfcWall /*b*/ ( 'x' , ( 1 , 2 ) ) ;", instance));
    EXPECT_EQ(instance.id, 12U);
    EXPECT_EQ(instance.keyword, "IfcWall");
    EXPECT_FALSE(instance.complex);
    ASSERT_EQ(instance.arguments.size(), 2U);
    EXPECT_EQ(instance.arguments[0].text, "'x'");
    EXPECT_EQ(instance.arguments[1].text, "( 1 , 2 )");
}

TEST(SplitInstance, WithoutArgumentsHasNone) {
    Instance instance;
    ASSERT_TRUE(splitInstance("#1=A( /* none */ );", instance));
    EXPECT_THAT(instance.arguments, IsEmpty());
}

TEST(SplitInstance, OfAComplexOneSplitsNothing) {
    Instance instance;
    ASSERT_TRUE(splitInstance("#1=(A(1)B('x'));", instance));
    EXPECT_TRUE(instance.complex);
    EXPECT_EQ(instance.keyword, "");
    EXPECT_THAT(instance.arguments, IsEmpty());
}

TEST(SplitInstance, ForgetsTheOneBefore) {
    Instance instance;
    ASSERT_TRUE(splitInstance("#1=(A(1));", instance));
    ASSERT_TRUE(splitInstance("#2=B(1,2);", instance));
    ASSERT_TRUE(splitInstance("#3=C(3);", instance));
    EXPECT_FALSE(instance.complex);
    EXPECT_EQ(instance.arguments.size(), 1U);
}

TEST(SplitInstance, RefusesWhatIsNotWellFormed) {
    for (const std::string_view text : {"",          "#1",        "#1=",         "#1=A",
                                        "#1=A(",     "#1=A()",    "#1=A(;",      "#1=A(1;",
                                        "#1=A((1);", "#1=A('x);", "#1=A('x'y);", "#1=A(('x'y));",
                                        "#1=A()B;",  "#1=A();x",  "=A();",       "1=A();",
                                        "#x=A();",   "#1=A(/*);", "#1=A(1=2);",  "#99999999999999999999=A();",
                                        " #1=A();"}) {
        Instance instance;
        EXPECT_FALSE(splitInstance(text, instance)) << text;
    }
}

std::vector<std::string> elements(std::string_view text) {
    std::vector<Value> values;
    if (!splitAggregate({ValueKind::Aggregate, text}, values)) return {"not well formed"};
    std::vector<std::string> texts;
    for (const Value& value : values) texts.emplace_back(value.text);
    return texts;
}

TEST(SplitAggregate, GivesTheElements) {
    EXPECT_THAT(elements("()"), IsEmpty());
    EXPECT_THAT(elements("( /*none*/ )"), IsEmpty());
    EXPECT_THAT(elements("(#1)"), ElementsAre("#1"));
    EXPECT_THAT(elements("( #1 ,\r\n /*b*/ #2\t)"), ElementsAre("#1", "#2"));
    EXPECT_THAT(elements("((1,2),'a,b',A(1,2))"), ElementsAre("(1,2)", "'a,b'", "A(1,2)"));
    EXPECT_THAT(elements("(1,)"), ElementsAre("1", ""));
    EXPECT_THAT(elements("(1"), ElementsAre("not well formed"));
    EXPECT_THAT(elements("(1)2"), ElementsAre("not well formed"));
    EXPECT_THAT(elements("('a'b)"), ElementsAre("not well formed"));
}

TEST(SplitAggregate, OfAnotherKindIsNone) {
    std::vector<Value> values;
    EXPECT_FALSE(splitAggregate({ValueKind::Typed, "A(1)"}, values));
    EXPECT_FALSE(splitAggregate({ValueKind::Malformed, "(1)"}, values));
}

TEST(SplitTyped, GivesKeywordAndInnerValue) {
    std::string_view keyword;
    Value inner;
    ASSERT_TRUE(splitTyped({ValueKind::Typed, "IfcLabel /*a*/ ( /*b*/ 'x' )"}, keyword, inner));
    EXPECT_EQ(keyword, "IfcLabel");
    EXPECT_EQ(inner.text, "'x'");
    EXPECT_EQ(inner.kind, ValueKind::String);
    ASSERT_TRUE(splitTyped({ValueKind::Typed, "A(B(1.))"}, keyword, inner));
    EXPECT_EQ(inner.kind, ValueKind::Typed);
}

TEST(SplitTyped, TakesExactlyOneInnerValue) {
    std::string_view keyword;
    Value inner;
    for (const std::string_view text : {"A()", "A(1,2)", "A(1", "A(1)x"})
        EXPECT_FALSE(splitTyped({ValueKind::Typed, text}, keyword, inner)) << text;
    EXPECT_FALSE(splitTyped({ValueKind::Aggregate, "(1)"}, keyword, inner));
}

TEST(SimpleValues, OfAnotherKindGiveNothing) {
    EXPECT_EQ(referenceId({ValueKind::Reference, "#0012"}), 12U);
    EXPECT_EQ(referenceId({ValueKind::Reference, "#99999999999999999999"}), 0U);
    EXPECT_EQ(referenceId({ValueKind::Integer, "12"}), 0U);
    EXPECT_EQ(enumerationItem({ValueKind::Enumeration, ".T."}), "T");
    EXPECT_EQ(enumerationItem({ValueKind::String, "'T'"}), "");
    EXPECT_TRUE(equalIgnoringCase("IfcWall", "IFCWALL"));
    EXPECT_FALSE(equalIgnoringCase("IfcWall", "IFCWALLS"));
    EXPECT_FALSE(equalIgnoringCase("[", "{"));
}

}  // namespace
}  // namespace step_tests
