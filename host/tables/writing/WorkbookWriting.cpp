#include "tables/Writing.hpp"
#include "tables/reading/TableBuilder.hpp"
#include "tables/reading/Workbook.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <xlsxwriter.h>

#include <unistd.h>
#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>

namespace tables {
namespace {

constexpr const char* UpdatesSheet = "updates";
/// Fixed, so that the same grid gives the same bytes: 2000-01-01.
constexpr std::time_t Created = 946684800;
constexpr std::size_t MostLettersOfACell = 32767;
/// In letters: what fits on a screen, and what a narrow column still needs for its filter button.
constexpr std::size_t NarrowestColumn = 8;
constexpr std::size_t WidestColumn = 42;
constexpr std::size_t RowsLookedAtForWidths = 1000;
constexpr std::uint8_t TextFormat = 49;  // "@", the one that programs list as "Text".
constexpr lxw_color_t Grey = 0xEEEEEE;
constexpr lxw_color_t GreyText = 0x666666;
constexpr lxw_color_t HeaderGrey = 0xD9D9D9;

/// The library writes a file. The descriptor keeps the name ours, the destructor removes it.
class TemporaryFile {
public:
    TemporaryFile() : path_((std::filesystem::temp_directory_path() / "tables-XXXXXX").string()) {
        descriptor_ = mkstemp(path_.data());
    }
    ~TemporaryFile() {
        if (descriptor_ < 0) return;
        close(descriptor_);
        unlink(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    bool good() const { return descriptor_ >= 0; }
    const std::string& path() const { return path_; }
    Result<std::string> bytes() const {
        std::string bytes;
        std::array<char, 65536> stretch{};
        for (;;) {
            const ssize_t count = pread(descriptor_, stretch.data(), stretch.size(), static_cast<off_t>(bytes.size()));
            if (count == 0) return bytes;
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return Error{text::message("the workbook cannot be written: {}", std::strerror(errno))};
            bytes.append(stretch.data(), static_cast<std::size_t>(count));
        }
    }

private:
    std::string path_;
    int descriptor_ = -1;
};

/// As its readers unescape it. The library escapes control characters, but not zeros, not what looks like an escape
/// already, and not the two code points that no XML may hold.
std::string escaped(const std::string& text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::string_view rest = std::string_view(text).substr(at);
        const auto isDigit = [](unsigned char c) { return std::isxdigit(c) != 0; };
        // With the "_" of an escape behind it, four digits are enough.
        const bool likeEscape =
            rest.size() >= 6 && rest.starts_with("_x") && std::all_of(rest.begin() + 2, rest.begin() + 6, isDigit);
        if (likeEscape) result += "_x005F";
        if (text[at] == '\0') {
            result += "_x0000_";
            continue;
        }
        const bool noXml = rest.starts_with("\xEF\xBF\xBE") || rest.starts_with("\xEF\xBF\xBF");
        if (noXml) {
            result += rest[2] == '\xBE' ? "_xFFFE_" : "_xFFFF_";
            at += 2;
        } else {
            result += text[at];
        }
    }
    return result;
}

class Writer {
public:
    Writer(const Grid& grid, const std::string& path) : grid_(grid) {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        book_ = workbook_new_opt(path.c_str(), &options);
        lxw_doc_properties properties{};
        properties.created = Created;
        workbook_set_properties(book_, &properties);
        header_ = makeFormat();
        format_set_bold(header_);
        format_set_bg_color(header_, HeaderGrey);
        text_ = makeFormat();
        reader_ = makeFormat();
        format_set_bg_color(reader_, Grey);
        format_set_font_color(reader_, GreyText);
    }

    void addUpdates() {
        lxw_worksheet* sheet = addSheet(UpdatesSheet);
        if (sheet == nullptr) return;
        worksheet_freeze_panes(sheet, 1, 1);
        const auto last = static_cast<lxw_col_t>(grid_.columns.size() - 1);
        worksheet_autofilter(sheet, 0, 0, static_cast<lxw_row_t>(grid_.rows.size()), last);
        for (std::size_t column = 0; column < grid_.columns.size(); ++column) {
            const auto place = static_cast<lxw_col_t>(column);
            worksheet_set_column(sheet, place, place, widthOf(column), formatOf(column));
        }
        worksheet_activate(sheet);
    }

    void addExported() {
        if (lxw_worksheet* sheet = addSheet(ExportedSheet); sheet != nullptr) worksheet_hide(sheet);
    }

