// Elements by GUID, their headers and types, the nearest one.

#include "Probe.hpp"

#include <cstdint>

namespace testing_support {
namespace {

using ElementFromGuid = Probe;
using TypeNames = Probe;
using NearestElement = Probe;
using NeigIdentifiers = Probe;

API_Element elementOf(std::string_view guid) {
    API_Element element{};
    element.header.guid = apiGuid(guid);
    return element;
}

void* asParameter(API_ElemTypeID type) {
    return reinterpret_cast<void*>(std::intptr_t{type});
}

TEST_F(ElementFromGuid, HeaderTellsTheType) {
    probe();
    inCommand([&] {
        API_Element wall = elementOf(guidText(1));
        EXPECT_EQ(named(call<HostSlot::Element_Get>(&wall, UInt32{0})), "NoError");
        EXPECT_EQ(wall.header.typeID, 1);
        EXPECT_EQ(wall.header.guid, apiGuid(guidText(1)));
        EXPECT_EQ(wall.parentType, 0);
    });
}

TEST_F(ElementFromGuid, HeaderAloneIsTheSame) {
    probe();
    inCommand([&] {
        API_Elem_Head header = elementOf(guidText(1)).header;
        EXPECT_EQ(named(call<HostSlot::Element_GetHeader>(&header, UInt32{0})), "NoError");
        EXPECT_EQ(header.typeID, 1);
    });
}

TEST_F(ElementFromGuid, FailuresHaveTheirCodes) {
    probe();
    inCommand([&] {
        API_Element unknown = elementOf(guidText(999));
        EXPECT_EQ(named(call<HostSlot::Element_Get>(&unknown, UInt32{0})), "APIERR_BADID");
        API_Element null{};
        EXPECT_EQ(named(call<HostSlot::Element_Get>(&null, UInt32{0})), "APIERR_BADPARS");
        API_Element* const none = nullptr;
        EXPECT_EQ(named(call<HostSlot::Element_Get>(none, UInt32{0})), "APIERR_BADPARS");
        API_Elem_Head* const noHeader = nullptr;
        EXPECT_EQ(named(call<HostSlot::Element_GetHeader>(noHeader, UInt32{0})), "APIERR_BADPARS");
    });
    EXPECT_TRUE(host_.report().empty()) << "a question is no refused edit: " << reportText();
}

TEST_F(ElementFromGuid, WithoutAModelThereIsNone) {
    probe();
    host_.closeModel();
    inCommand([&] {
        API_Element wall = elementOf(guidText(1));
        EXPECT_EQ(named(call<HostSlot::Element_Get>(&wall, UInt32{0})), "APIERR_BADID");
    });
}

TEST_F(ElementFromGuid, AnotherModelMeansOtherElements) {
    probe();
    IfcText other("IFC2X3");
    other.element("IfcDoor", guidText(1), "Door");
    openText(other.text());
    inCommand([&] {
        API_Element door = elementOf(guidText(1));
        EXPECT_EQ(named(call<HostSlot::Element_Get>(&door, UInt32{0})), "NoError");
        EXPECT_EQ(door.header.typeID, 5);
    });
}

struct TypeRow {
    API_ElemTypeID type;
    const char* name;
};

TEST_F(TypeNames, EachTypeHasItsDisplayName) {
    constexpr TypeRow rows[] = {
        {1, "Wall"},    {2, "Column"},      {3, "Beam"},      {4, "Window"},     {5, "Door"},      {6, "Object"},
        {7, "Lamp"},    {8, "Slab"},        {9, "Roof"},      {10, "Mesh"},      {17, "Zone"},     {37, "Curtain Wall"},
        {1001, "Site"}, {1002, "Building"}, {1003, "Storey"}, {1005, "Product"}, {1006, "Opening"}};
    probe();
    inCommand([&] {
        for (const TypeRow& row : rows) {
            GS::UniString name;
            EXPECT_EQ(named(goodies(APIAny_GetElemTypeName, asParameter(row.type), &name)), "NoError") << row.type;
            EXPECT_STREQ(name.ToCStr(), row.name);
        }
    });
}

TEST_F(TypeNames, UnknownTypeLeavesTheTextAlone) {
    probe();
    inCommand([&] {
        for (const API_ElemTypeID type : {0, -1, 11, 1004, 5000}) {
            GS::UniString name("as before");
            EXPECT_EQ(named(goodies(APIAny_GetElemTypeName, asParameter(type), &name)), "APIERR_BADPARS") << type;
            EXPECT_STREQ(name.ToCStr(), "as before");
        }
        EXPECT_EQ(named(goodies(APIAny_GetElemTypeName, asParameter(1), nullptr)), "APIERR_BADPARS");
        EXPECT_EQ(named(goodies(GSFourCharCode("NONE"), nullptr, nullptr)), "APIERR_NOTSUPPORTED");
    });
}

IfcText threeColumnsAndADoor() {
    IfcText ifc;
    const auto at = [&](double x, double y, double z) -> IfcText::Values {
        return {{"ObjectPlacement", ifc.placementAt(x, y, z)}};
    };
    ifc.element("IfcColumn", guidText(1), "Near", at(1, 0, 50));
    ifc.element("IfcColumn", guidText(2), "As near", at(-1, 0, 0));
    ifc.element("IfcColumn", guidText(3), "Far", at(100, 0, 0));
    ifc.element("IfcDoor", guidText(4), "Door", at(10, 0, 0));
    ifc.element("IfcDoor", guidText(5), "Nowhere");
    return ifc;
}

struct SearchRow {
    API_ElemTypeID type;
    double x, distance;
    unsigned found;  ///< Number of the GUID; 0 = APIERR_NOMORE.
};

TEST_F(NearestElement, IsFoundInPlanByTypeAndDistance) {
    constexpr SearchRow rows[] = {
        {2, 0, 1e6, 1},  // Heights do not count; of two as near, the first in the file.
        {2, -0.5, 1e6, 2}, {2, 90, 1e6, 3}, {0, 9, 1e6, 4},  // Any type.
        {5, 0, 1e6, 4},                                      // What has no place is not found.
        {5, 0, 10, 4},                                       // The distance itself still counts.
        {5, 0, 9.99, 0},   {1, 0, 1e6, 0},
    };
    probe(threeColumnsAndADoor());
    inCommand([&] {
        for (const SearchRow& row : rows) {
            API_ElemSearchPars search{row.type, 6, row.x, 0.0, row.distance};
            API_Elem_Head header{};
            const GSErrCode result = goodies(APIAny_SearchElement, &search, &header);
            EXPECT_EQ(named(result), row.found == 0 ? "APIERR_NOMORE" : "NoError") << row.type << " at " << row.x;
            const API_Guid expected = row.found == 0 ? APINULLGuid : apiGuid(guidText(row.found));
            EXPECT_EQ(header.guid, expected) << row.type << " at " << row.x;
        }
    });
}

TEST_F(NearestElement, HeaderIsWhole) {
    probe(threeColumnsAndADoor());
    inCommand([&] {
        API_ElemSearchPars search{0, 6, 10.0, 0.0, 1.0};
        API_Elem_Head header{};
        ASSERT_EQ(named(goodies(APIAny_SearchElement, &search, &header)), "NoError");
        EXPECT_EQ(header.typeID, 5);
        EXPECT_EQ(named(goodies(APIAny_SearchElement, nullptr, &header)), "APIERR_BADPARS");
        EXPECT_EQ(named(goodies(APIAny_SearchElement, &search, nullptr)), "APIERR_BADPARS");
    });
}

TEST_F(NeigIdentifiers, TellTheElementType) {
    constexpr int rows[][2] = {{1, 1}, {5, 2}, {6, 3}, {12, 5}, {77, 30}, {84, 35}, {91, 34}, {97, 37}, {124, 46}};
    probe();
    inCommand([&] {
        for (const auto& [neigId, expected] : rows) {
            API_NeigID neig = neigId;
            API_ElemTypeID type = -1;
            EXPECT_EQ(named(goodies(APIAny_NeigToElem, &neig, &type)), "NoError") << neigId;
            EXPECT_EQ(type, expected) << neigId;
        }
        for (API_NeigID neig : {0, 2, -1, 125}) {
            API_ElemTypeID type = -1;
            EXPECT_EQ(named(goodies(APIAny_NeigToElem, &neig, &type)), "APIERR_BADPARS") << neig;
            EXPECT_EQ(type, -1);
        }
    });
}

}  // namespace
}  // namespace testing_support
