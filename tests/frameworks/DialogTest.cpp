#include "DialogFixture.hpp"

#include <gtest/gtest.h>

using frontend::Dialog;
using frontend::Rect;
using testing_support::DialogTest;
using testing_support::Message;
using testing_support::ScriptedView;
using testing_support::utf8;

namespace {

constexpr Int16 NoDialog[] = {0, -1, -2, 1, 255, 32767, -32768};
constexpr Int16 NoItem[] = {0, -1, -2, 6, 99, 32767, -32768};

}  // namespace

TEST_F(DialogTest, LifeIsInitialisationThenActionsThenClose) {
    onClick_ = [](Int16 item) { return item == DG_CANCEL ? item : Int16{0}; };
    const Int16 result = open([&](Dialog& dialog) {
        EXPECT_EQ(messages_, (std::vector<Message>{{DG_MSG_INIT, 0, 0}})) << "it comes before the dialog shows";
        EXPECT_TRUE(dialog.clickItem(1));
        EXPECT_FALSE(dialog.ended());
        EXPECT_TRUE(dialog.clickItem(2));
        EXPECT_TRUE(dialog.ended());
    });
    EXPECT_EQ(result, 2);
    EXPECT_EQ(messages_, (std::vector<Message>{
                             {DG_MSG_INIT, 0, 0}, {DG_MSG_CLICK, 1, 0}, {DG_MSG_CLICK, 2, 0}, {DG_MSG_CLOSE, 0, 0}}));
    EXPECT_EQ(lastUserData_, UserData);
    EXPECT_TRUE(frontend::openDialogs().empty());
}

TEST_F(DialogTest, ShowsWhatItsDefinitionSays) {
    open([](Dialog& dialog) {
        EXPECT_EQ(dialog.resourceId(), Resource);
        EXPECT_EQ(utf8(dialog.title()), "A dialog");
        EXPECT_EQ(dialog.width(), 400);
        EXPECT_EQ(dialog.height(), 300);
        EXPECT_TRUE(dialog.growable());
        EXPECT_EQ(dialog.minimumWidth(), 200);
        EXPECT_EQ(dialog.minimumHeight(), 100);
        ASSERT_EQ(dialog.items().size(), 5U);
        for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(dialog.items()[i].number, static_cast<Int16>(i + 1));
        EXPECT_EQ(dialog.item(3)->kind, frontend::ItemKind::EditText);
        EXPECT_EQ(utf8(dialog.item(3)->text), "initial");
        EXPECT_EQ(dialog.item(3)->rect, (Rect{10, 10, 110, 30}));
        EXPECT_NE(dialog.list(5), nullptr);
        EXPECT_EQ(dialog.list(1), nullptr);
        EXPECT_EQ(dialog.item(99), nullptr);
        EXPECT_EQ(frontend::openDialogs(), std::vector<Dialog*>{&dialog});
    });
}

TEST_F(DialogTest, ReturnClicksItemOneAndEscapeItemTwo) {
    onClick_ = [](Int16 item) { return static_cast<Int16>(item + 10); };
    EXPECT_EQ(open([](Dialog& dialog) { EXPECT_TRUE(dialog.pressReturn()); }), 11);
    EXPECT_EQ(open([](Dialog& dialog) { EXPECT_TRUE(dialog.pressEscape()); }), 12);
}

TEST_F(DialogTest, IsClosedAsByEscapeWhereTheViewLeavesItOpen) {
    onClick_ = [](Int16 item) { return item; };
    EXPECT_EQ(open([](Dialog&) {}), 2);
    onClick_ = [](Int16) { return Int16{0}; };
    EXPECT_EQ(open([](Dialog&) {}), 0) << "even a handler that refuses to close is left";
    EXPECT_EQ(messages_.back(), (Message{DG_MSG_CLOSE, 0, 0}));
}

