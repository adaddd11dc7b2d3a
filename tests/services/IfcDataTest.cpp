// The IFC data of elements as records: read, changed, refused.

#include "Probe.hpp"

#include <limits>

namespace testing_support {
namespace {

using ::testing::HasSubstr;

using RefusalsReported = Probe;
using EditsInCommands = Probe;

IfcText furnishedHouse() {
    IfcText ifc = houseWithWall();
    const auto door = ifc.element("IfcDoor", guidText(2), "Door-01", {{"OverallHeight", "2.1"}});
    ifc.property(door, "Pset_DoorCommon", "FireRating", "IFCLABEL('30')");
    ifc.property(door, "Pset_DoorCommon", "IsExternal", "IFCBOOLEAN(.T.)");
    ifc.property(door, "Pset_DoorCommon", "Certified", "IFCLOGICAL(.U.)");
    ifc.property(door, "Pset_DoorCommon", "Leaves", "IFCINTEGER(2)");
    ifc.property(door, "Pset_DoorCommon", "Weight", "IFCMASSMEASURE(35.5)");
    ifc.property(door, "Pset_DoorCommon", "Note", "$");
    ifc.addProperty(door, "Pset_DoorCommon",
                    ifc.add("IfcPropertyListValue", {{"Name", "'Colours'"}, {"ListValues", "(IFCLABEL('red'))"}}));
    ifc.type(door, "IfcDoorType", "Pset_Type", {{"Maker", "IFCLABEL('A & B')"}});
    ifc.classification(door, "UniFormat Classification", "B2030", "Exterior Doors");
    return ifc;
}

std::string text(const GS::UniString& string) {
    return string.ToCStr().Get();
}

class Records : public Probe {
protected:
    GS::Array<API_IFCProperty> properties(std::string_view guid, bool storedOnly = false) {
        GS::Array<API_IFCProperty> result;
        EXPECT_EQ(named(call<HostSlot::Element_GetIFCProperties>(apiGuid(guid), storedOnly, &result)), "NoError");
        return result;
    }
    GS::Array<API_IFCAttribute> attributes(std::string_view guid) {
        GS::Array<API_IFCAttribute> result;
        EXPECT_EQ(named(call<HostSlot::Element_GetIFCAttributes>(apiGuid(guid), false, &result)), "NoError");
        return result;
    }
    GS::Array<API_IFCClassificationReference> references(std::string_view guid) {
        GS::Array<API_IFCClassificationReference> result;
        EXPECT_EQ(named(call<HostSlot::Element_GetIFCClassificationReferences>(apiGuid(guid), false, &result)),
                  "NoError");
        return result;
    }
    static std::string attribute(const GS::Array<API_IFCAttribute>& list, const char* name) {
        for (const API_IFCAttribute& entry : list) {
            if (entry.attributeName == name) return text(entry.attributeValue);
        }
        return "(no such attribute)";
    }
};

using PropertyRecords = Records;

TEST_F(PropertyRecords, CarryTypesAndValues) {
    probe(furnishedHouse());
    inCommand([&] {
        const auto list = properties(guidText(2));
        ASSERT_EQ(list.GetSize(), 8U);
        for (const API_IFCProperty& property : list) {
            const bool fromType = property.head.propertyName == "Maker";
            EXPECT_EQ(text(property.head.propertySetName), fromType ? "Pset_Type" : "Pset_DoorCommon");
            EXPECT_EQ(property.head.inherited, fromType);
        }
        const auto value = [&](UIndex index) { return list[index].singleValue.nominalValue; };
        EXPECT_EQ(text(value(0).valueType), "IfcLabel");
        EXPECT_EQ(value(0).primitiveType, API_IFCStringType);
        EXPECT_EQ(text(value(0).stringValue), "30");
        EXPECT_EQ(value(1).primitiveType, API_IFCBooleanType);
        EXPECT_EQ(value(1).booleanValue, 1);
        EXPECT_EQ(value(2).primitiveType, API_IFCLogicalType);
        EXPECT_EQ(value(2).integerValue, API_IFCUnknown);
        EXPECT_EQ(value(3).primitiveType, API_IFCIntegerType);
        EXPECT_EQ(value(3).integerValue, 2);
        EXPECT_EQ(text(value(4).valueType), "IfcMassMeasure");
        EXPECT_EQ(value(4).primitiveType, API_IFCRealType);
        EXPECT_EQ(value(4).realValue, 35.5);
        EXPECT_EQ(text(value(5).valueType), "");
        EXPECT_EQ(value(5).primitiveType, API_IFCStringType);
        EXPECT_EQ(list[6].head.kind, API_IFCPropertyListValueType);
        EXPECT_EQ(text(value(7).stringValue), "A & B");
    });
}

TEST_F(PropertyRecords, StoredOnlyLeavesTheTypesPropertiesOut) {
    probe(furnishedHouse());
    inCommand([&] {
        EXPECT_EQ(properties(guidText(2), true).GetSize(), 7U);
        EXPECT_EQ(properties(guidText(2), false).GetSize(), 8U);
    });
}

TEST_F(PropertyRecords, ChangedOneIsReadBack) {
    probe(furnishedHouse());
    inCommand([&] {
        API_IFCProperty leaves = properties(guidText(2))[3];
        leaves.singleValue.nominalValue.integerValue = 3;
        const auto set = [&] { return call<HostSlot::Element_SetIFCProperty>(apiGuid(guidText(2)), leaves); };
        EXPECT_EQ(named(command(set)), "NoError");
        EXPECT_EQ(properties(guidText(2))[3].singleValue.nominalValue.integerValue, 3);
    });
    EXPECT_THAT(savedText(), HasSubstr("IFCINTEGER(3)"));
    EXPECT_TRUE(host_.undo());
    EXPECT_EQ(savedText(), furnishedHouse().text());
}

TEST_F(PropertyRecords, RolledBackChangeIsNotReadBack) {
    probe(furnishedHouse());
    inCommand([&] {
        API_IFCProperty leaves = properties(guidText(2))[3];
        leaves.singleValue.nominalValue.integerValue = 3;
        const auto setAndFail = [&]() -> GSErrCode {
            EXPECT_EQ(named(call<HostSlot::Element_SetIFCProperty>(apiGuid(guidText(2)), leaves)), "NoError");
            EXPECT_EQ(properties(guidText(2))[3].singleValue.nominalValue.integerValue, 3);
            return APIERR_GENERAL;
        };
        EXPECT_EQ(named(command(setAndFail)), "APIERR_GENERAL");
        EXPECT_EQ(properties(guidText(2))[3].singleValue.nominalValue.integerValue, 2);
    });
}

using AttributeRecords = Records;

TEST_F(AttributeRecords, AreTextsInSchemaOrder) {
    probe(furnishedHouse());
    inCommand([&] {
        const auto list = attributes(guidText(2));
        EXPECT_EQ(text(list[0].attributeName), "GlobalId");
        EXPECT_EQ(attribute(list, "GlobalId"), globalId(guidText(2)));
        EXPECT_EQ(attribute(list, "Name"), "Door-01");
        EXPECT_EQ(attribute(list, "Description"), "");
        EXPECT_EQ(attribute(list, "OverallHeight"), "2.1");
        EXPECT_EQ(attribute(list, "OwnerHistory"), "(no such attribute)");
    });
}

TEST_F(AttributeRecords, ChangedOneIsReadBack) {
    probe(furnishedHouse());
    inCommand([&] {
        EXPECT_EQ(attribute(attributes(guidText(2)), "Tag"), "");
        EXPECT_EQ(named(command([&] { return setAttribute(guidText(2), "Tag", "T-7"); })), "NoError");
        EXPECT_EQ(attribute(attributes(guidText(2)), "Tag"), "T-7");
    });
}

using ClassificationRecords = Records;

TEST_F(ClassificationRecords, CarryItemAndSource) {
    probe(furnishedHouse());
    inCommand([&] {
        const auto list = references(guidText(2));
        ASSERT_EQ(list.GetSize(), 1U);
        EXPECT_EQ(text(list[0].systemLabel), "UniFormat Classification");
        EXPECT_TRUE(list[0].itemReference.present);
        EXPECT_EQ(text(list[0].itemReference.text), "B2030");
        EXPECT_EQ(text(list[0].name.text), "Exterior Doors");
        EXPECT_FALSE(list[0].location.present);
        EXPECT_EQ(text(list[0].referencedSource.classificationName), "UniFormat");
    });
}

TEST_F(ClassificationRecords, ChangedAndAddedOnesAreReadBack) {
    probe(furnishedHouse());
    inCommand([&] {
        API_IFCClassificationReference reference = references(guidText(2))[0];
        reference.itemReference = {"B2040", true};
        API_IFCClassificationReference added = reference;
        added.systemLabel = "SpecSection Classification";
        added.location = {"https://example.org/masterformat", true};
        const auto set = [&]() -> GSErrCode {
            const API_Guid door = apiGuid(guidText(2));
            EXPECT_EQ(named(call<HostSlot::Element_SetIFCClassificationReference>(door, reference)), "NoError");
            return call<HostSlot::Element_SetIFCClassificationReference>(door, added);
        };
        EXPECT_EQ(named(command(set)), "NoError");
        const auto list = references(guidText(2));
        ASSERT_EQ(list.GetSize(), 2U);
        EXPECT_EQ(text(list[0].itemReference.text), "B2040");
        EXPECT_EQ(text(list[1].systemLabel), "SpecSection Classification");
        EXPECT_EQ(text(list[1].location.text), "https://example.org/masterformat");
    });
}

using RecordsAreCopies = Records;

TEST_F(RecordsAreCopies, ArrayIsTheCallersOwn) {
    probe(furnishedHouse());
    inCommand([&] {
        auto mine = properties(guidText(2));
        mine[0].singleValue.nominalValue.stringValue = "mine alone";
        EXPECT_EQ(text(properties(guidText(2))[0].singleValue.nominalValue.stringValue), "30");
        mine.Clear();
        EXPECT_EQ(properties(guidText(2)).GetSize(), 8U);
    });
}

TEST_F(RecordsAreCopies, FailedCallLeavesTheArrayAlone) {
    probe(furnishedHouse());
    inCommand([&] {
        GS::Array<API_IFCAttribute> attributes;
        attributes.Push({"as", "before"});
        EXPECT_EQ(named(call<HostSlot::Element_GetIFCAttributes>(apiGuid(guidText(999)), false, &attributes)),
                  "APIERR_BADID");
        EXPECT_EQ(attributes.GetSize(), 1U);
        GS::Array<API_IFCProperty>* const none = nullptr;
        EXPECT_EQ(named(call<HostSlot::Element_GetIFCProperties>(apiGuid(guidText(2)), false, none)), "APIERR_BADPARS");
        EXPECT_EQ(named(call<HostSlot::Element_GetIFCProperties>(apiGuid(guidText(2)), true, none)), "APIERR_BADPARS");
    });
}

struct RefusalRow {
    const char* attribute;
    const char* value;
    const char* code;
};

TEST_F(RefusalsReported, AttributesHaveTheReasonsCode) {
    constexpr RefusalRow rows[] = {{"GlobalId", "0Lt8gR_E9ESeGH5uY_g9e9", "APIERR_READONLY"},
                                   {"Width", "1", "APIERR_BADNAME"},
                                   {"OverallHeight", "high", "APIERR_BADVALUE"},
                                   {"PredefinedType", "PORTHOLE", "APIERR_BADVALUE"}};
    probe(furnishedHouse());
    inCommand([&] {
        for (const RefusalRow& row : rows) {
            const std::size_t before = host_.report().size();
            EXPECT_EQ(named(command([&] {
                          EXPECT_EQ(named(setAttribute(guidText(2), row.attribute, row.value)), row.code);
                          return GSErrCode{NoError};
                      })),
                      "NoError");
            ASSERT_EQ(host_.report().size(), before + 1) << row.attribute;
            const std::string line = host_.report().back().text;
            EXPECT_THAT(line, HasSubstr("Door-01 (" + guidText(2) + "), " + row.attribute + ": "));
            EXPECT_THAT(line, HasSubstr(std::string("(") + row.code + ")"));
            EXPECT_FALSE(host_.report().back().alert);
        }
    });
}

TEST_F(RefusalsReported, PropertyIsNamedWithItsSet) {
    probe(furnishedHouse());
    inCommand([&] {
        API_IFCProperty property;
        property.head.propertySetName = "Pset_New";
        property.head.propertyName = "Weight";
        property.singleValue.nominalValue.valueType = "IfcReal";
        property.singleValue.nominalValue.primitiveType = API_IFCRealType;
        property.singleValue.nominalValue.realValue = std::numeric_limits<double>::infinity();
        command([&] {
            EXPECT_EQ(named(call<HostSlot::Element_SetIFCProperty>(apiGuid(guidText(2)), property)), "APIERR_BADVALUE");
            return GSErrCode{NoError};
        });
    });
    EXPECT_THAT(reportText(), HasSubstr("Door-01 (" + guidText(2) + "), Weight[Pset_New]: "));
}

TEST_F(RefusalsReported, RecordOfNoKnownKindIsRefused) {
    probe(furnishedHouse());
    inCommand([&] {
        API_IFCProperty property;
        property.head.propertySetName = "Pset_New";
        property.head.propertyName = "Odd";
        const auto set = [&] { return call<HostSlot::Element_SetIFCProperty>(apiGuid(guidText(2)), property); };
        property.head.kind = 6;
        EXPECT_EQ(named(command(set)), "APIERR_BADPARS");
        property.head.kind = API_IFCPropertySingleValueType;
        property.singleValue.nominalValue.primitiveType = -1;
        EXPECT_EQ(named(command(set)), "APIERR_BADPARS");
    });
}

TEST_F(RefusalsReported, ElementWithoutANameAndUnknownOnesAreToldByTheirGuid) {
    IfcText ifc = houseWithWall();
    ifc.element("IfcDoor", guidText(7), "");
    probe(ifc);
    inCommand([&] {
        EXPECT_EQ(named(setAttribute(guidText(7), "GlobalId", "x")), "APIERR_REFUSEDCMD");
        EXPECT_EQ(named(setAttribute(guidText(8), "Name", "x")), "APIERR_BADID");
        EXPECT_EQ(named(setAttribute("00000000-0000-0000-0000-000000000000", "Name", "x")), "APIERR_BADPARS");
    });
    EXPECT_THAT(reportText(), HasSubstr("element without a name (" + guidText(7) + "), GlobalId: "));
    EXPECT_THAT(reportText(), HasSubstr("unknown element (" + guidText(8) + "), Name: "));
    EXPECT_THAT(reportText(), HasSubstr("the GUID is the null GUID"));
}

TEST_F(EditsInCommands, EachKindOfEditNeedsOne) {
    probe(furnishedHouse());
    inCommand([&] {
        const API_Guid door = apiGuid(guidText(2));
        API_IFCProperty property;
        property.head.propertySetName = "Pset_New";
        property.head.propertyName = "New";
        API_IFCClassificationReference reference;
        reference.systemLabel = "UniFormat Classification";
        reference.itemReference = {"B1", true};
        EXPECT_EQ(named(setAttribute(guidText(2), "Name", "x")), "APIERR_REFUSEDCMD");
        EXPECT_EQ(named(call<HostSlot::Element_SetIFCProperty>(door, property)), "APIERR_REFUSEDCMD");
        EXPECT_EQ(named(call<HostSlot::Element_SetIFCClassificationReference>(door, reference)), "APIERR_REFUSEDCMD");
    });
    EXPECT_EQ(host_.report().size(), 3U);
    EXPECT_FALSE(host_.model()->modified());
}

}  // namespace
}  // namespace testing_support
