// Writing one value: where it goes and as what.

#include "FakeHost.hpp"
#include "support/HostFixture.hpp"
#include "support/IfcText.hpp"

#include <gmock/gmock.h>

using namespace testing_support;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

constexpr const char* Done = "Done";
constexpr const char* Error = "error!";

class SettingAValue : public FakeHostTest {
protected:
    const API_IFCPropertyValue& writtenValue() const { return host_.setProperties.at(0).singleValue.nominalValue; }
    bool nothingWritten() const { return host_.changed.empty(); }
};

// --- Where it goes -------------------------------------------------------------------------------------------------

TEST_F(SettingAValue, AttributeIsWrittenAndPropertiesAreNotLookedAt) {
    host_.attributes.Push(attribute("Width", "1"));
    host_.properties.Push(property("Pset_A", "Width", stringValue("1")));
    importUpdates(line("Width", "2{kept}"), [this](ImportDialog& dialog) {
        dialog.tick(1);
        host_.asked.clear();
        EXPECT_EQ(dialog.apply().row(1).remarks, Done);
    });
    EXPECT_THAT(host_.asked, ElementsAre("attributes"));
    EXPECT_EQ(narrow(host_.setAttributes.at(0).attributeName), "Width");
    EXPECT_EQ(narrow(host_.setAttributes.at(0).attributeValue), "2{kept}");
    EXPECT_THAT(host_.setProperties, IsEmpty());
}

TEST_F(SettingAValue, BracketsDoNotKeepAnAttributeFromMatching) {
    EXPECT_EQ(setValue("Name[WallCommon]", "A"), Done);
    EXPECT_EQ(host_.setAttributes.size(), 1U);
}

TEST_F(SettingAValue, FirstOfSeveralMatchesIsWritten) {
    host_.properties.Push(property("Pset_A", "Note", stringValue("first")));
    host_.properties.Push(property("Pset_B", "Note", stringValue("second")));
    EXPECT_EQ(setValue("Note", "new"), Done);
    ASSERT_EQ(host_.setProperties.size(), 1U);
    EXPECT_EQ(narrow(host_.setProperties[0].head.propertySetName), "Pset_A");
}

TEST_F(SettingAValue, PropertyInAnotherSetIsWrittenAndNoneIsCreated) {
    host_.properties.Push(property("Pset_Other", "LoadBearing", booleanValue(0)));
    EXPECT_EQ(setValue("LoadBearing[WallCommon]", "true"), Done);
    ASSERT_EQ(host_.setProperties.size(), 1U);
    EXPECT_EQ(narrow(host_.setProperties[0].head.propertySetName), "Pset_Other");
}

TEST_F(SettingAValue, UnknownNameWithoutBracketsIsAnError) {
    EXPECT_EQ(setValue("Note", "new"), Error);
    EXPECT_TRUE(nothingWritten());
}

TEST_F(SettingAValue, ElementThatIsGoneIsAnErrorAndNothingElseIsTried) {
    importUpdates(line("Name", "A"), [this](ImportDialog& dialog) {
        dialog.tick(1);
        host_.asked.clear();
        host_.elementError = APIERR_DELETED;
        EXPECT_EQ(dialog.apply().row(1).remarks, Error);
    });
    EXPECT_THAT(host_.asked, IsEmpty());
    EXPECT_TRUE(nothingWritten());
}

TEST_F(SettingAValue, TheElementOfTheLineIsWritten) {
    EXPECT_EQ(setValue("Name", "A"), Done);
    GS::Guid expected;
    expected.ConvertFromString(guid.c_str());
    EXPECT_EQ(host_.changed.at(0), GSGuid2APIGuid(expected));
}

TEST_F(SettingAValue, ElementIsTheOneOfTheTextWhateverTheFetchedRecordSays) {
    host_.inElement = [](API_Element& element) { element.header.guid = APINULLGuid; };
    host_.properties.Push(property("Pset_A", "Note", stringValue("old")));
    host_.classifications.Push(classification("System", "A", "B"));
    for (const char* item : {"Name", "Note", "New[Custom]", "System"}) EXPECT_EQ(setValue(item, "x"), "Done");
    GS::Guid expected;
    expected.ConvertFromString(guid.c_str());
    EXPECT_THAT(host_.changed, ::testing::ElementsAre(GSGuid2APIGuid(expected), GSGuid2APIGuid(expected),
                                                      GSGuid2APIGuid(expected), GSGuid2APIGuid(expected)));
}

