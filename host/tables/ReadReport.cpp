#include "tables/ReadReport.hpp"

#include "tables/Text.hpp"
#include "text/Ascii.hpp"
#include "text/Message.hpp"

namespace tables {
namespace {

/// "semicolon, UTF-8"
std::string delimited(char delimiter, const std::string& encoding) {
    switch (delimiter) {
        case ',':
            return text::message("comma, {}", encoding);
        case ';':
            return text::message("semicolon, {}", encoding);
        case '\t':
            return text::message("TAB, {}", encoding);
        case '|':
            return text::message("bar, {}", encoding);
        default:
            return inQuotes(std::string(1, delimiter)) + ", " + encoding;
    }
}

}  // namespace

ReadReport summarize(const ReadTable& read, const Asked& asked) {
    ReadReport report;
    report.format = formatName(read.format);
    if (read.delimiter != '\0') report.delimiter = std::string(1, read.delimiter);
    report.encoding = text::toLowerCase(read.encoding);
    report.sheet = read.sheet;
    report.layout = layoutName(asked.layout);
    report.elements = asked.elements;
    report.items = asked.items;
    report.updates = asked.updates.size();
    report.unchanged = asked.unchanged;
    report.leftOut = asked.leftOut;
    return report;
}

std::string reportLine(const std::string& fileName, const ReadTable& read, const Asked& asked) {
    const std::string source =
        read.sheet.empty() ? delimited(read.delimiter, read.encoding) : text::message("sheet {}", read.sheet);
    const text::Phrase layout = asked.layout == Layout::Grid ? text::phrase("grid") : text::phrase("long");
    return text::message(
        "Read {}: {}, {}, {}, {}: {}, {} unchanged, {} left out", fileName, source, layout,
        text::counted("{} element", "{} elements", asked.elements), text::counted("{} item", "{} items", asked.items),
        text::counted("{} update", "{} updates", asked.updates.size()), asked.unchanged, asked.leftOut.size());
}

}  // namespace tables
