// The ACAPI_ family: every member against its slot.

#include "DriverAddOn.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstring>

using namespace testing_support;

namespace {

constexpr GSErrCode Verdict = 4711;  ///< Of the test's host: no code of the interface, so nobody else can have made it.

class Forwarders : public ::testing::Test {
protected:
    static inline void* client = nullptr;
    static inline std::vector<unsigned char> record;

    void SetUp() override {
        addOn_.bind();
        addOn_.initialize();
        client = &addOn_.client;
        record.clear();
    }

    template <HostSlot slot>
    void put(typename HostSlotFunction<slot>::Type function) {
        addOn_.put<slot>(function);
        addOn_.bind();
    }
    /// A host's function for a registration: keeps the 32 bytes of its record.
    static GSErrCode keepRecord(const void* bytes) {
        const auto* begin = static_cast<const unsigned char*>(bytes);
        record.assign(begin, begin + 32);
        return Verdict;
    }
    template <class Number>
    static Number at(std::size_t offset) {
        Number number;
        std::memcpy(&number, record.data() + offset, sizeof number);
        return number;
    }
    static bool zeroFrom(std::size_t offset) {
        return std::all_of(record.begin() + static_cast<std::ptrdiff_t>(offset), record.end(),
                           [](unsigned char byte) { return byte == 0; });
    }

