#include "Cells.hpp"

#include "text/FindUnit.hpp"

#include <algorithm>

namespace frameworks {

namespace {

constexpr char16_t Separator = u'\t';

}  // namespace

std::optional<std::u16string_view> cellOf(std::u16string_view row, Int16 field) {
    if (field < 1) return {};
    for (; field > 1; --field) {
        const std::size_t separator = text::findUnit(row, Separator);
        if (separator == row.npos) return {};
        row.remove_prefix(separator + 1);
    }
    return row.substr(0, text::findUnit(row, Separator));
}

void setCell(GS::UniString& row, Int16 field, const GS::UniString& text) {
    if (const auto cell = cellOf(row.View(), field)) {
        const auto begin = static_cast<UIndex>(cell->data() - row.GetUnits());
        row.Delete(begin, static_cast<Int64>(cell->size())).Insert(begin, text);
        return;
    }
    const std::u16string_view units = row.View();
    const auto present = std::count(units.begin(), units.end(), Separator) + 1;
    row.Append(GS::UniString(std::u16string(static_cast<std::size_t>(field - present), Separator)));
    row.Append(text);
}

}  // namespace frameworks
