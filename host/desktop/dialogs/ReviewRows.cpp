#include "desktop/dialogs/ReviewRows.hpp"

#include "desktop/Text.hpp"

#include <algorithm>

namespace desktop {

namespace {

constexpr std::size_t guidLength = 36;

/// @return the row's cells, which point into `text`.
std::vector<std::u16string_view> cellsOf(std::u16string_view text) {
    std::vector<std::u16string_view> cells;
    while (true) {
        const std::size_t tab = text.find(u'\t');
        cells.push_back(text.substr(0, tab));
        if (tab == std::u16string_view::npos) return cells;
        text.remove_prefix(tab + 1);
    }
}

}  // namespace

Mark rowMark(const frontend::List& list, Int16 row) {
    const GS::UniString text = list.rowText(row);
    const std::u16string_view units = text.View();
    if (!units.starts_with(u"[")) return Mark::None;
    const auto endsWith = [&](std::u16string_view end) { return units.ends_with(end); };
    if (endsWith(u"\terror!")) return Mark::Error;
    if (endsWith(u"\tDone")) return Mark::Done;
    if (list.status(row) != DG_IS_ENABLE) return list.color(row) ? Mark::Error : Mark::Unchanged;
    if (units.starts_with(u"[X]\t")) return Mark::Ticked;
    return Mark::Open;
}

void ReviewRows::read(const frontend::List& list) {
    const Int16 count = list.rowCount();
    if (static_cast<std::size_t>(count) < elements_.size()) elements_.clear();
    for (Int16 row = static_cast<Int16>(elements_.size()); row < count; ++row) {
        elements_.push_back(findElement(list, static_cast<Int16>(row + 1)));
    }
    current_ = {};
    for (int row = 0; row < count; ++row) {
        const auto& element = elements_[static_cast<std::size_t>(row)];
        if (!element) continue;
        if (const Mark mark = rowMark(list, static_cast<Int16>(row + 1)); mark != Mark::None)
            current_.add(*element, mark);
    }
}

std::optional<model::Element> ReviewRows::element(int row) const {
    if (row < 0 || static_cast<std::size_t>(row) >= elements_.size()) return std::nullopt;
    return elements_[static_cast<std::size_t>(row)];
}

std::optional<model::Element> ReviewRows::lastElement() const {
    const auto found =
        std::find_if(elements_.rbegin(), elements_.rend(), [](const auto& it) { return it.has_value(); });
    return found == elements_.rend() ? std::nullopt : *found;
}

std::vector<int> ReviewRows::rowsOf(model::Element element) const {
    std::vector<int> rows;
    for (std::size_t row = 0; row < elements_.size(); ++row) {
        if (elements_[row] == element) rows.push_back(static_cast<int>(row));
    }
    return rows;
}

std::optional<model::Element> ReviewRows::findElement(const frontend::List& list, Int16 row) const {
    const GS::UniString text = list.rowText(row);
    for (const std::u16string_view cell : cellsOf(text.View())) {
        if (cell.size() != guidLength) continue;
        const auto guid = guidFromText(QStringView(cell.data(), static_cast<qsizetype>(cell.size())));
        if (!guid) continue;
        if (const auto element = model_.find(*guid)) return element;
    }
    return std::nullopt;
}

}  // namespace desktop
