#include "model/step/Characters.hpp"
#include "model/step/CodePages.hpp"
#include "model/step/StepSyntax.hpp"

#include <unicode/utf16.h>

namespace model::step {

namespace {

struct Utf8Character {
    std::int32_t codePoint = 0;
    std::size_t length = 0;  ///< 0 where no well-formed sequence begins.
};

Utf8Character readUtf8(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80) return {first, 1};
    const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) return {};
    std::int32_t codePoint = first & (0x7F >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80) return {};
        codePoint = codePoint << 6 | (next & 0x3F);
    }
    constexpr std::int32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (codePoint < smallest[length] || codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint < 0xE000)) return {};
    return {codePoint, length};
}

/// Reads what stands between the quotes, one character or directive at a time.
class StringDecoder {
public:
    StringDecoder(std::string_view body, std::u16string& target) : text(body), out(target) {}

    Decoding run() {
        while (at < text.size() && result != Decoding::Undecodable) step();
        if (result != Decoding::Undecodable && hasLoneSurrogate()) result = Decoding::Undecodable;
        return result;
    }

private:
    void step() {
        const char c = text[at];
        if (c == '\'') {
            apostrophe();
        } else if (c == '\\') {
            directive();
        } else if (static_cast<unsigned char>(c) > 126) {
            rawByte();
        } else {
            out.push_back(static_cast<char16_t>(c));
            ++at;
        }
    }

    std::string_view ahead() const { return text.substr(at); }
    void fail() { result = Decoding::Undecodable; }
    void guess() {
        if (result == Decoding::Exact) result = Decoding::Guessed;
    }

    void apostrophe() {
        if (!ahead().starts_with("''")) return fail();
        out.push_back(u'\'');
        at += 2;
    }

    void directive() {
        const std::string_view next = ahead();
        if (next.starts_with("\\\\")) {
            out.push_back(u'\\');
            at += 2;
        } else if (next.starts_with("\\X2\\")) {
            hexRun(4);
        } else if (next.starts_with("\\X4\\")) {
            hexRun(8);
        } else if (next.starts_with("\\X\\")) {
            singleByte();
        } else if (next.starts_with("\\S\\")) {
            shifted();
        } else if (next.size() >= 4 && next[1] == 'P' && next[3] == '\\' && next[2] >= 'A' && next[2] <= 'I') {
            page = next[2] - 'A' + 1;
            at += 4;
        } else {
            // Windows paths that nobody escaped are the usual case.
            out.push_back(u'\\');
            ++at;
            guess();
        }
    }

    /// The number of `digits` hexadecimal digits here, or -1 where there are fewer.
    std::int64_t hexNumber(std::size_t digits) {
        if (text.size() - at < digits) return -1;
        std::int64_t number = 0;
        for (std::size_t i = 0; i < digits; ++i) {
            const int digit = hexDigit(text[at + i]);
            if (digit < 0) return -1;
            number = number * 16 + digit;
        }
        at += digits;
        return number;
    }

    void hexRun(std::size_t digits) {
        at += 4;
        if (ahead().starts_with("\\X0\\")) return fail();
        while (!ahead().starts_with("\\X0\\")) {
            const std::int64_t number = hexNumber(digits);
            if (number < 0 || number > 0x10FFFF) return fail();
            if (digits == 8 && U_IS_SURROGATE(number)) return fail();
            appendCodePoint(static_cast<UChar32>(number));
        }
        at += 4;
    }

    void singleByte() {
        at += 3;
        const std::int64_t number = hexNumber(2);
        if (number < 0) return fail();
        out.push_back(static_cast<char16_t>(number));
    }

    void shifted() {
        at += 3;
        if (at == text.size()) return fail();
        const char c = text[at];
        if (c < 32 || c > 126) return fail();
        if (c == '\'' && !ahead().starts_with("''")) return fail();
        at += c == '\'' ? 2 : 1;
        const char16_t character = latinCharacter(page, static_cast<unsigned char>(c + 128));
        if (character == 0) return fail();
        out.push_back(character);
    }

    void rawByte() {
        guess();
        const Utf8Character character = readUtf8(ahead());
        if (character.length != 0) {
            appendCodePoint(character.codePoint);
            at += character.length;
        } else {
            out.push_back(windowsCharacter(static_cast<unsigned char>(text[at])));
            ++at;
        }
    }

    void appendCodePoint(UChar32 character) {
        if (character > 0xFFFF) {
            out.push_back(static_cast<char16_t>(U16_LEAD(character)));
            out.push_back(static_cast<char16_t>(U16_TRAIL(character)));
        } else {
            out.push_back(static_cast<char16_t>(character));
        }
    }

    /// Half a surrogate pair is no character. Pairs may come from two runs: some programs write each unit by itself.
    bool hasLoneSurrogate() const {
        for (std::size_t i = 0; i < out.size(); ++i) {
            if (!U16_IS_SURROGATE(out[i])) continue;
            const bool pair = U16_IS_SURROGATE_LEAD(out[i]) && i + 1 < out.size() && U16_IS_TRAIL(out[i + 1]);
            if (!pair) return true;
            ++i;
        }
        return false;
    }

    std::string_view text;
    std::u16string& out;
    std::size_t at = 0;
    int page = 1;  ///< ISO 8859 part that \S\ stands for. A choice made in one string does not hold in the next.
    Decoding result = Decoding::Exact;
};

/// What is shown of a string that cannot be decoded: its bytes as they stand.
void rawText(std::string_view body, std::u16string& out) {
    out.clear();
    for (const char c : body) out.push_back(windowsCharacter(static_cast<unsigned char>(c)));
}

}  // namespace

Decoding decodeString(std::string_view quoted, std::u16string& out) {
    out.clear();
    if (quoted.size() < 2 || quoted.front() != '\'' || quoted.back() != '\'') {
        rawText(quoted, out);
        return Decoding::Undecodable;
    }
    const std::string_view body = quoted.substr(1, quoted.size() - 2);
    const Decoding result = StringDecoder(body, out).run();
    if (result == Decoding::Undecodable) rawText(body, out);
    return result;
}

}  // namespace model::step
