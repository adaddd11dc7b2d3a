#include "console/script/ScriptReader.hpp"

#include "console/Failure.hpp"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace console {
namespace {

/// How many brackets of the text are open at once. Those inside strings do not count.
std::size_t nestingOf(std::string_view json) {
    std::size_t depth = 0, deepest = 0;
    bool inString = false;
    for (std::size_t at = 0; at < json.size(); ++at) {
        const char c = json[at];
        if (c == '"') inString = !inString;
        if (inString && c == '\\') ++at;
        if (inString) continue;
        if (c == '[' || c == '{') deepest = std::max(deepest, ++depth);
        if ((c == ']' || c == '}') && depth > 0) --depth;
    }
    return deepest;
}

Step parse(std::uint64_t line, const std::string& text) {
    if (nestingOf(text) > ScriptReader::DeepestNesting)
        return {line, {}, fmt::format("a step has at most {} levels of brackets", ScriptReader::DeepestNesting)};
    JsonValue json = JsonValue::parse(text, nullptr, false);
    if (json.is_discarded()) return {line, {}, "this is no JSON; write one object a line, such as {\"click\":3}"};
    if (!json.is_object()) return {line, {}, "a step is a JSON object, such as {\"click\":3}"};
    return {line, std::move(json), {}};
}

std::FILE* open(const std::filesystem::path& path) {
    // A descriptor of its own: the reader closes what it reads.
    return path == "-" ? fdopen(dup(STDIN_FILENO), "rb") : std::fopen(path.c_str(), "rb");
}

}  // namespace

ScriptReader::ScriptReader(const std::filesystem::path& path)
    : name_(path == "-" ? "standard input" : path.string()), file_(open(path)) {
    struct stat status {};
    const bool folder = file_ && fstat(fileno(file_.get()), &status) == 0 && S_ISDIR(status.st_mode);
    if (!file_ || folder) {
        throw Failure(fmt::format("cannot read the steps in {}: {}; check its name and that you may read it", name_,
                                  folder ? "it is a folder" : std::strerror(errno)));
    }
}

std::optional<Step> ScriptReader::next() {
    std::string text;
    while (readLine(text)) {
        ++line_;
        if (text.find_first_not_of(" \t\r") != std::string::npos) return parse(line_, text);
    }
    return std::nullopt;
}

bool ScriptReader::readLine(std::string& text) {
    text.clear();
    if (failure_) return false;
    int c = 0;
    while ((c = std::getc(file_.get())) != EOF && c != '\n') {
        if (text.size() == LongestLine) {
            stop(fmt::format("it is longer than {} bytes, so this is no script", LongestLine));
            return false;
        }
        text += static_cast<char>(c);
    }
    if (std::ferror(file_.get()) != 0) {
        stop(std::strerror(errno));
        return false;
    }
    return c != EOF || !text.empty();
}

void ScriptReader::stop(const std::string& reason) {
    failure_ = fmt::format("cannot read line {} of the steps in {}: {}; the steps from there on were not done",
                           line_ + 1, name_, reason);
}

}  // namespace console
