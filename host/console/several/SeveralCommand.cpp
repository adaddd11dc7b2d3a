#include "console/several/SeveralCommand.hpp"

#include "console/StandardInput.hpp"
#include "console/commands/DiffOutput.hpp"
#include "console/commands/Nothing.hpp"
#include "console/output/HostText.hpp"
#include "console/output/Messages.hpp"
#include "console/output/StandardOutput.hpp"
#include "console/output/Table.hpp"
#include "console/output/TerminalText.hpp"
#include "console/several/Children.hpp"
#include "console/several/Share.hpp"
#include "updatefile/UpdateFileScan.hpp"
#include "updatefile/Wording.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <thread>

namespace console {
namespace {

namespace fs = std::filesystem;

int badness(ExitStatus status) {
    return status == ExitStatus::Failed ? 2 : status == ExitStatus::RowsFailed ? 1 : 0;
}

ExitStatus worse(ExitStatus a, ExitStatus b) {
    return badness(a) < badness(b) ? b : a;
}

constexpr std::string_view Prefix = "modelhost: ";

/// The text of the last message: why a model could not be worked on.
std::string lastMessage(const std::string& messages) {
    const std::size_t begin = messages.rfind("\n" + std::string(Prefix));
    std::string last = messages.substr(begin == std::string::npos ? 0 : begin + 1);
    if (last.starts_with(Prefix)) last.erase(0, Prefix.size());
    while (!last.empty() && last.back() == '\n') last.pop_back();
    return last;
}

/// Those of the command, for one of its models.
template <class Options>
Options optionsFor(const Options& options, const fs::path& model, Share& share) {
    Options own = options;
    own.common.share = &share;
    own.model = model;
    return own;
}

/// One result out of those of the models, which come one by one in the order in which the models were named.
class Joining {
public:
    virtual ~Joining() = default;
    /// In the model's own process.
    virtual ExitStatus work(const fs::path& model, Share& share) const = 0;
    virtual void take(const fs::path& model, ChildResult result) = 0;
    /// Prints what all of them give. @return what is worse than each by itself.
    virtual ExitStatus finish() = 0;
};

/// changes-house.html for changes.html and the model house.ifc.
fs::path reportOf(const fs::path& named, const fs::path& model) {
    return named.parent_path() / (named.stem().native() + "-" + model.stem().native() + named.extension().native());
}

JsonValue pathAsJson(const fs::path& path) {
    return {{"path", wellFormed(path.string())}};
}

/// A JSON array; what failed is told in place of a document.
class JsonArray {
public:
    void add(const fs::path& model, const ChildResult& result) { add(result, {{"model", pathAsJson(model)}}); }
    /// @param failed  what its document would be about.
    void add(const ChildResult& result, JsonValue failed) {
        std::string document = result.out;
        while (!document.empty() && document.back() == '\n') document.pop_back();
        if (!document.empty()) return add(document);
        failed["error"] = wellFormed(lastMessage(result.err));
        add(compact(failed));
    }
    void add(const std::string& document) {
        print(first_ ? "[" : ",\n ");
        first_ = false;
        print(document);
    }
    void finish() const { print(first_ ? "[]\n" : "]\n"); }

private:
    bool first_ = true;
};

/// The lines of several models below one header, behind the model's name.
class TsvLines {
public:
    void print(const std::string& model, const std::string& tsv) {
        std::istringstream lines(tsv);
        const std::string name = escaped(wellFormed(model), Terminal::standardOutput());
        bool header = true;
        for (std::string line; std::getline(lines, line); header = false) {
            if (!header) console::print(fmt::format("{}\t{}\n", name, line));
            if (header && !headerPrinted_) console::print(fmt::format("Model\t{}\n", line));
            headerPrinted_ = true;
        }
    }

private:
    bool headerPrinted_ = false;
};

/// Rows of several models in one table, behind the model's name.
class Rows : public Joining {
public:
    /// @param what  the rows are: "Elements".
    Rows(Format format, std::vector<std::string> header, std::string what)
        : format_(format), header_(std::move(header)), summary_({"Model", std::move(what), "Result"}) {
        header_.insert(header_.begin(), "Model");
    }

