// What an element lists keeps its order through every edit: what is copied because it was shared takes the place of
// what it was copied from, while the file is open, after undo and redo, and when it is opened again.

#include "TinyModel.hpp"

#include <gmock/gmock.h>

#include <functional>
#include <span>

namespace {

using testing::HasSubstr;

constexpr std::string_view AllSchemas[] = {"IFC2X3", "IFC4", "IFC4X3"};
constexpr std::string_view LaterSchemas[] = {"IFC4", "IFC4X3"};
constexpr std::string_view OldSchema[] = {"IFC2X3"};

/// How the wall comes by a set "S" with P and Q that something of is shared.
struct Form {
    std::string_view name;
    std::span<const std::string_view> schemas;
    std::function<void(TinyModel&, Id wall, Id other)> build;
};

Id label(TinyModel& ifc, const std::string& name) {
    return ifc.single(name, "IFCLABEL('old')");
}

Id setOf(TinyModel& ifc, const std::string& name) {
    return ifc.set(name, {label(ifc, "P"), label(ifc, "Q")});
}

const Form Forms[] = {
    {"the relation", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         ifc.give({wall, other}, setOf(ifc, "S"));
     }},
    {"the relation, which names the wall twice", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         ifc.give({wall, other, wall}, setOf(ifc, "S"));
     }},
    {"the set", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         const Id set = setOf(ifc, "S");
         ifc.give({other}, set);
         ifc.give({wall}, set);
     }},
    {"the property", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         const Id property = label(ifc, "P");
         ifc.give({wall}, ifc.set("S", {label(ifc, "O"), property, label(ifc, "Q")}));
         ifc.give({other}, ifc.set("S", {property}));
     }},
    {"all of it", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         const Id property = label(ifc, "P");
         const Id set = ifc.set("S", {label(ifc, "O"), property, label(ifc, "Q")});
         ifc.give({other, wall}, set);
         ifc.give({wall, other}, ifc.set("T", {property}));
         ifc.give({wall, other}, set);
     }},
    {"a set of sets", LaterSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         ifc.giveSetOfSets({wall, other}, {setOf(ifc, "A"), setOf(ifc, "S"), setOf(ifc, "Z")});
     }},
    {"an overriding relation", OldSchema,
     [](TinyModel& ifc, Id wall, Id other) {
         const Id set = setOf(ifc, "S");
         ifc.give({wall, other}, set);
         ifc.overrideProperties({wall, other}, set, {label(ifc, "P"), label(ifc, "Z")});
     }},
    {"the first of several overriding relations", OldSchema,
     [](TinyModel& ifc, Id wall, Id other) {
         const Id set = setOf(ifc, "S");
         ifc.overrideProperties({wall, other}, set, {label(ifc, "P")});
         ifc.overrideProperties({wall}, set, {ifc.single("P", "IFCLABEL('hidden')"), label(ifc, "Z")});
     }},
};

std::vector<std::string> listed(Opened& model, model::Element element) {
    std::vector<std::string> names;
    const auto properties = model->properties(element);
    for (const auto& property : *properties) names.push_back(utf8(property.set) + "." + utf8(property.name));
    const auto references = model->classifications(element);
    for (const auto& reference : *references) names.push_back(utf8(reference.system));
    return names;
}

/// What the wall lists before and after its edit; the other element lists the same all the time.
struct Lists {
    std::vector<std::string> before, after, other;
};

/// Also reopened, undone and redone.
void expectOrder(Opened& model, const Lists& lists) {
    const auto expect = [&](Opened& each, const std::vector<std::string>& wall, const char* when) {
        EXPECT_EQ(listed(each, 0), wall) << when;
        EXPECT_EQ(listed(each, 1), lists.other) << when;
    };
    expect(model, lists.after, "after the edit");
    Opened again(model->bytes());
    expect(again, lists.after, "reopened");
    EXPECT_EQ(again.snapshot(), model.snapshot());
    ASSERT_TRUE(model->undo());
    expect(model, lists.before, "undone");
    ASSERT_TRUE(model->redo());
    expect(model, lists.after, "redone");
}

/// The form between two sets of the wall's own.
TinyModel between(const Form& form, std::string_view schema) {
    TinyModel ifc{std::string(schema)};
    const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
    ifc.give({wall}, setOf(ifc, "First"));
    form.build(ifc, wall, other);
    ifc.give({wall}, setOf(ifc, "Last"));
    return ifc;
}

TEST(Order, OfPropertiesIsKeptWhenAnythingIsSplit) {
    for (const Form& form : Forms) {
        for (const std::string_view schema : form.schemas) {
            for (const char* name : {"P", "Q"}) {
                SCOPED_TRACE(std::string(schema) + ", shared: " + std::string(form.name) + ", changed: " + name);
                Opened model(between(form, schema));
                const auto wall = listed(model, 0), other = listed(model, 1);
                const auto status = model.setProperty(0, "S", name, "new");
                ASSERT_TRUE(status) << status.error().message;
                EXPECT_EQ(model.property(0, "S", name), "new");
                expectOrder(model, {wall, wall, other});
            }
        }
    }
}

