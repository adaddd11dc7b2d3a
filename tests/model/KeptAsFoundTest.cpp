// What an edit does not speak of stays as it was, in copies too: units, kinds of properties, chains and circles of
// references, the other sets of a set of sets.

#include "TinyModel.hpp"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr std::string_view AllSchemas[] = {"IFC2X3", "IFC4", "IFC4X3"};

TEST(CopiedProperty, KeepsItsDescriptionAndUnit) {
    for (const std::string schema : {"IFC2X3", "IFC4", "IFC4X3"}) {
        TinyModel ifc(schema);
        const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
        const Id unit = ifc.add("IfcSIUnit", {{"UnitType", ".LENGTHUNIT."}, {"Name", ".METRE."}});
        // The last schema calls the description a specification.
        const Id property =
            ifc.add("IfcPropertySingleValue", {{"Name", "'P'"},
                                               {schema == "IFC4X3" ? "Specification" : "Description", "'\\X\\E9 kept'"},
                                               {"NominalValue", "IfcLengthMeasure( 2.50 )"},
                                               {"Unit", ref(unit)}});
        ifc.give({wall, other}, ifc.set("S", {property}));
        Opened model(ifc);
        ASSERT_TRUE(model.setProperty(0, "S", "P", "3"));
        EXPECT_THAT(model->bytes(),
                    HasSubstr("IFCPROPERTYSINGLEVALUE('P','\\X\\E9 kept',IfcLengthMeasure( 3. )," + ref(unit) + ");"))
            << schema;
        EXPECT_EQ(model.property(1, "S", "P"), "2.5");
    }
}

struct Kind {
    const char* ifcClass;
    Values values;
};

const std::vector<Kind> OtherKinds = {
    {"IfcPropertyListValue", {{"ListValues", "(IFCLABEL('a'),IFCLABEL('b'))"}}},
    {"IfcPropertyBoundedValue", {{"UpperBoundValue", "IFCREAL(2.)"}, {"LowerBoundValue", "IFCREAL(1.)"}}},
    {"IfcPropertyEnumeratedValue", {{"EnumerationValues", "(IFCLABEL('a'))"}}},
    {"IfcPropertyTableValue", {{"DefiningValues", "(IFCREAL(1.))"}, {"DefinedValues", "(IFCREAL(2.))"}}},
    {"IfcPropertyReferenceValue", {{"UsageName", "'u'"}}},
};

TEST(OtherKindsOfProperties, StayWhetherOwnSharedOrInherited) {
    for (const Kind& kind : OtherKinds) {
        for (const std::string_view schema : AllSchemas) {
            for (const bool inherited : {false, true}) {
                SCOPED_TRACE(std::string(kind.ifcClass) + ", " + std::string(schema));
                TinyModel ifc{std::string(schema)};
                const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
                Values values = kind.values;
                values.emplace_back("Name", "'P'");
                const Id set = ifc.set("S", {ifc.add(kind.ifcClass, values)});
                inherited ? ifc.type({wall, other}, {set}) : ifc.give({wall, other}, set);
                Opened model(ifc);
                ASSERT_TRUE(model.setProperty(0, "S", "P", "x"));
                EXPECT_EQ(model->bytes(), ifc.text());
                EXPECT_FALSE(model->undoSteps().undo.has_value());
                // Beside it in a shared set, where the set is split.
                ASSERT_TRUE(model.setProperty(0, "S", "New", "x"));
                EXPECT_EQ(model.data(1), Opened(ifc).data(1));
                EXPECT_EQ(Opened(model->bytes()).snapshot(), model.snapshot());
            }
        }
    }
}

TEST(SetOfSets, SplitForOneElementAfterAnotherKeepsItsOtherSetsForAll) {
    for (const std::string schema : {"IFC4", "IFC4X3"}) {
        TinyModel ifc(schema);
        Ids walls;
        for (const char* name : {"W0", "W1", "W2"}) walls.push_back(ifc.element("IfcWall", name));
        Ids sets;
        for (const std::string name : {"A", "B", "C"})
            sets.push_back(ifc.set(name, {ifc.single("P", "IFCLABEL('old')")}));
        ifc.giveSetOfSets(walls, sets);
        Opened model(ifc);
        // One member by one element, two by another: the third still shares all of them.
        ASSERT_TRUE(model.setProperty(0, "B", "P", "W0"));
        ASSERT_TRUE(model.setProperty(1, "A", "P", "W1"));
        ASSERT_TRUE(model.setProperty(1, "C", "P", "W1"));
        const std::string expected[3][3] = {{"old", "W0", "old"}, {"W1", "old", "W1"}, {"old", "old", "old"}};
        for (model::Element wall = 0; wall < 3; ++wall) {
            EXPECT_EQ(model->properties(wall)->size(), 3U);
            for (const int set : {0, 1, 2})
                EXPECT_EQ(model.property(wall, std::string(1, static_cast<char>('A' + set)), "P"), expected[wall][set]);
        }
        EXPECT_THAT(model->bytes(), HasSubstr("IFCPROPERTYSETDEFINITIONSET(" + refs(sets) + ")"));
        EXPECT_EQ(Opened(model->bytes()).snapshot(), model.snapshot());
    }
}

