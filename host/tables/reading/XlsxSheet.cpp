#include "tables/reading/XlsxSheet.hpp"

#include "tables/Text.hpp"
#include "tables/reading/TableBuilder.hpp"
#include "tables/reading/Workbook.hpp"
#include "tables/reading/Xml.hpp"
#include "text/Message.hpp"

#include <charconv>

namespace tables::xlsx {
namespace {

struct Place {
    std::uint32_t row = 0;  ///< From 1.
    std::uint32_t column = 0;
};

/// "AB12"
std::optional<Place> parsePlace(std::string_view text) {
    Place place;
    std::size_t at = 0;
    for (; at < text.size() && text[at] >= 'A' && text[at] <= 'Z' && place.column <= MostColumns; ++at)
        place.column = place.column * 26 + static_cast<std::uint32_t>(text[at] - 'A') + 1;
    const auto [end, error] = std::from_chars(text.data() + at, text.data() + text.size(), place.row);
    const bool whole = at > 0 && error == std::errc() && end == text.data() + text.size();
    if (!whole || place.row == 0 || place.row > MostRows || place.column > MostColumns) return std::nullopt;
    --place.column;
    return place;
}

/// "A1:C3"
std::optional<CellRange> parseRange(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) return std::nullopt;
    const auto first = parsePlace(text.substr(0, colon));
    const auto last = parsePlace(text.substr(colon + 1));
    if (!first || !last) return std::nullopt;
    return CellRange{first->row, first->column, last->row, last->column};
}

class SheetReader : public xml::Handler {
public:
    SheetReader(std::string sheet, const Shared& shared)
        : sheet_(std::move(sheet)), shared_(shared), builder_(shared.store) {}

    void begin(std::string_view name, const xml::Attributes& attributes) override;
    void end(std::string_view name) override;
    void text(std::string_view part) override {
        if (inValue_) value_ += part;
    }

    Result<Table> finish() { return builder_.finish(); }

private:
    void beginRow(const xml::Attributes& attributes);
    void beginCell(const xml::Attributes& attributes);
    void endCell();
    void addShared();
    void addNumber();
    void addText(CellKind kind, std::string_view text) {
        builder_.add(place_.column, kind, builder_.store().keep(text));
    }
    void failHere(const std::string& what) { fail(cellError(sheet_, place_.row, place_.column, what).message); }

    std::string sheet_;
    const Shared& shared_;
    TableBuilder builder_;
    Place place_;                   ///< Of the current cell.
    std::uint32_t nextColumn_ = 0;  ///< For cells that do not say where they are.
    std::string type_;
    std::string value_;
    std::size_t style_ = 0;
    bool hasFormula_ = false;
    bool inCell_ = false;
    bool inValue_ = false;
    bool inReading_ = false;  ///< In the phonetic reading of a Japanese text, which is not shown.
};

void SheetReader::begin(std::string_view name, const xml::Attributes& attributes) {
    if (name == "row") beginRow(attributes);
    if (name == "c") beginCell(attributes);
    if (name == "rPh") inReading_ = true;
    if (inCell_ && name == "f") hasFormula_ = true;
    inValue_ = inCell_ && !inReading_ && (name == "v" || name == "t");
    if (name != "mergeCell") return;
    if (const auto range = parseRange(attributes.value("ref"))) builder_.merge(*range);
}

void SheetReader::beginRow(const xml::Attributes& attributes) {
    const std::string_view number = attributes.value("r");
    const auto place = number.empty() ? Place{place_.row + 1, 0} : parsePlace("A" + std::string(number));
    if (!place || place->row > MostRows) {
        fail(text::message(
            "sheet '{}': there is no row {}; the workbook is damaged: open and save it with its own program", sheet_,
            inQuotes(number)));
        return;
    }
    place_ = *place;
    nextColumn_ = 0;
    builder_.beginRow(place_.row);
}

void SheetReader::beginCell(const xml::Attributes& attributes) {
    // ECMA-376 lets a cell leave out its place; it then follows the one before.
    const std::string_view where = attributes.value("r");
    const auto place = where.empty() ? Place{place_.row, nextColumn_} : parsePlace(where);
    if (!place || place->row != place_.row || place->column >= MostColumns) {
        fail(text::message(
            "sheet '{}', row {}: there is no cell {}; the workbook is damaged: open and save it with its own program",
            sheet_, place_.row, inQuotes(where)));
        return;
    }
    place_ = *place;
    nextColumn_ = place_.column + 1;
    type_ = attributes.value("t");
    const std::string_view style = attributes.value("s");
    style_ = 0;
    std::from_chars(style.data(), style.data() + style.size(), style_);
    value_.clear();
    hasFormula_ = false;
    inCell_ = true;
}

void SheetReader::end(std::string_view name) {
    inValue_ = false;
    if (name == "rPh") inReading_ = false;
    if (name == "c" && inCell_) endCell();
}

void SheetReader::endCell() {
    inCell_ = false;
    if (value_.empty()) {
        // Written by a program that does not calculate: nobody knows the value before a spreadsheet has opened it.
        if (hasFormula_ && type_ != "str") addText(CellKind::Uncomputed, {});
        return;
    }
    if (type_ == "s") {
        addShared();
    } else if (type_ == "b") {
        addText(CellKind::Truth, value_ == "0" || value_ == "false" ? "false" : "true");
    } else if (type_ == "e") {
        addText(CellKind::Fault, value_);
    } else if (type_ == "str" || type_ == "inlineStr") {
        addText(CellKind::Text, unescape(value_));
    } else if (type_ == "d") {
        addText(CellKind::Date, dateText(value_));
    } else {
        addNumber();
    }
    // The rest of the sheet need not be unpacked to say that it is too much.
    if (builder_.tooLarge()) stop();
}

void SheetReader::addShared() {
    std::size_t index = 0;
    const auto [end, error] = std::from_chars(value_.data(), value_.data() + value_.size(), index);
    if (error != std::errc() || index >= shared_.strings.size()) {
        failHere(text::message(
            "the cell's text is missing; the workbook is damaged: open and save it with its own program"));
    } else {
        builder_.add(place_.column, CellKind::Text, shared_.strings[index]);
    }
}

void SheetReader::addNumber() {
    const auto number = parseNumber(value_);
    if (!number) {
        failHere(text::message("{} is no number; the workbook is damaged: open and save it with its own program",
                               inQuotes(value_)));
        return;
    }
    // A date is a number of days; only the format of its cell says that it is one.
    const NumberStyle style = style_ < shared_.styles.size() ? shared_.styles[style_] : NumberStyle::Number;
    if (style != NumberStyle::Number) {
        if (const auto date = dateText(*number, shared_.days, style == NumberStyle::Time)) {
            addText(CellKind::Date, *date);
            return;
        }
    }
    addText(CellKind::Number, numberText(*number));
}

}  // namespace

Result<Table> readSheet(Package& package, const Sheet& sheet, const Shared& shared) {
    SheetReader reader(sheet.name, shared);
    if (Status status = xml::read(package, sheet.part, reader); !status) return status.error();
    Result<Table> table = reader.finish();
    if (!table) return Error{text::message("sheet '{}': {}", sheet.name, table.error().message)};
    return table;
}

}  // namespace tables::xlsx
