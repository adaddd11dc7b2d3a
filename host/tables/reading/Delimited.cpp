#include "tables/reading/Delimited.hpp"

#include "tables/Guids.hpp"
#include "tables/Text.hpp"
#include "tables/reading/TableBuilder.hpp"
#include "text/Ascii.hpp"
#include "text/Message.hpp"

#include <algorithm>
#include <array>
#include <tuple>

namespace tables {
namespace {

/// Cuts the text into fields, one after the other.
class FieldReader {
public:
    FieldReader(std::string_view text, char delimiter)
        : text_(text), stops_{delimiter, '\r', '\n'}, delimiter_(delimiter) {}

    /// False at the end of the text.
    bool next();

    std::string_view field() const { return field_; }  ///< Valid until the next call.
    std::uint32_t line() const { return fieldLine_; }  ///< In which the field begins, from 1.
    std::uint32_t column() const { return column_; }   ///< Of the field in its line, from 0.
    bool endsLine() const { return endsLine_; }
    bool open() const { return open_; }  ///< The field's quote is never closed.

private:
    void readQuoted();
    void readPlain();
    void endLine();

    std::string_view text_;
    std::array<char, 3> stops_;
    char delimiter_;
    std::size_t at_ = 0;
    std::uint32_t line_ = 1;
    std::uint32_t fieldLine_ = 1;
    std::uint32_t column_ = 0;
    std::string_view field_;
    std::string unquoted_;
    bool endsLine_ = true;
    bool open_ = false;
};

bool FieldReader::next() {
    const bool fieldDue = !endsLine_;  // A delimiter at the very end has an empty field behind it.
    if (at_ == text_.size() && !fieldDue) return false;
    column_ = endsLine_ ? 0 : column_ + 1;
    fieldLine_ = line_;
    if (at_ < text_.size() && text_[at_] == '"') {
        readQuoted();
    } else {
        readPlain();
    }
    if (at_ < text_.size() && text_[at_] == delimiter_) {
        ++at_;
        endsLine_ = false;
    } else {
        endLine();
    }
    return true;
}

void FieldReader::readPlain() {
    const std::size_t end =
        std::min(text_.find_first_of(std::string_view(stops_.data(), stops_.size()), at_), text_.size());
    field_ = text_.substr(at_, end - at_);
    at_ = end;
}

void FieldReader::readQuoted() {
    unquoted_.clear();
    for (++at_;;) {
        const std::size_t quote = text_.find('"', at_);
        if (quote == std::string_view::npos) {
            open_ = true;
            at_ = text_.size();
            return;
        }
        unquoted_ += text_.substr(at_, quote - at_);
        at_ = quote + 1;
        if (at_ == text_.size() || text_[at_] != '"') break;
        unquoted_ += '"';
        ++at_;
    }
    for (std::size_t at = 0; (at = std::string_view(unquoted_).find_first_of("\r\n", at)) != std::string::npos; ++at)
        if (unquoted_[at] == '\n' || at + 1 == unquoted_.size() || unquoted_[at + 1] != '\n') ++line_;
    readPlain();
    // What stands behind the closing quote up to the delimiter belongs to the field.
    field_ = unquoted_ += field_;
}

void FieldReader::endLine() {
    endsLine_ = true;
    if (at_ == text_.size()) return;
    at_ += text_.substr(at_).starts_with("\r\n") ? 2U : 1U;
    ++line_;
}

/// What the beginning looks like, cut by one delimiter. Compared member by member: the greater one is the likelier.
struct Likeness {
    std::size_t linesWithGuid = 0;
    std::size_t linesAsFirst = 0;
    std::size_t fields = 0;

    auto rank() const { return std::tie(linesWithGuid, linesAsFirst, fields); }
};

constexpr std::size_t SampleLines = 200;
constexpr std::size_t SampleBytes = 65536;

bool saysGuid(std::string_view field) {
    return namesGuids(field) || parseGuid(field).has_value();
}

Likeness likenessOf(std::string_view sample, char delimiter) {
    Likeness likeness;
    FieldReader reader(sample, delimiter);
    std::size_t lines = 0;
    bool guid = false;
    while (lines < SampleLines && reader.next() && !reader.open()) {
        guid = guid || saysGuid(reader.field());
        if (!reader.endsLine()) continue;
        const std::size_t fields = std::size_t{reader.column()} + 1;
        // An empty line says nothing about the delimiter.
        if (fields == 1 && reader.field().empty()) continue;
        if (lines++ == 0) likeness.fields = fields;
        if (guid && fields > 1) ++likeness.linesWithGuid;
        if (fields == likeness.fields) ++likeness.linesAsFirst;
        guid = false;
    }
    // A delimiter that cuts nothing is none.
    if (likeness.fields < 2 && likeness.linesWithGuid == 0) return {};
    return likeness;
}

/// The line by which a spreadsheet program is told the delimiter: no line of the table.
constexpr std::string_view Separator = "sep=";

bool saysDelimiter(std::string_view text) {
    return text.size() > Separator.size() && text::equalIgnoringCase(text.substr(0, Separator.size()), Separator) &&
           (text.size() == Separator.size() + 1 || text.find_first_of("\r\n") == Separator.size() + 1);
}

}  // namespace

std::optional<char> findDelimiter(std::string_view text) {
    if (saysDelimiter(text)) return text[Separator.size()];
    const std::size_t begin = std::min(text.find_first_not_of("\r\n"), text.size());
    const std::string_view sample = text.substr(begin, SampleBytes);
    std::optional<char> best;
    Likeness likeness;
    for (const char delimiter : Delimiters) {
        const Likeness here = likenessOf(sample, delimiter);
        if (here.rank() <= likeness.rank()) continue;
        likeness = here;
        best = delimiter;
    }
    return best;
}

Result<Table> readDelimited(std::string_view text, char delimiter) {
    TableBuilder builder(std::make_shared<TextStore>());
    FieldReader reader(text, delimiter);
    const bool skipFirst = saysDelimiter(text);
    while (reader.next() && !builder.tooLarge()) {
        if (reader.open()) {
            return Error{
                text::message("line {}, column {}: the quote at its beginning is never closed; close it, or write \"\" "
                              "for a quote that is meant",
                              reader.line(), reader.column() + 1)};
        }
        if (skipFirst && reader.line() == 1) continue;
        if (reader.column() == 0) builder.beginRow(reader.line());
        if (!reader.field().empty()) builder.add(reader.column(), CellKind::Text, builder.store().keep(reader.field()));
        if (reader.endsLine()) builder.noteWidth(reader.column() + 1);
    }
    return builder.finish();
}

}  // namespace tables
