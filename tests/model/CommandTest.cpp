#include "TinyModel.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using model::ErrorKind;

struct TwoWalls {
    TwoWalls() {
        wall = ifc.element("IfcWall", "Wall");
        other = ifc.element("IfcWall", "Other");
        ifc.give({wall, other}, ifc.set("S", {ifc.single("P", "IFCLABEL('old')")}));
    }
    TinyModel ifc;
    Id wall, other;
};

model::Property propertyP(std::u16string value) {
    model::Property property{u"S", u"P", model::PropertyKind::Single, false, {}};
    property.value.type = "IfcLabel";
    property.value.string = std::move(value);
    return property;
}

TEST(Command, IsOneUndoStepUnderItsName) {
    TwoWalls two;
    Opened model(two.ifc);
    const auto result = model->command("Both walls", [&] {
        EXPECT_TRUE(model->commandOpen());
        EXPECT_TRUE(model->setProperty(0, propertyP(u"a")));
        EXPECT_TRUE(model->setProperty(1, propertyP(u"b")));
        EXPECT_TRUE(model->setAttribute(1, "Name", u"Renamed"));
        return 0;
    });
    ASSERT_TRUE(result);
    EXPECT_EQ(*result, 0);
    EXPECT_FALSE(model->commandOpen());
    EXPECT_EQ(model->undoSteps().undo, "Both walls");
    EXPECT_TRUE(model->modified());
    EXPECT_TRUE(model->undo());
    EXPECT_FALSE(model->undo());
    EXPECT_EQ(model->undoSteps().redo, "Both walls");
    EXPECT_EQ(model->bytes(), two.ifc.text());
    EXPECT_FALSE(model->modified());
    EXPECT_TRUE(model->redo());
    EXPECT_EQ(model.property(0, "S", "P"), "a");
    EXPECT_EQ(model.property(1, "S", "P"), "b");
}

TEST(Command, WhoseBodyFailsIsRolledBack) {
    TwoWalls two;
    Opened model(two.ifc);
    const auto before = model.snapshot();
    const auto result = model->command("Fails", [&] {
        EXPECT_TRUE(model->setProperty(0, propertyP(u"a")));
        EXPECT_EQ(model.property(0, "S", "P"), "a");
        return -5;
    });
    ASSERT_TRUE(result);
    EXPECT_EQ(*result, -5);
    EXPECT_FALSE(model->undoSteps().undo.has_value());
    EXPECT_EQ(model->bytes(), two.ifc.text());
    EXPECT_EQ(model.snapshot(), before);
    // Nothing of the rolled-back command is in the way of the next one.
    ASSERT_TRUE(model.setProperty(0, "S", "P", "b"));
    EXPECT_EQ(model.property(0, "S", "P"), "b");
    EXPECT_EQ(model.property(1, "S", "P"), "old");
    EXPECT_EQ(Opened(model->bytes()).snapshot(), model.snapshot());
}

TEST(Command, WhoseBodyThrowsIsRolledBack) {
    TwoWalls two;
    Opened model(two.ifc);
    EXPECT_THROW((void)model->command("Throws",
                                      [&]() -> std::int32_t {
                                          EXPECT_TRUE(model->setProperty(0, propertyP(u"a")));
                                          throw std::runtime_error("stop");
                                      }),
                 std::runtime_error);
    EXPECT_FALSE(model->commandOpen());
    EXPECT_EQ(model->bytes(), two.ifc.text());
}

TEST(Command, InsideACommandIsRefused) {
    TwoWalls two;
    Opened model(two.ifc);
    const auto outer = model->command("Outer", [&] {
        const auto inner = model->command("Inner", [] { return 0; });
        EXPECT_FALSE(inner);
        EXPECT_EQ(inner.error().kind, ErrorKind::Nesting);
        return 0;
    });
    EXPECT_TRUE(outer);
}

TEST(Command, ThatChangedNothingLeavesNoStep) {
    TwoWalls two;
    Opened model(two.ifc);
    ASSERT_TRUE(model.setProperty(0, "S", "P", "old"));
    EXPECT_FALSE(model->undoSteps().undo.has_value());
    EXPECT_FALSE(model->modified());
}

TEST(Command, UndoneAfterARollbackInBetweenComesBackWhole) {
    TwoWalls two;
    Opened model(two.ifc);
    ASSERT_TRUE(model.setProperty(0, "S", "P", "first"));
    const auto done = model.snapshot();
    const std::string bytes = model->bytes();
    ASSERT_TRUE(model->undo());
    // Makes and gives up new instances under the ids of the undone ones.
    ASSERT_TRUE(model->command("Rolled back", [&] {
        EXPECT_TRUE(model->setProperty(1, propertyP(u"x")));
        EXPECT_TRUE(model->setProperty(0, propertyP(u"y")));
        return 1;
    }));
    ASSERT_TRUE(model->redo());
    EXPECT_EQ(model->bytes(), bytes);
    EXPECT_EQ(model.snapshot(), done);
}

TEST(Revision, GrowsWithEachChangeUndoAndRedo) {
    TwoWalls two;
    Opened model(two.ifc);
    auto last = model->revision();
    const auto grew = [&] {
        const auto before = std::exchange(last, model->revision());
        return before < last;
    };
    ASSERT_TRUE(model.setAttribute(0, "Name", "x"));
    EXPECT_TRUE(grew());
    ASSERT_TRUE(model->undo());
    EXPECT_TRUE(grew());
    ASSERT_TRUE(model->redo());
    EXPECT_TRUE(grew());
    (void)model.snapshot();
    EXPECT_FALSE(grew());
}

}  // namespace
