#include "console/commands/ExportCommand.hpp"

#include "console/ModelSession.hpp"
#include "console/commands/ElementFilter.hpp"
#include "console/commands/Nothing.hpp"
#include "console/export/Exporter.hpp"
#include "console/export/GridExport.hpp"
#include "console/help/Nearest.hpp"
#include "console/output/HostText.hpp"
#include "console/output/Json.hpp"
#include "console/output/Messages.hpp"
#include "console/output/OutputFile.hpp"
#include "console/output/StandardOutput.hpp"
#include "console/output/TerminalText.hpp"
#include "console/several/Share.hpp"
#include "tables/Reading.hpp"
#include "updatefile/ReviewList.hpp"
#include "updatefile/Wording.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <set>

namespace console {
namespace {

using updatefile::counted;
using Elements = std::vector<model::Element>;

std::string lineOf(const ExportedValue& value) {
    return fmt::format("{}\t{}\t{}\t{}\n", value.guid, value.item, value.value, value.value);
}

JsonValue jsonOf(const ExportedValue& value) {
    return JsonValue::array({value.guid, value.item, value.value, value.value});
}

JsonValue jsonOf(const LeftOut::Group& group) {
    return {{"item", group.item},
            {"reason", updatefile::explain(group.obstacle)},
            {"count", group.count},
            {"examples", group.examples}};
}

/// Where the lines go: a file, the JSON document, or standard output. A terminal gets control characters in the model's
/// texts as pictures.
class Lines {
public:
    explicit Lines(const ExportOptions& options)
        : json_(options.common.format == Format::Json), terminal_(Terminal::standardOutput().present) {
        if (options.output) file_.emplace(*options.output);
    }

    void take(const ExportedValue& value) {
        if (json_) document_.push_back(jsonOf(value));
        if (file_) return file_->write(lineOf(value));
        if (json_) return;
        print(terminal_ ? fmt::format("{}\t{}\t{}\t{}\n", value.guid, visible(value.item), visible(value.value),
                                      visible(value.value))
                        : lineOf(value));
    }

    void finish() {
        if (file_) file_->commit();
        file_.reset();
    }

