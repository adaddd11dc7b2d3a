#pragma once
// The user of the import dialog: answers the file dialog, ticks rows, presses Apply, reads the list, closes.

#include "console/import/TickChoice.hpp"
#include "console/output/Messages.hpp"
#include "frameworks/FrontEnd.hpp"
#include "importing/ListRows.hpp"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace console {

struct ImportPlan {
    std::string updates;  ///< What the user picks in the file dialog.
    std::string shownName;
    std::uint64_t lines = 0;  ///< Of the update file, for the progress line.
    TickChoice tick;
    bool apply = false;
    /// Looks at the list as ticked, before Apply. @return the rows, from 0, whose tick is to go.
    std::function<std::vector<std::size_t>(const std::vector<importing::ListRow>&)> untick;
};

class ImportUser : public frontend::View {
public:
    explicit ImportUser(ImportPlan plan);
    ~ImportUser() override;

    void runModal(frontend::Dialog& dialog) override;
    std::optional<std::string> pickFile(const frontend::FileRequest& request) override;
    void changed(frontend::Dialog& dialog, Int16 item) override;

    // --- Valid once the command has ended ---
    /// Why the dialog was closed without doing what was planned; empty if all went as planned.
    const std::string& problem() const { return problem_; }
    const std::vector<std::string>& header() const { return header_; }
    const std::vector<importing::ListRow>& review() const { return review_; }  ///< As ticked, before Apply.
    const std::optional<std::vector<importing::ListRow>>& result() const { return result_; }
    std::vector<importing::ListRow> takeReview() { return std::move(review_); }
    /// @pre result() is there.
    std::vector<importing::ListRow> takeResult() { return std::move(*result_); }
    std::uint64_t rowsLost() const { return rowsLost_; }

private:
    bool tickRows(frontend::Dialog& dialog);
    void untickRows(frontend::Dialog& dialog);
    void clickTick(frontend::Dialog& dialog, Int16 row);
    void apply(frontend::Dialog& dialog);

    ImportPlan plan_;
    std::string problem_;
    importing::RowReader rowReader_;
    std::vector<std::string> header_;
    std::vector<importing::ListRow> review_;
    std::optional<std::vector<importing::ListRow>> result_;
    std::uint64_t rowsLost_ = 0;
    bool dialogSeen_ = false;
    std::optional<ProgressLine> applying_;
    int firstUnfinished_ = 1;  ///< While applying: the row that the pass has come to.
};

/// Shows how many lines of the update file the add-on has read. It reads all of them before its dialog opens and calls
/// no View meanwhile. But it writes to the debug output for each line, so that is where the progress is taken from.
class ReviewProgress {
public:
    ReviewProgress(const std::string& updates, std::uint64_t lines);
    ~ReviewProgress();
    ReviewProgress(const ReviewProgress&) = delete;
    ReviewProgress& operator=(const ReviewProgress&) = delete;

private:
    void show();

    ProgressLine line_;
    std::uint64_t lines_;
    bool watching_;  ///< Only for a terminal: without a sink the add-on's debug texts are not formatted at all.
    frontend::DebugSink previous_;
};

}  // namespace console
