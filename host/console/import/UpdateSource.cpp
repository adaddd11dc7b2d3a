#include "console/import/UpdateSource.hpp"

#include "UniString.hpp"
#include "console/Failure.hpp"
#include "console/export/UpdateLine.hpp"
#include "console/output/HostText.hpp"
#include "tables/Reading.hpp"
#include "tables/UpdateFiles.hpp"
#include "text/Guid.hpp"
#include "updatefile/CurrentText.hpp"

#include <fmt/format.h>

#include <cerrno>
#include <cstring>

namespace console {
namespace {

/// As the add-on's host reads bytes: whatever is no UTF-8 is Windows-1252.
std::string fromNarrow(const std::string& bytes) {
    return isWellFormed(std::string_view(bytes)) ? bytes : toUtf8(toUniString(bytes));
}

char delimiterOf(const std::string& text) {
    if (equalIgnoringCase(text, "tab") || text == "\\t" || text == "\t") return '\t';
    constexpr std::string_view Known = ",;|";
    if (text.size() == 1 && Known.find(text.front()) != std::string_view::npos) return text.front();
    throw Failure(fmt::format("--delimiter {}: it is one of , ; | or tab", text));
}

/// The format to read the file as; nothing for an update file.
std::optional<tables::Format> formatOf(const std::filesystem::path& path, const TableOptions& options) {
    const std::string named = options.as.empty() ? path.extension().string() : options.as;
    const auto format = tables::parseFormat(named);
    if (!format && !options.as.empty() && !equalIgnoringCase(options.as, "txt"))
        throw Failure(fmt::format("--as {}: it is one of txt, csv, tsv, xlsx, ods", options.as));
    return format;
}

/// What `export` would write for an item now. The cells of one line ask about one element, whose data are read once.
class CurrentValues {
public:
    explicit CurrentValues(const model::Model& model) : model_(model) {}

    std::optional<std::string> of(std::string_view guid, std::string_view item) {
        if (guid != guid_) readElement(guid);
        if (!known_) return std::nullopt;
        const updatefile::CurrentText current =
            updatefile::currentText(data_, text::fromUtf8(item.substr(0, item.find('['))));
        const UpdateLine line = updateLine({guid_, false, true}, item, current);
        return line.obstacle == Obstacle::None ? std::optional(line.value) : std::nullopt;
    }

private:
    void readElement(std::string_view guid) {
        guid_ = guid;
        known_ = false;
        const auto parsed = text::parseGuid(guid);
        const auto element = parsed ? model_.find(*parsed) : std::nullopt;
        if (!element) return;
        auto attributes = model_.attributes(*element);
        auto properties = model_.properties(*element);
        auto classifications = model_.classifications(*element);
        known_ = attributes && properties && classifications;
        if (known_) data_ = {std::move(*attributes), std::move(*properties), std::move(*classifications)};
    }

    const model::Model& model_;
    std::string guid_;
    bool known_ = false;
    updatefile::ElementData data_;
};

AskedLine askedLine(const updatefile::UpdateLine& line, const model::Guid& guid) {
    AskedLine asked;
    asked.line = line.number;
    asked.asked = {guid, fromNarrow(line.fields[1]), fromNarrow(line.fields[3]), std::nullopt,
                   readback::DecimalSign::Point};
    // People leave the old value out where they do not know it.
    if (!line.fields[2].empty()) asked.asked.old = fromNarrow(line.fields[2]);
    return asked;
}

AskedLine askedLine(const tables::AskedUpdate& update, const model::Guid& guid) {
    const auto sign = update.decimalComma ? readback::DecimalSign::Comma : readback::DecimalSign::Point;
    return {update.line, update.column, {guid, update.item, update.value, update.old, sign}};
}

}  // namespace

UpdateSource::~UpdateSource() = default;

UpdateSource::UpdateSource(std::filesystem::path path, const TableOptions& options)
    : path_(std::move(path)), clearEmpty_(options.clearEmpty), file_(path_, !formatOf(path_, options)) {
    if (formatOf(path_, options)) openTable(options);
    if (!isTable() && options.any()) {
        throw Failure(
            fmt::format("{}: an update file is read as it stands; --delimiter, --encoding, --sheet and "
                        "--clear-empty are for tables (--as csv)",
                        path_.string()));
    }
}

void UpdateSource::openTable(const TableOptions& options) {
    tables::ReadOptions how;
    how.as = formatOf(path_, options);
    if (!options.delimiter.empty()) how.delimiter = delimiterOf(options.delimiter);
    how.encoding = options.encoding;
    how.sheet = options.sheet;
    auto read = tables::readBytes(file_.bytes(), path_.string(), how);
    if (!read) throw Failure(read.error().message);
    read_ = std::move(*read);
}

void UpdateSource::read(model::Model& model) {
    if (read_) {
        readTable(model);
    } else {
        readUpdateFile(model);
    }
}

void UpdateSource::readUpdateFile(model::Model& model) {
    UpdatePart part{file_.pathForAddOn(), 0, {}};
    const auto knows = [&model](const model::Guid& guid) { return model.find(guid).has_value(); };
    findings_ = file_.scan(knows, [&](const updatefile::UpdateLine& line) {
        ++part.lines;
        const auto guid = text::parseGuid(line.fields[0]);
        // Behind a full list no row is kept.
        if (guid && part.asked.size() < tables::MostRowsOfAList && knows(*guid))
            part.asked.push_back(askedLine(line, *guid));
    });
    parts_.push_back(std::move(part));
}

std::string UpdateSource::keepPart(const std::string& text) {
    File& file = partFiles_.emplace_back(std::tmpfile());
    if (!file || std::fwrite(text.data(), 1, text.size(), file.get()) != text.size() || std::fflush(file.get()) != 0) {
        throw Failure(fmt::format("cannot keep the updates of {} for the add-on: {}; make room in {}", path_.string(),
                                  std::strerror(errno), std::filesystem::temp_directory_path().string()));
    }
    return fmt::format("/proc/self/fd/{}", fileno(file.get()));
}

void UpdateSource::readTable(model::Model& model) {
    const std::string shown = path_.filename().string();
    tables::AskOptions options;
    options.clearEmpty = clearEmpty_;
    CurrentValues values(model);
    options.current = [&values](std::string_view guid, std::string_view item) { return values.of(guid, item); };
    const auto asked = tables::findUpdates(*read_, shown, options);
    if (!asked) throw Failure(asked.error().message);
    table_ = tables::summarize(*read_, *asked);
    notes_.push_back(tables::reportLine(shown, *read_, *asked));
    notes_.insert(notes_.end(), asked->notes.begin(), asked->notes.end());
    for (const tables::UpdateFile& file : tables::writeUpdateFiles(asked->updates)) {
        UpdatePart part{keepPart(file.text), file.count, {}};
        for (std::size_t i = file.first; i < file.first + file.count; ++i) {
            const tables::AskedUpdate& update = asked->updates[i];
            const auto guid = text::parseGuid(update.guid);
            if (guid && model.find(*guid)) {
                part.asked.push_back(askedLine(update, *guid));
            } else {
                findings_.withoutRow.add(update.line);
                findings_.unknownElement.add(update.line);
            }
        }
        findings_.lines += file.count;
        findings_.pieces += file.count;
        parts_.push_back(std::move(part));
    }
}

}  // namespace console
