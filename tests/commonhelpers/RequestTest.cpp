// What the picking helpers ask a host for, and what they make of its answers: with a host of the test's own.

#include "DriverAddOn.hpp"

#include <gmock/gmock.h>

#include <cstring>

using namespace testing_support;
using ::testing::ElementsAre;

namespace {

std::vector<std::string> alerts;
/// Answers 'IPOI', 'ILIN' and 'IARC'; gets the request's record.
std::function<GSErrCode(UInt32 code, void* record)> onInterface;
std::function<GSErrCode(UInt32 code, void* par1, void* par2)> onGoodies;
std::function<GSErrCode(API_Element* element)> onElement;
std::function<GSErrCode(API_Elem_Head* head)> onHeader;

class Requests : public ::testing::Test {
protected:
    void SetUp() override {
        alerts.clear();
        onInterface = nullptr;
        onGoodies = nullptr;
        onElement = nullptr;
        onHeader = nullptr;
        addOn_.put<HostSlot::WriteReport>([](void*, const char* text, unsigned char) { alerts.emplace_back(text); });
        addOn_.put<HostSlot::Interface>([](void*, UInt32 code, void* par1, void*, void*) -> GSErrCode {
            return onInterface ? onInterface(code, par1) : APIERR_NOTSUPPORTED;
        });
        addOn_.put<HostSlot::Goodies>([](void*, UInt32 code, void* par1, void* par2, void*) -> GSErrCode {
            return onGoodies ? onGoodies(code, par1, par2) : APIERR_NOTSUPPORTED;
        });
        addOn_.put<HostSlot::Element_Get>([](void*, API_Element* element, UInt32 mask) -> GSErrCode {
            EXPECT_EQ(mask, 0U);
            return onElement ? onElement(element) : APIERR_NOTSUPPORTED;
        });
        addOn_.put<HostSlot::Element_GetHeader>([](void*, API_Elem_Head* head, UInt32 mask) -> GSErrCode {
            EXPECT_EQ(mask, 0U);
            return onHeader ? onHeader(head) : APIERR_NOTSUPPORTED;
        });
        addOn_.bind();
    }

    /// Lets the next click hit this.
    static void hit(const API_Neig& neig, API_ElemTypeID type) {
        onInterface = [neig](UInt32, void* record) {
            static_cast<API_GetPointType*>(record)->neig = neig;
            return NoError;
        };
        onGoodies = [type](UInt32 code, void*, void* par2) {
            if (code != APIAny_NeigToElem) return GSErrCode{APIERR_NOMORE};
            *static_cast<API_ElemTypeID*>(par2) = type;
            return NoError;
        };
    }

    RawHelpers addOn_;
};

constexpr API_Guid SomeGuid{{1, 2, 3}};

template <class Record>
bool isZeroBehind(const Record& record, std::size_t offset) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(&record);
    return std::all_of(bytes + offset, bytes + sizeof record, [](unsigned char byte) { return byte == 0; });
}

TEST_F(Requests, PointRecordIsZeroButForItsPrompt) {
    onInterface = [](UInt32 code, void* record) {
        const auto& point = *static_cast<API_GetPointType*>(record);
        EXPECT_EQ(code, 0x49504F49U);
        EXPECT_STREQ(point.prompt, "Where?");
        EXPECT_TRUE(isZeroBehind(point, offsetof(API_GetPointType, changeFilter)));
        return NoError;
    };
    API_Coord at{};
    EXPECT_TRUE(addOn_->ClickAPoint("Where?", &at));
}

/// Leaves the stack full of something that is not zero, so that what a record does not set is seen.
__attribute__((noinline)) void dirtyTheStack() {
    volatile unsigned char dirt[4096];
    for (volatile unsigned char& byte : dirt) byte = 0xAB;
}

TEST_F(Requests, MenuItemIsItsTwoNumbersAndZeroElsewhere) {
    std::vector<UInt32> codes;
    onInterface = [&](UInt32 code, void* record) {
        constexpr unsigned char Expected[16] = {0x94, 0x01, 0, 0, 3};
        codes.push_back(code);
        EXPECT_EQ(std::memcmp(record, Expected, sizeof Expected), 0);
        return NoError;
    };
    dirtyTheStack();
    addOn_->GetMenuItemMark(404, 3);
    dirtyTheStack();
    addOn_->InvertMenuItemMark(404, 3);
    dirtyTheStack();
    addOn_->DisableEnableMenuItem(404, 3, true);
    EXPECT_THAT(codes, ElementsAre(APIIo_GetMenuItemFlags, APIIo_GetMenuItemFlags, APIIo_SetMenuItemFlags,
                                   APIIo_GetMenuItemFlags, APIIo_SetMenuItemFlags));
}

