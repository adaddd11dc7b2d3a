// Clauses TableSlots and EmptySlots.

#include "services/FunctionTable.hpp"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <string>

namespace {

struct Listed {
    HostSlot slot;
    const char* name;
};
constexpr Listed ListedSlots[] = {
#define ACAPI_SLOT(number, name, result, parameters) {HostSlot::name, #name},
#include "ACAPISlots.def"
#undef ACAPI_SLOT
};

std::array<HostFunction, HostTableSize> filledTable() {
    std::array<HostFunction, HostTableSize> table;
    table.fill([] {});  // Whatever was there before.
    host::fillFunctionTable(table.data());
    return table;
}

TEST(TableSlots, ListedSlotIsFilledUnlessItIsEmptyForAReason) {
    const auto table = filledTable();
    for (const Listed& slot : ListedSlots) {
        const char* const reason = host::reasonForEmptySlot(slot.slot);
        EXPECT_EQ(table[static_cast<std::size_t>(slot.slot)] == nullptr, reason != nullptr) << slot.name;
    }
}

TEST(TableSlots, EachSlotHasAFunctionOfItsOwn) {
    std::set<HostFunction> seen;
    for (const HostFunction function : filledTable()) {
        if (function == nullptr) continue;
        EXPECT_TRUE(seen.insert(function).second);
    }
    EXPECT_EQ(seen.size(), 15U);
}

// The numbers are what binaries of add-ons were built with: this copy of them is here to notice a change of the list.
TEST(TableSlots, NumbersAreTheOnesThatAddOnsWereBuiltWith) {
    const std::map<std::string, int> numbers = {
        {"Register_SupportedService", 0},
        {"Register_RequiredService", 1},
        {"Register_Menu", 10},
        {"Register_Subtype", 13},
        {"Install_MenuHandler", 32},
        {"GetUtilityFunctionSet", 46},
        {"GetProductRegistry", 50},
        {"WriteReport", 65},
        {"CallUndoableCommand", 67},
        {"Environment", 76},
        {"Interface", 77},
        {"Goodies", 78},
        {"Element_Get", 149},
        {"Element_GetHeader", 203},
        {"EDB_GetElemRegistry", 311},
        {"EDB_GetElemDatabase", 313},
        {"PStatus", 316},
        {"Element_GetIFCProperties", 416},
        {"Element_SetIFCProperty", 417},
        {"Element_GetIFCAttributes", 419},
        {"Element_SetIFCAttribute", 420},
        {"Element_GetIFCClassificationReferences", 421},
        {"Element_SetIFCClassificationReference", 422},
    };
    std::map<std::string, int> found;
    for (const Listed& slot : ListedSlots) found[slot.name] = static_cast<int>(slot.slot);
    EXPECT_EQ(found, numbers);
}

TEST(EmptySlots, UnlistedSlotsAreNull) {
    auto table = filledTable();
    for (const Listed& slot : ListedSlots) table[static_cast<std::size_t>(slot.slot)] = nullptr;
    for (std::size_t i = 0; i < table.size(); ++i) EXPECT_EQ(table[i], nullptr) << i;
}

TEST(EmptySlots, EachHasAReason) {
    int empty = 0;
    for (const Listed& slot : ListedSlots) {
        const char* const reason = host::reasonForEmptySlot(slot.slot);
        if (reason == nullptr) continue;
        ++empty;
        EXPECT_GT(std::string(reason).size(), 20U) << slot.name;
    }
    EXPECT_EQ(empty, 8);
}

}  // namespace
