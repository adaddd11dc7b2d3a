// What others share is split before it is changed: whatever the form of sharing, only the named element sees the new
// value, and undoing restores the bytes.

#include "TinyModel.hpp"
#include "text/Guid.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <span>

namespace {

using testing::HasSubstr;

constexpr std::string_view AllSchemas[] = {"IFC2X3", "IFC4", "IFC4X3"};
constexpr std::string_view LaterSchemas[] = {"IFC4", "IFC4X3"};
constexpr Id LargestId = std::numeric_limits<std::int64_t>::max();

/// A way of sharing: how the wall "Wall" comes by the property S.P, with value "old", and who else uses it.
struct Sharing {
    std::string_view name;
    std::span<const std::string_view> schemas;
    std::function<void(TinyModel&, Id wall, Id other)> build;
    /// How many instances a change may add.
    int added;
};

Id singleP(TinyModel& ifc) {
    return ifc.single("P", "IFCLABEL('old')");
}

Id setS(TinyModel& ifc) {
    return ifc.set("S", {ifc.single("Q", "IFCLABEL('q')"), singleP(ifc)});
}

const Sharing Forms[] = {
    {"nobody", AllSchemas, [](TinyModel& ifc, Id wall, Id) { ifc.give({wall}, setS(ifc)); }, 0},
    {"the relation names another element", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         ifc.give({other, wall}, setS(ifc));
     },
     3},
    {"another relation gives the set to another element", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         const Id set = setS(ifc);
         ifc.give({wall}, set);
         ifc.give({other}, set);
     },
     2},
    {"the property is in another element's set", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         const Id property = singleP(ifc);
         ifc.give({wall}, ifc.set("S", {property}));
         ifc.give({other}, ifc.set("S", {property}));
     },
     1},
    {"the property is in another set of the same element", AllSchemas,
     [](TinyModel& ifc, Id wall, Id) {
         const Id property = singleP(ifc);
         ifc.give({wall}, ifc.set("S", {property}));
         ifc.give({wall}, ifc.set("Copy", {property}));
     },
     1},
    {"set, relation and property are all shared", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         const Id property = singleP(ifc);
         ifc.give({wall, other}, ifc.set("S", {property}));
         ifc.give({other}, ifc.set("T", {property}));
     },
     3},
    {"a type object holds the same set", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         const Id set = setS(ifc);
         ifc.give({wall}, set);
         ifc.type({other}, {set});
     },
     2},
    {"a type object alone gives it", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         ifc.type({wall, other}, {setS(ifc)});
     },
     3},
    {"a type object gives it and the element has a set of that name", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         ifc.type({wall, other}, {setS(ifc)});
         ifc.give({wall}, ifc.set("S", {ifc.single("R", "IFCLABEL('r')")}));
     },
     1},
    {"a type object gives it and elements share a set of that name", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         ifc.type({wall, other}, {setS(ifc)});
         ifc.give({wall, other}, ifc.set("S", {ifc.single("R", "IFCLABEL('r')")}));
     },
     3},
    {"a complex property holds the property", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         const Id property = singleP(ifc);
         ifc.give({wall}, ifc.set("S", {property}));
         const Id complex = ifc.add("IfcComplexProperty", {{"Name", "'C'"}, {"HasProperties", refs({property})}});
         ifc.give({other}, ifc.set("T", {complex}));
     },
     1},
    {"another property depends on it", AllSchemas,
     [](TinyModel& ifc, Id wall, Id) {
         const Id property = singleP(ifc);
         ifc.give({wall}, ifc.set("S", {property}));
         ifc.add("IfcPropertyDependencyRelationship",
                 {{"DependingProperty", ref(property)}, {"DependantProperty", ref(ifc.single("D", "$"))}});
     },
     1},
    {"a class that no schema knows refers to the set", AllSchemas,
     [](TinyModel& ifc, Id wall, Id) {
         const Id set = setS(ifc);
         ifc.give({wall}, set);
         ifc.raw("IFCFUTURERELATION(" + ref(set) + ")");
     },
     2},
    {"the relation names the element twice", AllSchemas,
     [](TinyModel& ifc, Id wall, Id) {
         ifc.give({wall, wall}, setS(ifc));
     },
     0},
    {"two relations give it to the element, one of them to others", AllSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         const Id set = setS(ifc);
         ifc.give({wall}, set);
         ifc.give({wall, other}, set);
     },
     3},
    {"an approval is given for it", LaterSchemas,
     [](TinyModel& ifc, Id wall, Id) {
         const Id property = singleP(ifc);
         ifc.give({wall}, ifc.set("S", {property}));
         ifc.add("IfcResourceApprovalRelationship",
                 {{"RelatedResourceObjects", refs({property})}, {"RelatingApproval", ref(ifc.add("IfcApproval"))}});
     },
     1},
    {"a template defines the set", LaterSchemas,
     [](TinyModel& ifc, Id wall, Id) {
         const Id set = setS(ifc);
         ifc.give({wall}, set);
         ifc.add("IfcRelDefinesByTemplate",
                 {{"RelatedPropertySets", refs({set})}, {"RelatingTemplate", ref(ifc.add("IfcPropertySetTemplate"))}});
     },
     2},
    {"a set of sets of the element alone", LaterSchemas,
     [](TinyModel& ifc, Id wall, Id) {
         ifc.giveSetOfSets({wall}, {ifc.set("A", {}), setS(ifc)});
     },
     0},
    {"a set of sets for several elements", LaterSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         ifc.giveSetOfSets({wall, other}, {ifc.set("A", {ifc.single("X", "$")}), setS(ifc)});
     },
     3},
    {"a set of sets beside another relation", LaterSchemas,
     [](TinyModel& ifc, Id wall, Id other) {
         const Id set = setS(ifc);
         ifc.giveSetOfSets({wall}, {ifc.set("A", {ifc.single("X", "$")}), set});
         ifc.give({other}, set);
     },
     2},
};

