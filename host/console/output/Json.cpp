#include "console/output/Json.hpp"

#include "console/output/StandardOutput.hpp"
#include "console/output/TerminalText.hpp"

namespace console {
namespace {

constexpr int OneLine = -1;
constexpr std::size_t LargeText = 1U << 16U;

void startLine(std::string& text, int depth) {
    if (depth == OneLine) return;
    text += '\n';
    text.append(static_cast<std::size_t>(2 * depth), ' ');
}

/// The depth of what stands inside.
int inner(int depth) {
    return depth == OneLine ? OneLine : depth + 1;
}

void appendName(std::string& text, std::string_view name, int depth) {
    appendJsonString(text, name);
    text += depth == OneLine ? ":" : ": ";
}

/// nlohmann's own serializer would pass control characters of a terminal through. The recursion is as deep as the
/// value: that is a few levels of the program's own, or a step of a script, whose depth ScriptReader limits.
void append(std::string& text, const JsonValue& json, int depth) {  // NOLINT(misc-no-recursion)
    if (json.is_string()) return appendJsonString(text, json.get_ref<const std::string&>());
    if (!json.is_structured()) return text.append(json.dump()), void();
    const bool object = json.is_object();
    text += object ? '{' : '[';
    bool first = true;
    for (auto it = json.begin(); it != json.end(); ++it) {
        if (!first) text += ',';
        first = false;
        startLine(text, inner(depth));
        if (object) appendName(text, it.key(), depth);
        append(text, *it, inner(depth));
    }
    if (!first) startLine(text, depth);
    text += object ? '}' : ']';
}

}  // namespace

JsonValue toJson(const importing::ListRow& row) {
    JsonValue color;
    if (row.color) color = {row.color->red, row.color->green, row.color->blue};
    JsonValue columns = JsonValue::array();
    for (const importing::SharedText& text : row.columns) columns.push_back(text.get());
    JsonValue json;
    json["columns"] = std::move(columns);
    json["status"] = row.status;
    json["color"] = std::move(color);
    return json;
}

JsonValue toJson(const std::vector<importing::ListRow>& rows) {
    JsonValue array = JsonValue::array();
    for (const importing::ListRow& row : rows) array.push_back(toJson(row));
    return array;
}

JsonDocument::JsonDocument() : indented_(Terminal::standardOutput().present), pending_("{") {}

void JsonDocument::startMember(std::string_view name) {
    const int depth = indented_ ? 1 : OneLine;
    if (!empty_) pending_ += ',';
    empty_ = false;
    startLine(pending_, depth);
    appendName(pending_, name, depth);
}

void JsonDocument::member(std::string_view name, const JsonValue& value) {
    startMember(name);
    append(pending_, value, indented_ ? 1 : OneLine);
    printIfLarge();
}

void JsonDocument::member(std::string_view name, const std::vector<importing::ListRow>& rows) {
    member(name, rows.size(), [&rows](std::size_t i) { return toJson(rows[i]); });
}

void JsonDocument::member(std::string_view name, std::size_t count,
                          const std::function<JsonValue(std::size_t)>& element) {
    const int depth = indented_ ? 2 : OneLine;
    startMember(name);
    pending_ += '[';
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0) pending_ += ',';
        startLine(pending_, depth);
        append(pending_, element(i), depth);
        printIfLarge();
    }
    if (count > 0) startLine(pending_, indented_ ? 1 : OneLine);
    pending_ += ']';
}

void JsonDocument::printIfLarge() {
    if (pending_.size() < LargeText) return;
    print(pending_);
    pending_.clear();
}

void JsonDocument::finish() {
    if (!empty_) startLine(pending_, indented_ ? 0 : OneLine);
    pending_ += "}\n";
    print(pending_);
}

std::string compact(const JsonValue& value) {
    std::string text;
    append(text, value, OneLine);
    return text;
}

void printDocument(const JsonValue& document) {
    JsonDocument printed;
    for (auto it = document.begin(); it != document.end(); ++it) printed.member(it.key(), it.value());
    printed.finish();
}

void printLine(const JsonValue& object) {
    std::string text;
    append(text, object, OneLine);
    print(text += '\n');
    flushStandardOutput();
}

}  // namespace console
