#include "console/CommandLine.hpp"

#include "console/Failure.hpp"
#include "console/export/UpdateLine.hpp"
#include "console/output/StandardOutput.hpp"

#include <fmt/format.h>
#include <CLI/CLI.hpp>

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
    ScriptOptions script;

    std::string tick = "all";
    std::string output;
    std::string items;
    std::vector<std::string> singleItems;
};

CLI::Option* addPath(CLI::App& app, const char* name, std::filesystem::path& path, const char* description) {
    return app.add_option_function<std::string>(
        name, [&path](const std::string& text) { path = text; }, description);
}

CLI::App& addCommand(CLI::App& app, const char* name, const char* description, CommonOptions& common,
                     std::filesystem::path& model) {
    static const std::map<std::string, Format> formats{
        {"table", Format::Table}, {"tsv", Format::Tsv}, {"json", Format::Json}};
    CLI::App& command = *app.add_subcommand(name, description);
    addPath(command, "MODEL", model, "IFC file (.ifc or .ifczip) to work on")->required()->type_name("");
    command
        .add_option_function<std::string>(
            "--format", [&common](const std::string& text) { common.format = formats.at(text); },
            "table (the default), tsv or json")
        ->check(CLI::IsMember(formats).description(""))
        ->type_name("FORMAT");
    addPath(command, "--addon", common.addOn, "add-on to load; default: the bundle beside this program")
        ->type_name("BUNDLE");
    command.add_flag("--debug", common.debug, "the add-on's debug output, on standard error");
    return command;
}

template <class Value>
CLI::Option* addChoice(CLI::App& command, const char* name, std::optional<Value>& value,
                       const std::map<std::string, Value>& choices, const char* description) {
    return command
        .add_option_function<std::string>(
            name, [&value, choices](const std::string& text) { value = choices.at(text); }, description)
        ->check(CLI::IsMember(choices).description(""));
}

void addForce(CLI::App& command, CommonOptions& common) {
    command.add_flag("--force", common.force, "save even over a file that another program changed meanwhile");
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
                                   words.import.common, words.import.model);
    addPath(
        command, "UPDATES", words.import.updates,
        "update file: GUID, item, old and new value, TABs between; or a table, .csv .tsv .xlsx .ods; - reads standard "
        "input")
        ->required()
        ->type_name("");
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
    addForce(command, words.import.common);
    command.footer(
        "Exit status: 0 done, 1 wrong usage or a file that cannot be read or written, 2 a ticked row ended in error.\n"
        "Example: modelhost import house.ifc updates.txt --tick 1,4-9 --apply -o changed.ifc");
}

void addLookup(CLI::App& app, Words& words) {
    CLI::App& command = addCommand(app, "lookup", "Show what elements carry: attributes, properties, classifications",
                                   words.lookup.common, words.lookup.model);
    command.add_option("GUID", words.lookup.guids, "GUIDs of 36 characters or GlobalIds of 22")->type_name("");
    addWhere(command, words.lookup.where);
}

void addList(CLI::App& app, Words& words) {
    CLI::App& command = addCommand(app, "list", "List the model's elements with GUID, class, type and name",
                                   words.list.common, words.list.model);
    addFilter(command, words.list.type, words.list.ifcClass, words.list.where);
}

void addItems(CLI::App& app, Words& words) {
    CLI::App& command = addCommand(app, "items", "List which attributes, properties and classifications there are",
                                   words.itemsOf.common, words.itemsOf.model);
    addFilter(command, words.itemsOf.type, words.itemsOf.ifcClass, words.itemsOf.where);
    command.add_flag("--standard", words.itemsOf.standard,
                     "also the properties that the IFC standard defines for these elements and none has");
}

