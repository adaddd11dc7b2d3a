#include "console/commands/ScriptCommand.hpp"

#include "console/ModelSession.hpp"
#include "console/output/Messages.hpp"
#include "console/script/ScriptUser.hpp"

#include <fmt/format.h>

namespace console {

ExitStatus runScript(const ScriptOptions& options) {
    ScriptReader steps(options.steps);
    ModelSession session(options.common, options.model, Access::Editing);
    if (const std::string& holder = session.model().lockHolder(); !holder.empty()) {
        say(fmt::format("{} is open in {}: it is opened for reading here and can be saved under another name only",
                        options.model.string(), holder));
    }
    session.loadAddOn();
    ScriptUser user(session, steps);
    const bool allDone = user.run();
    if (user.hasChangesNobodySaved())
        say("the model was changed and not saved; add a step such as {\"save\":\"out.ifc\"}");
    return allDone ? ExitStatus::Done : ExitStatus::Failed;
}

}  // namespace console
