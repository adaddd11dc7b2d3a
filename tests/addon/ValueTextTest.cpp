// A property's value as text: in the review list and in the lookup dialog, by one rule.

#include "FakeHost.hpp"

#include <gmock/gmock.h>

#include <cfloat>
#include <limits>

using namespace testing_support;

namespace {

struct ValueCase {
    const char* name;
    API_IFCProperty property;
    std::string text;
};

std::string nameOfCase(const ::testing::TestParamInfo<ValueCase>& info) {
    return info.param.name;
}

void PrintTo(const ValueCase& value, std::ostream* stream) {
    *stream << value.name;
}

ValueCase single(const char* name, const API_IFCPropertyValue& value, const char* text) {
    return {name, property("Pset_A", "Item", value), text};
}

API_IFCPropertyValue otherPrimitive(Int32 type) {
    API_IFCPropertyValue value = stringValue("not shown");
    value.primitiveType = type;
    value.integerValue = 1;
    return value;
}

class ValueText : public FakeHostTest, public ::testing::WithParamInterface<ValueCase> {
protected:
    void SetUp() override { host_.properties.Push(GetParam().property); }
};

TEST_P(ValueText, IsShownAsTheCurrentValue) {
    EXPECT_EQ(review(line("Item", "new")).at(0).current, GetParam().text);
}

TEST_P(ValueText, IsShownByTheLookup) {
    EXPECT_EQ(lookup().at(3).second, GetParam().text);
}

TEST_P(ValueText, IsWhatANewValueIsComparedWith) {
    EXPECT_EQ(review(line("Item", GetParam().text)).at(0).remarks, " Old and new values are the same.");
}

const std::string LargestReal = [] {
    char text[400];
    std::snprintf(text, sizeof text, "%f", DBL_MAX);
    return std::string(text);
}();

INSTANTIATE_TEST_SUITE_P(
    SingleValues, ValueText,
    ::testing::Values(single("Zero", integerValue(0), "0"), single("Negative", integerValue(-7), "-7"),
                      single("Largest", integerValue(std::numeric_limits<Int64>::max()), "9223372036854775807"),
                      single("Least", integerValue(std::numeric_limits<Int64>::min()), "-9223372036854775808"),
                      single("RealZero", realValue(0), "0.000000"), single("Real", realValue(12.5), "12.500000"),
                      single("NegativeReal", realValue(-0.5), "-0.500000"),
                      single("LargeReal", realValue(1e20), "100000000000000000000.000000"),
                      single("SmallReal", realValue(1e-9), "0.000000"),
                      single("LargestReal", realValue(DBL_MAX), LargestReal.c_str()),
                      single("True", booleanValue(1), "true"), single("False", booleanValue(0), "false"),
                      single("LowestBitClear", booleanValue(2), "false"),
                      single("LowestBitSet", booleanValue(3), "true"), single("LogicalFalse", logicalValue(0), "false"),
                      single("LogicalUnknown", logicalValue(1), "unknown"),
                      single("LogicalTrue", logicalValue(2), "true"), single("LogicalThree", logicalValue(3), ""),
                      single("LogicalNegative", logicalValue(-1), ""), single("String", stringValue("F 90"), "F 90"),
                      single("Blanks", stringValue("  F 90 "), "  F 90 "), single("EmptyString", stringValue(""), ""),
                      single("OtherPrimitive", otherPrimitive(5), ""),
                      single("NegativePrimitive", otherPrimitive(-1), "")),
    nameOfCase);

INSTANTIATE_TEST_SUITE_P(OtherKinds, ValueText,
                         ::testing::Values(ValueCase{"List", propertyOfKind("Item", 1), "???? List Value"},
                                           ValueCase{"Bounded", propertyOfKind("Item", 2), "???? Bounded Value"},
                                           ValueCase{"Enumerated", propertyOfKind("Item", 3), "???? Enum Value"},
                                           ValueCase{"Table", propertyOfKind("Item", 4), "???? Table Value"},
                                           ValueCase{"Reference", propertyOfKind("Item", 5), ""},
                                           ValueCase{"LaterKind", propertyOfKind("Item", 6), ""}),
                         nameOfCase);

}  // namespace
