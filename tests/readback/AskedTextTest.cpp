#include "readback/AskedText.hpp"

#include <gmock/gmock.h>

namespace readback {
namespace {

struct TextRow {
    const char* text;
    std::optional<std::int64_t> integer;
    std::optional<double> real;
    std::optional<Truth> truth;
    const char* newType;
};

class AskedText : public testing::TestWithParam<TextRow> {};

TEST_P(AskedText, IsReadAsAWhole) {
    const TextRow& row = GetParam();
    EXPECT_EQ(wholeInteger(row.text), row.integer) << row.text;
    EXPECT_EQ(wholeReal(row.text, DecimalSign::Point), row.real) << row.text;
    EXPECT_EQ(truthValue(row.text), row.truth) << row.text;
    EXPECT_EQ(typeByText(row.text, DecimalSign::Point), row.newType) << row.text;
}

constexpr auto None = std::nullopt;

INSTANTIATE_TEST_SUITE_P(
    Texts, AskedText,
    testing::Values(
        TextRow{"", None, None, None, "IfcLabel"}, TextRow{"true", None, None, Truth::True, "IfcBoolean"},
        TextRow{"TRUE", None, None, Truth::True, "IfcBoolean"}, TextRow{".T.", None, None, Truth::True, "IfcBoolean"},
        TextRow{".f.", None, None, Truth::False, "IfcBoolean"},
        TextRow{"false", None, None, Truth::False, "IfcBoolean"}, TextRow{"yes", None, None, Truth::True, "IfcLabel"},
        TextRow{"No", None, None, Truth::False, "IfcLabel"}, TextRow{".U.", None, None, Truth::Unknown, "IfcLabel"},
        TextRow{"unknown", None, None, Truth::Unknown, "IfcLabel"}, TextRow{"0", 0, 0.0, Truth::False, "IfcInteger"},
        TextRow{"1", 1, 1.0, Truth::True, "IfcInteger"}, TextRow{"-7", -7, -7.0, None, "IfcInteger"},
        TextRow{"+7", 7, 7.0, None, "IfcLabel"}, TextRow{"007", 7, 7.0, None, "IfcLabel"},
        TextRow{"-0", 0, -0.0, None, "IfcInteger"},
        TextRow{"9223372036854775807", 9223372036854775807, 9223372036854775807.0, None, "IfcInteger"},
        TextRow{"9223372036854775808", None, 9223372036854775808.0, None, "IfcLabel"},
        TextRow{"-9223372036854775808", INT64_MIN, -9223372036854775808.0, None, "IfcInteger"},
        TextRow{"9.5", None, 9.5, None, "IfcReal"}, TextRow{"9,5", None, None, None, "IfcLabel"},
        TextRow{".5", None, 0.5, None, "IfcReal"}, TextRow{"5.", None, 5.0, None, "IfcReal"},
        TextRow{".", None, None, None, "IfcLabel"}, TextRow{"-", None, None, None, "IfcLabel"},
        TextRow{"1e3", None, 1000.0, None, "IfcReal"}, TextRow{"1E+3", None, 1000.0, None, "IfcReal"},
        TextRow{"1e", None, None, None, "IfcLabel"}, TextRow{"1e400", None, None, None, "IfcLabel"},
        TextRow{"1e-400", None, None, None, "IfcLabel"}, TextRow{"12abc", None, None, None, "IfcLabel"},
        TextRow{"0x1F", None, None, None, "IfcLabel"}, TextRow{"inf", None, None, None, "IfcLabel"},
        TextRow{"nan", None, None, None, "IfcLabel"}, TextRow{" 5", None, None, None, "IfcLabel"},
        TextRow{"5 ", None, None, None, "IfcLabel"}, TextRow{"1.2.3", None, None, None, "IfcLabel"},
        TextRow{"2024-05-17", None, None, None, "IfcDate"}, TextRow{"2024-02-30", None, None, None, "IfcLabel"},
        TextRow{"2023-02-29", None, None, None, "IfcLabel"}, TextRow{"2024-02-29", None, None, None, "IfcDate"},
        TextRow{"24-05-17", None, None, None, "IfcLabel"}, TextRow{"2024-5-17x", None, None, None, "IfcLabel"},
        TextRow{"+49 171", None, None, None, "IfcLabel"}, TextRow{"+49171", 49171, 49171.0, None, "IfcLabel"},
        TextRow{"F 90", None, None, None, "IfcLabel"}));

TEST(AskedReal, MayHaveACommaWhereItsColumnShowsCommas) {
    EXPECT_EQ(wholeReal("9,5", DecimalSign::Comma), 9.5);
    EXPECT_EQ(wholeReal("9.5", DecimalSign::Comma), 9.5);
    EXPECT_EQ(wholeReal("1.234,5", DecimalSign::Comma), std::nullopt);
    EXPECT_EQ(wholeReal("1,234,5", DecimalSign::Comma), std::nullopt);
    EXPECT_EQ(typeByText("9,5", DecimalSign::Comma), "IfcReal");
}

TEST(TypeByText, OfALongTextIsIfcTextAbove255Characters) {
    std::string text;
    for (int i = 0; i < 255; ++i) text += "ü";
    EXPECT_EQ(typeByText(text, DecimalSign::Point), "IfcLabel");
    EXPECT_EQ(typeByText(text + "x", DecimalSign::Point), "IfcText");
}

}  // namespace
}  // namespace readback
