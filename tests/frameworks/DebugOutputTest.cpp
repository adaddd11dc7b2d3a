#include "Support.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using testing_support::DebugOutput;

namespace {

template <class... Arguments>
std::string printed(const char* format, Arguments... arguments) {
    const DebugOutput output;
    DBPrintf(format, arguments...);
    return output.text;
}

}  // namespace

TEST(DebugOutput, TextWithoutArgumentsIsPrintedAsItStands) {
    for (const char* const text : {"", "plain\n", "%", "100 %", "%s", "%d and %s", "%n", "%5", "%-", "%.", "%ll", "%*d",
                                   "%1$s", "%999999999999999999999d", "50%\n", "% ", "%z", "Gr\xC3\xBC\xC3\x9F \xFF%q"})
        EXPECT_EQ(printed(text), text);
}

TEST(DebugOutput, DoubledPercentPrintsOne) {
    EXPECT_EQ(printed("100%%"), "100%");
    EXPECT_EQ(printed("%%%%s"), "%%s");
    EXPECT_EQ(printed("%%%d", 5), "%5");
}

TEST(DebugOutput, ConversionsTakeTheirArgumentsInOrder) {
    EXPECT_EQ(printed("%s=%d (%f)\n", "Width", 12, 0.5), "Width=12 (0.500000)\n");
    EXPECT_EQ(printed("%s%s", "a", "b"), "ab");
    EXPECT_EQ(printed("Abnormal add-on termination (\"%s\")", "/x/y"), "Abnormal add-on termination (\"/x/y\")");
}

TEST(DebugOutput, IntegersArePrintedInEachForm) {
    EXPECT_EQ(printed("%d %i %u", -7, 7L, 7U), "-7 7 7");
    EXPECT_EQ(printed("%x %X %#x %o", 255, 255, 255, 8), "ff FF 0xff 10");
    EXPECT_EQ(printed("%lld", INT64_MIN), "-9223372036854775808");
    EXPECT_EQ(printed("%d", INT64_MAX), "9223372036854775807");
    EXPECT_EQ(printed("%llu", UINT64_MAX), "18446744073709551615");
    EXPECT_EQ(printed("%08X", static_cast<int>(0x81060001)), "81060001") << "an int shows its 32 bits";
    EXPECT_EQ(printed("%lX", -1L), "FFFFFFFFFFFFFFFF");
    EXPECT_EQ(printed("%hhd", 300), "300") << "lengths cut nothing";
    EXPECT_EQ(printed("[%5d|%-5d|%05d|%+d|% d|%.3d]", 42, 42, 42, 42, 42, 42), "[   42|42   |00042|+42| 42|042]");
    EXPECT_EQ(printed("%c%c[%-3c]", 'o', 'k', 'x'), "ok[x  ]");
    EXPECT_EQ(printed("%c!", 0), "%c!") << "a zero byte would end the line";
}

TEST(DebugOutput, RealsArePrintedInEachForm) {
    EXPECT_EQ(printed("%f", 1e20), "100000000000000000000.000000");
    EXPECT_EQ(printed("%.2f|%8.1f|%-8.1f|%e|%G", 2.345, 1.25, 1.25, 1500.0, 1e-10),
              "2.35|     1.2|1.2     |1.500000e+03|1E-10");
    EXPECT_EQ(printed("%f", 0.5f), "0.500000");
}

TEST(DebugOutput, TextsArePaddedAndShortened) {
    EXPECT_EQ(printed("[%5s|%-5s|%.2s]", "abc", "abc", "abc"), "[  abc|abc  |ab]");
    const char* const none = nullptr;
    EXPECT_EQ(printed("%s", none), "(null)");
    const std::string longText(5000, 'x');
    EXPECT_EQ(printed("<%s>", longText.c_str()), "<" + longText + ">");
    EXPECT_EQ(printed("%.3000s", longText.c_str()).size(), 3000U);
}

TEST(DebugOutput, AddressIsPrinted) {
    const void* const address = reinterpret_cast<const void*>(std::uintptr_t{0x1234});
    EXPECT_EQ(printed("%p[%8p]", address, address), "0x1234[  0x1234]");
}

TEST(DebugOutput, ConversionWithoutAMatchingArgumentIsPrintedAsItStands) {
    EXPECT_EQ(printed("%d %s", 1), "1 %s");
    EXPECT_EQ(printed("%s", 5), "%s");
    EXPECT_EQ(printed("%5.1f", "text"), "%5.1f");
    EXPECT_EQ(printed("%d", 0.5), "%d");
    EXPECT_EQ(printed("%n", 5), "%n");
    EXPECT_EQ(printed("%s-%s", 5, "kept"), "%s-kept") << "it uses up its argument";
    EXPECT_EQ(printed("%*d", 5, 6), "%*d");
}

TEST(DebugOutput, FlagsWithoutAMeaningAreDropped) {
    EXPECT_EQ(printed("[%05s|%#s|%+s]", "a", "b", "c"), "[    a|b|c]");
    EXPECT_EQ(printed("[%#d|%03c|%.5c]", 1, 'a', 'b'), "[1|  a|b]");
}

TEST(DebugOutput, ExcessArgumentsAreLetPass) {
    EXPECT_EQ(printed("done", 1, "x"), "done");
}

TEST(DebugOutput, WidthAndPrecisionHaveALimit) {
    EXPECT_EQ(printed("%999999999d", 1).size(), 255U);
    EXPECT_EQ(printed("%99999999999999999999s", "x").size(), 255U);
    EXPECT_EQ(printed("%.999999999f", 1.0).size(), 257U);
    EXPECT_EQ(printed("%+++++++++#00000d", 1), "+1");
}

TEST(DebugOutput, NullFormatPrintsNothing) {
    EXPECT_EQ(printed(nullptr), "");
    EXPECT_EQ(printed(nullptr, 5), "");
}

TEST(DebugOutput, IsDroppedWhereNobodyListens) {
    DBPrintf("%s\n", "unheard");
    const DebugOutput output;
    EXPECT_EQ(output.text, "");
}

RC_GTEST_PROP(DebugOutput, NoTextIsDangerousAsAFormat, (const std::string& bytes)) {
    const std::string format = "%" + bytes;
    const std::string untilZero = format.c_str();
    const bool doubled = untilZero.find("%%") != untilZero.npos;
    RC_ASSERT(doubled || printed(format.c_str()) == untilZero);
    printed(format.c_str(), "text", 5, 0.5);
}
