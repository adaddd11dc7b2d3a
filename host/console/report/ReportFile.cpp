#include "console/report/ReportFile.hpp"

#include "console/Failure.hpp"
#include "console/output/HostText.hpp"
#include "console/output/Messages.hpp"
#include "console/output/OutputFile.hpp"
#include "updatefile/Wording.hpp"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <array>
#include <ctime>

namespace console {
namespace {

using Writer = std::string (*)(const report::Report&);

std::string workbookOf(const report::Report& report) {
    return valueOrThrow(report::toWorkbook(report));
}

struct Form {
    const char* ending;
    Writer write;
};

constexpr std::array<Form, 4> Forms{
    {{".html", report::toHtml}, {".htm", report::toHtml}, {".json", report::toJson}, {".xlsx", workbookOf}}};

Writer writerFor(const std::filesystem::path& file) {
    for (const Form& form : Forms)
        if (equalIgnoringCase(file.extension().string(), form.ending)) return form.write;
    throw Failure(fmt::format("--report {}: a report's name ends in .html, .json or .xlsx", file.string()));
}

}  // namespace

void checkReportFile(const std::optional<std::filesystem::path>& file,
                     const std::vector<std::filesystem::path>& others) {
    if (!file) return;
    writerFor(*file);
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
    output.write(writerFor(file)(report));
    output.commit();
    say(fmt::format("report written to {}", file.string()));
}

void addOrigin(report::Report& report) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    report.facts.push_back({"Made", fmt::format("{:%Y-%m-%d %H:%M} by modelhost {}", local, PROJECT_VERSION)});
}

report::Fact modelFact(std::string label, const std::filesystem::path& path, const model::Model& model) {
    return {std::move(label), fmt::format("{}, {}, {}", wellFormed(path.string()), model.schemaName(),
                                          updatefile::counted(model.elementCount(), "element"))};
}

}  // namespace console
