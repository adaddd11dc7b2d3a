#include "fuzz/Checks.hpp"
#include "model/Model.hpp"
#include "model/step/disk/Archive.hpp"
#include "model/step/disk/Backup.hpp"
#include "support/TempFolder.hpp"

#include <array>
#include <fstream>
#include <map>
#include <sstream>

namespace fuzz {

namespace {

namespace fs = std::filesystem;
using namespace model;

/// What the folder is like, and what is done in it, as one byte says each.
struct Plan {
    bool archive, linked, hardLink, lock, secondHost, intruder, force, elsewhere, asArchive, backup;

    explicit Plan(Choices& choices) {
        const std::uint8_t place = choices.byte(), deed = choices.byte();
        const auto bit = [](std::uint8_t byte, unsigned number) { return (byte >> number & 1U) != 0; };
        archive = bit(place, 0);
        linked = bit(place, 1);
        hardLink = bit(place, 2);
        lock = bit(place, 3);
        secondHost = bit(place, 4);
        intruder = bit(deed, 0);
        force = bit(deed, 1);
        elsewhere = bit(deed, 2);
        asArchive = bit(deed, 3);
        backup = bit(deed, 4);
    }
};

constexpr std::string_view Intrusion = "what another program wrote";

std::string bytesOf(const fs::path& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

/// By name; links are not followed.
std::map<std::string, std::string> filesIn(const fs::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(folder))
        files[entry.path().filename().string()] = entry.is_symlink() ? "" : bytesOf(entry.path());
    return files;
}

/// The folder, empty.
const fs::path& workplace() {
    static const testing_support::TempFolder folder;
    for (const auto& entry : fs::directory_iterator(folder.path())) fs::remove_all(entry.path());
    return folder.path();
}

std::string packed(std::string_view bytes) {
    step::ModelEntry entry;
    entry.name = "house.ifc";
    entry.method = 8;
    const auto archive = step::writeArchive({}, entry, std::array{bytes}, {});
    require(bool{archive}, "a model cannot be packed");
    return *archive;
}

void change(Model& model) {
    const auto ran = model.command("Fuzz", [&] {
        for (Element element = 0; element < model.elementCount(); ++element)
            (void)model.setAttribute(element, "Name", u"Fuzz");
        return 0;
    });
    require(bool{ran}, "a command cannot be run");
}

/// What a file that was saved must hold, whatever it is packed in.
void requireSaved(const fs::path& target, const std::string& wanted) {
    const auto again = Model::open(target, {{}, false});
    require(again && (*again)->bytes() == wanted, "another model is in the file than was saved");
}

}  // namespace

void checkFiles(std::string_view bytes) {
    Choices choices(bytes);
    const Plan plan(choices);
    const fs::path& folder = workplace();
    const fs::path file = folder / (plan.archive ? "house.ifczip" : "house.ifc");
    std::ofstream(file, std::ios::binary) << (plan.archive ? packed(choices.rest()) : std::string(choices.rest()));
    const fs::path name = plan.linked ? folder / "link" : file;
    if (plan.linked) fs::create_symlink(file.filename(), name);
    if (plan.hardLink) fs::create_hard_link(file, folder / "hard.ifc");
    const auto opened = Model::open(name, {{}, plan.lock});
    if (!opened) {
        require(opened.error().message.starts_with(name.string() + ": "), "a refusal does not name the file");
        return;
    }
    Model& model = **opened;
    require(model.bytes() == choices.rest(), "another model is read than the file holds");
    const auto second = plan.secondHost ? Model::open(file) : model::Result<std::unique_ptr<Model>>(nullptr);
    if (plan.secondHost) require((*second)->lockHolder().empty() != plan.lock, "a lock is seen wrongly");
    change(model);
    const std::string wanted = model.bytes();
    const fs::path target = plan.elsewhere ? folder / (plan.asArchive ? "copy.ifczip" : "copy.ifc") : name;
    if (plan.intruder) std::ofstream(file, std::ios::binary) << Intrusion;
    (void)Model::targetWarnings(target);
    const auto before = filesIn(folder);
    // Of a file that is open and locked here it says what another host would be told.
    const Status possible = plan.lock && !plan.elsewhere ? Status{} : Model::checkTarget(target);
    const auto backup = step::Backup::make(plan.linked && !plan.elsewhere ? file : target, plan.backup ? ".bak" : "");
    require(bool{backup} == plan.backup, "a backup is made otherwise than asked for");
    SaveOptions options;
    options.force = plan.force;
    const Status saved = model.save(target, options);
    if (!saved) {
        if (backup) backup->removeUnlessReplaced();
        require(!saved.error().message.empty() && filesIn(folder) == before, "a refusal changes the folder");
        require(!possible || (plan.intruder && !plan.force && !plan.elsewhere), "a save is refused for no reason");
        return;
    }
    require(bool{possible}, "a file is written that cannot be");
    require(!plan.intruder || plan.force || plan.elsewhere, "what another program wrote is written over");
    require(!model.modified(), "a saved model counts as changed");
    requireSaved(target, wanted);
    auto after = filesIn(folder);
    if (backup && !plan.elsewhere)
        require(after[backup->path().filename().string()] == before.at(file.filename().string()),
                "the backup is another file than the one before");
    if (plan.hardLink) require(after["hard.ifc"] == before.at("hard.ifc"), "another name of the file lost its version");
    if (plan.linked) require(fs::is_symlink(name), "a link was replaced by a file");
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkFiles)
