#pragma once
// One run of modelhost: the model it works on, the add-on, and what both say to the user.

#include "console/Options.hpp"
#include "frameworks/FrontEnd.hpp"
#include "services/Host.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace console {

/// What the model's file is opened for.
enum class Access : std::uint8_t {
    Reading,  ///< Takes no lock: nobody is kept from working on the file meanwhile.
    Editing,  ///< To be saved where it came from. Locks the file, so that other hosts open it for reading.
};

class ModelSession {
public:
    /// Opens the model, showing progress, and says its remarks. Throws Failure.
    ModelSession(const CommonOptions& options, std::filesystem::path modelPath, Access access);
    ~ModelSession();

    const std::filesystem::path& modelPath() const { return path_; }
    model::Model& model() { return *host_.model(); }
    host::Host& host() { return host_; }

    /// Throws Failure.
    void loadAddOn();

    /// Picks the add-on's menu item (from 1, over all of its menus) with `view` in charge, and runs its command to the
    /// end. Throws Failure where there is no such item or the add-on answers with an error.
    void runMenuCommand(Int32 item, frontend::View& view);

    /// Saves, showing progress. An interrupt while it writes ends the program and leaves the old file. Throws Failure.
    void save(const std::filesystem::path& target);

    /// The refusals and notes of the host's report, UTF-8.
    std::vector<std::string> reportTexts() const;

private:
    CommonOptions options_;
    std::filesystem::path path_;
    host::Host host_;
};

/// Puts a view in charge for as long as it lives.
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

}  // namespace console
