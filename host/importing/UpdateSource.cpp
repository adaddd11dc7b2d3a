#include "importing/UpdateSource.hpp"

#include "UniString.hpp"
#include "tables/UpdateFiles.hpp"
#include "text/Guid.hpp"
#include "text/Unicode.hpp"
#include "updatefile/CurrentText.hpp"
#include "updatefile/Designation.hpp"
#include "updatefile/ExportLine.hpp"

#include <map>
#include <memory>

namespace importing {
namespace {

/// As the add-on's host reads bytes: whatever is no UTF-8 is Windows-1252.
std::string fromNarrow(const std::string& bytes) {
    if (text::isWellFormed(std::string_view(bytes))) return bytes;
    return text::toUtf8(GS::UniString(bytes.data(), static_cast<USize>(bytes.size())).View());
}

/// What `export` would write for an item now. An element's data are read once for all lines about it, wherever they
/// stand, as long as they take no more memory than this.
class CurrentValues {
public:
    explicit CurrentValues(const model::Model& model) : model_(model) {}

    std::optional<std::string> of(std::string_view guid, std::string_view item) {
        const auto known = known_.find(guid);
        const updatefile::CurrentTexts* element = known != known_.end() ? known->second.get() : readElement(guid);
        if (element == nullptr) return std::nullopt;
        const updatefile::CurrentText current = element->of(text::fromUtf8(updatefile::nameIn(item)));
        const updatefile::ExportLine line = updatefile::exportLine({std::string(guid), false, true}, item, current);
        return line.obstacle == updatefile::Obstacle::None ? std::optional(line.value) : std::nullopt;
    }

private:
    static constexpr std::size_t MostBytes = std::size_t{64} << 20U;
    static constexpr std::size_t MostElements = 100'000;

    /// @return null for an element that is not there.
    const updatefile::CurrentTexts* readElement(std::string_view guid) {
        auto element = dataOf(guid);
        const std::size_t bytes = element ? element->bytes() : 0;
        if (bytes_ + bytes > MostBytes || known_.size() >= MostElements) {
            known_.clear();
            bytes_ = 0;
        }
        bytes_ += bytes;
        return known_.emplace(guid, std::move(element)).first->second.get();
    }

    std::unique_ptr<updatefile::CurrentTexts> dataOf(std::string_view guid) const {
        const auto parsed = text::parseGuid(guid);
        const auto element = parsed ? model_.find(*parsed) : std::nullopt;
        if (!element) return nullptr;
        auto attributes = model_.attributes(*element);
        auto properties = model_.properties(*element);
        auto classifications = model_.classifications(*element);
        // An element that is read in part would show items as not there that are.
        if (!attributes || !properties || !classifications) return nullptr;
        return std::make_unique<updatefile::CurrentTexts>(
            updatefile::ElementData{std::move(*attributes), std::move(*properties), std::move(*classifications)});
    }

    const model::Model& model_;
    std::map<std::string, std::unique_ptr<updatefile::CurrentTexts>, std::less<>> known_;  ///< By GUID.
    std::size_t bytes_ = 0;
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

/// The format to read the file as; nothing for an update file.
std::optional<tables::Format> formatOf(const std::filesystem::path& path, const SourceOptions& options) {
    if (options.asUpdateFile) return std::nullopt;
    return options.table.as ? options.table.as : tables::parseFormat(path.extension().string());
}

model::Error asError(const tables::Error& error) {
    return {model::ErrorKind::CannotRead, error.message};
}

}  // namespace

UpdateSource::UpdateSource(std::filesystem::path path, bool clearEmpty, UpdateFile file)
    : path_(std::move(path)), clearEmpty_(clearEmpty), file_(std::move(file)) {}

model::Result<std::unique_ptr<UpdateSource>> UpdateSource::open(const std::filesystem::path& path,
                                                                const SourceOptions& options) {
    tables::ReadOptions how = options.table;
    how.as = formatOf(path, options);
    auto file = UpdateFile::open(path, !how.as);
    if (!file) return file.error();
    std::unique_ptr<UpdateSource> source(new UpdateSource(path, options.clearEmpty, std::move(*file)));
    if (how.as) {
        if (const model::Status opened = source->openTable(how); !opened) return opened.error();
    }
    return source;
}

model::Status UpdateSource::openTable(const tables::ReadOptions& options) {
    const auto bytes = file_.bytes();
    if (!bytes) return bytes.error();
    auto read = tables::readBytes(*bytes, path_.string(), options);
    if (!read) return asError(read.error());
    read_ = std::move(*read);
    return {};
}

model::Status UpdateSource::read(const model::Model& model) {
    return read_ ? readTable(model) : readUpdateFile(model);
}

model::Status UpdateSource::readUpdateFile(const model::Model& model) {
    UpdatePart part{file_.pathForAddOn(), 0, {}};
    const auto knows = [&model](const model::Guid& guid) { return model.find(guid).has_value(); };
    auto findings = file_.scan(knows, [&](const updatefile::UpdateLine& line) {
        ++part.lines;
        const auto guid = text::parseGuid(line.fields[0]);
        if (guid && !knows(*guid)) linesOfUnknownElements_.push_back(line.number);
        // Behind a full list no row is kept.
        if (guid && part.asked.size() < tables::MostRowsOfAList && knows(*guid))
            part.asked.push_back(askedLine(line, *guid));
    });
    if (!findings) return findings.error();
    findings_ = std::move(*findings);
    parts_.push_back(std::move(part));
    return {};
}

model::Result<std::string> UpdateSource::keepPart(const std::string& text) {
    auto file = KeptFile::create();
    if (!file) return file.error();
    if (const model::Status written = file->write(text); !written) return written.error();
    if (const model::Status finished = file->finish(); !finished) return finished.error();
    return partFiles_.emplace_back(std::move(*file)).path();
}

model::Status UpdateSource::readTable(const model::Model& model) {
    findings_.ofTable = true;
    const std::string shown = path_.filename().string();
    tables::AskOptions options;
    options.clearEmpty = clearEmpty_;
    CurrentValues values(model);
    options.current = [&values](std::string_view guid, std::string_view item) { return values.of(guid, item); };
    const auto asked = tables::findUpdates(*read_, shown, options);
    if (!asked) return asError(asked.error());
    table_ = tables::summarize(*read_, *asked);
    notes_.push_back(tables::reportLine(shown, *read_, *asked));
    notes_.insert(notes_.end(), asked->notes.begin(), asked->notes.end());
    for (const tables::UpdateFile& file : tables::writeUpdateFiles(asked->updates)) {
        auto path = keepPart(file.text);
        if (!path) return path.error();
        UpdatePart part{std::move(*path), file.count, {}};
        for (std::size_t i = file.first; i < file.first + file.count; ++i) {
            const tables::AskedUpdate& update = asked->updates[i];
            const auto guid = text::parseGuid(update.guid);
            // The add-on makes no row for an element that it does not find, so the rows' facts leave the line out, too.
            if (guid && model.find(*guid)) {
                part.asked.push_back(askedLine(update, *guid));
            } else {
                findings_.withoutRow.add(update.line);
                findings_.unknownElement.add(update.line);
                linesOfUnknownElements_.push_back(update.line);
            }
        }
        findings_.lines += file.count;
        findings_.pieces += file.count;
        parts_.push_back(std::move(part));
    }
    return {};
}

}  // namespace importing