TEST_F(Requests, NeigIsItsFieldsAndZeroElsewhere) {
    API_Elem_Head column{};
    column.typeID = 2;
    column.guid = SomeGuid;
    API_Neig neig;
    std::memset(&neig, 0xAB, sizeof neig);
    EXPECT_TRUE(addOn_->ElemHead_To_Neig(&neig, &column));
    constexpr unsigned char Expected[40] = {5, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3};
    EXPECT_EQ(std::memcmp(&neig, Expected, sizeof neig), 0);
    static_assert(offsetof(API_Neig, elemPartId) == 32, "the further 64-bit field is the last");
}

TEST_F(Requests, ArcGoesThroughPointLineAndArc) {
    std::vector<UInt32> codes;
    onInterface = [&](UInt32 code, void* record) {
        codes.push_back(code);
        if (code == APIIo_GetPoint) static_cast<API_GetPointType*>(record)->pos = {1, 2, 3};
        if (code == APIIo_GetLine) {
            auto& line = *static_cast<API_GetLineType*>(record);
            EXPECT_EQ(line.startCoord.z, 3);
            line.startCoord = {10, 20, 30};
            line.pos = {4, 5, 6};
        }
        if (code == APIIo_GetArc) {
            auto& arc = *static_cast<API_GetArcType*>(record);
            EXPECT_EQ(arc.startCoordGiven, 1);
            EXPECT_EQ(arc.reserved, 0);
            EXPECT_EQ(arc.startCoord.z, 30);
            EXPECT_EQ(arc.endCoord.z, 6);
            arc.origo = {7, 8, 9};
            arc.negArc = 1;
        }
        return NoError;
    };
    API_Coord centre{}, start{}, end{};
    bool negative = false;
    EXPECT_TRUE(addOn_->GetAnArc("Arc?", &centre, &start, &end, &negative));
    EXPECT_THAT(codes, ElementsAre(0x49504F49U, 0x494C494EU, 0x49415243U));
    EXPECT_EQ(centre.y, 8);
    EXPECT_EQ(start.x, 10);
    EXPECT_EQ(end.y, 5);
    EXPECT_TRUE(negative);
}

TEST_F(Requests, FailingPointIsReportedUnderTheNameOfItsHelper) {
    onInterface = [](UInt32, void*) { return GSErrCode{APIERR_GENERAL}; };
    API_Coord at{};
    EXPECT_FALSE(addOn_->ClickAPoint("Where?", &at));
    EXPECT_FALSE(addOn_->ClickAnElem("Which?", 0, nullptr, nullptr, nullptr, nullptr, false));
    EXPECT_FALSE(addOn_->GetAnArc("Arc?", nullptr, nullptr, nullptr, nullptr));
    EXPECT_THAT(alerts,
                ElementsAre("Error in APICmd_GetPointID: -2130313215", "Error in APIIo_GetPointID: -2130313215"));
}

TEST_F(Requests, CancelIsNeverReported) {
    onInterface = [](UInt32, void*) { return GSErrCode{APIERR_CANCEL}; };
    API_Coord at{};
    EXPECT_FALSE(addOn_->ClickAPoint("Where?", &at));
    EXPECT_FALSE(addOn_->ClickAnElem("Which?", 0, nullptr, nullptr, nullptr, nullptr, false));
    EXPECT_TRUE(alerts.empty());
}