    RawHelpers addOn_;
};

// --- Plain forwarders ----------------------------------------------------------------------------------------------

int a, b, c;  ///< Things to hand over by address.

/// A host's function for the slots of one request code and three parameters.
template <UInt32 expectedCode>
GSErrCode expectRequest(void* handle, UInt32 code, void* par1, void* par2, void* par3) {
    EXPECT_NE(handle, nullptr);
    EXPECT_EQ(code, expectedCode);
    EXPECT_EQ(par1, &a);
    EXPECT_EQ(par2, &b);
    EXPECT_EQ(par3, &c);
    return Verdict;
}

TEST_F(Forwarders, RequestsReachTheirSlots) {
    put<HostSlot::Environment>(&expectRequest<76>);
    put<HostSlot::Interface>(&expectRequest<77>);
    put<HostSlot::Goodies>(&expectRequest<78>);
    EXPECT_EQ(addOn_->ACAPI_Environment(76, &a, &b, &c), Verdict);
    EXPECT_EQ(addOn_->ACAPI_Interface(77, &a, &b, &c), Verdict);
    EXPECT_EQ(addOn_->ACAPI_Goodies(78, &a, &b, &c), Verdict);
}

TEST_F(Forwarders, MenuNumberIsWidenedWithItsSign) {
    put<HostSlot::Install_MenuHandler>([](void* handle, Int32 menu, APIMenuCommandProc* handler) -> GSErrCode {
        EXPECT_EQ(handle, client);
        EXPECT_EQ(handler, nullptr);
        return menu;
    });
    EXPECT_EQ(addOn_->ACAPI_Install_MenuHandler(32500, nullptr), 32500);
    EXPECT_EQ(addOn_->ACAPI_Install_MenuHandler(-2, nullptr), -2);
}

TEST_F(Forwarders, UndoableCommandRunsAndItsResultComesBack) {
    put<HostSlot::CallUndoableCommand>(
        [](void* handle, const GS::UniString& name, const std::function<GSErrCode()>& command) -> GSErrCode {
            EXPECT_EQ(handle, client);
            EXPECT_EQ(narrow(name), "Step");
            return command() + 1;
        });
    EXPECT_EQ(addOn_->ACAPI_CallUndoableCommand("Step", [] { return Verdict; }), Verdict + 1);
}

TEST_F(Forwarders, ElementRecordsReachTheirSlots) {
    put<HostSlot::Element_Get>([](void* handle, API_Element* element, UInt32 mask) -> GSErrCode {
        EXPECT_EQ(handle, client);
        element->header.typeID = static_cast<Int32>(mask);
        return Verdict;
    });
    put<HostSlot::Element_GetHeader>([](void* handle, API_Elem_Head* head, UInt32 mask) -> GSErrCode {
        EXPECT_EQ(handle, client);
        head->typeID = static_cast<Int32>(mask);
        return Verdict;
    });
    API_Element element{};
    EXPECT_EQ(addOn_->ACAPI_Element_Get(&element, 3), Verdict);
    EXPECT_EQ(element.header.typeID, 3);
    EXPECT_EQ(addOn_->ACAPI_Element_GetHeader(&element.header, 4), Verdict);
    EXPECT_EQ(element.header.typeID, 4);
}

constexpr API_Guid SomeGuid{{1, 2, 3}};

template <class Record>
GSErrCode expectGet(void* handle, const API_Guid& guid, bool storedOnly, GS::Array<Record>* records) {
    EXPECT_NE(handle, nullptr);
    EXPECT_EQ(guid, SomeGuid);
    EXPECT_TRUE(storedOnly);
    records->Push(Record{});
    return Verdict;
}
template <class Record>
GSErrCode expectSet(void* handle, const API_Guid& guid, const Record&) {
    EXPECT_NE(handle, nullptr);
    EXPECT_EQ(guid, SomeGuid);
    return Verdict;
}

TEST_F(Forwarders, IfcDataReachesItsSlots) {
    put<HostSlot::Element_GetIFCAttributes>(&expectGet<API_IFCAttribute>);
    put<HostSlot::Element_SetIFCAttribute>(&expectSet<API_IFCAttribute>);
    put<HostSlot::Element_GetIFCProperties>(&expectGet<API_IFCProperty>);
    put<HostSlot::Element_SetIFCProperty>(&expectSet<API_IFCProperty>);
    put<HostSlot::Element_GetIFCClassificationReferences>(&expectGet<API_IFCClassificationReference>);
    put<HostSlot::Element_SetIFCClassificationReference>(&expectSet<API_IFCClassificationReference>);
    GS::Array<API_IFCAttribute> attributes;
    GS::Array<API_IFCProperty> properties;
    GS::Array<API_IFCClassificationReference> references;
    EXPECT_EQ(addOn_->ACAPI_Element_GetIFCAttributes(SomeGuid, true, &attributes), Verdict);
    EXPECT_EQ(addOn_->ACAPI_Element_SetIFCAttribute(SomeGuid, attributes[0]), Verdict);
    EXPECT_EQ(addOn_->ACAPI_Element_GetIFCProperties(SomeGuid, true, &properties), Verdict);
    EXPECT_EQ(addOn_->ACAPI_Element_SetIFCProperty(SomeGuid, properties[0]), Verdict);
    EXPECT_EQ(addOn_->ACAPI_Element_GetIFCClassificationReferences(SomeGuid, true, &references), Verdict);
    EXPECT_EQ(addOn_->ACAPI_Element_SetIFCClassificationReference(SomeGuid, references[0]), Verdict);
}

TEST_F(Forwarders, EmptySlotsAnswerNotSupported) {
    EXPECT_EQ(addOn_->ACAPI_Install_MenuHandler(1, nullptr), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Environment(1, nullptr, nullptr, nullptr), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Interface(1, nullptr, nullptr, nullptr), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Goodies(1, nullptr, nullptr, nullptr), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_CallUndoableCommand("Step", [] { return Verdict; }), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Element_Get(nullptr, 0), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Element_GetHeader(nullptr, 0), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Element_GetIFCAttributes({}, false, nullptr), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Element_SetIFCAttribute({}, {}), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Element_GetIFCProperties({}, false, nullptr), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Element_SetIFCProperty({}, {}), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Element_GetIFCClassificationReferences({}, false, nullptr), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Element_SetIFCClassificationReference({}, {}), APIERR_NOTSUPPORTED);
    addOn_->ACAPI_WriteReport("goes nowhere", false);
}

TEST_F(Forwarders, ReportPassesItsFlagAsAByte) {
    static std::vector<int> flags;
    flags.clear();
    put<HostSlot::WriteReport>([](void* handle, const char* text, unsigned char alert) {
        EXPECT_EQ(handle, client);
        EXPECT_STREQ(text, "100%s");
        flags.push_back(alert);
    });
    addOn_->ACAPI_WriteReport("100%s", true);
    addOn_->ACAPI_WriteReport("100%s", false);
    EXPECT_THAT(flags, ::testing::ElementsAre(1, 0));
}

// --- Registrations -------------------------------------------------------------------------------------------------

TEST_F(Forwarders, MenuRegistrationIsPackedIntoAZeroedRecord) {
    put<HostSlot::Register_Menu>([](const API_MenuRegistration* menu) { return keepRecord(menu); });
    EXPECT_EQ(addOn_->ACAPI_Register_Menu(-2, 32520, 1, 0x80000001), Verdict);
    EXPECT_EQ(at<Int16>(0), -2);
    EXPECT_EQ(at<Int16>(2), 32520);
    EXPECT_EQ(at<Int32>(4), 1);
    EXPECT_EQ(at<UInt32>(8), 0x80000001U);
    EXPECT_TRUE(zeroFrom(12));
}

TEST_F(Forwarders, ServiceRegistrationsArePackedIntoZeroedRecords) {
    put<HostSlot::Register_SupportedService>(&keepRecord);
    EXPECT_EQ(addOn_->ACAPI_Register_SupportedService(0x43414C43, 2), Verdict);
    EXPECT_EQ(at<UInt32>(0), 0x43414C43U);
    EXPECT_EQ(at<Int32>(4), 2);
    EXPECT_TRUE(zeroFrom(8));

    put<HostSlot::Register_RequiredService>(&keepRecord);
    EXPECT_EQ(addOn_->ACAPI_Register_RequiredService(1, -2, 3, 4), Verdict);
    EXPECT_EQ(at<UInt32>(0), 1U);
    EXPECT_EQ(at<Int32>(4), -2);
    EXPECT_EQ(at<UInt32>(8), 3U);
    EXPECT_EQ(at<Int32>(12), 4);
    EXPECT_TRUE(zeroFrom(16));
}

TEST_F(Forwarders, SubtypeRegistrationsShareASlot) {
    put<HostSlot::Register_Subtype>(&keepRecord);
    EXPECT_EQ(addOn_->ACAPI_Register_Subtype(1, 2), Verdict);
    EXPECT_EQ(at<UInt32>(0), 1U);
    EXPECT_EQ(at<UInt32>(4), 2U);
    EXPECT_TRUE(zeroFrom(8));
    EXPECT_EQ(addOn_->ACAPI_Register_SubtypeX(1, 2, 3), Verdict);
    EXPECT_EQ(at<UInt32>(8), 3U);
    EXPECT_TRUE(zeroFrom(12));
}

TEST_F(Forwarders, RegistrationsWithoutTheirSlotAreNotSupported) {
    EXPECT_EQ(addOn_->ACAPI_Register_Menu(1, 2, 3, 4), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Register_SupportedService(1, 2), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Register_RequiredService(1, 2, 3, 4), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Register_Subtype(1, 2), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn_->ACAPI_Register_SubtypeX(1, 2, 3), APIERR_NOTSUPPORTED);
}

TEST_F(Forwarders, FileTypeIsCheckedForItsExtension) {
    EXPECT_EQ(addOn_->ACAPI_Register_FileType(1, 0, 0, nullptr), APIERR_BADPARS);
    EXPECT_EQ(addOn_->ACAPI_Register_FileType(1, 0, 0, "txt"), APIERR_NOTSUPPORTED);
}

TEST_F(Forwarders, OnlyLibraryPartTypesWithASymbolPassTheCheck) {
    const std::map<API_LibTypeID, UInt32> codes{
        {2, 0x5753594D}, {3, 0x4453594D}, {4, 0x4753594D}, {5, 0x4C53594D}, {13, 0x5353594D}};
    for (API_LibTypeID type = -2; type < 20; ++type) {
        UInt32 code = 99;
        const auto known = codes.find(type);
        EXPECT_EQ(addOn_->ACAPI_Register_ESYM(type), known == codes.end() ? APIERR_BADID : APIERR_NOTSUPPORTED) << type;
        EXPECT_EQ(addOn_->ACAPI_SymbolCode(type, &code), known != codes.end()) << type;
        EXPECT_EQ(code, known == codes.end() ? 99 : known->second) << type;
    }
}

// --- Objects of the host -------------------------------------------------------------------------------------------

TEST_F(Forwarders, ObjectsOfTheHostComeBackAsTheyAre) {
    static int object;
    const auto give = [](void* handle) -> void* { return handle == client ? &object : nullptr; };
    put<HostSlot::GetUtilityFunctionSet>(give);
    put<HostSlot::GetProductRegistry>(give);
    put<HostSlot::EDB_GetElemRegistry>(give);
    put<HostSlot::EDB_GetElemDatabase>(give);
    put<HostSlot::PStatus>(give);
    for (const auto get : {addOn_->ACAPI_GetUtilityFunctionSet, addOn_->ACAPI_GetProductRegistry,
                           addOn_->ACAPI_EDB_GetElemRegistry, addOn_->ACAPI_EDB_GetElemDatabase, addOn_->ACAPI_PStatus})
        EXPECT_EQ(get(), &object);
}

TEST_F(Forwarders, ObjectsThatTheHostHasNotAreNull) {
    for (const auto get : {addOn_->ACAPI_GetUtilityFunctionSet, addOn_->ACAPI_GetProductRegistry,
                           addOn_->ACAPI_EDB_GetElemRegistry, addOn_->ACAPI_EDB_GetElemDatabase, addOn_->ACAPI_PStatus})
        EXPECT_EQ(get(), nullptr);
}

TEST_F(Forwarders, ReleaseNumberIsAskedOfTheEnvironment) {
    put<HostSlot::Environment>([](void* handle, UInt32 code, void* par1, void* par2, void* par3) -> GSErrCode {
        EXPECT_EQ(handle, client);
        EXPECT_EQ(code, 0x4150504CU);
        EXPECT_EQ(par2, nullptr);
        EXPECT_EQ(par3, nullptr);
        static_cast<API_ReleaseNumber*>(par1)->version = 19000;
        return NoError;
    });
    API_ReleaseNumber release{};
    addOn_->ACAPI_GetReleaseNumber(&release);
    EXPECT_EQ(release.version, 19000);
    addOn_->ACAPI_GetReleaseNumber(nullptr);
}

TEST_F(Forwarders, ReleaseNumberOfAHostWithoutEnvironmentStays) {
    API_ReleaseNumber release{};
    release.version = 7;
    addOn_->ACAPI_GetReleaseNumber(&release);
    EXPECT_EQ(release.version, 7);
}

// --- The table -----------------------------------------------------------------------------------------------------

TEST_F(Forwarders, EverySlotOfTheTableIsCopied) {
    static_assert(sizeof *addOn_->gImpList == 4016);
    for (std::size_t i = 0; i < addOn_.table.size(); ++i) addOn_.table[i] = reinterpret_cast<HostFunction>(i + 1);
    addOn_.bind();
    for (std::size_t i = 0; i < addOn_.table.size(); ++i) EXPECT_EQ((*addOn_->gImpList)[i], addOn_.table[i]) << i;
    EXPECT_EQ(*addOn_->gImpList_Inited, 1);
}

TEST_F(Forwarders, WrappersTestTheFlagForExactlyOne) {
    *addOn_->gImpList_Inited = 2;
    EXPECT_EQ(addOn_.exported.registerInterface(), APIERR_GENERAL);
    EXPECT_EQ(addOn_.exported.freeData(), APIERR_GENERAL);
    EXPECT_EQ(*addOn_->gOwnClientPtr, client);
    *addOn_->gImpList_Inited = 1;
}

TEST_F(Forwarders, ClientHandleIsGoneAfterTheEnd) {
    EXPECT_EQ(*addOn_->gOwnClientPtr, client);
    EXPECT_EQ(addOn_.exported.freeData(), NoError);
    EXPECT_EQ(*addOn_->gOwnClientPtr, nullptr);
}

}  // namespace
