// Names of the host's numbers, each row of each table.

#include "DriverAddOn.hpp"

#include <gmock/gmock.h>

#include <limits>
#include <map>

using namespace testing_support;

namespace {

constexpr int Least = std::numeric_limits<int>::min(), Most = std::numeric_limits<int>::max();

/// Checks a whole table: every name at its number, and none on either side of it.
template <class Function>
void expectNames(Function nameOf, const std::vector<std::string>& names) {
    const int count = static_cast<int>(names.size());
    for (int i = 0; i < count; ++i) EXPECT_EQ(nameOf(i), names[static_cast<std::size_t>(i)]) << i;
    for (const int none : {-1, count, count + 1, Least, Most}) EXPECT_STREQ(nameOf(none), "???") << none;
}

TEST(Names, OfLibraryPartTypes) {
    expectNames(RawHelpers()->LibID_To_Name, {"Zombie", "Spec", "Window", "Door", "Object", "Lamp", "Room", "Property",
                                              "PlanSign", "Label", "Macro", "Pict", "List Scheme", "Skylight"});
}

TEST(Names, OfAttributeTypes) {
    expectNames(RawHelpers()->AttrID_To_Name,
                {"Zombie", "Pen", "Layer", "Linetype", "Filltype", "CompWall", "Material", "City", "LayerComb",
                 "ZoneCat", "Font", "Profile", "Pen table", "Dimension style", "Model View options", "MEP System",
                 "Operation Profile", "Graphic Override", "Building Material"});
}

TEST(Names, OfElementTypes) {
    expectNames(RawHelpers()->ElemID_To_Name, {"Zombie",
                                               "Wall",
                                               "Column",
                                               "Beam",
                                               "Window",
                                               "Door",
                                               "Object",
                                               "Lamp",
                                               "Slab",
                                               "Roof",
                                               "Mesh",
                                               "Dimension",
                                               "Radial Dimension",
                                               "Level Dimension",
                                               "Angle Dimension",
                                               "Text",
                                               "Label",
                                               "Zone",
                                               "Hatch",
                                               "Line",
                                               "Polyline",
                                               "Arc",
                                               "Circle",
                                               "Spline",
                                               "Hotspot",
                                               "Cut Plane",
                                               "Camera",
                                               "CamSet",
                                               "Group",
                                               "Section Element",
                                               "Drawing",
                                               "Picture",
                                               "Detail Drawing",
                                               "Elevation",
                                               "InteriorElevation",
                                               "Worksheet",
                                               "Hotlink",
                                               "CurtainWall",
                                               "CurtainWall Segment",
                                               "CurtainWall Frame",
                                               "CurtainWall Panel",
                                               "CurtainWall Junction",
                                               "CurtainWall Accessory",
                                               "Shell",
                                               "Skylight",
                                               "Morph",
                                               "Change Marker"});
}

const std::map<int, std::string> ErrorNames{
    {-2130313215, "APIERR_GENERAL"},
    {-2130313214, "APIERR_MEMFULL"},
    {-2130313213, "APIERR_CANCEL"},
    {-2130313115, "APIERR_BADID"},
    {-2130313114, "APIERR_BADINDEX"},
    {-2130313113, "APIERR_BADNAME"},
    {-2130313112, "APIERR_BADPARS"},
    {-2130313111, "APIERR_BADPOLY"},
    {-2130313110, "APIERR_BADDATABASE"},
    {-2130313109, "APIERR_BADWINDOW"},
    {-2130313108, "APIERR_BADKEYCODE"},
    {-2130313107, "APIERR_BADPLATFORMSIGN"},
    {-2130313106, "APIERR_BADPLANE"},
    {-2130313105, "APIERR_BADUSERID"},
    {-2130313104, "APIERR_BADVALUE"},
    {-2130313103, "APIERR_BADELEMENTTYPE"},
    {-2130313102, "APIERR_IRREGULARPOLY"},
    {-2130313015, "APIERR_NO3D"},
    {-2130313014, "APIERR_NOMORE"},
    {-2130313013, "APIERR_NOPLAN"},
    {-2130313012, "APIERR_NOLIB"},
    {-2130313011, "APIERR_NOLIBSECT"},
    {-2130313010, "APIERR_NOSEL"},
    {-2130313009, "APIERR_NOTEDITABLE"},
    {-2130313008, "APIERR_NOTSUBTYPEOF"},
    {-2130313007, "APIERR_NOTEQUALMAIN"},
    {-2130313006, "APIERR_NOTEQUALREVISION"},
    {-2130313005, "APIERR_NOTEAMWORKPROJECT"},
    {-2130312996, "APIERR_NOUSERDATA"},
    {-2130312995, "APIERR_MOREUSER"},
    {-2130312994, "APIERR_LINKEXIST"},
    {-2130312993, "APIERR_LINKNOTEXIST"},
    {-2130312992, "APIERR_WINDEXIST"},
    {-2130312991, "APIERR_WINDNOTEXIST"},
    {-2130312990, "APIERR_UNDOEMPTY"},
    {-2130312989, "APIERR_REFERENCEEXIST"},
    {-2130312915, "APIERR_ATTREXIST"},
    {-2130312914, "APIERR_DELETED"},
    {-2130312913, "APIERR_LOCKEDLAY"},
    {-2130312912, "APIERR_HIDDENLAY"},
    {-2130312911, "APIERR_INVALFLOOR"},
    {-2130312910, "APIERR_NOTMINE"},
    {-2130312909, "APIERR_NOACCESSRIGHT"},
    {-2130312815, "APIERR_MODULNOTINSTALLED"},
    {-2130312814, "APIERR_MODULCMDMINE"},
    {-2130312813, "APIERR_MODULCMDNOTSUPPORTED"},
    {-2130312812, "APIERR_MODULCMDVERSNOTSUPPORTED"},
    {-2130312811, "APIERR_NOMODULEDATA"},
    {-2130312715, "APIERR_PAROVERLAP"},
    {-2130312714, "APIERR_PARMISSING"},
    {-2130312713, "APIERR_PAROVERFLOW"},
    {-2130312712, "APIERR_PARIMPLICIT"},
    {-2130312706, "APIERR_RUNOVERLAP"},
    {-2130312705, "APIERR_RUNMISSING"},
    {-2130312704, "APIERR_RUNOVERFLOW"},
    {-2130312703, "APIERR_RUNIMPLICIT"},
    {-2130312702, "APIERR_RUNPROTECTED"},
    {-2130312696, "APIERR_EOLOVERLAP"},
    {-2130312686, "APIERR_TABOVERLAP"},
    {-2130312615, "APIERR_SQLPARSE"},
    {-2130312614, "APIERR_SQLEXECUTE"},
    {-2130312613, "APIERR_SQLANY"},
    {-2130312315, "APIERR_NOTINIT"},
    {-2130312314, "APIERR_NESTING"},
    {-2130312313, "APIERR_NOTSUPPORTED"},
    {-2130312312, "APIERR_REFUSEDCMD"},
    {-2130312311, "APIERR_REFUSEDPAR"},
    {-2130312310, "APIERR_READONLY"},
    {-2130312309, "APIERR_SERVICEFAILED"},
    {-2130312308, "APIERR_COMMANDFAILED"},
    {-2130312215, "APIERR_MISSINGCODE"},
    {-2130312214, "APIERR_MISSINGDEF"},
};

TEST(Names, OfErrorCodesAndOfNoOther) {
    RawHelpers addOn;
    ASSERT_EQ(ErrorNames.size(), 72U);
    const int base = static_cast<int>(0x81060000U);
    for (int code = base - 16; code < base + 0x800; ++code) {
        const auto known = ErrorNames.find(code);
        EXPECT_EQ(addOn->ErrID_To_Name(code), known == ErrorNames.end() ? "???" : known->second) << code - base;
    }
    for (const int none : {0, 1, -1, 1000, Least, Most}) EXPECT_STREQ(addOn->ErrID_To_Name(none), "???") << none;
}

}  // namespace
