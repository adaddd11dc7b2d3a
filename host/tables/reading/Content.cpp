#include "tables/reading/Content.hpp"

#include "tables/reading/Package.hpp"
#include "text/Message.hpp"

#include <algorithm>
#include <array>
#include <string>

namespace tables {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view ZipBeginning = "PK\x03\x04"sv;
constexpr std::string_view CompoundBeginning = "\xD0\xCF\x11\xE0"sv;

struct Signature {
    std::string_view bytes;
    text::Phrase what;
};
constexpr std::array NoTables{Signature{"%PDF-"sv, text::phrase("a PDF")},
                              Signature{"\x1F\x8B"sv, text::phrase("a gzip archive")},
                              Signature{"\xFD\x37zXZ"sv, text::phrase("an xz archive")},
                              Signature{"\x7F\x45LF"sv, text::phrase("a program")},
                              Signature{"PK\x05\x06"sv, text::phrase("an empty zip archive")},
                              Signature{"<?xml"sv, text::phrase("an XML document")},
                              Signature{"<html"sv, text::phrase("a web page")},
                              Signature{"<!DOCTYPE"sv, text::phrase("a web page")},
                              Signature{"ISO-10303-21"sv, text::phrase("a STEP file, perhaps the model itself")}};

Error noTable(text::Phrase what) {
    return {text::message("it is {} and no table; save the table as .xlsx, .ods or .csv", what)};
}

Result<Content> detectInArchive(std::string_view bytes) {
    Result<Package> package = Package::open(bytes);
    if (!package) return package.error();
    if (package->has("xl/workbook.bin"))
        return Error{text::message("it is a binary workbook (.xlsb); save it as .xlsx")};
    if (package->has("xl/workbook.xml")) return Content::Xlsx;
    if (package->has("word/document.xml") || package->has("ppt/presentation.xml"))
        return noTable(text::phrase("a text or presentation"));
    const std::string type = package->beginning("mimetype", 100);
    if (type.starts_with("application/vnd.oasis.opendocument.spreadsheet")) return Content::Ods;
    if (type.starts_with("application/vnd.oasis.opendocument")) return noTable(text::phrase("a text or drawing"));
    if (package->has("content.xml")) return Content::Ods;
    // The workbook may stand elsewhere in it: its relations tell where.
    if (package->has("[Content_Types].xml")) return Content::Xlsx;
    return noTable(text::phrase("a zip archive"));
}

/// Microsoft's older container: the workbooks of before 2007, and the encrypted ones of today.
Error compoundError(std::string_view bytes) {
    if (bytes.find("E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0"sv) != std::string_view::npos)
        return {text::message("the workbook is encrypted; save it without a password")};
    return {text::message("it is in Microsoft's older format (.xls); save it as .xlsx")};
}

/// Control characters that no text has; a stray one still leaves a text, and so do the zeros of UTF-16.
bool mostlyControls(std::string_view beginning) {
    const auto controls = std::count_if(beginning.begin(), beginning.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 && c != '\0' && c != '\t' && c != '\n' && c != '\r';
    });
    return static_cast<std::size_t>(controls) > beginning.size() / 10;
}

}  // namespace

Result<Content> detectContent(std::string_view bytes) {
    constexpr std::size_t SniffLength = 65536;
    if (bytes.empty()) return Error{text::message("it is empty; save it with the table in it")};
    if (bytes.starts_with(ZipBeginning)) return detectInArchive(bytes);
    if (bytes.starts_with(CompoundBeginning)) return compoundError(bytes);
    for (const Signature& signature : NoTables)
        if (bytes.starts_with(signature.bytes)) return noTable(signature.what);
    if (mostlyControls(bytes.substr(0, SniffLength))) return noTable(text::phrase("no text"));
    return Content::Text;
}

}  // namespace tables