TEST_F(SettingAValue, FailedWriteIsNotFollowedByAnotherAttempt) {
    host_.properties.Push(property("Pset_A", "Note", stringValue("a")));
    host_.classifications.Push(classification("Note", "a", "b"));
    host_.setError = APIERR_READONLY;
    EXPECT_EQ(setValue("Note[Custom]", "new"), Error);
    EXPECT_EQ(host_.changed.size(), 1U);
}

TEST_F(SettingAValue, FailingAttributesDoNotKeepAPropertyFromBeingWritten) {
    host_.properties.Push(property("Pset_A", "Note", stringValue("a")));
    importUpdates(line("Note", "new"), [this](ImportDialog& dialog) {
        dialog.tick(1);
        host_.attributesError = APIERR_GENERAL;
        EXPECT_EQ(dialog.apply().row(1).remarks, Done);
    });
    EXPECT_EQ(host_.setProperties.size(), 1U);
}

TEST_F(SettingAValue, FailingPropertiesCreateNoneButClassificationsAreTried) {
    host_.propertiesError = APIERR_GENERAL;
    EXPECT_EQ(setValue("Note[Custom]", "new"), Error);
    EXPECT_TRUE(nothingWritten());
    EXPECT_EQ(setValue("UniFormat Classification[Custom]", "B2010"), Done);
    EXPECT_EQ(host_.setClassifications.size(), 1U);
}

TEST_F(SettingAValue, FailingClassificationsAreAnError) {
    host_.classificationsError = APIERR_GENERAL;
    EXPECT_EQ(setValue("UniFormat Classification", "B2010"), Error);
    EXPECT_TRUE(nothingWritten());
}

// --- New properties ------------------------------------------------------------------------------------------------

struct NewProperty {
    const char* value;
    const char* type;
    Int32 primitive;
};

class CreatingAProperty : public SettingAValue, public ::testing::WithParamInterface<NewProperty> {};

TEST_P(CreatingAProperty, TakesItsTypeFromTheValue) {
    EXPECT_EQ(setValue("Note[Custom]", GetParam().value), Done);
    const API_IFCPropertyHead& head = host_.setProperties.at(0).head;
    EXPECT_EQ(narrow(head.propertySetName), "Pset_Custom");
    EXPECT_EQ(narrow(head.propertyName), "Note");
    EXPECT_EQ(head.kind, API_IFCPropertySingleValueType);
    EXPECT_FALSE(head.inherited);
    EXPECT_EQ(narrow(writtenValue().valueType), GetParam().type);
    EXPECT_EQ(writtenValue().primitiveType, GetParam().primitive);
}

INSTANTIATE_TEST_SUITE_P(Types, CreatingAProperty,
                         ::testing::Values(NewProperty{"true", "IfcBoolean", 2}, NewProperty{"false", "IfcBoolean", 2},
                                           NewProperty{"TRUE", "IfcLabel", 4}, NewProperty{"False", "IfcLabel", 4},
                                           NewProperty{"true ", "IfcLabel", 4}, NewProperty{"12", "IfcInteger", 0},
                                           NewProperty{"-3", "IfcInteger", 0}, NewProperty{" 7", "IfcInteger", 0},
                                           NewProperty{"2.75", "IfcInteger", 0}, NewProperty{"12abc", "IfcInteger", 0},
                                           NewProperty{"2024-05-17", "IfcInteger", 0}, NewProperty{".5", "IfcReal", 1},
                                           NewProperty{"-.5", "IfcReal", 1}, NewProperty{"abc", "IfcLabel", 4},
                                           NewProperty{"F 90", "IfcLabel", 4}, NewProperty{".x", "IfcLabel", 4},
                                           NewProperty{"Infill", "IfcLabel", 4},
                                           NewProperty{"Nano coating", "IfcLabel", 4},
                                           NewProperty{"-", "IfcLabel", 4}));

TEST_F(SettingAValue, NewPropertyHoldsTheValueInItsType) {
    setValue("A[Custom]", "false");
    setValue("B[Custom]", "2.75");
    setValue("C[Custom]", ".5");
    setValue("D[Custom]", "abc");
    ASSERT_EQ(host_.setProperties.size(), 4U);
    EXPECT_EQ(host_.setProperties[0].singleValue.nominalValue.booleanValue, 1);
    EXPECT_EQ(host_.setProperties[1].singleValue.nominalValue.integerValue, 2);
    EXPECT_EQ(host_.setProperties[2].singleValue.nominalValue.realValue, 0.5);
    EXPECT_EQ(narrow(host_.setProperties[3].singleValue.nominalValue.stringValue), "abc");
}

