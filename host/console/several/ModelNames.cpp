#include "console/several/ModelNames.hpp"

#include "console/Failure.hpp"
#include "text/Ascii.hpp"

#include <fmt/format.h>
#include <glob.h>

#include <algorithm>
#include <set>
#include <system_error>

namespace console {
namespace {

namespace fs = std::filesystem;
using Paths = std::vector<fs::path>;

bool isModel(const fs::path& path) {
    std::error_code ignored;
    const std::string ending = path.extension().string();
    const bool named = text::equalIgnoringCase(ending, ".ifc") || text::equalIgnoringCase(ending, ".ifczip");
    // A hidden file is a program's own, as one that is being written.
    return named && path.filename().native().front() != '.' && fs::is_regular_file(path, ignored);
}

Paths inFolder(const fs::path& folder) {
    std::error_code failed;
    Paths models;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, failed))
        if (isModel(entry.path())) models.push_back(entry.path());
    if (failed) throw Failure(fmt::format("cannot read the folder {}: {}", folder.string(), failed.message()));
    if (models.empty())
        throw Failure(fmt::format("the folder {} holds no .ifc or .ifczip file; name another one", folder.string()));
    std::sort(models.begin(), models.end());
    return models;
}

Paths matching(const std::string& wildcard) {
    glob_t found{};
    Paths models;
    if (glob(wildcard.c_str(), 0, nullptr, &found) == 0)
        for (std::size_t i = 0; i < found.gl_pathc; ++i) models.emplace_back(found.gl_pathv[i]);
    globfree(&found);
    if (models.empty()) throw Failure(fmt::format("no file is called {}; check the name", wildcard));
    return models;
}

bool isWildcard(const std::string& name) {
    std::error_code ignored;
    return name.find_first_of("*?[") != std::string::npos && !fs::exists(name, ignored);
}

/// What leads to one file is one model: saved twice at once, it would be spoilt.
fs::path identity(const fs::path& path) {
    std::error_code failed;
    const fs::path canonical = fs::canonical(path, failed);
    return failed ? path : canonical;
}

}  // namespace

ModelNames findModels(const std::vector<std::string>& names) {
    ModelNames result;
    std::set<fs::path> known;
    for (const std::string& name : names) {
        std::error_code ignored;
        const bool folder = fs::is_directory(name, ignored);
        if (name == "-" && names.size() > 1)
            throw Failure("standard input is one model; name files where there are several");
        result.several = result.several || folder || isWildcard(name) || names.size() > 1;
        const Paths found = folder ? inFolder(name) : isWildcard(name) ? matching(name) : Paths{name};
        for (const fs::path& path : found)
            if (known.insert(identity(path)).second) result.models.push_back(path);
    }
    return result;
}

ModelPairs findPairs(const fs::path& a, const fs::path& b) {
    ModelPairs pairs;
    std::set<fs::path> names;
    for (const fs::path& path : inFolder(b)) names.insert(path.filename());
    for (const fs::path& path : inFolder(a))
        (names.erase(path.filename()) > 0 ? pairs.both : pairs.onlyA).push_back(path);
    for (const fs::path& name : names) pairs.onlyB.push_back(b / name);
    if (pairs.both.empty())
        throw Failure(fmt::format("no model in {} has the file name of one in {}, so there is nothing to compare",
                                  a.string(), b.string()));
    return pairs;
}

}  // namespace console
