#pragma once
// The real add-on's image without a host: the two entry points, and a function table that the test fills itself. For
// tests of what the add-on does with each answer of a host, the impossible ones included.
//
//     RawAddOn addOn;
//     addOn.put<HostSlot::Register_Menu>([](const API_MenuRegistration*) -> GSErrCode { return APIERR_GENERAL; });
//     addOn.bind();
//     EXPECT_EQ(addOn.exported.registerInterface(), APIERR_GENERAL);

#include "HostTable.hpp"

#include <array>
#include <filesystem>

namespace testing_support {

class RawAddOn {
public:
    /// Loads the image of the build's bundle, or of another one, and reads its record. Throws where that fails.
    RawAddOn();
    explicit RawAddOn(const std::filesystem::path& bundle);
    /// Unloads the image: its end hook runs.
    ~RawAddOn();
    RawAddOn(const RawAddOn&) = delete;
    RawAddOn& operator=(const RawAddOn&) = delete;

    template <HostSlot slot>
    void put(typename HostSlotFunction<slot>::Type function) {
        table[static_cast<std::size_t>(slot)] = reinterpret_cast<HostFunction>(function);
    }
    /// Hands the table over. @return the add-on's answer.
    GSErrCode bind();
    /// Begins the add-on's use, with this handle.
    GSErrCode initialize(void* client);
    /// An exported symbol, or null.
    void* symbol(const char* name) const;

    ExportedFunctions exported{};
    std::array<HostFunction, HostTableSize> table{};  ///< All slots empty at first.

private:
    void* image_;
};

}  // namespace testing_support
