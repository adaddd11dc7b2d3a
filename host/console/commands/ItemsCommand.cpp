#include "console/commands/ItemsCommand.hpp"

#include "console/Failure.hpp"
#include "console/ModelSession.hpp"
#include "console/commands/ElementFilter.hpp"
#include "console/commands/Nothing.hpp"
#include "console/output/HostText.hpp"
#include "console/output/Json.hpp"
#include "console/output/Messages.hpp"
#include "console/output/StandardOutput.hpp"
#include "console/output/Table.hpp"
#include "console/output/TerminalText.hpp"
#include "updatefile/ItemCensus.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <string_view>

namespace console {

using updatefile::ItemCensus;
using updatefile::ItemKind;
using updatefile::ItemRecord;
using updatefile::Standing;

namespace {

const std::vector<std::string> Header{"kind",  "item",     "set",      "valueType", "elements",
                                      "empty", "distinct", "examples", "standard",  "changeable"};

const char* nameOf(ItemKind kind) {
    switch (kind) {
        case ItemKind::Attribute:
            return "attribute";
        case ItemKind::Property:
            return "property";
        case ItemKind::Classification:
            break;
    }
    return "classification";
}

const char* nameOf(Standing standing) {
    switch (standing) {
        case Standing::No:
            return "no";
        case Standing::OtherClass:
            return "other class";
        case Standing::Yes:
            break;
    }
    return "yes";
}

std::vector<std::string> cells(const ItemRecord& record) {
    return {nameOf(record.kind),
            record.item,
            record.set,
            record.valueType,
            std::to_string(record.elements),
            std::to_string(record.empty),
            std::to_string(record.distinct),
            fmt::format("{}", fmt::join(record.examples, "; ")),
            nameOf(record.standard),
            record.changeable ? "yes" : "no"};
}

/// The texts give way, widest first; numbers and words of a few letters are worth nothing cut.
Yield yieldOf(const std::string& column) {
    if (column == "kind") return Yield::First;
    const bool text = column == "item" || column == "set" || column == "valueType" || column == "examples";
    return text ? Yield::Evenly : Yield::Last;
}

std::size_t placeOf(std::string_view column) {
    return static_cast<std::size_t>(std::find(Header.begin(), Header.end(), column) - Header.begin());
}

void printAsTable(const std::vector<ItemRecord>& records) {
    Table table(Header);
    arrangeItems(table, 0);
    for (const ItemRecord& record : records) {
        Table::Row row;
        for (std::string& text : cells(record)) row.push_back({std::move(text)});
        table.add(std::move(row));
    }
    print(leftOutNote(table.layOut(Terminal::standardOutput(), print)));
}

void printAsTsv(const std::vector<ItemRecord>& records) {
    const Terminal terminal = Terminal::standardOutput();
    print(tsvLine(Header, terminal));
    for (const ItemRecord& record : records) print(tsvLine(cells(record), terminal));
}

void printAsJson(const std::vector<ItemRecord>& records) {
    JsonValue items = JsonValue::array();
    for (const ItemRecord& record : records) {
        items.push_back({{"kind", nameOf(record.kind)},
                         {"item", record.item},
                         {"set", record.set},
                         {"valueType", record.valueType},
                         {"elements", record.elements},
                         {"empty", record.empty},
                         {"distinct", record.distinct},
                         {"examples", record.examples},
                         {"standard", nameOf(record.standard)},
                         {"changeable", record.changeable}});
    }
    JsonValue document;
    document["items"] = std::move(items);
    printDocument(document);
}

std::vector<ItemRecord> recordsOf(const model::Model& model, const ItemsOptions& options) {
    const auto elements = ElementFilter(model, options.type, options.ifcClass, options.where).elements();
    ItemCensus census(model);
    ProgressLine progress("Reading");
    for (std::size_t i = 0; i < elements.size(); ++i) {
        progress.show(i, elements.size());
        throwUnlessDone(census.add(elements[i]));
    }
    if (options.standard) census.addStandard();
    return census.records();
}

}  // namespace

std::vector<std::string> itemsHeader() {
    return Header;
}

std::vector<std::vector<std::string>> itemsRows(const JsonValue& document) {
    std::vector<std::vector<std::string>> rows;
    for (const JsonValue& item : document.value("items", JsonValue::array())) {
        const auto number = [&item](const char* name) { return std::to_string(item[name].get<std::uint64_t>()); };
        rows.push_back({item["kind"], item["item"], item["set"], item["valueType"], number("elements"), number("empty"),
                        number("distinct"),
                        fmt::format("{}", fmt::join(item["examples"].get<std::vector<std::string>>(), "; ")),
                        item["standard"], item["changeable"].get<bool>() ? "yes" : "no"});
    }
    return rows;
}

void arrangeItems(Table& table, std::size_t first) {
    constexpr int Readable = 20;
    const auto place = [first](std::string_view column) { return first + placeOf(column); };
    for (const std::string& column : Header) table.yield(place(column), yieldOf(column));
    // The set stands in the item once more.
    table.mayLeaveOut({place("set"), place("changeable"), place("valueType"), place("distinct")}, Readable);
    std::vector<std::size_t> blank;
    // What stands before is what the items are of.
    for (std::size_t column = 0; column < first; ++column) blank.push_back(column);
    blank.push_back(place("kind"));
    blank.push_back(place("set"));
    table.blankRepeats(std::move(blank));
}

ExitStatus runItems(const ItemsOptions& options) {
    ModelSession session(options.common, options.model, Access::Reading);
    const std::vector<ItemRecord> records = recordsOf(session.model(), options);
    switch (options.common.format) {
        case Format::Table:
            printAsTable(records);
            break;
        case Format::Tsv:
            printAsTsv(records);
            break;
        case Format::Json:
            printAsJson(records);
            break;
    }
    if (records.empty()) sayNothingChosen(session, options.where, options.common.share);
    return ExitStatus::Done;
}

}  // namespace console
