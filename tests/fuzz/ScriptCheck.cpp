#include "console/script/ScriptReader.hpp"
#include "console/script/ScriptUser.hpp"
#include "fuzz/Checks.hpp"
#include "support/Places.hpp"
#include "support/TempFolder.hpp"

#include <dlfcn.h>

#include <fstream>

namespace fuzz {

namespace {

namespace fs = std::filesystem;
using namespace console;

/// The folder that the scripts work in: a model and an update file.
const fs::path& workplace() {
    static const testing_support::TempFolder folder;
    static const bool filled = [] {
        fs::copy_file(testing_support::projectFile("tests/fuzz/seeds/model/walls-ifc4.ifc"),
                      folder.path() / "house.ifc");
        folder.write("updates.txt",
                     "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9\tFireRating[WallCommon]\t\tF 120\n"
                     "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9\tName\t\tnew\n");
        fs::current_path(folder.path());
        // The fuzzer goes on counting in the add-on's memory after the host has unloaded it, so that it has to stay.
        const fs::path image = testing_support::builtFile("ZUNACAddin19.bundle") / "Contents/Linux/ZUNACAddin19";
        return dlopen(image.c_str(), RTLD_NOW | RTLD_LOCAL) != nullptr;
    }();
    require(filled, "there is nothing to work on");
    return folder.path();
}

/// Whether the step has nothing under the name but null or this text.
bool names(const JsonValue& step, const char* name, const char* only) {
    const auto value = step.find(name);
    return value == step.end() || value->is_null() ||
           (value->is_string() && value->get_ref<const std::string&>() == only);
}

/// No step of a script made at random may read or write a file of its own choice.
bool isHarmless(const JsonValue& step) {
    return !step.is_object() || (names(step, "file", "updates.txt") && names(step, "save", "out.ifc"));
}

/// Whether any step of the script can be done, and none does harm.
bool isWorthRunning(const fs::path& script) {
    ScriptReader reader(script);
    bool any = false;
    std::uint64_t lastLine = 0;
    while (const auto step = reader.next()) {
        require(step->line > lastLine, "the lines do not count up");
        require(step->object.is_object() || !step->error.empty(), "a line that is no step gives no reason");
        if (!isHarmless(step->object)) return false;
        any = any || step->object.is_object();
        lastLine = step->line;
    }
    return any;
}

}  // namespace

void checkScript(std::string_view bytes) {
    const fs::path script = workplace() / "steps.jsonl";
    std::ofstream(script, std::ios::binary) << bytes;
    if (!isWorthRunning(script)) return;
    CommonOptions options;
    options.addOn = testing_support::builtFile("ZUNACAddin19.bundle");
    ModelSession session(options, workplace() / "house.ifc", Access::Reading);
    session.loadAddOn();
    ScriptReader steps(script);
    ScriptUser user(session, steps);
    (void)user.run();
    require(frontend::openDialogs().empty(), "a dialog stays open behind the script");
    const std::string edited = session.model().bytes();
    while (session.model().undo()) {
    }
    require(model::Model::fromBytes(edited).operator bool(), "what a script made cannot be opened");
    require(session.model().bytes() == testing_support::bytesOf(workplace() / "house.ifc"),
            "undo leaves something behind");
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkScript)
