#include "support/ImportDialog.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <stdexcept>

namespace testing_support {

std::ostream& operator<<(std::ostream& stream, const ImportRow& row) {
    stream << row.tick;
    for (const std::string* cell :
         {&row.name, &row.type, &row.guid, &row.item, &row.current, &row.proposed, &row.remarks}) {
        stream << " | " << *cell;
    }
    return stream << " | status " << row.status << (row.red ? ", red" : "");
}

const frontend::List& ImportDialog::list() const {
    const frontend::List* review = dialog_.list(Review);
    if (review == nullptr) throw std::runtime_error("the open dialog has no review list");
    return *review;
}

ImportRow ImportDialog::row(Int16 number) const {
    const frontend::List& review = list();
    const auto cell = [&](Int16 field) { return std::string(review.cell(number, field).ToCStr()); };
    const frontend::Color red{0xFFFF, 0, 0};
    return {cell(1),
            cell(2),
            cell(3),
            cell(4),
            cell(5),
            cell(6),
            cell(7),
            cell(8),
            review.status(number),
            review.color(number) == red};
}

std::vector<ImportRow> ImportDialog::rows() const {
    std::vector<ImportRow> all;
    for (Int16 number = 1; number <= list().rowCount() && number > 0; ++number) all.push_back(row(number));
    return all;
}

ImportDialog& ImportDialog::tick(Int16 row) {
    const Int16 inTickColumn = list().tabFields().at(0).begin;
    EXPECT_TRUE(dialog_.clickRow(Review, row, inTickColumn));
    return *this;
}

ImportDialog& ImportDialog::click(Item item) {
    EXPECT_TRUE(dialog_.clickItem(item)) << "item " << item;
    return *this;
}

}  // namespace testing_support