    /// What went wrong; nothing where the file is written. To be called once, last.
    std::optional<Error> close() {
        const lxw_error closed = workbook_close(book_);
        if (error_ == LXW_NO_ERROR) error_ = closed;
        if (error_ == LXW_NO_ERROR) return std::nullopt;
        return Error{text::message("the workbook cannot be written: {}", lxw_strerror(error_))};
    }

private:
    /// Text, so that what people type stays what they typed.
    lxw_format* makeFormat() {
        lxw_format* format = workbook_add_format(book_);
        format_set_num_format_index(format, TextFormat);
        return format;
    }

    lxw_format* formatOf(std::size_t column) const {
        return column == 0 || grid_.columns[column].starts_with('#') ? reader_ : text_;
    }

    double widthOf(std::size_t column) const {
        constexpr std::size_t FilterButton = 3;
        std::size_t letters = std::max(NarrowestColumn, text::characterCount(grid_.columns[column]) + FilterButton);
        for (std::size_t i = 0; i < std::min(grid_.rows.size(), RowsLookedAtForWidths); ++i)
            letters = std::max(letters, text::characterCount(grid_.rows[i][column]) + 1);
        return static_cast<double>(std::min(letters, WidestColumn));
    }

    /// Null where its temporary file cannot be made.
    lxw_worksheet* addSheet(const char* name) {
        lxw_worksheet* sheet = workbook_add_worksheet(book_, name);
        if (sheet == nullptr) {
            error_ = LXW_ERROR_CREATING_TMPFILE;
            return nullptr;
        }
        for (std::size_t column = 0; column < grid_.columns.size(); ++column)
            writeCell(sheet, 0, column, grid_.columns[column], header_);
        for (std::size_t row = 0; row < grid_.rows.size(); ++row) {
            for (std::size_t column = 0; column < grid_.rows[row].size(); ++column)
                writeCell(sheet, row + 1, column, grid_.rows[row][column], formatOf(column));
        }
        return sheet;
    }

    void writeCell(lxw_worksheet* sheet, std::size_t row, std::size_t column, const std::string& text,
                   lxw_format* format) {
        const auto place = static_cast<lxw_row_t>(row);
        const auto placeInRow = static_cast<lxw_col_t>(column);
        const lxw_error error = text.empty()
                                    ? worksheet_write_blank(sheet, place, placeInRow, format)
                                    : worksheet_write_string(sheet, place, placeInRow, escaped(text).c_str(), format);
        if (error_ == LXW_NO_ERROR) error_ = error;
    }

    const Grid& grid_;
    lxw_workbook* book_ = nullptr;
    lxw_format* header_ = nullptr;
    lxw_format* text_ = nullptr;
    lxw_format* reader_ = nullptr;
    lxw_error error_ = LXW_NO_ERROR;
};

bool isTooLong(const std::string& text) {
    // An escape is seven letters for at most one byte.
    constexpr std::size_t LongestEscape = 7;
    return text.size() > MostLettersOfACell / LongestEscape && text::characterCount(escaped(text)) > MostLettersOfACell;
}

/// What a sheet cannot hold, before anything is written.
std::optional<Error> tooLarge(const Grid& grid) {
    if (grid.rows.size() + 1 > MostRows) {
        return Error{text::message("a sheet has {} rows, the table {}; choose fewer elements, or write a .csv",
                                   MostRows, grid.rows.size() + 1)};
    }
    if (grid.columns.size() > MostColumns) {
        return Error{text::message("a sheet has {} columns, the table {}; choose fewer items, or write a .csv",
                                   MostColumns, grid.columns.size())};
    }
    for (std::size_t row = 0; row < grid.rows.size(); ++row) {
        for (std::size_t column = 0; column < grid.rows[row].size(); ++column) {
            if (const std::string& text = grid.rows[row][column]; isTooLong(text)) {
                return Error{
                    text::message("row {}, column {}: the text is longer than the 32767 letters of a cell; leave the "
                                  "item out, or write a .csv",
                                  row + 2, grid.columns[column])};
            }
        }
    }
    return std::nullopt;
}

}  // namespace

Result<std::string> writeWorkbook(const Grid& grid, bool keepExported) {
    if (auto error = tooLarge(grid)) return std::move(*error);
    const TemporaryFile file;
    if (!file.good())
        return Error{text::message("no temporary file can be made; free some space in the folder for them")};
    Writer writer(grid, file.path());
    writer.addUpdates();
    if (keepExported) writer.addExported();
    if (auto error = writer.close()) return std::move(*error);
    return file.bytes();
}

}  // namespace tables
