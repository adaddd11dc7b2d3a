#include "fuzz/Checks.hpp"
#include "model/step/syntax/StringDecoder.hpp"
#include "model/step/syntax/StringEncoder.hpp"

namespace fuzz {

using namespace model::step;

void checkString(std::string_view bytes) {
    const std::string quoted = "'" + std::string(bytes) + "'";
    std::u16string text;
    const Decoding how = decodeString(quoted, text);
    require(text.size() <= quoted.size() * 2, "a string grows while it is decoded");
    if (how == Decoding::Undecodable) return;
    const std::string encoded = encodeString(text);
    for (const char c : encoded) require(c >= 32 && c <= 126, "an encoded string is not ASCII");
    std::u16string again;
    require(decodeString(encoded, again) == Decoding::Exact, "an encoded string is not decoded exactly");
    require(again == text, "an encoded string is decoded to another text");
    require(encodeString(again) == encoded, "a text has two encodings");
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkString)
