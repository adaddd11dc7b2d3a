// What the menu helpers make of a host that does not know the item.

#include "DriverAddOn.hpp"

#include <gmock/gmock.h>

using namespace testing_support;
using ::testing::ElementsAre;

namespace {

std::vector<UInt32> flagsSet;

TEST(MenuItem, UnknownToTheHostHasNoFlags) {
    flagsSet.clear();
    RawHelpers addOn;
    addOn.put<HostSlot::Interface>([](void*, UInt32 code, void*, void* flags, void*) -> GSErrCode {
        if (code == APIIo_SetMenuItemFlags) flagsSet.push_back(*static_cast<UInt32*>(flags));
        return APIERR_BADID;
    });
    addOn.bind();
    EXPECT_FALSE(addOn->GetMenuItemMark(404, 3));
    EXPECT_TRUE(addOn->InvertMenuItemMark(404, 3));
    EXPECT_EQ(addOn->DisableEnableMenuItem(404, 3, true), APIERR_BADID);
    EXPECT_EQ(addOn->DisableEnableMenuItem(404, 3, false), APIERR_BADID);
    EXPECT_THAT(flagsSet, ElementsAre(API_MenuItemChecked, API_MenuItemDisabled, 0U));
}

}  // namespace