    void take(const fs::path& model, ChildResult result) override {
        if (format_ == Format::Json) return array_.add(model, result);
        const JsonValue document = JsonValue::parse(result.out, nullptr, false);
        if (!document.is_object()) {
            return summary_.add(
                {{wellFormed(model.string())}, {""}, {"failed: " + lastMessage(result.err), Style::Red}});
        }
        std::size_t count = 0;
        for (std::vector<std::string>& row : rowsOf(document)) {
            row.insert(row.begin(), wellFormed(model.string()));
            rows_.push_back(std::move(row));
            ++count;
        }
        summary_.add({{wellFormed(model.string())}, {std::to_string(count)}, {"read"}});
    }

    ExitStatus finish() override {
        if (format_ == Format::Json) {
            array_.finish();
        } else if (format_ == Format::Tsv) {
            const Terminal terminal = Terminal::standardOutput();
            print(tsvLine(header_, terminal));
            for (const auto& row : rows_) print(tsvLine(row, terminal));
        } else {
            Table table(header_);
            table.blankRepeats({0});
            arrange(table);
            for (const auto& row : rows_) {
                Table::Row cells;
                for (const std::string& text : row) cells.push_back({text});
                table.add(std::move(cells));
            }
            print(leftOutNote(table.layOut(Terminal::standardOutput(), print)));
            print("\n");
            summary_.layOut(Terminal::standardOutput(), print);
        }
        return ExitStatus::Done;
    }

protected:
    virtual std::vector<std::vector<std::string>> rowsOf(const JsonValue& document) const = 0;
    virtual void arrange(Table& table) const = 0;

private:
    Format format_;
    std::vector<std::string> header_;
    Table summary_;
    std::vector<std::vector<std::string>> rows_;
    JsonArray array_;
};

class Lists : public Rows {
public:
    explicit Lists(ListOptions options)
        : Rows(options.common.format, listHeader(), "Elements"), options_(std::move(options)) {}

    ExitStatus work(const fs::path& model, Share& share) const override {
        ListOptions options = optionsFor(options_, model, share);
        options.common.format = Format::Json;
        return runList(options);
    }

private:
    std::vector<std::vector<std::string>> rowsOf(const JsonValue& document) const override {
        return listRows(document);
    }
    void arrange(Table& table) const override {
        table.yield(1, Yield::First);
        table.yield(2, Yield::Last);
    }

    ListOptions options_;
};

class ItemLists : public Rows {
public:
    explicit ItemLists(ItemsOptions options)
        : Rows(options.common.format, itemsHeader(), "Items"), options_(std::move(options)) {}

    ExitStatus work(const fs::path& model, Share& share) const override {
        ItemsOptions options = optionsFor(options_, model, share);
        options.common.format = Format::Json;
        return runItems(options);
    }

private:
    std::vector<std::vector<std::string>> rowsOf(const JsonValue& document) const override {
        return itemsRows(document);
    }
    void arrange(Table& table) const override { arrangeItems(table, 1); }

    ItemsOptions options_;
};

/// One table of all models, or a file for each in a folder.
class Exports : public Joining {
public:
    Exports(ExportOptions options, std::optional<fs::path> folder, std::string ending)
        : options_(std::move(options)), folder_(std::move(folder)), ending_(std::move(ending)) {}

    ExitStatus work(const fs::path& model, Share& share) const override {
        ExportOptions options = optionsFor(options_, model, share);
        options.output.reset();
        if (folder_) options.output = placeIn(*folder_, model, ending_);
        if (!folder_) options.layout = isGrid(options_) ? ExportLayout::Grid : ExportLayout::Long;
        if (!folder_) options.common.format = Format::Json;
        return runExport(options);
    }

    void take(const fs::path& model, ChildResult result) override {
        if (result.facts.contains("items")) merge(result.facts["items"]);
        if (options_.common.format == Format::Json) array_.add(model, result);
        if (folder_) return;
        const JsonValue document = JsonValue::parse(result.out, nullptr, false);
        if (!document.is_object()) return;
        add(model, document);
        say(fmt::format("{}: {}", model.string(), updatefile::counted(document["rows"].size(), "line")));
    }

