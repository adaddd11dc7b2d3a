#pragma once
// What the host adds to a review list: how each row stands, asked and stored where they differ, why a row was refused.

#include "desktop/dialogs/RowNote.hpp"
#include "desktop/plan/PlanMarks.hpp"
#include "frameworks/FrontEnd.hpp"
#include "importing/ReviewFacts.hpp"
#include "importing/ReviewPage.hpp"
#include "services/Host.hpp"

#include <QStringList>
#include <optional>
#include <vector>

namespace desktop {

/// How many rows stand how.
struct ReviewTotals {
    qsizetype rows = 0;
    qsizetype tickable = 0;  ///< Now: what is done can be ticked no more.
    qsizetype ticked = 0;
    qsizetype done = 0;  ///< Those that are not as asked included.
    qsizetype errors = 0;
    qsizetype otherwise = 0;
    qsizetype conflicts = 0;
};

class ReviewNotes {
public:
    /// @param part  what the list was made of; null where that is not known.
    /// To be made before anything is applied. All must outlive it.
    ReviewNotes(model::Model& model, const host::Host& host, const importing::UpdatePart* part,
                const frontend::List& list);

    /// To be called with what rowMark() says of each row. Looks into the model only where rows were applied since.
    void read(const frontend::List& list, const std::vector<Mark>& marks);

    const std::vector<RowNote>& rows() const { return notes_; }
    ReviewTotals totals() const;
    /// What the names of the rows probably mean.
    QStringList hintsOnNames() const;

    /// The review as it stands, as far as the rows tell; nothing where it is not known what the list was made of.
    std::optional<importing::ReviewedUpdates> reviewed() const;

    /// How many rows hold something else than was asked, and perhaps could hold that.
    std::size_t storable() const { return storable_; }
    /// Stores it, as one undoable step. @return how many rows were written.
    model::Result<std::size_t> storeAsAsked();

private:
    void noteWanted(const std::vector<Mark>& marks);
    void countTicks(const frontend::List& list);
    void readBack(const frontend::List& list);
    void collectReasons(const std::vector<Mark>& marks);
    void makeNotes(const std::vector<Mark>& marks);
    RowNote noteOn(std::size_t row, Mark mark) const;

    model::Model& model_;
    const host::Host& host_;
    std::vector<importing::ListRow> review_;                 ///< Before Apply.
    std::optional<std::vector<importing::ListRow>> result_;  ///< After the last one.
    std::optional<importing::ReviewFacts> facts_;
    std::vector<Mark> marks_;
    std::vector<bool> wanted_;      ///< Rows that were ticked when Apply was pressed.
    std::vector<QString> reasons_;  ///< Of refused rows.
    std::vector<RowNote> notes_;
    qsizetype ticked_ = 0, tickable_ = 0;
    std::size_t storable_ = 0;
    std::size_t reportBegin_ = 0;  ///< Lines of the report that are older than this review.
    std::size_t reportSeen_ = 0;   ///< Lines of the report that are older than the last Apply.
};

}  // namespace desktop
