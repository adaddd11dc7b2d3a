#pragma once
// modelhost lookup: shows elements' data as the add-on's lookup dialog does.

#include "console/Failure.hpp"
#include "console/Options.hpp"

#include <filesystem>
#include <string>
#include <vector>

namespace console {

struct LookupOptions {
    CommonOptions common;
    std::filesystem::path model;
    std::vector<std::string> guids;  ///< Of 36 or 22 characters; empty: the one that the dialog opens with.
    std::string where;               ///< A selection, whose elements are looked up behind these; empty: none.
};

ExitStatus runLookup(const LookupOptions& options);

}  // namespace console
