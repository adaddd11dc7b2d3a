#pragma once
// What the host knows of the rows of a review list beside what the list shows: where each comes from, what it asks for,
// what the model holds after Apply.

#include "importing/ListRows.hpp"
#include "importing/UpdateSource.hpp"
#include "readback/ReadBack.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace importing {

struct RowFacts {
    std::uint64_t line = 0;  ///< Of the file that it came from; 0 where it is not known.
    std::optional<std::string> asked;
    std::optional<std::string> conflict;  ///< The file's old value, where the model held another before Apply.
    readback::RowOutcome outcome;
};

/// The facts about one list. It looks at the model when it is made, which must be before Apply, and after each Apply.
class ReviewFacts {
public:
    /// @param rows  of the list before Apply. A row that is not what the line in its place asks for has no facts.
    ReviewFacts(model::Model& model, const UpdatePart& part, const std::vector<ListRow>& rows);

    /// To be called with the list as it is after Apply.
    void read(const std::vector<ListRow>& rows);

    /// Stores what was asked where the add-on stored something else, as one undoable command of its own.
    /// @return how many rows it wrote.
    model::Result<std::size_t> storeExactly();
    /// How many rows that would try to write, which it has not tried since the last read().
    std::size_t storable() { return readBack_.storable(); }

    /// One a row.
    const std::vector<RowFacts>& rows() const { return facts_; }
    /// The same, for who needs nothing else of it any more.
    std::vector<RowFacts> takeRows() { return std::move(facts_); }

private:
    void takeOutcomes();

    readback::ReadBack readBack_;
    std::vector<RowFacts> facts_;
};

bool storedOtherwise(const RowFacts& row);  ///< Something else than was asked.
bool notStored(const RowFacts& row);        ///< Asked for and ticked, and nothing was written.

/// What a person must know of a row beyond its remark: the conflict, asked and stored where they differ, what the host
/// stored in place of the add-on. A clause; empty where there is nothing to say.
std::string differenceOf(const RowFacts& row);

}  // namespace importing
