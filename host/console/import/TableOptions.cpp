#include "console/import/TableOptions.hpp"

#include "console/Failure.hpp"
#include "console/output/HostText.hpp"

#include <fmt/format.h>

#include <string_view>

namespace console {
namespace {

char delimiterOf(const std::string& text) {
    if (equalIgnoringCase(text, "tab") || text == "\\t" || text == "\t") return '\t';
    constexpr std::string_view Known = ",;|";
    if (text.size() == 1 && Known.find(text.front()) != std::string_view::npos) return text.front();
    throw Failure(fmt::format("--delimiter {}: it is one of , ; | or tab", text));
}

importing::SourceOptions sourceOptions(const TableOptions& options) {
    importing::SourceOptions how;
    how.asUpdateFile = equalIgnoringCase(options.as, "txt");
    how.table.as = tables::parseFormat(options.as);
    if (!options.as.empty() && !how.asUpdateFile && !how.table.as)
        throw Failure(fmt::format("--as {}: it is one of txt, csv, tsv, xlsx, ods", options.as));
    if (!options.delimiter.empty()) how.table.delimiter = delimiterOf(options.delimiter);
    how.table.encoding = options.encoding;
    how.table.sheet = options.sheet;
    how.clearEmpty = options.clearEmpty;
    return how;
}

}  // namespace

std::unique_ptr<importing::UpdateSource> openUpdates(const std::filesystem::path& path, const TableOptions& options) {
    auto source = valueOrThrow(importing::UpdateSource::open(path, sourceOptions(options)));
    if (!source->isTable() && options.any()) {
        throw Failure(
            fmt::format("{}: an update file is read as it stands; --delimiter, --encoding, --sheet and "
                        "--clear-empty are for tables (--as csv)",
                        path.string()));
    }
    return source;
}

}  // namespace console
