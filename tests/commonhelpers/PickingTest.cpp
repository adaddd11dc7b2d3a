// Clicks in the model window, through the real host.

#include "DriverAddOn.hpp"
#include "FailingMemory.hpp"
#include "support/IfcText.hpp"

#include <gmock/gmock.h>

using namespace testing_support;
using ::testing::ElementsAre;

namespace {

constexpr API_ElemTypeID AnyType = 0, Wall = 1, Column = 2, Door = 5;
constexpr API_Coord3D Somewhere{3, 4, 5};

bool operator==(const API_Coord& a, const API_Coord& b) {
    return a.x == b.x && a.y == b.y;
}

/// A wall at (0, 0), a column at (100, 0), and an annotation, which has no part to click.
class Picking : public HostedHelpers {
protected:
    void SetUp() override {
        HostedHelpers::SetUp();
        IfcText ifc;
        ifc.element("IfcWall", guidText(1), "Wall", {{"ObjectPlacement", ifc.placementAt(0, 0, 0)}});
        ifc.element("IfcColumn", guidText(2), "Column", {{"ObjectPlacement", ifc.placementAt(100, 0, 0)}});
        ifc.element("IfcSite", guidText(3), "Site", {{"ObjectPlacement", ifc.placementAt(0, 500, 0)}});
        openText(ifc.text());
    }

    const API_Guid wall_ = apiGuid(guidText(1)), column_ = apiGuid(guidText(2)), site_ = apiGuid(guidText(3));

    static host::PickedPoint on(const API_Guid& guid, API_Coord3D at = Somewhere) { return {at, guid}; }
    static host::PickedPoint empty(double x, double y) { return {{x, y, 0}, std::nullopt}; }

