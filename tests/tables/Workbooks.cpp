#include "tables/Workbooks.hpp"

#include <zip.h>

#include <stdexcept>

namespace tables {
namespace {

constexpr const char* Head = R"(<?xml version="1.0" encoding="UTF-8"?>)";
constexpr const char* Main = R"(xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main")";
constexpr const char* Relations = R"(xmlns="http://schemas.openxmlformats.org/package/2006/relationships")";
constexpr const char* OfficeTypes = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

std::string relation(const std::string& id, const std::string& kind, const std::string& target) {
    return "<Relationship Id=\"" + id + "\" Type=\"" + OfficeTypes + "/" + kind + "\" Target=\"" + target + "\"/>";
}

std::string relations(const std::string& content) {
    return std::string(Head) + "<Relationships " + Relations + ">" + content + "</Relationships>";
}

void require(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(what);
}

}  // namespace

std::string zipOf(const Parts& parts) {
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* target = zip_source_buffer_create(nullptr, 0, 0, &error);
    require(target != nullptr, "no zip buffer");
    zip_source_keep(target);
    zip_t* archive = zip_open_from_source(target, ZIP_TRUNCATE, &error);
    require(archive != nullptr, "no zip");
    for (const auto& [name, content] : parts) {
        zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
        require(zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8) >= 0, "no zip entry");
    }
    require(zip_close(archive) == 0, "zip not written");
    zip_stat_t stat{};
    require(zip_source_stat(target, &stat) == 0 && zip_source_open(target) == 0, "zip not readable");
    std::string bytes(stat.size, '\0');
    require(zip_source_read(target, bytes.data(), bytes.size()) == static_cast<zip_int64_t>(bytes.size()), "zip cut");
    zip_source_close(target);
    zip_source_free(target);
    return bytes;
}

Parts xlsxParts(const std::vector<XlsxSheet>& sheets, const XlsxOptions& options) {
    std::string list;
    std::string targets = relation("rs", "sharedStrings", "sharedStrings.xml") + relation("rt", "styles", "styles.xml");
    Parts parts{{"_rels/.rels", relations(relation("r1", "officeDocument", "xl/workbook.xml"))}};
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        list += "<sheet name=\"" + sheets[i].name + "\" sheetId=\"" + number + "\" r:id=\"r" + number + "\"/>";
        targets += relation("r" + number, "worksheet", "worksheets/sheet" + number + ".xml");
        parts.emplace_back("xl/worksheets/sheet" + number + ".xml",
                           std::string(Head) + "<worksheet " + Main + "><sheetData>" + sheets[i].rows + "</sheetData>" +
                               sheets[i].behind + "</worksheet>");
    }
    parts.emplace_back("xl/workbook.xml", std::string(Head) + "<workbook " + Main + " xmlns:r=\"" + OfficeTypes +
                                              "\">" + options.settings + "<sheets>" + list + "</sheets></workbook>");
    parts.emplace_back("xl/_rels/workbook.xml.rels", relations(targets));
    parts.emplace_back("xl/sharedStrings.xml", std::string(Head) + "<sst " + Main + ">" + options.strings + "</sst>");
    parts.emplace_back("xl/styles.xml",
                       std::string(Head) + "<styleSheet " + Main + ">" + options.styles + "</styleSheet>");
    return parts;
}

std::string xlsxOf(const std::string& rows, const XlsxOptions& options) {
    return zipOf(xlsxParts({{"Doors", rows}}, options));
}

std::string odsOf(const std::string& spreadsheet) {
    const std::string content =
        std::string(Head) +
        R"(<office:document-content xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0")"
        R"( xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0")"
        R"( xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0")"
        R"( xmlns:calcext="urn:org:documentfoundation:names:experimental:calc:xmlns:calcext:1.0">)"
        "<office:body><office:spreadsheet>" +
        spreadsheet + "</office:spreadsheet></office:body></office:document-content>";
    return zipOf({{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"}, {"content.xml", content}});
}

std::string odsSheet(const std::string& rows) {
    return odsOf("<table:table table:name=\"Doors\">" + rows + "</table:table>");
}

ReadOptions cutBy(char delimiter) {
    ReadOptions options;
    options.delimiter = delimiter;
    return options;
}

ReadOptions ofSheet(const std::string& name) {
    ReadOptions options;
    options.sheet = name;
    return options;
}

std::string shown(const Table& table) {
    std::string text;
    for (std::size_t i = 0; i < table.rowCount(); ++i) {
        const Table::Row row = table.row(i);
        text += (i > 0 ? "\n" : "") + std::to_string(row.line) + ": ";
        std::uint32_t column = 0;
        for (const Cell& cell : row.cells) {
            for (; column < cell.column; ++column) text += "| ";
            text += table.text(&cell);
            text += &cell == &row.cells.back() ? "" : " ";
        }
    }
    return text;
}

std::string shownOf(std::string_view bytes, const std::string& name, const ReadOptions& options) {
    const Result<ReadTable> read = readBytes(bytes, name, options);
    return read ? shown(read->table) : read.error().message;
}

std::string errorOf(std::string_view bytes, const std::string& name, const ReadOptions& options) {
    const Result<ReadTable> read = readBytes(bytes, name, options);
    return read ? "no error" : read.error().message;
}

std::string askedOf(std::string_view bytes, const std::string& name, const AskOptions& options) {
    const Result<ReadTable> read = readBytes(bytes, name);
    if (!read) return read.error().message;
    const Result<Asked> asked = findUpdates(*read, name, options);
    if (!asked) return asked.error().message;
    std::string text;
    for (const AskedUpdate& update : asked->updates)
        text += update.guid + " " + update.item + " " + update.old.value_or("(none)") + "->" + update.value + "\n";
    for (const LeftOut& left : asked->leftOut)
        text += "line " + std::to_string(left.line) + " " + left.column + ": " + left.why + "\n";
    for (const std::string& note : asked->notes) text += note + "\n";
    return text;
}

}  // namespace tables
