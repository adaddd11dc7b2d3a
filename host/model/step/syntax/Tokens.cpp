#include "model/step/syntax/Tokens.hpp"

#include "text/Message.hpp"

#include <charconv>
#include <cstring>

namespace model::step {

namespace {

std::string_view rest(const Cursor& cursor) {
    return {cursor.at, static_cast<std::size_t>(cursor.end - cursor.at)};
}

constexpr text::Phrase CommentNotClosed = text::phrase("a comment is not closed");

/// Looks up the end of the comment that begins here. @return false where it has none.
bool findCommentEnd(Cursor& cursor) {
    if (cursor.unclosedFrom != nullptr && cursor.at >= cursor.unclosedFrom) return false;
    const bool known = cursor.commentSearchedFrom != nullptr && cursor.at >= cursor.commentSearchedFrom &&
                       cursor.at + 2 <= cursor.commentEnd;
    if (known) return true;
    const std::size_t found = rest(cursor).find("*/", 2);
    if (found == std::string_view::npos) {
        cursor.unclosedFrom = cursor.at;
        return false;
    }
    cursor.commentSearchedFrom = cursor.at;
    cursor.commentEnd = cursor.at + found;
    return true;
}

bool skipComment(Cursor& cursor) {
    if (!findCommentEnd(cursor)) return cursor.fail(CommentNotClosed);
    cursor.at = cursor.commentEnd + 2;
    return true;
}

bool passesInVain(const Cursor& cursor) {
    return cursor.blanksInVainFrom != nullptr && cursor.at >= cursor.blanksInVainFrom;
}

bool seesPrintDirective(std::string_view text) {
    return text.starts_with("\\N\\") || text.starts_with("\\F\\");
}

/// A string ends a value: anything else behind it means that an apostrophe inside was not doubled, or that the string
/// was never closed and has run into the next one.
bool skipStringInList(Cursor& cursor) {
    if (!skipString(cursor) || !skipBlanks(cursor)) return false;
    if (cursor.sees(',') || cursor.sees(')')) return true;
    return cursor.fail(text::phrase("a string is not closed, or holds an apostrophe that is not doubled"));
}

/// A comment, or a slash that begins none.
bool skipSlash(Cursor& cursor) {
    if (rest(cursor).starts_with("/*")) return skipComment(cursor);
    ++cursor.at;
    return true;
}

/// Up to the comma or parenthesis that ends the value here.
bool skipToEndOfValue(Cursor& cursor) {
    while (!cursor.atEnd()) {
        switch (*cursor.at) {
            case ',':
            case ')':
                return true;
            case '(':
                if (!skipGroup(cursor)) return false;
                break;
            case '\'':
                if (!skipStringInList(cursor)) return false;
                break;
            case '/':
                if (!skipSlash(cursor)) return false;
                break;
            case ';':
            case '=':
                return cursor.fail(text::phrase("a parenthesis is not closed"));
            default:
                ++cursor.at;
        }
    }
    return cursor.fail(text::phrase("a parenthesis is not closed"));
}

/// More than ISO 10303-21 allows, which wants a digit before the point and a point before the exponent: "1E-05" is
/// common.
ValueKind scanNumber(Cursor& cursor) {
    const auto digits = [&cursor] {
        const char* from = cursor.at;
        while (!cursor.atEnd() && isDigit(*cursor.at)) ++cursor.at;
        return cursor.at != from;
    };
    ValueKind kind = ValueKind::Integer;
    if (cursor.sees('+') || cursor.sees('-')) ++cursor.at;
    bool any = digits();
    if (cursor.sees('.')) {
        ++cursor.at;
        kind = ValueKind::Real;
        any = digits() || any;
    }
    if (!any) return ValueKind::Malformed;
    if (cursor.sees('E') || cursor.sees('e')) {
        ++cursor.at;
        kind = ValueKind::Real;
        if (cursor.sees('+') || cursor.sees('-')) ++cursor.at;
        if (!digits()) return ValueKind::Malformed;
    }
    return kind;
}

ValueKind scanEnumeration(Cursor& cursor) {
    ++cursor.at;
    const char* item = cursor.at;
    while (!cursor.atEnd() && isKeywordCharacter(*cursor.at)) ++cursor.at;
    if (cursor.at == item || !cursor.sees('.')) return ValueKind::Malformed;
    ++cursor.at;
    return ValueKind::Enumeration;
}

ValueKind scanBinary(Cursor& cursor) {
    ++cursor.at;
    while (!cursor.atEnd() && hexDigit(*cursor.at) >= 0) ++cursor.at;
    if (!cursor.sees('"')) return ValueKind::Malformed;
    ++cursor.at;
    return ValueKind::Binary;
}

ValueKind scanReference(Cursor& cursor) {
    ++cursor.at;
    const char* digits = cursor.at;
    while (!cursor.atEnd() && isDigit(*cursor.at)) ++cursor.at;
    return cursor.at == digits ? ValueKind::Malformed : ValueKind::Reference;
}

ValueKind scanTyped(Cursor& cursor) {
    if (scanKeyword(cursor).empty() || !skipBlanks(cursor) || !cursor.sees('(')) return ValueKind::Malformed;
    return skipGroup(cursor) ? ValueKind::Typed : ValueKind::Malformed;
}

ValueKind scanToken(Cursor& cursor) {
    const char first = *cursor.at;
    switch (first) {
        case '$':
            ++cursor.at;
            return ValueKind::Unset;
        case '*':
            ++cursor.at;
            return ValueKind::Derived;
        case '#':
            return scanReference(cursor);
        case '\'':
            return skipString(cursor) ? ValueKind::String : ValueKind::Malformed;
        case '"':
            return scanBinary(cursor);
        case '(':
            return skipGroup(cursor) ? ValueKind::Aggregate : ValueKind::Malformed;
        case '.':
            // An item of an enumeration never begins with a digit, so ".5" can only be meant as a number.
            if (cursor.at + 1 != cursor.end && isDigit(cursor.at[1])) return scanNumber(cursor);
            return scanEnumeration(cursor);
        default:
            if (isDigit(first) || first == '+' || first == '-') return scanNumber(cursor);
            if (isLetter(first) || first == '!') return scanTyped(cursor);
            return ValueKind::Malformed;
    }
}

std::string_view trimmed(const char* begin, const char* end) {
    while (end != begin && isBlank(end[-1])) --end;
    return {begin, static_cast<std::size_t>(end - begin)};
}

}  // namespace

bool skipBlanks(Cursor& cursor) {
    const char* firstCommentEnd = nullptr;
    while (!cursor.atEnd()) {
        if (isBlank(*cursor.at)) {
            ++cursor.at;
        } else if (*cursor.at == '/' && rest(cursor).starts_with("/*")) {
            if (!skipComment(cursor)) {
                if (firstCommentEnd != nullptr) cursor.blanksInVainFrom = firstCommentEnd;
                return false;
            }
            if (passesInVain(cursor)) return cursor.fail(CommentNotClosed);
            if (firstCommentEnd == nullptr) firstCommentEnd = cursor.at;
        } else if (*cursor.at == '\\' && seesPrintDirective(rest(cursor))) {
            cursor.at += 3;
        } else {
            break;
        }
    }
    return true;
}

bool skipString(Cursor& cursor) {
    const char* from = cursor.at + 1;
    for (;;) {
        const void* found = std::memchr(from, '\'', static_cast<std::size_t>(cursor.end - from));
        if (found == nullptr) {
            cursor.at = cursor.end;
            return cursor.fail(text::phrase("a string is not closed"));
        }
        from = static_cast<const char*>(found) + 1;
        if (from == cursor.end || *from != '\'') break;
        ++from;
    }
    cursor.at = from;
    return true;
}

/// Counts and does not call itself: a file may nest parentheses as deep as it likes.
bool skipGroup(Cursor& cursor) {
    std::size_t depth = 0;
    while (!cursor.atEnd()) {
        switch (*cursor.at) {
            case '(':
                ++depth;
                ++cursor.at;
                break;
            case ')':
                ++cursor.at;
                if (--depth == 0) return true;
                break;
            case '\'':
                if (!skipStringInList(cursor)) return false;
                break;
            case '/':
                if (!skipSlash(cursor)) return false;
                break;
            // Neither stands inside a value: without this, the next instance would become a part of this one.
            case ';':
            case '=':
                return cursor.fail(text::phrase("a parenthesis is not closed"));
            default:
                ++cursor.at;
        }
    }
    return cursor.fail(text::phrase("a parenthesis is not closed"));
}

bool scanValue(Cursor& cursor, Value& value) {
    const char* begin = cursor.at;
    if (cursor.atEnd()) return cursor.fail(text::phrase("a value is missing"));
    cursor.problem = {};
    value.kind = scanToken(cursor);
    if (cursor.problem) return false;
    value.text = {begin, static_cast<std::size_t>(cursor.at - begin)};
    if (!skipBlanks(cursor)) return false;
    if (value.kind != ValueKind::Malformed && (cursor.atEnd() || cursor.sees(',') || cursor.sees(')'))) return true;
    if (value.kind == ValueKind::String)
        return cursor.fail(text::phrase("a string is not closed, or holds an apostrophe that is not doubled"));
    if (!skipToEndOfValue(cursor)) return false;
    // Costs this value only. The others of the instance can be read and changed, and references found.
    value = {ValueKind::Malformed, trimmed(begin, cursor.at)};
    return true;
}

bool scanList(Cursor& cursor, std::vector<Value>* elements) {
    if (!cursor.sees('(')) return cursor.fail(text::phrase("a parenthesis is missing"));
    ++cursor.at;
    if (!skipBlanks(cursor)) return false;
    if (cursor.sees(')')) {
        ++cursor.at;
        return true;
    }
    for (;;) {
        Value value;
        if (!skipBlanks(cursor) || !scanValue(cursor, value)) return false;
        if (elements != nullptr) elements->push_back(value);
        if (cursor.atEnd()) return cursor.fail(text::phrase("a parenthesis is not closed"));
        if (*cursor.at++ == ')') return true;
    }
}

std::string_view scanKeyword(Cursor& cursor) {
    const char* begin = cursor.at;
    // So begins a user-defined keyword of ISO 10303-21.
    if (cursor.sees('!')) ++cursor.at;
    const char* name = cursor.at;
    if (!cursor.atEnd() && !isDigit(*cursor.at))
        while (!cursor.atEnd() && isKeywordCharacter(*cursor.at)) ++cursor.at;
    if (cursor.at == name) return {};
    return {begin, static_cast<std::size_t>(cursor.at - begin)};
}

InstanceId scanId(Cursor& cursor) {
    if (!cursor.sees('#')) {
        cursor.fail(text::phrase("'#' is missing"));
        return 0;
    }
    InstanceId id = 0;
    const auto [end, error] = std::from_chars(cursor.at + 1, cursor.end, id);
    if (error == std::errc::result_out_of_range) cursor.fail(text::phrase("the id is too large"));
    if (error == std::errc::invalid_argument) cursor.fail(text::phrase("the id is missing"));
    if (error == std::errc{} && id == 0) cursor.fail(text::phrase("0 is no id"));
    if (error != std::errc{}) return 0;
    cursor.at = end;
    return id;
}

bool scanInstance(Cursor& cursor, InstanceHead& head, std::vector<Value>* arguments) {
    head.id = scanId(cursor);
    if (head.id == 0 || !skipBlanks(cursor)) return false;
    if (!cursor.sees('=')) return cursor.fail(text::phrase("'=' is missing"));
    ++cursor.at;
    if (!skipBlanks(cursor)) return false;
    head.keyword = scanKeyword(cursor);
    head.complex = head.keyword.empty() && cursor.sees('(');
    if (head.keyword.empty() && !head.complex) return cursor.fail(text::phrase("the keyword is missing"));
    if (!skipBlanks(cursor)) return false;
    if (!(head.complex ? skipGroup(cursor) : scanList(cursor, arguments)) || !skipBlanks(cursor)) return false;
    if (!cursor.sees(';')) return cursor.fail(text::phrase("the semicolon is missing"));
    ++cursor.at;
    return true;
}

}  // namespace model::step
