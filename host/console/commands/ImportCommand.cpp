#include "console/commands/ImportCommand.hpp"

#include "console/ModelSession.hpp"
#include "console/import/ImportReport.hpp"
#include "console/import/ImportUser.hpp"
#include "console/import/TableOptions.hpp"
#include "console/output/HostText.hpp"
#include "console/output/Messages.hpp"
#include "console/output/StandardOutput.hpp"
#include "console/report/ReportFile.hpp"
#include "console/several/Share.hpp"
#include "importing/ReviewFacts.hpp"
#include "importing/ReviewRows.hpp"
#include "updatefile/Hints.hpp"
#include "updatefile/Wording.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace console {
namespace {

using importing::hintsOnNames;
using importing::ListRow;
using importing::ReviewFacts;
using importing::RowFacts;
using importing::ticked;
using importing::UpdatePart;
using importing::UpdateSource;

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
    if (!target || *target == "-") return;
    if (sameFile(*target, options.updates)) {
        throw Failure(
            fmt::format("-o {}: that is the update file, which would be lost; name another file", target->string()));
    }
    throwUnlessDone(model::Model::checkTarget(*target));
    for (const std::string& warning : model::Model::targetWarnings(*target)) say(warning);
}

Access accessFor(const ImportOptions& options) {
    const auto target = targetOf(options);
    return target && sameFile(*target, options.model) ? Access::Editing : Access::Reading;
}

/// Another host may have opened the file after the target was checked.
void checkStillOurs(const ImportOptions& options, const model::Model& model) {
    if (!model.lockHolder().empty()) {
        throw Failure(fmt::format("{}: the file has just been opened in {}; close it there, or save with -o OUT.ifc",
                                  options.model.string(), model.lockHolder()));
    }
}

/// The rows that this list has of those that the user named over all lists.
TickChoice tickIn(const TickChoice& all, std::uint32_t rowsBefore, std::uint32_t rowsHere) {
    TickChoice here = all;
    here.ranges.clear();
    for (const auto& [first, last] : all.ranges) {
        if (last > rowsBefore && first <= rowsBefore + rowsHere) {
            here.ranges.emplace_back(std::max(first, rowsBefore + 1) - rowsBefore,
                                     std::min(last, rowsBefore + rowsHere) - rowsBefore);
        }
    }
    return here;
}

/// The list is what the add-on wrote into it. It does not show that the host undid the changes, or that the file ended
/// with an error: nothing may be saved then.
void checkApplied(ModelSession& session, const ImportUser& user, const ImportPlan& plan) {
    if (const auto problem = session.takeProblem()) {
        if (!problem->file.empty()) {
            throw Failure(fmt::format("cannot read the update file {}: {}; nothing was saved, try again",
                                      problem->file == plan.updates ? plan.shownName : problem->file.string(),
                                      problem->reason));
        }
        throw Failure(fmt::format("the add-on's changes were undone: {}; nothing was saved", problem->reason));
    }
    if (!user.result()) return;
    const updatefile::LineNotes rows = importing::unfinishedRows(user.review(), *user.result());
    if (rows.count > 0) {
        throw Failure(fmt::format("the add-on neither applied nor refused the ticked {}; nothing was saved",
                                  updatefile::numberedRows(rows)));
    }
}

/// A single list is taken over as it is: there may be 32,767 rows in memory.
template <class Row>
void append(std::vector<Row>& all, std::vector<Row> rows) {
    if (all.empty()) {
        all = std::move(rows);
        return;
    }
    all.insert(all.end(), std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()));
}

/// All lists of one import, worked one after the other.
class Import {
public:
    Import(ModelSession& session, const ImportOptions& options, const UpdateSource& updates)
        : session_(session), options_(options), updates_(updates) {}

    void run() {
        for (const UpdatePart& part : updates_.parts()) runPart(part);
        if (options_.tick.lastRow() > review.size()) {
            throw Failure(fmt::format("--tick: there is no row {}, the review list of {} has {}; nothing was saved",
                                      options_.tick.lastRow(), updates_.name(), review.size()));
        }
        if (!options_.apply) undo();
    }

