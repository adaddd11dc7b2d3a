#pragma once
// A dialog with one item of each kind, a handler that records its messages, and a user.

#include "GSException.hpp"
#include "Support.hpp"
#include "support/ScriptedView.hpp"
#include "support/TempFolder.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <functional>

namespace testing_support {

/// A message as the handler got it; of a click in a list, which carries an address, without its data.
struct Message {
    Int16 message, item;
    DGMessageData data;
    friend bool operator==(const Message&, const Message&) = default;
};

inline void PrintTo(const Message& message, std::ostream* stream) {
    *stream << '{' << message.message << ", " << message.item << ", " << message.data << '}';
}

class DialogTest : public ::testing::Test {
protected:
    static constexpr Int16 Resource = 100, FixedResource = 101, List = 5;
    static constexpr DGUserData UserData = -77;

    DialogTest() {
        std::filesystem::create_directories(bundle_.path() / "Contents/Resources");
        bundle_.write("Contents/Resources/dialogs.res",
                      "dialog 100 \"A dialog\" size 400 300 grow 200 100\n"
                      "list 5 at 10 40 size 380 200\n"
                      "button 1 at 300 270 size 60 20 \"Do\"\n"
                      "button 2 at 230 270 size 60 20 \"Close\"\n"
                      "edit 3 at 10 10 size 100 20 \"initial\"\n"
                      "text 4 at 120 10 size 100 20 \"static\"\n"
                      "dialog 101 \"Fixed\" size 100 50\n"
                      "list 5 at 0 0 size 90 30\n");
        module_ = RSOpenResourceFile(bundle_.path().c_str());
        current = this;
    }
    ~DialogTest() override {
        RSCloseResourceFile(module_);
        current = nullptr;
    }

    /// Opens the dialog for a user who does this. @return the dialog's result.
    Int16 open(ScriptedView::Actions user, Int16 resource = Resource) {
        ScriptedView shown;
        ScriptedView* const before = std::exchange(present_, &shown);
        shown.inNextDialog(std::move(user));
        struct Restore {
            ScriptedView*& target;
            ScriptedView* value;
            ~Restore() { target = value; }
        } const restore{present_, before};
        return DGModalDialog(module_, resource, module_, handler(), UserData);
    }
    Int16 openWithoutView() { return DGModalDialog(module_, Resource, module_, handler(), UserData); }

    static DGDialogHandler handler() {
        return [](Int16 message, Int16 dialog, Int16 item, DGUserData userData, DGMessageData data) {
            return current->receive(message, dialog, item, userData, data);
        };
    }

    ScriptedView& view() { return *present_; }

    std::function<void()> onInit_ = [] {};
    std::function<void()> onResize_ = [] {};
    std::function<Int16(Int16)> onClick_ = [](Int16) { return Int16{0}; };

    GSResModule module_ = InvalidResModule;
    Int16 id_ = 0;  ///< Of the dialog opened last.
    std::vector<Message> messages_;
    DGUserData lastUserData_ = 0;
    DGMessageData lastData_ = 0;
    DGListClick lastClick_{};

private:
    Int16 receive(Int16 message, Int16 dialog, Int16 item, DGUserData userData, DGMessageData data) {
        id_ = dialog;
        lastUserData_ = userData;
        lastData_ = data;
        const bool inList = message == DG_MSG_CLICK && data != 0;
        if (inList) lastClick_ = *reinterpret_cast<const DGListClick*>(data);
        messages_.push_back({message, item, inList ? 0 : data});
        if (message == DG_MSG_INIT) onInit_();
        if (message == DG_MSG_RESIZE) onResize_();
        return message == DG_MSG_CLICK ? onClick_(item) : Int16{1};
    }

    inline static DialogTest* current = nullptr;
    TempFolder bundle_;
    ScriptedView* present_ = nullptr;
};

}  // namespace testing_support
