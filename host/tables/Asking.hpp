#pragma once
// What a table asks for: a list of values to write, one an update-file line, and everything that was left out.

#include "tables/Reading.hpp"
#include "tables/Result.hpp"
#include "tables/asked/Layout.hpp"
#include "tables/asked/LeftOut.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tables {

struct AskedUpdate {
    std::string guid;  ///< 36 characters, in capitals.
    std::string item;  ///< As an update file's second field names it.
    /// What the table says the value was: the third column of a long list, or the cell of the sheet "exported". Nothing
    /// where the table does not say: no such column or line, or an Old column without a single value.
    std::optional<std::string> old;
    std::string value;       ///< Asked for; exactly the cell's text. Empty: to be cleared.
    std::uint32_t line = 0;  ///< Of the file, or row of the sheet.
    std::string column;      ///< As its header calls it.
    /// The value is a number with a comma, which the column's other cells show to be the decimal sign.
    bool decimalComma = false;
};

struct AskOptions {
    /// Empty cells ask for the empty text. Without it they ask for nothing.
    bool clearEmpty = false;
    /// What `export` would write for the element's item now, nothing where it would leave it out. Called at most once
    /// for each cell that may ask for something, line by line; must not change the model. Without it nothing is
    /// compared with a model.
    std::function<std::optional<std::string>(std::string_view guid, std::string_view item)> current;
};

struct Asked {
    Layout layout = Layout::Grid;
    std::uint64_t elements = 0;        ///< Different GUIDs.
    std::uint64_t items = 0;           ///< Different ones.
    std::uint64_t unchanged = 0;       ///< Cells that ask for nothing new, see below.
    std::vector<AskedUpdate> updates;  ///< In the order of the table. Each one fits into a line of an update file.
    std::vector<LeftOut> leftOut;      ///< In the order of the table.
    std::vector<std::string> notes;    ///< To be told: sentences without period, those of ReadTable first.
};

/// A cell is unchanged, and no update, where its text is
/// - the current value, or the same number as one written with six decimals, as reals are;
/// - the value that the table says was there before: whoever has changed the model since meant it;
/// - empty, with `clearEmpty`, and there is nothing to clear.
/// Left out with a reason: lines without GUID or with a bad one; cells that show a formula's error, or a formula
/// without its value; what no line of an update file can hold; columns without name; in a long list an empty item or
/// new value. A value that is asked for twice is taken once; two values for one item of one element are both left out.
/// Fails, with the file's name, only where the table is neither a grid nor a long list.
Result<Asked> findUpdates(const ReadTable& read, const std::string& fileName, const AskOptions& options);

}  // namespace tables
