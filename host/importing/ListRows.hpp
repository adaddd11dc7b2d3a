#pragma once
// A copy of a dialog list's rows, for use after the dialog is closed.

#include "frameworks/FrontEnd.hpp"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace importing {

/// A text that is copied without copying its characters: a file of a few kilobytes can ask for thousands of rows that
/// all show the same long text of the model.
class SharedText {
public:
    SharedText() : SharedText(std::string()) {}
    SharedText(std::string text) : text_(std::make_shared<const std::string>(std::move(text))) {}
    SharedText(const char* text) : SharedText(std::string(text)) {}

    const std::string& get() const { return *text_; }
    operator const std::string&() const { return *text_; }
    operator std::string_view() const { return *text_; }
    friend bool operator==(const SharedText& a, const SharedText& b) { return a.get() == b.get(); }

private:
    std::shared_ptr<const std::string> text_;
};

struct ListRow {
    std::vector<SharedText> columns;  ///< UTF-8, one for each tab field.
    int status = DG_IS_ENABLE;
    std::optional<frontend::Color> color;
};

std::vector<std::string> readHeader(const frontend::List& list);

/// The text of the row's last cell.
std::string lastCell(const frontend::List& list, Int16 row);

/// Reads rows so that texts that several of them show are kept once: a long one wherever it stands, a short one where
/// it stands in the row above, or stood there before.
class RowReader {
public:
    /// From row `first` (from 1) to the last. @param before  The same list from its first row on, as it was; empty
    /// where they are not known.
    std::vector<ListRow> readFrom(const frontend::List& list, int first = 1, std::span<const ListRow> before = {});

private:
    ListRow read(const frontend::List& list, Int16 row, const ListRow* above, const ListRow* before);
    SharedText textOf(std::u16string_view units, const SharedText* above, const SharedText* before);

    using LongTexts = std::map<std::u16string, SharedText, std::less<>>;

    LongTexts longTexts_;
    const LongTexts::value_type* lastUsed_ = nullptr;  // rows about one element follow each other
};

}  // namespace importing
