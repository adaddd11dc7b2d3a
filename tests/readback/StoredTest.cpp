#include "readback/Stored.hpp"

#include <gmock/gmock.h>

namespace readback {
namespace {

Stored text(const char* value) {
    return {Stored::Kind::Text, value};
}
Stored integer(std::int64_t value) {
    return {Stored::Kind::Integer, {}, {}, value};
}
Stored real(double value) {
    return {Stored::Kind::Real, {}, {}, 0, value};
}
Stored truth(Stored::Kind kind, Truth value) {
    return {kind, {}, {}, 0, 0, value};
}
Stored item(const char* value) {
    return {Stored::Kind::Enumeration, value};
}
Stored enumerated(std::vector<std::string> items) {
    return {Stored::Kind::Enumerated, {}, {}, 0, 0, Truth::False, std::move(items)};
}
Stored classification(const char* code, const char* title) {
    return {Stored::Kind::Classification, code, title};
}

struct StoredRow {
    const char* asked;
    Stored stored;
    bool asAsked;
    const char* shown;
};

class StoredValue : public testing::TestWithParam<StoredRow> {};

TEST_P(StoredValue, IsAsAskedByItsType) {
    const StoredRow& row = GetParam();
    EXPECT_EQ(isAsAsked(row.asked, row.stored), row.asAsked) << row.asked;
    EXPECT_EQ(textOf(row.stored), row.shown);
}

constexpr auto Boolean = Stored::Kind::Boolean;
constexpr auto Logical = Stored::Kind::Logical;

INSTANTIATE_TEST_SUITE_P(
    Values, StoredValue,
    testing::Values(
        StoredRow{"", {}, true, ""}, StoredRow{"x", {}, false, ""}, StoredRow{"F 90", text("F 90"), true, "F 90"},
        StoredRow{"F 90 ", text("F 90"), false, "F 90"}, StoredRow{".T.", text("true"), false, "true"},
        StoredRow{"007", integer(7), true, "7"}, StoredRow{"9,5", integer(9), false, "9"},
        StoredRow{"2024-05-17", integer(2024), false, "2024"}, StoredRow{"+49171", integer(49171), true, "49171"},
        StoredRow{"", integer(0), false, "0"}, StoredRow{"9.50", real(9.5), true, "9.5"},
        StoredRow{"9,5", real(9), false, "9"}, StoredRow{"1e3", real(1000), true, "1000"},
        StoredRow{"false", truth(Boolean, Truth::True), false, "true"},
        StoredRow{"No", truth(Boolean, Truth::False), true, "false"},
        StoredRow{"1", truth(Boolean, Truth::True), true, "true"},
        StoredRow{"unknown", truth(Logical, Truth::Unknown), true, "unknown"},
        StoredRow{"unknown", truth(Logical, Truth::True), false, "true"},
        StoredRow{"ceiling", item("CEILING"), true, "CEILING"}, StoredRow{"floor", item("CEILING"), false, "CEILING"},
        StoredRow{"new", enumerated({"NEW"}), true, "NEW"}, StoredRow{"A, B", enumerated({"A", "B"}), true, "A, B"},
        StoredRow{"A", enumerated({"A", "B"}), false, "A, B"},
        StoredRow{"B2010{Exterior Walls}", classification("B2010", "Exterior Walls"), true, "B2010{Exterior Walls}"},
        StoredRow{"B2010", classification("B2010", ""), true, "B2010"},
        StoredRow{"B2010{Exterior", classification("B2010", "Exterio"), false, "B2010{Exterio}"},
        StoredRow{"B2010 {Exterior}", classification("B2010", "Exterior"), false, "B2010{Exterior}"},
        StoredRow{"1", {Stored::Kind::Other}, false, ""}, StoredRow{"", {Stored::Kind::Other}, false, ""}));

TEST(StoredReal, IsAsAskedWithACommaWhereItsColumnShowsCommas) {
    EXPECT_TRUE(isAsAsked("9,5", real(9.5), DecimalSign::Comma));
    EXPECT_FALSE(isAsAsked("9,5", real(9.5), DecimalSign::Point));
}

}  // namespace
}  // namespace readback