TEST_F(Requests, EmptySpaceIsSearchedForTheNearestElement) {
    onInterface = [](UInt32, void* record) {
        static_cast<API_GetPointType*>(record)->pos = {11, 22, 33};
        return NoError;
    };
    bool searched = false;
    onGoodies = [&](UInt32 code, void* par1, void* par2) {
        if (code == APIAny_SearchElement) {
            const auto& search = *static_cast<API_ElemSearchPars*>(par1);
            EXPECT_EQ(code, 0x53454C4DU);
            EXPECT_EQ(search.typeID, 2);
            EXPECT_EQ(search.filterBits, 6);
            EXPECT_EQ(search.x, 11);
            EXPECT_EQ(search.y, 22);
            EXPECT_EQ(search.maxDistance, 1000000.0);
            static_cast<API_Elem_Head*>(par2)->guid = SomeGuid;
            searched = true;
            return NoError;
        }
        EXPECT_EQ(code, 0x4E544F45U);
        EXPECT_EQ(*static_cast<API_NeigID*>(par1), 5);
        *static_cast<API_ElemTypeID*>(par2) = 2;
        return NoError;
    };
    API_Neig neig{};
    EXPECT_TRUE(addOn_->ClickAnElem("Which?", 2, &neig, nullptr, nullptr, nullptr, false));
    EXPECT_TRUE(searched);
    EXPECT_EQ(neig.neigID, 5);
    EXPECT_EQ(neig.guid, SomeGuid);
}

TEST_F(Requests, EmptySpaceWithoutANearestElementIsNotAcceptedButDescribed) {
    hit({}, 0);
    API_ElemTypeID type = 99;
    API_Guid guid = SomeGuid;
    EXPECT_FALSE(addOn_->ClickAnElem("Which?", 0, nullptr, &type, &guid, nullptr, false));
    EXPECT_EQ(type, 0);
    EXPECT_EQ(guid, APINULLGuid);
}

TEST_F(Requests, PartIsForgottenOnlyOnDemand) {
    hit({1, 0, SomeGuid, 1, 0, 77}, 1);
    API_Neig neig{};
    EXPECT_TRUE(addOn_->ClickAnElem("Which?", 1, &neig, nullptr, nullptr, nullptr, false));
    EXPECT_EQ(neig.elemPartId, 77);
    EXPECT_TRUE(addOn_->ClickAnElem("Which?", 1, &neig, nullptr, nullptr, nullptr, true));
    EXPECT_EQ(neig.elemPartId, 0);
}

TEST_F(Requests, RunEndsAtANeigWithoutAnIdentifier) {
    hit({}, 1);
    int count = -1;
    EXPECT_EQ(addOn_->ClickElements_Neig("Which?", 1, &count), nullptr);
    EXPECT_EQ(count, 0);
}

TEST_F(Requests, ArcMayBeAskedForWithoutAnyOutput) {
    onInterface = [](UInt32, void*) { return NoError; };
    EXPECT_TRUE(addOn_->GetAnArc("Arc?", nullptr, nullptr, nullptr, nullptr));
}

TEST_F(Requests, SectionElementCountsAsTheTypeThatWasCut) {
    hit({55, 0, SomeGuid, 1, 0, 0}, 29);
    onElement = [](API_Element* element) {
        EXPECT_EQ(element->header.guid, SomeGuid);
        element->parentType = 1;
        return NoError;
    };
    const auto accepts = [&](API_ElemTypeID wanted) {
        return addOn_->ClickAnElem("Which?", wanted, nullptr, nullptr, nullptr, nullptr, false);
    };
    EXPECT_TRUE(accepts(1));
    EXPECT_TRUE(accepts(29));
    EXPECT_TRUE(accepts(0));
    EXPECT_FALSE(accepts(2));
    onElement = nullptr;
    EXPECT_FALSE(accepts(1));
}

// --- Elements and neigs --------------------------------------------------------------------------------------------

TEST_F(Requests, TypeOfANeigComesFromTheHost) {
    onGoodies = [](UInt32 code, void* par1, void* par2) {
        EXPECT_EQ(code, APIAny_NeigToElem);
        *static_cast<API_ElemTypeID*>(par2) = *static_cast<API_NeigID*>(par1) + 100;
        return NoError;
    };
    EXPECT_EQ(addOn_->Neig_To_ElemID(7), 107);
}

TEST_F(Requests, TypeOfAnUnknownNeigIsNone) {
    onGoodies = [](UInt32, void*, void* par2) {
        *static_cast<API_ElemTypeID*>(par2) = 12;
        return GSErrCode{APIERR_BADPARS};
    };
    EXPECT_EQ(addOn_->Neig_To_ElemID(7), 0);
}

struct NeigCase {
    API_ElemTypeID type;
    API_NeigID neig;
    Int32 index;
};

class NeigOfType : public Requests, public ::testing::WithParamInterface<NeigCase> {};

