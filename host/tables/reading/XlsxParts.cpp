#include "tables/reading/XlsxParts.hpp"

#include "tables/reading/Xml.hpp"
#include "text/Unicode.hpp"

#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <optional>

namespace tables::xlsx {
namespace {

template <class Number>
Number toNumber(std::string_view text, Number otherwise = 0) {
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() ? number : otherwise;
}

/// What a part refers to, by identifier.
struct Relation {
    std::string kind;  ///< The end of the type: "worksheet".
    std::string part;
};

class Relations : public xml::Handler {
public:
    explicit Relations(std::string folder) : folder_(std::move(folder)) {}

    void begin(std::string_view name, const xml::Attributes& attributes) override {
        if (name != "Relationship") return;
        // Its end alone: what stands before it differs between the two forms of ECMA-376, transitional and strict.
        const std::string_view type = attributes.value("Type");
        byId_[std::string(attributes.value("Id"))] = {std::string(type.substr(type.rfind('/') + 1)),
                                                      resolve(attributes.value("Target"))};
    }
    void end(std::string_view) override {}
    void text(std::string_view) override {}

    const Relation* find(const std::string& id) const {
        const auto found = byId_.find(id);
        return found == byId_.end() ? nullptr : &found->second;
    }
    std::string partOf(std::string_view kind) const {
        for (const auto& [id, relation] : byId_)
            if (relation.kind == kind) return relation.part;
        return {};
    }

private:
    std::string resolve(std::string_view target) const {
        if (target.starts_with('/')) return std::string(target.substr(1));
        std::string folder = folder_;
        while (target.starts_with("../") && !folder.empty()) {
            target.remove_prefix(3);
            // The slash before the one at its end.
            folder.erase(folder.rfind('/', folder.size() - 2) + 1);
        }
        return folder.append(target);
    }

    std::string folder_;
    std::map<std::string, Relation> byId_;
};

class BookReader : public xml::Handler {
public:
    struct Listed {
        std::string name;
        std::string relation;
    };

    void begin(std::string_view name, const xml::Attributes& attributes) override {
        if (name == "sheet") {
            sheets.push_back(
                {std::string(attributes.value("name")), std::string(attributes.value("id", "relationships"))});
        }
        if (name != "workbookPr") return;
        const std::string_view from1904 = attributes.value("date1904");
        if (from1904 == "1" || from1904 == "true") days = DayCount::From1904;
    }
    void end(std::string_view) override {}
    void text(std::string_view) override {}

    std::vector<Listed> sheets;
    DayCount days = DayCount::From1900;
};

class StylesReader : public xml::Handler {
public:
    void begin(std::string_view name, const xml::Attributes& attributes) override {
        if (name == "cellXfs") inCellStyles_ = true;
        if (name == "numFmt")
            formats_[toNumber<unsigned>(attributes.value("numFmtId"))] = styleOfFormat(attributes.value("formatCode"));
        // Named styles are of elements called xf, too; cells count in this list.
        if (name == "xf" && inCellStyles_) {
            const auto number = toNumber<unsigned>(attributes.value("numFmtId"));
            const auto found = formats_.find(number);
            styles.push_back(found == formats_.end() ? styleOfBuiltIn(number) : found->second);
        }
    }
    void end(std::string_view name) override {
        if (name == "cellXfs") inCellStyles_ = false;
    }
    void text(std::string_view) override {}

    std::vector<NumberStyle> styles;

private:
    std::map<unsigned, NumberStyle> formats_;
    bool inCellStyles_ = false;
};

class StringsReader : public xml::Handler {
public:
    explicit StringsReader(TextStore& store) : store_(store) {}

    void begin(std::string_view name, const xml::Attributes&) override {
        if (name == "si") current_.clear();
        if (name == "rPh") inReading_ = true;
        inText_ = name == "t" && !inReading_;
    }
    void end(std::string_view name) override {
        inText_ = false;
        if (name == "rPh") inReading_ = false;
        if (name == "si") strings.push_back(store_.keep(unescape(current_)));
    }
    void text(std::string_view part) override {
        if (inText_) current_ += part;
    }

    std::vector<StoredText> strings;

private:
    TextStore& store_;
    std::string current_;
    bool inText_ = false;
    bool inReading_ = false;  ///< How a Japanese word is read aloud: beside the text, not in it.
};

std::string folderOf(const std::string& part) {
    return part.substr(0, part.rfind('/') + 1);
}

Result<Relations> relationsOf(Package& package, const std::string& part) {
    const std::string folder = folderOf(part);
    Relations relations(folder);
    const std::string own = folder + "_rels/" + part.substr(folder.size()) + ".rels";
    if (!package.has(own)) return relations;
    if (Status status = xml::read(package, own, relations); !status) return status.error();
    return relations;
}

/// The code unit of "_xHHHH_" at this place.
std::optional<std::uint16_t> escapeAt(std::string_view text, std::size_t at) {
    constexpr std::size_t Length = 7;
    if (at + Length > text.size() || text[at + 1] != 'x' || text[at + 6] != '_') return std::nullopt;
    std::uint16_t unit = 0;
    const char* const last = text.data() + at + 6;
    const auto [end, error] = std::from_chars(text.data() + at + 2, last, unit, 16);
    return error == std::errc() && end == last ? std::optional(unit) : std::nullopt;
}

}  // namespace

Result<Book> readBook(Package& package) {
    Result<Relations> root = relationsOf(package, "");
    if (!root) return root.error();
    std::string part = root->partOf("officeDocument");
    if (part.empty()) part = "xl/workbook.xml";
    const Result<Relations> relations = relationsOf(package, part);
    if (!relations) return relations.error();
    BookReader reader;
    if (Status status = xml::read(package, part, reader); !status) return status.error();

    Book book;
    book.days = reader.days;
    book.stringsPart = relations->partOf("sharedStrings");
    book.stylesPart = relations->partOf("styles");
    for (BookReader::Listed& listed : reader.sheets) {
        const Relation* relation = relations->find(listed.relation);
        // A book lists sheets that are a chart, too; these have no cells.
        if (relation != nullptr && relation->kind == "worksheet")
            book.sheets.push_back({std::move(listed.name), relation->part});
    }
    return book;
}

Result<std::vector<NumberStyle>> readStyles(Package& package, const std::string& part) {
    StylesReader reader;
    if (part.empty() || !package.has(part)) return std::move(reader.styles);
    if (Status status = xml::read(package, part, reader); !status) return status.error();
    return std::move(reader.styles);
}

Result<std::vector<StoredText>> readStrings(Package& package, const std::string& part, TextStore& store) {
    StringsReader reader(store);
    if (part.empty()) return std::move(reader.strings);
    if (Status status = xml::read(package, part, reader); !status) return status.error();
    return std::move(reader.strings);
}

std::string unescape(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t next = std::min(text.find("_x", at), text.size());
        plain += text.substr(at, next - at);
        at = next;
        if (at == text.size()) break;
        const auto unit = escapeAt(text, at);
        // Half of a pair is no character, so this can be no escape of one.
        if (unit && !U16_IS_SURROGATE(*unit)) {
            text::appendCharacter(plain, *unit);
            at += 7;
        } else {
            plain += text[at++];
        }
    }
    return plain;
}

}  // namespace tables::xlsx
