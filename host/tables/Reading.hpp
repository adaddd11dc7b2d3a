#pragma once
// The front door: a file of any kind that people keep tables in becomes a table.

#include "tables/Result.hpp"
#include "tables/Table.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tables {

enum class Format : std::uint8_t { Csv, Tsv, Xlsx, Ods };

/// "csv"
std::string_view formatName(Format format);
/// By name or ending, in any case, with a dot before it or not. Nothing for any other: "txt" is no table.
std::optional<Format> parseFormat(std::string_view text);

struct ReadOptions {
    std::optional<Format> as;       ///< Counts instead of the file's ending.
    std::optional<char> delimiter;  ///< Counts instead of what the content looks like.
    std::string encoding;           ///< As ICU knows it; empty: found by content.
    std::string sheet;              ///< Of a workbook; empty: the first that holds anything and is not "exported".
    std::uint64_t mostBytes = std::uint64_t{1} << 30U;  ///< What is larger is refused: a table is no database.
};

/// A table, and how it was understood.
struct ReadTable {
    Format format = Format::Csv;  ///< What it is by its content.
    char delimiter = '\0';        ///< Zero for a workbook.
    std::string encoding;         ///< "Windows-1252"; empty for a workbook.
    std::string sheet;            ///< Empty for delimited text.
    Table table;
    std::optional<Table> exported;   ///< A workbook's values as they were exported, where it keeps them.
    std::vector<std::string> notes;  ///< To be told: sentences without period, each about the whole file.
};

/// Reads it whole; memory and time grow with its size and not with what it claims to hold. A content that belies the
/// ending is read as what it is, and `notes` say so.
/// The error begins with the path, and says sheet, row or line, and column where they are known, and what to do.
Result<ReadTable> readFile(const std::filesystem::path& path, const ReadOptions& options = {});

/// The same for bytes that are in memory.
/// @param name  for messages; its ending tells the format where the options do not.
Result<ReadTable> readBytes(std::string_view bytes, const std::string& name, const ReadOptions& options = {});

}  // namespace tables
