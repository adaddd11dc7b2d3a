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

ImportUser::ImportUser(ImportPlan thePlan) : plan(std::move(thePlan)), trouble("the add-on opened no review list") {}

ImportUser::~ImportUser() = default;

std::optional<std::string> ImportUser::pickFile(const frontend::FileRequest&) {
    return plan.updates;
}

void ImportUser::runModal(frontend::Dialog& dialog) {
    // A further dialog, from an add-on that asks something, is closed by the dialog manager as by Escape.
    if (dialogSeen || dialog.list(ReviewList) == nullptr) return;
    dialogSeen = true;
    trouble.clear();
    headerTexts = readHeader(*dialog.list(ReviewList));
    lost = dialog.list(ReviewList)->rowsLost();
    if (tickRows(dialog)) {
        reviewRows = readRows(*dialog.list(ReviewList));
        if (plan.apply) apply(dialog);
    }
    dialog.clickItem(CloseButton);
}

bool ImportUser::tickRows(frontend::Dialog& dialog) {
    const frontend::List& list = *dialog.list(ReviewList);
    if (plan.tick.kind == TickChoice::Kind::All) dialog.clickItem(SelectAllButton);
    const auto rows = static_cast<std::uint32_t>(list.rowCount());
    if (plan.tick.lastRow() > rows) {
        trouble = fmt::format("--tick: there is no row {}, the review list of {} has {}; nothing was applied",
                              plan.tick.lastRow(), plan.shownName, rows);
        return false;
    }
    const Int16 tickColumn = list.tabFields().empty() ? Int16{0} : list.tabFields().front().begin;
    for (const auto& [first, last] : plan.tick.ranges)
        for (std::uint32_t row = first; row <= last; ++row)
            dialog.clickRow(ReviewList, static_cast<Int16>(row), tickColumn);
    return true;
}

void ImportUser::apply(frontend::Dialog& dialog) {
    applying.emplace(fmt::format("Applying {}", plan.shownName));
    dialog.clickItem(ApplyButton);
    applying.reset();
    resultRows = readRows(*dialog.list(ReviewList));
}

void ImportUser::changed(frontend::Dialog& dialog, Int16) {
    const frontend::List* list = dialog.list(ReviewList);
    if (!applying || list == nullptr) return;
    const int count = list->rowCount();
    // The pass runs from top to bottom and leaves a row that it tries either unticked or with "error!".
    while (firstUnfinished <= count) {
        const auto row = static_cast<Int16>(firstUnfinished);
        const bool pending = reviewlist::ticked(reviewRows[static_cast<std::size_t>(firstUnfinished - 1)]) &&
                             toUtf8(list->cell(row, 8)) != reviewlist::Done &&
                             toUtf8(list->cell(row, 8)) != reviewlist::Error;
        if (pending && list->status(row) == DG_IS_ENABLE) break;
        ++firstUnfinished;
    }
    applying->show(static_cast<std::uint64_t>(firstUnfinished), static_cast<std::uint64_t>(count));
}

}  // namespace console
