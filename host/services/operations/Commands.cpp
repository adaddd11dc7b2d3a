// Slots 65 and 67: the report, and changes as one undoable step.

#include "services/ErrorCodes.hpp"
#include "services/Services.hpp"
#include "services/Session.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

namespace host::services {

namespace {

GSErrCode refuseCommand(const std::string& name, GSErrCode code, const std::string& reason) {
    ++session().failedCommands;
    session().report.write(text::message("Command \"{}\": {} ({})", name, reason, errorName(code)));
    return code;
}

/// Runs the add-on's function. A crash or an exception of it is a failed command: the model rolls back.
GSErrCode runCommand(const std::function<GSErrCode()>& command) {
    GSErrCode result = NoError;
    const auto fault = session().addOn->call(text::phrase("an undoable command"), [&] { result = command(); });
    if (!fault) return result;
    session().report.write(*fault, true);
    return APIERR_COMMANDFAILED;
}

}  // namespace

void WriteReport(void*, const char* text, unsigned char alert) {
    if (text != nullptr) session().report.write(text, alert != 0);
}

GSErrCode CallUndoableCommand(void*, const GS::UniString& name, const std::function<GSErrCode()>& command) {
    const std::string title = text::toUtf8(name.View());
    model::Model* const model = session().model.get();
    if (model == nullptr) return refuseCommand(title, APIERR_REFUSEDCMD, text::message("no model is open"));
    if (!command) return refuseCommand(title, APIERR_BADPARS, text::message("there is no function to run"));
    const auto result = model->command(title, [&] { return runCommand(command); });
    if (!result) return refuseCommand(title, errorCode(result.error().kind), result.error().message);
    if (*result != NoError)
        return refuseCommand(title, *result, text::message("failed, all its changes are taken back"));
    return NoError;
}

}  // namespace host::services
