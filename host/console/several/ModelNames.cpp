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

Paths namedBy(const std::string& name) {
    std::error_code ignored;
    return fs::is_directory(name, ignored) ? inFolder(name) : isWildcard(name) ? matching(name) : Paths{name};
}

std::map<fs::path, fs::path> byFileName(const std::string& name) {
    std::map<fs::path, fs::path> models;
    for (const fs::path& path : namedBy(name)) {
        const auto [other, added] = models.emplace(path.filename(), path);
        if (!added) {
            throw Failure(fmt::format("{} and {} have the same file name; name one of them", other->second.string(),
                                      path.string()));
        }
    }
    return models;
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
        if (name == "-" && names.size() > 1)
            throw Failure("standard input is one model; name files where there are several");
        result.several = result.several || namesSeveral(name) || names.size() > 1;
        for (const fs::path& path : namedBy(name))
            if (known.insert(identity(path)).second) result.models.push_back(path);
    }
    return result;
}

bool namesSeveral(const std::string& name) {
    std::error_code ignored;
    return fs::is_directory(name, ignored) || isWildcard(name);
}

ModelPairs findPairs(const std::string& a, const std::string& b) {
    ModelPairs pairs;
    std::map<fs::path, fs::path> inB = byFileName(b);
    for (const auto& [name, path] : byFileName(a)) {
        const auto namesake = inB.extract(name);
        if (namesake) {
            pairs.both.emplace(path, namesake.mapped());
        } else {
            pairs.onlyA.push_back(path);
        }
    }
    for (const auto& [name, path] : inB) pairs.onlyB.push_back(path);
    if (pairs.both.empty()) {
        throw Failure(
            fmt::format("no model in {} has the file name of one in {}, so there is nothing to compare", a, b));
    }
    return pairs;
}

}  // namespace console
