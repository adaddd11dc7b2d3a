#include "console/ModelSession.hpp"

#include "console/Failure.hpp"
#include "console/StandardInput.hpp"
#include "console/output/HostText.hpp"
#include "console/output/Interrupts.hpp"
#include "console/output/Messages.hpp"
#include "console/output/StandardOutput.hpp"

#include <fmt/format.h>

#include <cstdio>
#include <cstring>
#include <utility>

namespace console {
namespace {

std::string opening(const std::filesystem::path& path) {
    return fmt::format("Opening {}", path.filename().string());
}

/// The file in which standard input is kept for the moment is nobody's business.
model::Error namingStandardInput(model::Error error, const std::string& kept) {
    const std::size_t at = error.message.find(kept);
    if (at != std::string::npos) error.message.replace(at, kept.size(), StandardInput::Name);
    return error;
}

}  // namespace

ModelFacts factsOf(const model::Model& model, const std::filesystem::path& path) {
    return {wellFormed(path.string()),  std::string(model.schemaName()), model.elementCount(),
            model.duplicateGlobalIds(), model.invalidGlobalIds(),        model.unknownClasses()};
}

JsonValue asJson(const ModelFacts& facts) {
    return {{"path", facts.path},
            {"schema", facts.schema},
            {"elements", facts.elements},
            {"duplicateGlobalIds", facts.duplicateGlobalIds},
            {"invalidGlobalIds", facts.invalidGlobalIds}};
}

JsonValue asJson(const std::vector<model::UnknownClass>& classes) {
    JsonValue json = JsonValue::array();
    for (const model::UnknownClass& unknown : classes)
        json.push_back({{"class", unknown.name}, {"instances", unknown.instances}});
    return json;
}

ModelSession::ModelSession(const CommonOptions& options, std::filesystem::path modelPath, Access access)
    : options_(options), path_(std::move(modelPath)) {
    // The destructor takes both away again, and may not need memory for that.
    frontend::setDebugSink({});
    frontend::setFileErrorSink({});
    host_.setReportSink([this](const host::ReportLine& line) { takeReport(line); });
    open(access);
    model().shareNewSets(options_.shareSets);
    for (const std::string& remark : model().remarks()) say(remark);
    frontend::setFileErrorSink([this](const std::string& path, int error) {
        if (!problem_) problem_ = CommandProblem{path, std::strerror(error)};
    });
    if (options_.debug) frontend::setDebugSink([](const char* text) { std::fputs(text, stderr); });
}

void ModelSession::open(Access access) {
    if (path_ != "-") {
        ProgressLine progress(opening(path_));
        return throwUnlessDone(host_.openModel(path_, {progress.callback(), access == Access::Editing}));
    }
    const StandardInput kept;
    ProgressLine progress(opening(StandardInput::Name));
    const model::Status opened = host_.openModel(kept.path(), {progress.callback(), false});
    if (!opened) throw Failure(namingStandardInput(opened.error(), kept.path().string()));
}

ModelSession::~ModelSession() {
    // The add-on may still write debug output when it is unloaded, so the sink goes last.
    host_.unloadAddOn();
    frontend::setDebugSink({});
    frontend::setFileErrorSink({});
    host_.setReportSink({});
}

std::string ModelSession::shownName() const {
    return path_ == "-" ? StandardInput::Name : path_.string();
}

ModelFacts ModelSession::facts() {
    return factsOf(model(), path_);
}

void ModelSession::loadAddOn() {
    throwUnlessDone(host_.loadAddOn(options_.addOn.empty() ? host::defaultBundle() : options_.addOn));
}

void ModelSession::runMenuCommand(Int32 item, frontend::View& view) {
    const auto place = findMenuItem(host_, item);
    if (!place) throw Failure(noSuchMenuItem(host_, item));
    const ViewInCharge inCharge(view);
    const GSErrCode error = host_.pickMenuItem(place->menu, place->item);
    if (error == NoError) return;
    if (problem_ && problem_->file.empty())
        throw Failure(fmt::format("the add-on's changes were undone: {}; nothing was saved", problem_->reason));
    throw Failure(menuItemEnded(item, error) + "; nothing was saved");
}

void ModelSession::takeReport(const host::ReportLine& line) {
    complain(line.text);
    // The line that comes with a failed command says why it failed; others may follow.
    const bool failed = host_.failedCommands() > std::exchange(failedCommandsSeen_, host_.failedCommands());
    if (failed && !problem_) problem_ = CommandProblem{{}, line.text};
}

std::optional<CommandProblem> ModelSession::takeProblem() {
    return std::exchange(problem_, std::nullopt);
}

/// Of the file as it was, once in a run: what was saved since is the user's own work.
model::step::Backup ModelSession::keep(const std::filesystem::path& target) {
    if (options_.backup.empty() || kept_.contains(target)) return {};
    auto backup = model::step::Backup::make(target, options_.backup);
    if (!backup) throw Failure(backup.error().message + "; nothing was saved");
    kept_.insert(target);
    return std::move(*backup);
}

model::Status ModelSession::saveShowingProgress(const std::filesystem::path& target) {
    ProgressLine progress(fmt::format("Saving {}", target.filename().string()));
    return host_.save(target, {InterruptGuard::cancelling(progress.callback()), options_.force});
}

void ModelSession::save(const std::filesystem::path& target) {
    if (target == "-") return printModel(model().bytes());
    InterruptGuard guard;
    const model::step::Backup backup = keep(target);
    const model::Status status = saveShowingProgress(target);
    backup_ = backup.path();
    if (!status) {
        backup.removeUnlessReplaced();
        kept_.erase(target);
    }
    if (!status && InterruptGuard::interrupted()) {
        complain(fmt::format("interrupted; {} was not written", target.string()));
        InterruptGuard::dieIfInterrupted();
    }
    if (!status && status.error().kind == model::ErrorKind::ChangedSince)
        throw Failure(status.error().message + " (--force)");
    throwUnlessDone(status);
}

std::vector<std::string> ModelSession::reportTexts() const {
    std::vector<std::string> texts;
    for (const host::ReportLine& line : host_.report()) texts.push_back(wellFormed(line.text));
    return texts;
}

std::optional<MenuPlace> findMenuItem(const host::Host& host, Int32 number) {
    for (const host::Menu& menu : host.menus()) {
        const auto count = static_cast<Int32>(menu.items.size());
        if (number >= 1 && number <= count) return MenuPlace{menu.menuStrResID, number};
        number -= count;
    }
    return std::nullopt;
}

std::string menuItemEnded(Int32 number, GSErrCode error) {
    return fmt::format("the add-on's menu item {} ended with error 0x{:08X}", number, static_cast<UInt32>(error));
}

std::string noSuchMenuItem(const host::Host& host, Int32 number) {
    std::size_t count = 0;
    for (const host::Menu& menu : host.menus()) count += menu.items.size();
    return fmt::format("the add-on's menus have no item {}; they have {}", number, count);
}

}  // namespace console
