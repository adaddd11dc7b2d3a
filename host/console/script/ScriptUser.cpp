#include "console/script/ScriptUser.hpp"

#include "console/Failure.hpp"
#include "console/output/HostText.hpp"
#include "console/output/Messages.hpp"
#include "console/script/DialogAsJson.hpp"

#include "text/Guid.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <limits>

namespace console {
namespace {

/// The next answer that the script gave in advance; if there is none, the user cancels.
template <class Answer>
std::optional<Answer> takeAnswer(std::deque<std::optional<Answer>>& answers) {
    if (answers.empty()) return std::nullopt;
    std::optional<Answer> answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

/// A whole number that the dialog manager can take.
std::optional<Int16> number(const JsonValue& value) {
    if (!value.is_number_integer()) return std::nullopt;
    const auto whole = value.get<std::int64_t>();
    if (whole < std::numeric_limits<Int16>::min() || whole > std::numeric_limits<Int16>::max()) return std::nullopt;
    return static_cast<Int16>(whole);
}

/// The member's number; `absent` where the step has no such member; nothing where it is no number.
std::optional<Int16> number(const JsonValue& step, const char* member, Int16 absent) {
    return step.contains(member) ? number(step[member]) : absent;
}

std::optional<API_Coord3D> coordinates(const JsonValue& value) {
    const bool numbers = value.is_array() && value.size() == 3 &&
                         std::all_of(value.begin(), value.end(), [](const JsonValue& it) { return it.is_number(); });
    if (!numbers) return std::nullopt;
    return API_Coord3D{value[0].get<double>(), value[1].get<double>(), value[2].get<double>()};
}

}  // namespace

// --- The flow of steps and answers ---

ScriptUser::ScriptUser(ModelSession& session, ScriptReader& steps) : session_(session), steps_(steps) {
    session_.host().setPointPicker([this](const std::string& prompt) { return pickPoint(prompt); });
}

ScriptUser::~ScriptUser() {
    session_.host().setPointPicker({});
}

bool ScriptUser::run() {
    const ViewInCharge inCharge(*this);
    while (const auto step = nextStep()) perform(*step);
    if (outputFailure_) throw Failure(*outputFailure_);
    if (steps_.failure()) throw Failure(*steps_.failure());
    return allDone_;
}

void ScriptUser::runModal(frontend::Dialog& dialog) {
    tell("opened", {{"dialog", dialog.resourceId()}, {"title", toUtf8(dialog.title())}});
    while (!dialog.ended()) {
        const auto step = nextStep();
        if (!step) return;
        perform(*step);
    }
    tell("closed", dialog.result());
}

std::optional<std::string> ScriptUser::pickFile(const frontend::FileRequest& request) {
    if (fileAnswers_.empty()) tell("asks", {{"file", toUtf8(request.title)}});
    openFileDialog_ = &request;
    while (fileAnswers_.empty()) {
        const auto step = nextStep();
        if (!step) break;
        perform(*step);
    }
    openFileDialog_ = nullptr;
    return takeAnswer(fileAnswers_);
}

std::optional<host::PickedPoint> ScriptUser::pickPoint(const std::string& prompt) {
    if (pointAnswers_.empty()) tell("asks", {{"point", wellFormed(prompt)}});
    pointAsked_ = true;
    while (pointAnswers_.empty()) {
        const auto step = nextStep();
        if (!step) break;
        perform(*step);
    }
    pointAsked_ = false;
    return takeAnswer(pointAnswers_);
}

std::optional<Step> ScriptUser::nextStep() {
    answerLastStep();
    if (outputFailure_) return std::nullopt;
    auto step = steps_.next();
    if (step) currentLine_ = step->line;
    return step;
}

void ScriptUser::answerLastStep() {
    if (answer_.is_null()) return;
    if (const auto problem = session_.takeProblem()) {
        addError(problem->file.empty()
                     ? fmt::format("the add-on's changes were undone: {}", wellFormed(problem->reason))
                     : fmt::format("cannot read {}: {}", wellFormed(problem->file.string()), problem->reason));
    }
    try {
        printLine(answer_);
    } catch (const Failure& failure) {
        // This may run inside the add-on's command, which no exception may pass through. So the script ends as at its
        // last line, and run() throws.
        outputFailure_ = failure.what();
    }
    answer_ = nullptr;
}

void ScriptUser::fail(const std::string& text) {
    answer_ = nullptr;
    addError(text);
}

void ScriptUser::addError(const std::string& text) {
    answer_["error"] = text;
    answer_["line"] = currentLine_;
    allDone_ = false;
}

void ScriptUser::tell(const char* what, JsonValue value) {
    if (!answer_.is_null()) answer_[what] = std::move(value);
}

// --- What each step does ---

struct ScriptUser::Verb {
    const char* name;
    Action action;
    std::array<const char*, 2> companions;  ///< Further members that the step may have.