TEST_F(DialogTest, IsClosedAtOnceWhereNobodyIsThere) {
    onClick_ = [](Int16 item) { return item; };
    EXPECT_EQ(openWithoutView(), 2);
    EXPECT_EQ(messages_, (std::vector<Message>{{DG_MSG_INIT, 0, 0}, {DG_MSG_CLICK, 2, 0}, {DG_MSG_CLOSE, 0, 0}}));
}

TEST_F(DialogTest, EndedDialogTakesNoAction) {
    onClick_ = [](Int16 item) { return item; };
    const Int16 result = open([&](Dialog& dialog) {
        dialog.clickItem(1);
        const std::size_t before = messages_.size();
        EXPECT_FALSE(dialog.clickItem(2));
        EXPECT_FALSE(dialog.clickRow(5, 0, 0));
        EXPECT_FALSE(dialog.typeText(3, "late"));
        EXPECT_FALSE(dialog.resize(10, 10));
        EXPECT_EQ(messages_.size(), before);
    });
    EXPECT_EQ(result, 1);
}

TEST_F(DialogTest, ActionNeedsAnItemOfItsKind) {
    open([&](Dialog& dialog) {
        for (const Int16 number : {Int16{3}, Int16{4}, Int16{5}, Int16{0}, Int16{-1}, Int16{32767}})
            EXPECT_FALSE(dialog.clickItem(number)) << number;
        EXPECT_FALSE(dialog.clickRow(1, 0, 0));
        EXPECT_FALSE(dialog.clickRow(5, 1, 0)) << "there is no row";
        EXPECT_FALSE(dialog.clickRow(5, -1, 0));
        EXPECT_FALSE(dialog.typeText(4, "static"));
        EXPECT_FALSE(dialog.typeText(99, "nowhere"));
        EXPECT_EQ(messages_.size(), 1U);
    });
}

TEST_F(DialogTest, ClickInAListTellsRowAndPosition) {
    onInit_ = [&] { DGListInsertItem(id_, List, DG_LIST_BOTTOM); };
    open([&](Dialog& dialog) {
        EXPECT_TRUE(dialog.clickRow(List, 1, 77));
        EXPECT_EQ(lastClick_.row, 1);
        EXPECT_EQ(lastClick_.x, 77);
        EXPECT_TRUE(dialog.clickRow(List, 0, -5));
        EXPECT_EQ(lastClick_.row, 0);
        EXPECT_EQ(lastClick_.x, -5);
    });
}

TEST_F(DialogTest, TypedTextIsWhatTheHandlerReads) {
    open([&](Dialog& dialog) {
        EXPECT_EQ(utf8(DGGetItemText(id_, 3)), "initial");
        EXPECT_TRUE(dialog.typeText(3, "typed"));
        EXPECT_EQ(utf8(DGGetItemText(id_, 3)), "typed");
        EXPECT_EQ(DGSetItemText(id_, 4, "label"), NoError);
        EXPECT_EQ(utf8(dialog.item(4)->text), "label");
        EXPECT_EQ(DGSetItemText(id_, List, "a list has no text"), DG_ERR_BADPARS);
        EXPECT_TRUE(DGGetItemText(id_, List).IsEmpty());
    });
}

TEST_F(DialogTest, GrowthGivenIsWhatWasPossible) {
    struct {
        int horizontal, vertical;
        Int16 givenHorizontal, givenVertical;
        int width, height;
    } const cases[] = {{31, 10, 31, 10, 431, 310},
                       {-31, 0, -31, 0, 400, 310},
                       {-1000, -10, -200, -10, 200, 300},
                       {INT_MAX, INT_MAX, 32567, 32467, 32767, 32767},
                       {INT_MIN, INT_MIN, -32567, -32667, 200, 100}};
    open([&](Dialog& dialog) {
        for (const auto& each : cases) {
            EXPECT_TRUE(dialog.resize(each.horizontal, each.vertical));
            EXPECT_EQ(messages_.back().message, DG_MSG_RESIZE);
            EXPECT_EQ(DGResizeHorizontal(lastData_), each.givenHorizontal);
            EXPECT_EQ(DGResizeVertical(lastData_), each.givenVertical);
            EXPECT_EQ(dialog.width(), each.width);
            EXPECT_EQ(dialog.height(), each.height);
        }
        const std::size_t before = messages_.size();
        EXPECT_TRUE(dialog.resize(-1, -1)) << "it is as small as it gets";
        EXPECT_TRUE(dialog.resize(0, 0));
        EXPECT_EQ(messages_.size(), before);
    });
}