/// Builds the form, changes S.P of "Wall", and checks everything else.
void checkForm(const Sharing& form, std::string_view schema,
               const std::function<void(Opened&, model::Element)>& change) {
    TinyModel ifc{std::string(schema)};
    const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
    form.build(ifc, wall, other);
    Opened model(ifc);
    const model::Element changed = model.find("Wall");
    const auto before = model.snapshot();
    change(model, changed);
    const auto after = model.snapshot();
    for (model::Element element = 0; element < before.size(); ++element) {
        if (element == changed) continue;
        EXPECT_EQ(after[element], before[element]);
    }
    // What the indexes were told of the changes is what the changed file says when it is read anew.
    const std::string bytes = model->bytes();
    EXPECT_EQ(Opened(bytes).snapshot(), after);
    EXPECT_TRUE(model->undo());
    EXPECT_EQ(model->bytes(), ifc.text());
    EXPECT_EQ(model.snapshot(), before);
    EXPECT_TRUE(model->redo());
    EXPECT_EQ(model->bytes(), bytes);
    EXPECT_EQ(model.snapshot(), after);
}

TEST(Sharing, OnlyTheNamedElementSeesTheNewValue) {
    for (const Sharing& form : Forms) {
        for (const std::string_view schema : form.schemas) {
            SCOPED_TRACE(std::string(schema) + ", " + std::string(form.name));
            checkForm(form, schema, [&](Opened& model, model::Element wall) {
                const auto instances = [&] {
                    const std::string bytes = model->bytes();
                    return std::count(bytes.begin(), bytes.end(), '=');
                };
                const auto before = instances();
                const std::string q = model.property(wall, "S", "Q");
                const auto status = model.setProperty(wall, "S", "P", "new");
                ASSERT_TRUE(status) << status.error().message;
                EXPECT_EQ(model.property(wall, "S", "P"), "new");
                EXPECT_EQ(model.property(wall, "S", "Q"), q);
                EXPECT_EQ(instances() - before, form.added);
            });
        }
    }
}

TEST(Sharing, OnlyTheNamedElementSeesANewProperty) {
    for (const Sharing& form : Forms) {
        for (const std::string_view schema : form.schemas) {
            SCOPED_TRACE(std::string(schema) + ", " + std::string(form.name));
            checkForm(form, schema, [](Opened& model, model::Element wall) {
                const auto status = model.setProperty(wall, "S", "New", "new");
                ASSERT_TRUE(status) << status.error().message;
                EXPECT_EQ(model.property(wall, "S", "New"), "new");
                EXPECT_THAT(model.property(wall, "S", "P"), HasSubstr("old"));
            });
        }
    }
}

