#include "desktop/review/ReviewNotes.hpp"

#include "desktop/QtText.hpp"
#include "importing/ReviewRows.hpp"
#include "text/Guid.hpp"
#include "text/Unicode.hpp"
#include "updatefile/Designation.hpp"
#include "updatefile/ReviewList.hpp"

#include <algorithm>
#include <map>

namespace desktop {

namespace {

using updatefile::reviewlist::GuidColumn;
using updatefile::reviewlist::PropertyColumn;

/// The dialog manager counts the fields of a row from 1.
constexpr Int16 TickField = updatefile::reviewlist::TickColumn + 1;

bool isSettled(Mark mark) {
    return mark == Mark::Done || mark == Mark::Error;
}

/// The GUID of an element and the name of an item, without its set.
using Subject = std::pair<std::string, std::string>;

/// The reasons in the report since line `first`, "NAME (GUID), ITEM: WHY", in their order for each subject.
std::multimap<Subject, std::string> refusals(const std::vector<host::ReportLine>& report, std::size_t first) {
    constexpr std::string_view BehindGuid = "), ";
    std::multimap<Subject, std::string> found;
    for (std::size_t i = first; i < report.size(); ++i) {
        const std::string_view line = report[i].text;
        const std::size_t end = line.find(BehindGuid);
        if (end == std::string_view::npos || end < text::GuidLength) continue;
        const std::string_view guid = line.substr(end - text::GuidLength, text::GuidLength);
        const std::string_view refusal = line.substr(end + BehindGuid.size());
        const std::size_t colon = refusal.find(": ");
        if (colon == std::string_view::npos) continue;
        found.emplace(Subject(guid, updatefile::nameIn(refusal.substr(0, colon))), refusal.substr(colon + 2));
    }
    return found;
}

RowState stateOf(Mark mark) {
    switch (mark) {
        case Mark::None:
            return RowState::None;
        case Mark::Unchanged:
            return RowState::Unchanged;
        case Mark::Done:
            return RowState::Done;
        case Mark::Open:
            return RowState::Open;
        case Mark::Ticked:
            return RowState::Ticked;
        case Mark::Error:
            break;
    }
    return RowState::Error;
}

}  // namespace

ReviewNotes::ReviewNotes(model::Model& model, const host::Host& host, const importing::UpdatePart* part,
                         const frontend::List& list)
    : model_(model), host_(host), reportBegin_(host.report().size()), reportSeen_(reportBegin_) {
    if (!part) return;
    review_ = importing::RowReader().readFrom(list);
    facts_.emplace(model_, *part, review_);
}

void ReviewNotes::read(const frontend::List& list, const std::vector<Mark>& marks) {
    // A tick changes nothing in the model: only for rows that were applied is it read again.
    const bool applied = host_.report().size() > reportSeen_ ||
                         !std::equal(marks.begin(), marks.end(), marks_.begin(), marks_.end(),
                                     [](Mark a, Mark b) { return a == b || (!isSettled(a) && !isSettled(b)); });
    if (applied) noteWanted(marks);
    marks_ = marks;
    countTicks(list);
    if (applied && facts_ && std::any_of(marks.begin(), marks.end(), isSettled)) {
        readBack(list);
        collectReasons(marks);
    }
    makeNotes(marks);
}

/// What is done, or refused, has lost its tick or may have got it in the moment before.
void ReviewNotes::noteWanted(const std::vector<Mark>& marks) {
    wanted_.resize(marks.size());
    for (std::size_t row = 0; row < marks.size(); ++row) {
        if (isSettled(marks[row]) || (row < marks_.size() && marks_[row] == Mark::Ticked)) wanted_[row] = true;
    }
}

void ReviewNotes::countTicks(const frontend::List& list) {
    ticked_ = tickable_ = 0;
    for (int row = 1; row <= list.rowCount(); ++row) {
        if (list.status(static_cast<Int16>(row)) != DG_IS_ENABLE) continue;
        ++tickable_;
        ticked_ += text::toUtf8(list.cell(static_cast<Int16>(row), TickField).View()) == updatefile::reviewlist::Ticked;
    }
}

void ReviewNotes::readBack(const frontend::List& list) {
    result_ = importing::RowReader().readFrom(list, 1, review_);
    facts_->read(*result_);
    storable_ = facts_->storable();
}

void ReviewNotes::collectReasons(const std::vector<Mark>& marks) {
    reasons_.resize(marks.size());
    // Only the lines since the last time: a list may be applied again and again.
    auto known = refusals(host_.report(), reportSeen_);
    for (std::size_t row = 0; row < marks.size() && row < review_.size(); ++row) {
        if (marks[row] != Mark::Error) continue;
        const auto& columns = review_[row].columns;
        const Subject subject(columns[GuidColumn].get(), updatefile::nameIn(columns[PropertyColumn].get()));
        const auto found = known.lower_bound(subject);
        if (found == known.end() || found->first != subject) continue;
        reasons_[row] = toQString(found->second);
        known.erase(found);  // that of the next row about it stands behind
    }
    reportSeen_ = host_.report().size();
}

void ReviewNotes::makeNotes(const std::vector<Mark>& marks) {
    notes_.clear();
    notes_.reserve(marks.size());
    for (std::size_t row = 0; row < marks.size(); ++row) notes_.push_back(noteOn(row, marks[row]));
}

RowNote ReviewNotes::noteOn(std::size_t row, Mark mark) const {
    RowNote note{stateOf(mark)};
    if (!facts_ || row >= facts_->rows().size()) return note;
    const importing::RowFacts& facts = facts_->rows()[row];
    if (mark == Mark::Error) {
        if (row < reasons_.size()) note.text = reasons_[row];
        return note;
    }
    note.text = toQString(importing::differenceOf(facts));
    if (importing::storedOtherwise(facts)) {
        note.state = RowState::Otherwise;
    } else if (facts.conflict && mark != Mark::Done) {
        note.state = RowState::Conflict;
    }
    return note;
}

ReviewTotals ReviewNotes::totals() const {
    ReviewTotals totals;
    totals.rows = static_cast<qsizetype>(marks_.size());
    totals.tickable = tickable_;
    totals.ticked = ticked_;
    for (const Mark mark : marks_) {
        totals.done += mark == Mark::Done;
        totals.errors += mark == Mark::Error;
    }
    for (const RowNote& note : notes_) {
        totals.otherwise += note.state == RowState::Otherwise;
        totals.conflicts += note.state == RowState::Conflict;
    }
    return totals;
}

QStringList ReviewNotes::hintsOnNames() const {
    QStringList hints;
    if (!facts_) return hints;
    for (const std::string& hint : importing::hintsOnNames(model_, review_, result_)) hints += toQString(hint);
    return hints;
}

std::optional<importing::ReviewedUpdates> ReviewNotes::reviewed() const {
    if (!facts_) return std::nullopt;
    importing::ReviewedUpdates reviewed;
    reviewed.review = review_;
    reviewed.result = result_;
    for (std::size_t row = 0; row < review_.size() && row < marks_.size(); ++row) {
        const bool wanted = result_ ? row < wanted_.size() && wanted_[row] : marks_[row] == Mark::Ticked;
        if (wanted) {
            reviewed.review[row].columns[updatefile::reviewlist::TickColumn] =
                std::string(updatefile::reviewlist::Ticked);
        }
    }
    reviewed.facts = facts_->rows();
    reviewed.hints = importing::hintsOnNames(model_, review_, result_);
    for (std::size_t i = reportBegin_; i < host_.report().size(); ++i)
        reviewed.report.push_back(text::wellFormed(host_.report()[i].text));
    return reviewed;
}

model::Result<std::size_t> ReviewNotes::storeAsAsked() {
    auto stored = facts_->storeExactly();
    storable_ = facts_->storable();
    makeNotes(marks_);
    return stored;
}

}  // namespace desktop