TEST_F(DialogTest, DialogOfFixedSizeRefusesToGrow) {
    open(
        [&](Dialog& dialog) {
            EXPECT_FALSE(dialog.growable());
            EXPECT_FALSE(dialog.resize(5, 5));
            EXPECT_EQ(dialog.width(), 100);
            EXPECT_EQ(messages_.size(), 1U);
        },
        FixedResource);
}

TEST_F(DialogTest, ItemsMoveAndGrowWithinSixteenBits) {
    struct {
        Int16 moveH, moveV, growH, growV;
        Rect expected;
    } const cases[] = {{5, -3, 0, 0, {15, 7, 115, 27}},
                       {0, 0, 10, -5, {15, 7, 125, 22}},
                       {0, 0, -32768, -32768, {15, 7, 15, 7}},
                       {32767, 32767, 0, 0, {32767, 32767, 32767, 32767}},
                       {-32768, -32768, 32767, 32767, {-1, -1, 32766, 32766}},
                       {-32768, -32768, 0, 0, {-32768, -32768, -1, -1}},
                       {0, 0, 32767, 32767, {-32768, -32768, 32766, 32766}},
                       {-1, 0, 0, 0, {-32768, -32768, 32766, 32766}}};
    open([&](Dialog& dialog) {
        for (const auto& each : cases) {
            EXPECT_EQ(DGMoveGrowItem(id_, 3, each.moveH, each.moveV, each.growH, each.growV), NoError);
            EXPECT_EQ(dialog.item(3)->rect, each.expected) << each.moveH << ' ' << each.growH;
        }
        EXPECT_EQ(DGMoveItem(id_, 1, 31, 10), NoError);
        EXPECT_EQ(dialog.item(1)->rect, (Rect{331, 280, 391, 300}));
        EXPECT_EQ(DGGrowItem(id_, 1, 1, 2), NoError);
        EXPECT_EQ(dialog.item(1)->rect, (Rect{331, 280, 392, 302}));
    });
}

TEST_F(DialogTest, UnknownDialogsAndItemsAreRefused) {
    const auto refused = [](Int16 dialog, Int16 item) {
        EXPECT_EQ(DGSetItemText(dialog, item, "x"), DG_ERR_BADPARS) << dialog << ' ' << item;
        EXPECT_TRUE(DGGetItemText(dialog, item).IsEmpty()) << dialog << ' ' << item;
        EXPECT_EQ(DGInvalidateItem(dialog, item), DG_ERR_BADPARS) << dialog << ' ' << item;
        EXPECT_EQ(DGMoveItem(dialog, item, 1, 1), DG_ERR_BADPARS) << dialog << ' ' << item;
        EXPECT_EQ(DGGrowItem(dialog, item, 1, 1), DG_ERR_BADPARS) << dialog << ' ' << item;
    };
    open([&](Dialog&) {
        for (const Int16 item : NoItem) refused(id_, item);
        for (const Int16 dialog : NoDialog)
            if (dialog != id_) refused(dialog, 3);
        EXPECT_EQ(DGBeginMoveGrowItems(-1), DG_ERR_BADPARS);
        EXPECT_EQ(DGEndMoveGrowItems(-1), DG_ERR_BADPARS);
    });
    refused(id_, 3);  // The number of a dialog that has ended.
}