    JsonValue& asJson() { return document_; }

private:
    bool json_;
    bool terminal_;
    std::optional<OutputFile> file_;
    JsonValue document_ = JsonValue::array();
};

void addCommon(JsonValue& document, const Exporter& exporter, const ExportOptions& options) {
    document["leftOut"] = JsonValue::array();
    for (const LeftOut::Group& group : exporter.leftOut().groups()) document["leftOut"].push_back(jsonOf(group));
    if (options.output) document["saved"] = wellFormed(options.output->string());
}

void printAsJson(Lines& lines, const Exporter& exporter, const ExportOptions& options) {
    JsonValue document;
    document["columns"] = tables::LongListColumns;
    document["rows"] = lines.asJson();
    document["lines"] = std::move(lines.asJson());
    addCommon(document, exporter, options);
    printDocument(document);
}

void printAsJson(const GridExport& grid, const ExportOptions& options) {
    JsonValue document;
    document["columns"] = grid.columns();
    document["rows"] = JsonValue::array();
    for (const GridExport::Row& row : grid.rows()) {
        JsonValue cells = JsonValue::array();
        for (const auto& cell : row) cells.push_back(cell ? JsonValue(*cell) : JsonValue());
        document["rows"].push_back(std::move(cells));
    }
    addCommon(document, grid.exporter(), options);
    printDocument(document);
}

void sayWhatIsMissing(const Exporter& exporter) {
    const std::vector<std::string> nobodys = exporter.itemsOfNobody();
    for (const LeftOut::Group& group : exporter.leftOut().groups()) {
        // One line for the item says as much as one for its values.
        if (std::find(nobodys.begin(), nobodys.end(), group.item) == nobodys.end()) say(LeftOut::text(group));
    }
    for (const auto& [item, count] : exporter.ambiguous()) {
        say(
            fmt::format("{} of {}: the name stands in several property sets, of which the import shows the last and "
                        "writes the first; check them with 'modelhost lookup'",
                        counted(count, "value"), item));
    }
}

/// Whether an import could give elements the item: a property needs a set for that.
bool canBeFilledIn(const std::string& item) {
    using updatefile::reviewlist::AddedSystems;
    return item.find('[') != std::string::npos ||
           std::find(AddedSystems.begin(), AddedSystems.end(), item) != AddedSystems.end();
}

/// What became of each item: of those that none of the elements has, whether others have it, else the nearest name.
std::vector<ItemVerdict> verdictsOn(const model::Model& model, const Elements& elements, const Exporter& exporter,
                                    const std::vector<std::string>& items) {
    const std::vector<std::string> nobodys = exporter.itemsOfNobody();
    if (elements.empty()) return {};
    const std::vector<std::string> known = nobodys.empty() ? std::vector<std::string>() : itemsOf(model);
    const auto isIn = [](const std::vector<std::string>& all, const std::string& item) {
        return std::find(all.begin(), all.end(), item) != all.end();
    };
    std::vector<ItemVerdict> verdicts;
    for (const std::string& item : items) {
        if (!isIn(nobodys, item)) {
            verdicts.push_back({item, ItemFound::Here, {}});
        } else {
            const ItemFound found = isIn(known, item) ? ItemFound::Elsewhere : ItemFound::Nowhere;
            verdicts.push_back({item, found, nearest(item, known)});
        }
    }
    return verdicts;
}

ExitStatus judgeItems(const model::Model& model, const Elements& elements, const Exporter& exporter,
                      const ExportOptions& options, Missing missing) {
    const auto verdicts = verdictsOn(model, elements, exporter, options.items);
    if (options.common.share == nullptr) return judge(verdicts, missing);
    for (const ItemVerdict& verdict : verdicts) {
        options.common.share->facts["items"].push_back(
            {{"item", verdict.item}, {"found", verdict.found}, {"nearest", verdict.nearest}});
    }
    return ExitStatus::Done;
}

/// Checked before the work, so that no work is lost.
void checkTarget(const ExportOptions& options) {
    if (!options.output) return;
    std::error_code ignored;
    if (std::filesystem::equivalent(*options.output, options.model, ignored)) {
        throw Failure(
            fmt::format("-o {}: that is the model, which would be lost; name another file", options.output->string()));
    }
    OutputFile::checkPlace(*options.output);
}

template <class Write>
void forEachWithProgress(const Elements& elements, const Write& write) {
    ProgressLine progress("Exporting");
    for (std::size_t i = 0; i < elements.size(); ++i) {
        progress.show(i, elements.size());
        write(elements[i]);
    }
}

std::string endingOf(const ExportOptions& options) {
    return options.output ? options.output->extension().string() : std::string();
}

std::optional<tables::Format> tableFormat(const ExportOptions& options) {
    const std::string ending = endingOf(options);
    return ending.empty() ? std::nullopt : tables::parseFormat(ending);
}

std::string bytesOf(const tables::Grid& grid, tables::Format format, bool keepExported) {
    if (format != tables::Format::Xlsx) return tables::writeDelimited(grid, format == tables::Format::Csv ? ',' : '\t');
    auto workbook = tables::writeWorkbook(grid, keepExported);
    if (!workbook) throw Failure(workbook.error().message);
    return std::move(*workbook);
}

void writeTable(const tables::Grid& grid, const ExportOptions& options, bool keepExported) {
    OutputFile file(*options.output);
    file.write(bytesOf(grid, *tableFormat(options), keepExported));
    file.commit();
    say(fmt::format("{} written to {}", counted(grid.rows.size(), "line"), options.output->string()));
}

/// A terminal is not sent control characters that a model's texts may hold.
void printGrid(tables::Grid grid) {
    if (Terminal::standardOutput().present) {
        for (auto& row : grid.rows)
            for (std::string& cell : row) cell = visible(cell);
    }
    print(tables::writeDelimited(grid, '\t'));
}

/// What no import could tell apart or would look at.
void checkColumns(const std::vector<std::string>& items) {
    std::set<std::string> columns;
    for (const std::string& item : items) {
        if (!columns.insert(item).second)
            throw Failure(fmt::format("--items: {} stands there twice; a grid has one column for each item", item));
        if (item.starts_with('#')) {
            throw Failure(
                fmt::format("--items: {}: a column whose name begins with # is for the reader only; export it "
                            "with --layout long",
                            item));
        }
    }
}

ExitStatus exportGrid(const model::Model& model, const Elements& elements, const ExportOptions& options) {
    const Missing missing = options.missing.value_or(Missing::Include);
    GridExport grid(model, options.items, missing);
    forEachWithProgress(elements, [&grid](model::Element element) { grid.add(element); });
    const bool json = options.common.format == Format::Json;
    if (json) printAsJson(grid, options);
    sayWhatIsMissing(grid.exporter());
    const ExitStatus status = judgeItems(model, elements, grid.exporter(), options, missing);
    if (options.output) {
        writeTable(std::move(grid).take(), options, true);
    } else if (!json) {
        printGrid(std::move(grid).take());
    }
    return status;
}

/// A long list as a table of its own, in a file that holds no update lines.
ExitStatus exportLongTable(const model::Model& model, const Elements& elements, const ExportOptions& options) {
    tables::Grid list{{std::begin(tables::LongListColumns), std::end(tables::LongListColumns)}, {}};
    const Missing missing = options.missing.value_or(Missing::LeaveOut);
    Exporter exporter(model, options.items, missing, [&list](const ExportedValue& value) {
        list.rows.push_back({value.guid, value.item, value.value, value.value});
    });
    forEachWithProgress(elements, [&exporter](model::Element element) { exporter.write(element); });
    if (options.common.format == Format::Json) {
        JsonValue document;
        document["columns"] = list.columns;
        document["rows"] = list.rows;
        addCommon(document, exporter, options);
        printDocument(document);
    }
    sayWhatIsMissing(exporter);
    writeTable(list, options, false);
    return judgeItems(model, elements, exporter, options, missing);
}

ExitStatus exportLines(const model::Model& model, const Elements& elements, const ExportOptions& options) {
    Lines lines(options);
    const Missing missing = options.missing.value_or(Missing::LeaveOut);
    Exporter exporter(model, options.items, missing, [&lines](const ExportedValue& value) { lines.take(value); });
    forEachWithProgress(elements, [&exporter](model::Element element) { exporter.write(element); });
    lines.finish();
    if (options.common.format == Format::Json) printAsJson(lines, exporter, options);
    sayWhatIsMissing(exporter);
    if (exporter.lineCount() > DG_LIST_MAX_ROWS) {
        say(fmt::format("{} are more than one import can show, which is {}; split them, for example with 'split -l {}'",
                        counted(exporter.lineCount(), "line"), DG_LIST_MAX_ROWS, DG_LIST_MAX_ROWS));
    }
    if (options.output)
        say(fmt::format("{} written to {}", counted(exporter.lineCount(), "line"), options.output->string()));
    return judgeItems(model, elements, exporter, options, missing);
}

ExportLayout layoutOf(const ExportOptions& options) {
    return options.layout.value_or(tableFormat(options) ? ExportLayout::Grid : ExportLayout::Long);
}

void checkLayout(const ExportOptions& options) {
    if (tableFormat(options) == tables::Format::Ods)
        throw Failure(fmt::format("-o {}: tables are written as .xlsx, .csv or .tsv", options.output->string()));
    if (layoutOf(options) != ExportLayout::Grid) return;
    checkColumns(options.items);
    if (options.output && !tableFormat(options)) {
        throw Failure(
            fmt::format("-o {}: a grid goes into a file that ends in .xlsx, .csv or .tsv", options.output->string()));
    }
}

}  // namespace

ExitStatus judge(const std::vector<ItemVerdict>& verdicts, Missing missing) {
    std::vector<std::string> mistakes;
    for (const ItemVerdict& verdict : verdicts) {
        if (verdict.found == ItemFound::Here) continue;
        if (verdict.found == ItemFound::Elsewhere) {
            say(fmt::format("no element chosen has the item {}", verdict.item));
        } else if (missing == Missing::Include && canBeFilledIn(verdict.item)) {
            say(noSuchItem(verdict.item, verdict.nearest));
        } else {
            mistakes.push_back(noSuchItem(verdict.item, verdict.nearest));
        }
    }
    const bool nothing = !mistakes.empty() && mistakes.size() == verdicts.size();
    for (const std::string& mistake : mistakes) nothing ? complain(mistake) : say(mistake);
    return nothing ? ExitStatus::Failed : ExitStatus::Done;
}

Missing missingOf(const ExportOptions& options) {
    return options.missing.value_or(isGrid(options) ? Missing::Include : Missing::LeaveOut);
}

bool isGrid(const ExportOptions& options) {
    return layoutOf(options) == ExportLayout::Grid;
}

void checkExport(const ExportOptions& options) {
    checkTarget(options);
    checkLayout(options);
}

void writeExport(tables::Grid table, const ExportOptions& options) {
    const bool grid = isGrid(options);
    if (tableFormat(options)) return writeTable(table, options, grid);
    if (grid) return printGrid(std::move(table));
    Lines lines(options);
    for (const auto& row : table.rows) lines.take({row[0], row[1], row[2], 0, false});
    lines.finish();
    if (options.output)
        say(fmt::format("{} written to {}", counted(table.rows.size(), "line"), options.output->string()));
}

ExitStatus runExport(const ExportOptions& options) {
    checkExport(options);
    ModelSession session(options.common, options.model, Access::Reading);
    const model::Model& model = session.model();
    const Elements elements = ElementFilter(session.model(), options.type, options.ifcClass, options.where).elements();
    if (elements.empty()) sayNothingChosen(session, options.where, options.common.share);
    if (layoutOf(options) == ExportLayout::Grid) return exportGrid(model, elements, options);
    if (tableFormat(options)) return exportLongTable(model, elements, options);
    return exportLines(model, elements, options);
}

}  // namespace console
