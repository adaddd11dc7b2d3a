#include "console/script/ScriptUser.hpp"

#include "console/Failure.hpp"
#include "console/output/Text.hpp"

namespace console {
namespace {

/// The next answer given beforehand; where there is none, the user cancels.
template <class Answer>
std::optional<Answer> takeAnswer(std::deque<std::optional<Answer>>& answers) {
    if (answers.empty()) return std::nullopt;
    std::optional<Answer> answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

}  // namespace

ScriptUser::ScriptUser(Session& theSession, StepReader& theSteps) : session(theSession), steps(theSteps) {
    session.host().setPointPicker([this](const std::string& prompt) { return pickPoint(prompt); });
}

ScriptUser::~ScriptUser() {
    session.host().setPointPicker({});
}

bool ScriptUser::run() {
    const ViewInCharge inCharge(*this);
    while (const auto step = nextStep()) perform(*step);
    if (outputFailure) throw Failure(*outputFailure);
    return allDone;
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
    if (fileAnswers.empty()) tell("asks", {{"file", toUtf8(request.title)}});
    openFileDialog = &request;
    while (fileAnswers.empty()) {
        const auto step = nextStep();
        if (!step) break;
        perform(*step);
    }
    openFileDialog = nullptr;
    return takeAnswer(fileAnswers);
}

std::optional<host::PickedPoint> ScriptUser::pickPoint(const std::string& prompt) {
    if (pointAnswers.empty()) tell("asks", {{"point", wellFormed(prompt)}});
    pointAsked = true;
    while (pointAnswers.empty()) {
        const auto step = nextStep();
        if (!step) break;
        perform(*step);
    }
    pointAsked = false;
    return takeAnswer(pointAnswers);
}

std::optional<Step> ScriptUser::nextStep() {
    answerLastStep();
    if (outputFailure) return std::nullopt;
    auto step = steps.next();
    if (step) currentLine = step->line;
    return step;
}

void ScriptUser::answerLastStep() {
    if (answer.is_null()) return;
    try {
        printLine(answer);
    } catch (const Failure& failure) {
        // This may be inside the add-on's command, which no exception must cross: the script ends as at its last line.
        outputFailure = failure.what();
    }
    answer = nullptr;
}

void ScriptUser::fail(const std::string& text) {
    answer = {{"error", text}, {"line", currentLine}};
    allDone = false;
}

void ScriptUser::tell(const char* what, JsonValue value) {
    if (!answer.is_null()) answer[what] = std::move(value);
}

}  // namespace console
