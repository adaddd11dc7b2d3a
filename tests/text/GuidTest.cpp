#include "text/Guid.hpp"

#include <gtest/gtest.h>

namespace {

constexpr text::GuidBytes Example = {0xA3, 0x29, 0x31, 0xC7, 0xB3, 0xB2, 0x41, 0x17,
                                     0x8D, 0x6A, 0x30, 0x38, 0xDD, 0x4E, 0x9A, 0x78};

}  // namespace

TEST(GuidText, IsWrittenInUpperCaseAndReadInEither) {
    EXPECT_EQ(text::guidText(Example), "A32931C7-B3B2-4117-8D6A-3038DD4E9A78");
    EXPECT_EQ(text::parseGuid("A32931C7-B3B2-4117-8D6A-3038DD4E9A78"), Example);
    EXPECT_EQ(text::parseGuid("a32931c7-b3b2-4117-8d6a-3038dd4e9a78"), Example);
}

TEST(GuidText, EveryByteIsReadBack) {
    for (int byte = 0; byte < 256; ++byte) {
        text::GuidBytes guid{};
        guid[static_cast<std::size_t>(byte) % guid.size()] = static_cast<std::uint8_t>(byte);
        EXPECT_EQ(text::parseGuid(text::guidText(guid)), guid) << byte;
    }
}

TEST(GuidText, EveryOtherCharacterIsRefusedAtEveryPlace) {
    const std::string good = text::guidText(Example);
    for (std::size_t at = 0; at < good.size(); ++at) {
        for (int c = 0; c < 256; ++c) {
            std::string changed = good;
            changed[at] = static_cast<char>(c);
            const bool digit = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
            const bool fits = good[at] == '-' ? c == '-' : digit;
            EXPECT_EQ(text::parseGuid(changed).has_value(), fits) << at << ' ' << c;
        }
    }
}

TEST(GuidText, AnotherLengthIsRefused) {
    const std::string good = text::guidText(Example);
    for (std::size_t length = 0; length < good.size(); ++length) {
        EXPECT_FALSE(text::parseGuid(good.substr(0, length))) << length;
    }
    EXPECT_FALSE(text::parseGuid(good + '0'));
}
