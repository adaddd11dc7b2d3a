#include "report/Report.hpp"
#include "tables/Writing.hpp"
#include "text/Message.hpp"

#include <array>

namespace report {

namespace {

/// Behind that of the GUIDs. A '#' before them keeps the columns from being imported, should somebody try.
constexpr std::array Titles{text::phrase("Storey"), text::phrase("Type"),  text::phrase("Class"),
                            text::phrase("Name"),   text::phrase("Item"),  text::phrase("Old"),
                            text::phrase("New"),    text::phrase("Asked"), text::phrase("Remark")};

}  // namespace

model::Result<std::string> toWorkbook(const Report& report) {
    tables::Grid grid{{"GUID"}, {}};
    for (const text::Phrase title : Titles) grid.columns.push_back("#" + title.text());
    const auto add = [&grid](const Subject& subject, const Row& row) {
        grid.rows.push_back({subject.guid, subject.storey, subject.type.text(), subject.ifcClass, subject.name,
                             row.item, row.old.value_or(""), row.now.value_or(""), row.asked.value_or(""), row.remark});
    };
    for (const Subject& subject : report.subjects) {
        if (subject.rows.empty()) {
            Row whole;
            whole.remark = subject.remark.text();
            add(subject, whole);
        }
        for (const Row& row : subject.rows) add(subject, row);
    }
    auto workbook = tables::writeWorkbook(grid, false);
    if (!workbook) return model::Error{model::ErrorKind::CannotWrite, workbook.error().message};
    return std::move(*workbook);
}

}  // namespace report
