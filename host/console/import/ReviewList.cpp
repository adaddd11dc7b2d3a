#include "console/import/ReviewList.hpp"

namespace console::reviewlist {
namespace {

constexpr const char* NotFound = "Property not found.";

const std::string& cell(const ListRow& row, std::size_t column) {
    static const std::string none;
    return column < row.columns.size() ? row.columns[column] : none;
}

}  // namespace

bool ticked(const ListRow& row) {
    return cell(row, TickColumn) == Ticked;
}

bool done(const ListRow& row) {
    return cell(row, MessageColumn) == Done;
}

bool failed(const ListRow& row) {
    return cell(row, MessageColumn) == Error;
}

bool namesNothing(const ListRow& row) {
    return cell(row, MessageColumn).find(NotFound) != std::string::npos &&
           cell(row, PropertyColumn).find('[') == std::string::npos;
}

}  // namespace console::reviewlist
