#pragma once
// Texts for people, in their language. A text stands in the source in English, where it is said; a program that speaks
// another language gives a function that knows the texts of that language. All texts of this kind are written in one of
// the calls below, by which a test finds them, so: whatever a person reads is a message, whatever another program or
// another part of this one reads (names, keys, file formats) is none.

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace text {

/// The text in the user's language; the text itself where that has none. Called on every thread on which there is
/// something to say, several at once; throws nothing but std::bad_alloc.
using Translator = std::string (*)(const char* english);

/// Null, as at the start, for English. May be called at any time, on any thread: what is said from then on is said
/// in the other language, what was said before stays.
void setTranslator(Translator translator);

/// A text to be said later, or to be compared: one in a table, or a column's title. phrase("...") is a text for people,
/// Phrase("...") a name that is the same in every language.
class Phrase {
public:
    constexpr Phrase() = default;
    /// @param english  a literal; not owned.
    constexpr explicit Phrase(const char* english) : english_(english) {}

    /// In the user's language; empty for none.
    std::string text() const;
    /// As in the source, for files and programs.
    constexpr const char* english() const { return english_; }
    constexpr explicit operator bool() const { return *english_ != '\0'; }
    friend constexpr bool operator==(const Phrase& a, const Phrase& b) {
        return std::string_view(a.english_) == b.english_;
    }

private:
    const char* english_ = "";
};

constexpr Phrase phrase(const char* english) {
    return Phrase(english);
}

/// The most that one message puts in.
inline constexpr std::size_t MostArguments = 10;

/// Walks over the places of a pattern: "{}" for the next argument, or "{0}" to "{9}" for that one, never both in one
/// pattern. Every other brace stands for itself.
/// @param visit  called with each argument's number and where its place begins and ends.
/// @return whether there is a place for each of `count` arguments, and for no others.
template <class Visit>
constexpr bool forEachPlace(std::string_view pattern, std::size_t count, Visit visit) {
    std::array<bool, MostArguments> used{};
    std::size_t next = 0;
    bool numbered = false;
    for (std::size_t at = pattern.find('{'); at != std::string_view::npos; at = pattern.find('{', at + 1)) {
        const std::string_view rest = pattern.substr(at + 1);
        const bool hasNumber = rest.size() > 1 && rest[0] >= '0' && rest[0] <= '9' && rest[1] == '}';
        if (!hasNumber && !rest.starts_with('}')) continue;
        const std::size_t argument = hasNumber ? static_cast<std::size_t>(rest[0] - '0') : next++;
        numbered = numbered || hasNumber;
        if (argument >= count || argument >= MostArguments || (numbered && next > 0)) return false;
        used[argument] = true;
        visit(argument, at, at + (hasNumber ? 3 : 2));
    }
    for (std::size_t i = 0; i < count; ++i)
        if (i >= MostArguments || !used[i]) return false;
    return true;
}

/// An English text with the places of `count` arguments; another number of them does not compile. Places are numbered
/// where one stands twice; a translation may number them anyhow, to put them into another order.
template <std::size_t count>
class Pattern {
public:
    consteval Pattern(const char* english) : english_(english) {
        if (!forEachPlace(english, count, [](std::size_t, std::size_t, std::size_t) {}))
            throw "the pattern has other places than there are arguments";
    }
    const char* english() const { return english_; }

private:
    const char* english_;
};

/// What is put into a message: a text, which is put in as it is, braces and all, or a whole number.
class Argument {
public:
    Argument(std::string_view text) : text_(text) {}
    Argument(const Phrase& phrase) : made_(phrase.text()), text_(made_) {}
    template <std::integral Number>
    requires(sizeof(Number) > 1) Argument(Number number) : made_(std::to_string(number)), text_(made_) {}
    Argument(const Argument&) = delete;

    std::string_view text() const { return text_; }

private:
    std::string made_;
    std::string_view text_;
};

/// The pattern in the user's language, with the arguments in their places. Where a translation lacks a place or has one
/// too many, it is passed over and the English text used: nothing of what is to be said is lost.
std::string fill(const char* english, std::initializer_list<std::string_view> arguments);

/// message("cannot open {}: {}", name, reason)
template <class... Arguments>
std::string message(Pattern<sizeof...(Arguments)> pattern, const Arguments&... arguments) {
    return fill(pattern.english(), {Argument(arguments).text()...});
}

/// counted("{} row of {} is lost", "{} rows of {} are lost", rows, name): the first text for a count of 1. The count is
/// the first argument.
template <class... Arguments>
std::string counted(Pattern<sizeof...(Arguments) + 1> one, Pattern<sizeof...(Arguments) + 1> many, std::uint64_t count,
                    const Arguments&... arguments) {
    return fill((count == 1 ? one : many).english(), {Argument(count).text(), Argument(arguments).text()...});
}

}  // namespace text
