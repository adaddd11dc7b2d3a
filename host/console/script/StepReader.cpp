#include "console/script/StepReader.hpp"

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

StepReader::StepReader(const std::filesystem::path& path) : source(&std::cin) {
    if (path == "-") return;
    file.open(path, std::ios::binary);
    if (!file || std::filesystem::is_directory(path))
        throw Failure(fmt::format("cannot read the steps in {}: {}; check its name and that you may read it",
                                  path.string(), file ? "it is a folder" : std::strerror(errno)));
    source = &file;
}

std::optional<Step> StepReader::next() {
    std::string text;
    while (std::getline(*source, text)) {
        ++line;
        if (text.find_first_not_of(" \t\r") != std::string::npos) return parse(line, text);
    }
    return std::nullopt;
}

}  // namespace console
