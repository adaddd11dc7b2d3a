#include "model/step/editing/InstanceEdits.hpp"

#include "model/step/syntax/Instance.hpp"
#include "model/step/syntax/Tokens.hpp"
#include "text/Message.hpp"

#include <algorithm>
#include <functional>
#include <vector>

namespace model::step {

namespace {

Error refused(std::string message) {
    return {ErrorKind::Refused, std::move(message)};
}

bool isPart(std::string_view part, std::string_view whole) {
    // The view may point into another text, and then only std::less and its like may compare the pointers.
    const std::less_equal<const char*> notBehind;
    return notBehind(whole.data(), part.data()) && notBehind(part.data() + part.size(), whole.data() + whole.size());
}

bool isSingleValue(std::string_view text) {
    Cursor cursor(text);
    Value value;
    return scanValue(cursor, value) && value.kind != ValueKind::Malformed && value.text.size() == text.size();
}

/// `text` with the bytes of `part`, a view into it, replaced.
std::string replaced(std::string_view text, std::string_view part, std::string_view with) {
    const auto begin = static_cast<std::size_t>(part.data() - text.data());
    std::string result;
    result.reserve(text.size() - part.size() + with.size());
    result.append(text.substr(0, begin)).append(with).append(text.substr(begin + part.size()));
    return result;
}

std::string_view between(const char* begin, const char* end) {
    return {begin, static_cast<std::size_t>(end - begin)};
}

const char* endOf(std::string_view text) {
    return text.data() + text.size();
}

}  // namespace

Result<std::string> withValue(std::string_view text, Value value, std::string_view newText) {
    if (value.text.empty() || !isPart(value.text, text))
        return refused(text::message("the value is not one of this instance"));
    if (value.kind == ValueKind::Malformed) return refused(text::message("the value is malformed in the file"));
    if (value.kind == ValueKind::Derived) return refused(text::message("the value is derived from others"));
    if (!isSingleValue(newText)) return refused(text::message("the new value is malformed"));
    return replaced(text, value.text, newText);
}

/// Without comments: they are about the elements that they stand between.
std::string_view separatorIn(const std::vector<Value>& elements) {
    if (elements.size() < 2) return ",";
    const Value& last = elements[elements.size() - 1];
    const std::string_view separator = between(endOf(elements[elements.size() - 2].text), last.text.data());
    const bool plain = std::all_of(separator.begin(), separator.end(), [](char c) { return c == ',' || isBlank(c); });
    return plain ? separator : ",";
}

/// An element that goes takes the comma before it along, the first ones the comma behind; all that stands between the
/// others stays. One pass for all of them, since thousands may go at once.
std::string withoutMarked(std::string_view text, const std::vector<Value>& elements, const std::vector<bool>& marked) {
    const std::size_t first = static_cast<std::size_t>(std::find(marked.begin(), marked.end(), false) - marked.begin());
    const char* firstKept = first < elements.size() ? elements[first].text.data() : endOf(elements.back().text);
    std::string result(between(text.data(), elements.front().text.data()));
    const char* copied = firstKept;
    for (std::size_t i = first + 1; i < elements.size(); ++i) {
        if (!marked[i]) continue;
        result.append(between(copied, std::max(copied, endOf(elements[i - 1].text))));
        copied = endOf(elements[i].text);
    }
    return result.append(between(copied, endOf(text)));
}

bool isInstanceBody(std::string_view body, std::string_view& keyword) {
    Cursor cursor(body);
    keyword = scanKeyword(cursor);
    return !keyword.empty() && skipBlanks(cursor) && scanList(cursor, nullptr) && cursor.atEnd();
}

}  // namespace model::step
