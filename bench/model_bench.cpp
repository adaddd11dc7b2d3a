// Opening and saving a model beside the plain tools they are held against, in one run:
//   BENCH_MODEL=big.ifc model_bench
// "OpenModel" is compared with "wc -l", "SaveModel" with "cp" and fsync of the same file.

#include "model/Model.hpp"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

std::filesystem::path modelPath() {
    const char* path = std::getenv("BENCH_MODEL");
    return path == nullptr ? "" : path;
}

std::filesystem::path scratchPath() {
    return modelPath().string() + ".bench-out.ifc";
}

double peakBytes() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word != "VmHWM:") continue;
        double kibibytes = 0;
        status >> kibibytes;
        return kibibytes * 1024;
    }
    return 0;
}

void run(benchmark::State& state, const std::string& command) {
    for ([[maybe_unused]] auto iteration : state) {
        if (std::system(command.c_str()) != 0) state.SkipWithError("the command failed");
    }
}

std::string quoted(const std::filesystem::path& path) {
    return "'" + path.string() + "'";
}

void WordCount(benchmark::State& state) {
    run(state, "wc -l " + quoted(modelPath()) + " > /dev/null");
}

void OpenModel(benchmark::State& state) {
    std::size_t elements = 0;
    for ([[maybe_unused]] auto iteration : state) {
        auto model = model::Model::open(modelPath());
        if (!model) return state.SkipWithError(model.error().message.c_str());
        elements = (*model)->elementCount();
    }
    const auto size = static_cast<double>(std::filesystem::file_size(modelPath()));
    state.counters["elements"] = static_cast<double>(elements);
    state.counters["peak/size"] = peakBytes() / size;
}

void CopyAndSync(benchmark::State& state) {
    run(state, "cp " + quoted(modelPath()) + " " + quoted(scratchPath()) + " && sync " + quoted(scratchPath()));
    std::filesystem::remove(scratchPath());
}

void SaveModel(benchmark::State& state) {
    auto model = model::Model::open(modelPath());
    if (!model) return state.SkipWithError(model.error().message.c_str());
    for ([[maybe_unused]] auto iteration : state) {
        const model::Status saved = (*model)->save(scratchPath());
        if (!saved) return state.SkipWithError(saved.error().message.c_str());
    }
    std::filesystem::remove(scratchPath());
}

BENCHMARK(WordCount)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(OpenModel)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(CopyAndSync)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(SaveModel)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

}  // namespace

BENCHMARK_MAIN();
