#pragma once
// The items that an export writes, and the line of an update file that an element's current value makes: or the reason
// why there can be none.

#include "model/base/Result.hpp"
#include "updatefile/CurrentText.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace updatefile {

using updatefile::CurrentText;
using updatefile::ElementData;

/// The items of an export, --items 'Name,FireRating[WallCommon],UniFormat Classification': cut at commas, blanks around
/// each dropped. Fails for an item without a name and for one that no line can hold.
model::Result<std::vector<std::string>> parseItems(std::string_view text);

/// The same check for an item that is taken as it stands.
model::Status checkItem(std::string_view item);

/// Why an item of an element is left out, in the order in which the reasons are printed.
enum class Obstacle : std::uint8_t {
    None,
    NoItem,       ///< The element has no such item.
    NoName,       ///< The review list refuses every change of an element without a Name.
    NoGuid,       ///< The null GUID names no element.
    NoText,       ///< A list, a range and the like.
    LineBreaker,  ///< TAB, CR, LF or a zero: they end a cell, a line or its text.
    Brace,        ///< "{" ends the value.
    BooleanCode,  ///< ".T." and ".F." are read as true and false.
    NoUnicode,    ///< An unpaired surrogate.
    TooLong,      ///< The line would be cut.
};
inline constexpr std::size_t ObstacleCount = 10;

/// A complete clause.
std::string explain(Obstacle obstacle);

struct ExportLine {
    Obstacle obstacle = Obstacle::None;
    std::string value;  ///< Third and fourth field.
};

/// The element's part of it.
struct LineSubject {
    std::string guid;  ///< 36 characters.
    bool nullGuid = false;
    bool named = false;
};

ExportLine exportLine(const LineSubject& subject, std::string_view item, const CurrentText& current);

}  // namespace updatefile
