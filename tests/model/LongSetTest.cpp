// Property sets with many properties: what is kept of such a set while one edit follows the other never shows, neither
// in what an edit does nor in what it is refused for.

#include "RandomModel.hpp"

#include <gmock/gmock.h>

#include <ctime>

namespace {

/// Up to so many bytes the text of a set is read for each edit.
constexpr std::size_t ShortText = 512;
/// From so many properties on a set's names are sorted once they were searched often.
constexpr std::size_t LongSet = 64;

struct Shape {
    std::size_t properties;  ///< That are listed.
    std::size_t bytes;       ///< Of the set's text, where its properties leave room for that.
};

std::ostream& operator<<(std::ostream& out, const Shape& shape) {
    return out << shape.properties << "Properties" << shape.bytes << "Bytes";
}

/// A wall with a set "S" of its own, in which one name is there twice and one is that of a complex property, and what
/// else can be in the way: a property that another set has too, a set of that name of the type object.
TinyModel wallWithSet(const Shape& shape, const std::string& description) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
    const Id shared = ifc.single("Shared", "IFCLABEL('shared')");
    ifc.give({other}, ifc.set("S", {shared, ifc.single("P1", "IFCLABEL('of the other')")}));
    ifc.type({wall}, {ifc.set("S", {ifc.single("Typed", "IFCLABEL('typed')"), ifc.single("P1", "IFCLABEL('t')")})});
    Ids properties{shared};
    while (properties.size() + 1 < shape.properties) {
        properties.push_back(ifc.single("P" + std::to_string(properties.size()), "IFCLABEL('old')"));
    }
    properties.push_back(ifc.single("P1", "IFCLABEL('the second of that name')"));
    properties.push_back(ifc.add("IfcComplexProperty",
                                 {{"Name", "'Complex'"}, {"UsageName", "'x'"}, {"HasProperties", refs({shared})}}));
    ifc.give({wall},
             ifc.add("IfcPropertySet",
                     {{"Name", "'S'"}, {"Description", "'" + description + "'"}, {"HasProperties", refs(properties)}}));
    return ifc;
}

TinyModel wallWithSet(const Shape& shape) {
    const std::string text = wallWithSet(shape, "").text();
    const auto described = text.find(",'S','',");
    const auto begin = text.rfind('\n', described) + 1, end = text.find('\n', described);
    const std::size_t bytes = end - begin;
    return wallWithSet(shape, std::string(bytes < shape.bytes ? shape.bytes - bytes : 0, 'x'));
}

struct Edit {
    std::string name, value;
};

model::Status apply(Opened& model, const Edit& edit) {
    return model->setProperty(0, model.wantedProperty(0, "S", edit.name, edit.value));
}

/// In a command of its own in the file read anew. @return why it was refused, empty where it was not.
std::string applyAnew(std::string& bytes, const Edit& edit) {
    Opened fresh(bytes);
    model::Status done;
    EXPECT_TRUE(fresh->command("Edit", [&] {
        done = apply(fresh, edit);
        return 0;
    }));
    bytes = fresh->bytes();
    return done ? "" : done.error().message;
}

/// An open model under random edits, and what it must be.
class RandomEditing {
public:
    RandomEditing(const Shape& shape, std::uint32_t seed)
        : dice_(seed), properties_(shape.properties), model_(wallWithSet(shape)), states_{model_->bytes()} {}

    void step() {
        if (dice_.oneIn(5)) return undoOrRedo();
        if (dice_.oneIn(6)) return look();
        command();
    }

    void look() {
        ASSERT_EQ(model_->bytes(), states_[at_]);
        ASSERT_EQ(model_.snapshot(), Opened(states_[at_]).snapshot());
        ASSERT_EQ(model_->modified(), states_[at_] != states_[0]);
    }

private:
    Edit anyEdit() {
        static const std::vector<std::string> Special = {"Shared", "P1", "Complex", "Typed", "S"};
        const std::string value = std::to_string(dice_.below(3));
        if (dice_.oneIn(4)) return {dice_.pick(Special), value};
        if (dice_.oneIn(3)) return {"P" + std::to_string(dice_.below(properties_ + 5)), value};
        return {"New " + std::to_string(dice_.below(60)), value};
    }

    void command() {
        std::string expected = states_[at_];
        const bool keep = !dice_.oneIn(4), looks = dice_.oneIn(4);
        const auto ran = model_->command("Edits", [&] {
            for (std::size_t left = dice_.below(12); left > 0; --left) {
                const Edit edit = anyEdit();
                const model::Status done = apply(model_, edit);
                EXPECT_EQ(done ? "" : done.error().message, applyAnew(expected, edit)) << edit.name;
                if (looks) {
                    EXPECT_EQ(model_->bytes(), expected) << edit.name;
                }
            }
            return keep ? 0 : 1;
        });
        ASSERT_TRUE(ran);
        if (!keep || expected == states_[at_]) return;
        states_.resize(++at_);
        states_.push_back(expected);
    }

