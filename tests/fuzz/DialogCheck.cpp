#include "DialogManager.hpp"
#include "ResourceManager.hpp"
#include "frameworks/FrontEnd.hpp"
#include "fuzz/Checks.hpp"
#include "support/TempFolder.hpp"

namespace fuzz {

namespace {

constexpr Int16 Resource = 100, List = 5;
constexpr int DeepestNesting = 3;

/// The one module whose dialogs are opened, as long as the program runs.
GSResModule layouts() {
    static const GSResModule module = [] {
        const testing_support::TempFolder bundle;
        std::filesystem::create_directories(bundle.path() / "Contents/Resources");
        bundle.write("Contents/Resources/dialogs.res",
                     "dialog 100 \"A\" size 400 300 grow 200 100\nlist 5 at 10 40 size 380 200\n"
                     "button 1 at 300 270 size 60 20 \"Do\"\nbutton 2 at 230 270 size 60 20 \"Close\"\n"
                     "edit 3 at 10 10 size 100 20 \"x\"\ntext 4 at 120 10 size 100 20 \"y\"\n"
                     "dialog 101 \"B\" size 100 50\nlist 5 at 0 0 size 90 30\n");
        return RSOpenResourceFile(bundle.path().c_str());
    }();
    return module;
}

/// Handler and user, both out of their mind.
class Players final : public frontend::View {
public:
    explicit Players(std::string_view bytes) : choices_(bytes), before_(frontend::setView(this)) { current = this; }
    ~Players() override {
        frontend::setView(before_);
        current = nullptr;
    }
    Players(const Players&) = delete;
    Players& operator=(const Players&) = delete;

    void play() {
        while (!choices_.empty()) open();
        require(frontend::openDialogs().empty(), "a dialog stays open");
    }

private:
    void open() {
        if (frontend::openDialogs().size() >= DeepestNesting) return;
        const std::size_t depth = frontend::openDialogs().size();
        const auto resource = static_cast<Int16>(Resource + choices_.below(3));
        (void)DGModalDialog(layouts(), resource, layouts(), handle, 7);
        require(frontend::openDialogs().size() == depth, "a dialog does not close what it opened");
    }

    static Int16 handle(Int16 message, Int16 dialog, Int16 item, DGUserData data, DGMessageData messageData) {
        require(data == 7, "the user data has changed");
        if (message == DG_MSG_CLICK && messageData != 0) {
            const auto& click = *reinterpret_cast<const DGListClick*>(messageData);
            require(click.row <= DGListGetItemCount(dialog, item), "a click on a row that is not there");
        }
        for (int i = 0; i < 6 && !current->choices_.empty(); ++i) current->callBack(dialog);
        if (message == DG_MSG_CLICK && current->choices_.below(8) == 0) current->open();
        return static_cast<Int16>(current->choices_.below(3));
    }

    Int16 someItem() {
        const std::size_t choice = choices_.below(8);
        return choice < 5 ? List : choice == 7 ? choices_.number() : static_cast<Int16>(choice);
    }
    Int16 someRow() { return static_cast<Int16>(choices_.byte() - 8); }
    GS::UniString someText() { return {choices_.text().c_str()}; }

    void callBack(Int16 open) {
        const Int16 dialog = choices_.below(16) == 0 ? choices_.number() : open;
        const Int16 item = someItem();
        switch (choices_.below(20)) {
            case 0: {
                const GS::UniString text = someText();
                if (DGSetItemText(dialog, item, text) == NoError && item != List)
                    require(DGGetItemText(dialog, item) == text, "a text is not kept");
                break;
            }
            case 1:
                DGBeginMoveGrowItems(dialog);
                break;
            case 2:
                DGEndMoveGrowItems(dialog);
                break;
            case 3:
                DGMoveGrowItem(dialog, item, choices_.number(), choices_.number(), choices_.number(),
                               choices_.number());
                break;
            case 4:
                DGListDisableDraw(dialog, item);
                break;
            case 5:
                DGListEnableDraw(dialog, item);
                break;
            case 6:
                DGListSetTabFieldCount(dialog, item, someRow());
                break;
            case 7:
                DGListSetTabFieldData(dialog, item, someRow(), choices_.number(), choices_.number(), someRow(),
                                      someRow(), choices_.below(2) != 0, choices_.below(2) != 0);
                break;
            case 8:
                DGListSetHeaderItemCount(dialog, item, someRow());
                break;
            case 9:
                DGListSetHeaderItemText(dialog, item, someRow(), someText());
                break;
            case 10:
                DGListSetItemText(dialog, item, someRow(), someText());
                break;
            case 11:
                DGListSetItemStatus(dialog, item, someRow(), someRow());
                break;
            case 12:
                DGListSetItemColor(dialog, item, someRow(), 1, 2, 3);
                break;
            case 13:
                DGListSetTabItemText(dialog, item, someRow(), someRow(), someText());
                break;
            case 14:
                (void)DGListGetTabItemText(dialog, item, someRow(), someRow());
                break;
            case 15:
                DGInvalidateItem(dialog, item);
                break;
            default:
                insertRows(dialog, item);
        }
    }

    void insertRows(Int16 dialog, Int16 item) {
        const Int16 before = DGListGetItemCount(dialog, item);
        const Int16 position = someRow();
        const GSErrCode code = DGListInsertItem(dialog, item, position);
        const Int16 now = DGListGetItemCount(dialog, item);
        require(now == before + (code == NoError ? 1 : 0), "an insertion and the count of rows disagree");
        if (code != NoError) return;
        const Int16 row = position == DG_LIST_BOTTOM ? now : position;
        require(DGListGetItemStatus(dialog, item, row) == DG_IS_ENABLE, "a new row has a status");
        require(DGListGetTabItemText(dialog, item, row, 1).IsEmpty(), "a new row has a text");
    }

    void runModal(frontend::Dialog& dialog) override {
        for (int i = 0; i < 40 && !dialog.ended() && !choices_.empty(); ++i) act(dialog);
    }

    void act(frontend::Dialog& dialog) {
        switch (choices_.below(6)) {
            case 0:
                (void)dialog.clickItem(someItem());
                break;
            case 1:
                (void)dialog.typeText(someItem(), someText());
                break;
            case 2: {
                const int width = dialog.width();
                const bool done = dialog.resize(choices_.number(), choices_.number());
                require(done || dialog.ended() || dialog.width() == width, "a refused growth grows");
                require(dialog.width() >= dialog.minimumWidth(), "a dialog is smaller than its least size");
                break;
            }
            default:
                (void)dialog.clickRow(someItem(), someRow(), choices_.number());
        }
        if (const frontend::List* list = dialog.list(List)) lookAt(*list);
    }

    static void lookAt(const frontend::List& list) {
        require(list.rowCount() >= 0 && list.rowCount() <= DG_LIST_MAX_ROWS, "a list has an impossible count of rows");
        for (Int16 row = 1; row <= list.rowCount(); ++row) {
            (void)list.rowText(row);
            (void)list.cell(row, static_cast<Int16>(list.tabFields().size()));
        }
    }

    std::optional<std::string> pickFile(const frontend::FileRequest&) override { return {}; }

    inline static Players* current = nullptr;
    Choices choices_;
    frontend::View* before_;
};

}  // namespace

void checkDialogs(std::string_view bytes) {
    Players(bytes).play();
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkDialogs)
