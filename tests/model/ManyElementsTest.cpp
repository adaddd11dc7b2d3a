// More than what is kept decoded: reading goes on being right when the memory for it is used up.

#include "TinyModel.hpp"

#include <gmock/gmock.h>

namespace {

TEST(PropertiesOfManyElements, AreRightBeyondWhatIsKeptOfTheirTexts) {
    // Twenty megabytes decoded, of which four and an eighth of the file's ten are kept.
    constexpr std::size_t Walls = 1000;
    TinyModel ifc;
    for (std::size_t i = 0; i < Walls; ++i) {
        const Id wall = ifc.element("IfcWall", "Wall");
        const std::string text = std::to_string(i) + std::string(10'000, 'x');
        ifc.give({wall}, ifc.set("S", {ifc.single("P", "IFCTEXT('" + text + "')"), ifc.single("Q", "IFCINTEGER(1)")}));
    }
    Opened opened(ifc);
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = 0; i < Walls; ++i) {
            const auto wall = static_cast<model::Element>(i);
            const auto properties = opened->properties(wall);
            ASSERT_TRUE(properties && properties->size() == 2) << i;
            const std::u16string& text = (*properties)[0].value.string;
            ASSERT_EQ(utf8(text.substr(0, text.find(u'x'))), std::to_string(i));
            ASSERT_EQ((*properties)[1].value.integer, round + 1);
            ASSERT_TRUE(opened.setProperty(wall, "S", "Q", std::to_string(round + 2)));
        }
    }
}

TEST(PropertiesOfManyElements, AreRightBeyondTheElementsThatAreRemembered) {
    constexpr std::size_t Walls = 100'002;  // One hundred thousand are remembered.
    TinyModel ifc;
    Ids even, odd;
    for (std::size_t i = 0; i < Walls; ++i) (i % 2 == 0 ? even : odd).push_back(ifc.element("IfcWall", "Wall"));
    ifc.give(even, ifc.set("S", {ifc.single("P", "IFCLABEL('even')")}));
    ifc.give(odd, ifc.set("S", {ifc.single("P", "IFCLABEL('odd')")}));
    Opened opened(ifc);
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = 0; i < Walls; ++i) {
            const auto properties = opened->properties(static_cast<model::Element>(i));
            ASSERT_TRUE(properties && properties->size() == 1) << i;
            ASSERT_EQ((*properties)[0].value.string, i % 2 == 0 ? u"even" : u"odd") << i;
        }
    }
}

}  // namespace
