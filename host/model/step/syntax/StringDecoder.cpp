#include "model/step/syntax/StringDecoder.hpp"
#include "model/step/syntax/Characters.hpp"
#include "model/step/syntax/CodePages.hpp"

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
    constexpr std::int32_t Smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (codePoint < Smallest[length] || codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint < 0xE000)) return {};
    return {codePoint, length};
}

/// Reads what stands between the quotes, one character or directive at a time.
class StringDecoder {
public:
    StringDecoder(std::string_view body, std::u16string& target) : text_(body), out_(target) {}

    Decoding run() {
        while (at_ < text_.size() && result_ != Decoding::Undecodable) step();
        if (result_ != Decoding::Undecodable && hasLoneSurrogate()) result_ = Decoding::Undecodable;
        return result_;
    }

private:
    void step() {
        const char c = text_[at_];
        if (c == '\'') {
            apostrophe();
        } else if (c == '\\') {
            directive();
        } else if (static_cast<unsigned char>(c) > 126) {
            rawByte();
        } else {
            out_.push_back(static_cast<char16_t>(c));
            ++at_;
        }
    }

    std::string_view ahead() const { return text_.substr(at_); }
    void fail() { result_ = Decoding::Undecodable; }
    void guess() {
        if (result_ == Decoding::Exact) result_ = Decoding::Guessed;
    }

    void apostrophe() {
        if (!ahead().starts_with("''")) return fail();
        out_.push_back(u'\'');
        at_ += 2;
    }

    void directive() {
        const std::string_view next = ahead();
        if (next.starts_with("\\\\")) {
            out_.push_back(u'\\');
            at_ += 2;
        } else if (next.starts_with("\\X2\\")) {
            hexRun(4);
        } else if (next.starts_with("\\X4\\")) {
            hexRun(8);
        } else if (next.starts_with("\\X\\")) {
            singleByte();
        } else if (next.starts_with("\\S\\")) {
            shifted();
        } else if (next.size() >= 4 && next[1] == 'P' && next[3] == '\\' && next[2] >= 'A' && next[2] <= 'I') {
            page_ = next[2] - 'A' + 1;
            at_ += 4;
        } else {
            // Windows paths that nobody escaped are the usual case.
            out_.push_back(u'\\');
            ++at_;
            guess();
        }
    }

    /// The number of `digits` hexadecimal digits here, or -1 where there are fewer.
    std::int64_t hexNumber(std::size_t digits) {
        if (text_.size() - at_ < digits) return -1;
        std::int64_t number = 0;
        for (std::size_t i = 0; i < digits; ++i) {
            const int digit = hexDigit(text_[at_ + i]);
            if (digit < 0) return -1;
            number = number * 16 + digit;
        }
        at_ += digits;
        return number;
    }

    void hexRun(std::size_t digits) {
        at_ += 4;
        if (ahead().starts_with("\\X0\\")) return fail();
        while (!ahead().starts_with("\\X0\\")) {
            const std::int64_t number = hexNumber(digits);
            if (number < 0 || number > 0x10FFFF) return fail();
            if (digits == 8 && U_IS_SURROGATE(number)) return fail();
            appendCodePoint(static_cast<UChar32>(number));
        }
        at_ += 4;
    }

    void singleByte() {
        at_ += 3;
        const std::int64_t number = hexNumber(2);
        if (number < 0) return fail();
        out_.push_back(static_cast<char16_t>(number));
    }

    void shifted() {
        at_ += 3;
        if (at_ == text_.size()) return fail();
        const char c = text_[at_];
        if (c < 32 || c > 126) return fail();
        if (c == '\'' && !ahead().starts_with("''")) return fail();
        at_ += c == '\'' ? 2 : 1;
        const char16_t character = latinCharacter(page_, static_cast<unsigned char>(c + 128));
        if (character == 0) return fail();
        out_.push_back(character);
    }

    void rawByte() {
        guess();
        const Utf8Character character = readUtf8(ahead());
        if (character.length != 0) {
            appendCodePoint(character.codePoint);
            at_ += character.length;
        } else {
            out_.push_back(windowsCharacter(static_cast<unsigned char>(text_[at_])));
            ++at_;
        }
    }

    void appendCodePoint(UChar32 character) {
        if (character > 0xFFFF) {
            out_.push_back(static_cast<char16_t>(U16_LEAD(character)));
            out_.push_back(static_cast<char16_t>(U16_TRAIL(character)));
        } else {
            out_.push_back(static_cast<char16_t>(character));
        }
    }

    /// Half a surrogate pair is no character. Pairs may come from two runs: some programs write each unit by itself.
    bool hasLoneSurrogate() const {
        for (std::size_t i = 0; i < out_.size(); ++i) {
            if (!U16_IS_SURROGATE(out_[i])) continue;
            const bool pair = U16_IS_SURROGATE_LEAD(out_[i]) && i + 1 < out_.size() && U16_IS_TRAIL(out_[i + 1]);
            if (!pair) return true;
            ++i;
        }
        return false;
    }

    std::string_view text_;
    std::u16string& out_;
    std::size_t at_ = 0;
    int page_ = 1;  ///< ISO 8859 part that \S\ stands for. A choice made in one string does not hold in the next.
    Decoding result_ = Decoding::Exact;
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
