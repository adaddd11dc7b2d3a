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

ScriptUser::ScriptUser(Session& theSession, StepReader& theSteps) : session_(theSession), steps_(theSteps) {
    session_.host().setPointPicker([this](const std::string& prompt) { return pickPoint(prompt); });
}

ScriptUser::~ScriptUser() {
    session_.host().setPointPicker({});
}

bool ScriptUser::run() {
    const ViewInCharge inCharge(*this);
    while (const auto step = nextStep()) perform(*step);
    if (outputFailure_) throw Failure(*outputFailure_);
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
    try {
        printLine(answer_);
    } catch (const Failure& failure) {
        // This may be inside the add-on's command, which no exception must cross: the script ends as at its last line.
        outputFailure_ = failure.what();
    }
    answer_ = nullptr;
}

void ScriptUser::fail(const std::string& text) {
    answer_ = {{"error", text}, {"line", currentLine_}};
    allDone_ = false;
}

void ScriptUser::tell(const char* what, JsonValue value) {
    if (!answer_.is_null()) answer_[what] = std::move(value);
}

}  // namespace console
