// Memory that runs out at any place: nothing is half made, the caller learns of it as such, and what is asked for
// again is answered as if nothing had happened.

#include "FailingMemory.hpp"
#include "RandomModel.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <new>

namespace {

using failing_memory::atEachAllocation;
using failing_memory::Outcome;
using failing_memory::withFailure;

/// What elements share in each way there is.
TinyModel sharingModel(const std::string& schema) {
    TinyModel ifc(schema);
    const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
    const Id property = ifc.single("P", "IFCLABEL('old')");
    const Id set = ifc.set("S", {property, ifc.single("Q", "IFCREAL(1.)")});
    ifc.give({wall, other}, set);
    ifc.give({wall}, ifc.set("Own", {ifc.single("X", "IFCLABEL('x')"), property}));
    // As long a text as hundreds of properties make.
    ifc.give({wall}, ifc.add("IfcPropertySet", {{"Name", "'Long'"},
                                                {"Description", "'" + std::string(600, 'x') + "'"},
                                                {"HasProperties", refs({ifc.single("X", "IFCLABEL('x')")})}}));
    if (schema == "IFC2X3") {
        ifc.overrideProperties({wall, other}, set, {ifc.single("P", "IFCLABEL('over')")});
    } else {
        ifc.giveSetOfSets({wall, other}, {ifc.set("A", {ifc.single("P", "$")}), ifc.set("B", {property})});
    }
    ifc.type({wall, other}, {ifc.set("Typed", {ifc.single("P", "IFCLABEL('typed')")})});
    Ids many(200, other);  // As long a relation as hundreds of elements make.
    many.push_back(wall);
    ifc.classify(many, "L", ifc.classificationReference("1", "One", ifc.classification("System")));
    return ifc;
}

struct Change {
    const char* name;
    std::function<model::Status(Opened&)> make;
};

model::Property wanted(std::u16string set, std::u16string name) {
    model::Property property{std::move(set), std::move(name), model::PropertyKind::Single, false, {}};
    property.value.type = "IfcLabel";
    property.value.string = u"new, and long enough to have memory of its own";
    return property;
}

model::ClassificationReference reference(std::u16string label) {
    model::ClassificationReference reference;
    reference.system = std::move(label);
    reference.itemReference = u"2";
    reference.classificationName = u"Another system";
    return reference;
}

/// What they ask for is made beforehand: the memory that runs out is to be the model's.
const std::vector<Change> Changes = {
    {"attribute", [](Opened& m) { return m->setAttribute(0, "Description", u"new, and long enough for its own"); }},
    {"shared property", [p = wanted(u"S", u"P")](Opened& m) { return m->setProperty(0, p); }},
    {"new property of a shared set", [p = wanted(u"S", u"New")](Opened& m) { return m->setProperty(0, p); }},
    {"property that another set holds", [p = wanted(u"Own", u"P")](Opened& m) { return m->setProperty(0, p); }},
    {"property of its own", [p = wanted(u"Own", u"X")](Opened& m) { return m->setProperty(0, p); }},
    {"new property of its own set", [p = wanted(u"Own", u"New")](Opened& m) { return m->setProperty(0, p); }},
    {"new properties of a long set",
     [p = wanted(u"Long", u"New"), q = wanted(u"Long", u"Newer")](Opened& m) {
         (void)m->setProperty(0, p);
         return m->setProperty(0, q);
     }},
    {"property in a set of sets", [p = wanted(u"B", u"P")](Opened& m) { return m->setProperty(0, p); }},
    {"inherited property", [p = wanted(u"Typed", u"P")](Opened& m) { return m->setProperty(0, p); }},
    {"new set", [p = wanted(u"Never heard of", u"New")](Opened& m) { return m->setProperty(0, p); }},
    {"shared classification", [r = reference(u"L")](Opened& m) { return m->setClassification(0, r); }},
    {"new classification", [r = reference(u"New label")](Opened& m) { return m->setClassification(0, r); }},
    {"equal classifications that become one",
     [r = reference(u"Label of both")](Opened& m) {
         (void)m->setClassification(0, r);
         return m->setClassification(1, r);
     }},
    {"equal classifications that stay in their relation",
     [r = reference(u"L")](Opened& m) {
         (void)m->setClassification(0, r);
         return m->setClassification(1, r);
     }},
    {"equal sets that become one",
     [p = wanted(u"Set of both", u"New")](Opened& m) {
         m->shareNewSets(true);
         (void)m->setProperty(0, p);
         return m->setProperty(1, p);
     }},
};

/// As one command; what the edit answered does not matter, only that it was not broken off.
void make(const Change& change, Opened& model) {
    (void)model->command("change", [&] {
        (void)change.make(model);
        return 0;
    });
}

/// What a model is to show.
struct Expected {
    explicit Expected(const std::string& text) : bytes(text), data(Opened(text).snapshot()) {}

