#pragma once
// The open model of one run of modelhost, with the add-on loaded for it. Their messages go to standard error.

#include "console/Options.hpp"
#include "console/output/Json.hpp"
#include "frameworks/FrontEnd.hpp"
#include "model/step/disk/Backup.hpp"
#include "services/Host.hpp"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace console {

/// What the model's file is opened for.
enum class Access : std::uint8_t {
    Reading,  ///< Takes no lock: others may work on the file meanwhile.
    Editing,  ///< To save where it was opened. Locks the file: other hosts can open it for reading only.
};

/// What went wrong in the add-on's command although the add-on goes on as if nothing had happened.
struct CommandProblem {
    std::filesystem::path
        file;  ///< The file that could not be read to its end; empty: the model's changes were undone.
    std::string reason;
};

/// What the JSON documents tell of the model that they are about.
struct ModelFacts {
    std::string path;
    std::string schema;
    std::uint64_t elements = 0;
    std::uint64_t duplicateGlobalIds = 0;
    std::uint64_t invalidGlobalIds = 0;
    std::vector<model::UnknownClass> unknownClasses;
};
ModelFacts factsOf(const model::Model& model, const std::filesystem::path& path);
JsonValue asJson(const ModelFacts& facts);
/// [{"class": "IFCALPHA", "instances": 2}, ...]
JsonValue asJson(const std::vector<model::UnknownClass>& classes);

class ModelSession {
public:
    /// Opens the model, showing progress, and says its remarks. Throws Failure.
    /// @param modelPath  "-" is standard input.
    ModelSession(const CommonOptions& options, std::filesystem::path modelPath, Access access);
    ~ModelSession();

    const std::filesystem::path& modelPath() const { return path_; }
    /// For messages.
    std::string shownName() const;
    ModelFacts facts();
    model::Model& model() { return *host_.model(); }
    host::Host& host() { return host_; }

    /// Throws Failure.
    void loadAddOn();

    /// Picks the add-on's menu item (from 1, over all of its menus) with `view` in charge, and runs its command to the
    /// end. Throws Failure where there is no such item or the add-on answers with an error.
    void runMenuCommand(Int32 item, frontend::View& view);

    /// The first problem since the last call.
    std::optional<CommandProblem> takeProblem();

    /// Saves and shows progress. An interrupt (Ctrl-C) ends the program and leaves the old file. Throws Failure.
    /// @param target  "-" is standard output, which gets the model unpacked.
    void save(const std::filesystem::path& target);
    /// Where the last save kept the file that it replaced, as --backup asks; empty where it kept none.
    const std::filesystem::path& backup() const { return backup_; }

    /// The refusals and notes of the host's report, UTF-8.
    std::vector<std::string> reportTexts() const;

private:
    void open(Access access);
    void takeReport(const host::ReportLine& line);
    model::step::Backup keep(const std::filesystem::path& target);
    model::Status saveShowingProgress(const std::filesystem::path& target);

    CommonOptions options_;
    std::filesystem::path path_;
    std::filesystem::path backup_;
    std::set<std::filesystem::path> kept_;  ///< Targets that have been kept as they were when this run began.
    host::Host host_;
    std::optional<CommandProblem> problem_;
    std::uint64_t failedCommandsSeen_ = 0;
};

/// Makes a view the one that the dialog manager calls, for as long as this object lives.
class ViewInCharge {
public:
    explicit ViewInCharge(frontend::View& view) : previous_(frontend::setView(&view)) {}
    ~ViewInCharge() { frontend::setView(previous_); }
    ViewInCharge(const ViewInCharge&) = delete;
    ViewInCharge& operator=(const ViewInCharge&) = delete;

private:
    frontend::View* previous_;
};

/// A menu item's place among all items of the add-on's menus.
struct MenuPlace {
    Int16 menu = 0;
    Int32 item = 0;
};
/// @param number  from 1. Nothing where the menus have no such item.
std::optional<MenuPlace> findMenuItem(const host::Host& host, Int32 number);
std::string noSuchMenuItem(const host::Host& host, Int32 number);
/// Of one whose command returned an error: the add-on's own, or the host's where it had to end the command.
std::string menuItemEnded(Int32 number, GSErrCode error);

}  // namespace console
