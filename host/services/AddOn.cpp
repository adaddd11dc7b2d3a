#include "services/AddOn.hpp"

#include "services/ErrorCodes.hpp"

#include <fmt/format.h>

#include <cstring>
#include <vector>

namespace host {

namespace {

model::Error cannot(std::string reason) {
    return {model::ErrorKind::CannotRead, std::move(reason)};
}

/// Handles are never freed: an address that comes back would make a stale handle valid again.
void* newClientHandle() {
    static std::vector<std::unique_ptr<char>> handles;
    return handles.emplace_back(std::make_unique<char>()).get();
}

/// A buffer of the add-on's, which need not have been terminated.
template <std::size_t size>
std::string textOf(const char (&buffer)[size]) {
    return {buffer, strnlen(buffer, size)};
}

model::Status checkVersions(const ExportedFunctions& exported) {
    if (exported.interfaceVersion != APIInterfaceVersion) {
        return cannot(text::message("its interface version is {}, this host's is {}",
                                    fmt::format("{:#010x}", exported.interfaceVersion),
                                    fmt::format("{:#010x}", APIInterfaceVersion)));
    }
    if (exported.apiVersion != APIVersion) {
        return cannot(text::message("it is built for version {} of the host interface, this host has version {}",
                                    exported.apiVersion, APIVersion));
    }
    return {};
}

model::Status checkFunctions(const ExportedFunctions& exported) {
    const char* missing = exported.checkEnvironment == nullptr    ? "checkEnvironment"
                          : exported.registerInterface == nullptr ? "registerInterface"
                          : exported.initialize == nullptr        ? "initialize"
                          : exported.freeData == nullptr          ? "freeData"
                                                                  : nullptr;
    if (missing != nullptr) return cannot(text::message("its record has no function {}", missing));
    return {};
}

}  // namespace

AddOn::AddOn(const std::filesystem::path& bundle)
    : bundleName_((bundle.has_filename() ? bundle : bundle.parent_path()).stem().string()),
      clientHandle_(newClientHandle()) {}

model::Result<std::unique_ptr<AddOn>> AddOn::open(const std::filesystem::path& bundle) {
    std::unique_ptr<AddOn> addOn(new AddOn(bundle));
    auto image = AddOnImage::load(bundle);
    if (!image) return image.error();
    addOn->image_ = std::move(*image);
    if (const model::Status read = addOn->readRecord(); !read) return read.error();
    addOn->resourceModule_ = RSOpenResourceFile(bundle.c_str());
    if (addOn->resourceModule_ == InvalidResModule) return cannot(text::message("its resource file cannot be read"));
    return addOn;
}

model::Status AddOn::readRecord() {
    const auto fault = call(text::Phrase("GetExportedFuncAddrs"), [this] { image_->getExported()(&exported_); });
    if (fault) return cannot(*fault);
    // The version first: the rest of a record of another version may mean something else.
    if (model::Status known = checkVersions(exported_); !known) return known;
    return checkFunctions(exported_);
}

model::Status AddOn::start(const HostFunction* table) {
    if (model::Status bound = bind(table); !bound) return bound;
    if (model::Status willing = checkEnvironment(); !willing) return willing;
    stage_ = Stage::Registering;
    model::Status registered =
        step(text::Phrase("registerInterface"), [](AddOn& addOn) { return addOn.exported_.registerInterface(); });
    stage_ = Stage::Registered;
    if (!registered) return registered;
    stage_ = Stage::Initialized;
    return step(text::Phrase("initialize"),
                [](AddOn& addOn) { return addOn.exported_.initialize(addOn.clientHandle_); });
}

model::Status AddOn::bind(const HostFunction* table) {
    GSErrCode answer = NoError;
    const auto fault = call(text::Phrase("SetImportedFuncAddrs"), [&] { answer = image_->setImported()(table); });
    if (fault) return cannot(*fault);
    if (answer != NoError) return cannot(text::message("it refused the host's functions: {}", errorName(answer)));
    return {};
}

model::Status AddOn::checkEnvironment() {
    API_EnvirParams environment{};
    API_AddonType answer = APIAddon_DontRegister;
    const auto fault =
        call(text::Phrase("checkEnvironment"), [&] { answer = exported_.checkEnvironment(&environment); });
    if (fault) return cannot(*fault);
    if (answer == APIAddon_DontRegister) return cannot(text::message("it does not want to run in this host"));
    addOnName_ = textOf(environment.addOnInfo.name);
    addOnDescription_ = textOf(environment.addOnInfo.description);
    if (addOnName_.empty()) addOnName_ = bundleName_;
    return {};
}

model::Status AddOn::step(text::Phrase function, GSErrCode (*body)(AddOn&)) {
    GSErrCode answer = NoError;
    const auto fault = call(function, [&] { answer = body(*this); });
    if (fault) return cannot(*fault);
    if (answer != NoError) return cannot(text::message("its {} failed: {}", function, errorName(answer)));
    return {};
}

std::optional<std::string> AddOn::stop() {
    const bool started = stage_ == Stage::Registered || stage_ == Stage::Initialized;
    if (!started || hasCrashed_) return std::nullopt;
    // Its result is of no use: the add-on goes either way.
    auto fault = call(text::Phrase("freeData"), [this] { exported_.freeData(); });
    stage_ = Stage::Stopped;
    return fault;
}

AddOn::~AddOn() {
    image_.reset();
    if (resourceModule_ != InvalidResModule) RSCloseResourceFile(resourceModule_);
}

std::string AddOn::refusal(text::Phrase where) const {
    return text::message("the add-on {} crashed before: {} is not called any more", bundleName_, where);
}

std::string AddOn::faultMessage(text::Phrase where, const CallFault& fault) const {
    if (fault.outOfMemory) {
        return text::message(
            "memory is used up: {} of the add-on {} was ended, an unfinished change of it is taken back. Close other "
            "programs, or do the work in smaller parts",
            where, bundleName_);
    }
    if (!fault.crashed)
        return text::message("the add-on {} let an exception out of {}: {}", bundleName_, where, fault.what);
    return text::message(
        "the add-on {} crashed in {} ({}) and is not called any more. An unfinished change of it is taken back; save "
        "the model under another name and start the program again",
        bundleName_, where, fault.what);
}

}  // namespace host
