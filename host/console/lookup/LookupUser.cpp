#include "console/lookup/LookupUser.hpp"

#include "console/output/Text.hpp"

namespace console {
namespace {

// The lookup dialog's items.
constexpr Int16 LookUpButton = 1;
constexpr Int16 CloseButton = 2;
constexpr Int16 GuidField = 3;
constexpr Int16 ResultList = 4;

}  // namespace

std::string LookupAnswer::error() const {
    // The first row repeats the GUID; the second is the element's type, or the reason why there is none.
    if (rows.size() < 2 || rows[1].columns.size() < 2) return "?";
    return rows[1].columns[0] == "Error" && rows.size() == 2 ? rows[1].columns[1] : "";
}

LookupUser::LookupUser(std::vector<std::string> theGuids) : guids_(std::move(theGuids)) {}

LookupUser::~LookupUser() = default;

std::optional<std::string> LookupUser::pickFile(const frontend::FileRequest&) {
    return std::nullopt;
}

void LookupUser::runModal(frontend::Dialog& dialog) {
    if (seen_ || dialog.list(ResultList) == nullptr) return;
    seen_ = true;
    headerTexts_ = readHeader(*dialog.list(ResultList));
    if (guids_.empty()) lookUp(dialog);
    for (const std::string& guid : guids_) {
        dialog.typeText(GuidField, toUniString(guid));
        lookUp(dialog);
    }
    dialog.clickItem(CloseButton);
}

void LookupUser::lookUp(frontend::Dialog& dialog) {
    const frontend::List& list = *dialog.list(ResultList);
    const int before = list.rowCount();
    const frontend::Item* field = dialog.item(GuidField);
    std::string guid = field == nullptr ? "" : toUtf8(field->text);
    dialog.clickItem(LookUpButton);
    found_.push_back({std::move(guid), readRows(list, before + 1)});
}

}  // namespace console
