// Workbooks whose parts have names that were chosen to keep the library busy that unpacks them.

#include "tables/Workbooks.hpp"

#include <gmock/gmock.h>

namespace tables {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string little(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(number >> (8 * i) & 0xFFU);
    return text;
}

/// A name that has the same hash as all others of that length: "Ab" and "BA" have the same.
std::string crowdedName(std::size_t number) {
    std::string name;
    for (std::size_t bit = 0; bit < 17; ++bit) name += (number >> bit & 1U) != 0 ? "Ab" : "BA";
    return name;
}

/// A zip of that many empty entries.
std::string crowdedArchive(std::size_t entries) {
    std::string locals, directory;
    for (std::size_t i = 0; i < entries; ++i) {
        const std::string name = crowdedName(i);
        const std::string common = little(20, 2) + std::string(6, '\0') + little(0x21, 2) + std::string(12, '\0') +
                                   little(name.size(), 2) + little(0, 2);
        directory += "PK\x01\x02" + little(20, 2) + common + std::string(10, '\0') + little(locals.size(), 4) + name;
        locals += "PK\x03\x04" + common + name;
    }
    return locals + directory + "PK\x05\x06" + std::string(4, '\0') + little(entries, 2) + little(entries, 2) +
           little(directory.size(), 4) + little(locals.size(), 4) + little(0, 2);
}

TEST(CrowdedArchive, IsRefusedAsAWorkbook) {
    const std::string archive = crowdedArchive(60'000);
    for (const char* name : {"a.xlsx", "a.ods"}) {
        EXPECT_EQ(errorOf(archive, name), std::string(name) +
                                              ": the workbook holds thousands of parts whose names were chosen to keep "
                                              "programs busy; do not trust it");
    }
}

TEST(CrowdedArchive, IsReadUpToTheNumberThatIsReadFast) {
    for (const std::size_t entries : {16'383U, 16'384U}) {
        EXPECT_THAT(errorOf(crowdedArchive(entries), "a.xlsx"), Not(HasSubstr("do not trust it"))) << entries;
    }
    EXPECT_THAT(errorOf(crowdedArchive(16'385), "a.xlsx"), HasSubstr("do not trust it"));
}

}  // namespace
}  // namespace tables
