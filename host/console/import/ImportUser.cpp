#include "console/import/ImportUser.hpp"

#include "console/output/HostText.hpp"
#include "console/output/StandardOutput.hpp"
#include "importing/ReviewRows.hpp"
#include "updatefile/ReviewList.hpp"

#include <fmt/format.h>

#include <algorithm>

namespace console {
namespace {

// The import dialog's items.
constexpr Int16 ApplyButton = 1;
constexpr Int16 CloseButton = 2;
constexpr Int16 SelectAllButton = 3;
constexpr Int16 ReviewList = 5;

}  // namespace

ImportUser::ImportUser(ImportPlan plan) : plan_(std::move(plan)), problem_("the add-on opened no review list") {}

ImportUser::~ImportUser() = default;

std::optional<std::string> ImportUser::pickFile(const frontend::FileRequest&) {
    return plan_.updates;
}

void ImportUser::runModal(frontend::Dialog& dialog) {
    // Only the first dialog with the list is the review. The dialog manager closes any other one, as Escape would.
    if (dialogSeen_ || dialog.list(ReviewList) == nullptr) return;
    dialogSeen_ = true;
    problem_.clear();
    header_ = importing::readHeader(*dialog.list(ReviewList));
    rowsLost_ = dialog.list(ReviewList)->rowsLost();
    if (tickRows(dialog)) {
        review_ = rowReader_.readFrom(*dialog.list(ReviewList));
        untickRows(dialog);
        if (plan_.apply) apply(dialog);
    }
    dialog.clickItem(CloseButton);
}

bool ImportUser::tickRows(frontend::Dialog& dialog) {
    const frontend::List& list = *dialog.list(ReviewList);
    if (plan_.tick.kind == TickChoice::Kind::All) dialog.clickItem(SelectAllButton);
    const auto rows = static_cast<std::uint32_t>(list.rowCount());
    if (plan_.tick.lastRow() > rows) {
        problem_ = fmt::format("--tick: there is no row {}, the review list of {} has {}; nothing was applied",
                               plan_.tick.lastRow(), plan_.shownName, rows);
        return false;
    }
    for (const auto& [first, last] : plan_.tick.ranges)
        for (std::uint32_t row = first; row <= last; ++row) clickTick(dialog, static_cast<Int16>(row));
    return true;
}

void ImportUser::untickRows(frontend::Dialog& dialog) {
    if (!plan_.untick) return;
    const std::vector<std::size_t> rows = plan_.untick(review_);
    for (const std::size_t row : rows) clickTick(dialog, static_cast<Int16>(row + 1));
    if (!rows.empty()) review_ = rowReader_.readFrom(*dialog.list(ReviewList), 1, review_);
}

void ImportUser::clickTick(frontend::Dialog& dialog, Int16 row) {
    const frontend::List& list = *dialog.list(ReviewList);
    dialog.clickRow(ReviewList, row, list.tabFields().empty() ? Int16{0} : list.tabFields().front().begin);
}

void ImportUser::apply(frontend::Dialog& dialog) {
    applying_.emplace(fmt::format("Applying {}", plan_.shownName));
    dialog.clickItem(ApplyButton);
    applying_.reset();
    result_ = rowReader_.readFrom(*dialog.list(ReviewList), 1, review_);
}

void ImportUser::changed(frontend::Dialog& dialog, Int16) {
    const frontend::List* list = dialog.list(ReviewList);
    if (!applying_ || list == nullptr) return;
    const int count = std::min<int>(list->rowCount(), static_cast<int>(review_.size()));
    // The add-on applies from top to bottom. So the first importing::ticked row without a result is where it is.
    while (firstUnfinished_ <= count) {
        const auto row = static_cast<Int16>(firstUnfinished_);
        const bool open =
            list->status(row) == DG_IS_ENABLE && importing::ticked(review_[static_cast<std::size_t>(row) - 1]);
        if (open && importing::lastCell(*list, row) != updatefile::reviewlist::Error) break;
        ++firstUnfinished_;
    }
    applying_->show(static_cast<std::uint64_t>(firstUnfinished_), static_cast<std::uint64_t>(count));
}

ReviewProgress::ReviewProgress(const std::string& updates, std::uint64_t lines)
    : line_("Reviewing " + updates), lines_(lines), watching_(Terminal::standardError().present) {
    if (!watching_) return;
    previous_ = frontend::setDebugSink({});
    frontend::setDebugSink([this](const char* text) {
        if (previous_) previous_(text);
        show();
    });
}

ReviewProgress::~ReviewProgress() {
    if (watching_) frontend::setDebugSink(previous_);
}

void ReviewProgress::show() {
    if (frontend::openDialogs().empty()) return;
    for (const frontend::Item& item : frontend::openDialogs().back()->items())
        if (item.list) line_.show(static_cast<std::uint64_t>(item.list->rowCount()) + item.list->rowsLost(), lines_);
}

}  // namespace console