TEST_F(SettingAValue, PrefixIsAddedWhateverTheBracketsHold) {
    const std::pair<const char*, const char*> cases[] = {{"Note[Pset_Custom]", "Pset_Pset_Custom"},
                                                         {"Note[Custom", "Pset_Custo"},
                                                         {"Note[]", "Pset_"},
                                                         {"Note[", "Pset_"},
                                                         {"Note[a[b]]", "Pset_a[b]"}};
    for (const auto& [designation, set] : cases) {
        host_.setProperties.clear();
        EXPECT_EQ(setValue(designation, "new"), Done);
        EXPECT_EQ(narrow(host_.setProperties.at(0).head.propertySetName), set) << designation;
        EXPECT_EQ(narrow(host_.setProperties.at(0).head.propertyName), "Note");
    }
}

TEST_F(SettingAValue, FailedCreationIsAnErrorAndClassificationsAreNotTried) {
    host_.setError = APIERR_BADNAME;
    EXPECT_EQ(setValue("UniFormat Classification[Custom]", "B2010"), Error);
    EXPECT_EQ(host_.setProperties.size(), 1U);
    EXPECT_THAT(host_.setClassifications, IsEmpty());
}

// --- Existing properties -------------------------------------------------------------------------------------------

TEST_F(SettingAValue, IntegerTakesTheLeadingNumber) {
    const std::pair<const char*, Int64> cases[] = {{"12.9", 12}, {"x", 0}, {"", 0}, {" -7 mm", -7}};
    host_.properties.Push(property("Pset_A", "Count", integerValue(99)));
    for (const auto& [text, value] : cases) {
        host_.setProperties.clear();
        EXPECT_EQ(setValue("Count", text), Done);
        EXPECT_EQ(writtenValue().integerValue, value) << text;
        EXPECT_EQ(narrow(writtenValue().valueType), "IfcInteger");
    }
}

TEST_F(SettingAValue, RealTakesTheLeadingNumber) {
    const std::pair<const char*, double> cases[] = {{"2.75", 2.75}, {"1e3 mm", 1000}, {"x", 0}, {"-.5", -0.5}};
    host_.properties.Push(property("Pset_A", "Width", realValue(99)));
    for (const auto& [text, value] : cases) {
        host_.setProperties.clear();
        EXPECT_EQ(setValue("Width", text), Done);
        EXPECT_EQ(writtenValue().realValue, value) << text;
    }
}

TEST_F(SettingAValue, BooleanBecomesTrueWhateverTheText) {
    host_.properties.Push(property("Pset_A", "IsExternal", booleanValue(0)));
    for (const char* text : {"true", "True", "t", "T", "0", "no", ""}) {
        host_.setProperties.clear();
        EXPECT_EQ(setValue("IsExternal", text), Done) << text;
        EXPECT_EQ(writtenValue().booleanValue, 1) << text;
    }
}

TEST_F(SettingAValue, BooleanTrueGivenFalseStaysTrue) {
    host_.properties.Push(property("Pset_A", "IsExternal", booleanValue(1)));
    EXPECT_EQ(setValue("IsExternal", ".F."), Done);
    EXPECT_EQ(writtenValue().booleanValue, 1);
}

TEST_F(SettingAValue, LogicalBecomesTrueWhateverTheText) {
    host_.properties.Push(property("Pset_A", "Combustible", logicalValue(1)));
    for (const char* text : {"true", "false", "f", "F", "?"}) {
        host_.setProperties.clear();
        EXPECT_EQ(setValue("Combustible", text), Done) << text;
        EXPECT_EQ(writtenValue().integerValue, API_IFCTrue) << text;
    }
}

TEST_F(SettingAValue, StringIsTakenAsItIs) {
    host_.properties.Push(property("Pset_A", "Note", stringValue("a")));
    EXPECT_EQ(setValue("Note", " 12{x} ü"), Done);
    EXPECT_EQ(narrow(writtenValue().stringValue), " 12{x} ü");
}

