#include "ResourceTokens.hpp"

#include "NarrowText.hpp"

#include <charconv>

namespace frameworks {

namespace {

constexpr std::string_view Blanks = " \t";

class Tokenizer {
public:
    Tokenizer(std::string_view line, std::string& report) : rest(line), fault(report) {}

    std::vector<Token> run() {
        std::vector<Token> tokens;
        for (skipBlanks(); fault.empty() && !rest.empty() && !(tokens.empty() && rest.front() == '#'); skipBlanks())
            tokens.push_back(rest.front() == '"' ? readText() : readWord());
        return tokens;
    }

private:
    void skipBlanks() { rest.remove_prefix(std::min(rest.find_first_not_of(Blanks), rest.size())); }

    Token readWord() {
        Token token;
        token.word = rest.substr(0, rest.find_first_of(" \t\""));
        rest.remove_prefix(token.word.size());
        return token;
    }

    Token readText() {
        std::u16string units;
        rest.remove_prefix(1);
        while (fault.empty()) {
            const std::size_t plain = rest.find_first_of("\"\\");
            if (plain == rest.npos) {
                fault = "the text has no closing quote";
                break;
            }
            append(units, rest.substr(0, plain));
            const bool closed = rest[plain] == '"';
            rest.remove_prefix(plain + 1);
            if (closed) break;
            readEscape(units);
        }
        if (fault.empty() && !rest.empty() && Blanks.find(rest.front()) == Blanks.npos)
            fault = "a blank is missing behind a text";
        return {Token::Kind::Text, {}, GS::UniString(units)};
    }

    static void append(std::u16string& units, std::string_view plain) {
        const icu::UnicodeString decoded = decodeNarrow(plain);
        units.append(decoded.getBuffer(), static_cast<std::size_t>(decoded.length()));
    }

    void readEscape(std::u16string& units) {
        const char letter = rest.empty() ? '\0' : rest.front();
        if (!rest.empty()) rest.remove_prefix(1);
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
                fault = "an unknown escape: use \\\" \\\\ \\n \\t or \\uXXXX";
                return;
        }
    }

    void readCodeUnit(std::u16string& units) {
        unsigned value = 0;
        const std::string_view digits = rest.substr(0, 4);
        const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
        if (digits.size() < 4 || parsed.ptr != digits.data() + 4 || value == 0) {
            fault = "\\u needs four hexadecimal digits, not all zero";
            return;
        }
        units += static_cast<char16_t>(value);
        rest.remove_prefix(4);
    }

    std::string_view rest;
    std::string& fault;
};

}  // namespace

std::vector<Token> tokenize(std::string_view line, std::string& fault) {
    fault.clear();
    if (!isWellFormed(line) || line.find('\0') != line.npos) {
        fault = "the line is not UTF-8 text";
        return {};
    }
    return Tokenizer(line, fault).run();
}

}  // namespace frameworks