    std::vector<std::string> header;
    std::vector<ListRow> review, result;
    std::vector<RowFacts> facts;
    std::uint64_t rowsLost = 0;

private:
    void runPart(const UpdatePart& part);
    void workTheDialog(ImportUser& user, const ImportPlan& plan);
    std::vector<std::size_t> conflictsOf(const std::vector<ListRow>& rows) const;
    void readBack(const ImportUser& user);
    void undo();

    ModelSession& session_;
    const ImportOptions& options_;
    const UpdateSource& updates_;
    std::optional<ReviewFacts> facts_;  ///< Of the list that is open.
};

void Import::runPart(const UpdatePart& part) {
    const auto rows = static_cast<std::uint32_t>(review.size());
    const bool several = updates_.parts().size() > 1;
    ImportPlan plan{part.path, updates_.name(), part.lines, options_.tick, true, {}};
    if (several) plan.tick = tickIn(options_.tick, rows, static_cast<std::uint32_t>(part.asked.size()));
    plan.untick = [&](const std::vector<ListRow>& reviewed) {
        facts_.emplace(session_.model(), part, reviewed);
        return options_.strict ? conflictsOf(reviewed) : std::vector<std::size_t>();
    };
    ImportUser user(plan);
    workTheDialog(user, plan);
    header = user.header();
    rowsLost += user.rowsLost();
    readBack(user);
    append(review, user.takeReview());
    append(result, user.takeResult());
}

std::vector<std::size_t> Import::conflictsOf(const std::vector<ListRow>& rows) const {
    std::vector<std::size_t> conflicts;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (facts_->rows()[i].conflict && ticked(rows[i])) conflicts.push_back(i);
    return conflicts;
}

void Import::readBack(const ImportUser& user) {
    facts_->read(*user.result());
    if (options_.exact) valueOrThrow(facts_->storeExactly());
    append(facts, facts_->takeRows());
    facts_.reset();
}

/// A dry run applies within the loaded model, to tell what would be stored, and takes everything back.
void Import::undo() {
    while (session_.host().undo()) {
    }
}

void Import::workTheDialog(ImportUser& user, const ImportPlan& plan) {
    {
        const ReviewProgress progress(plan.shownName, plan.lines);
        session_.runMenuCommand(ImportMenuItem, user);
    }
    if (!user.problem().empty()) throw Failure(user.problem());
    checkApplied(session_, user, plan);
}

/// What is no update file is refused: the add-on would only show an empty list.
void readUpdates(UpdateSource& updates, const model::Model& model) {
    throwUnlessDone(updates.read(model));
    if (updates.isTable()) return;
    if (const auto reason = updatefile::uselessBecause(updates.findings()))
        throw Failure(importing::cannotRead(updates.name(), *reason));
}

template <class Predicate>
std::uint64_t countFacts(const std::vector<RowFacts>& facts, const Predicate& predicate) {
    return static_cast<std::uint64_t>(std::count_if(facts.begin(), facts.end(), predicate));
}

/// Where the model is one of several, an element that it has not got may be another one's.
updatefile::UpdateFileFindings findingsToTell(const UpdateSource& updates, const Share* share) {
    updatefile::UpdateFileFindings findings = updates.findings();
    if (share == nullptr) return findings;
    const std::vector<std::uint64_t>& others = updates.linesOfUnknownElements();
    findings.withoutRow.count -= std::min(findings.withoutRow.count, findings.unknownElement.count);
    std::erase_if(findings.withoutRow.first,
                  [&others](std::uint64_t line) { return std::binary_search(others.begin(), others.end(), line); });
    findings.unknownElement = {};
    return findings;
}

