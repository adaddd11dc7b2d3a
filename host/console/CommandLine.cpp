#include "console/CommandLine.hpp"

#include "console/Failure.hpp"
#include "console/commands/ElementFilter.hpp"
#include "console/help/Completion.hpp"
#include "console/help/HelpText.hpp"
#include "console/help/ManPage.hpp"
#include "console/help/Nearest.hpp"
#include "console/help/Versions.hpp"
#include "console/output/StandardOutput.hpp"
#include "console/several/ModelNames.hpp"
#include "updatefile/ExportLine.hpp"

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>

namespace console {
namespace {

/// What CLI11 writes into. Only the words of the command that was named count.
struct Words {
    ImportOptions import;
    LookupOptions lookup;
    ListOptions list;
    ItemsOptions itemsOf;
    ExportOptions exporting;
    DiffOptions diff;
    ScriptOptions script;

    std::string tick = "all";
    std::string output;
    std::string items;
    std::vector<std::string> singleItems;
    std::vector<std::string> models;
    std::string outDir;
    unsigned jobs = 1;
    std::string ending = ".txt";
    std::string helpOn;
    bool asManPage = false;
    std::string shell;
};

constexpr const char* ModelsArgument =
    "IFC files (.ifc or .ifczip) to work on; folders and wildcards mean those that they hold; - reads standard input";
constexpr const char* ModelArgument = "IFC file (.ifc or .ifczip) to work on; - reads standard input";

CLI::Option* addPath(CLI::App& app, const char* name, std::filesystem::path& path, const char* description) {
    return app.add_option_function<std::string>(
        name, [&path](const std::string& text) { path = text; }, description);
}

/// One of a few words. The type's name lists them, for the help and for what completes them.
template <class Value, class Target>
CLI::Option* addChoice(CLI::App& command, const char* name, Target& target,
                       const std::vector<std::pair<std::string, Value>>& choices, const char* description) {
    std::map<std::string, Value> values(choices.begin(), choices.end());
    std::string words;
    for (const auto& [word, value] : choices) words += (words.empty() ? "" : "|") + word;
    CLI::Option* option = command.add_option_function<std::string>(
        name, [&target, values](const std::string& text) { target = values.at(text); }, description);
    return option->check(CLI::IsMember(values).description(""))->type_name(words);
}

void addOutputOptions(CLI::App& command, OutputOptions& output) {
    addChoice<Colour>(command, "--color", output.colour,
                      {{"auto", Colour::Auto}, {"always", Colour::Always}, {"never", Colour::Never}},
                      "colours: auto (the default: on a terminal, unless NO_COLOR is set), always or never");
    command.add_flag("--wide", output.wide, "tables show every cell whole, whatever the terminal's width");
    command.add_flag("--quiet", output.quiet, "no remarks and no progress on standard error, only errors");
    command.add_flag("!--no-pager", output.pager, "long tables are not shown by less, or what PAGER names");
}

CLI::App& addCommand(CLI::App& app, const char* name, const char* description, CommonOptions& common,
                     std::filesystem::path& model, std::vector<std::string>* models = nullptr) {
    CLI::App& command = *app.add_subcommand(name, description);
    if (models != nullptr) {
        command.add_option("MODEL", *models, ModelsArgument)->required()->type_name("");
    } else {
        addPath(command, "MODEL", model, ModelArgument)->required()->type_name("");
    }
    addChoice<Format>(command, "--format", common.format,
                      {{"table", Format::Table}, {"tsv", Format::Tsv}, {"json", Format::Json}},
                      "table (the default), tsv or json");
    addOutputOptions(command, common.output);
    addPath(command, "--addon", common.addOn, "add-on to load; default: the bundle beside this program")
        ->type_name("BUNDLE");
    command.add_flag("--debug", common.debug, "the add-on's debug output, on standard error");
    return command;
}

void addJobs(CLI::App& command, Words& words) {
    command
        .add_option("-j,--jobs", words.jobs,
                    "so many models at once, 1 where nothing is said; 0: as many as the machine has cores")
        ->type_name("NUMBER");
}

void addOutDir(CLI::App& command, Words& words) {
    command.add_option("--out-dir", words.outDir, "write a file for each model here, under the model's name")
        ->type_name("DIR");
}

void addForce(CLI::App& command, CommonOptions& common) {
    command.add_flag("--force", common.force, "save even over a file that another program changed meanwhile");
}

void addBackup(CLI::App& command, CommonOptions& common) {
    command
        .add_flag("--backup{.bak}", common.backup,
                  "keep the file that is saved over beside it, its name with this suffix; default: .bak")
        ->type_name("SUFFIX");
}

void addShareSets(CLI::App& command, CommonOptions& common) {
    command.add_flag("--share-sets", common.shareSets,
                     "one property set for all elements that get new ones of equal content, instead of one for each");
}

void addReport(CLI::App& command, CommonOptions& common) {
    command
        .add_option_function<std::string>(
            "--report", [&common](const std::string& text) { common.report = text; },
            "write what was changed, with plans, as a page to hand on (.html), as JSON (.json) or a workbook (.xlsx)")
        ->type_name("FILE");
}

void addWhere(CLI::App& command, std::string& where) {
    command
        .add_option("--where", where,
                    "only the elements of this selection, such as 'IfcDoor, Pset_DoorCommon.FireRating=NULL'")
        ->type_name("SELECTION");
}

void addFilter(CLI::App& command, std::string& type, std::string& ifcClass, std::string& where) {
    addWhere(command, where);
    command.add_option("--type", type, "only elements of this type, such as Wall or 'Curtain Wall'")->type_name("NAME");
    command.add_option("--class", ifcClass, "only elements of this IFC class and the classes below it")
        ->type_name("IFCCLASS");
}

void addImport(CLI::App& app, Words& words) {
    CLI::App& command = addCommand(app, "import", "Review an update file against the model, and apply the ticked rows",
                                   words.import.common, words.import.model, &words.models);
    // The last of the arguments, whatever their number: REQUIRED tells the description what CLI11 cannot.
    addPath(
        command, "UPDATES", words.import.updates,
        "update file: GUID, item, old and new value, TABs between; or a table, .csv .tsv .xlsx .ods; - reads standard "
        "input")
        ->type_name("REQUIRED");
    command.add_option("--tick", words.tick, "rows to tick: all (the default), none, or numbers such as 1,4-9")
        ->type_name("ROWS");
    command.add_flag("--apply", words.import.apply, "apply the ticked rows; without it nothing is changed");
    command.add_option("-o,--output", words.output, "save the changed model here")->type_name("OUT.ifc");
    command.add_flag("--in-place", words.import.inPlace, "save the changed model over MODEL");
    command.add_flag("--exact", words.import.exact,
                     "store what was asked for where the add-on stored something else and the item can hold it");
    command.add_flag("--strict", words.import.strict,
                     "exit status 2 for whatever is not as asked; rows whose old value is another now are not ticked");
    TableOptions& table = words.import.table;
    command.add_option("--as", table.as, "read UPDATES as txt, csv, tsv, xlsx or ods, whatever its ending")
        ->type_name("FORMAT");
    command.add_option("--delimiter", table.delimiter, "of a csv table: one of , ; | or tab")->type_name("CHAR");
    command.add_option("--encoding", table.encoding, "of a csv table, such as utf-8 or windows-1252")
        ->type_name("NAME");
    command.add_option("--sheet", table.sheet, "of a workbook")->type_name("NAME");
    command.add_flag("--clear-empty", table.clearEmpty, "empty cells of a table ask for the empty text");
    addOutDir(command, words);
    addJobs(command, words);
    addForce(command, words.import.common);
    addBackup(command, words.import.common);
    addShareSets(command, words.import.common);
    addReport(command, words.import.common);
    command.footer(
        "Without --apply nothing is changed: the list shows what would be. Where -o - writes the model to standard "
        "output, the list goes to standard error.\n\n"
        "Exit status: 0 done, 1 wrong usage or a file that cannot be read or written, 2 a ticked row ended in "
        "error.\n\n"
        "Examples:\n"
        "  modelhost import house.ifc updates.txt\n"
        "  modelhost import house.ifc updates.txt --tick 1,4-9 --apply -o changed.ifc\n"
        "  modelhost import house.ifc doors.csv --apply --in-place --exact --strict\n"
        "  modelhost import house.ifc updates.txt --apply -o changed.ifc --report changes.html\n"
        "  modelhost import models updates.txt --apply --out-dir changed -j 2\n"
        "  modelhost import - updates.txt --apply -o - < house.ifc > changed.ifc");
}

void addLookup(CLI::App& app, Words& words) {
    CLI::App& command = addCommand(app, "lookup", "Show what elements carry: attributes, properties, classifications",
                                   words.lookup.common, words.lookup.model);
    command.add_option("GUID", words.lookup.guids, "GUIDs of 36 characters or GlobalIds of 22")->type_name("");
    addWhere(command, words.lookup.where);
    command.footer(
        "Exit status: 0 done, 1 also where a GUID is no element's.\n\n"
        "Examples:\n"
        "  modelhost lookup house.ifc A32931C7-B3B2-4117-8D6A-3038DD4E9A78\n"
        "  modelhost lookup house.ifc '00u5AvCTvJDe$l0EZ90SUQ'\n"
        "  modelhost lookup house.ifc --where 'IfcDoor, FireRating=NULL' --format json");
}

void addList(CLI::App& app, Words& words) {
    CLI::App& command = addCommand(app, "list", "List the model's elements with GUID, class, type and name",
                                   words.list.common, words.list.model, &words.models);
    addFilter(command, words.list.type, words.list.ifcClass, words.list.where);
    addJobs(command, words);
    command.footer(
        "Examples:\n"
        "  modelhost list house.ifc\n"
        "  modelhost list house.ifc --type Door --wide\n"
        "  modelhost list 'models/*.ifc' --type Door\n"
        "  modelhost list house.ifc --where 'IfcDoor, location=Erdgeschoss' --format tsv");
}

void addItems(CLI::App& app, Words& words) {
    CLI::App& command = addCommand(app, "items", "List which attributes, properties and classifications there are",
                                   words.itemsOf.common, words.itemsOf.model, &words.models);
    addFilter(command, words.itemsOf.type, words.itemsOf.ifcClass, words.itemsOf.where);
    addJobs(command, words);
    command.add_flag("--standard", words.itemsOf.standard,
                     "also the properties that the IFC standard defines for these elements and none has");
    command.footer(
        "Examples:\n"
        "  modelhost items house.ifc\n"
        "  modelhost items house.ifc --class IfcDoor --standard\n"
        "  modelhost items house.ifc --where 'IfcWall, location=Erdgeschoss' --format json");
}

void addExport(CLI::App& app, Words& words) {
    CLI::App& command =
        addCommand(app, "export", "Write current values as update-file lines, to be edited and imported again",
                   words.exporting.common, words.exporting.model, &words.models);
    command
        .add_option("--items", words.items,
                    "attributes, properties and classifications, commas between: "
                    "'Name,FireRating[WallCommon],UniFormat Classification'")
        ->type_name("ITEMS");
    command.add_option("--item", words.singleItems, "one item exactly as it stands, commas and blanks included")
        ->type_name("ITEM")
        ->allow_extra_args(false);
    addFilter(command, words.exporting.type, words.exporting.ifcClass, words.exporting.where);
    addChoice<ExportLayout>(
        command, "--layout", words.exporting.layout, {{"long", ExportLayout::Long}, {"grid", ExportLayout::Grid}},
        "long: a line for each value; grid: a line for each element, a column for each item; default: grid for "
        ".xlsx, .csv and .tsv");
    addChoice<Missing>(command, "--missing", words.exporting.missing,
                       {{"include", Missing::Include}, {"leave-out", Missing::LeaveOut}},
                       "what becomes of items that an element has not got: include (the default of a grid) or "
                       "leave-out");
    command
        .add_option("-o,--output", words.output,
                    "write here, a table where it ends in .xlsx, .csv or .tsv; - or nothing: standard output")
        ->type_name("FILE");
    addOutDir(command, words);
    addChoice<std::string>(command, "--as", words.ending,
                           {{"txt", ".txt"}, {"csv", ".csv"}, {"tsv", ".tsv"}, {"xlsx", ".xlsx"}},
                           "what the files in --out-dir are: txt (the default), csv, tsv or xlsx");
    addJobs(command, words);
    command.footer(
        "Fields: GUID, item, old value, value to change. What no line can hold is left out and said.\n\n"
        "Exit status: 0 done, 1 also where no element has any of the items.\n\n"
        "Examples:\n"
        "  modelhost export house.ifc --items 'Name,FireRating[DoorCommon]' --type Door -o doors.txt\n"
        "  modelhost export house.ifc --items 'Name,FireRating[DoorCommon]' --type Door -o doors.xlsx\n"
        "  modelhost export house.ifc --item 'Name' --where 'IfcWall'\n"
        "  modelhost export models --items Name --out-dir names --as csv");
}

void addDiff(CLI::App& app, Words& words) {
    DiffOptions& diff = words.diff;
    CLI::App& command = *app.add_subcommand("diff", "Tell what is different between two models, element by element");
    addPath(command, "A", diff.a, "IFC file (.ifc or .ifczip) as it was, or a folder or a quoted wildcard")
        ->required()
        ->type_name("");
    addPath(command, "B", diff.b, "IFC file as it is now, or a folder or a wildcard of models with the same file names")
        ->required()
        ->type_name("");
    addChoice<DiffFormat>(command, "--format", diff.format,
                          {{"table", DiffFormat::Table},
                           {"tsv", DiffFormat::Tsv},
                           {"json", DiffFormat::Json},
                           {"html", DiffFormat::Html},
                           {"updates", DiffFormat::Updates}},
                          "table (the default), tsv, json, html: a page to hand on, or updates: an update file that "
                          "gives A the data of B");
    addOutputOptions(command, diff.common.output);
    addReport(command, diff.common);
    addFilter(command, diff.type, diff.ifcClass, diff.where);
    addJobs(command, words);
    command.add_flag("--exit-code", diff.exitCode, "exit status 2 where there are differences");
    command
        .add_option("-o,--output", words.output, "write the updates or the page here; - or nothing: standard output")
        ->type_name("FILE");
    command.footer(
        "Data is compared, not instances. An element counts as chosen where it is chosen in A or in B.\n\n"
        "Exit status: 0 done, with --exit-code 2 where there are differences.\n\n"
        "Examples:\n"
        "  modelhost diff before.ifc after.ifc\n"
        "  modelhost diff before.ifc after.ifc --type Door --format json\n"
        "  modelhost diff before.ifc after.ifc --format updates -o changes.txt\n"
        "  modelhost diff monday friday -j 2");
}

void addScript(CLI::App& app, Words& words) {
    CLI::App& command = addCommand(app, "script", "Act as the user, step by step, from a file of JSON lines",
                                   words.script.common, words.script.model);
    addPath(command, "STEPS", words.script.steps, "one JSON object a line; - reads standard input")
        ->required()
        ->type_name("");
    addForce(command, words.script.common);
    addBackup(command, words.script.common);
    addShareSets(command, words.script.common);
    addReport(command, words.script.common);
    command.footer(
        "Steps are such as {\"menu\":1} {\"file\":\"updates.txt\"} {\"click\":3}.\n\n"
        "Examples:\n"
        "  modelhost script house.ifc steps.jsonl\n"
        "  echo '{\"menus\":true}' | modelhost script house.ifc -");
}

void addHelp(CLI::App& app, Words& words) {
    CLI::App& command = *app.add_subcommand("help", "Show the help of the program or of a command");
    command.add_option("COMMAND", words.helpOn, "the command; without it all commands are listed")->type_name("");
    command.add_flag("--man", words.asManPage, "as a manual page, for man -l -");
    command.footer(
        "Examples:\n"
        "  modelhost help import\n"
        "  modelhost help import --man | man -l -");
}

void addCompletion(CLI::App& app, Words& words) {
    CLI::App& command = *app.add_subcommand("completion", "Print what completes command lines in a shell");
    command.add_option("SHELL", words.shell, "bash, zsh or fish")
        ->required()
        ->type_name("")
        ->check(CLI::IsMember({"bash", "zsh", "fish"}).description(""));
    command.footer(
        "Examples:\n"
        "  eval \"$(modelhost completion bash)\"\n"
        "  modelhost completion fish > modelhost.fish");
}

void addAll(CLI::App& app, Words& words) {
    app.set_version_flag("--version", versionText(), "print the versions of the program and its libraries and end");
    app.require_subcommand(1);
    addImport(app, words);
    addLookup(app, words);
    addList(app, words);
    addItems(app, words);
    addExport(app, words);
    addDiff(app, words);
    addScript(app, words);
    addHelp(app, words);
    addCompletion(app, words);
    std::vector<CLI::App*> everything = app.get_subcommands({});
    everything.push_back(&app);
    for (CLI::App* one : everything) one->set_help_flag("-h,--help", "print this help and end");
    app.footer(
        "Results go to standard output, messages to standard error. Exit status: 0 done, 1 wrong usage or a file that "
        "cannot be read or written, 2 a row ended in error.\n\n"
        "Examples:\n"
        "  modelhost list house.ifc\n"
        "  modelhost import house.ifc updates.txt --apply -o changed.ifc\n"
        "  modelhost help import");
}

/// One stream cannot be read twice, and there is no place to save it to.
void checkStandardInput(const std::filesystem::path& model, const std::filesystem::path& other, const char* what) {
    if (model == "-" && other == "-")
        throw Failure(fmt::format("MODEL and {} cannot both be standard input; name a file for one of them", what));
}

ImportOptions finishImport(Words& words) {
    ImportOptions& options = words.import;
    options.tick = valueOrThrow(parseTickChoice(words.tick));
    if (!words.output.empty()) options.output = words.output;
    if (words.models.size() < 2 && options.updates.empty())
        throw Failure("UPDATES is missing; see modelhost import --help");
    if (options.updates.empty()) {
        options.updates = words.models.back();
        words.models.pop_back();
    }
    options.model = words.models.front();
    const bool target = options.output.has_value() || options.inPlace || !words.outDir.empty();
    if (options.output && !words.outDir.empty()) throw Failure("-o and --out-dir exclude each other; give one of them");
    if (options.inPlace && !words.outDir.empty())
        throw Failure("--in-place and --out-dir exclude each other; give one of them");
    checkStandardInput(options.model, options.updates, "UPDATES");
    if (options.model == "-" && options.inPlace)
        throw Failure("standard input cannot be saved in place; write -o OUT.ifc, or -o - for standard output");
    if (!options.common.backup.empty() && !target)
        throw Failure("--backup keeps the file that is saved over; add --apply and --in-place, or leave it out");
    if (options.output && options.inPlace) throw Failure("-o and --in-place exclude each other; give one of them");
    if (options.apply && !target) {
        throw Failure(
            "--apply without a place to save to would lose the work; add -o OUT.ifc or --in-place, or --out-dir DIR");
    }
    if (!options.apply && target) {
        throw Failure(
            "without --apply nothing is changed and nothing saved; add --apply, or leave out -o and "
            "--in-place");
    }
    return std::move(options);
}

ExportOptions finishExport(Words& words) {
    ExportOptions& options = words.exporting;
    if (!words.items.empty()) options.items = valueOrThrow(updatefile::parseItems(words.items));
    for (const std::string& item : words.singleItems) {
        throwUnlessDone(updatefile::checkItem(item));
        options.items.push_back(item);
    }
    if (options.items.empty()) throw Failure("export needs --items; write for example --items 'Name,Description'");
    if (!words.output.empty() && words.output != "-") options.output = words.output;
    if (!words.output.empty() && !words.outDir.empty())
        throw Failure("-o and --out-dir exclude each other; give one of them");
    return std::move(options);
}

/// A folder beside a file means the file of that name in it.
void completeByName(std::filesystem::path& place, const std::filesystem::path& file) {
    std::error_code ignored;
    if (!std::filesystem::is_directory(place, ignored)) return;
    if (file == "-") throw Failure(fmt::format("standard input has no name to be found in {}", place.string()));
    if (!std::filesystem::exists(file, ignored))
        throw Failure(fmt::format("{}: there is no such file or folder; check the name", file.string()));
    place /= file.filename();
}

Command finishDiff(Words& words) {
    DiffOptions& options = words.diff;
    if (options.a == "-" && options.b == "-")
        throw Failure("A and B cannot both be standard input; name a file for one of them");
    // Only a table is for a pager.
    options.common.format = options.format == DiffFormat::Table ? Format::Table : Format::Tsv;
    const bool toFile = !words.output.empty() && words.output != "-";
    if (toFile && options.format != DiffFormat::Updates && options.format != DiffFormat::Html)
        throw Failure(fmt::format("-o {}: only --format updates and html are written to a file", words.output));
    if (toFile) options.output = words.output;
    if (!namesSeveral(options.a.string()) || !namesSeveral(options.b.string())) {
        completeByName(options.a, options.b);
        completeByName(options.b, options.a);
        return std::move(options);
    }
    if (options.format == DiffFormat::Html) {
        throw Failure(
            "--format html is a page on two files; for several write --report FILE.html, a page on each pair");
    }
    ModelPairs pairs = findPairs(options.a.string(), options.b.string());
    options.onlyA = std::move(pairs.onlyA);
    options.onlyB = std::move(pairs.onlyB);
    std::vector<std::filesystem::path> models;
    for (const auto& [model, namesake] : pairs.both) models.push_back(model);
    options.namesakes = std::move(pairs.both);
    return SeveralOptions{options.common, options, std::move(models), words.jobs, {}, {}};
}

/// What is said for one file cannot be said for several.
void checkForSeveral(const ImportOptions& options) {
    if (options.output) throw Failure("-o is for one model; write --out-dir DIR or --in-place for several");
    std::error_code failed;
    // Said once, not for each model.
    if (options.updates != "-" && !std::filesystem::exists(options.updates, failed)) {
        throw Failure(
            fmt::format("cannot read the update file {}: there is none; check its name", options.updates.string()));
    }
    if (!options.tick.ranges.empty())
        throw Failure("--tick with rows is for one model, since each has a list of its own; write all or none");
}

/// A file named alone is worked on alone, as if there were no others.
template <class Options>
Command onModels(Options options, Words& words) {
    const ModelNames found = findModels(words.models);
    const bool hasFolder = !words.outDir.empty();
    if (!found.several) {
        options.model = found.models.front();
        if constexpr (std::is_same_v<Options, ImportOptions> || std::is_same_v<Options, ExportOptions>) {
            const bool import = std::is_same_v<Options, ImportOptions>;
            if (hasFolder) makeFolder(words.outDir);
            if (hasFolder) options.output = placeIn(words.outDir, options.model, import ? "" : words.ending);
        }
        return options;
    }
    if constexpr (std::is_same_v<Options, ImportOptions>) checkForSeveral(options);
    SeveralOptions several{options.common, options, found.models, words.jobs, {}, words.ending};
    if (hasFolder) several.outDir = words.outDir;
    return several;
}

Command finish(const CLI::App& app, Words& words) {
    const std::string& name = app.get_subcommands().front()->get_name();
    // Of all models alike: said once, before any is opened.
    for (const std::string& type : {words.list.type, words.itemsOf.type, words.exporting.type, words.diff.type})
        if (!type.empty()) checkType(type);
    if (name == "import") return onModels(finishImport(words), words);
    if (name == "lookup") return std::move(words.lookup);
    if (name == "list") return onModels(std::move(words.list), words);
    if (name == "items") return onModels(std::move(words.itemsOf), words);
    if (name == "export") return onModels(finishExport(words), words);
    if (name == "diff") return finishDiff(words);
    checkStandardInput(words.script.model, words.script.steps, "STEPS");
    return std::move(words.script);
}

std::string helpOf(const std::string& command) {
    return command.empty() ? "modelhost --help" : fmt::format("modelhost {} --help", command);
}

std::string chosenCommand(const CLI::App& app) {
    const auto chosen = app.get_subcommands();
    return chosen.empty() ? "" : chosen.front()->get_name();
}

const CommandDescription& find(const ProgramDescription& program, const std::string& command) {
    std::vector<std::string> names;
    for (const CommandDescription& one : program) {
        if (one.name == command) return one;
        names.push_back(one.name);
    }
    const std::string meant = didYouMean(command, names);
    throw Failure(fmt::format("there is no command '{}'{}see modelhost --help", command,
                              meant.empty() ? "; " : meant + " Else "));
}

/// What CLI11 would call a missing command, where the first word is none.
void checkCommand(int argc, const char* const* argv, const ProgramDescription& program) {
    const std::string first = argc > 1 ? argv[1] : "";
    if (!first.empty() && first.front() != '-') find(program, first);
}

/// CLI11 may complain of something else first, such as an argument that a wrong option has eaten.
void checkOptions(int argc, const char* const* argv, const CommandDescription& command) {
    std::vector<std::string> known;
    for (const OptionDescription& option : command.options)
        known.insert(known.end(), option.names.begin(), option.names.end());
    for (int i = 1; i < argc && std::string_view(argv[i]) != "--"; ++i) {
        const std::string option = std::string(argv[i]).substr(0, std::string_view(argv[i]).find('='));
        if (!option.starts_with("--") || std::find(known.begin(), known.end(), option) != known.end()) continue;
        const std::string meant = didYouMean(option, known);
        throw Failure(fmt::format("{} has no option {}{}see {}", fullName(command), option,
                                  meant.empty() ? "; " : meant + " Else ", helpOf(command.name)));
    }
}

/// @return whether the command is one of those that only print what there is to say.
bool printed(const std::string& command, const Words& words, const ProgramDescription& program) {
    if (command == "help") {
        const CommandDescription& about = find(program, words.helpOn);
        print(words.asManPage ? manPage(about, program) : helpText(about, program));
    } else if (command == "completion") {
        print(completion(words.shell, program));
    } else {
        return false;
    }
    return true;
}

}  // namespace

std::optional<Command> parseCommandLine(int argc, const char* const* argv) {
    CLI::App app("Works on IFC models the way a user of the add-on does", "modelhost");
    Words words;
    addAll(app, words);
    const ProgramDescription program = describe(app);
    checkCommand(argc, argv, program);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForVersion& version) {
        print(version.what());
        return std::nullopt;
    } catch (const CLI::CallForHelp&) {
        print(helpText(find(program, chosenCommand(app)), program));
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        checkOptions(argc, argv, find(program, chosenCommand(app)));
        throw Failure(fmt::format("{}; see {}", error.what(), helpOf(chosenCommand(app))));
    }
    if (printed(chosenCommand(app), words, program)) return std::nullopt;
    return finish(app, words);
}

}  // namespace console
