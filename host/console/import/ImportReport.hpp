#pragma once
// The result of an import, and its three forms: table, TSV and JSON.

#include "console/ModelSession.hpp"
#include "importing/ReviewFacts.hpp"
#include "tables/ReadReport.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace console {

struct ImportSummary {
    std::uint64_t lines = 0;     ///< Of the update file that are not empty.
    std::uint64_t rows = 0;      ///< Of the review list.
    std::uint64_t tickable = 0;  ///< Rows of status 0 before Apply.
    std::uint64_t ticked = 0;    ///< Rows that bore a tick when Apply was, or would have been, pressed.
    std::uint64_t done = 0;
    std::uint64_t errors = 0;
    std::uint64_t rowsLost = 0;
    std::uint64_t notAsAsked = 0;  ///< Ticked rows for which the model holds, or would hold, something else.
    std::uint64_t conflicts = 0;   ///< Rows whose old value in the file is not what the model holds.
    std::uint64_t linesWithoutRow = 0;
    std::uint64_t exact = 0;  ///< Rows that --exact wrote.
};

struct ImportReport {
    ModelFacts model;
    std::string updatesPath;
    std::vector<std::string> header;
    std::vector<importing::ListRow> review;
    std::optional<std::vector<importing::ListRow>> result;  ///< After Apply.
    std::vector<importing::RowFacts> facts;                 ///< One a row.
    std::optional<tables::ReadReport> table;                ///< Where the updates came from one.
    ImportSummary summary;
    std::vector<std::string> hints;
    std::vector<std::string> report;
    std::optional<std::string> saved;
    std::optional<std::string> backup;  ///< Where the file that was saved over is kept.

    /// The list as the user last saw it.
    const std::vector<importing::ListRow>& rows() const { return result ? *result : review; }
};

JsonValue asJson(const ImportSummary& summary);

ImportSummary summarize(std::uint64_t lines, const std::vector<importing::ListRow>& review,
                        const std::optional<std::vector<importing::ListRow>>& result, std::uint64_t rowsLost);

/// The list with row numbers, what came of it in one sentence, the hints, the file saved.
void printAsTable(const ImportReport& report);
/// Header and rows only.
void printAsTsv(const ImportReport& report);
void printAsJson(const ImportReport& report);

}  // namespace console
