// Relations that name very many elements: one after the other leaves them, in one command or in several, and what is
// kept of such a relation in between never shows.

#include "TinyModel.hpp"

#include "model/ifc/index/Workspace.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>
#include <unordered_set>

namespace {

constexpr std::size_t Walls = 120;  // Far more than a short relation names.

struct LongForm {
    std::string name;
    std::string schema;
    std::function<void(TinyModel&, const Ids& walls)> build;
    std::function<model::Status(Opened&, model::Element, const std::string& value)> set;
    std::function<std::string(Opened&, model::Element)> held;
};

std::ostream& operator<<(std::ostream& out, const LongForm& form) {
    return out << form.name;
}

model::Status setP(Opened& opened, model::Element element, const std::string& value) {
    return opened->setProperty(element, opened.wantedProperty(element, "S", "P", value));
}

std::string heldP(Opened& opened, model::Element element) {
    return opened.property(element, "S", "P");
}

Id setS(TinyModel& ifc) {
    return ifc.set("S", {ifc.single("P", "IFCLABEL('old')"), ifc.single("Q", "IFCLABEL('q')")});
}

std::vector<LongForm> formsOf(const std::string& schema) {
    return {
        {"Set" + schema, schema, [](TinyModel& ifc, const Ids& walls) { ifc.give(walls, setS(ifc)); }, setP, heldP},
        {"TypeAndSet" + schema, schema,
         [](TinyModel& ifc, const Ids& walls) {
             ifc.type(walls, {setS(ifc)});
             ifc.give(walls, ifc.set("S", {ifc.single("R", "IFCLABEL('r')")}));
         },
         setP,
         [](Opened& opened, model::Element element) {
             const std::string value = opened.property(element, "S", "P");
             return value == "old^" ? "old" : value;
         }},
        {"Classification" + schema, schema,
         [](TinyModel& ifc, const Ids& walls) {
             ifc.classify(walls, "System", ifc.classificationReference("old", "Name", ifc.classification("System")));
         },
         [](Opened& opened, model::Element element, const std::string& value) {
             return opened->setClassification(element, opened.wantedReference(element, "System", value, "Name"));
         },
         [](Opened& opened, model::Element element) {
             const std::string text = opened.classification(element, "System");
             return text.substr(0, text.find('{'));
         }},
    };
}

std::vector<LongForm> allForms() {
    std::vector<LongForm> forms;
    for (const char* schema : {"IFC2X3", "IFC4", "IFC4X3"}) {
        for (auto& form : formsOf(schema)) forms.push_back(std::move(form));
    }
    forms.push_back({"SetOfSetsIFC4", "IFC4",
                     [](TinyModel& ifc, const Ids& walls) {
                         ifc.giveSetOfSets(walls, {setS(ifc), ifc.set("T", {ifc.single("P", "IFCLABEL('t')")})});
                     },
                     setP, heldP});
    forms.push_back({"OverrideIFC2X3", "IFC2X3",
                     [](TinyModel& ifc, const Ids& walls) {
                         const Id set = ifc.set("S", {ifc.single("P", "IFCLABEL('base')")});
                         ifc.overrideProperties(walls, set, {ifc.single("P", "IFCLABEL('old')")});
                     },
                     setP, heldP});
    return forms;
}

class LongRelation : public testing::TestWithParam<LongForm> {
protected:
    LongRelation() : ifc_(GetParam().schema) {
        Ids walls;
        for (std::size_t i = 0; i < Walls; ++i) walls.push_back(ifc_.element("IfcWall", "Wall " + std::to_string(i)));
        GetParam().build(ifc_, walls);
        order_.resize(Walls);
        std::iota(order_.begin(), order_.end(), 0U);
        std::shuffle(order_.begin(), order_.end(), std::mt19937(11));  // NOLINT: the same order in each run
    }

    /// In one command: the first `count` of the shuffled walls from place `begin` on. @return whether it was kept.
    bool change(Opened& opened, std::size_t begin, std::size_t count, bool keep = true) {
        const auto result = opened->command("Change", [&] {
            for (std::size_t i = begin; i < begin + count; ++i) {
                const model::Status done = GetParam().set(opened, order_[i], "new " + std::to_string(i));
                EXPECT_TRUE(done) << (done ? "" : done.error().message);
            }
            return keep ? 0 : 1;
        });
        return result && *result == 0;
    }

