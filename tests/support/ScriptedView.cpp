#include "support/ScriptedView.hpp"

#include <gtest/gtest.h>

#include <utility>

namespace testing_support {

ScriptedView::ScriptedView() : before_(frontend::setView(this)) {}

ScriptedView::~ScriptedView() {
    frontend::setView(before_);
    EXPECT_TRUE(dialogs_.empty()) << dialogs_.size() << " expected dialog(s) never opened";
    EXPECT_TRUE(files_.empty()) << files_.size() << " expected file dialog(s) never opened";
}

void ScriptedView::inNextDialog(Actions actions) {
    dialogs_.push_back(std::move(actions));
}

void ScriptedView::pickNextFile(std::string path) {
    files_.emplace_back(std::move(path));
}

void ScriptedView::cancelNextFile() {
    files_.emplace_back(std::nullopt);
}

void ScriptedView::runModal(frontend::Dialog& dialog) {
    if (dialogs_.empty()) {
        ADD_FAILURE() << "dialog " << dialog.resourceId() << " opened unexpectedly";
        return;
    }
    // Taken out first: the actions may open a dialog within the dialog.
    const Actions actions = std::move(dialogs_.front());
    dialogs_.pop_front();
    actions(dialog);
}

std::optional<std::string> ScriptedView::pickFile(const frontend::FileRequest& request) {
    requests_.push_back(request);
    if (files_.empty()) {
        ADD_FAILURE() << "a file dialog opened unexpectedly: " << request.title.ToCStr().Get();
        return std::nullopt;
    }
    std::optional<std::string> answer = std::move(files_.front());
    files_.pop_front();
    return answer;
}

void ScriptedView::changed(frontend::Dialog&, Int16) {
    ++changeCount_;
}

}  // namespace testing_support
