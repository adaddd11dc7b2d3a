#include "importing/ReviewFacts.hpp"

#include "importing/ReviewRows.hpp"
#include "text/Message.hpp"
#include "updatefile/ReviewList.hpp"

namespace importing {
namespace {

using updatefile::reviewlist::PropertyColumn;

bool isAbout(const ListRow& row, const AskedLine& line) {
    return row.columns.size() > PropertyColumn && row.columns[PropertyColumn].get() == line.asked.item;
}

/// What each row of a list stands for: the lines that give a row, in their order. A row that is not where it is
/// expected is shown without what the host would add.
std::vector<readback::AskedRow> askedRows(const UpdatePart& part, const std::vector<ListRow>& rows) {
    std::vector<readback::AskedRow> asked;
    asked.reserve(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const bool known = i < part.asked.size() && isAbout(rows[i], part.asked[i]);
        asked.push_back(known ? part.asked[i].asked : readback::AskedRow{});
    }
    return asked;
}

readback::RowState stateOf(const ListRow& row) {
    if (done(row)) return readback::RowState::Done;
    return failed(row) ? readback::RowState::Failed : readback::RowState::NotTicked;
}

}  // namespace

ReviewFacts::ReviewFacts(model::Model& model, const UpdatePart& part, const std::vector<ListRow>& rows)
    : readBack_(model, askedRows(part, rows)), facts_(rows.size()) {
    for (std::size_t i = 0; i < facts_.size(); ++i) {
        // A row has an item only where askedRows() found its line, so there is one to look at.
        if (readBack_.row(i).item.empty()) continue;
        facts_[i].line = part.asked[i].line;
        facts_[i].asked = readBack_.row(i).asked;
        facts_[i].conflict = readBack_.conflict(i);
    }
}

void ReviewFacts::read(const std::vector<ListRow>& rows) {
    std::vector<readback::RowState> states;
    states.reserve(rows.size());
    for (const ListRow& row : rows) states.push_back(stateOf(row));
    readBack_.read(states);
    takeOutcomes();
}

model::Result<std::size_t> ReviewFacts::storeExactly() {
    auto stored = readBack_.storeExactly();
    takeOutcomes();
    return stored;
}

void ReviewFacts::takeOutcomes() {
    for (std::size_t i = 0; i < facts_.size(); ++i)
        if (facts_[i].asked) facts_[i].outcome = readBack_.outcome(i);
}

bool storedOtherwise(const RowFacts& row) {
    return row.outcome.stored && row.outcome.asAsked == false;
}

bool notStored(const RowFacts& row) {
    return !row.outcome.stored && row.outcome.asAsked == false;
}

std::string differenceOf(const RowFacts& row) {
    std::string difference;
    if (row.conflict) difference = text::message("the file says it was '{}'", *row.conflict);
    const readback::RowOutcome& outcome = row.outcome;
    if (!outcome.exact && outcome.asAsked != false) return difference;
    if (!difference.empty()) difference += "; ";
    if (outcome.exact) return difference + text::message("stored as asked");
    const std::string asked = row.asked.value_or("");
    difference += outcome.stored ? text::message("asked '{}', stored '{}'", asked, *outcome.stored)
                                 : text::message("asked '{}', would end in an error", asked);
    if (!outcome.obstacle.empty()) difference += " (" + outcome.obstacle + ")";
    return difference;
}

}  // namespace importing
