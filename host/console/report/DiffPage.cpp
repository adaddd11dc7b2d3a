#include "console/report/DiffPage.hpp"

#include "console/output/HostText.hpp"
#include "console/report/ReportFile.hpp"
#include "report/Changes.hpp"

#include <fmt/format.h>

namespace console {

report::Report pageOf(const Difference& difference) {
    const auto name = [](const std::filesystem::path& path) { return wellFormed(path.filename().string()); };
    report::Report page;
    page.title = fmt::format("Changes from {} to {}", name(difference.a.path), name(difference.b.path));
    page.facts.push_back(modelFact("Before", difference.a.path, difference.a.model));
    page.facts.push_back(modelFact("Now", difference.b.path, difference.b.model));
    addOrigin(page);
    report::addChanges(difference.found, difference.a.model, difference.b.model, page);
    return page;
}

}  // namespace console
