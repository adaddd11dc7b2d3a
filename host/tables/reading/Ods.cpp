// Sheets of an .ods. All of them are in one part, so they are read in one pass.

#include "tables/Text.hpp"
#include "tables/reading/Values.hpp"
#include "tables/reading/Workbook.hpp"
#include "tables/reading/Xml.hpp"
#include "text/Message.hpp"

#include <algorithm>
#include <array>
#include <charconv>

namespace tables {
namespace {

constexpr const char* Content = "content.xml";
constexpr const char* Manifest = "META-INF/manifest.xml";
constexpr std::string_view Office = "xmlns:office:1.0";
constexpr std::string_view Foundation = "xmlns:calcext:1.0";

std::uint32_t countOf(std::string_view text) {
    std::uint32_t count = 1;
    std::from_chars(text.data(), text.data() + text.size(), count);
    return std::max(count, std::uint32_t{1});
}

/// Puts a paragraph's text together by the rules of ISO/IEC 26300: runs of blanks and line ends are one blank, what
/// stands for more are elements.
class Paragraphs {
public:
    void clear() {
        text_.clear();
        paragraphs_ = 0;
    }
    void begin() {
        if (paragraphs_++ > 0) text_ += '\n';
        blankBefore_ = true;
    }
    void add(std::string_view part) {
        for (const char c : part) {
            const bool blank = c == ' ' || c == '\t' || c == '\n' || c == '\r';
            if (!blank || !blankBefore_) text_ += blank ? ' ' : c;
            blankBefore_ = blank;
        }
    }
    void addExactly(std::size_t count, char c) {
        text_.append(count, c);
        blankBefore_ = false;
    }

    bool any() const { return paragraphs_ > 0; }
    const std::string& text() const { return text_; }

private:
    std::string text_;
    std::size_t paragraphs_ = 0;
    bool blankBefore_ = true;
};

class ContentReader : public xml::Handler {
public:
    explicit ContentReader(const std::string& wantedSheet) : wanted_(wantedSheet) {}

    void begin(std::string_view name, const xml::Attributes& attributes) override;
    void end(std::string_view name) override;
    void text(std::string_view part) override {
        if (paragraphDepth_ > 0 && skipped_ == 0) paragraphs_.add(part);
    }

    Result<WorkbookContent> finish();

private:
    void beginTable(const xml::Attributes& attributes);
    void endTable();
    void beginRow(const xml::Attributes& attributes);
    void endRow();
    void beginCell(const xml::Attributes& attributes, bool covered);
    void endCell();
    void beginInText(std::string_view name, const xml::Attributes& attributes);
    CellKind kindOfCell();
    std::string valueOfCell(CellKind kind);
    bool collecting() const { return builder_ != nullptr; }

    const std::string& wanted_;
    std::shared_ptr<TextStore> store_ = std::make_shared<TextStore>();
    std::vector<std::string> sheets_;
    std::optional<WorkbookContent> found_;
    std::optional<Table> exported_;

    std::unique_ptr<TableBuilder> builder_;  ///< Of the sheet that is being read, where it is wanted.
    std::uint64_t nextRow_ = 1;
    std::uint32_t row_ = 1;
    std::uint32_t rowRepeats_ = 1;
    std::uint64_t nextColumn_ = 0;

