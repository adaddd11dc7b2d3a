#include "selection/Syntax.hpp"
#include "text/Guid.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <algorithm>
#include <utility>

namespace selection {

namespace {

using namespace std::string_view_literals;

/// What ends a word that stands without quotes. A value may hold what only a name's end would be taken for.
constexpr std::string_view EndsName = " \t\r\n,+.=!*<>\"/";
constexpr std::string_view EndsValue = " \t\r\n,=\"";
constexpr std::string_view Blanks = " \t\r\n";

/// Thrown inside the parser only: every rule of the syntax may end the whole of it.
struct Mistake {
    std::size_t place;
    std::string reason;
};

bool namesInstance(std::string_view name) {
    return text::fromGlobalId(name).has_value() || text::parseGuid(name).has_value();
}

class Parser {
public:
    explicit Parser(std::string_view text) : text_(text) {}

    std::vector<Group> run() {
        std::vector<Group> groups;
        do {
            groups.push_back(group());
        } while (takeAfterBlanks("+") && !atEnd());
        if (!atEnd()) throw Mistake{at_, text::message("a comma or + is missing")};
        return groups;
    }

private:
    Group group() {
        Group facets;
        do {
            facets.push_back(facet());
        } while (takeAfterBlanks(","));
        return facets;
    }

    Facet facet() {
        skipBlanks();
        Facet facet;
        const std::size_t start = at_;
        facet.negated = take("!");
        skipBlanks();
        const bool plain = !atEnd() && text_[at_] != '"' && text_[at_] != '/';
        facet.name = word(EndsName, text::phrase("a class, an attribute, a property or another facet"));
        skipBlanks();
        if (plain && !atComparison() && !startsWith(".")) return chosenByItself(std::move(facet));
        if (facet.negated) throw Mistake{start, text::message("! stands before a class, a GUID or a comparison")};
        if (take(".")) {
            facet.set = std::exchange(facet.name, word(EndsName, text::phrase("the name of a property")));
            facet.subject = Subject::Property;
        } else {
            facet.subject = plain ? subjectOf(facet.name) : Subject::Item;
            // An expression in front can only be the name of a set.
            if (facet.name.pattern)
                throw Mistake{facet.name.place, text::message("behind /a set/ a point and a property belong")};
        }
        facet.comparison = comparison();
        return facet;
    }

    /// A class or an instance.
    static Facet chosenByItself(Facet facet) {
        const std::string& name = facet.name.text;
        if (namesInstance(name)) {
            facet.subject = Subject::Instance;
        } else if (name.size() > 3 && name.starts_with("Ifc")) {
            facet.subject = Subject::Class;
        } else {
            throw Mistake{facet.name.place + name.size(), text::message("a comparison such as =NULL is missing")};
        }
        return facet;
    }

    static Subject subjectOf(const Word& name) {
        static constexpr std::pair<std::string_view, Subject> Table[] = {{"type", Subject::Type},
                                                                         {"material", Subject::Material},
                                                                         {"classification", Subject::Classification},
                                                                         {"location", Subject::Location}};
        for (const auto& [text, subject] : Table) {
            if (name.text == text) return subject;
        }
        for (const std::string_view unknown : {"group"sv, "parent"sv, "query:"sv}) {
            if (name.text.starts_with(unknown) && (unknown.back() == ':' || name.text == unknown)) {
                throw Mistake{name.place, text::message("{} is a facet that is not known here", unknown)};
            }
        }
        return Subject::Item;
    }

    Comparison comparison() {
        static constexpr std::pair<std::string_view, Operator> Table[] = {
            {"*=", Operator::Contains},    {">=", Operator::GreaterOrEqual},
            {"<=", Operator::LessOrEqual}, {">", Operator::Greater},
            {"<", Operator::Less},         {"=", Operator::Equal}};
        skipBlanks();
        Comparison result;
        const std::size_t start = at_;
        result.negated = take("!");
        skipBlanks();
        const auto found = std::ranges::find_if(Table, [this](const auto& row) { return take(row.first); });
        if (found == std::end(Table))
            throw Mistake{at_, text::message("a comparison is missing: =, !=, *=, !*=, >, >=, < or <=")};
        result.what = found->second;
        if (result.negated && result.what != Operator::Equal && result.what != Operator::Contains) {
            throw Mistake{start, text::message("! stands before = and *= only")};
        }
        skipBlanks();
        const bool plain = !atEnd() && text_[at_] != '"' && text_[at_] != '/';
        result.value = word(EndsValue, text::phrase("a value"));
        if (plain) endAtPlus(result.value);
        if (plain) result.special = specialOf(result.value.text);
        return result;
    }