TEST_F(DialogTest, UnknownResourceOrHandlerOpensNothing) {
    for (const Int16 resource : NoDialog)
        EXPECT_EQ(DGModalDialog(module_, resource, module_, handler(), 0), 0) << resource;
    EXPECT_EQ(DGModalDialog(InvalidResModule, Resource, module_, handler(), 0), 0);
    EXPECT_EQ(DGModalDialog(module_ + 1, Resource, module_, handler(), 0), 0);
    EXPECT_EQ(DGModalDialog(module_, Resource, module_, nullptr, 0), 0);
    EXPECT_TRUE(messages_.empty());
}

TEST_F(DialogTest, NumberOfAnEndedDialogIsNotGivenAtOnceAgain) {
    open([](Dialog&) {});
    const Int16 first = id_;
    open([&](Dialog&) { EXPECT_NE(id_, first); });
}

// --- A dialog within a dialog --------------------------------------------------------------------------------------

TEST_F(DialogTest, OuterDialogWaitsWhileAnInnerOneIsOpen) {
    Dialog* outer = nullptr;
    bool innerShown = false;
    Int16 innerResult = -1;
    onClick_ = [&](Int16 item) {
        if (item != 1 || innerShown) return item;
        innerShown = true;
        innerResult = open([&](Dialog& inner) {
            EXPECT_EQ(frontend::openDialogs(), (std::vector<Dialog*>{outer, &inner}));
            EXPECT_NE(inner.id(), outer->id());
            EXPECT_FALSE(outer->clickItem(2)) << "the inner one is in front";
            EXPECT_FALSE(outer->resize(5, 5));
            EXPECT_EQ(DGSetItemText(outer->id(), 3, "from within"), NoError) << "the add-on may still change it";
            inner.clickItem(2);
        });
        return Int16{0};
    };
    const Int16 outerResult = open([&](Dialog& dialog) {
        outer = &dialog;
        dialog.clickItem(1);
        EXPECT_TRUE(innerShown);
        EXPECT_FALSE(dialog.ended());
        EXPECT_EQ(utf8(dialog.item(3)->text), "from within");
        dialog.clickItem(1);
    });
    EXPECT_EQ(innerResult, 2);
    EXPECT_EQ(outerResult, 1);
}

TEST_F(DialogTest, HandlerThatThrowsLeavesNoDialogOpen) {
    onClick_ = [](Int16) -> Int16 { throw GS::GSException("from the handler"); };
    EXPECT_THROW(open([](Dialog& dialog) { dialog.clickItem(1); }), GS::GSException);
    EXPECT_TRUE(frontend::openDialogs().empty());
    EXPECT_EQ(DGSetItemText(id_, 3, "x"), DG_ERR_BADPARS);
}

// --- A handler that does not come to its end -----------------------------------------------------------------------

namespace {

/// Lets no exception of a handler through, as the host's services do.
bool callGuarded(void (*call)(void*), void* argument) {
    try {
        call(argument);
        return true;
    } catch (const GS::GSException&) {
        return false;
    }
}

class GuardedDialogTest : public DialogTest {
protected:
    GuardedDialogTest() : before_(frontend::setAddOnCaller(callGuarded)) {}
    ~GuardedDialogTest() override { frontend::setAddOnCaller(before_); }

    [[noreturn]] static void fail() { throw GS::GSException("from the handler"); }

private:
    frontend::AddOnCaller before_;
};

}  // namespace

