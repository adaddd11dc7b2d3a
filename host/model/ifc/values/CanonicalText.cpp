#include "model/ifc/values/CanonicalText.hpp"

#include "model/ifc/values/InstanceScan.hpp"
#include "model/step/syntax/Characters.hpp"
#include "model/step/syntax/StringDecoder.hpp"
#include "text/Unicode.hpp"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace model::ifc {

namespace {

bool isNumberCharacter(char c) {
    return step::isDigit(c) || c == '.' || c == '+' || c == '-' || c == 'E' || c == 'e';
}

bool isPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 32 && c <= 126 && c != '\\'; });
}

class Writer {
public:
    Writer(std::string_view text, std::uint64_t arguments, const ReferenceWriter& reference, std::string& out)
        : text_(text), arguments_(arguments), reference_(reference), out_(out) {}

    void run() {
        while (at_ < text_.size() && !finished_) token();
    }

private:
    bool wanted() const { return depth_ > 0 && (arguments_ >> std::min(argument_, LastArgument) & 1U) != 0; }
    char here() const { return text_[at_]; }

    void token();
    void mark(char c);
    void string();
    void binary();
    void number();
    void word();
    void enumeration();
    void comment();
    void reference();

    /// A part of unknown length, so that no two sequences of parts give one text.
    void append(char kind, std::string_view content) {
        const std::uint64_t size = content.size();
        char length[sizeof size];
        std::memcpy(length, &size, sizeof size);
        out_.push_back(kind);
        out_.append(length, sizeof length);
        out_.append(content);
    }
    /// From here on as far as it goes.
    template <class Predicate>
    std::string_view take(const Predicate& belongs) {
        const std::size_t begin = at_;
        while (at_ < text_.size() && belongs(text_[at_])) ++at_;
        return text_.substr(begin, at_ - begin);
    }

    std::string_view text_;
    std::uint64_t arguments_;
    const ReferenceWriter& reference_;
    std::string& out_;
    std::size_t at_ = 0;
    unsigned depth_ = 0, argument_ = 0;
    bool finished_ = false;
    std::u16string decoded_;
};

void Writer::token() {
    const char c = here();
    if (c == '\'') return string();
    if (c == '"') return binary();
    if (c == '#') return reference();
    if (c == '.') return enumeration();
    if (c == '/' && text_.substr(at_).starts_with("/*")) return comment();
    if (step::isDigit(c) || c == '-' || c == '+') return number();
    if (step::isKeywordCharacter(c)) return word();
    mark(c);
    ++at_;
}

void Writer::mark(char c) {
    if (step::isBlank(c)) return;
    if (c == '(') ++depth_;
    if (c == ')') finished_ = depth_ <= 1;
    if (wanted()) out_.push_back(c);
    if (c == ')' && !finished_) --depth_;
    if (c == ',' && depth_ == 1) ++argument_;
}

void Writer::string() {
    const std::size_t begin = at_++;
    while (at_ < text_.size()) {
        if (here() == '\'' && !(at_ + 1 < text_.size() && text_[at_ + 1] == '\'')) break;
        at_ += here() == '\'' ? 2U : 1U;
    }
    at_ = std::min(at_ + 1, text_.size());
    if (!wanted()) return;
    const std::string_view quoted = text_.substr(begin, at_ - begin);
    // Nearly all strings are, and need no decoding.
    if (quoted.size() >= 2 && isPlain(quoted) && quoted.substr(1, quoted.size() - 2).find('\'') == quoted.npos)
        return append('\'', quoted.substr(1, quoted.size() - 2));
    step::decodeString(quoted, decoded_);
    append('\'', text::toUtf8(decoded_));
}

void Writer::binary() {
    const std::size_t end = std::min(text_.find('"', at_ + 1), text_.size() - 1);
    if (wanted()) append('"', text_.substr(at_, end - at_));
    at_ = end + 1;
}

/// "9", "9." and "9.0" are one value, which each program writes in its way.
void Writer::number() {
    const std::string_view digits = take(isNumberCharacter);
    if (!wanted()) return;
    const char* begin = digits.data() + (digits.front() == '+' ? 1 : 0);
    double value = 0;
    const auto [end, error] = std::from_chars(begin, digits.data() + digits.size(), value);
    // An integer that a double cannot hold stays what it is.
    constexpr std::size_t MostDigits = 15;
    const bool real = digits.find_first_of(".Ee") != std::string_view::npos || digits.size() <= MostDigits;
    if (error != std::errc() || !real) return append('n', digits);
    if (value == 0) value = 0;  // -0. is 0.
    char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    out_.push_back('r');
    out_.append(bytes, sizeof bytes);
}

/// Keywords in any case are the same, as everywhere here.
void Writer::word() {
    const std::string_view letters = take(step::isKeywordCharacter);
    if (wanted()) append('k', text::toUpperCase(letters));
}

void Writer::enumeration() {
    ++at_;
    const std::string_view item = take(step::isKeywordCharacter);
    if (at_ < text_.size() && here() == '.') ++at_;
    if (wanted()) append('.', text::toUpperCase(item));
}

void Writer::comment() {
    const std::size_t end = text_.find("*/", at_ + 2);
    at_ = end == std::string_view::npos ? text_.size() : end + 2;
}

void Writer::reference() {
    const std::size_t begin = at_++;
    take(step::isDigit);
    if (!wanted()) return;
    out_.push_back('#');
    reference_(text_.substr(begin, at_ - begin), out_);
}

}  // namespace

void appendCanonical(std::string_view instanceText, std::uint64_t arguments, const ReferenceWriter& reference,
                     std::string& out) {
    Writer(instanceText, arguments, reference, out).run();
}

}  // namespace model::ifc
