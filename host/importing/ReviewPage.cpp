#include "importing/ReviewPage.hpp"

#include "importing/Refusals.hpp"
#include "importing/ReviewRows.hpp"
#include "report/Forms.hpp"
#include "report/Plans.hpp"
#include "text/Ascii.hpp"
#include "text/Guid.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"
#include "updatefile/ReviewList.hpp"

#include <map>

namespace importing {
namespace {

using report::Row;
using report::Tone;
using namespace updatefile::reviewlist;

class ReviewPage {
public:
    ReviewPage(const ReviewedUpdates& import, const model::Model& model)
        : import_(import), model_(model), refusals_(import.report) {}

    report::Report make() && {
        describe();
        for (std::size_t i = 0; i < import_.rows().size(); ++i) addRow(i);
        addSums();
        addNotes();
        report::arrange(page_.subjects);
        page_.plans = report::plansOf(page_, model_, nullptr);
        return std::move(page_);
    }

private:
    void describe();
    void addRow(std::size_t index);
    std::optional<Row> rowOf(std::size_t index);
    void judgeTicked(std::size_t index, Row& row);
    report::Subject* subjectFor(const std::string& guid);
    void addSums();
    void addNotes();

    const std::string& cell(std::size_t row, std::size_t column) const {
        return import_.rows()[row].columns[column].get();
    }

    const ReviewedUpdates& import_;
    const model::Model& model_;
    Refusals refusals_;
    report::Report page_;
    std::map<std::string, std::size_t> subjects_;  ///< By GUID.
    std::uint64_t unchanged_ = 0, notTicked_ = 0;
};

void ReviewPage::describe() {
    const std::string model = text::wellFormed(import_.modelPath.filename().string());
    page_.title =
        import_.result ? text::message("Changes to {}", model) : text::message("Proposed changes to {}", model);
    page_.facts.push_back(report::modelFact(text::phrase("Model"), import_.modelPath, model_));
    page_.facts.push_back({text::phrase("Updates"), import_.updatesPath});
    const text::Phrase savedAs = text::phrase("Saved as");
    if (import_.saved) page_.facts.push_back({savedAs, *import_.saved});
    if (!import_.result) page_.facts.push_back({savedAs, text::message("not saved: this is what an import would do")});
    report::addOrigin(page_, import_.program);
}

/// What came, or would come, of a row that the user wanted.
void ReviewPage::judgeTicked(std::size_t index, Row& row) {
    const RowFacts& facts = import_.facts[index];
    const readback::RowOutcome& outcome = facts.outcome;
    const bool refused = import_.result ? failed(import_.rows()[index]) : outcome.asAsked == false && !outcome.stored;
    row.asked = facts.asked;
    if (refused) {
        row.tone = Tone::Bad;
        row.now.reset();
        const std::string reason = refusals_.reasonFor(cell(index, GuidColumn), row.item);
        row.remark = text::message("Refused: {}",
                                   reason.empty() ? text::message("the element has nothing of that name") : reason);
        return;
    }
    row.now = outcome.stored ? outcome.stored : row.now;
    row.tone = outcome.asAsked == false ? Tone::Note : Tone::Good;
    row.remark = import_.result ? text::message("Changed") : text::message("Would be changed");
    if (outcome.asAsked == false) {
        const std::string stored = row.now.value_or("");
        row.remark = outcome.obstacle.empty() ? text::message("Stored otherwise: \xE2\x80\x9C{}\xE2\x80\x9D", stored)
                                              : text::message("Stored otherwise: \xE2\x80\x9C{}\xE2\x80\x9D, since {}",
                                                              stored, outcome.obstacle);
    }
}

/// Nothing for a row that asks for what is there.
std::optional<Row> ReviewPage::rowOf(std::size_t index) {
    const ListRow& reviewed = import_.review[index];
    Row row;
    row.item = cell(index, PropertyColumn);
    row.old = cell(index, CurrentColumn);
    row.now = cell(index, NewColumn);
    const RowFacts& facts = import_.facts[index];
    if (reviewed.status != DG_IS_ENABLE) {
        if (reviewed.columns[RemarksColumn].get().find(NoElement) == std::string::npos) return std::nullopt;
        row.tone = Tone::Note;
        row.asked = row.now;
        row.now.reset();
        row.remark = text::message("Not applied: the element has no name, so it is not recognised");
    } else if (!ticked(reviewed)) {
        row.tone = Tone::Plain;
        row.asked = row.now;
        row.now.reset();
        row.remark = text::message("Not applied: not ticked");
    } else {
        judgeTicked(index, row);
    }
    if (facts.conflict) {
        // Never better than it is: a refused row stays refused.
        row.tone = std::max(row.tone, Tone::Note);
        row.remark =
            text::message("{}; the updates say that it was \xE2\x80\x9C{}\xE2\x80\x9D", row.remark, *facts.conflict);
    }
    return row;
}

report::Subject* ReviewPage::subjectFor(const std::string& guid) {
    const auto [known, isNew] = subjects_.try_emplace(text::toUpperCase(guid), page_.subjects.size());
    if (!isNew) return &page_.subjects[known->second];
    const auto bytes = text::parseGuid(guid);
    const auto element = bytes ? model_.find(*bytes) : std::nullopt;
    page_.subjects.push_back(element ? report::subjectOf(model_, *element) : report::Subject{});
    return &page_.subjects.back();
}

void ReviewPage::addRow(std::size_t index) {
    if (import_.rows()[index].columns.size() < ColumnCount || index >= import_.facts.size()) return;
    auto row = rowOf(index);
    if (!row) {
        ++unchanged_;
        return;
    }
    if (row->tone == Tone::Plain) ++notTicked_;
    subjectFor(cell(index, GuidColumn))->rows.push_back(std::move(*row));
}

void ReviewPage::addSums() {
    std::map<Tone, std::uint64_t> rows;
    for (const report::Subject& subject : page_.subjects)
        for (const Row& row : subject.rows) ++rows[row.tone];
    page_.sums = {
        {text::phrase("updates in the list"), import_.rows().size(), Tone::Plain, text::phrase("update in the list")},
        {text::phrase("elements concerned"), page_.subjects.size(), Tone::Plain, text::phrase("element concerned")},
        {import_.result ? text::phrase("changed as asked") : text::phrase("would be changed as asked"),
         rows[Tone::Good], Tone::Good},
        {text::phrase("to be looked at"), rows[Tone::Note], Tone::Note},
        {text::phrase("refused"), rows[Tone::Bad], Tone::Bad},
        {text::phrase("not ticked"), notTicked_, Tone::Plain},
        {text::phrase("the same already"), unchanged_, Tone::Plain},
        {text::phrase("lines without a row"), import_.linesWithoutRow, Tone::Note, text::phrase("line without a row")}};
}

void ReviewPage::addNotes() {
    for (const tables::LeftOut& left : import_.leftOut)
        page_.notes.push_back(text::message("Line {}, {}: {}", left.line, left.column, left.why));
    page_.notes.insert(page_.notes.end(), import_.hints.begin(), import_.hints.end());
    page_.notes.insert(page_.notes.end(), refusals_.others().begin(), refusals_.others().end());
}

}  // namespace

report::Report pageOf(const ReviewedUpdates& import, const model::Model& model) {
    return ReviewPage(import, model).make();
}

}  // namespace importing
