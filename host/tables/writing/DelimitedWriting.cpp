#include "tables/Writing.hpp"

namespace tables {
namespace {

bool needsQuotes(std::string_view field, char delimiter) {
    // Blanks at the ends are quoted since some readers drop them otherwise.
    if (field.empty()) return false;
    const char special[] = {delimiter, '"', '\r', '\n'};
    return field.find_first_of(std::string_view(special, sizeof special)) != std::string_view::npos ||
           field.front() == ' ' || field.back() == ' ';
}

void appendField(std::string& text, std::string_view field, char delimiter) {
    if (!needsQuotes(field, delimiter)) {
        text += field;
        return;
    }
    text += '"';
    for (const char c : field) text.append(c == '"' ? 2 : 1, c);
    text += '"';
}

void appendLine(std::string& text, std::span<const std::string> fields, char delimiter) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) text += delimiter;
        appendField(text, fields[i], delimiter);
    }
    text += '\n';
}

}  // namespace

std::string writeDelimited(const Grid& grid, char delimiter) {
    std::string text;
    appendLine(text, grid.columns, delimiter);
    for (const auto& row : grid.rows) appendLine(text, row, delimiter);
    return text;
}

}  // namespace tables
