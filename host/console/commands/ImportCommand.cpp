#include "console/commands/ImportCommand.hpp"

#include "console/ModelSession.hpp"
#include "console/import/ImportReport.hpp"
#include "console/import/ImportUser.hpp"
#include "console/import/ReviewRows.hpp"
#include "console/import/UpdateFile.hpp"
#include "console/output/HostText.hpp"
#include "console/output/Messages.hpp"
#include "console/output/StandardOutput.hpp"
#include "model/ifc/index/Workspace.hpp"
#include "updatefile/Hints.hpp"
#include "updatefile/Wording.hpp"

#include <fmt/format.h>

#include <iterator>

namespace console {
namespace {

constexpr Int32 ImportMenuItem = 1;

/// Where the changed model goes; nothing for a dry run.
std::optional<std::filesystem::path> targetOf(const ImportOptions& options) {
    if (!options.apply) return std::nullopt;
    return options.inPlace ? options.model : *options.output;
}

bool sameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
    std::error_code ignored;
    return a == b || std::filesystem::equivalent(a, b, ignored);
}

bool hasModelName(const std::filesystem::path& path) {
    const std::string extension = path.extension().string();
    return equalIgnoringCase(extension, ".ifc") || equalIgnoringCase(extension, ".ifczip");
}

/// Checked before the work, so that no work is lost.
void checkTarget(const ImportOptions& options) {
    const auto target = targetOf(options);
    if (!target) return;
    if (sameFile(*target, options.updates))
        throw Failure(
            fmt::format("-o {}: that is the update file, which would be lost; name another file", target->string()));
    throwUnlessDone(model::Model::checkTarget(*target));
    for (const std::string& warning : model::Model::targetWarnings(*target)) say(warning);
}

Access accessFor(const ImportOptions& options) {
    const auto target = targetOf(options);
    return target && sameFile(*target, options.model) ? Access::Editing : Access::Reading;
}

/// Another host may have opened the file after the target was checked.
void checkStillOurs(const ImportOptions& options, const model::Model& model) {
    if (!model.lockHolder().empty())
        throw Failure(fmt::format("{}: the file has just been opened in {}; close it there, or save with -o OUT.ifc",
                                  options.model.string(), model.lockHolder()));
}

updatefile::UpdateFileFindings scan(UpdateFile& updates, model::Model& model) {
    return updates.scan([&model](const model::Guid& guid) { return model.find(guid).has_value(); });
}

ImportPlan planOf(const ImportOptions& options, const UpdateFile& updates, std::uint64_t lines) {
    return {updates.pathForAddOn(), updates.name(), lines, options.tick, options.apply};
}

/// The list is what the add-on wrote into it. It does not show that the host undid the changes, or that the file ended
/// with an error: nothing may be saved then.
void checkApplied(ModelSession& session, const ImportUser& user, const ImportPlan& plan) {
    if (const auto problem = session.takeProblem()) {
        if (!problem->file.empty())
            throw Failure(fmt::format("cannot read the update file {}: {}; nothing was saved, try again",
                                      problem->file == plan.updates ? plan.shownName : problem->file.string(),
                                      problem->reason));
        throw Failure(fmt::format("the updates were not applied: {}; nothing was saved", problem->reason));
    }
    if (!user.result()) return;
    const updatefile::LineNotes rows = unfinishedRows(user.review(), *user.result());
    if (rows.count > 0)
        throw Failure(fmt::format("the add-on neither applied nor refused the ticked {}; nothing was saved",
                                  updatefile::numbered("row", rows)));
}

void workTheDialog(ModelSession& session, ImportUser& user, const ImportPlan& plan) {
    {
        const ReviewProgress progress(plan.shownName, plan.lines);
        session.runMenuCommand(ImportMenuItem, user);
    }
    if (!user.problem().empty()) throw Failure(user.problem());
    checkApplied(session, user, plan);
}

void addHintsOnNames(const model::Model& model, ImportReport& report) {
    auto hints =
        updatefile::standardHints(unknownItems(model, report.review, report.result), model.workspace().version);
    std::move(hints.texts.begin(), hints.texts.end(), std::back_inserter(report.hints));
    if (!report.result) return;
    if (auto hint = hintForUnknownItems(report.review, *report.result, hints.rows))
        report.hints.push_back(std::move(*hint));
}

ImportReport reportOf(ModelSession& session, const ImportUser& user, const UpdateFile& updates,
                      const updatefile::UpdateFileFindings& findings) {
    ImportReport report;
    report.model = session.facts();
    report.updatesPath = wellFormed(updates.name());
    report.header = user.header();
    report.review = user.review();
    report.result = user.result();
    report.summary = summarize(findings.lines, report.review, report.result, user.rowsLost());
    report.hints =
        updatefile::hintsFor(findings, {report.summary.rows, report.summary.rowsLost}, "'modelhost list' prints");
    addHintsOnNames(session.model(), report);
    return report;
}

/// An unchanged model is not written over itself. A copy asked for with -o is written in any case.
void save(ModelSession& session, const ImportOptions& options, ImportReport& report) {
    const auto target = targetOf(options);
    if (!target || (options.inPlace && !session.model().modified())) return;
    session.save(*target);
    report.saved = wellFormed(target->string());
    if (!hasModelName(*target) && !sameFile(*target, options.model))
        say(fmt::format("{}: the name does not end in .ifc, so other programs may not take it for a model; rename it",
                        target->string()));
}

void printReport(const ImportReport& report, Format format) {
    if (format == Format::Json) return printAsJson(report);
    if (format == Format::Table) return printAsTable(report);
    printAsTsv(report);
    for (const std::string& hint : report.hints) say(fmt::format("hint: {}", hint));
}

}  // namespace

ExitStatus runImport(const ImportOptions& options) {
    UpdateFile updates(options.updates);
    checkTarget(options);
    ModelSession session(options.common, options.model, accessFor(options));
    checkStillOurs(options, session.model());
    const updatefile::UpdateFileFindings findings = scan(updates, session.model());
    session.loadAddOn();
    const ImportPlan plan = planOf(options, updates, findings.pieces);
    ImportUser user(plan);
    workTheDialog(session, user, plan);
    ImportReport report = reportOf(session, user, updates, findings);
    save(session, options, report);
    report.report = session.reportTexts();
    printReport(report, options.common.format);
    return report.summary.errors > 0 ? ExitStatus::RowsFailed : ExitStatus::Done;
}

}  // namespace console
