#include "model/Model.hpp"
#include "text/Guid.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

using model::Guid;
using text::fromGlobalId;
using text::guidText;
using text::toGlobalId;

TEST(GlobalId, ExpandsToTheGuidOfItsBits) {
    const std::pair<std::string_view, std::string_view> table[] = {
        {"0000000000000000000000", "00000000-0000-0000-0000-000000000000"},
        {"3$$$$$$$$$$$$$$$$$$$$$", "FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF"},
        {"0000000000000000000001", "00000000-0000-0000-0000-000000000001"},
        {"000000000000000000000_", "00000000-0000-0000-0000-00000000003E"},
        {"1000000000000000000000", "40000000-0000-0000-0000-000000000000"},
        {"0100000000000000000000", "01000000-0000-0000-0000-000000000000"},
        {"0010000000000000000000", "00040000-0000-0000-0000-000000000000"},
        {"2ZAJ77ix915urgC3ZTJffu", "A32931C7-B3B2-4117-8D6A-3038DD4E9A78"},
    };
    for (const auto& [globalId, guid] : table) {
        const auto expanded = text::fromGlobalId(globalId);
        ASSERT_TRUE(expanded) << globalId;
        EXPECT_EQ(guidText(*expanded), guid) << globalId;
        EXPECT_EQ(text::toGlobalId(*expanded), globalId);
    }
}

TEST(GlobalId, IsRefusedWhereItIsNot22ValidCharacters) {
    for (const std::string_view text :
         {"", "000000000000000000000", "00000000000000000000000", "4000000000000000000000", "$000000000000000000000",
          "000000000000000000000-", "00000000000000000000 0", "00000000000000000000\xC3\xA4"}) {
        EXPECT_FALSE(text::fromGlobalId(text)) << text;
    }
}

RC_GTEST_PROP(GlobalId, AnyGuidSurvivesTheRoundTrip, (const Guid& guid)) {
    const auto back = text::fromGlobalId(text::toGlobalId(guid));
    RC_ASSERT(back.has_value());
    RC_ASSERT(*back == guid);
}

}  // namespace
