#pragma once
// The stand-in host as its programs see it: a model, an add-on loaded through the true binding, the add-on's menu, the
// report, undo and saving. The dialogs come through the front end (frameworks/FrontEnd.hpp).

#include "HostTable.hpp"
#include "model/Model.hpp"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace host {

/// What a model window answers to an add-on's request for a point.
struct PickedPoint {
    API_Coord3D position;         ///< In the model's own length unit and axes.
    std::optional<API_Guid> hit;  ///< The element hit, nothing for empty space.
};

/// The model window's part: shows the prompt, UTF-8, and waits for a click. @return nothing: cancelled. Nothing set
/// means that every request is cancelled.
using PointPicker = std::function<std::optional<PickedPoint>(const std::string& prompt)>;

/// An item of an add-on's menu, with its present state.
struct MenuItem {
    GS::UniString text;
    GS::UniString prompt;  ///< What it does, for a status bar; may be empty.
    bool enabled = true;
    bool checked = false;
};

/// A menu that the add-on has registered.
struct Menu {
    Int16 menuStrResID = 0;  ///< The number of its string list, by which it is picked.
    GS::UniString title;
    std::vector<MenuItem> items;
};

struct ReportLine {
    std::string text;    ///< UTF-8; bytes of an add-on's own that are none are kept.
    bool alert = false;  ///< The user is to be shown it at once.
};

/// One model with one add-on. At most one Host exists at a time: the function table is plain functions, and a second
/// one throws std::logic_error. Everything on the user's thread.
class Host {
public:
    Host();
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // --- Model ---
    // While a menu command runs the model is not exchanged: opening fails, adopting and closing have no effect.

    /// Opens a file in place of the open model, which stays where that fails.
    model::Status openModel(const std::filesystem::path& path, const model::OpenOptions& options = {});
    /// Takes a model that was opened elsewhere, on a thread of its own as a rule, in place of the open one.
    void adoptModel(std::unique_ptr<model::Model> model);
    void closeModel();
    /// Null where none is open. The host's; valid until another one is opened, adopted, or this one is closed.
    model::Model* model();

    // --- Add-on ---
    /// Runs the load sequence of HostTable.hpp. Fails with a complete message: no such bundle, a missing entry point, a
    /// wrong version, a refused or failed start.
    model::Status loadAddOn(const std::filesystem::path& bundle);
    /// Runs freeData, unloads the image. Done by the destructor, too. No effect while a command of it runs.
    void unloadAddOn();
    bool addOnLoaded() const;
    /// What it answered to the environment check; empty where none is loaded.
    const std::string& addOnName() const;
    const std::string& addOnDescription() const;

    /// The menus that the add-on registered, with their items' present states.
    const std::vector<Menu>& menus() const;
    /// Picks an item (from 1). Runs the add-on's command to its end. @return the handler's error code;
    /// APIERR_BADINDEX for no such item, APIERR_REFUSEDCMD for a disabled one or while a command runs,
    /// APIERR_COMMANDFAILED where anything in the command crashed, threw or found no memory: the report says so, and
    /// what the command's dialogs showed last is not what the model holds.
    GSErrCode pickMenuItem(Int16 menuStrResID, Int32 itemIndex);

    // --- The user's other means ---
    /// @return false where there is nothing to undo (redo), or a menu command runs.
    bool undo();
    bool redo();
    /// Possible while a menu command runs, but not inside an undoable command.
    model::Status save(const std::filesystem::path& path, const model::SaveOptions& options = {});
    void setPointPicker(PointPicker picker);

    // --- Report ---
    /// All lines since the Host was made, in order.
    const std::vector<ReportLine>& report() const;
    /// Gets each line when it is written; an empty function gets none.
    /// How many undoable commands of add-ons were refused or rolled back, with the reason in the report. An add-on need
    /// not look at the result of its command, so what its dialog shows does not tell.
    std::uint64_t failedCommands() const;
    using ReportSink = std::function<void(const ReportLine&)>;
    void setReportSink(ReportSink sink);

    /// The function table handed to the add-on; tests put slots of their own in before loadAddOn.
    HostFunction* table();

private:
    struct Content;
    std::unique_ptr<Content> content_;
};

/// The bundle that the project's build makes, beside the running program; for where the user names none. Empty where
/// the system does not tell which program runs; loading it then fails with what to do.
std::filesystem::path defaultBundle();

}  // namespace host