ImportReport reportOf(ModelSession& session, Import& import, const UpdateSource& updates,
                      const ImportOptions& options) {
    ImportReport report;
    report.model = session.facts();
    report.updatesPath = wellFormed(updates.name());
    report.header = std::move(import.header);
    report.review = std::move(import.review);
    if (options.apply) report.result = std::move(import.result);
    report.facts = std::move(import.facts);
    report.table = updates.table();
    report.summary = summarize(updates.findings().lines, report.review, report.result, import.rowsLost);
    report.summary.notAsAsked =
        countFacts(report.facts, [](const RowFacts& row) { return row.outcome.asAsked == false; });
    report.summary.conflicts = countFacts(report.facts, [](const RowFacts& row) { return row.conflict.has_value(); });
    report.summary.exact = countFacts(report.facts, [](const RowFacts& row) { return row.outcome.exact; });
    // A cell that no line could be made of is a line without a row, too.
    report.summary.linesWithoutRow =
        updates.findings().withoutRow.count + (report.table ? report.table->leftOut.size() : 0);
    report.hints = updatefile::hintsFor(findingsToTell(updates, options.common.share),
                                        {report.summary.rows, report.summary.rowsLost}, "'modelhost list' prints");
    auto onNames = hintsOnNames(session.model(), report.review, report.result);
    std::move(onNames.begin(), onNames.end(), std::back_inserter(report.hints));
    if (!updates.notes().empty())
        report.hints.insert(report.hints.begin(), updates.notes().begin() + 1, updates.notes().end());
    return report;
}

/// A file with lines of which none gives a row says nothing that this model could take.
void checkRows(const ImportReport& report, const UpdateSource& updates) {
    if (report.summary.rows > 0 || report.summary.lines == 0) return;
    std::string why = report.hints.empty() ? "" : ": " + report.hints.front();
    throw Failure(fmt::format("{}: {} and no row{}; nothing was saved", updates.name(),
                              updatefile::counted(report.summary.lines, "line"), why));
}

ExitStatus statusOf(const ImportOptions& options, const ImportSummary& summary, const UpdateSource& updates) {
    const std::uint64_t ofOthers = options.common.share == nullptr ? 0 : updates.findings().unknownElement.count;
    const bool strictly =
        options.strict && (summary.notAsAsked > 0 || summary.conflicts > 0 || summary.linesWithoutRow > ofOthers);
    return summary.errors > 0 || strictly ? ExitStatus::RowsFailed : ExitStatus::Done;
}

/// An unchanged model is not written over itself. A copy asked for with -o is written in any case.
void save(ModelSession& session, const ImportOptions& options, ImportReport& report) {
    const auto target = targetOf(options);
    if (!target || (options.inPlace && !session.model().modified())) return;
    session.save(*target);
    report.saved = wellFormed(target->string());
    if (!session.backup().empty()) report.backup = wellFormed(session.backup().string());
    if (*target != "-" && !hasModelName(*target) && !sameFile(*target, options.model)) {
        say(fmt::format("{}: the name does not end in .ifc, so other programs may not take it for a model; rename it",
                        target->string()));
    }
}

void tell(Share& share, const ImportReport& report, const UpdateSource& updates) {
    share.facts = {{"summary", asJson(report.summary)}, {"unknown", updates.linesOfUnknownElements()}};
    if (report.saved) share.facts["saved"] = *report.saved;
}

void printReport(const ImportReport& report, Format format) {
    if (format == Format::Json) return printAsJson(report);
    if (format == Format::Table) return printAsTable(report);
    printAsTsv(report);
    for (const std::string& hint : report.hints) say(fmt::format("hint: {}", hint));
}

}  // namespace

ExitStatus runImport(const ImportOptions& options) {
    const auto opened = openUpdates(options.updates, options.table);
    UpdateSource& updates = *opened;
    checkTarget(options);
    checkReportFile(options.common.report, {options.model, options.updates, options.output.value_or("")});
    ModelSession session(options.common, options.model, accessFor(options));
    checkStillOurs(options, session.model());
    readUpdates(updates, session.model());
    if (!updates.notes().empty()) say(updates.notes().front());
    session.loadAddOn();
    Import import(session, options, updates);
    import.run();
    ImportReport report = reportOf(session, import, updates, options);
    if (options.common.share == nullptr) checkRows(report, updates);
    save(session, options, report);
    report.report = session.reportTexts();
    printReport(report, options.common.format);
    if (options.common.report) writeReportFile(pageOf(report, session.model()), *options.common.report);
    if (options.common.share != nullptr) tell(*options.common.share, report, updates);
    return statusOf(options, report.summary, updates);
}

}  // namespace console
