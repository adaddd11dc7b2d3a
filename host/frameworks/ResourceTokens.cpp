#include "ResourceTokens.hpp"

#include "NarrowText.hpp"
#include "text/Unicode.hpp"

#include <charconv>

namespace frameworks {

namespace {

constexpr std::string_view Blanks = " \t";

class Tokenizer {
public:
    Tokenizer(std::string_view line, std::string& report) : rest_(line), fault_(report) {}

    /// A '#' begins a comment at the line's beginning only: a word further on may hold one.
    std::vector<Token> run() {
        std::vector<Token> tokens;
        for (skipBlanks(); fault_.empty() && !rest_.empty() && !(tokens.empty() && rest_.front() == '#'); skipBlanks())
            tokens.push_back(rest_.front() == '"' ? readText() : readWord());
        return tokens;
    }

private:
    void skipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(Blanks), rest_.size())); }

    Token readWord() {
        Token token;
        token.word = rest_.substr(0, rest_.find_first_of(" \t\""));
        rest_.remove_prefix(token.word.size());
        return token;
    }

    Token readText() {
        std::u16string units;
        rest_.remove_prefix(1);
        while (fault_.empty()) {
            const std::size_t plain = rest_.find_first_of("\"\\");
            if (plain == rest_.npos) {
                fault_ = "the text has no closing quote";
                break;
            }
            append(units, rest_.substr(0, plain));
            const bool closed = rest_[plain] == '"';
            rest_.remove_prefix(plain + 1);
            if (closed) break;
            readEscape(units);
        }
        if (fault_.empty() && !rest_.empty() && Blanks.find(rest_.front()) == Blanks.npos)
            fault_ = "a blank is missing behind a text";
        return {Token::Kind::Text, {}, GS::UniString(units)};
    }

    static void append(std::u16string& units, std::string_view plain) {
        const icu::UnicodeString decoded = decodeNarrow(plain);
        units.append(decoded.getBuffer(), static_cast<std::size_t>(decoded.length()));
    }

    void readEscape(std::u16string& units) {
        const char letter = rest_.empty() ? '\0' : rest_.front();
        if (!rest_.empty()) rest_.remove_prefix(1);
        switch (letter) {
            case '"':
            case '\\':
                units += static_cast<char16_t>(letter);
                return;
            case 'n':
                units += u'\n';
                return;
            case 't':
                units += u'\t';
                return;
            case 'u':
                readCodeUnit(units);
                return;
            default:
                fault_ = "an unknown escape: use \\\" \\\\ \\n \\t or \\uXXXX";
                return;
        }
    }

    void readCodeUnit(std::u16string& units) {
        unsigned value = 0;
        const std::string_view digits = rest_.substr(0, 4);
        const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
        if (digits.size() < 4 || parsed.ptr != digits.data() + 4 || value == 0) {
            fault_ = "\\u needs four hexadecimal digits, not all zero";
            return;
        }
        units += static_cast<char16_t>(value);
        rest_.remove_prefix(4);
    }

    std::string_view rest_;
    std::string& fault_;
};

}  // namespace

std::vector<Token> tokenize(std::string_view line, std::string& fault) {
    fault.clear();
    if (!text::isWellFormed(line) || line.find('\0') != line.npos) {
        fault = "the line is not UTF-8 text";
        return {};
    }
    return Tokenizer(line, fault).run();
}

}  // namespace frameworks
