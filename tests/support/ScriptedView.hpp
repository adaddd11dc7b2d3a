#pragma once
// A front end whose user is the test: what is done in each dialog and answered to each file dialog is said beforehand,
// in the order in which they open. A dialog or a question that nobody prepared fails the test, and so does one that was
// prepared and never came.

#include "frameworks/FrontEnd.hpp"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace testing_support {

class ScriptedView final : public frontend::View {
public:
    using Actions = std::function<void(frontend::Dialog&)>;

    /// Puts itself in charge; the destructor gives back to the view before.
    ScriptedView();
    ~ScriptedView() override;
    ScriptedView(const ScriptedView&) = delete;
    ScriptedView& operator=(const ScriptedView&) = delete;

    /// What the user does in the next dialog. One that is still open afterwards is closed as by Escape.
    void inNextDialog(Actions actions);
    void pickNextFile(std::string path);
    void cancelNextFile();

    /// The file dialogs shown so far.
    const std::vector<frontend::FileRequest>& fileRequests() const { return requests_; }
    /// How often something changed in an open dialog.
    int changes() const { return changeCount_; }

private:
    void runModal(frontend::Dialog& dialog) override;
    std::optional<std::string> pickFile(const frontend::FileRequest& request) override;
    void changed(frontend::Dialog& dialog, Int16 item) override;

    frontend::View* before_;
    std::deque<Actions> dialogs_;
    std::deque<std::optional<std::string>> files_;
    std::vector<frontend::FileRequest> requests_;
    int changeCount_ = 0;
};

}  // namespace testing_support
