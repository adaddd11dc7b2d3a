// Where the items of an add-on's dialog are shown in a place that is too small for them.

#include "desktop/dialogs/Squeeze.hpp"

#include <gmock/gmock.h>

#include <ostream>

// By name, for messages.
static void PrintTo(const QRect& rect, std::ostream* out) {
    *out << rect.x() << ' ' << rect.y() << ' ' << rect.width() << 'x' << rect.height();
}

namespace desktop_tests {

namespace {

using desktop::leastPlace;
using desktop::squeezed;
using desktop::SqueezedItem;
using testing::ElementsAre;

constexpr QSize Dialog(1000, 400);

/// A list above a line of three buttons, given in another order.
std::vector<SqueezedItem> items() {
    return {{QRect(440, 364, 120, 26)},
            {QRect(880, 364, 110, 26)},
            {QRect(10, 10, 980, 340), true},
            {QRect(10, 364, 110, 26)}};
}

}  // namespace

TEST(SqueezedItems, StayWhereTheyAreInAPlaceThatIsLargeEnough) {
    for (const QSize place : {Dialog, QSize(1200, 700)}) {
        EXPECT_THAT(squeezed(items(), Dialog, place), ElementsAre(QRect(440, 364, 120, 26), QRect(880, 364, 110, 26),
                                                                  QRect(10, 10, 980, 340), QRect(10, 364, 110, 26)));
    }
}

TEST(SqueezedItems, TheListGivesWayAndTheButtonsComeNearer) {
    const auto places = squeezed(items(), Dialog, {600, 300});
    EXPECT_EQ(places[2], QRect(10, 10, 580, 240));
    for (const std::size_t button : {0U, 1U, 3U}) {
        EXPECT_EQ(places[button].top(), 264);
        EXPECT_EQ(places[button].size(), items()[button].place.size());
    }
    EXPECT_GT(places[0].left(), places[3].right());
    EXPECT_GT(places[1].left(), places[0].right());
    EXPECT_LE(places[1].right(), 600);
}

TEST(SqueezedItems, AreAllInTheLeastPlaceSideBySide) {
    const QSize least = leastPlace(items(), Dialog);
    EXPECT_LT(least.width(), 400);
    EXPECT_LT(least.height(), 180);
    const auto places = squeezed(items(), Dialog, least);
    for (std::size_t i = 0; i < places.size(); ++i) {
        EXPECT_TRUE(QRect(QPoint(), least).contains(places[i])) << i;
        for (std::size_t k = 0; k < i; ++k) EXPECT_FALSE(places[i].intersects(places[k])) << i << ' ' << k;
    }
    EXPECT_EQ(squeezed(items(), Dialog, least - QSize(1, 1))[2].height(), places[2].height()) << "and no smaller below";
}

TEST(SqueezedItems, OfADialogWithoutAListKeepTheirHeight) {
    const std::vector<SqueezedItem> buttons = {{QRect(10, 10, 100, 26)}, {QRect(10, 50, 100, 26)}};
    EXPECT_EQ(leastPlace(buttons, {300, 100}).height(), 100);
    EXPECT_THAT(squeezed(buttons, {300, 100}, {200, 50}), ElementsAre(QRect(5, 10, 100, 26), QRect(5, 50, 100, 26)));
    EXPECT_TRUE(squeezed({}, {300, 100}, {200, 50}).empty());
}

TEST(SqueezedItems, ALineToTypeInGivesItsWidth) {
    const std::vector<SqueezedItem> line = {{QRect(10, 10, 100, 18)}, {QRect(114, 10, 596, 24), true}};
    EXPECT_THAT(squeezed(line, {720, 100}, {520, 100}), ElementsAre(QRect(10, 10, 100, 18), QRect(114, 10, 396, 24)));
}

}  // namespace desktop_tests