TEST(OccurrenceAndType, OfOneSetAndNameTheOccurrenceIsChanged) {
    for (const std::string_view schema : AllSchemas) {
        TinyModel ifc{std::string(schema)};
        const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
        ifc.give({wall}, ifc.set("S", {ifc.single("P", "IFCLABEL('mine')")}));
        ifc.type({wall, other}, {ifc.set("S", {ifc.single("P", "IFCLABEL('typed')")})});
        Opened model(ifc);
        EXPECT_EQ(model.property(0, "S", "P"), "mine");
        ASSERT_TRUE(model.setProperty(0, "S", "P", "new"));
        EXPECT_EQ(model.property(0, "S", "P"), "new");
        EXPECT_EQ(model.property(1, "S", "P"), "typed^");
        EXPECT_THAT(model->bytes(), Not(HasSubstr("'mine'")));
    }
}

TEST(CircleOfSources, EndsWhenTheCodeIsChangedAndIsLeftAsItIs) {
    for (const std::string schema : {"IFC4", "IFC4X3"}) {
        for (const bool itself : {true, false}) {
            TinyModel ifc(schema);
            const Id wall = ifc.element("IfcWall", "Wall"), other = ifc.element("IfcWall", "Other");
            // Ids go up by one: the first refers to itself or to the second, which refers back.
            const Id first = other + 1, second = other + 2;
            ifc.classificationReference("1", "One", itself ? first : second);
            ifc.classificationReference("2", "Two", first);
            ifc.classify({wall}, "Label", first);
            ifc.classify({other}, "Label", second);
            Opened model(ifc);
            const std::string before = model.data(1);
            ASSERT_TRUE(model.classify(0, "Label", "3", "Three"));
            EXPECT_EQ(model.classification(0, "Label"), "3{Three}");
            EXPECT_EQ(model.data(1), before);
            EXPECT_THAT(model->bytes(), HasSubstr("'1','One'," + ref(itself ? first : second)));
            EXPECT_TRUE(model->undo());
            EXPECT_EQ(model->bytes(), ifc.text());
        }
    }
}

TEST(GlobalIds, ThatDifferByCaseAloneAreTwoElements) {
    TinyModel ifc;
    ifc.element("IfcWall", "Lower", {{"GlobalId", "'2aaaaaaaaaaaaaaaaaaaaa'"}});
    ifc.element("IfcWall", "Upper", {{"GlobalId", "'2aaaaaaaaaaaaaaaaaaaaA'"}});
    Opened model(ifc);
    ASSERT_EQ(model->elementCount(), 2U);
    EXPECT_EQ(model->duplicateGlobalIds(), 0U);
    ASSERT_TRUE(model.setAttribute(1, "Name", "New"));
    EXPECT_EQ(model.attribute(0, "Name"), "Lower");
    EXPECT_NE(model->info(0).guid, model->info(1).guid);
}

/// A property that the last of `count` arguments of an unknown class refers to.
TEST(UnknownClass, IsAUserOfWhatAnyOfItsArgumentsNames) {
    for (const std::size_t count : {1U, 62U, 63U, 64U, 65U, 300U}) {
        TinyModel ifc;
        const Id wall = ifc.element("IfcWall", "Wall");
        const Id property = ifc.single("P", "IFCLABEL('old')");
        ifc.give({wall}, ifc.set("S", {property}));
        std::string arguments;
        for (std::size_t i = 1; i < count; ++i) arguments += "$,";
        ifc.raw("IFCFUTURETHING(" + arguments + ref(property) + ")");
        Opened model(ifc);
        ASSERT_TRUE(model.setProperty(0, "S", "P", "new"));
        EXPECT_EQ(model.property(0, "S", "P"), "new");
        EXPECT_THAT(model->bytes(), HasSubstr(ref(property) + "=IFCPROPERTYSINGLEVALUE('P',$,IFCLABEL('old'),$)"))
            << "what the argument " << count << " names has changed";
        EXPECT_EQ(Opened(model->bytes()).snapshot(), model.snapshot());
        ASSERT_TRUE(model->undo());
        EXPECT_EQ(model->bytes(), ifc.text());
    }
}

TEST(ComplexInstance, IsAUserOfWhatItNames) {
    for (const bool namesTheSet : {false, true}) {
        TinyModel ifc;
        const Id wall = ifc.element("IfcWall", "Wall");
        const Id property = ifc.single("P", "IFCLABEL('old')"), set = ifc.set("S", {property});
        ifc.give({wall}, set);
        ifc.raw("(IFCFUTURETHING(1,$)IFCOTHERTHING('#9',(" + ref(namesTheSet ? set : property) + ")))");
        Opened model(ifc);
        ASSERT_TRUE(model.setProperty(0, "S", "P", "new"));
        EXPECT_EQ(model.property(0, "S", "P"), "new");
        const std::string bytes = model->bytes();
        EXPECT_THAT(bytes, HasSubstr(ref(property) + "=IFCPROPERTYSINGLEVALUE('P',$,IFCLABEL('old'),$)"));
        EXPECT_EQ(bytes.find("'S',$," + refs({property})) != std::string::npos, namesTheSet);
        EXPECT_EQ(Opened(bytes).snapshot(), model.snapshot());
        ASSERT_TRUE(model->undo());
        EXPECT_EQ(model->bytes(), ifc.text());
    }
}

}  // namespace