    ExitStatus finish() override {
        const bool json = options_.common.format == Format::Json;
        if (json) array_.finish();
        if (!folder_ && !table_.columns.empty() && (!json || options_.output)) writeExport(std::move(table_), options_);
        return judge(verdicts_, missingOf(options_));
    }

private:
    /// In a grid, behind the GUID, a column for the reader tells which model a line is of.
    void add(const fs::path& model, const JsonValue& document) {
        const bool grid = isGrid(options_);
        if (table_.columns.empty()) {
            table_.columns = document["columns"].get<std::vector<std::string>>();
            if (grid) table_.columns.insert(table_.columns.begin() + 1, "#Model");
        }
        for (const JsonValue& cells : document["rows"]) {
            auto& row = table_.rows.emplace_back();
            for (const JsonValue& cell : cells) row.push_back(cell.is_string() ? cell.get<std::string>() : "");
            if (grid) row.insert(row.begin() + 1, wellFormed(model.filename().string()));
        }
    }

    /// What one model has, it is not nobody's.
    void merge(const JsonValue& items) {
        for (std::size_t place = 0; place < items.size(); ++place) {
            const ItemVerdict verdict{items[place]["item"], items[place]["found"].get<ItemFound>(),
                                      items[place]["nearest"]};
            if (place == verdicts_.size()) verdicts_.push_back(verdict);
            ItemVerdict& merged = verdicts_[place];
            if (merged.nearest.empty()) merged.nearest = verdict.nearest;
            merged.found = std::min(merged.found, verdict.found);
        }
    }

    ExportOptions options_;
    std::optional<fs::path> folder_;
    std::string ending_;
    tables::Grid table_;
    std::vector<ItemVerdict> verdicts_;
    JsonArray array_;
};

std::string counted(const JsonValue& summary, const char* member) {
    return summary.contains(member) ? std::to_string(summary[member].get<std::uint64_t>()) : "";
}

class Imports : public Joining {
public:
    Imports(ImportOptions options, std::optional<fs::path> folder)
        : options_(std::move(options)),
          folder_(std::move(folder)),
          summary_({"Model", "Rows", "Ticked", "Done", "Errors", "Not as asked", "Conflicts", "Result"}) {}

    ExitStatus work(const fs::path& model, Share& share) const override {
        ImportOptions options = optionsFor(options_, model, share);
        if (folder_) options.output = placeIn(*folder_, model);
        if (options.common.report) options.common.report = reportOf(*options.common.report, model);
        return runImport(options);
    }

    void take(const fs::path& model, ChildResult result) override {
        switch (options_.common.format) {
            case Format::Json:
                array_.add(model, result);
                break;
            case Format::Tsv:
                tsv_.print(model.string(), result.out);
                break;
            case Format::Table:
                print(fmt::format("{}:\n{}\n", visible(model.string()), result.out));
                break;
        }
        if (result.facts.contains("summary")) note(result.facts);
        addToSummary(model, result);
    }

    ExitStatus finish() override {
        if (options_.common.format == Format::Json) array_.finish();
        if (options_.common.format == Format::Table) summary_.layOut(Terminal::standardOutput(), print);
        return judgeMissing();
    }

private:
    void note(const JsonValue& facts) {
        std::set<std::uint64_t> unknown;
        for (const JsonValue& line : facts["unknown"]) unknown.insert(line.get<std::uint64_t>());
        if (nobodys_) {
            std::erase_if(*nobodys_, [&unknown](std::uint64_t line) { return !unknown.contains(line); });
        } else {
            nobodys_ = std::move(unknown);
        }
        lines_ = std::max(lines_, facts["summary"]["lines"].get<std::uint64_t>());
        rows_ += facts["summary"]["rows"].get<std::uint64_t>();
    }

    void addToSummary(const fs::path& model, const ChildResult& result) {
        Table::Row row{{wellFormed(model.string())}};
        const JsonValue summary = result.facts.value("summary", JsonValue::object());
        for (const char* member : {"rows", "ticked", "done", "errors", "notAsAsked", "conflicts"})
            row.push_back({counted(summary, member)});
        std::string outcome = options_.apply ? "nothing changed" : "dry run";
        if (result.facts.contains("saved")) outcome = "saved " + result.facts["saved"].get<std::string>();
        if (summary.empty()) outcome = "failed: " + lastMessage(result.err);
        row.push_back({outcome, summary.empty() ? Style::Red : Style::Plain});
        summary_.add(std::move(row));
    }