void addExport(CLI::App& app, Words& words) {
    CLI::App& command =
        addCommand(app, "export", "Write current values as update-file lines, to be edited and imported again",
                   words.exporting.common, words.exporting.model);
    command
        .add_option("--items", words.items,
                    "attributes, properties and classifications, commas between: "
                    "'Name,FireRating[WallCommon],UniFormat Classification'")
        ->type_name("ITEMS");
    command.add_option("--item", words.singleItems, "one item exactly as it stands, commas and blanks included")
        ->type_name("ITEM")
        ->allow_extra_args(false);
    addFilter(command, words.exporting.type, words.exporting.ifcClass, words.exporting.where);
    addChoice(command, "--layout", words.exporting.layout, {{"long", ExportLayout::Long}, {"grid", ExportLayout::Grid}},
              "long: a line for each value; grid: a line for each element, a column for each item; default: grid for "
              ".xlsx, .csv and .tsv")
        ->type_name("LAYOUT");
    addChoice(command, "--missing", words.exporting.missing,
              {{"include", Missing::Include}, {"leave-out", Missing::LeaveOut}},
              "what becomes of items that an element has not got: include (the default of a grid) or leave-out")
        ->type_name("HOW");
    command
        .add_option("-o,--output", words.output,
                    "write here, a table where it ends in .xlsx, .csv or .tsv; - or nothing: standard output")
        ->type_name("FILE");
    command.footer("Fields: GUID, item, old value, value to change. What no line can hold is left out and said.");
}

void addScript(CLI::App& app, Words& words) {
    CLI::App& command = addCommand(app, "script", "Act as the user, step by step, from a file of JSON lines",
                                   words.script.common, words.script.model);
    addPath(command, "STEPS", words.script.steps, "one JSON object a line; - reads standard input")
        ->required()
        ->type_name("");
    addForce(command, words.script.common);
    command.footer("Steps: docs/scripting.md. Example: {\"menu\":1} {\"file\":\"updates.txt\"} {\"click\":3}");
}

ImportOptions finishImport(Words& words) {
    ImportOptions& options = words.import;
    options.tick = valueOrThrow(parseTickChoice(words.tick));
    if (!words.output.empty()) options.output = words.output;
    const bool target = options.output.has_value() || options.inPlace;
    if (options.output && options.inPlace) throw Failure("-o and --in-place exclude each other; give one of them");
    if (options.apply && !target)
        throw Failure("--apply without a place to save to would lose the work; add -o OUT.ifc or --in-place");
    if (!options.apply && target) {
        throw Failure(
            "without --apply nothing is changed and nothing saved; add --apply, or leave out -o and "
            "--in-place");
    }
    return std::move(options);
}

ExportOptions finishExport(Words& words) {
    ExportOptions& options = words.exporting;
    if (!words.items.empty()) options.items = valueOrThrow(parseItems(words.items));
    for (const std::string& item : words.singleItems) {
        throwUnlessDone(checkItem(item));
        options.items.push_back(item);
    }
    if (options.items.empty()) throw Failure("export needs --items; write for example --items 'Name,Description'");
    if (!words.output.empty() && words.output != "-") options.output = words.output;
    return std::move(options);
}

Command finish(const CLI::App& app, Words& words) {
    const std::string& name = app.get_subcommands().front()->get_name();
    if (name == "import") return finishImport(words);
    if (name == "lookup") return std::move(words.lookup);
    if (name == "list") return std::move(words.list);
    if (name == "items") return std::move(words.itemsOf);
    if (name == "export") return finishExport(words);
    return std::move(words.script);
}

std::string usage(const CLI::App& app) {
    const auto chosen = app.get_subcommands();
    return chosen.empty() ? "modelhost --help" : fmt::format("modelhost {} --help", chosen.front()->get_name());
}

}  // namespace

std::optional<Command> parseCommandLine(int argc, const char* const* argv) {
    CLI::App app("Works on IFC models the way a user of the add-on does.", "modelhost");
    app.set_version_flag("--version", "modelhost " PROJECT_VERSION);
    app.require_subcommand(1);
    Words words;
    addImport(app, words);
    addLookup(app, words);
    addList(app, words);
    addItems(app, words);
    addExport(app, words);
    addScript(app, words);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForVersion& version) {
        print(std::string(version.what()) + "\n");
        return std::nullopt;
    } catch (const CLI::CallForHelp&) {
        print(app.get_subcommands().empty() ? app.help() : app.get_subcommands().front()->help("modelhost"));
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        throw Failure(fmt::format("{}; see {}", error.what(), usage(app)));
    }
    return finish(app, words);
}

}  // namespace console
