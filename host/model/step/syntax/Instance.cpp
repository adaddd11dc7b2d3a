#include "model/step/syntax/Instance.hpp"
#include "model/step/syntax/Tokens.hpp"

namespace model::step {

bool splitInstance(std::string_view text, Instance& out) {
    out.arguments.clear();
    Cursor cursor(text);
    InstanceHead head;
    if (!scanInstance(cursor, head, &out.arguments) || !cursor.atEnd()) return false;
    out.id = head.id;
    out.keyword = head.keyword;
    out.complex = head.complex;
    return true;
}

/// The outermost elements only: an aggregate inside is one of them.
bool splitAggregate(Value aggregate, std::vector<Value>& out) {
    out.clear();
    if (aggregate.kind != ValueKind::Aggregate) return false;
    Cursor cursor(aggregate.text);
    return scanList(cursor, &out) && cursor.atEnd();
}

bool splitTyped(Value typed, std::string_view& keyword, Value& inner) {
    if (typed.kind != ValueKind::Typed) return false;
    Cursor cursor(typed.text);
    keyword = scanKeyword(cursor);
    if (keyword.empty() || !skipBlanks(cursor) || !cursor.sees('(')) return false;
    ++cursor.at;
    if (!skipBlanks(cursor) || !scanValue(cursor, inner) || inner.text.empty() || !cursor.sees(')')) return false;
    ++cursor.at;
    return cursor.atEnd();
}

InstanceId referenceId(Value value) {
    if (value.kind != ValueKind::Reference) return 0;
    Cursor cursor(value.text);
    return scanId(cursor);
}

std::string_view enumerationItem(Value value) {
    if (value.kind != ValueKind::Enumeration) return {};
    return value.text.substr(1, value.text.size() - 2);
}

}  // namespace model::step
