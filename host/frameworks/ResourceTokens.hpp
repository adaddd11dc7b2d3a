#pragma once
// The words of one line of a resource definition.

#include "UniString.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace frameworks {

struct Token {
    enum class Kind { Word, Text };
    Kind kind = Kind::Word;
    std::string word;    ///< Of a word.
    GS::UniString text;  ///< Of a quoted text, its escapes resolved.
};

/// Cuts a line into its tokens. A comment line and a blank line have none.
/// @param fault  receives what is wrong, if anything is; the tokens up to there are returned.
std::vector<Token> tokenize(std::string_view line, std::string& fault);

}  // namespace frameworks