    void undoOrRedo() {
        if (dice_.oneIn(2)) {
            ASSERT_EQ(model_->undo(), at_ > 0);
            at_ -= at_ > 0 ? 1U : 0U;
        } else {
            const bool more = at_ + 1 < states_.size();
            ASSERT_EQ(model_->redo(), more);
            at_ += more ? 1U : 0U;
        }
    }

    Dice dice_;
    std::size_t properties_;
    Opened model_;
    std::vector<std::string> states_;  ///< That undo and redo lead to.
    std::size_t at_ = 0;
};

class SetOfMany : public testing::TestWithParam<Shape> {};

TEST_P(SetOfMany, IsEditedLikeThatOfAFileReadAnew) {
    for (std::uint32_t seed = 1; seed <= 6; ++seed) {
        RandomEditing editing(GetParam(), seed);
        for (int i = 0; i < 25 && !HasFailure(); ++i) editing.step();
        editing.look();
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
}

TEST_P(SetOfMany, TakesNewPropertiesButNoneOfTheNameOfAComplexOne) {
    Opened model(wallWithSet(GetParam()));
    std::string expected = model->bytes();
    ASSERT_TRUE(model->command("Add", [&] {
        for (int i = 0; i < 90; ++i) {
            const Edit edit{"New " + std::to_string(i), "new"};
            EXPECT_TRUE(apply(model, edit));
            (void)applyAnew(expected, edit);
            const model::Status refused = apply(model, {"Complex", "new"});
            EXPECT_EQ(refused                                             ? ""
                      : refused.error().kind == model::ErrorKind::Refused ? "refused"
                                                                          : "otherwise",
                      "refused");
        }
        return 0;
    }));
    EXPECT_EQ(model->bytes(), expected);
    EXPECT_EQ(model.property(0, "S", "New 89"), "new");
}

INSTANTIATE_TEST_SUITE_P(Shapes, SetOfMany,
                         testing::Values(Shape{5, 0}, Shape{5, ShortText - 1}, Shape{5, ShortText},
                                         Shape{5, ShortText + 1}, Shape{LongSet - 1, ShortText + 1},
                                         Shape{LongSet, ShortText}, Shape{LongSet + 1, ShortText + 1}, Shape{150, 0}),
                         testing::PrintToStringParamName());

/// A set whose text an edit is refused for, short or long.
TEST(MalformedSet, IsRefusedForTheSameReasonHoweverLong) {
    for (const std::string list : {"(#1,abc)", "$", "#1", "abc", "(#1,(#1)", "((#1))"}) {
        std::vector<std::string> reasons;
        for (const std::size_t padding : {0U, 600U}) {
            TinyModel ifc;
            const Id property = ifc.single("P", "IFCLABEL('old')");
            ASSERT_EQ(property, 1U);
            const Id wall = ifc.element("IfcWall", "Wall");
            const Id set = ifc.raw("IFCPROPERTYSET('" + TinyModel::globalIdText(77) + "',$,'S','" +
                                   std::string(padding, 'x') + "'," + list + ")");
            ifc.give({wall}, set);
            Opened model(ifc);
            std::vector<std::string> said;
            ASSERT_TRUE(model->command("Edit", [&] {
                for (const char* name : {"New", "P", "Newer"}) {
                    const model::Status done = apply(model, {name, "new"});
                    said.push_back(done ? "done" : done.error().message);
                }
                return 1;
            }));
            EXPECT_EQ(model->bytes(), ifc.text());
            reasons.push_back(testing::PrintToString(said));
        }
        EXPECT_EQ(reasons[0], reasons[1]) << list;
    }
}

/// Four megabytes and an eighth of the file are kept decoded; a set of more than that is kept all the same, and so are
/// two of them.
TEST(HugeSet, IsNotReadAnewForEachOfManyProperties) {
    constexpr std::size_t Properties = 60'000;
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    for (const char* name : {"S", "Another"}) {
        Ids properties;
        for (std::size_t i = 0; i < Properties; ++i) {
            properties.push_back(ifc.single("Property " + std::to_string(i), "IFCLABEL('old')"));
        }
        ifc.give({wall}, ifc.set(name, properties));
    }
    Opened model(ifc);
    model::Property wanted = model.wantedProperty(0, "S", "The first", "new");
    std::clock_t begin = 0;
    ASSERT_TRUE(model->command("Add", [&] {
        EXPECT_TRUE(model->setProperty(0, wanted));
        begin = std::clock();
        for (int i = 0; i < 2000; ++i) {
            wanted.name = utf16("New " + std::to_string(i));
            EXPECT_TRUE(model->setProperty(0, wanted));
        }
        // With the sets read anew for each property it would be a minute.
        EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, 10);
        return 0;
    }));
    EXPECT_EQ(model.property(0, "S", "New 1999"), "new");
    EXPECT_EQ(model.property(0, "S", "Property 59999"), "old");
}

}  // namespace
