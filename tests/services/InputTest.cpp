// Requests to the user: points, lines, arcs. And the states of menu items.

#include "Probe.hpp"

#include "services/ArcThroughPoints.hpp"

#include <cmath>
#include <deque>
#include <vector>

namespace testing_support {
namespace {

class Clicks : public Probe {
protected:
    /// The user's clicks to come; when there is none left, the request is cancelled.
    void willClick(std::vector<host::PickedPoint> points) {
        clicks_.assign(points.begin(), points.end());
        host_.setPointPicker([this](const std::string& prompt) -> std::optional<host::PickedPoint> {
            prompts_.push_back(prompt);
            if (clicks_.empty()) return std::nullopt;
            const host::PickedPoint next = clicks_.front();
            clicks_.pop_front();
            return next;
        });
    }

    std::deque<host::PickedPoint> clicks_;
    std::vector<std::string> prompts_;
};

using PointRequests = Clicks;
using ArcFromClicks = Clicks;
using CancelledRequest = Clicks;
using MenuItemStates = Probe;

template <class Record>
Record asking(const char* prompt) {
    Record record{};
    CHTruncate(prompt, record.prompt, sizeof record.prompt);
    return record;
}

TEST_F(PointRequests, PointAndHitComeBack) {
    probe();
    willClick({{{1, 2, 3}, apiGuid(guidText(1))}});
    inCommand([&] {
        auto request = asking<API_GetPointType>("Click the wall");
        EXPECT_EQ(named(interface(APIIo_GetPoint, &request)), "NoError");
        EXPECT_EQ(request.pos.x, 1);
        EXPECT_EQ(request.pos.y, 2);
        EXPECT_EQ(request.pos.z, 3);
        EXPECT_EQ(request.neig.neigID, 1);
        EXPECT_EQ(request.neig.guid, apiGuid(guidText(1)));
        EXPECT_EQ(request.neig.inIndex, 1);
        EXPECT_EQ(request.neig.elemPartId, 0);
    });
    EXPECT_EQ(prompts_, std::vector<std::string>{"Click the wall"});
}

TEST_F(PointRequests, EmptySpaceAndElementsWithoutPartsHitNothing) {
    probe();
    willClick({{{0, 0, 0}, {}}, {{0, 0, 0}, apiGuid(guidText(10))}, {{0, 0, 0}, apiGuid(guidText(999))}});
    inCommand([&] {
        for (const char* hit : {"nothing", "a storey", "an unknown element"}) {
            auto request = asking<API_GetPointType>("?");
            request.neig.neigID = 99;
            EXPECT_EQ(named(interface(APIIo_GetPoint, &request)), "NoError");
            EXPECT_EQ(request.neig.neigID, 0) << hit;
            EXPECT_EQ(request.neig.guid, APINULLGuid) << hit;
        }
    });
}

TEST_F(PointRequests, PromptWithoutTerminatorIsReadToItsEndOnly) {
    probe();
    willClick({{{0, 0, 0}, {}}});
    inCommand([&] {
        API_GetPointType request{};
        std::memset(request.prompt, 'x', sizeof request.prompt);
        interface(APIIo_GetPoint, &request);
    });
    EXPECT_EQ(prompts_.at(0), std::string(256, 'x'));
}

TEST_F(PointRequests, LineEndsAtTheClick) {
    probe();
    willClick({{{5, 6, 0}, {}}});
    inCommand([&] {
        auto request = asking<API_GetLineType>("To");
        request.startCoord = {1, 1, 0};
        EXPECT_EQ(named(interface(APIIo_GetLine, &request)), "NoError");
        EXPECT_EQ(request.startCoord.x, 1);
        EXPECT_EQ(request.pos.x, 5);
        EXPECT_EQ(request.pos.y, 6);
    });
}

TEST_F(PointRequests, MissingRecordIsRefused) {
    probe();
    inCommand([&] {
        for (const UInt32 code : {APIIo_GetPoint, APIIo_GetLine, APIIo_GetArc}) {
            EXPECT_EQ(named(interface(code, nullptr)), "APIERR_BADPARS");
        }
        EXPECT_EQ(named(interface(GSFourCharCode("NONE"), nullptr)), "APIERR_NOTSUPPORTED");
    });
}

TEST_F(ArcFromClicks, ThirdClickGivesTheBulge) {
    probe();
    willClick({{{1, 1, 0}, {}}});
    inCommand([&] {
        auto request = asking<API_GetArcType>("Through");
        request.startCoordGiven = 1;
        request.startCoord = {0, 0, 2};
        request.endCoord = {2, 0, 2};
        EXPECT_EQ(named(interface(APIIo_GetArc, &request)), "NoError");
        EXPECT_DOUBLE_EQ(request.origo.x, 1);
        EXPECT_DOUBLE_EQ(request.origo.y, 0);
        EXPECT_DOUBLE_EQ(request.origo.z, 2);
        EXPECT_EQ(request.negArc, 1) << "from the left over the top to the right is clockwise";
    });
    EXPECT_EQ(prompts_.size(), 1U);
}

TEST_F(ArcFromClicks, WithoutALineStartAndEndAreAskedFirst) {
    probe();
    willClick({{{0, 0, 0}, {}}, {{2, 0, 0}, {}}, {{1, -1, 0}, {}}});
    inCommand([&] {
        auto request = asking<API_GetArcType>("Arc");
        EXPECT_EQ(named(interface(APIIo_GetArc, &request)), "NoError");
        EXPECT_EQ(request.endCoord.x, 2);
        EXPECT_DOUBLE_EQ(request.origo.x, 1);
        EXPECT_EQ(request.negArc, 0);
    });
    EXPECT_EQ(prompts_.size(), 3U);
}

TEST_F(ArcFromClicks, ClicksOnOneLineAreRefused) {
    probe();
    willClick({{{1, 0, 0}, {}}});
    inCommand([&] {
        auto request = asking<API_GetArcType>("Arc");
        request.startCoordGiven = 1;
        request.endCoord = {2, 0, 0};
        EXPECT_EQ(named(interface(APIIo_GetArc, &request)), "APIERR_REFUSEDPAR");
    });
}

struct ArcRow {
    API_Coord3D start, bulge, end;
    std::optional<API_Coord> centre;
    bool clockwise;
};

TEST(ArcThroughPoints, CentreAndSenseFollowFromThreePoints) {
    const double far = 4e6;  // Surveyors' coordinates in metres.
    const ArcRow rows[] = {
        {{1, 0, 0}, {0, 1, 0}, {-1, 0, 0}, API_Coord{0, 0}, false},
        {{1, 0, 0}, {0, -1, 0}, {-1, 0, 0}, API_Coord{0, 0}, true},
        {{1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, API_Coord{0, 0}, true},  // Three quarters of the circle.
        {{far, far, 0}, {far + 1, far + 1, 0}, {far + 2, far, 0}, API_Coord{far + 1, far}, true},
        {{0, 0, 0}, {1, 1, 0}, {2, 2, 0}, std::nullopt, false},
        {{0, 0, 0}, {1, 1e-12, 0}, {2, 0, 0}, std::nullopt, false},
        {{0, 0, 0}, {1, 1, 0}, {0, 0, 0}, std::nullopt, false},
        {{0, 0, 0}, {0, 0, 0}, {1, 0, 0}, std::nullopt, false},
        {{0, 0, 0}, {1, 0, 0}, {1, 0, 0}, std::nullopt, false},
        {{0, 0, 0}, {std::nan(""), 0, 0}, {1, 0, 0}, std::nullopt, false},
    };
    for (const ArcRow& row : rows) {
        const auto arc = host::arcThrough(row.start, row.bulge, row.end);
        ASSERT_EQ(arc.has_value(), row.centre.has_value()) << row.bulge.x << ' ' << row.bulge.y;
        if (!arc) continue;
        EXPECT_NEAR(arc->centre.x, row.centre->x, 1e-9);
        EXPECT_NEAR(arc->centre.y, row.centre->y, 1e-9);
        EXPECT_EQ(arc->clockwise, row.clockwise);
    }
}

TEST_F(CancelledRequest, AnswersCancelAndLeavesTheRecordAlone) {
    probe();
    willClick({});
    inCommand([&] {
        auto point = asking<API_GetPointType>("Point");
        point.pos.x = 7;
        EXPECT_EQ(named(interface(APIIo_GetPoint, &point)), "APIERR_CANCEL");
        EXPECT_EQ(point.pos.x, 7);
        auto line = asking<API_GetLineType>("Line");
        EXPECT_EQ(named(interface(APIIo_GetLine, &line)), "APIERR_CANCEL");
        auto arc = asking<API_GetArcType>("Arc");
        EXPECT_EQ(named(interface(APIIo_GetArc, &arc)), "APIERR_CANCEL");
    });
}

TEST_F(CancelledRequest, NobodyThereCancelsToo) {
    probe();
    inCommand([&] {
        auto point = asking<API_GetPointType>("Point");
        EXPECT_EQ(named(interface(APIIo_GetPoint, &point)), "APIERR_CANCEL");
    });
}

TEST_F(MenuItemStates, FlagsAreKeptAndShown) {
    probe();
    inCommand([&] {
        API_MenuReference second{.menuResID = GalleryMenu, .itemIndex = 2};
        UInt32 flags = 99;
        EXPECT_EQ(named(interface(APIIo_GetMenuItemFlags, &second, &flags)), "NoError");
        EXPECT_EQ(flags, 0U);
        flags = API_MenuItemChecked | API_MenuItemDisabled;
        EXPECT_EQ(named(interface(APIIo_SetMenuItemFlags, &second, &flags)), "NoError");
        flags = 0;
        interface(APIIo_GetMenuItemFlags, &second, &flags);
        EXPECT_EQ(flags, 3U);
    });
    EXPECT_TRUE(host_.menus().at(0).items.at(1).checked);
    EXPECT_FALSE(host_.menus().at(0).items.at(1).enabled);
    EXPECT_EQ(named(host_.pickMenuItem(GalleryMenu, 2)), "APIERR_REFUSEDCMD");
    EXPECT_TRUE(host_.menus().at(0).items.at(0).enabled);
}

TEST_F(MenuItemStates, UnknownItemsAreRefused) {
    probe();
    inCommand([&] {
        UInt32 flags = 0;
        for (const Int32 index : {0, 3, -1}) {
            API_MenuReference item{.menuResID = GalleryMenu, .itemIndex = index};
            EXPECT_EQ(named(interface(APIIo_GetMenuItemFlags, &item, &flags)), "APIERR_BADINDEX") << index;
            EXPECT_EQ(named(interface(APIIo_SetMenuItemFlags, &item, &flags)), "APIERR_BADINDEX") << index;
        }
        API_MenuReference other{.menuResID = 1, .itemIndex = 1};
        EXPECT_EQ(named(interface(APIIo_GetMenuItemFlags, &other, &flags)), "APIERR_BADID");
        EXPECT_EQ(named(interface(APIIo_SetMenuItemFlags, &other, nullptr)), "APIERR_BADPARS");
        EXPECT_EQ(named(interface(APIIo_GetMenuItemFlags, nullptr, &flags)), "APIERR_BADPARS");
    });
}

}  // namespace
}  // namespace testing_support
