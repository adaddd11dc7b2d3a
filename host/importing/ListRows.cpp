#include "importing/ListRows.hpp"

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

ListRow RowReader::read(const frontend::List& list, Int16 row) {
    ListRow result;
    const std::size_t fields = list.tabFields().size();
    result.columns.reserve(fields);
    // The row is cut here in one pass. The list would look for each cell from the row's beginning.
    const GS::UniString text = list.rowText(row);
    std::u16string_view rest = text.View();
    while (result.columns.size() < fields) {
        const std::size_t tab = std::min(rest.find(u'\t'), rest.size());
        result.columns.push_back(textOf(rest.substr(0, tab)));
        rest.remove_prefix(std::min(tab + 1, rest.size()));
    }
    result.status = list.status(row);
    result.color = list.color(row);
    return result;
}

std::vector<ListRow> RowReader::readFrom(const frontend::List& list, int first) {
    std::vector<ListRow> rows;
    // The counter is an int: in a list of 32,767 rows an Int16 would overflow behind the last one.
    for (int row = first; row <= list.rowCount(); ++row) rows.push_back(read(list, static_cast<Int16>(row)));
    return rows;
}

SharedText RowReader::textOf(std::u16string_view units) {
    if (units.size() < LongText) return text::toUtf8(units);
    if (lastUsed_ == nullptr || !equal(lastUsed_->first, units)) {
        auto known = longTexts_.find(units);
        if (known == longTexts_.end()) known = longTexts_.emplace(units, text::toUtf8(units)).first;
        lastUsed_ = &*known;
    }
    return lastUsed_->second;
}

}  // namespace importing