    /// The walls changed and no others bear new values; so does the file when it is read anew.
    void expectChanged(Opened& opened, std::size_t count) {
        Opened again(opened->bytes());
        for (std::size_t i = 0; i < Walls; ++i) {
            const std::string expected = i < count ? "new " + std::to_string(i) : "old";
            ASSERT_EQ(GetParam().held(opened, order_[i]), expected) << i;
            ASSERT_EQ(GetParam().held(again, order_[i]), expected) << i << " in the file";
        }
        EXPECT_EQ(opened.snapshot(), again.snapshot());
        EXPECT_EQ(opened->bytes().find("()"), std::string::npos) << "no relation is left without elements";
    }

    TinyModel ifc_;
    std::vector<model::Element> order_;
};

TEST_P(LongRelation, IsLeftByManyInOneCommand) {
    Opened opened(ifc_);
    ASSERT_TRUE(change(opened, 0, Walls / 2));
    expectChanged(opened, Walls / 2);
    ASSERT_TRUE(opened->undo());
    EXPECT_EQ(opened->bytes(), ifc_.text());
    expectChanged(opened, 0);
    ASSERT_TRUE(opened->redo());
    expectChanged(opened, Walls / 2);
}

TEST_P(LongRelation, IsLeftByAllButTheLastWhichKeepsIt) {
    Opened opened(ifc_);
    ASSERT_TRUE(change(opened, 0, Walls));
    expectChanged(opened, Walls);
    ASSERT_TRUE(opened->undo());
    EXPECT_EQ(opened->bytes(), ifc_.text());
}

TEST_P(LongRelation, IsLeftInManyCommands) {
    Opened opened(ifc_);
    for (std::size_t i = 0; i < 9; ++i) ASSERT_TRUE(change(opened, i, 1));
    expectChanged(opened, 9);
    while (opened->undo()) {
    }
    EXPECT_EQ(opened->bytes(), ifc_.text());
    ASSERT_TRUE(change(opened, 0, 3)) << "after all the undoing";
    expectChanged(opened, 3);
}

TEST_P(LongRelation, IsWholeAgainAfterARollback) {
    Opened opened(ifc_);
    EXPECT_FALSE(change(opened, 0, Walls / 2, false));
    EXPECT_EQ(opened->bytes(), ifc_.text());
    expectChanged(opened, 0);
    ASSERT_TRUE(change(opened, 0, 5));
    expectChanged(opened, 5);
}

/// What is kept of the relation and of who refers to whom follows edits, undo, redo and rollback.
TEST_P(LongRelation, IsKnownAsTheFileHasItThroughAnySequence) {
    Opened opened(ifc_);
    std::mt19937 random(7);  // NOLINT: the same sequence in each run
    std::vector<std::string> states{ifc_.text()};
    std::size_t at = 0;
    for (int step = 0; step < 40; ++step) {
        const auto choice = random() % 6;
        if (choice == 0) {
            ASSERT_EQ(opened->undo(), at > 0);
            at -= at > 0 ? 1U : 0U;
        } else if (choice == 1) {
            ASSERT_EQ(opened->redo(), at + 1 < states.size());
            at += at + 1 < states.size() ? 1U : 0U;
        } else if (change(opened, random() % (Walls - 3), 1 + random() % 3, choice != 2)) {
            if (opened->bytes() == states[at]) continue;  // They had these values already.
            states.resize(++at);
            states.push_back(opened->bytes());
        }
        ASSERT_TRUE(opened->bytes() == states[at]) << step;
        if (random() % 2 == 0) {
            ASSERT_EQ(opened.snapshot(), Opened(states[at]).snapshot()) << step;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, LongRelation, testing::ValuesIn(allForms()),
                         [](const auto& row) { return row.param.name; });

TEST(LongRelationThatIsLeft, IsKnownToNameOneElementLess) {
    TinyModel ifc;
    Ids walls;
    for (std::size_t i = 0; i < Walls; ++i) walls.push_back(ifc.element("IfcWall", "Wall"));
    const Id relation = ifc.give(walls, setS(ifc));
    Opened opened(ifc);
    model::ifc::Workspace& work = opened->workspace();
    const auto elements = [&] {
        return work.forwardReferences.of(work.file.find(relation), model::ifc::Field::Related).size();
    };
    EXPECT_EQ(elements(), Walls);
    ASSERT_TRUE(opened.setProperty(3, "S", "P", "new"));
    EXPECT_EQ(elements(), Walls - 1);
    ASSERT_TRUE(opened.setProperty(4, "S", "P", "new"));
    EXPECT_EQ(elements(), Walls - 2);
    ASSERT_TRUE(opened->undo());
    EXPECT_EQ(elements(), Walls - 1);
}

TEST(LongRelationThatIsLeft, NamesTheOthersAfterEachOfManyStepsAndOnTheWayBack) {
    TinyModel ifc;
    Ids walls;
    for (std::size_t i = 0; i < Walls; ++i) walls.push_back(ifc.element("IfcWall", "Wall"));
    ifc.classify(walls, "System", ifc.classificationReference("old", "Name", ifc.classification("System")));
    Opened opened(ifc), looked(ifc);
    std::vector<std::string> states{ifc.text()}, lists{refs(walls)};
    for (std::size_t i = 0; i + 1 < Walls; ++i) {
        const auto element = static_cast<model::Element>((i * 7) % Walls);
        walls.erase(std::find(walls.begin(), walls.end(), element + 1));
        lists.push_back(refs(walls));
        for (Opened* each : {&opened, &looked}) {
            ASSERT_TRUE(each->classify(element, "System", "new " + std::to_string(i % 3), "Name"));
        }
        states.push_back(looked->bytes());
        ASSERT_NE(states.back().find(lists.back() + ",#122)"), std::string::npos) << i;
    }
    for (std::size_t i = states.size(); i-- > 1;) {
        ASSERT_TRUE(opened->bytes() == states[i]) << i;
        ASSERT_TRUE(opened->undo());
    }
    EXPECT_TRUE(opened->bytes() == ifc.text());
    for (std::size_t i = 1; i < states.size(); ++i) {
        ASSERT_TRUE(opened->redo());
        ASSERT_TRUE(opened->bytes() == states[i]) << i;
    }
    EXPECT_FALSE(opened->redo());
}

TEST(LongSet, TakesOneNewPropertyAfterTheOther) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    ifc.give({wall}, ifc.set("S", {ifc.single("P", "IFCLABEL('old')")}));
    Opened opened(ifc);
    ASSERT_TRUE(opened->command("Add", [&] {
        for (int i = 0; i < 200; ++i) {
            const std::string number = std::to_string(i);
            EXPECT_TRUE(opened->setProperty(0, opened.wantedProperty(0, "S", "New " + number, number)));
            EXPECT_EQ(opened.property(0, "S", "New " + number), number);
        }
        EXPECT_TRUE(opened->setProperty(0, opened.wantedProperty(0, "S", "New 7", "changed")));
        return 0;
    }));
    EXPECT_EQ(opened.property(0, "S", "New 7"), "changed");
    EXPECT_EQ(opened.property(0, "S", "P"), "old");
    EXPECT_EQ(opened->properties(0)->size(), 201U);
    EXPECT_EQ(opened.snapshot(), Opened(opened->bytes()).snapshot());
    ASSERT_TRUE(opened->undo());
    EXPECT_EQ(opened->bytes(), ifc.text());
    EXPECT_EQ(opened->properties(0)->size(), 1U);
}

TEST(KnownSet, FollowsValuesThatGrowShrinkAndComeBack) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    ifc.give({wall}, ifc.set("S", {ifc.single("P", "IFCLABEL('old')"), ifc.single("N", "IFCREAL(1.5)"),
                                   ifc.single("Q", "IFCLABEL('q')")}));
    Opened opened(ifc);
    std::vector<std::string> values{"old"};
    for (const std::size_t length : {1U, 200U, 0U, 40U, 255U, 251U, 3U, 254U, 2U}) {
        values.emplace_back(length, static_cast<char>('a' + values.size()));
        ASSERT_TRUE(opened.setProperty(0, "S", "P", values.back()));
        ASSERT_TRUE(opened.setProperty(0, "S", "N", std::to_string(length)));
        EXPECT_EQ(opened.property(0, "S", "P"), values.back());
        EXPECT_EQ(opened.property(0, "S", "N"), std::to_string(length));
        EXPECT_EQ(opened.property(0, "S", "Q"), "q");
        EXPECT_EQ(opened.snapshot(), Opened(opened->bytes()).snapshot());
    }
    while (!values.empty()) {
        EXPECT_EQ(opened.property(0, "S", "P"), values.back());
        values.pop_back();
        EXPECT_TRUE(opened->undo() || values.empty()) << "the number";
        EXPECT_TRUE(opened->undo() || values.empty());
    }
    EXPECT_EQ(opened->bytes(), ifc.text());
}

}  // namespace
