#pragma once
// The parts of an .xlsx that its sheets refer to.

#include "tables/Result.hpp"
#include "tables/Table.hpp"
#include "tables/reading/Package.hpp"
#include "tables/reading/Values.hpp"

#include <string>
#include <vector>

namespace tables::xlsx {

struct Sheet {
    std::string name;
    std::string part;
};

struct Book {
    std::vector<Sheet> sheets;  ///< Of cells, in the order of their tabs; charts and the like are not among them.
    DayCount days = DayCount::From1900;
    std::string stringsPart;  ///< Empty where there is none.
    std::string stylesPart;   ///< Empty where there is none.
};

Result<Book> readBook(Package& package);

/// What each cell style makes of a number.
Result<std::vector<NumberStyle>> readStyles(Package& package, const std::string& part);

/// The texts that cells refer to by number.
Result<std::vector<StoredText>> readStrings(Package& package, const std::string& part, TextStore& store);

/// Control characters stand in texts as "_x0007_", and the beginning of what would look like that as "_x005F_".
std::string unescape(std::string_view text);

}  // namespace tables::xlsx
