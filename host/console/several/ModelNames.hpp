#pragma once
// Models as people name them: files, folders, wildcards.

#include <filesystem>
#include <map>
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

/// Whether findModels takes it for more than one model: a folder or a wildcard.
bool namesSeveral(const std::string& name);

/// The models of two folders or wildcards, by file name.
struct ModelPairs {
    std::map<std::filesystem::path, std::filesystem::path> both;  ///< To each model of A the one of its name in B.
    std::vector<std::filesystem::path> onlyA, onlyB;
};

/// Throws Failure where a folder or a wildcard gives no model or two of one file name, and where there is no pair.
ModelPairs findPairs(const std::string& a, const std::string& b);

}  // namespace console
