#include "console/report/ImportPage.hpp"

#include "importing/ReviewPage.hpp"

namespace console {

report::Report pageOf(const ImportReport& import, const model::Model& model) {
    importing::ReviewedUpdates reviewed;
    reviewed.modelPath = import.model.path;
    reviewed.updatesPath = import.updatesPath;
    reviewed.program = "modelhost " PROJECT_VERSION;
    reviewed.saved = import.saved;
    reviewed.review = import.review;
    reviewed.result = import.result;
    reviewed.facts = import.facts;
    if (import.table) reviewed.leftOut = import.table->leftOut;
    reviewed.hints = import.hints;
    reviewed.report = import.report;
    reviewed.linesWithoutRow = import.summary.linesWithoutRow;
    return importing::pageOf(reviewed, model);
}

}  // namespace console