TEST_F(SettingAValue, OtherKindsAreWrittenBackUnchanged) {
    for (const Int32 kind : {1, 2, 3, 4, 5}) {
        host_.properties.Clear();
        host_.setProperties.clear();
        host_.properties.Push(propertyOfKind("Note", kind));
        EXPECT_EQ(setValue("Note", "new"), Done) << kind;
        EXPECT_EQ(host_.setProperties.at(0).head.kind, kind);
        EXPECT_EQ(narrow(writtenValue().stringValue), "a value that is not shown");
    }
}

TEST_F(SettingAValue, OtherPrimitiveTypesAreWrittenBackUnchanged) {
    API_IFCPropertyValue value = stringValue("a");
    value.primitiveType = API_IFCOtherType;
    host_.properties.Push(property("Pset_A", "Note", value));
    EXPECT_EQ(setValue("Note", "new"), Done);
    EXPECT_EQ(narrow(writtenValue().stringValue), "a");
}

// --- Classification references -------------------------------------------------------------------------------------

TEST_F(SettingAValue, ExistingReferenceKeepsItsOtherFields) {
    API_IFCClassificationReference reference = classification("System", "A", "old");
    reference.location = {"somewhere", true};
    reference.referencedSource = {"source", "edition", "System 2012"};
    host_.classifications.Push(reference);
    EXPECT_EQ(setValue("System", "B2010{Exterior Walls}"), Done);
    const API_IFCClassificationReference& written = host_.setClassifications.at(0);
    EXPECT_EQ(narrow(written.itemReference.text), "B2010");
    EXPECT_EQ(narrow(written.name.text), "Exterior Walls");
    EXPECT_EQ(narrow(written.location.text), "somewhere");
    EXPECT_EQ(narrow(written.referencedSource.source), "source");
    EXPECT_EQ(narrow(written.referencedSource.edition), "edition");
    EXPECT_EQ(narrow(written.referencedSource.classificationName), "System 2012");
}

TEST_F(SettingAValue, ReferenceOfTheSystemIsFoundBehindOthers) {
    host_.classifications.Push(classification("Another", "X", "Y"));
    host_.classifications.Push(classification("System", "A", "B"));
    EXPECT_EQ(setValue("System", "C{D}"), "Done");
    ASSERT_EQ(host_.setClassifications.size(), 1U);
    EXPECT_EQ(narrow(host_.setClassifications[0].systemLabel), "System");
}

TEST_F(SettingAValue, ReferenceWithoutBracesGetsAnEmptyNameThatIsPresent) {
    API_IFCClassificationReference reference;
    reference.systemLabel = "System";
    host_.classifications.Push(reference);
    EXPECT_EQ(setValue("System", "B2010"), Done);
    const API_IFCClassificationReference& written = host_.setClassifications.at(0);
    EXPECT_EQ(narrow(written.itemReference.text), "B2010");
    EXPECT_TRUE(written.itemReference.present);
    EXPECT_EQ(narrow(written.name.text), "");
    EXPECT_TRUE(written.name.present);
    EXPECT_FALSE(written.location.present);
}

TEST_F(SettingAValue, LastCharacterInBracesIsDroppedWhateverItIs) {
    host_.classifications.Push(classification("System", "A", ""));
    const std::pair<const char*, const char*> cases[] = {
        {"B{Walls", "Wall"}, {"B{", ""}, {"B{}", ""}, {"B{a{b}}", "a{b}"}};
    for (const auto& [value, name] : cases) {
        host_.setClassifications.clear();
        EXPECT_EQ(setValue("System", value), Done);
        EXPECT_EQ(narrow(host_.setClassifications.at(0).itemReference.text), "B");
        EXPECT_EQ(narrow(host_.setClassifications.at(0).name.text), name) << value;
    }
}

TEST_F(SettingAValue, BlankBeforeTheBraceStays) {
    host_.classifications.Push(classification("System", "A", ""));
    EXPECT_EQ(setValue("System", "B2010 {Exterior Walls}"), Done);
    EXPECT_EQ(narrow(host_.setClassifications.at(0).itemReference.text), "B2010 ");
}

struct NewReference {
    const char* system;
    const char* location;
    const char* classificationName;
};

class CreatingAReference : public SettingAValue, public ::testing::WithParamInterface<NewReference> {};

