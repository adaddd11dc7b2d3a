#pragma once
// Walking over the tokens of the clear-text encoding. Used both for single instances (Instance.hpp) and, over the whole
// file, wherever the index has to look closely.

#include "model/step/syntax/Characters.hpp"
#include "model/step/syntax/Value.hpp"
#include "text/Message.hpp"

#include <string_view>
#include <vector>

namespace model::step {

/// A place in a text and the first thing found wrong there. Every function below that returns false has said what. The
/// text is not owned.
struct Cursor {
    const char* at;
    const char* end;
    text::Phrase problem;

    explicit Cursor(std::string_view text) : at(text.data()), end(text.data() + text.size()) {}
    bool atEnd() const { return at == end; }
    bool sees(char c) const { return at != end && *at == c; }
    bool fail(text::Phrase what) {
        problem = what;
        return false;
    }

    // What was found out about comments, null for nothing yet. A broken file can make the same far-away end the answer
    // for each of its lines; looking it up anew each time would take time with the square of their number.
    const char* commentSearchedFrom = nullptr;  ///< Where the last search began,
    const char* commentEnd = nullptr;           ///< and the end that it found.
    const char* unclosedFrom = nullptr;         ///< No comment that begins here or later is closed.
    /// From here on only blanks and comments stand before one that is not closed: passing them is in vain.
    const char* blanksInVainFrom = nullptr;
};

/// Passes what may stand between any two tokens: blanks, comments and the print control directives \N\ and \F\.
/// @return false where a comment is not closed; the cursor stands before it.
bool skipBlanks(Cursor& cursor);
/// Passes the string that begins here. Its end is told by apostrophes alone, whatever code page its bytes are in.
/// @return false where it is not closed; all up to the end was then looked at.
bool skipString(Cursor& cursor);
/// Passes "( ... )" without looking at what the elements are.
bool skipGroup(Cursor& cursor);
/// The value that begins here. Where it is no value, the bytes up to the next comma or parenthesis as Malformed.
/// @return false where not even its end can be told.
bool scanValue(Cursor& cursor, Value& value);
/// "( a, b )" as its elements, added to those there. @param elements  null where only the end matters.
bool scanList(Cursor& cursor, std::vector<Value>* elements);
/// Letters, digits and underscores, behind an optional '!'; empty where there are none.
std::string_view scanKeyword(Cursor& cursor);
/// "#12". 0 where it is none, with the problem told. Leading zeros count for nothing; ids fill 64 bits.
InstanceId scanId(Cursor& cursor);
/// A whole instance, semicolon included. @param arguments  may be null.
struct InstanceHead {
    InstanceId id = 0;
    std::string_view keyword;
    bool complex = false;
};
bool scanInstance(Cursor& cursor, InstanceHead& head, std::vector<Value>* arguments);

}  // namespace model::step
