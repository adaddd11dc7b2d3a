#include "Support.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstdlib>
#include <optional>

using GS::UniString;

namespace {

std::optional<Int64> scanInteger(const char* text) {
    Int64 value = 4711;
    const int converted = UniString(text).SScanf("%i", &value);
    if (converted == 0) {
        EXPECT_EQ(value, 4711) << text;
        return {};
    }
    EXPECT_EQ(converted, 1) << text;
    return value;
}

std::optional<double> scanReal(const char* text) {
    double value = 4711;
    const int converted = UniString(text).SScanf("%f", &value);
    if (converted == 0) {
        EXPECT_EQ(value, 4711) << text;
        return {};
    }
    EXPECT_EQ(converted, 1) << text;
    return value;
}

}  // namespace

TEST(NumberScan, IntegerAtTheBeginningIsRead) {
    struct {
        const char* text;
        Int64 expected;
    } const cases[] = {{"0", 0},
                       {"12", 12},
                       {"-12", -12},
                       {"+12", 12},
                       {" \t\n12", 12},
                       {"12abc", 12},
                       {"3.5", 3},
                       {"12 13", 12},
                       {"010", 8},
                       {"-017", -15},
                       {"08", 0},
                       {"0x1F", 31},
                       {"0Xff", 255},
                       {"-0x10", -16},
                       {"0x", 0},
                       {"0xg", 0},
                       {"9223372036854775807", INT64_MAX},
                       {"9223372036854775808", INT64_MAX},
                       {"-9223372036854775808", INT64_MIN},
                       {"-9223372036854775809", INT64_MIN},
                       {"99999999999999999999999", INT64_MAX},
                       {"-99999999999999999999999", INT64_MIN},
                       {"0x7FFFFFFFFFFFFFFF", INT64_MAX},
                       {"0xFFFFFFFFFFFFFFFF", INT64_MAX},
                       {"0777777777777777777777", INT64_MAX},
                       {"-01000000000000000000000", INT64_MIN}};
    for (const auto& each : cases) EXPECT_EQ(scanInteger(each.text), each.expected) << each.text;
}

TEST(NumberScan, TextThatBeginsWithNoIntegerIsNone) {
    for (const char* const text : {"", " ", "-", "+", "--1", "+-1", "- 1", ".5", "abc", "x1",
                                   "\xC2\xA0"
                                   "1",
                                   "\xD9\xA1", "infinity"})
        EXPECT_EQ(scanInteger(text), std::nullopt) << text;
}

TEST(NumberScan, RealAtTheBeginningIsRead) {
    struct {
        const char* text;
        double expected;
    } const cases[] = {{"0", 0},
                       {"12.5", 12.5},
                       {".5", 0.5},
                       {"5.", 5},
                       {"-.5", -0.5},
                       {"+1.25", 1.25},
                       {" \r\f2.75m", 2.75},
                       {"1e3", 1000},
                       {"1E+2", 100},
                       {"25e-1", 2.5},
                       {"1e", 1},
                       {"1e+", 1},
                       {"1.2.3", 1.2},
                       {"1,5", 1},
                       {"0x1F", 0},
                       {"0.1", 0.1},
                       {"1.7976931348623157e308", 1.7976931348623157e308},
                       {"1e999", INFINITY},
                       {"-1e999", -INFINITY},
                       {"1e-999", 0},
                       {"0.00001e-999999999999999999999", 0},
                       {"1e99999999999999999999", INFINITY},
                       {"000001e400", INFINITY}};
    for (const auto& each : cases) EXPECT_EQ(scanReal(each.text), each.expected) << each.text;
}

TEST(NumberScan, LongRealsOutOfRangeAreToldApart) {
    const std::string zeros(400, '0');
    EXPECT_EQ(scanReal(("1" + zeros).c_str()), INFINITY);
    EXPECT_EQ(scanReal(("1" + zeros + "e-5").c_str()), INFINITY);
    EXPECT_EQ(scanReal(("." + zeros + "1").c_str()), 0.0);
    EXPECT_EQ(scanReal(("0." + zeros + "1e5").c_str()), 0.0);
    EXPECT_EQ(scanReal(("1" + zeros + "e-400").c_str()), 1.0);
}

TEST(NumberScan, WordsAreNoReals) {
    for (const char* const text :
         {"", "-", ".", "-.", "e5", ".e5", "inf", "Infill", "infinity", "nan", "Nano coating", "-inf", "abc", "- 1"})
        EXPECT_EQ(scanReal(text), std::nullopt) << text;
}

TEST(NumberScan, OtherFormatsConvertNothing) {
    Int64 integer = 1;
    double real = 1;
    for (const char* const format : {"%d", "%i ", " %i", "", "%f", "%lli"})
        EXPECT_EQ(UniString("5").SScanf(format, &integer), 0) << format;
    for (const char* const format : {"%g", "%lf", "", "%i"})
        EXPECT_EQ(UniString("5").SScanf(format, &real), 0) << format;
    EXPECT_EQ(UniString("5").SScanf(nullptr, &integer), 0);
    EXPECT_EQ(UniString("5").SScanf("%i", static_cast<Int64*>(nullptr)), 0);
    EXPECT_EQ(integer, 1);
    EXPECT_EQ(real, 1);
}

namespace {

std::string textOf(const char* characters) {
    return *rc::gen::container<std::string>(rc::gen::elementOf(std::string(characters)));
}

}  // namespace

// In the "C" locale, which tests run in, and without words and hexadecimal reals the C library has the same rules.

RC_GTEST_PROP(NumberScan, IntegerIsWhatTheCLibraryReads, ()) {
    const std::string text = textOf("00123456789789+-  xXabfFgG.");
    char* end = nullptr;
    const long long expected = std::strtoll(text.c_str(), &end, 0);
    RC_ASSERT(scanInteger(text.c_str()) == (end == text.c_str() ? std::nullopt : std::optional<Int64>(expected)));
}

RC_GTEST_PROP(NumberScan, RealIsWhatTheCLibraryReads, ()) {
    const std::string text = textOf("0012345678999+-  ..eE,");
    char* end = nullptr;
    const double expected = std::strtod(text.c_str(), &end);
    RC_ASSERT(scanReal(text.c_str()) == (end == text.c_str() ? std::nullopt : std::optional<double>(expected)));
}
