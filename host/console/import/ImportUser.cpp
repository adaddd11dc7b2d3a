#include "console/import/ImportUser.hpp"

#include "console/import/ReviewList.hpp"
#include "console/output/Text.hpp"

#include <fmt/format.h>

namespace console {
namespace {

// The import dialog's items.
constexpr Int16 ApplyButton = 1;
constexpr Int16 CloseButton = 2;
constexpr Int16 SelectAllButton = 3;
constexpr Int16 ReviewList = 5;

}  // namespace

ImportUser::ImportUser(ImportPlan thePlan) : plan_(std::move(thePlan)), trouble_("the add-on opened no review list") {}

ImportUser::~ImportUser() = default;

std::optional<std::string> ImportUser::pickFile(const frontend::FileRequest&) {
    return plan_.updates;
}

void ImportUser::runModal(frontend::Dialog& dialog) {
    // A further dialog, from an add-on that asks something, is closed by the dialog manager as by Escape.
    if (dialogSeen_ || dialog.list(ReviewList) == nullptr) return;
    dialogSeen_ = true;
    trouble_.clear();
    headerTexts_ = readHeader(*dialog.list(ReviewList));
    lost_ = dialog.list(ReviewList)->rowsLost();
    if (tickRows(dialog)) {
        reviewRows_ = readRows(*dialog.list(ReviewList));
        if (plan_.apply) apply(dialog);
    }
    dialog.clickItem(CloseButton);
}

bool ImportUser::tickRows(frontend::Dialog& dialog) {
    const frontend::List& list = *dialog.list(ReviewList);
    if (plan_.tick.kind == TickChoice::Kind::All) dialog.clickItem(SelectAllButton);
    const auto rows = static_cast<std::uint32_t>(list.rowCount());
    if (plan_.tick.lastRow() > rows) {
        trouble_ = fmt::format("--tick: there is no row {}, the review list of {} has {}; nothing was applied",
                               plan_.tick.lastRow(), plan_.shownName, rows);
        return false;
    }
    const Int16 tickColumn = list.tabFields().empty() ? Int16{0} : list.tabFields().front().begin;
    for (const auto& [first, last] : plan_.tick.ranges)
        for (std::uint32_t row = first; row <= last; ++row)
            dialog.clickRow(ReviewList, static_cast<Int16>(row), tickColumn);
    return true;
}

void ImportUser::apply(frontend::Dialog& dialog) {
    applying_.emplace(fmt::format("Applying {}", plan_.shownName));
    dialog.clickItem(ApplyButton);
    applying_.reset();
    resultRows_ = readRows(*dialog.list(ReviewList));
}

void ImportUser::changed(frontend::Dialog& dialog, Int16) {
    const frontend::List* list = dialog.list(ReviewList);
    if (!applying_ || list == nullptr) return;
    const int count = list->rowCount();
    // The pass runs from top to bottom and leaves a row that it tries either unticked or with "error!".
    while (firstUnfinished_ <= count) {
        const auto row = static_cast<Int16>(firstUnfinished_);
        const bool pending = reviewlist::ticked(reviewRows_[static_cast<std::size_t>(firstUnfinished_ - 1)]) &&
                             toUtf8(list->cell(row, 8)) != reviewlist::Done &&
                             toUtf8(list->cell(row, 8)) != reviewlist::Error;
        if (pending && list->status(row) == DG_IS_ENABLE) break;
        ++firstUnfinished_;
    }
    applying_->show(static_cast<std::uint64_t>(firstUnfinished_), static_cast<std::uint64_t>(count));
}

}  // namespace console
