#pragma once
// What a person may have meant by a word that nothing has as its name.

#include <span>
#include <string>
#include <string_view>

namespace console {

/// The candidate with the fewest letters wrong, case not counted, or the only one that begins with the word. Of an item
/// such as FireRating[WallCommon] the name before the bracket will do. Empty where none is near.
std::string nearest(std::string_view word, std::span<const std::string> candidates);

/// "; did you mean import?", or empty where nothing is near.
std::string didYouMean(std::string_view word, std::span<const std::string> candidates);

}  // namespace console
