#include "tables/ReadReport.hpp"

#include "tables/Text.hpp"
#include "text/Ascii.hpp"

namespace tables {
namespace {

std::string delimiterName(char delimiter) {
    switch (delimiter) {
        case ',':
            return "comma";
        case ';':
            return "semicolon";
        case '\t':
            return "TAB";
        case '|':
            return "bar";
        default:
            return inQuotes(std::string(1, delimiter));
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
        read.sheet.empty() ? delimiterName(read.delimiter) + ", " + read.encoding : "sheet " + read.sheet;
    return "Read " + fileName + ": " + source + ", " + std::string(layoutName(asked.layout)) + ", " +
           counted(asked.elements, "element") + ", " + counted(asked.items, "item") + ": " +
           counted(asked.updates.size(), "update") + ", " + std::to_string(asked.unchanged) + " unchanged, " +
           std::to_string(asked.leftOut.size()) + " left out";
}

}  // namespace tables
