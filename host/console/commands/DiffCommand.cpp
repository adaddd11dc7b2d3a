#include "console/commands/DiffCommand.hpp"

#include "console/StandardInput.hpp"
#include "console/commands/DiffOutput.hpp"
#include "console/commands/ElementFilter.hpp"
#include "console/commands/Nothing.hpp"
#include "console/output/Messages.hpp"
#include "console/output/OutputFile.hpp"
#include "console/output/StandardOutput.hpp"
#include "console/report/ReportFile.hpp"
#include "console/several/Share.hpp"

#include <fmt/format.h>

#include <algorithm>

namespace console {
namespace {

std::unique_ptr<model::Model> open(const std::filesystem::path& path) {
    std::optional<StandardInput> kept;
    if (path == "-") kept.emplace();
    const std::string name = kept ? StandardInput::Name : path.string();
    ProgressLine progress(fmt::format("Opening {}", name));
    auto model = valueOrThrow(model::Model::open(kept ? kept->path() : path, {progress.callback(), false}));
    for (const std::string& remark : model->remarks()) say(fmt::format("{}: {}", name, remark));
    return model;
}

bool choosesAll(const DiffOptions& options) {
    return options.type.empty() && options.ifcClass.empty() && options.where.empty();
}

/// By element, whether the options choose it; empty where they choose all.
std::vector<bool> chosenIn(const model::Model& model, const DiffOptions& options) {
    if (choosesAll(options)) return {};
    std::vector<bool> chosen(model.elementCount());
    for (const model::Element element : ElementFilter(model, options.type, options.ifcClass, options.where).elements())
        chosen[element] = true;
    return chosen;
}

void printUpdates(const Difference& difference, const std::optional<std::filesystem::path>& output) {
    printWhole(updatesOf(difference), output);
    for (const std::string& line : leftOutOf(difference)) say(line);
}

}  // namespace

void checkDiffTarget(const DiffOptions& options, const std::vector<std::filesystem::path>& models) {
    if (!options.output) return;
    for (const std::filesystem::path& path : models) {
        std::error_code ignored;
        if (std::filesystem::equivalent(*options.output, path, ignored)) {
            throw Failure(fmt::format("-o {}: that is one of the models, which would be lost; name another file",
                                      options.output->string()));
        }
    }
    OutputFile::checkPlace(*options.output);
}

ExitStatus runDiff(const DiffOptions& options) {
    checkDiffTarget(options, {options.a, options.b});
    checkReportFile(options.common.report, {options.a, options.b, options.output.value_or("")});
    const auto a = open(options.a), b = open(options.b);
    const comparing::Chosen chosen{chosenIn(*a, options), chosenIn(*b, options)};
    const auto none = [](const std::vector<bool>& each) {
        return std::find(each.begin(), each.end(), true) == each.end();
    };
    if (!choosesAll(options) && none(chosen.a) && none(chosen.b)) {
        sayNothingChosen({*a, *b}, fmt::format("{} or {}", options.a.string(), options.b.string()), options.where,
                         options.common.share);
    }
    const auto comparison = valueOrThrow(comparing::compare(*a, *b, chosen));
    const Difference difference{{*a, options.a}, {*b, options.b}, comparison};
    switch (options.format) {
        case DiffFormat::Table:
            printAsTable(difference);
            break;
        case DiffFormat::Tsv:
            printAsTsv(difference);
            break;
        case DiffFormat::Json:
            printAsJson(difference);
            break;
        case DiffFormat::Html:
            printWhole(report::toHtml(pageOf(difference)), options.output);
            break;
        case DiffFormat::Updates:
            printUpdates(difference, options.output);
            break;
    }
    if (options.common.report) writeReportFile(pageOf(difference), *options.common.report);
    if (options.common.share != nullptr) options.common.share->facts["summary"] = summaryOf(difference);
    return options.exitCode && difference.any() ? ExitStatus::Different : ExitStatus::Done;
}

}  // namespace console
