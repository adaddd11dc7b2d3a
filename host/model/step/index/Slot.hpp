#pragma once
// How instances and keywords of an open file are numbered.

#include <cstdint>

namespace model::step {

/// An instance's place in the file's index: file order, new instances behind. Valid as long as the StepFile lives;
/// undone new instances keep their place but are absent.
using Slot = std::uint32_t;
inline constexpr Slot NoSlot = 0xFFFFFFFFU;  ///< No instance. Also the limit: a file holds fewer than 2^32 - 1.

/// A keyword as the file's index knows it: upper case, numbered in order of first appearance.
using KeywordCode = std::uint16_t;
inline constexpr KeywordCode NoKeyword = 0xFFFFU;  ///< Of a complex instance, which has several keywords.

}  // namespace model::step
