#pragma once
// Models as people name them: files, folders, wildcards.

#include <filesystem>
#include <string>
#include <vector>

namespace console {

struct ModelNames {
    std::vector<std::filesystem::path> models;  ///< Each once, in the order named; those of a folder by name.
    bool several = false;                       ///< More than one, a folder or a wildcard was named.
};

/// A folder means the .ifc and .ifczip files in it, not in folders below; a name with * ? [ that no file has is a
/// wildcard. Throws Failure where a folder or a wildcard gives no model, and for standard input among others.
ModelNames findModels(const std::vector<std::string>& names);

/// The models of two folders, by file name.
struct ModelPairs {
    std::vector<std::filesystem::path> both;  ///< Those of the first folder whose namesakes are in the second.
    std::vector<std::filesystem::path> onlyA, onlyB;
};

/// Throws Failure where a folder holds no model, and where there is no pair.
ModelPairs findPairs(const std::filesystem::path& a, const std::filesystem::path& b);

}  // namespace console
