// Reviewing and applying updates through the add-on in its host:
//   BENCH_MODEL=big.ifc import_bench
// The time of a review is that of the dialog's initialisation, the time of an application that of the click on Apply;
// the counters give them for one line and one row.

#include "frameworks/FrontEnd.hpp"
#include "services/Host.hpp"
#include "text/Guid.hpp"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

constexpr Int16 MenuResource = 32500;
constexpr Int32 ImportItem = 1;
constexpr Int16 ApplyButton = 1;
constexpr Int16 CloseButton = 2;
constexpr Int16 SelectAllButton = 3;
constexpr Int16 ReviewList = 5;
constexpr int InspectionItems = 40;

/// A user who reviews the file and, if asked to, applies every row.
class Reviewer : public frontend::View {
public:
    Reviewer(std::filesystem::path updates, bool wantsApply) : path(std::move(updates)), apply(wantsApply) {}

    void runModal(frontend::Dialog& dialog) override {
        reviewed = Clock::now() - start;
        rows = dialog.list(ReviewList)->rowCount();
        if (apply) {
            dialog.clickItem(SelectAllButton);
            const auto before = Clock::now();
            dialog.clickItem(ApplyButton);
            applied = Clock::now() - before;
            done = countDone(*dialog.list(ReviewList));
        }
        dialog.clickItem(CloseButton);
    }

    std::optional<std::string> pickFile(const frontend::FileRequest&) override {
        start = Clock::now();
        return path.string();
    }

    Clock::duration reviewed{}, applied{};
    int rows = 0;
    int done = 0;

private:
    static int countDone(const frontend::List& list) {
        int count = 0;
        for (int row = 1; row <= list.rowCount(); ++row) {
            if (list.cell(static_cast<Int16>(row), 8) == GS::UniString("Done")) ++count;
        }
        return count;
    }

    std::filesystem::path path;
    bool apply;
    Clock::time_point start;
};

std::filesystem::path modelPath() {
    const char* path = std::getenv("BENCH_MODEL");
    return path == nullptr ? "" : path;
}

/// One line for each of many elements with a set of forty properties; the property changes from round to round.
std::filesystem::path writeUpdates(const model::Model& model, std::int64_t lines) {
    const auto path = std::filesystem::temp_directory_path() / ("import_bench_" + std::to_string(lines) + ".txt");
    std::ofstream out(path, std::ios::binary);
    std::vector<std::string> guids;
    for (model::Element element = 0; element < model.elementCount(); ++element) {
        const auto properties = model.properties(element);
        if (!properties || properties->size() < InspectionItems) continue;
        guids.push_back(text::guidText(model.info(element).guid));
        if (guids.size() >= static_cast<std::size_t>(lines)) break;
    }
    for (std::int64_t line = 0; !guids.empty() && line < lines; ++line) {
        const std::size_t at = static_cast<std::size_t>(line) % guids.size();
        const std::size_t round = static_cast<std::size_t>(line) / guids.size();
        out << guids[at] << "\tInspection item " << round % InspectionItems + 1 << "\t\tpassed " << line << "\n";
    }
    return path;
}

/// The model is opened once and shared by all cases: opening is measured elsewhere.
std::unique_ptr<host::Host> theHost;

host::Host* sharedHost(benchmark::State& state) {
    if (theHost) return theHost.get();
    auto opened = std::make_unique<host::Host>();
    if (const model::Status status = opened->openModel(modelPath()); !status) {
        state.SkipWithError(status.error().message.c_str());
        return nullptr;
    }
    if (const model::Status status = opened->loadAddOn(BUNDLE); !status) {
        state.SkipWithError(status.error().message.c_str());
        return nullptr;
    }
    theHost = std::move(opened);
    return theHost.get();
}

double seconds(Clock::duration duration) {
    return std::chrono::duration<double>(duration).count();
}

void importUpdates(benchmark::State& state, bool apply) {
    host::Host* host = sharedHost(state);
    if (host == nullptr) return;
    const auto updates = writeUpdates(*host->model(), state.range(0));
    double total = 0;
    double rows = 0;
    for ([[maybe_unused]] auto iteration : state) {
        Reviewer reviewer(updates, apply);
        frontend::setView(&reviewer);
        host->pickMenuItem(MenuResource, ImportItem);
        frontend::setView(nullptr);
        if (reviewer.rows == 0) return state.SkipWithError("no row: the model has no element with forty properties");
        if (apply && reviewer.done != reviewer.rows) return state.SkipWithError("a row was not applied");
        const double time = seconds(apply ? reviewer.applied : reviewer.reviewed);
        state.SetIterationTime(time);
        total += time;
        rows += reviewer.rows;
        if (apply) host->undo();
    }
    state.counters[apply ? "us/row" : "us/line"] = total / rows * 1e6;
    std::filesystem::remove(updates);
}

void ReviewUpdates(benchmark::State& state) {
    importUpdates(state, false);
}

void ApplyUpdates(benchmark::State& state) {
    importUpdates(state, true);
}

BENCHMARK(ReviewUpdates)->Arg(1000)->Arg(30000)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(ApplyUpdates)->Arg(1000)->Arg(30000)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    theHost.reset();  // The add-on ends while the frameworks are still there.
    return 0;
}
