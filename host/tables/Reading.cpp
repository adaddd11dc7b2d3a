#include "tables/Reading.hpp"

#include "tables/Text.hpp"
#include "tables/reading/Content.hpp"
#include "tables/reading/Delimited.hpp"
#include "tables/reading/Encoding.hpp"
#include "tables/reading/TableBuilder.hpp"
#include "tables/reading/Workbook.hpp"
#include "text/Ascii.hpp"
#include "text/Message.hpp"

#include <algorithm>
#include <array>
#include <fstream>
#include <system_error>

namespace tables {
namespace {

constexpr std::array<std::string_view, 4> FormatNames{"csv", "tsv", "xlsx", "ods"};

bool isText(Format format) {
    return format == Format::Csv || format == Format::Tsv;
}

text::Phrase describe(Format format) {
    if (format == Format::Xlsx) return text::phrase("an Excel workbook (.xlsx)");
    return format == Format::Ods ? text::phrase("an OpenDocument spreadsheet (.ods)") : text::phrase("delimited text");
}

Result<ReadTable> readText(std::string_view bytes, const ReadOptions& options) {
    Result<DecodedText> decoded = decode(bytes, options.encoding);
    if (!decoded) return decoded.error();
    const auto delimiter = options.delimiter ? options.delimiter : findDelimiter(decoded->text);
    if (!delimiter) {
        return Error{
            text::message("no comma, semicolon, TAB or bar cuts its lines into columns; name the delimiter, or save "
                          "the table again")};
    }
    Result<Table> table = readDelimited(decoded->text, *delimiter);
    if (!table) return table.error();
    ReadTable read;
    read.delimiter = *delimiter;
    read.encoding = std::move(decoded->encoding);
    read.table = std::move(*table);
    return read;
}

Result<ReadTable> readWorkbook(std::string_view bytes, Format format, const ReadOptions& options) {
    Result<Package> package = Package::open(bytes);
    if (!package) return package.error();
    Result<WorkbookContent> content =
        format == Format::Xlsx ? readXlsx(*package, options.sheet) : readOds(*package, options.sheet);
    if (!content) return content.error();
    ReadTable read;
    read.sheet = std::move(content->sheet);
    read.table = std::move(content->table);
    read.exported = std::move(content->exported);
    return read;
}

/// The content decides: a name's ending is what somebody typed, and spreadsheets are sent around as ".csv".
Result<ReadTable> readAs(std::string_view bytes, std::optional<Format> stated, const ReadOptions& options) {
    const Result<Content> content = detectContent(bytes);
    if (!content) return content.error();
    Format format = stated.value_or(Format::Csv);
    if (*content == Content::Xlsx) format = Format::Xlsx;
    if (*content == Content::Ods) format = Format::Ods;
    if (*content == Content::Text && !isText(format)) format = Format::Csv;

    Result<ReadTable> read = isText(format) ? readText(bytes, options) : readWorkbook(bytes, format, options);
    if (!read) return read.error();
    read->format = format;
    if (stated && *stated != format) {
        read->notes.push_back(text::message("By its content it is {} and no .{}, and was read as what it is",
                                            describe(format), formatName(*stated)));
    }
    return read;
}

void noteMerged(ReadTable& read) {
    const std::uint64_t filled = read.table.filledByMerging();
    if (filled > 0) {
        read.notes.push_back(
            text::message("Merged cells: each of the cells under them counts as what is shown, {} in all", filled));
    }
}

}  // namespace

std::string_view formatName(Format format) {
    return FormatNames[static_cast<std::size_t>(format)];
}

std::optional<Format> parseFormat(std::string_view text) {
    if (text.starts_with('.')) text.remove_prefix(1);
    for (std::size_t i = 0; i < FormatNames.size(); ++i)
        if (text::equalIgnoringCase(text, FormatNames[i])) return static_cast<Format>(i);
    return std::nullopt;
}

Result<ReadTable> readBytes(std::string_view bytes, const std::string& name, const ReadOptions& options) {
    if (bytes.size() > options.mostBytes)
        return Error{text::message("{}: it is larger than {} bytes; split the table", name, options.mostBytes)};
    const auto stated = options.as ? options.as : parseFormat(std::filesystem::path(name).extension().string());
    Result<ReadTable> read = readAs(bytes, stated, options);
    if (!read) return Error{name + ": " + read.error().message};
    if (read->table.rowCount() == 0) return Error{text::message("{}: it is empty; save it with the table in it", name)};
    noteMerged(*read);
    return read;
}

Result<ReadTable> readFile(const std::filesystem::path& path, const ReadOptions& options) {
    const std::string name = path.string();
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
        return Error{text::message("{}: it is a folder; name a file", name)};
    std::ifstream file(path, std::ios::binary);
    if (!file) return Error{text::message("{}: it cannot be opened; check the path and the rights to read it", name)};
    // In stretches: a pipe tells no size, and what never ends is to be left at the limit.
    std::string bytes;
    std::array<char, 65536> stretch{};
    while (file.read(stretch.data(), stretch.size()) || file.gcount() > 0) {
        bytes.append(stretch.data(), static_cast<std::size_t>(file.gcount()));
        // readBytes() refuses it; what lies behind the limit is not read.
        if (bytes.size() > options.mostBytes) break;
    }
    if (file.bad()) return Error{text::message("{}: it cannot be read to its end", name)};
    return readBytes(bytes, name, options);
}

}  // namespace tables
