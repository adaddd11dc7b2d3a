#include "console/script/ScriptReader.hpp"

#include "console/Failure.hpp"

#include <fmt/format.h>

#include <cerrno>
#include <cstring>
#include <iostream>

namespace console {
namespace {

Step parse(std::uint64_t line, const std::string& text) {
    JsonValue json = JsonValue::parse(text, nullptr, false);
    if (json.is_discarded()) return {line, {}, "this is no JSON; write one object a line, such as {\"click\":3}"};
    if (!json.is_object()) return {line, {}, "a step is a JSON object, such as {\"click\":3}"};
    return {line, std::move(json), {}};
}

}  // namespace

ScriptReader::ScriptReader(const std::filesystem::path& path) : source_(&std::cin) {
    if (path == "-") return;
    file_.open(path, std::ios::binary);
    if (!file_ || std::filesystem::is_directory(path))
        throw Failure(fmt::format("cannot read the steps in {}: {}; check its name and that you may read it",
                                  path.string(), file_ ? "it is a folder" : std::strerror(errno)));
    source_ = &file_;
}

std::optional<Step> ScriptReader::next() {
    std::string text;
    while (std::getline(*source_, text)) {
        ++line_;
        if (text.find_first_not_of(" \t\r") != std::string::npos) return parse(line_, text);
    }
    return std::nullopt;
}

}  // namespace console