    /// One request for an element. @return the GUID, where it was accepted.
    std::optional<API_Guid> pickElement(const host::PickedPoint& answer, API_ElemTypeID wanted) {
        click({answer});
        std::optional<API_Guid> picked;
        inCommand([&](const Helpers& helpers) {
            API_Guid guid{};
            if (helpers.ClickAnElem("Which?", wanted, nullptr, nullptr, &guid, nullptr, false)) picked = guid;
        });
        return picked;
    }
};

// --- A point -------------------------------------------------------------------------------------------------------

TEST_F(Picking, PointIsWhereTheUserClicked) {
    click({on(wall_)});
    inCommand([](const Helpers& helpers) {
        API_Coord at{};
        EXPECT_TRUE(helpers.ClickAPoint("Where?", &at));
        EXPECT_TRUE(at == (API_Coord{3, 4}));
    });
    EXPECT_THAT(prompts_, ElementsAre("Where?"));
}

TEST_F(Picking, CancelledPointIsSilent) {
    click({});
    inCommand([](const Helpers& helpers) {
        API_Coord at{1, 2};
        EXPECT_FALSE(helpers.ClickAPoint("Where?", &at));
        EXPECT_TRUE(at == (API_Coord{1, 2}));
    });
    EXPECT_TRUE(host_.report().empty());
}

TEST_F(Picking, LongPromptIsCut) {
    click({on(wall_)});
    inCommand([](const Helpers& helpers) {
        API_Coord at{};
        EXPECT_TRUE(helpers.ClickAPoint(std::string(1000, 'p').c_str(), &at));
    });
    EXPECT_THAT(prompts_, ElementsAre(std::string(255, 'p')));
}

// --- An arc --------------------------------------------------------------------------------------------------------

TEST_F(Picking, ArcTakesThreeClicks) {
    click({empty(1, 0), empty(-1, 0), empty(0, 1)});
    inCommand([](const Helpers& helpers) {
        API_Coord centre{}, start{}, end{};
        bool negative = true;
        EXPECT_TRUE(helpers.GetAnArc("Arc?", &centre, &start, &end, &negative));
        EXPECT_NEAR(centre.x, 0, 1e-9);
        EXPECT_NEAR(centre.y, 0, 1e-9);
        EXPECT_TRUE(start == (API_Coord{1, 0}));
        EXPECT_TRUE(end == (API_Coord{-1, 0}));
        EXPECT_FALSE(negative);
    });
    EXPECT_THAT(prompts_, ElementsAre("Arc?", "Arc?", "Arc?"));
}

TEST_F(Picking, ArcTheOtherWayRoundIsNegative) {
    click({empty(1, 0), empty(-1, 0), empty(0, -1)});
    inCommand([](const Helpers& helpers) {
        bool negative = false;
        EXPECT_TRUE(helpers.GetAnArc("Arc?", nullptr, nullptr, nullptr, &negative));
        EXPECT_TRUE(negative);
    });
}

TEST_F(Picking, ArcCancelledAtAnyClickIsNoneAndSilent) {
    for (const std::size_t answered : {0U, 1U, 2U}) {
        prompts_.clear();
        click(std::vector<host::PickedPoint>(answered, empty(1, 0)));
        inCommand([](const Helpers& helpers) {
            API_Coord centre{7, 7};
            EXPECT_FALSE(helpers.GetAnArc("Arc?", &centre, nullptr, nullptr, nullptr));
            EXPECT_TRUE(centre == (API_Coord{7, 7}));
        });
        EXPECT_EQ(prompts_.size(), answered + 1);
    }
    EXPECT_TRUE(host_.report().empty());
}

// --- An element ----------------------------------------------------------------------------------------------------

TEST_F(Picking, ElementIsDescribedInEveryOutput) {
    click({on(column_)});
    inCommand([this](const Helpers& helpers) {
        API_Neig neig{};
        API_ElemTypeID type = 0;
        API_Guid guid{};
        API_Coord3D at{};
        EXPECT_TRUE(helpers.ClickAnElem("Which?", Column, &neig, &type, &guid, &at, true));
        EXPECT_EQ(neig.neigID, 5);
        EXPECT_EQ(neig.guid, column_);
        EXPECT_EQ(type, Column);
        EXPECT_EQ(guid, column_);
        EXPECT_EQ(at.z, 5);
    });
}

TEST_F(Picking, AnyTypeAcceptsEveryElementOfAKnownType) {
    EXPECT_EQ(pickElement(on(wall_), AnyType), wall_);
    EXPECT_EQ(pickElement(on(column_), AnyType), column_);
}

TEST_F(Picking, ElementOfAnotherTypeIsNotAccepted) {
    EXPECT_EQ(pickElement(on(wall_), Wall), wall_);
    EXPECT_EQ(pickElement(on(wall_), Column), std::nullopt);
}

TEST_F(Picking, ClickIntoEmptySpaceTakesTheNearestOfTheType) {
    EXPECT_EQ(pickElement(empty(90, 0), Wall), wall_);
    EXPECT_EQ(pickElement(empty(10, 0), Column), column_);
    EXPECT_EQ(pickElement(empty(10, 0), Door), std::nullopt);
}

TEST_F(Picking, ClickIntoEmptySpaceForAnyTypeTakesTheNearestOfAll) {
    EXPECT_EQ(pickElement(empty(90, 0), AnyType), column_);
    EXPECT_EQ(pickElement(empty(10, 0), AnyType), wall_);
}

TEST_F(Picking, NearestElementThatCannotBeClickedIsNotAccepted) {
    EXPECT_EQ(pickElement(empty(0, 499), AnyType), std::nullopt);
}

TEST_F(Picking, CancelledElementIsSilent) {
    click({});
    inCommand([](const Helpers& helpers) {
        EXPECT_FALSE(helpers.ClickAnElem("Which?", AnyType, nullptr, nullptr, nullptr, nullptr, false));
    });
    EXPECT_TRUE(host_.report().empty());
}

// --- A run of elements ---------------------------------------------------------------------------------------------

template <class Record>
std::vector<Record> recordsOf(GSHandle handle) {
    std::vector<Record> records(static_cast<std::size_t>(BMGetHandleSize(handle)) / sizeof(Record));
    std::memcpy(records.data(), *handle, records.size() * sizeof(Record));
    return records;
}

TEST_F(Picking, RunGathersUntilAClickIsNotAccepted) {
    click({on(wall_), empty(10, 0), on(wall_), on(column_), on(wall_)});
    inCommand([this](const Helpers& helpers) {
        int count = -1;
        GSHandle handle = helpers.ClickElements_Neig("Which?", Wall, &count);
        EXPECT_EQ(count, 3);
        ASSERT_NE(handle, nullptr);
        const auto neigs = recordsOf<API_Neig>(handle);
        ASSERT_EQ(neigs.size(), 3U);
        for (const API_Neig& neig : neigs) {
            EXPECT_EQ(neig.neigID, 1);
            EXPECT_EQ(neig.inIndex, 1);
            EXPECT_EQ(neig.guid, wall_);
        }
        helpers.ACAPI_DisposeHandle(&handle);
    });
    EXPECT_EQ(prompts_.size(), 4U);
    EXPECT_EQ(liveHandles(), 0);
}

TEST_F(Picking, RunOfNothingIsNullAndCountsZero) {
    click({});
    inCommand([](const Helpers& helpers) {
        int count = -1;
        EXPECT_EQ(helpers.ClickElements_Neig("Which?", AnyType, &count), nullptr);
        EXPECT_EQ(count, 0);
        count = -1;
        EXPECT_EQ(helpers.ClickElements_ElemHead("Which?", AnyType, &count), nullptr);
        EXPECT_EQ(count, 0);
        EXPECT_EQ(helpers.ClickElements_Neig("Which?", AnyType, nullptr), nullptr);
        EXPECT_EQ(helpers.ClickElements_ElemHead("Which?", AnyType, nullptr), nullptr);
    });
    EXPECT_EQ(liveHandles(), 0);
}

TEST_F(Picking, RunAsHeadersHasTheGuidsAlone) {
    click({on(wall_), on(column_)});
    inCommand([this](const Helpers& helpers) {
        int count = -1;
        GSHandle handle = helpers.ClickElements_ElemHead("Which?", AnyType, &count);
        EXPECT_EQ(count, 2);
        ASSERT_NE(handle, nullptr);
        const auto heads = recordsOf<API_Elem_Head>(handle);
        ASSERT_EQ(heads.size(), 2U);
        EXPECT_EQ(heads[0].guid, wall_);
        EXPECT_EQ(heads[1].guid, column_);
        for (const API_Elem_Head& head : heads) EXPECT_EQ(head.typeID, 0);
        helpers.ACAPI_DisposeHandle(&handle);
    });
    EXPECT_EQ(liveHandles(), 0);
}

TEST_F(Picking, RunWithoutMemoryIsNullWithTheCountUpToThen) {
    click({on(wall_), on(wall_), on(wall_), on(wall_)});
    const FailingMemory memory(3);  // The empty handle and two neigs.
    inCommand([](const Helpers& helpers) {
        int count = -1;
        EXPECT_EQ(helpers.ClickElements_Neig("Which?", Wall, &count), nullptr);
        EXPECT_EQ(count, 2);
    });
    EXPECT_EQ(prompts_.size(), 3U);
    EXPECT_EQ(liveHandles(), 0);
}

TEST_F(Picking, RunWithoutAnyMemoryAsksForNothing) {
    click({on(wall_)});
    const FailingMemory memory(0);
    inCommand([](const Helpers& helpers) {
        int count = -1;
        EXPECT_EQ(helpers.ClickElements_Neig("Which?", Wall, &count), nullptr);
        EXPECT_EQ(count, 0);
    });
    EXPECT_TRUE(prompts_.empty());
}

TEST_F(Picking, HeadersWithoutMemoryCountZero) {
    click({on(wall_), on(wall_)});
    const FailingMemory memory(3);  // The empty handle and two neigs, none for the headers.
    inCommand([](const Helpers& helpers) {
        int count = -1;
        EXPECT_EQ(helpers.ClickElements_ElemHead("Which?", Wall, &count), nullptr);
        EXPECT_EQ(count, 0);
    });
    EXPECT_EQ(liveHandles(), 0);
}

// --- Menu marks ----------------------------------------------------------------------------------------------------

class MenuMarks : public HostedHelpers {
protected:
    static constexpr short Menu = Helpers::MenuResID, Item = 2;
    const host::MenuItem& item() { return host_.menus().at(0).items.at(1); }
};

TEST_F(MenuMarks, InvertingTwiceLeavesTheMarkAsItWas) {
    inCommand([this](const Helpers& helpers) {
        EXPECT_FALSE(helpers.GetMenuItemMark(Menu, Item));
        EXPECT_TRUE(helpers.InvertMenuItemMark(Menu, Item));
        EXPECT_TRUE(item().checked);
        EXPECT_TRUE(helpers.GetMenuItemMark(Menu, Item));
        EXPECT_FALSE(helpers.InvertMenuItemMark(Menu, Item));
        EXPECT_FALSE(item().checked);
        EXPECT_FALSE(helpers.GetMenuItemMark(Menu, Item));
    });
}

TEST_F(MenuMarks, DisablingKeepsTheMark) {
    inCommand([this](const Helpers& helpers) {
        helpers.InvertMenuItemMark(Menu, Item);
        EXPECT_EQ(helpers.DisableEnableMenuItem(Menu, Item, true), NoError);
        EXPECT_EQ(helpers.DisableEnableMenuItem(Menu, Item, true), NoError);
        EXPECT_FALSE(item().enabled);
        EXPECT_TRUE(item().checked);
        EXPECT_EQ(helpers.DisableEnableMenuItem(Menu, Item, false), NoError);
        EXPECT_TRUE(item().enabled);
        EXPECT_TRUE(item().checked);
    });
}

TEST_F(MenuMarks, UnknownItemIsUnmarkedAndItsErrorComesFromTheHost) {
    inCommand([](const Helpers& helpers) {
        EXPECT_FALSE(helpers.GetMenuItemMark(Menu, 99));
        EXPECT_TRUE(helpers.InvertMenuItemMark(Menu, 99));
        EXPECT_EQ(helpers.DisableEnableMenuItem(Menu, 99, true), APIERR_BADINDEX);
        EXPECT_EQ(helpers.DisableEnableMenuItem(1, Item, true), APIERR_BADID);
    });
}

}  // namespace