    /// An update is missing where no model has its element. A model that failed might have had it.
    ExitStatus judgeMissing() {
        if (!nobodys_ || lines_ == 0) return ExitStatus::Done;
        if (rows_ == 0) {
            complain(fmt::format("{}: {} and no row in any of the models; check the models and the GUIDs",
                                 options_.updates.string(), updatefile::counted(lines_, "line")));
            return ExitStatus::Failed;
        }
        if (nobodys_->empty()) return ExitStatus::Done;
        updatefile::LineNotes notes;
        for (const std::uint64_t line : *nobodys_) notes.add(line);
        say(
            fmt::format("no model has the element in {} of {}; check the models and the GUIDs, 'modelhost list' prints "
                        "them",
                        updatefile::numberedLines(notes), options_.updates.string()));
        return options_.strict ? ExitStatus::RowsFailed : ExitStatus::Done;
    }

    ImportOptions options_;
    std::optional<fs::path> folder_;
    Table summary_;
    TsvLines tsv_;
    std::optional<std::set<std::uint64_t>> nobodys_;  ///< Lines whose element no model so far has.
    std::uint64_t lines_ = 0;
    std::uint64_t rows_ = 0;
    JsonArray array_;
};

/// Two folders or wildcards, each model with its namesake.
class Diffs : public Joining {
public:
    explicit Diffs(DiffOptions options)
        : options_(std::move(options)), summary_({"Model", "Added", "Removed", "Changed", "Same", "Result"}) {}

    ExitStatus work(const fs::path& model, Share& share) const override {
        DiffOptions options = options_;
        options.common.share = &share;
        options.a = model;
        options.b = namesakeOf(model);
        options.output.reset();
        if (options.common.report) options.common.report = reportOf(*options.common.report, model);
        return runDiff(options);
    }

    void take(const fs::path& model, ChildResult result) override {
        const std::string name = model.filename().string();
        const JsonValue summary = result.facts.value("summary", JsonValue::object());
        std::uint64_t differences = 0;
        Table::Row row{{wellFormed(name)}};
        for (const char* member : {"added", "removed", "changed", "same"}) row.push_back({counted(summary, member)});
        for (const char* member : {"added", "removed", "changed"})
            differences += summary.value(member, std::uint64_t{0});
        row.push_back({summary.empty()    ? "failed: " + lastMessage(result.err)
                       : differences == 0 ? "the same"
                                          : "different",
                       summary.empty() ? Style::Red : Style::Plain});
        summary_.add(std::move(row));
        if (options_.format == DiffFormat::Json) {
            array_.add(result, {{"a", pathAsJson(model)}, {"b", pathAsJson(namesakeOf(model))}});
        } else if (options_.format == DiffFormat::Tsv) {
            tsv_.print(name, result.out);
        } else if (options_.format == DiffFormat::Updates) {
            updates_ += result.out;
        } else if (differences > 0) {
            print(fmt::format("{}:\n{}\n", visible(name), result.out));
        }
    }

    ExitStatus finish() override {
        for (const fs::path& model : options_.onlyA) addUnpaired(model, "only in A");
        for (const fs::path& model : options_.onlyB) addUnpaired(model, "only in B");
        if (options_.format == DiffFormat::Json) array_.finish();
        if (options_.format == DiffFormat::Updates) printWhole(updates_, options_.output);
        if (options_.format == DiffFormat::Table) summary_.layOut(Terminal::standardOutput(), print);
        const bool unpaired = !options_.onlyA.empty() || !options_.onlyB.empty();
        return options_.exitCode && unpaired ? ExitStatus::Different : ExitStatus::Done;
    }

private:
    fs::path namesakeOf(const fs::path& model) const { return options_.namesakes.at(model); }

    void addUnpaired(const fs::path& model, const char* where) {
        summary_.add({{wellFormed(model.filename().string())}, {""}, {""}, {""}, {""}, {where}});
        if (options_.format == DiffFormat::Json) {
            const bool inA = std::string_view(where).ends_with('A');
            array_.add(
                compact({{"a", inA ? pathAsJson(model) : JsonValue()}, {"b", inA ? JsonValue() : pathAsJson(model)}}));
        } else if (options_.format != DiffFormat::Table) {
            say(fmt::format("{} is {}", model.string(), where));
        }
    }

    DiffOptions options_;
    Table summary_;
    TsvLines tsv_;
    std::string updates_;
    JsonArray array_;
};

struct Joiner {
    const SeveralOptions& all;

