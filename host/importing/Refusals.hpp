#pragma once
// Why the host refused a row, from the lines of its report.

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace importing {

/// The host's refusals by the element that they are about: "Wall 12 (GUID), ITEM: REASON".
class Refusals {
public:
    explicit Refusals(const std::vector<std::string>& report);

    /// What the host said besides.
    const std::vector<std::string>& others() const { return others_; }

    /// Without the add-on interface's name for it. Empty where the host did not refuse: the add-on found nothing of
    /// that name.
    std::string reasonFor(const std::string& guid, const std::string& item);

private:
    /// By their texts, with their places in the report. Sorted, not hashed: the texts are of files.
    using OfElement = std::multimap<std::string, std::size_t>;

    static std::string find(const OfElement& refusals, const std::string& name);

    std::map<std::string, OfElement> byGuid_;
    std::map<std::pair<std::string, std::string>, std::string> known_;  ///< By GUID and name.
    std::vector<std::string> others_;
};

}  // namespace importing
