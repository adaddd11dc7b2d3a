#include "console/report/ReportFile.hpp"

#include "console/Failure.hpp"
#include "console/output/Messages.hpp"
#include "console/output/OutputFile.hpp"
#include "report/Forms.hpp"

#include <fmt/format.h>

namespace console {
namespace {

void checkForm(const std::filesystem::path& file) {
    if (report::hasForm(file)) return;
    throw Failure(fmt::format("--report {}: a report's name ends in .html, .json or .xlsx", file.string()));
}

}  // namespace

void checkReportFile(const std::optional<std::filesystem::path>& file,
                     const std::vector<std::filesystem::path>& others) {
    if (!file) return;
    checkForm(*file);
    for (const auto& other : others) {
        std::error_code ignored;
        if (*file == other || std::filesystem::equivalent(*file, other, ignored)) {
            throw Failure(fmt::format("--report {}: that file is read or written by the command itself; name another",
                                      file->string()));
        }
    }
    OutputFile::checkPlace(*file);
}

void writeReportFile(const report::Report& report, const std::filesystem::path& file) {
    OutputFile output(file);
    output.write(valueOrThrow(report::inFormOf(file, report)));
    output.commit();
    say(fmt::format("report written to {}", file.string()));
}

void addOrigin(report::Report& report) {
    report::addOrigin(report, "modelhost " PROJECT_VERSION);
}

}  // namespace console