TEST_F(GuardedDialogTest, FailureInAClickEndsTheDialogWithoutFurtherMessages) {
    onClick_ = [](Int16) -> Int16 { fail(); };
    const Int16 result = open([](Dialog& dialog) {
        EXPECT_TRUE(dialog.clickItem(1));
        EXPECT_TRUE(dialog.ended());
        EXPECT_FALSE(dialog.clickItem(2));
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(messages_, (std::vector<Message>{{DG_MSG_INIT, 0, 0}, {DG_MSG_CLICK, 1, 0}}));
    EXPECT_TRUE(frontend::openDialogs().empty());
}

TEST_F(GuardedDialogTest, FailureInAResizeEndsTheDialogAndItsMoving) {
    onResize_ = [&] {
        DGBeginMoveGrowItems(id_);
        fail();
    };
    EXPECT_EQ(open([&](Dialog& dialog) {
                  EXPECT_TRUE(dialog.resize(5, 5));
                  EXPECT_TRUE(dialog.ended());
                  EXPECT_EQ(DGEndMoveGrowItems(id_), DG_ERR_BADPARS);
              }),
              0);
}

TEST_F(GuardedDialogTest, FailureBeforeTheDialogShowsKeepsItFromShowing) {
    onInit_ = [] { fail(); };
    const ScriptedView view;  // It fails the test where it is asked to show a dialog.
    EXPECT_EQ(openWithoutView(), 0);
    EXPECT_EQ(messages_, (std::vector<Message>{{DG_MSG_INIT, 0, 0}}));
}

// --- What the view is told -----------------------------------------------------------------------------------------

TEST_F(DialogTest, ViewIsToldOfChangesOnceTheDialogShows) {
    onInit_ = [&] {
        DGSetItemText(id_, 3, "before it shows");
        DGInvalidateItem(id_, List);
    };
    open([&](Dialog&) {
        EXPECT_EQ(view().changes(), 0);
        DGSetItemText(id_, 3, "x");
        EXPECT_EQ(view().changes(), 1);
        DGMoveItem(id_, 3, 1, 1);
        EXPECT_EQ(view().changes(), 2);
        DGInvalidateItem(id_, 3);
        EXPECT_EQ(view().changes(), 3);
        DGListInsertItem(id_, List, DG_LIST_BOTTOM);
        EXPECT_EQ(view().changes(), 4);
        DGListSetItemStatus(id_, List, 7, 2);
        EXPECT_EQ(view().changes(), 4) << "a refused operation changes nothing";
    });
}

TEST_F(DialogTest, ViewIsToldOnceAfterItemsMoved) {
    open([&](Dialog&) {
        EXPECT_EQ(DGEndMoveGrowItems(id_), DG_ERR_BADPARS) << "nothing was begun";
        EXPECT_EQ(DGBeginMoveGrowItems(id_), NoError);
        DGMoveItem(id_, 1, 1, 1);
        DGGrowItem(id_, List, 1, 1);
        EXPECT_EQ(view().changes(), 0);
        EXPECT_EQ(DGEndMoveGrowItems(id_), NoError);
        EXPECT_EQ(view().changes(), 1);
    });
}

TEST_F(DialogTest, HandlerThatForgetsToEndTheMovingIsHelped) {
    onClick_ = [&](Int16) {
        DGBeginMoveGrowItems(id_);
        DGMoveItem(id_, 1, 1, 1);
        return Int16{0};
    };
    open([&](Dialog& dialog) {
        dialog.clickItem(1);
        EXPECT_EQ(view().changes(), 1);
        EXPECT_EQ(DGEndMoveGrowItems(id_), DG_ERR_BADPARS);
    });
}

TEST_F(DialogTest, ViewIsToldOnceAfterDrawingWasOff) {
    open([&](Dialog& dialog) {
        EXPECT_EQ(DGListDisableDraw(id_, List), NoError);
        EXPECT_FALSE(dialog.list(List)->drawingEnabled());
        for (int i = 0; i < 10; ++i) DGListInsertItem(id_, List, DG_LIST_BOTTOM);
        DGInvalidateItem(id_, List);
        EXPECT_EQ(view().changes(), 0);
        DGSetItemText(id_, 3, "another item");
        EXPECT_EQ(view().changes(), 1);
        EXPECT_EQ(DGListEnableDraw(id_, List), NoError);
        EXPECT_EQ(view().changes(), 2);
        EXPECT_EQ(DGListEnableDraw(id_, List), NoError);
        EXPECT_EQ(view().changes(), 2);
        EXPECT_TRUE(dialog.list(List)->drawingEnabled());
    });
}
