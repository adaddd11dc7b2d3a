#pragma once
// The stand-in host as its programs see it: a model, an add-on loaded through the true binding, the add-on's menu, the
// report, undo and saving. The dialogs come through the front end (frameworks/FrontEnd.hpp).

#include "HostTable.hpp"
#include "model/Model.hpp"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace host {

/// What a model window answers to an add-on's request for a point.
struct PickedPoint {
    API_Coord3D position;
    std::optional<API_Guid> hit;  ///< The element hit, nothing for empty space.
};

/// The model window's part; nothing set means that every request is cancelled.
using PointPicker = std::function<std::optional<PickedPoint>(const std::string& prompt)>;

struct MenuItem {
    GS::UniString text;
    GS::UniString prompt;
    bool enabled = true;
    bool checked = false;
};

struct Menu {
    Int16 menuStrResID = 0;
    GS::UniString title;
    std::vector<MenuItem> items;
};

struct ReportLine {
    std::string text;
    bool alert = false;  ///< The user is to be shown it at once.
};

/// One model with one add-on. At most one Host exists at a time: the function table is plain functions.
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
    void adoptModel(std::unique_ptr<model::Model> model);
    void closeModel();
    /// Null where none is open.
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
    /// APIERR_COMMANDFAILED where the command crashed or threw: the report says so.
    GSErrCode pickMenuItem(Int16 menuStrResID, Int32 itemIndex);

    // --- The user's other means ---
    /// @return false where there is nothing to undo (redo), or a menu command runs.
    bool undo();
    bool redo();
    /// Possible while a menu command runs, but not inside an undoable command.
    model::Status save(const std::filesystem::path& path, const model::SaveOptions& options = {});
    void setPointPicker(PointPicker picker);

    // --- Report ---
    const std::vector<ReportLine>& report() const;
    using ReportSink = std::function<void(const ReportLine&)>;
    void setReportSink(ReportSink sink);

    /// The function table handed to the add-on; tests put slots of their own in before loadAddOn.
    HostFunction* table();

private:
    struct Content;
    std::unique_ptr<Content> content_;
};

/// The bundle that the project's build makes, beside the running program; where `--addon` is not given.
std::filesystem::path defaultBundle();

}  // namespace host