TEST(Sharing, AValueThatIsThereAlreadySplitsNothing) {
    for (const Sharing& form : Forms) {
        for (const std::string_view schema : form.schemas) {
            TinyModel ifc{std::string(schema)};
            const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
            form.build(ifc, wall, other);
            Opened model(ifc);
            EXPECT_TRUE(model.setProperty(0, "S", "P", "old"));
            EXPECT_EQ(model->bytes(), ifc.text()) << schema << ", " << form.name;
        }
    }
}

TEST(Sharing, OnceSplitTheNextChangeIsInPlace) {
    for (const Sharing& form : Forms) {
        for (const std::string_view schema : form.schemas) {
            TinyModel ifc{std::string(schema)};
            const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
            form.build(ifc, wall, other);
            Opened model(ifc);
            EXPECT_TRUE(model.setProperty(0, "S", "P", "once"));
            std::string expected = model->bytes();
            const auto at = expected.rfind("'once'");
            ASSERT_NE(at, std::string::npos);
            expected.replace(at, 6, "'twice'");
            EXPECT_TRUE(model.setProperty(0, "S", "P", "twice"));
            EXPECT_EQ(model->bytes(), expected) << schema << ", " << form.name;
        }
    }
}

TEST(Sharing, EachElementOfARelationCanBeChangedInTurnWithinOneCommand) {
    for (const std::string_view schema : AllSchemas) {
        TinyModel ifc{std::string(schema)};
        Ids walls;
        for (int i = 0; i < 20; ++i) walls.push_back(ifc.element("IfcWall", "W" + std::to_string(i)));
        ifc.give(walls, setS(ifc));
        Opened model(ifc);
        const auto before = model.snapshot();
        ASSERT_TRUE(model->command("all", [&] {
            for (model::Element wall = 0; wall < 20; ++wall) {
                model::Property wanted{u"S", u"P", model::PropertyKind::Single, false,
                                       valueOf("IfcLabel", model::Primitive::String, std::to_string(wall))};
                EXPECT_TRUE(model->setProperty(wall, wanted));
            }
            return 0;
        }));
        for (model::Element wall = 0; wall < 20; ++wall) {
            EXPECT_EQ(model.property(wall, "S", "P"), std::to_string(wall)) << schema;
            EXPECT_EQ(model.property(wall, "S", "Q"), "q");
        }
        EXPECT_EQ(Opened(model->bytes()).snapshot(), model.snapshot());
        EXPECT_TRUE(model->undo());
        EXPECT_EQ(model.snapshot(), before);
        EXPECT_EQ(model->bytes(), ifc.text());
    }
}

TEST(Sharing, TheElementLeavesTheOldRelationAndTheCopyHasItsOwnGlobalId) {
    TinyModel ifc("IFC2X3");
    const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
    const Id relation = ifc.give({wall, other}, setS(ifc));
    Opened model(ifc);
    ASSERT_TRUE(model.setProperty(0, "S", "P", "new"));
    const std::string bytes = model->bytes();
    const auto at = bytes.find(ref(relation) + "=");
    EXPECT_THAT(bytes.substr(at, bytes.find('\n', at) - at), HasSubstr("," + refs({other}) + ","));
    std::vector<std::string> globalIds;
    for (auto quote = bytes.find("('"); quote != std::string::npos; quote = bytes.find("('", quote + 1)) {
        const std::string text = bytes.substr(quote + 2, 22);
        if (text::fromGlobalId(text)) globalIds.push_back(text);
    }
    std::sort(globalIds.begin(), globalIds.end());
    EXPECT_EQ(std::adjacent_find(globalIds.begin(), globalIds.end()), globalIds.end());
    EXPECT_EQ(globalIds.size(), 6U);
}

// --- IFC2X3's overriding relations ---

struct Overridden {
    Overridden() {
        wall = ifc.element("IfcWall", "Wall");
        other = ifc.element("IfcWall", "Other");
        base = ifc.set("S", {ifc.single("Q", "IFCLABEL('q')"), singleP(ifc)});
    }
    TinyModel ifc{"IFC2X3"};
    Id wall, other, base;
};

void checkOverride(TinyModel& ifc, std::string_view property) {
    Opened model(ifc);
    const auto before = model.snapshot();
    const auto status = model.setProperty(0, "S", property, "new");
    ASSERT_TRUE(status) << status.error().message;
    EXPECT_EQ(model.property(0, "S", property), "new");
    EXPECT_EQ(model.data(1), before[1]);
    const std::string other = property == "P" ? "Q" : "P";
    EXPECT_EQ(model.property(0, "S", other), Opened(ifc).property(0, "S", other));
    EXPECT_EQ(Opened(model->bytes()).snapshot(), model.snapshot());
    EXPECT_TRUE(model->undo());
    EXPECT_EQ(model->bytes(), ifc.text());
}