    struct {
        std::uint32_t column = 0;
        std::uint32_t repeats = 1;
        std::uint32_t rowSpan = 1;
        std::uint32_t columnSpan = 1;
        std::string type;
        std::string value;
        bool formula = false;
        bool fault = false;
        bool covered = false;
    } cell_;
    bool inCell_ = false;
    Paragraphs paragraphs_;
    std::size_t paragraphDepth_ = 0;
    std::size_t skipped_ = 0;  ///< Depth in something that is no cell's text: a comment, a drawing, a change record.
};

/// By local name: the namespaces differ between versions of the format.
bool isBesideTheText(std::string_view name) {
    constexpr std::array Names{"annotation",   "tracked-changes", "shapes",   "frame",  "g",
                               "custom-shape", "ruby-text",       "text-box", "object", "note"};
    return std::find(Names.begin(), Names.end(), name) != Names.end();
}

void ContentReader::begin(std::string_view name, const xml::Attributes& attributes) {
    // A comment stands inside its cell, with paragraphs of its own, and is no part of the cell's text.
    if (skipped_ > 0 || isBesideTheText(name)) {
        ++skipped_;
        return;
    }
    if (name == "table") beginTable(attributes);
    if (!collecting()) return;
    if (name == "table-row") beginRow(attributes);
    if (name == "table-cell" || name == "covered-table-cell") beginCell(attributes, name != "table-cell");
    if (inCell_) beginInText(name, attributes);
}

void ContentReader::beginInText(std::string_view name, const xml::Attributes& attributes) {
    if (paragraphDepth_ > 0) ++paragraphDepth_;
    if (name == "p" && paragraphDepth_ == 0) {
        paragraphDepth_ = 1;
        paragraphs_.begin();
    }
    if (paragraphDepth_ == 0) return;
    // As many blanks as a cell of the spreadsheet programs holds letters, and not as many as a file may claim.
    constexpr std::uint32_t MostBlanks = 32767;
    if (name == "s") paragraphs_.addExactly(std::min(countOf(attributes.value("c")), MostBlanks), ' ');
    if (name == "tab") paragraphs_.addExactly(1, '\t');
    if (name == "line-break") paragraphs_.addExactly(1, '\n');
}

void ContentReader::end(std::string_view name) {
    if (skipped_ > 0) {
        --skipped_;
        return;
    }
    if (!collecting()) return;
    if (paragraphDepth_ > 0) {
        --paragraphDepth_;
        return;
    }
    if (name == "table-cell" || name == "covered-table-cell") endCell();
    if (name == "table-row") endRow();
    if (name == "table") endTable();
}

void ContentReader::beginTable(const xml::Attributes& attributes) {
    std::string name(attributes.value("name"));
    // Sheets before the first that holds something are passed over; the exported values may stand behind it.
    const bool candidate = !found_ && (wanted_.empty() ? name != ExportedSheet : name == wanted_);
    if (candidate || name == ExportedSheet) builder_ = std::make_unique<TableBuilder>(store_);
    sheets_.push_back(std::move(name));
    nextRow_ = 1;
}

void ContentReader::endTable() {
    const std::string& name = sheets_.back();
    const bool empty = builder_->empty();
    Result<Table> table = builder_->finish();
    builder_.reset();
    if (!table) {
        fail(text::message("sheet '{}': {}", name, table.error().message));
    } else if (name == ExportedSheet && name != wanted_) {
        exported_ = std::move(*table);
    } else if (!empty) {
        found_ = WorkbookContent{name, std::move(*table), std::nullopt};
    }
}

void ContentReader::beginRow(const xml::Attributes& attributes) {
    rowRepeats_ = countOf(attributes.value("number-rows-repeated"));
    row_ = static_cast<std::uint32_t>(std::min<std::uint64_t>(nextRow_, MostRows));
    nextRow_ += rowRepeats_;
    nextColumn_ = 0;
    builder_->beginRow(row_);
}

void ContentReader::endRow() {
    // LibreOffice ends a sheet with one row repeated to the million.
    builder_->repeatRow(std::min(rowRepeats_ - 1, MostRows - row_));
    if (builder_->tooLarge()) endTable();
}

void ContentReader::beginCell(const xml::Attributes& attributes, bool covered) {
    inCell_ = true;
    paragraphs_.clear();
    cell_.column = static_cast<std::uint32_t>(std::min<std::uint64_t>(nextColumn_, MostColumns));
    cell_.repeats = countOf(attributes.value("number-columns-repeated"));
    nextColumn_ += cell_.repeats;
    cell_.rowSpan = countOf(attributes.value("number-rows-spanned"));
    cell_.columnSpan = countOf(attributes.value("number-columns-spanned"));
    cell_.type = attributes.value("value-type", Office);
    cell_.fault = attributes.value("value-type", Foundation) == "error";
    cell_.formula = !attributes.value("formula").empty();
    cell_.covered = covered;
    // The value itself, and not the paragraphs, which hold it as it is shown: rounded, with units, in some language.
    for (const char* attribute : {"value", "date-value", "time-value", "boolean-value", "string-value"})
        if (const auto value = attributes.value(attribute, Office); !value.empty()) cell_.value = value;
}

CellKind ContentReader::kindOfCell() {
    if (cell_.fault) return CellKind::Fault;
    if (cell_.type == "float" || cell_.type == "percentage" || cell_.type == "currency") return CellKind::Number;
    if (cell_.type == "date" || cell_.type == "time") return CellKind::Date;
    if (cell_.type == "boolean") return CellKind::Truth;
    return cell_.type.empty() && cell_.formula && !paragraphs_.any() ? CellKind::Uncomputed : CellKind::Text;
}

std::string ContentReader::valueOfCell(CellKind kind) {
    if (kind == CellKind::Truth) return cell_.value;
    if (kind == CellKind::Date) return cell_.type == "date" ? dateText(cell_.value) : durationText(cell_.value);
    if (kind != CellKind::Number) return paragraphs_.any() ? paragraphs_.text() : cell_.value;
    const auto number = parseNumber(cell_.value);
    if (number) return numberText(*number);
    fail(cellError(sheets_.back(), row_, cell_.column,
                   text::message("{} is no number; the workbook is damaged: open and save it with its own program",
                                 inQuotes(cell_.value)))
             .message);
    return {};
}

void ContentReader::endCell() {
    inCell_ = false;
    const CellKind kind = kindOfCell();
    const std::string value = valueOfCell(kind);
    // The next cell may have no value that would overwrite it.
    cell_.value.clear();
    if (cell_.covered || cell_.column >= MostColumns || (value.empty() && kind != CellKind::Uncomputed)) return;
    // Kept once, however often the cell is repeated.
    const StoredText text = store_->keep(value);
    const std::uint32_t repeats = std::min(cell_.repeats, MostColumns - cell_.column);
    for (std::uint32_t i = 0; i < repeats && !builder_->tooLarge(); ++i) builder_->add(cell_.column + i, kind, text);
    if (cell_.rowSpan > 1 || cell_.columnSpan > 1) {
        builder_->merge({row_, cell_.column, row_ + std::min(cell_.rowSpan, MostRows) - 1,
                         cell_.column + std::min(cell_.columnSpan, MostColumns) - 1});
    }
}

Result<WorkbookContent> ContentReader::finish() {
    if (!found_) return sheetError(wanted_, sheets_);
    if (found_->sheet != ExportedSheet) found_->exported = std::move(exported_);
    return std::move(*found_);
}

class ManifestReader : public xml::Handler {
public:
    void begin(std::string_view name, const xml::Attributes&) override {
        if (name == "encryption-data") fail(text::message("the workbook is encrypted; save it without a password"));
    }
    void end(std::string_view) override {}
    void text(std::string_view) override {}
};

}  // namespace

Result<WorkbookContent> readOds(Package& package, const std::string& wantedSheet) {
    ManifestReader manifest;
    if (package.has(Manifest))
        if (Status status = xml::read(package, Manifest, manifest); !status) return status.error();
    ContentReader reader(wantedSheet);
    if (Status status = xml::read(package, Content, reader); !status) return status.error();
    return reader.finish();
}

}  // namespace tables
