#include "support/ScriptedView.hpp"

#include <gtest/gtest.h>

#include <utility>

namespace testing_support {

ScriptedView::ScriptedView() : before(frontend::setView(this)) {}

ScriptedView::~ScriptedView() {
    frontend::setView(before);
    EXPECT_TRUE(dialogs.empty()) << dialogs.size() << " expected dialog(s) never opened";
    EXPECT_TRUE(files.empty()) << files.size() << " expected file dialog(s) never opened";
}

void ScriptedView::inNextDialog(Actions actions) {
    dialogs.push_back(std::move(actions));
}

void ScriptedView::pickNextFile(std::string path) {
    files.emplace_back(std::move(path));
}

void ScriptedView::cancelNextFile() {
    files.emplace_back(std::nullopt);
}

void ScriptedView::runModal(frontend::Dialog& dialog) {
    if (dialogs.empty()) {
        ADD_FAILURE() << "dialog " << dialog.resourceId() << " opened unexpectedly";
        return;
    }
    // Taken out first: the actions may open a dialog within the dialog.
    const Actions actions = std::move(dialogs.front());
    dialogs.pop_front();
    actions(dialog);
}

std::optional<std::string> ScriptedView::pickFile(const frontend::FileRequest& request) {
    requests.push_back(request);
    if (files.empty()) {
        ADD_FAILURE() << "a file dialog opened unexpectedly: " << request.title.ToCStr().Get();
        return std::nullopt;
    }
    std::optional<std::string> answer = std::move(files.front());
    files.pop_front();
    return answer;
}

void ScriptedView::changed(frontend::Dialog&, Int16) {
    ++changeCount;
}

}  // namespace testing_support
