#include "console/import/ImportReport.hpp"
#include "console/output/Tsv.hpp"

namespace console {

std::string asTsv(const ImportReport& report) {
    std::string text = tsvLine(report.header);
    for (const ListRow& row : report.rows()) text += tsvLine(row.columns);
    return text;
}

}  // namespace console
