#pragma once
// What the host's operations work on: the one model and the one add-on. The table is plain functions, so there is one
// session at a time, the one of the Host that exists.

#include "model/Model.hpp"
#include "services/AddOn.hpp"
#include "services/Host.hpp"
#include "services/Menus.hpp"
#include "services/PlanIndex.hpp"
#include "services/Report.hpp"

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

namespace host {

/// Room made for a list of properties: more than most elements have.
inline constexpr USize ExpectedProperties = 64;

struct Session {
    std::unique_ptr<model::Model> model;
    std::unique_ptr<AddOn> addOn;
    Menus menus;
    PointPicker picker;
    Report report;
    std::uint64_t failedCommands = 0;  ///< Undoable commands that were refused or rolled back.
    std::array<HostFunction, HostTableSize> table{};
    /// The record of the menu call under way. Here and not on the stack: an add-on that keeps its address beyond the
    /// call finds a record that names no menu.
    API_MenuParams menuParams{};

    // What is known of the model beside the model; gone with it.
    PlanIndex plan;
    /// An update file asks for one element again and again: the list that it was given last tells how long the next is.
    USize propertiesExpected = ExpectedProperties;

    bool busy() const { return addOn && addOn->busy(); }
    void replaceModel(std::unique_ptr<model::Model> replacement);
};

/// @pre a Host exists.
Session& session();
/// Puts a session in charge, or none (null). @return whether there is none but this one.
bool setSession(Session* session);

/// Whether the add-on may call the operation with this handle. Before it is initialized it has none, and only what
/// helps it to start is answered: APIERR_NOTINIT otherwise; APIERR_BADPARS for a handle that is not its own;
/// APIERR_REFUSEDCMD after a crash.
GSErrCode admitClient(HostSlot slot, const void* client);
/// The registrations: only while the add-on registers its interface, APIERR_REFUSEDCMD otherwise.
GSErrCode admitRegistration();

/// @return the element, or APIERR_BADPARS for the null GUID, APIERR_BADID for one of no element.
GSErrCode findElement(const API_Guid& guid, model::Element& element);

/// Writes a refused edit into the report, with the element, the item and the reason. @return its error code.
GSErrCode refuseEdit(const API_Guid& guid, std::string_view item, const model::Error& error);

}  // namespace host
