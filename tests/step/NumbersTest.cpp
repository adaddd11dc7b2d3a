#include "model/step/syntax/Numbers.hpp"
#include "step/StepText.hpp"

#include <rapidcheck.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <limits>

namespace step_tests {
namespace {

constexpr double Largest = std::numeric_limits<double>::max();
constexpr double Smallest = std::numeric_limits<double>::denorm_min();

struct Written {
    double value;
    const char* encoded;
    const char* displayed;
};

TEST(Reals, AreWrittenShortAndWithAPoint) {
    for (const Written& row : {Written{0.0, "0.", "0"},
                               {-0.0, "-0.", "-0"},
                               {1.0, "1.", "1"},
                               {-3.0, "-3.", "-3"},
                               {12.5, "12.5", "12.5"},
                               {0.1, "0.1", "0.1"},
                               {100000.0, "100000.", "100000"},
                               {1e15, "1000000000000000.", "1000000000000000"},
                               {1e16, "1.E+16", "1e+16"},
                               {1.5e20, "1.5E+20", "1.5e+20"},
                               {0.0001, "0.0001", "0.0001"},
                               {1e-5, "1.E-05", "1e-05"},
                               {-1.25e-7, "-1.25E-07", "-1.25e-07"},
                               {0.1 + 0.2, "0.30000000000000004", "0.30000000000000004"},
                               {Largest, "1.7976931348623157E+308", "1.7976931348623157e+308"},
                               {Smallest, "5.E-324", "5e-324"}}) {
        EXPECT_EQ(encodeReal(row.value), row.encoded);
        EXPECT_EQ(displayReal(row.value), row.displayed);
    }
}

ValueKind kindOf(const std::string& text) {
    Instance instance;
    EXPECT_TRUE(splitInstance("#1=A(" + text + ");", instance)) << text;
    return instance.arguments.at(0).kind;
}

TEST(Reals, ReadBackToTheSameDouble) {
    EXPECT_TRUE(rc::check([](std::uint64_t bits) {
        const auto value = std::bit_cast<double>(bits);
        RC_PRE(std::isfinite(value));
        const std::string text = encodeReal(value);
        RC_ASSERT(kindOf(text) == ValueKind::Real);
        const auto read = realValue({ValueKind::Real, text});
        RC_ASSERT(read.has_value());
        RC_ASSERT(std::bit_cast<std::uint64_t>(*read) == bits);
    }));
}

TEST(Reals, ReadBackFromWhatIsDisplayed) {
    EXPECT_TRUE(rc::check([](double value) {
        const auto read = realValue({ValueKind::Real, displayReal(value)});
        RC_ASSERT(read.has_value());
        RC_ASSERT(*read == value);
    }));
}

TEST(Reals, AreReadWhereverFilesBendTheRules) {
    const auto real = [](const std::string& text) { return realValue({kindOf(text), text}); };
    EXPECT_EQ(real("1."), 1.0);
    EXPECT_EQ(real("+1.5"), 1.5);
    EXPECT_EQ(real("-0."), 0.0);
    EXPECT_EQ(real("1.E-05"), 1e-5);
    EXPECT_EQ(real("1.e+5"), 1e5);
    EXPECT_EQ(real("1E-05"), 1e-5);
    EXPECT_EQ(real("12"), 12.0);
    EXPECT_EQ(real("0"), 0.0);
    EXPECT_EQ(real("007.50"), 7.5);
    EXPECT_EQ(real(".5"), 0.5);
    EXPECT_EQ(real("1.E-400"), 0.0);
    EXPECT_EQ(real("0." + std::string(400, '0') + "1"), 0.0);
}

TEST(Reals, ThatAreNoFiniteNumberGiveNothing) {
    EXPECT_FALSE(realValue({ValueKind::Real, "1.E400"}));
    EXPECT_FALSE(realValue({ValueKind::Integer, "1" + std::string(400, '0')}));
    EXPECT_FALSE(realValue({ValueKind::Malformed, "1.#INF"}));
    EXPECT_FALSE(realValue({ValueKind::String, "'1.'"}));
    EXPECT_FALSE(realValue({ValueKind::Unset, "$"}));
}

TEST(Integers, FillSixtyFourBitsAndNoMore) {
    const auto integer = [](const char* text) { return integerValue({ValueKind::Integer, text}); };
    EXPECT_EQ(integer("0"), 0);
    EXPECT_EQ(integer("+0012"), 12);
    EXPECT_EQ(integer("-5"), -5);
    EXPECT_EQ(integer("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(integer("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(integer("9223372036854775808"), std::nullopt);
    EXPECT_EQ(integerValue({ValueKind::Real, "1."}), std::nullopt);
}

TEST(Numbers, AreTheSameInEveryLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE"}) std::setlocale(LC_ALL, name);
    EXPECT_EQ(encodeReal(1234.5), "1234.5");
    EXPECT_EQ(realValue({ValueKind::Real, "1234.5"}), 1234.5);
    std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace step_tests
