#include "importing/ReviewRows.hpp"

#include "text/Guid.hpp"
#include "text/Message.hpp"
#include "updatefile/ReviewList.hpp"
#include "updatefile/Wording.hpp"

#include <algorithm>
#include <array>

namespace importing {
namespace {

using namespace updatefile::reviewlist;

const std::string& cell(const ListRow& row, std::size_t column) {
    // An add-on may fill a list of any shape: a column that is not there is empty.
    static const std::string none;
    return column < row.columns.size() ? row.columns[column].get() : none;
}

}  // namespace

bool ticked(const ListRow& row) {
    return cell(row, TickColumn) == Ticked;
}

bool done(const ListRow& row) {
    return cell(row, RemarksColumn) == Done;
}

bool failed(const ListRow& row) {
    return cell(row, RemarksColumn) == Error;
}

/// A set in brackets and the two systems are made where the element has none; nothing else is.
bool namesNothing(const ListRow& row) {
    const std::string& item = cell(row, PropertyColumn);
    return cell(row, RemarksColumn).find(NotFound) != std::string::npos && item.find('[') == std::string::npos &&
           std::find(AddedSystems.begin(), AddedSystems.end(), item) == AddedSystems.end();
}

updatefile::LineNotes unfinishedRows(const std::vector<ListRow>& review, const std::vector<ListRow>& result) {
    updatefile::LineNotes rows;
    for (std::size_t i = 0; i < review.size(); ++i) {
        const bool tried = i < result.size() && (done(result[i]) || failed(result[i]));
        if (review[i].status == DG_IS_ENABLE && ticked(review[i]) && !tried) rows.add(i + 1);
    }
    return rows;
}

std::optional<std::string> hintForUnknownItems(const std::vector<ListRow>& review, const std::vector<ListRow>& result,
                                               const std::vector<std::uint64_t>& explained) {
    updatefile::LineNotes rows;
    for (std::size_t i = 0; i < result.size() && i < review.size(); ++i) {
        if (!failed(result[i]) || !namesNothing(review[i])) continue;
        if (std::binary_search(explained.begin(), explained.end(), i + 1)) continue;
        if (updatefile::meansClassification(cell(review[i], PropertyColumn), cell(review[i], NewColumn))) continue;
        rows.add(i + 1);
    }
    if (rows.count == 0) return std::nullopt;
    const std::string& item = cell(review[rows.first.front() - 1], PropertyColumn);
    return text::message(
        "Nothing on the element has the name in {}: to create a property, write a set behind it, as in "
        "{}[Custom] for Pset_Custom",
        updatefile::numberedRows(rows), item);
}

std::vector<updatefile::UnknownItem> unknownItems(const model::Model& model, const std::vector<ListRow>& review,
                                                  const std::optional<std::vector<ListRow>>& result) {
    std::vector<updatefile::UnknownItem> items;
    for (std::size_t i = 0; i < review.size(); ++i) {
        const ListRow& row = review[i];
        if (row.status != DG_IS_ENABLE || cell(row, RemarksColumn).find(NotFound) == std::string::npos) continue;
        const auto guid = text::parseGuid(cell(row, GuidColumn));
        const auto element = guid ? model.find(*guid) : std::nullopt;
        if (!element) continue;
        items.push_back({i + 1, cell(row, PropertyColumn), cell(row, NewColumn), &model.entity(*element),
                         model.typeEntity(*element), result && i < result->size() && failed((*result)[i])});
    }
    return items;
}

std::vector<std::string> hintsOnNames(const model::Model& model, const std::vector<ListRow>& review,
                                      const std::optional<std::vector<ListRow>>& result) {
    auto hints = updatefile::standardHints(unknownItems(model, review, result), model.schemaVersion());
    if (!result) return std::move(hints.texts);
    if (auto hint = hintForUnknownItems(review, *result, hints.rows)) hints.texts.push_back(std::move(*hint));
    return std::move(hints.texts);
}

}  // namespace importing