    /// A plus sign is a part of a word, as in C+D, but not of a number or one of the special words.
    void endAtPlus(Word& value) {
        const std::size_t plus = value.text.find('+', 1);
        if (plus == std::string::npos) return;
        const std::string_view before = std::string_view(value.text).substr(0, plus);
        const bool decimal =
            before.find('.') != std::string_view::npos &&
            before.find_first_not_of("0123456789.", before.find_first_of("+-") == 0 ? 1 : 0) == std::string_view::npos;
        if (specialOf(before) == Special::None && !decimal) return;
        at_ = value.place + plus;
        value.text.resize(plus);
    }

    static Special specialOf(std::string_view text) {
        if (text == "NULL") return Special::Null;
        if (text == "TRUE") return Special::True;
        return text == "FALSE" ? Special::False : Special::None;
    }

    Word word(std::string_view ends, text::Phrase what) {
        skipBlanks();
        if (startsWith("\"")) return quoted();
        if (startsWith("/")) return expression();
        const std::size_t end = std::min(text_.find_first_of(ends, at_), text_.size());
        if (end == at_) throw Mistake{at_, text::message("{} is missing", what)};
        const std::size_t start = std::exchange(at_, end);
        return {std::string(text_.substr(start, end - start)), {}, start};
    }

    Word quoted() {
        Word word;
        word.place = at_++;
        for (; !atEnd() && text_[at_] != '"'; ++at_) {
            // The quote behind the backslash is meant, and ends nothing.
            if (text_.substr(at_).starts_with("\\\"")) ++at_;
            word.text += text_[at_];
        }
        if (atEnd()) throw Mistake{word.place, text::message("a quote is open")};
        ++at_;
        return word;
    }

    Word expression() {
        const std::size_t start = at_++;
        const std::size_t first = at_;
        while (!atEnd() && text_[at_] != '/') at_ += text_[at_] == '\\' && at_ + 1 < text_.size() ? 2U : 1U;
        if (atEnd()) throw Mistake{start, text::message("a / is open")};
        const std::string_view inner = text_.substr(first, at_ - first);
        ++at_;
        auto pattern = Pattern::compile(inner);
        if (!pattern) throw Mistake{start, pattern.error().message};
        return {std::string(inner), std::move(*pattern), start};
    }

    bool atEnd() const { return at_ >= text_.size(); }
    bool startsWith(std::string_view token) const {
        return text_.substr(std::min(at_, text_.size())).starts_with(token);
    }
    bool atComparison() const { return !atEnd() && "=!*<>"sv.find(text_[at_]) != std::string_view::npos; }
    bool take(std::string_view token) {
        if (!startsWith(token)) return false;
        at_ += token.size();
        return true;
    }
    /// And the blanks behind it.
    bool takeAfterBlanks(std::string_view token) {
        skipBlanks();
        const bool taken = take(token);
        skipBlanks();
        return taken;
    }
    void skipBlanks() { at_ = std::min(text_.find_first_not_of(Blanks, at_), text_.size()); }

    std::string_view text_;
    std::size_t at_ = 0;
};

/// Of UTF-8, from 1.
std::size_t characterAt(std::string_view text, std::size_t place) {
    return text::characterCount(text.substr(0, place)) + 1;
}

}  // namespace

model::Error complaint(std::string_view text, std::size_t place, const std::string& reason) {
    place = std::min(place, text.size());
    return {model::ErrorKind::BadValue,
            text::message("{}, at character {}: {}<<here>>{}", reason, characterAt(text, place), text.substr(0, place),
                          text.substr(place))};
}

model::Result<Expression> parse(std::string_view text) {
    try {
        return Expression{std::string(text), Parser(text).run()};
    } catch (const Mistake& mistake) {
        return complaint(text, mistake.place, mistake.reason);
    }
}

}  // namespace selection
