#include "fuzz/TableChecks.hpp"
#include "tables/Workbooks.hpp"

namespace fuzz {
namespace {

using namespace tables;

void check(const std::string& workbook) {
    const auto read = readBytes(workbook, "fuzz");
    require(read || !read.error().message.empty(), "an error says nothing");
    if (!read) return;
    requireWellFormed(read->table);
    requireAskable(*read);
}

}  // namespace

void checkSheet(std::string_view bytes) {
    const std::string content(bytes);
    check(xlsxOf(content,
                 {"<si><t>shared</t></si>", "<cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"22\"/></cellXfs>", {}}));
    check(odsSheet(content));
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkSheet)
