#include "model/step/syntax/StringDecoder.hpp"
#include "model/step/syntax/Characters.hpp"
#include "model/step/syntax/CodePages.hpp"
#include "text/Unicode.hpp"

#include <unicode/utf16.h>

namespace model::step {

namespace {

/// Reads what stands between the quotes, one character or directive at a time.
class StringDecoder {
public:
    StringDecoder(std::string_view body, std::u16string& target) : text_(body), out_(target) {}

    Decoding run() {
        while (at_ < text_.size() && result_ != Decoding::Undecodable) step();
        // Only here: a pair may come from two runs, for some programs write each unit by itself.
        if (!text::isWellFormed(out_)) result_ = Decoding::Undecodable;
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
            // Four digits are a unit of UTF-16, half a pair perhaps; eight are a character.
            if (digits == 8 && U_IS_SURROGATE(number)) return fail();
            text::appendCharacter(out_, static_cast<text::Character>(number));
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
        // \S\'' is one character, the section sign in the first page: its apostrophe is doubled like any other.
        if (c == '\'' && !ahead().starts_with("''")) return fail();
        at_ += c == '\'' ? 2 : 1;
        const char16_t character = latinCharacter(page_, static_cast<unsigned char>(c + 128));
        if (character == 0) return fail();
        out_.push_back(character);
    }

    void rawByte() {
        guess();
        std::size_t next = at_;
        const text::Character character = text::nextCharacter(text_, next);
        if (character == text::NoCharacter) {
            out_.push_back(windowsCharacter(static_cast<unsigned char>(text_[at_])));
            ++at_;
        } else {
            text::appendCharacter(out_, character);
            at_ = next;
        }
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