TEST(OverridingRelation, OfTheElementAloneIsChangedInPlace) {
    Overridden o;
    o.ifc.give({o.wall, o.other}, o.base);
    o.ifc.overrideProperties({o.wall}, o.base, {o.ifc.single("P", "IFCLABEL('mine')")});
    checkOverride(o.ifc, "P");
}

TEST(OverridingRelation, TakesFurtherPropertiesOfASharedSet) {
    Overridden o;
    o.ifc.give({o.wall, o.other}, o.base);
    o.ifc.overrideProperties({o.wall}, o.base, {o.ifc.single("P", "IFCLABEL('mine')")});
    checkOverride(o.ifc, "Q");
}

TEST(OverridingRelation, ThatOthersShareIsSplit) {
    for (const std::string_view property : {"P", "Q"}) {
        Overridden o;
        o.ifc.give({o.wall, o.other}, o.base);
        o.ifc.overrideProperties({o.wall, o.other}, o.base, {o.ifc.single("P", "IFCLABEL('ours')")});
        checkOverride(o.ifc, property);
    }
}

TEST(OverridingRelation, IsNoPlaceForANameThatTheSetHasTwice) {
    for (const bool shared : {false, true}) {
        Overridden o;
        const Id twice = o.ifc.set(
            "S", {singleP(o.ifc), o.ifc.single("Q", "IFCLABEL('q')"), o.ifc.single("P", "IFCLABEL('second')")});
        o.ifc.give({o.other}, twice);
        o.ifc.overrideProperties(shared ? Ids{o.wall, o.other} : Ids{o.wall}, twice,
                                 {o.ifc.single("Q", "IFCLABEL('mine')")});
        checkOverride(o.ifc, "P");
        Opened model(o.ifc);
        ASSERT_TRUE(model.setProperty(0, "S", "P", "new"));
        std::vector<std::string> values;
        model->visitProperties(0, [&](const model::PropertyView& property) {
            values.push_back(utf8(property.name) + "=" + utf8(property.string));
        });
        EXPECT_THAT(values, testing::ElementsAre("P=new", "Q=mine", "P=second"));
    }
}

TEST(OverridingRelation, WithAPropertyThatOthersShareGetsACopy) {
    Overridden o;
    const Id shared = o.ifc.single("P", "IFCLABEL('ours')");
    o.ifc.overrideProperties({o.wall}, o.base, {shared});
    o.ifc.overrideProperties({o.other}, o.base, {shared});
    checkOverride(o.ifc, "P");
}

TEST(OverridingRelation, OfATypesSetLeavesTheTypeAsItIs) {
    for (const std::string_view property : {"P", "Q", "New"}) {
        Overridden o;
        o.ifc.type({o.wall, o.other}, {o.base});
        o.ifc.overrideProperties({o.wall}, o.base, {o.ifc.single("P", "IFCLABEL('mine')")});
        checkOverride(o.ifc, property);
    }
}

// --- Refusals leave nothing behind ---

TEST(Sharing, ARelationThatCannotBeReadIsRefusedBeforeAnythingIsChanged) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
    const Id set = setS(ifc);
    ifc.raw("IFCRELDEFINESBYPROPERTIES('" + TinyModel::globalIdText(800) + "',$,$,$," + refs({wall, other}) + "," +
            ref(set) + ",,)");
    Opened model(ifc);
    const auto status = model.setProperty(0, "S", "P", "new");
    ASSERT_FALSE(status);
    EXPECT_EQ(status.error().kind, model::ErrorKind::Refused);
    EXPECT_THAT(status.error().message, HasSubstr("not well formed"));
    EXPECT_EQ(model->bytes(), ifc.text());
}

