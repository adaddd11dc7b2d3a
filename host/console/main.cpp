// modelhost: the stand-in host for a terminal and for scripts.

#include "console/CommandLine.hpp"
#include "console/output/Messages.hpp"
#include "console/output/StandardOutput.hpp"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <type_traits>

namespace {

using namespace console;

/// A model that goes to standard output leaves no room for a list there.
bool printsModel(const Command& command) {
    const auto* import = std::get_if<ImportOptions>(&command);
    return import != nullptr && import->output == "-";
}

void applyOutput(const OutputOptions& output, bool table, bool modelPrinted) {
    if (output.quiet) beQuiet();
    setResultStyle({output.colour, output.wide, modelPrinted});
    if (table && output.pager) startPaging(output.wide);
}

/// What prints a table for a person to read.
template <class Options>
constexpr bool PrintsTable = !std::is_same_v<Options, ExportOptions> && !std::is_same_v<Options, ScriptOptions>;

bool printsTable(const Command& command) {
    if (const auto* several = std::get_if<SeveralOptions>(&command))
        return !std::holds_alternative<ExportOptions>(several->one);
    return std::visit([](const auto& options) { return PrintsTable<std::decay_t<decltype(options)>>; }, command);
}

ExitStatus run(const Command& command) {
    std::visit(
        [&command](const auto& options) {
            applyOutput(options.common.output, printsTable(command) && options.common.format == Format::Table,
                        printsModel(command));
        },
        command);
    struct Runner {
        ExitStatus operator()(const ImportOptions& options) const { return runImport(options); }
        ExitStatus operator()(const LookupOptions& options) const { return runLookup(options); }
        ExitStatus operator()(const ListOptions& options) const { return runList(options); }
        ExitStatus operator()(const ItemsOptions& options) const { return runItems(options); }
        ExitStatus operator()(const ExportOptions& options) const { return runExport(options); }
        ExitStatus operator()(const DiffOptions& options) const { return runDiff(options); }
        ExitStatus operator()(const ScriptOptions& options) const { return runScript(options); }
        ExitStatus operator()(const SeveralOptions& options) const { return runSeveral(options); }
    };
    return std::visit(Runner{}, command);
}

ExitStatus runProgram(int argc, const char* const* argv) {
    const auto command = parseCommandLine(argc, argv);
    const ExitStatus status = command ? run(*command) : ExitStatus::Done;
    flushStandardOutput();
    return status;
}

/// The program with its last word. Throws std::bad_alloc.
ExitStatus runAndTell(int argc, const char* const* argv) {
    try {
        return runProgram(argc, argv);
    } catch (const Failure& failure) {
        complain(failure.what());
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        complain(std::string("internal error: ") + error.what() + "; please report it with the command used");
    }
    return ExitStatus::Failed;
}

/// Memory may run out where nothing may be thrown, as in the destructor of a JSON value. That is said, too.
[[noreturn]] void endWithoutMemory() {
    try {
        if (const auto reason = std::current_exception()) std::rethrow_exception(reason);
    } catch (const std::bad_alloc&) {
        sayMemoryIsOut();
        std::_Exit(static_cast<int>(ExitStatus::Failed));
    } catch (...) {
    }
    std::abort();
}

}  // namespace

int main(int argc, char** argv) {
    std::set_terminate(endWithoutMemory);
    try {
        return static_cast<int>(runAndTell(argc, argv));
    } catch (...) {
        // The last word, too, takes memory: only what is there already can be said when there is none.
        console::sayMemoryIsOut();
    }
    return static_cast<int>(ExitStatus::Failed);
}