TEST(Order, OfPropertiesIsKeptWhenOneIsAdded) {
    for (const Form& form : Forms) {
        for (const std::string_view schema : form.schemas) {
            SCOPED_TRACE(std::string(schema) + ", shared: " + std::string(form.name));
            Opened model(between(form, schema));
            const auto before = listed(model, 0), other = listed(model, 1);
            ASSERT_TRUE(model.setProperty(0, "S", "New", "new"));
            const auto after = listed(model, 0);
            auto others = after;
            std::erase(others, "S.New");
            EXPECT_EQ(others, before);
            expectOrder(model, {before, after, other});
        }
    }
}

TEST(Order, OfElementsThatLeaveOneRelationInTurnIsKept) {
    TinyModel ifc;
    Ids walls;
    for (int i = 0; i < 5; ++i) walls.push_back(ifc.element("IfcWall", "W" + std::to_string(i)));
    for (const char* name : {"A", "B", "C"}) ifc.give(walls, setOf(ifc, name));
    Opened model(ifc);
    const auto before = listed(model, 0);
    for (const char* set : {"B", "A", "C"}) {
        for (const model::Element wall : {3U, 0U, 4U, 1U, 2U}) ASSERT_TRUE(model.setProperty(wall, set, "P", "new"));
    }
    Opened again(model->bytes());
    for (model::Element wall = 0; wall < 5; ++wall) {
        EXPECT_EQ(listed(model, wall), before);
        EXPECT_EQ(listed(again, wall), before);
    }
}

TEST(Order, LetsUpdatesOfABareNameHitOneProperty) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
    ifc.give({wall, other}, ifc.set("Shared", {ifc.single("Finish", "IFCLABEL('old')")}));
    ifc.give({wall}, ifc.set("Own", {ifc.single("Finish", "IFCLABEL('old')")}));
    Opened model(ifc);
    const auto setFirst = [&](std::string_view value) {
        const auto properties = model->properties(0);
        const auto& first = properties->front();
        EXPECT_EQ(utf8(first.name), "Finish");
        return model.setProperty(0, utf8(first.set), "Finish", value);
    };
    ASSERT_TRUE(setFirst("one"));
    ASSERT_TRUE(setFirst("two"));
    EXPECT_EQ(model.property(0, "Shared", "Finish"), "two");
    EXPECT_EQ(model.property(0, "Own", "Finish"), "old");
}

TEST(Order, OfClassificationsIsKept) {
    const std::vector<std::function<void(TinyModel&, Id wall, Id other, Id reference)>> shared = {
        [](TinyModel& ifc, Id wall, Id other, Id reference) {
            ifc.classify({wall, other}, "S", reference);
        },
        [](TinyModel& ifc, Id wall, Id other, Id reference) {
            ifc.classify({wall, other, wall}, "S", reference);
        },
        [](TinyModel& ifc, Id wall, Id other, Id reference) {
            ifc.classify({other}, "S", reference);
            ifc.classify({wall}, "S", reference);
        },
        [](TinyModel& ifc, Id wall, Id other, Id) {
            ifc.classify({wall, other}, "S", ifc.classification("Given directly"));
        },
    };
    for (const std::string_view schema : AllSchemas) {
        for (std::size_t form = 0; form < shared.size(); ++form) {
            SCOPED_TRACE(std::string(schema) + ", " + std::to_string(form));
            TinyModel ifc{std::string(schema)};
            const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
            const Id reference = ifc.classificationReference("1", "One", ifc.classification("System"));
            ifc.classify({wall}, "First", reference);
            shared[form](ifc, wall, other, reference);
            ifc.classify({wall}, "Last", reference);
            Opened model(ifc);
            EXPECT_EQ(listed(model, 0), (std::vector<std::string>{"First", "S", "Last"}));
            const auto status = model.classify(0, "S", "2", "Two");
            ASSERT_TRUE(status) << status.error().message;
            EXPECT_EQ(model.classification(0, "S"), "2{Two}");
            expectOrder(model, {{"First", "S", "Last"}, {"First", "S", "Last"}, {"S"}});
        }
    }
}

TEST(Order, InTheFileHasTheCopiedRelationRightBehindTheOriginal) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
    const Id set = setOf(ifc, "S");
    const Id relation = ifc.give({wall, other}, set);
    const Id last = ifc.element("IfcDoor", "Door");
    Opened model(ifc);
    ASSERT_TRUE(model.setProperty(0, "S", "P", "new"));
    const std::string bytes = model->bytes();
    const auto at = bytes.find("\n" + ref(relation) + "=");
    const auto behind = bytes.find('\n', at + 1);
    // The highest id of all: property and set are made before it, and stand at the end of the section.
    EXPECT_EQ(bytes.substr(behind + 1, bytes.find('=', behind) - behind - 1), ref(last + 3));
    EXPECT_THAT(bytes.substr(behind), HasSubstr("," + refs({wall}) + "," + ref(last + 2)));
    EXPECT_THAT(bytes, HasSubstr("\n" + ref(last + 2) + "=IFCPROPERTYSET("));
    EXPECT_LT(bytes.find(ref(last + 3) + "="), bytes.find(ref(last) + "="));
    EXPECT_GT(bytes.find(ref(last + 2) + "="), bytes.find(ref(last) + "="));
}

}  // namespace
