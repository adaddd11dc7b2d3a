#include "model/step/syntax/StringEncoder.hpp"

#include "text/Unicode.hpp"

namespace model::step {

namespace {

enum class Run : std::uint8_t { Plain, Units, Scalars };

Run runOf(char32_t character) {
    if (character >= 32 && character <= 126) return Run::Plain;
    return character <= 0xFFFF ? Run::Units : Run::Scalars;
}

void appendHex(std::string& out, char32_t number, int digits) {
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        out.push_back("0123456789ABCDEF"[(number >> static_cast<unsigned>(shift)) & 15U]);
}

/// Readers are only bound to understand a run that is closed before anything else follows.
void changeRun(std::string& out, Run from, Run to) {
    if (from == to) return;
    if (from != Run::Plain) out += "\\X0\\";
    if (to == Run::Units) out += "\\X2\\";
    if (to == Run::Scalars) out += "\\X4\\";
}

void appendCharacter(std::string& out, char32_t character, Run run) {
    if (run == Run::Units) return appendHex(out, character, 4);
    if (run == Run::Scalars) return appendHex(out, character, 8);
    if (character == U'\'' || character == U'\\') out.push_back(static_cast<char>(character));
    out.push_back(static_cast<char>(character));
}

}  // namespace

std::string encodeString(std::u16string_view text) {
    std::string out = "'";
    Run run = Run::Plain;
    for (std::size_t i = 0; i < text.size();) {
        const text::Character next = text::nextCharacter(text, i);
        // Half a surrogate pair is no character and has no encoding.
        const char32_t character = static_cast<char32_t>(next == text::NoCharacter ? text::ReplacementCharacter : next);
        const Run needed = runOf(character);
        changeRun(out, run, needed);
        appendCharacter(out, character, needed);
        run = needed;
    }
    changeRun(out, run, Run::Plain);
    out.push_back('\'');
    return out;
}

}  // namespace model::step
