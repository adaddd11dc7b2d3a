#include "report/Forms.hpp"

#include "text/Ascii.hpp"
#include "text/Message.hpp"
#include "text/Unicode.hpp"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <iterator>

namespace report {
namespace {

using Writer = model::Result<std::string> (*)(const Report&);

struct Form {
    const char* ending;
    Writer write;
};

model::Result<std::string> page(const Report& report) {
    return toHtml(report);
}

model::Result<std::string> json(const Report& report) {
    return toJson(report);
}

constexpr std::array<Form, 4> Forms{{{".html", page}, {".htm", page}, {".json", json}, {".xlsx", toWorkbook}}};

const Form* formOf(const std::filesystem::path& file) {
    const std::string ending = file.extension().string();
    const auto found = std::find_if(Forms.begin(), Forms.end(),
                                    [&](const Form& form) { return text::equalIgnoringCase(ending, form.ending); });
    return found == Forms.end() ? nullptr : &*found;
}

}  // namespace

bool hasForm(const std::filesystem::path& file) {
    return formOf(file) != nullptr;
}

model::Result<std::string> inFormOf(const std::filesystem::path& file, const Report& report) {
    return formOf(file)->write(report);
}

void addOrigin(Report& report, std::string_view program) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    report.facts.push_back(
        {text::phrase("Made"), text::message("{} by {}", fmt::format("{:%Y-%m-%d %H:%M}", local), program)});
}

Fact modelFact(text::Phrase label, const std::filesystem::path& path, const model::Model& model) {
    return {label, text::counted("{1}, {2}, {0} element", "{1}, {2}, {0} elements", model.elementCount(),
                                 text::wellFormed(path.string()), model.schemaName())};
}

}  // namespace report