    bool knows(const std::string& member) const {
        return member == name || std::any_of(companions.begin(), companions.end(),
                                             [&](const char* it) { return it != nullptr && member == it; });
    }
};

const ScriptUser::Verb* ScriptUser::findVerb(const JsonValue& step) {
    static constexpr std::array Verbs{
        Verb{"menu", &ScriptUser::menu, {}},
        Verb{"file", &ScriptUser::file, {}},
        Verb{"click", &ScriptUser::click, {"row", "x"}},
        Verb{"text", &ScriptUser::text, {"item"}},
        Verb{"resize", &ScriptUser::resize, {}},
        Verb{"dump", &ScriptUser::dump, {}},
        Verb{"point", &ScriptUser::point, {"hit"}},
        Verb{"undo", &ScriptUser::undo, {}},
        Verb{"redo", &ScriptUser::redo, {}},
        Verb{"save", &ScriptUser::save, {}},
        Verb{"menus", &ScriptUser::menus, {}},
        Verb{"report", &ScriptUser::report, {}},
    };
    for (const Verb& verb : Verbs)
        if (step.contains(verb.name)) return &verb;
    return nullptr;
}

void ScriptUser::perform(const Step& step) {
    if (!step.error.empty()) return fail(step.error);
    const Verb* verb = findVerb(step.object);
    if (verb == nullptr) return fail("this step is unknown; docs/scripting.md lists the steps");
    for (const auto& [member, value] : step.object.items())
        if (!verb->knows(member)) return fail(fmt::format("a \"{}\" step has no \"{}\"", verb->name, member));
    answer_ = step.object;
    (this->*verb->action)(step.object);
}

bool ScriptUser::refusedWhileCommandRuns() {
    if (commandRuns_) fail("the add-on's command is still running; close its dialog first");
    return commandRuns_;
}

frontend::Dialog* ScriptUser::dialogInFront() {
    if (openFileDialog_ != nullptr) {
        fail("the file dialog is in front; answer it with {\"file\":\"NAME\"} or {\"file\":null}");
    } else if (pointAsked_) {
        fail("a point is asked for; answer with {\"point\":[x,y,z]} or {\"point\":null}");
    } else if (frontend::openDialogs().empty()) {
        fail("no dialog is open; pick a menu item first, such as {\"menu\":1}");
    } else {
        return frontend::openDialogs().back();
    }
    return nullptr;
}

void ScriptUser::menu(const JsonValue& step) {
    const auto item = number(step["menu"]);
    if (!item) return fail("\"menu\" takes the number of an item, from 1");
    if (refusedWhileCommandRuns()) return;
    const auto place = findMenuItem(session_.host(), *item);
    if (!place) return fail(noSuchMenuItem(session_.host(), *item));
    commandRuns_ = true;
    const GSErrCode error = session_.host().pickMenuItem(place->menu, place->item);
    commandRuns_ = false;
    tell("returned", error);
    if (error != NoError) addError(menuItemEnded(*item, error));
}

void ScriptUser::file(const JsonValue& step) {
    const JsonValue& name = step["file"];
    if (!name.is_string() && !name.is_null()) return fail("\"file\" takes a path, or null to cancel");
    fileAnswers_.push_back(name.is_null() ? std::nullopt : std::optional(name.get<std::string>()));
}

void ScriptUser::click(const JsonValue& step) {
    frontend::Dialog* dialog = dialogInFront();
    if (dialog == nullptr) return;
    const auto item = number(step["click"]), row = number(step, "row", 0), x = number(step, "x", 0);
    if (!item || !row || !x) return fail("\"click\", \"row\" and \"x\" take whole numbers");
    if (const frontend::List* list = dialog->list(*item)) {
        if (!dialog->clickRow(*item, *row, *x))
            fail(fmt::format("list {} has no row {}; it has {}", *item, *row, list->rowCount()));
    } else if (step.contains("row") || !dialog->clickItem(*item)) {
        fail(fmt::format("the dialog has no {} {}", step.contains("row") ? "list" : "button", *item));
    }
}

void ScriptUser::text(const JsonValue& step) {
    frontend::Dialog* dialog = dialogInFront();
    if (dialog == nullptr) return;
    const auto item = number(step, "item", 0);
    if (!step["text"].is_string() || !item) return fail("\"text\" takes a text, \"item\" the number of an edit text");
    if (!dialog->typeText(*item, toUniString(step["text"].get<std::string>())))
        fail(fmt::format("the dialog has no edit text {}", *item));
}

void ScriptUser::resize(const JsonValue& step) {
    frontend::Dialog* dialog = dialogInFront();
    if (dialog == nullptr) return;
    const JsonValue& growth = step["resize"];
    const bool pair = growth.is_array() && growth.size() == 2;
    const auto horizontal = pair ? number(growth[0]) : std::nullopt;
    const auto vertical = pair ? number(growth[1]) : std::nullopt;
    if (!horizontal || !vertical) return fail("\"resize\" takes the growth in width and height, such as [31,10]");
    if (!dialog->resize(*horizontal, *vertical)) return fail("the dialog has a fixed size");
    tell("size", {dialog->width(), dialog->height()});
}

void ScriptUser::dump(const JsonValue&) {
    if (openFileDialog_ != nullptr) return tell("dump", fileRequestAsJson(*openFileDialog_));
    if (const frontend::Dialog* dialog = dialogInFront()) tell("dump", dialogAsJson(*dialog));
}

void ScriptUser::point(const JsonValue& step) {
    if (step["point"].is_null()) return pointAnswers_.emplace_back(std::nullopt), void();
    const auto position = coordinates(step["point"]);
    if (!position) return fail("\"point\" takes three coordinates, such as [1.5,0,3], or null to cancel");
    host::PickedPoint point{*position, std::nullopt};
    if (step.contains("hit")) {
        const auto guid = step["hit"].is_string() ? text::parseGuid(step["hit"].get<std::string>()) : std::nullopt;
        if (!guid) return fail("\"hit\" takes the GUID of the element under the point");
        std::copy(guid->begin(), guid->end(), std::begin(point.hit.emplace().bytes));
    }
    pointAnswers_.emplace_back(point);
}

void ScriptUser::undo(const JsonValue&) {
    if (refusedWhileCommandRuns()) return;
    const auto name = session_.model().undoSteps().undo;
    if (!name || !session_.host().undo()) return fail("there is nothing to undo");
    tell("name", wellFormed(*name));
}

void ScriptUser::redo(const JsonValue&) {
    if (refusedWhileCommandRuns()) return;
    const auto name = session_.model().undoSteps().redo;
    if (!name || !session_.host().redo()) return fail("there is nothing to redo");
    tell("name", wellFormed(*name));
}

bool ScriptUser::hasChangesNobodySaved() {
    return session_.model().modified() && session_.model().revision() != revisionSaved_;
}

void ScriptUser::save(const JsonValue& step) {
    if (!step["save"].is_string()) return fail("\"save\" takes the path to save to");
    if (refusedWhileCommandRuns()) return;
    const auto target = step["save"].get<std::string>();
    for (const std::string& warning : model::Model::targetWarnings(target)) say(warning);
    revisionSaved_ = session_.model().revision();
    try {
        session_.save(target);
        if (!session_.backup().empty()) tell("backup", wellFormed(session_.backup().string()));
    } catch (const Failure& failure) {
        fail(failure.what());
    }
}

void ScriptUser::menus(const JsonValue&) {
    tell("menus", menusAsJson(session_.host().menus()));
}

void ScriptUser::report(const JsonValue&) {
    tell("report", session_.reportTexts());
}

}  // namespace console
