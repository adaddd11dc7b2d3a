#include "console/commands/ScriptCommand.hpp"

#include "comparing/Comparison.hpp"
#include "console/ModelSession.hpp"
#include "console/output/HostText.hpp"
#include "console/output/Messages.hpp"
#include "console/report/ReportFile.hpp"
#include "console/script/ScriptUser.hpp"
#include "report/Changes.hpp"
#include "report/Forms.hpp"
#include "text/Message.hpp"

#include <fmt/format.h>

namespace console {

namespace {

/// What the script has changed since the model was opened, and what the host refused meanwhile.
report::Report pageOf(ModelSession& session, model::Model& before) {
    const auto comparison = valueOrThrow(comparing::compare(before, session.model()));
    report::Report page;
    page.title = fmt::format("Changes to {}", wellFormed(session.modelPath().filename().string()));
    page.facts.push_back(report::modelFact(text::Phrase("Model"), session.modelPath(), session.model()));
    addOrigin(page);
    report::addChanges(comparison, before, session.model(), page);
    page.notes = session.reportTexts();
    return page;
}

}  // namespace

ExitStatus runScript(const ScriptOptions& options) {
    checkReportFile(options.common.report, {options.model, options.steps});
    ScriptReader steps(options.steps);
    ModelSession session(options.common, options.model, Access::Editing);
    std::unique_ptr<model::Model> before;
    if (options.common.report) before = valueOrThrow(model::Model::fromBytes(session.model().bytes()));
    if (const std::string& holder = session.model().lockHolder(); !holder.empty()) {
        say(fmt::format("{} is open in {}: it is opened for reading here and can be saved under another name only",
                        options.model.string(), holder));
    }
    session.loadAddOn();
    ScriptUser user(session, steps);
    const bool allDone = user.run();
    if (before) writeReportFile(pageOf(session, *before), *options.common.report);
    if (user.hasChangesNobodySaved())
        say("the model was changed and not saved; add a step such as {\"save\":\"out.ifc\"}");
    return allDone ? ExitStatus::Done : ExitStatus::Failed;
}

}  // namespace console
