#include "tables/reading/Workbook.hpp"
#include "tables/reading/XlsxSheet.hpp"

#include <algorithm>

namespace tables {
namespace {

using xlsx::Book;
using xlsx::Shared;
using xlsx::Sheet;

Result<Shared> readShared(Package& package, const Book& book) {
    Shared shared;
    shared.store = std::make_shared<TextStore>();
    shared.days = book.days;
    auto strings = xlsx::readStrings(package, book.stringsPart, *shared.store);
    if (!strings) return strings.error();
    auto styles = xlsx::readStyles(package, book.stylesPart);
    if (!styles) return styles.error();
    shared.strings = std::move(*strings);
    shared.styles = std::move(*styles);
    return shared;
}

bool isCandidate(const Sheet& sheet, const std::string& wanted) {
    return wanted.empty() ? sheet.name != ExportedSheet : sheet.name == wanted;
}

/// Sheets without any cell are passed over: a workbook may begin with one that only shows a picture.
Result<WorkbookContent> findTable(Package& package, const Book& book, const Shared& shared, const std::string& wanted) {
    std::vector<std::string> names;
    for (const Sheet& sheet : book.sheets) {
        names.push_back(sheet.name);
        if (!isCandidate(sheet, wanted)) continue;
        Result<Table> table = xlsx::readSheet(package, sheet, shared);
        if (!table) return table.error();
        if (table->rowCount() > 0) return WorkbookContent{sheet.name, std::move(*table), std::nullopt};
    }
    return sheetError(wanted, names);
}

}  // namespace

Result<WorkbookContent> readXlsx(Package& package, const std::string& wantedSheet) {
    const Result<Book> book = xlsx::readBook(package);
    if (!book) return book.error();
    const Result<Shared> shared = readShared(package, *book);
    if (!shared) return shared.error();
    Result<WorkbookContent> content = findTable(package, *book, *shared, wantedSheet);
    const auto exported = std::find_if(book->sheets.begin(), book->sheets.end(),
                                       [](const Sheet& sheet) { return sheet.name == ExportedSheet; });
    // Asked for by its name, the sheet of exported values is the table and has nothing to be compared with.
    if (!content || exported == book->sheets.end() || content->sheet == ExportedSheet) return content;
    Result<Table> table = xlsx::readSheet(package, *exported, *shared);
    if (!table) return table.error();
    content->exported = std::move(*table);
    return content;
}

}  // namespace tables
