#include "text/FindUnit.hpp"

#include <gtest/gtest.h>

#include <string>

/// 32 units are looked at together: the unit at, before and behind the border of such a group, and in the rest.
TEST(FindUnit, AnswersAsAPlainSearchDoes) {
    for (std::size_t length = 0; length <= 100; ++length) {
        const std::u16string without(length, u'N');
        EXPECT_EQ(text::findUnit(without, u'\t'), without.npos) << length;
        for (std::size_t at = 0; at < length; ++at) {
            std::u16string units = without;
            units[at] = u'\t';
            EXPECT_EQ(text::findUnit(units, u'\t'), at) << length;
            units.back() = u'\t';
            EXPECT_EQ(text::findUnit(units, u'\t'), at) << length;
        }
    }
}

TEST(FindUnit, ComparesWholeUnits) {
    EXPECT_EQ(text::findUnit(std::u16string(64, u'\u0900'), u'\t'), std::u16string_view::npos);
    EXPECT_EQ(text::findUnit(std::u16string(64, u'\u0109') + u'\t', u'\t'), 64U);
}