    std::string bytes;
    std::vector<std::string> data;
};

class OutOfMemory : public testing::TestWithParam<std::string> {
protected:
    OutOfMemory() : original_(sharingModel(GetParam()).text()) {}

    Expected after(const Change& change) const {
        Opened fresh(original_.bytes);
        make(change, fresh);
        EXPECT_NE(fresh->bytes(), original_.bytes) << change.name;
        return Expected(fresh->bytes());
    }

    Expected original_;
};

void expectSound(Opened& model, const Expected& expected, const std::string& what) {
    ASSERT_EQ(model->bytes(), expected.bytes) << what;
    ASSERT_FALSE(model->commandOpen()) << what;
    ASSERT_EQ(model.snapshot(), expected.data) << what;
}

TEST_P(OutOfMemory, WhileOpeningIsAnErrorThatSaysSo) {
    atEachAllocation([&](long place, bool fromThenOn) {
        std::string bytes = original_.bytes;
        std::optional<std::string> error;
        const Outcome outcome = withFailure(place, fromThenOn, [&] {
            const auto opened = model::Model::fromBytes(std::move(bytes));
            failing_memory::failNoMore();
            if (!opened) error = opened.error().message;
        });
        // With no memory at all there is none for the message either.
        if (outcome == Outcome::Done) {
            EXPECT_EQ(error, "there is not enough memory to open the model") << place;
        }
        return outcome;
    });
}

TEST_P(OutOfMemory, WhileReadingIsNoAnswerAndLeavesNoTrace) {
    atEachAllocation([&](long place, bool fromThenOn) {
        Opened model(original_.bytes);
        const Outcome outcome = withFailure(place, fromThenOn, [&] {
            EXPECT_EQ(model->properties(0)->size(), GetParam() == "IFC2X3" ? 6U : 8U) << place;
            EXPECT_EQ(model->classifications(0)->size(), 1U) << place;
            EXPECT_TRUE(model->attributes(0)) << place;
        });
        // It may do without: what is there is there.
        EXPECT_EQ(model.snapshot(), original_.data) << place;
        return outcome;
    });
}

TEST_P(OutOfMemory, InAChangeRollsTheCommandBackAndTheNextOneSucceeds) {
    for (const Change& change : Changes) {
        const Expected changed = after(change);
        atEachAllocation([&](long place, bool fromThenOn) {
            const std::string what = change.name + (", allocation " + std::to_string(place));
            Opened model(original_.bytes);
            if (fromThenOn) (void)model.data(0);  // Then less is left to be made for the change itself.
            const Outcome outcome = withFailure(place, fromThenOn, [&] { make(change, model); });
            expectSound(model, outcome == Outcome::OutOfMemory ? original_ : changed, what);
            EXPECT_EQ(model->undoSteps().undo.has_value(), outcome != Outcome::OutOfMemory) << what;
            if (outcome == Outcome::OutOfMemory) make(change, model);
            expectSound(model, changed, what + ", the second time");
            EXPECT_TRUE(model->undo());
            expectSound(model, original_, what + ", undone");
            return outcome;
        });
    }
}

/// What a command before it has done to a long list is in no text yet.
TEST_P(OutOfMemory, InTheSecondCommandOnALongListLeavesTheFirst) {
    for (const std::size_t index : {6U, 10U}) {
        const Change& change = Changes[index];
        const Change second = {
            change.name, index == 6 ? [p = wanted(u"Long", u"Newest")](Opened& m) { return m->setProperty(0, p); }
                                    : std::function<model::Status(Opened&)>(
                                          [r = reference(u"L")](Opened& m) { return m->setClassification(1, r); })};
        const Expected once = after(change);
        Opened fresh(original_.bytes);
        make(change, fresh);
        make(second, fresh);
        const Expected twice(fresh->bytes());
        ASSERT_NE(once.bytes, twice.bytes) << change.name;
        atEachAllocation([&](long place, bool fromThenOn) {
            const std::string what = change.name + (", allocation " + std::to_string(place));
            Opened model(original_.bytes);
            make(change, model);
            const Outcome outcome = withFailure(place, fromThenOn, [&] { make(second, model); });
            expectSound(model, outcome == Outcome::OutOfMemory ? once : twice, what);
            if (outcome == Outcome::OutOfMemory) make(second, model);
            expectSound(model, twice, what + ", the second time");
            EXPECT_TRUE(model->undo());
            expectSound(model, once, what + ", undone");
            bool undone = false;
            EXPECT_NE(withFailure(0, true, [&] { undone = model->undo(); }), Outcome::OutOfMemory) << what;
            EXPECT_TRUE(undone) << what;
            expectSound(model, original_, what + ", both undone");
            return outcome;
        });
    }
}

/// So often that the names of the set are kept sorted.
TEST(OutOfMemoryInALongSet, LeavesNothingOfManyEdits) {
    TinyModel ifc;
    Ids properties;
    for (int i = 0; i < 70; ++i) properties.push_back(ifc.single("P" + std::to_string(i), "IFCLABEL('old')"));
    ifc.give({ifc.element("IfcWall", "Wall")}, ifc.set("Many", properties));
    std::vector<model::Property> all;
    for (int i = 60; i < 74; ++i) all.push_back(wanted(u"Many", utf16("P" + std::to_string(i))));
    const auto edit = [&](Opened& model) {
        (void)model->command("many", [&] {
            // What is there already is only found.
            for (int round = 0; round < 4; ++round) {
                for (const auto& property : all) (void)model->setProperty(0, property);
            }
            return 0;
        });
    };
    const Expected original(ifc.text());
    Opened fresh(ifc);
    edit(fresh);
    const Expected changed(fresh->bytes());
    atEachAllocation([&](long place, bool fromThenOn) {
        Opened model(ifc);
        const Outcome outcome = withFailure(place, fromThenOn, [&] { edit(model); });
        expectSound(model, outcome == Outcome::OutOfMemory ? original : changed, std::to_string(place));
        edit(model);
        expectSound(model, changed, std::to_string(place) + ", the second time");
        return outcome;
    });
}

TEST_P(OutOfMemory, InTheLastOfManyChangesRollsBackAll) {
    const auto all = [](Opened& model) {
        (void)model->command("all", [&] {
            for (const Change& change : Changes) (void)change.make(model);
            return 0;
        });
    };
    Opened fresh(original_.bytes);
    all(fresh);
    const Expected changed(fresh->bytes());
    // What an edit throws must end the command even where the body passes over it.
    const auto passingOver = [](Opened& model) {
        (void)model->command("all", [&] {
            for (const Change& change : Changes) {
                try {
                    (void)change.make(model);
                } catch (const std::bad_alloc&) {
                    continue;
                }
            }
            return 0;
        });
    };
    for (const auto& run : {std::function<void(Opened&)>(all), std::function<void(Opened&)>(passingOver)}) {
        atEachAllocation([&](long place, bool fromThenOn) {
            Opened model(original_.bytes);
            const Outcome outcome = withFailure(place, fromThenOn, [&] { run(model); });
            expectSound(model, outcome == Outcome::OutOfMemory ? original_ : changed, std::to_string(place));
            return outcome;
        });
    }
}

TEST_P(OutOfMemory, DoesNotKeepCommandsFromBeingTakenBack) {
    for (const Change& change : Changes) {
        Opened model(original_.bytes);
        make(change, model);
        const Expected changed(model->bytes());
        bool undone = false, redone = false;
        EXPECT_NE(withFailure(0, true, [&] { undone = model->undo(); }), Outcome::OutOfMemory) << change.name;
        EXPECT_TRUE(undone);
        expectSound(model, original_, change.name);
        EXPECT_NE(withFailure(0, true, [&] { redone = model->redo(); }), Outcome::OutOfMemory) << change.name;
        EXPECT_TRUE(redone);
        expectSound(model, changed, change.name);
        ASSERT_TRUE(model->command("rolled back", [&] {
            (void)Changes[1].make(model);
            (void)Changes[6].make(model);
            (void)Changes[10].make(model);
            failing_memory::failAt(0, true);
            return 1;
        }));
        failing_memory::failNoMore();
        expectSound(model, changed, change.name);
    }
}

INSTANTIATE_TEST_SUITE_P(Schemas, OutOfMemory, testing::Values("IFC2X3", "IFC4"),
                         [](const auto& row) { return row.param; });

}  // namespace
