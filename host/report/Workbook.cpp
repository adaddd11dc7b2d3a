#include "report/Report.hpp"
#include "tables/Writing.hpp"

namespace report {

model::Result<std::string> toWorkbook(const Report& report) {
    tables::Grid grid{{"GUID", "#Storey", "#Type", "#Class", "#Name", "#Item", "#Old", "#New", "#Asked", "#Remark"},
                      {}};
    const auto add = [&grid](const Subject& subject, const Row& row) {
        grid.rows.push_back({subject.guid, subject.storey, subject.type, subject.ifcClass, subject.name, row.item,
                             row.old.value_or(""), row.now.value_or(""), row.asked.value_or(""), row.remark});
    };
    for (const Subject& subject : report.subjects) {
        if (subject.rows.empty()) {
            Row whole;
            whole.remark = subject.remark;
            add(subject, whole);
        }
        for (const Row& row : subject.rows) add(subject, row);
    }
    auto workbook = tables::writeWorkbook(grid, false);
    if (!workbook) return model::Error{model::ErrorKind::CannotWrite, workbook.error().message};
    return std::move(*workbook);
}

}  // namespace report