TEST_P(CreatingAReference, NamesItsPublisher) {
    EXPECT_EQ(setValue(GetParam().system, "B2010{Exterior Walls}"), Done);
    const API_IFCClassificationReference& written = host_.setClassifications.at(0);
    EXPECT_EQ(narrow(written.systemLabel), GetParam().system);
    EXPECT_EQ(narrow(written.location.text), GetParam().location);
    EXPECT_TRUE(written.location.present);
    EXPECT_EQ(narrow(written.itemReference.text), "B2010");
    EXPECT_TRUE(written.itemReference.present);
    EXPECT_EQ(narrow(written.name.text), "Exterior Walls");
    EXPECT_TRUE(written.name.present);
    EXPECT_EQ(narrow(written.referencedSource.source), GetParam().location);
    EXPECT_EQ(narrow(written.referencedSource.edition), "");
    EXPECT_EQ(narrow(written.referencedSource.classificationName), GetParam().classificationName);
}

INSTANTIATE_TEST_SUITE_P(Systems, CreatingAReference,
                         ::testing::Values(NewReference{"SpecSection Classification",
                                                        "www.csiresources.org/masterformat", "MasterFormat2012"},
                                           NewReference{"UniFormat Classification", "www.csiresources.org/uniformat",
                                                        "UniFormat"}));

// --- In a real model -----------------------------------------------------------------------------------------------

class WritingAModel : public HostFixture {
protected:
    void SetUp() override {
        IfcText ifc;
        const auto wall = ifc.element("IfcWall", guidText(1), "Wall-01");
        ifc.property(wall, "Pset_Other", "LoadBearing", "IFCBOOLEAN(.F.)");
        ifc.property(wall, "Pset_WallCommon", "Count", "IFCINTEGER(99)");
        openText(ifc.text());
    }

    std::string apply(const std::string& item, const std::string& value) {
        const std::string line = guidText(1) + "\t" + item + "\t\t" + value + "\n";
        return importUpdates(line, [](ImportDialog& dialog) { dialog.tick(1).apply(); }).at(0).remarks;
    }
    /// The current value of an item, as a further review shows it.
    std::string current(const std::string& item) { return review(guidText(1) + "\t" + item + "\t\t\n").at(0).current; }
};

TEST_F(WritingAModel, AttributeIsWritten) {
    EXPECT_EQ(apply("Name", "Außenwand"), Done);
    EXPECT_EQ(current("Name"), "Außenwand");
}

TEST_F(WritingAModel, NewPropertyStandsInItsSet) {
    EXPECT_EQ(apply("Note[Custom]", "abc"), Done);
    EXPECT_THAT(savedText(), ::testing::AllOf(HasSubstr("'Pset_Custom'"), HasSubstr("IFCLABEL('abc')")));
    EXPECT_EQ(current("Note"), "abc");
}

TEST_F(WritingAModel, NewPropertiesTakeTheTypeOfTheirValue) {
    EXPECT_EQ(apply("A[Custom]", "false"), Done);
    EXPECT_EQ(apply("B[Custom]", "2.75"), Done);
    EXPECT_EQ(apply("C[Custom]", ".5"), Done);
    EXPECT_THAT(savedText(),
                ::testing::AllOf(HasSubstr("IFCBOOLEAN(.T.)"), HasSubstr("IFCINTEGER(2)"), HasSubstr("IFCREAL(0.5)")));
}

TEST_F(WritingAModel, ExistingPropertyIsWrittenInItsOwnSet) {
    EXPECT_EQ(apply("LoadBearing[WallCommon]", "true"), Done);
    EXPECT_EQ(current("LoadBearing"), "true");
    EXPECT_THAT(savedText(), Not(HasSubstr("IFCBOOLEAN(.F.)")));
}

TEST_F(WritingAModel, IntegerTakesTheLeadingNumber) {
    EXPECT_EQ(apply("Count", "12.9"), Done);
    EXPECT_EQ(current("Count"), "12");
    EXPECT_EQ(apply("Count", "x"), Done);
    EXPECT_EQ(current("Count"), "0");
}

TEST_F(WritingAModel, NewClassificationNamesItsPublisher) {
    EXPECT_EQ(apply("UniFormat Classification", "B2010{Exterior Walls}"), Done);
    EXPECT_EQ(current("UniFormat Classification"), "B2010");
    EXPECT_THAT(savedText(), ::testing::AllOf(HasSubstr("'www.csiresources.org/uniformat'"),
                                              HasSubstr("'Exterior Walls'"), HasSubstr("'UniFormat'")));
}

TEST_F(WritingAModel, UnknownNameIsAnErrorAndChangesNothing) {
    const std::string before = savedText();
    EXPECT_EQ(apply("Note", "abc"), Error);
    EXPECT_EQ(savedText(), before);
}

}  // namespace
