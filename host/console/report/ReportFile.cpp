#include "console/report/ReportFile.hpp"

#include "console/Failure.hpp"
#include "console/output/HostText.hpp"
#include "console/output/Messages.hpp"
#include "console/output/OutputFile.hpp"
#include "importing/ReviewPage.hpp"
#include "report/Changes.hpp"
#include "report/Forms.hpp"
#include "text/Message.hpp"

#include <fmt/format.h>

namespace console {
namespace {

void checkForm(const std::filesystem::path& file) {
    if (report::hasForm(file)) return;
    throw Failure(fmt::format("--report {}: a report's name ends in .html, .json or .xlsx", file.string()));
}

}  // namespace

report::Report pageOf(const Difference& difference) {
    const auto name = [](const std::filesystem::path& path) { return wellFormed(path.filename().string()); };
    report::Report page;
    page.title = fmt::format("Changes from {} to {}", name(difference.a.path), name(difference.b.path));
    page.facts.push_back(report::modelFact(text::Phrase("Before"), difference.a.path, difference.a.model));
    page.facts.push_back(report::modelFact(text::Phrase("Now"), difference.b.path, difference.b.model));
    addOrigin(page);
    report::addChanges(difference.found, difference.a.model, difference.b.model, page);
    return page;
}

report::Report pageOf(const ImportReport& import, const model::Model& model) {
    importing::ReviewedUpdates reviewed;
    reviewed.modelPath = import.model.path;
    reviewed.updatesPath = import.updatesPath;
    reviewed.program = "modelhost " PROJECT_VERSION;
    reviewed.saved = import.saved;
    reviewed.review = import.review;
    reviewed.result = import.result;
    reviewed.facts = import.facts;
    if (import.table) reviewed.leftOut = import.table->leftOut;
    reviewed.hints = import.hints;
    reviewed.report = import.report;
    reviewed.linesWithoutRow = import.summary.linesWithoutRow;
    return importing::pageOf(reviewed, model);
}

void checkReportFile(const std::optional<std::filesystem::path>& file,
                     const std::vector<std::filesystem::path>& others) {
    if (!file) return;
    checkForm(*file);
    for (const auto& other : others) {
        std::error_code ignored;
        if (*file == other || std::filesystem::equivalent(*file, other, ignored)) {
            throw Failure(fmt::format("--report {}: that file is read or written by the command itself; name another",
                                      file->string()));
        }
    }
    OutputFile::checkPlace(*file);
}

void writeReportFile(const report::Report& report, const std::filesystem::path& file) {
    OutputFile output(file);
    output.write(valueOrThrow(report::inFormOf(file, report)));
    output.commit();
    say(fmt::format("report written to {}", file.string()));
}

void addOrigin(report::Report& report) {
    report::addOrigin(report, "modelhost " PROJECT_VERSION);
}

}  // namespace console
