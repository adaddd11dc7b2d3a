#pragma once
// The scripted user. It reads steps wherever a person would act: before a command, in an open dialog, in the file
// dialog, in the model window. A step is answered just before the next one is read. So the answer can say what the step
// caused: a dialog that opened or closed, a file asked for, the end of the command.

#include "console/ModelSession.hpp"
#include "console/script/ScriptReader.hpp"

#include <deque>
#include <optional>
#include <string>

namespace console {

class ScriptUser : public frontend::View {
public:
    ScriptUser(ModelSession& session, ScriptReader& steps);
    ~ScriptUser() override;

    /// Runs the script to its end. @return whether every step could be done. Throws Failure where the answers cannot be
    /// written.
    bool run();
    /// Whether the model was changed since a step last saved it, or was told why it could not.
    bool hasChangesNobodySaved();

    void runModal(frontend::Dialog& dialog) override;
    std::optional<std::string> pickFile(const frontend::FileRequest& request) override;

private:
    // The flow of steps and answers.
    std::optional<host::PickedPoint> pickPoint(const std::string& prompt);
    std::optional<Step> nextStep();
    void answerLastStep();
    void perform(const Step& step);
    /// Answers with the error alone.
    void fail(const std::string& text);
    /// For what went wrong although the step was done.
    void addError(const std::string& text);
    /// Adds to the answer that is still to be given.
    void tell(const char* what, JsonValue value);

    // The steps.
    using Action = void (ScriptUser::*)(const JsonValue& step);
    struct Verb;
    static const Verb* findVerb(const JsonValue& step);
    /// While the add-on's command runs, menus, undo and saving are disabled: fails the step then.
    bool refusedWhileCommandRuns();
    /// The dialog in front. If there is none, fails the step and returns null.
    frontend::Dialog* dialogInFront();

    void menu(const JsonValue& step);
    void file(const JsonValue& step);
    void click(const JsonValue& step);
    void text(const JsonValue& step);
    void resize(const JsonValue& step);
    void dump(const JsonValue& step);
    void point(const JsonValue& step);
    void undo(const JsonValue& step);
    void redo(const JsonValue& step);
    void save(const JsonValue& step);
    void menus(const JsonValue& step);
    void report(const JsonValue& step);

    ModelSession& session_;
    ScriptReader& steps_;
    std::uint64_t currentLine_ = 0;
    JsonValue answer_;  ///< Null where no step waits for its answer.
    bool allDone_ = true;
    std::uint64_t revisionSaved_ = 0;  ///< When a step last tried to save; of a model just opened at first.
    bool commandRuns_ = false;
    std::optional<std::string> outputFailure_;
    const frontend::FileRequest* openFileDialog_ = nullptr;
    bool pointAsked_ = false;
    std::deque<std::optional<std::string>> fileAnswers_;
    std::deque<std::optional<host::PickedPoint>> pointAnswers_;
};

}  // namespace console
