#include "services/Session.hpp"

#include "services/ErrorCodes.hpp"
#include "text/Guid.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace host {

namespace {

Session* current = nullptr;

std::string nameOf(const API_Guid& guid) {
    model::Element element{};
    if (findElement(guid, element) != NoError) return text::message("unknown element");
    const std::u16string name = current->model->name(element);
    return name.empty() ? text::message("element without a name") : text::toUtf8(name);
}

}  // namespace

void Session::replaceModel(std::unique_ptr<model::Model> replacement) {
    plan.clear();
    model = std::move(replacement);
}

Session& session() {
    return *current;
}

bool setSession(Session* session) {
    if (session != nullptr && current != nullptr) return false;
    current = session;
    return true;
}

GSErrCode admitClient(HostSlot slot, const void* client) {
    if (current == nullptr || !current->addOn) return APIERR_NOTINIT;
    const AddOn& addOn = *current->addOn;
    if (addOn.crashed()) return APIERR_REFUSEDCMD;
    if (addOn.initialized() && client == addOn.client()) return NoError;
    if (client != nullptr) return APIERR_BADPARS;
    // Before it is known as a client, an add-on finds its own files, and says why it cannot start.
    const bool helpsToStart = slot == HostSlot::Environment || slot == HostSlot::WriteReport;
    return helpsToStart ? NoError : APIERR_NOTINIT;
}

GSErrCode admitRegistration() {
    if (current == nullptr || !current->addOn) return APIERR_NOTINIT;
    return current->addOn->registering() ? NoError : APIERR_REFUSEDCMD;
}

GSErrCode findElement(const API_Guid& guid, model::Element& element) {
    if (guid == APINULLGuid) return APIERR_BADPARS;
    if (!current->model) return APIERR_BADID;
    model::Guid key;
    std::copy(std::begin(guid.bytes), std::end(guid.bytes), key.begin());
    const std::optional<model::Element> found = current->model->find(key);
    if (!found) return APIERR_BADID;
    element = *found;
    return NoError;
}

GSErrCode refuseEdit(const API_Guid& guid, std::string_view item, const model::Error& error) {
    const GSErrCode code = errorCode(error.kind);
    current->report.write(fmt::format("{} ({}), {}: {} ({})", nameOf(guid), text::guidText(guid.bytes), item,
                                      error.message, errorName(code)));
    return code;
}

}  // namespace host
