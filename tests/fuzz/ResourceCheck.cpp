#include "DialogManager.hpp"
#include "ResourceManager.hpp"
#include "frameworks/FrontEnd.hpp"
#include "fuzz/Checks.hpp"
#include "support/TempFolder.hpp"

namespace fuzz {

namespace {

Int16 ignore(Int16, Int16, Int16, DGUserData, DGMessageData) {
    return 0;
}

/// Looks at all that a dialog shows, then goes.
class Looker final : public frontend::View {
public:
    Looker() : before_(frontend::setView(this)) {}
    ~Looker() override { frontend::setView(before_); }
    Looker(const Looker&) = delete;
    Looker& operator=(const Looker&) = delete;

    void runModal(frontend::Dialog& dialog) override {
        require(dialog.width() >= dialog.minimumWidth() && dialog.height() >= dialog.minimumHeight(),
                "a dialog is smaller than its least size");
        Int16 last = 0;
        for (const frontend::Item& item : dialog.items()) {
            require(item.number > last, "items are not in the order of their numbers");
            require(item.rect.width() > 0 && item.rect.height() > 0, "an item has no size");
            require((item.list != nullptr) == (item.kind == frontend::ItemKind::List), "an item is of two kinds");
            last = item.number;
        }
        (void)dialog.resize(7, -7);
    }
    std::optional<std::string> pickFile(const frontend::FileRequest&) override { return {}; }

private:
    frontend::View* before_;
};

}  // namespace

void checkResources(std::string_view bytes) {
    const testing_support::TempFolder bundle;
    const auto folder = bundle.path() / "Contents/Resources/de.lproj";
    std::filesystem::create_directories(folder);
    bundle.write("Contents/Resources/a.res", bytes);
    std::string faults;
    const auto before = frontend::setDebugSink([&](const char* text) { faults += text; });
    const GSResModule module = RSOpenResourceFile(bundle.path().c_str());
    frontend::setDebugSink(before);
    require((module == InvalidResModule) == !faults.empty(), "a refusal and its reasons disagree");
    if (module == InvalidResModule) return;
    const Looker looker;
    for (const Int32 list : {1, 100, 101, 200, 32000, 32500, 32767}) {
        GS::UniString text;
        for (Int32 index = -1; index < 4; ++index) {
            (void)RSGetIndString(&text, list, index, module);
            (void)RSGetIndFixString(&text, list, index, module);
        }
        (void)frontend::stringList(module, list);
        (void)frontend::menuTitle(module, list);
        (void)DGModalDialog(module, static_cast<Int16>(list), module, ignore, 0);
    }
    require(RSCloseResourceFile(module) == NoError, "an open module cannot be closed");
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkResources)
