#include "console/commands/ExportCommand.hpp"

#include "console/ModelSession.hpp"
#include "console/commands/ElementFilter.hpp"
#include "console/export/Exporter.hpp"
#include "console/output/HostText.hpp"
#include "console/output/Json.hpp"
#include "console/output/Messages.hpp"
#include "console/output/OutputFile.hpp"
#include "console/output/StandardOutput.hpp"
#include "console/output/TerminalText.hpp"
#include "updatefile/Wording.hpp"

#include <fmt/format.h>

namespace console {
namespace {

using updatefile::counted;

std::string lineOf(const ExportedValue& value) {
    return fmt::format("{}\t{}\t{}\t{}\n", value.guid, value.item, value.value, value.value);
}

JsonValue jsonOf(const ExportedValue& value) {
    return JsonValue::array({value.guid, value.item, value.value, value.value});
}

JsonValue jsonOf(const LeftOut::Group& group) {
    return {{"item", group.item},
            {"reason", explain(group.obstacle)},
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

void printAsJson(Lines& lines, const Exporter& exporter, const ExportOptions& options) {
    JsonValue document;
    document["lines"] = std::move(lines.asJson());
    document["leftOut"] = JsonValue::array();
    for (const LeftOut::Group& group : exporter.leftOut().groups()) document["leftOut"].push_back(jsonOf(group));
    if (options.output) document["saved"] = wellFormed(options.output->string());
    printDocument(document);
}

void sayWhatIsMissing(const Exporter& exporter) {
    for (const LeftOut::Group& group : exporter.leftOut().groups()) say(LeftOut::text(group));
    for (const auto& [item, count] : exporter.ambiguous())
        say(
            fmt::format("{} of {}: the name stands in several property sets, of which the import shows the last and "
                        "writes the first; check them with 'modelhost lookup'",
                        counted(count, "value"), item));
}

/// Checked before the work, so that no work is lost.
void checkTarget(const ExportOptions& options) {
    if (!options.output) return;
    std::error_code ignored;
    if (std::filesystem::equivalent(*options.output, options.model, ignored))
        throw Failure(
            fmt::format("-o {}: that is the model, which would be lost; name another file", options.output->string()));
    OutputFile::checkPlace(*options.output);
}

}  // namespace

ExitStatus runExport(const ExportOptions& options) {
    checkTarget(options);
    ModelSession session(options.common, options.model, Access::Reading);
    const ElementFilter filter(session.model(), options.type, options.ifcClass);
    const std::vector<model::Element> elements = filter.elements();
    Lines lines(options);
    Exporter exporter(session.model(), options.items, [&lines](const ExportedValue& value) { lines.take(value); });
    {
        ProgressLine progress("Exporting");
        for (std::size_t i = 0; i < elements.size(); ++i) {
            progress.show(i, elements.size());
            exporter.write(elements[i]);
        }
    }
    lines.finish();
    if (options.common.format == Format::Json) printAsJson(lines, exporter, options);
    sayWhatIsMissing(exporter);
    if (exporter.lineCount() > DG_LIST_MAX_ROWS)
        say(fmt::format("{} are more than one import can show, which is {}; split them, for example with 'split -l {}'",
                        counted(exporter.lineCount(), "line"), DG_LIST_MAX_ROWS, DG_LIST_MAX_ROWS));
    if (options.output)
        say(fmt::format("{} written to {}", counted(exporter.lineCount(), "line"), options.output->string()));
    return ExitStatus::Done;
}

}  // namespace console