TEST_P(NeigOfType, IsTheHosts) {
    const auto& [type, neigID, index] = GetParam();
    API_Elem_Head head{};
    head.typeID = type;
    head.guid = SomeGuid;
    API_Neig neig;
    std::memset(&neig, 0xEE, sizeof neig);
    EXPECT_TRUE(addOn_->ElemHead_To_Neig(&neig, &head));
    EXPECT_EQ(neig.neigID, neigID);
    EXPECT_EQ(neig.guid, SomeGuid);
    EXPECT_EQ(neig.inIndex, index);
    EXPECT_TRUE(isZeroBehind(neig, offsetof(API_Neig, elemPartId)));
}

INSTANTIATE_TEST_SUITE_P(
    AllTypes, NeigOfType,
    ::testing::Values(NeigCase{1, 1, 1}, NeigCase{2, 5, 0}, NeigCase{3, 6, 1}, NeigCase{4, 10, 0}, NeigCase{5, 12, 0},
                      NeigCase{6, 13, 1}, NeigCase{7, 14, 1}, NeigCase{8, 15, 1}, NeigCase{9, 17, 1},
                      NeigCase{10, 21, 1}, NeigCase{11, 27, 1}, NeigCase{12, 28, 1}, NeigCase{13, 29, 1},
                      NeigCase{14, 31, 1}, NeigCase{15, 32, 1}, NeigCase{16, 33, 1}, NeigCase{17, 34, 1},
                      NeigCase{18, 38, 1}, NeigCase{19, 40, 1}, NeigCase{20, 42, 1}, NeigCase{21, 44, 1},
                      NeigCase{22, 46, 1}, NeigCase{23, 48, 1}, NeigCase{24, 50, 1}, NeigCase{25, 51, 1},
                      NeigCase{26, 53, 1}, NeigCase{29, 55, 1}, NeigCase{30, 77, 1}, NeigCase{31, 57, 1},
                      NeigCase{32, 58, 1}, NeigCase{33, 88, 1}, NeigCase{34, 91, 1}, NeigCase{35, 84, 1},
                      NeigCase{37, 97, 1}, NeigCase{38, 101, 1}, NeigCase{39, 105, 1}, NeigCase{40, 108, 1},
                      NeigCase{41, 110, 1}, NeigCase{42, 112, 1}, NeigCase{43, 114, 1}, NeigCase{44, 117, 0},
                      NeigCase{45, 122, 1}, NeigCase{46, 124, 1}));

TEST_F(Requests, TypesThatCannotBeClickedHaveNoNeig) {
    for (const API_ElemTypeID type : {27, 28, 36, 47, 1006, -1}) {
        API_Elem_Head head{};
        head.typeID = type;
        head.guid = SomeGuid;
        API_Neig neig{};
        EXPECT_FALSE(addOn_->ElemHead_To_Neig(&neig, &head)) << type;
        EXPECT_EQ(neig.neigID, 0);
        EXPECT_EQ(neig.guid, SomeGuid);
    }
}

TEST_F(Requests, HeaderWithoutATypeIsCompletedInPlace) {
    API_Elem_Head head{};
    head.guid = SomeGuid;
    head.reserved2[0] = 12;
    onHeader = [](API_Elem_Head* asked) {
        EXPECT_EQ(asked->guid, SomeGuid);
        EXPECT_EQ(asked->reserved2[0], 0);
        asked->typeID = 8;
        return NoError;
    };
    API_Neig neig{};
    EXPECT_TRUE(addOn_->ElemHead_To_Neig(&neig, &head));
    EXPECT_EQ(neig.neigID, 15);
    EXPECT_EQ(head.typeID, 8);
}

TEST_F(Requests, HeaderThatTheHostCannotCompleteHasNoNeig) {
    API_Elem_Head head{};
    head.guid = SomeGuid;
    API_Neig neig{};
    EXPECT_FALSE(addOn_->ElemHead_To_Neig(&neig, &head));
}

TEST_F(Requests, NullGuidIsNotAskedFor) {
    onHeader = [](API_Elem_Head*) -> GSErrCode {
        ADD_FAILURE() << "the host was asked for the null GUID";
        return NoError;
    };
    const API_Elem_Head none{};
    API_Neig neig{};
    EXPECT_FALSE(addOn_->ElemHead_To_Neig(&neig, &none));
}

}  // namespace
