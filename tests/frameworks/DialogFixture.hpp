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
        std::filesystem::create_directories(bundle.path() / "Contents/Resources");
        bundle.write("Contents/Resources/dialogs.res",
                     "dialog 100 \"A dialog\" size 400 300 grow 200 100\n"
                     "list 5 at 10 40 size 380 200\n"
                     "button 1 at 300 270 size 60 20 \"Do\"\n"
                     "button 2 at 230 270 size 60 20 \"Close\"\n"
                     "edit 3 at 10 10 size 100 20 \"initial\"\n"
                     "text 4 at 120 10 size 100 20 \"static\"\n"
                     "dialog 101 \"Fixed\" size 100 50\n"
                     "list 5 at 0 0 size 90 30\n");
        module = RSOpenResourceFile(bundle.path().c_str());
        current = this;
    }
    ~DialogTest() override {
        RSCloseResourceFile(module);
        current = nullptr;
    }

    /// Opens the dialog for a user who does this. @return the dialog's result.
    Int16 open(ScriptedView::Actions user, Int16 resource = Resource) {
        ScriptedView shown;
        ScriptedView* const before = std::exchange(present, &shown);
        shown.inNextDialog(std::move(user));
        struct Restore {
            ScriptedView*& target;
            ScriptedView* value;
            ~Restore() { target = value; }
        } const restore{present, before};
        return DGModalDialog(module, resource, module, handler(), UserData);
    }
    Int16 openWithoutView() { return DGModalDialog(module, Resource, module, handler(), UserData); }

    static DGDialogHandler handler() {
        return [](Int16 message, Int16 dialog, Int16 item, DGUserData userData, DGMessageData data) {
            return current->receive(message, dialog, item, userData, data);
        };
    }

    ScriptedView& view() { return *present; }

    std::function<void()> onInit = [] {};
    std::function<void()> onResize = [] {};
    std::function<Int16(Int16)> onClick = [](Int16) { return Int16{0}; };

    GSResModule module = InvalidResModule;
    Int16 id = 0;  ///< Of the dialog opened last.
    std::vector<Message> messages;
    DGUserData lastUserData = 0;
    DGMessageData lastData = 0;
    DGListClick lastClick{};

private:
    Int16 receive(Int16 message, Int16 dialog, Int16 item, DGUserData userData, DGMessageData data) {
        id = dialog;
        lastUserData = userData;
        lastData = data;
        const bool inList = message == DG_MSG_CLICK && data != 0;
        if (inList) lastClick = *reinterpret_cast<const DGListClick*>(data);
        messages.push_back({message, item, inList ? 0 : data});
        if (message == DG_MSG_INIT) onInit();
        if (message == DG_MSG_RESIZE) onResize();
        return message == DG_MSG_CLICK ? onClick(item) : Int16{1};
    }

    inline static DialogTest* current = nullptr;
    TempFolder bundle;
    ScriptedView* present = nullptr;
};

}  // namespace testing_support