TEST(Refusal, OfAListThatTheElementCannotLeaveLeavesNoByte) {
    for (const char* list : {"(#1,#2x)", "(#1,#2,'x')", "((#1),#2)", "(#1,#2", "IFCLIST((#1,#2))"}) {
        for (const bool isLong : {false, true}) {
            TinyModel ifc;
            ifc.element("IfcWall", "Wall");
            ifc.element("IfcWall", "Other");
            const Id set = setS(ifc);
            const Id reference = ifc.classificationReference("1", "One", ifc.classification("System"));
            const std::string name = isLong ? "'" + std::string(600, 'x') + "'" : "'L'";
            const auto relation = [&](const char* keyword, unsigned number, Id target) {
                ifc.raw(std::string(keyword) + "('" + TinyModel::globalIdText(number) + "',$," + name + ",$," + list +
                        "," + ref(target) + ")");
            };
            relation("IFCRELDEFINESBYPROPERTIES", 800, set);
            relation("IFCRELASSOCIATESCLASSIFICATION", 801, reference);
            Opened model(ifc);
            const auto before = model.snapshot();
            // A list that is not read at all has nothing to be refused: what is set is added beside it.
            if (model.property(0, "S", "P") != "(none)") {
                EXPECT_FALSE(model.setProperty(0, "S", "P", "new")) << list;
                EXPECT_FALSE(model.setProperty(0, "S", "New", "new")) << list;
            }
            const std::string label = name.substr(1, name.size() - 2);
            if (model.classification(0, label) != "(none)") {
                EXPECT_FALSE(model.classify(0, label, "2", "Two")) << list;
            }
            EXPECT_EQ(model->bytes(), ifc.text()) << list;
            EXPECT_FALSE(model->undoSteps().undo.has_value());
            EXPECT_EQ(model.snapshot(), before);
        }
    }
}

TEST(Refusal, OfADerivedTextLeavesNoByte) {
    TinyModel ifc;
    const Id wall = ifc.element("IfcWall", "Wall");
    ifc.classify({wall}, "L", ifc.raw("IFCCLASSIFICATIONREFERENCE('here','1',*,$,$,$)"));
    Opened model(ifc);
    const auto status = model.classify(0, "L", "2", "Two");
    ASSERT_FALSE(status);
    EXPECT_THAT(status.error().message, HasSubstr("derive"));
    EXPECT_EQ(model->bytes(), ifc.text());
}

/// Every change that adds instances, where only some of them find an id.
TEST(Refusal, ForWantOfIdsLeavesNoByte) {
    const auto changes = std::vector<std::function<model::Status(Opened&)>>{
        [](Opened& m) { return m.setProperty(0, "S", "P", "new"); },
        [](Opened& m) { return m.setProperty(0, "S", "New", "new"); },
        [](Opened& m) { return m.setProperty(0, "NewSet", "P", "new"); },
        [](Opened& m) { return m.setProperty(0, "Own", "P", "new"); },
        [](Opened& m) { return m.setProperty(0, "Typed", "P", "new"); },
        [](Opened& m) { return m.classify(0, "L", "2", "Two"); },
        [](Opened& m) { return m.classify(0, "New", "2", "Two"); },
        [](Opened& m) {
            model::ClassificationReference wanted;
            wanted.system = u"L";
            wanted.classificationName = u"Another";
            return m.setClassification(0, wanted);
        },
        [](Opened& m) {
            model::ClassificationReference wanted;
            wanted.system = u"New";
            wanted.classificationName = u"Another";
            return m.setClassification(0, wanted);
        },
    };
    for (std::size_t change = 0; change < changes.size(); ++change) {
        std::size_t refusals = 0;
        for (Id left = 0;; ++left) {
            TinyModel ifc;
            const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
            ifc.give({wall, other}, setS(ifc));
            ifc.give({wall}, ifc.set("Own", {ifc.single("X", "$")}));
            ifc.type({wall, other}, {ifc.set("Typed", {singleP(ifc)})});
            ifc.classify({wall, other}, "L", ifc.classificationReference("1", "One", ifc.classification("System")));
            std::string text = ifc.text();
            text.insert(text.find("ENDSEC;\nEND-ISO"), "#" + std::to_string(LargestId - left) + "=IFCNOTHING();\n");
            Opened model(text);
            const auto status = changes[change](model);
            if (status) {
                EXPECT_THAT(model->bytes(), HasSubstr("#" + std::to_string(LargestId) + "="))
                    << "more was asked for than is needed: " << change;
                break;
            }
            EXPECT_THAT(status.error().message, HasSubstr("no id left"));
            ASSERT_EQ(model->bytes(), text) << change << ", " << left;
            ASSERT_LT(++refusals, 6U);
        }
        EXPECT_GT(refusals, 0U) << change;
    }
}

}  // namespace
