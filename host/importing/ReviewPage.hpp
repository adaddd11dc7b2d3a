#pragma once
// The report to hand on of a review: what was asked for, what was written, what was refused and why.

#include "importing/ListRows.hpp"
#include "importing/ReviewFacts.hpp"
#include "report/Report.hpp"
#include "tables/ReadReport.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace importing {

/// A review as it was left.
struct ReviewedUpdates {
    std::filesystem::path modelPath;
    std::string updatesPath;  ///< UTF-8.
    std::string program;      ///< That made the report, with its version.
    std::optional<std::string> saved;
    std::vector<ListRow> review;                 ///< Before Apply.
    std::optional<std::vector<ListRow>> result;  ///< After it; none where nothing was applied.
    std::vector<RowFacts> facts;                 ///< One a row.
    std::vector<tables::LeftOut> leftOut;
    std::vector<std::string> hints;
    std::vector<std::string> report;  ///< What the host said meanwhile.
    std::uint64_t linesWithoutRow = 0;

    /// The list as the user last saw it.
    const std::vector<ListRow>& rows() const { return result ? *result : review; }
};

/// @param model  As it is after the import; of a dry run, as it was.
report::Report pageOf(const ReviewedUpdates& import, const model::Model& model);

}  // namespace importing
