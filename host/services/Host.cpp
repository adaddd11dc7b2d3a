#include "services/Host.hpp"

#include "frameworks/FrontEnd.hpp"
#include "services/ErrorCodes.hpp"
#include "services/FunctionTable.hpp"
#include "services/Session.hpp"
#include "text/Message.hpp"

#include <malloc.h>
#include <new>
#include <stdexcept>
#include <utility>

namespace host {

namespace {

/// The lists handed to an add-on take megabytes on an element of thousands of properties, and it asks anew for each
/// update. The C library would give each back to the system and fetch it again, page by page, at the cost of half the
/// time.
void keepFreedMemory() {
    constexpr int KeptAtTheEnd = 256 << 20, SeparateFrom = 32 << 20;
    mallopt(M_TRIM_THRESHOLD, KeptAtTheEnd);
    mallopt(M_MMAP_THRESHOLD, SeparateFrom);
}

/// How the dialog manager calls a handler.
bool callHandler(void (*call)(void*), void* argument) {
    Session& current = session();
    if (!current.addOn) {
        call(argument);
        return true;
    }
    const auto fault = current.addOn->call(text::phrase("a dialog handler"), [&] { call(argument); });
    if (fault) current.report.write(*fault, true);
    return !fault;
}

}  // namespace

struct Host::Content {
    Session session;
    frontend::AddOnCaller callerBefore = nullptr;
};

Host::Host() : content_(std::make_unique<Content>()) {
    if (!setSession(&content_->session)) throw std::logic_error("there is a Host already");
    keepFreedMemory();
    fillFunctionTable(content_->session.table.data());
    content_->callerBefore = frontend::setAddOnCaller(&callHandler);
}

Host::~Host() {
    unloadAddOn();
    frontend::setAddOnCaller(content_->callerBefore);
    setSession(nullptr);
}

// --- Model ---

model::Status Host::openModel(const std::filesystem::path& path, const model::OpenOptions& options) {
    if (content_->session.busy()) {
        return model::Error{model::ErrorKind::Refused,
                            text::message("cannot open a model while a command of the add-on runs")};
    }
    auto opened = model::Model::open(path, options);
    if (!opened) return opened.error();
    content_->session.replaceModel(std::move(*opened));
    return {};
}

void Host::adoptModel(std::unique_ptr<model::Model> model) {
    if (!content_->session.busy()) content_->session.replaceModel(std::move(model));
}

void Host::closeModel() {
    if (!content_->session.busy()) content_->session.replaceModel(nullptr);
}

model::Model* Host::model() {
    return content_->session.model.get();
}

bool Host::undo() {
    return !content_->session.busy() && model() != nullptr && model()->undo();
}

bool Host::redo() {
    return !content_->session.busy() && model() != nullptr && model()->redo();
}

model::Status Host::save(const std::filesystem::path& path, const model::SaveOptions& options) {
    if (model() == nullptr)
        return model::Error{model::ErrorKind::CannotWrite, text::message("there is no open model to save")};
    // Between commands of a busy add-on the model is whole: saving is possible while a dialog is open.
    if (model()->commandOpen()) {
        return model::Error{model::ErrorKind::Refused,
                            text::message("cannot save the model while a command of the add-on runs")};
    }
    return model()->save(path, options);
}

// --- Add-on ---

model::Status Host::loadAddOn(const std::filesystem::path& bundle) {
    Session& session = content_->session;
    const auto failure = [&](const std::string& reason) {
        return model::Error{model::ErrorKind::CannotRead,
                            text::message("cannot load the add-on {}: {}", bundle.string(), reason)};
    };
    if (session.addOn) return failure(text::message("another one is loaded"));
    if (bundle.empty()) {
        return model::Error{model::ErrorKind::CannotRead,
                            text::message("cannot find the add-on: the system does not tell where this program lies "
                                          "(is /proc mounted?); name the add-on's bundle with --addon")};
    }
    auto opened = AddOn::open(bundle);
    if (!opened) return failure(opened.error().message);
    session.addOn = std::move(*opened);
    const model::Status started = session.addOn->start(session.table.data());
    if (started) return {};
    unloadAddOn();
    return failure(started.error().message);
}

void Host::unloadAddOn() {
    Session& session = content_->session;
    if (!session.addOn || session.busy()) return;
    try {
        if (const auto fault = session.addOn->stop()) session.report.write(*fault);
    } catch (const std::bad_alloc&) {
        // It goes all the same; only what there was to say of that is lost. Destructors call this.
    }
    session.menus.clear();
    session.addOn.reset();
}

bool Host::addOnLoaded() const {
    return content_->session.addOn != nullptr;
}

const std::string& Host::addOnName() const {
    static const std::string none;
    return addOnLoaded() ? content_->session.addOn->name() : none;
}

const std::string& Host::addOnDescription() const {
    static const std::string none;
    return addOnLoaded() ? content_->session.addOn->description() : none;
}

const std::vector<Menu>& Host::menus() const {
    return content_->session.menus.all();
}

GSErrCode Host::pickMenuItem(Int16 menuStrResID, Int32 itemIndex) {
    Session& session = content_->session;
    const API_MenuReference reference{.menuResID = menuStrResID, .itemIndex = itemIndex};
    MenuItem* item = nullptr;
    if (session.menus.find(reference, item) != NoError) return APIERR_BADINDEX;
    if (!item->enabled || session.busy()) return APIERR_REFUSEDCMD;
    APIMenuCommandProc* const handler = session.menus.handler(menuStrResID);
    if (handler == nullptr) return APIERR_REFUSEDCMD;
    session.menuParams = {reference};
    GSErrCode result = NoError;
    const std::uint64_t faultsBefore = session.addOn->faults();
    const auto fault =
        session.addOn->call(text::phrase("a menu command"), [&] { result = handler(&session.menuParams); });
    session.menuParams = {};
    if (fault) session.report.write(*fault, true);
    // A fault further in, of a dialog handler or of an undoable command, does not show in the handler's answer.
    const bool faultless = !fault && session.addOn->faults() == faultsBefore;
    return faultless ? result : GSErrCode{APIERR_COMMANDFAILED};
}

// --- Front end ---

void Host::setPointPicker(PointPicker picker) {
    content_->session.picker = std::move(picker);
}

const std::vector<ReportLine>& Host::report() const {
    return content_->session.report.lines();
}

std::uint64_t Host::failedCommands() const {
    return content_->session.failedCommands;
}

void Host::setReportSink(ReportSink sink) {
    content_->session.report.setSink(std::move(sink));
}

HostFunction* Host::table() {
    return content_->session.table.data();
}

}  // namespace host
