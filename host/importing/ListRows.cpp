#include "importing/ListRows.hpp"

#include "text/FindUnit.hpp"
#include "text/Unicode.hpp"

#include <algorithm>
#include <cstring>

namespace importing {
namespace {

/// In UTF-16 units. Shorter texts are not worth an entry in the table of texts.
constexpr std::size_t LongText = 100;

bool equal(std::u16string_view a, std::u16string_view b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0;
}

/// Null where there is no such row or column.
const SharedText* columnOf(const ListRow* row, std::size_t column) {
    return row != nullptr && column < row->columns.size() ? &row->columns[column] : nullptr;
}

}  // namespace

std::vector<std::string> readHeader(const frontend::List& list) {
    std::vector<std::string> texts;
    for (const frontend::HeaderItem& item : list.header()) texts.push_back(text::toUtf8(item.text.View()));
    return texts;
}

std::string lastCell(const frontend::List& list, Int16 row) {
    const GS::UniString text = list.rowText(row);
    return text::toUtf8(text.View().substr(text.View().rfind(u'\t') + 1));
}

ListRow RowReader::read(const frontend::List& list, Int16 row, const ListRow* above, const ListRow* before) {
    ListRow result;
    const std::size_t fields = list.tabFields().size();
    result.columns.reserve(fields);
    // The row is cut here in one pass. The list would look for each cell from the row's beginning.
    const GS::UniString text = list.rowText(row);
    std::u16string_view rest = text.View();
    while (result.columns.size() < fields) {
        const std::size_t tab = std::min(text::findUnit(rest, u'\t'), rest.size());
        const std::size_t column = result.columns.size();
        result.columns.push_back(textOf(rest.substr(0, tab), columnOf(above, column), columnOf(before, column)));
        // Beyond the last cell there is an empty rest: a row may have fewer cells than the list has columns.
        rest.remove_prefix(std::min(tab + 1, rest.size()));
    }
    result.status = list.status(row);
    result.color = list.color(row);
    return result;
}

std::vector<ListRow> RowReader::readFrom(const frontend::List& list, int first, std::span<const ListRow> before) {
    std::vector<ListRow> rows;
    const int count = list.rowCount();
    if (first <= count) rows.reserve(static_cast<std::size_t>(count - first) + 1);
    // The counter is an int: in a list of 32,767 rows an Int16 would overflow behind the last one.
    for (int row = first; row <= count; ++row) {
        const ListRow* above = rows.empty() ? nullptr : &rows.back();
        const auto place = static_cast<std::size_t>(row) - 1;
        rows.push_back(read(list, static_cast<Int16>(row), above, place < before.size() ? &before[place] : nullptr));
    }
    return rows;
}

SharedText RowReader::textOf(std::u16string_view units, const SharedText* above, const SharedText* before) {
    if (units.size() < LongText) {
        std::string text = text::toUtf8(units);
        for (const SharedText* known : {before, above})
            if (known != nullptr && known->get() == text) return *known;
        return text;
    }
    if (lastUsed_ == nullptr || !equal(lastUsed_->first, units)) {
        auto known = longTexts_.find(units);
        if (known == longTexts_.end()) known = longTexts_.emplace(units, text::toUtf8(units)).first;
        lastUsed_ = &*known;
    }
    return lastUsed_->second;
}

}  // namespace importing