    std::unique_ptr<Joining> operator()(const ImportOptions& options) const {
        return std::make_unique<Imports>(options, all.outDir);
    }
    std::unique_ptr<Joining> operator()(const ListOptions& options) const { return std::make_unique<Lists>(options); }
    std::unique_ptr<Joining> operator()(const ItemsOptions& options) const {
        return std::make_unique<ItemLists>(options);
    }
    std::unique_ptr<Joining> operator()(const DiffOptions& options) const {
        std::vector<fs::path> models = all.models;
        for (const auto& [model, namesake] : options.namesakes) models.push_back(namesake);
        checkDiffTarget(options, models);
        return std::make_unique<Diffs>(options);
    }
    std::unique_ptr<Joining> operator()(const ExportOptions& options) const {
        if (!all.outDir) checkExport(options);
        return std::make_unique<Exports>(options, all.outDir, all.ending);
    }
};

/// Before the work: each model's report is another file.
void checkReports(const SeveralOptions& options) {
    if (!options.common.report) return;
    std::map<fs::path, fs::path> taken;
    for (const fs::path& model : options.models) {
        const fs::path place = reportOf(*options.common.report, model);
        const auto [other, isNew] = taken.emplace(place, model);
        if (!isNew) {
            throw Failure(
                fmt::format("the reports on {} and {} would both be written to {}; work on them one after the "
                            "other",
                            other->second.string(), model.string(), place.string()));
        }
    }
}

/// Before the work: each model's file is another one, and none is a model.
void checkPlaces(const SeveralOptions& options, const std::string& ending) {
    if (!options.outDir) return;
    makeFolder(*options.outDir);
    std::map<fs::path, fs::path> taken;
    for (const fs::path& model : options.models) {
        const fs::path place = placeIn(*options.outDir, model, ending);
        const auto [other, isNew] = taken.emplace(place, model);
        if (!isNew) {
            throw Failure(fmt::format("{} and {} would both be written to {}; work on them one after the other",
                                      other->second.string(), model.string(), place.string()));
        }
        std::error_code ignored;
        for (const fs::path& each : options.models) {
            if (fs::equivalent(place, each, ignored)) {
                throw Failure(fmt::format("--out-dir {}: {} would be lost there; name another folder",
                                          options.outDir->string(), each.string()));
            }
        }
    }
}

void tellMessages(const fs::path& model, const std::string& messages) {
    std::istringstream lines(messages);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(Prefix)) line.erase(0, Prefix.size());
        // Most messages name the file that they are about.
        const bool named = line.find(model.filename().string()) != std::string::npos;
        complain(named ? line : model.string() + ": " + line);
    }
}

bool readsStandardInput(const SeveralOptions& options) {
    const auto* import = std::get_if<ImportOptions>(&options.one);
    return import != nullptr && import->updates == "-";
}

}  // namespace

void makeFolder(const fs::path& folder) {
    std::error_code failed;
    fs::create_directory(folder, failed);
    if (failed || !fs::is_directory(folder)) {
        throw Failure(fmt::format("--out-dir {}: it cannot be made: {}; name a folder in one that is there",
                                  folder.string(), failed ? failed.message() : "it is a file"));
    }
}

fs::path placeIn(const fs::path& folder, const fs::path& model, const std::string& ending) {
    return folder / (ending.empty() ? model.filename() : fs::path(model.stem().native() + ending));
}

ExitStatus runSeveral(const SeveralOptions& options) {
    const bool exports = std::holds_alternative<ExportOptions>(options.one);
    checkPlaces(options, exports ? options.ending : "");
    checkReports(options);
    const auto joining = std::visit(Joiner{options}, options.one);
    std::optional<StandardInput> updates;
    if (readsStandardInput(options)) updates.emplace(StandardInput::Holds::Anything);
    ExitStatus status = ExitStatus::Done;
    NothingInAny nothing;
    ChildPlan plan;
    plan.count = options.models.size();
    plan.atOnce = options.jobs > 0 ? options.jobs : std::max(1U, std::thread::hardware_concurrency());
    if (updates) plan.input = updates->path();
    plan.work = [&](std::size_t place, JsonValue& facts) {
        Share share;
        const ExitStatus own = joining->work(options.models[place], share);
        facts = std::move(share.facts);
        return own;
    };
    plan.take = [&](std::size_t place, ChildResult result) {
        tellMessages(options.models[place], result.err);
        status = worse(status, result.status);
        if (result.status != ExitStatus::Failed) nothing.add(result.facts);
        joining->take(options.models[place], std::move(result));
    };
    runChildren(plan);
    nothing.say();
    return worse(status, joining->finish());
}

}  // namespace console
