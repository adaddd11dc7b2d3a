#include "fuzz/Checks.hpp"
#include "model/step/StepFile.hpp"
#include "step/FaultyDisk.hpp"

namespace fuzz {

namespace {

using namespace model;
using namespace model::step;
using step_tests::FaultyDisk;

constexpr const char* Target = "/models/house.ifc";

void change(StepFile& file) {
    require(bool{file.begin()}, "no command can be opened");
    (void)file.append("NEW('1',$)", NoSlot);
    if (file.slotCount() > 1) (void)file.erase(0);
    (void)file.commit("Change");
}

}  // namespace

void checkSaving(std::string_view bytes) {
    Choices choices(bytes);
    constexpr std::errc failures[] = {std::errc::no_space_on_device, std::errc::io_error, std::errc::permission_denied,
                                      std::errc::read_only_file_system};
    FaultyDisk disk;
    disk.failing = choices.byte();
    disk.failure = std::make_error_code(failures[choices.below(4)]);
    disk.intruding = choices.byte();
    const std::uint8_t flags = choices.byte();
    const std::string input(choices.rest());
    const auto opened = StepFile::fromBytes(input);
    if (!opened) return;
    StepFile& file = **opened;
    if ((flags & 1U) != 0) change(file);
    if ((flags & 2U) != 0) disk.put(Target, "what was there before");
    const auto filesBefore = disk.files;
    const std::string wanted = file.bytes();
    SaveOptions options;
    options.disk = &disk;
    options.force = (flags & 4U) != 0;
    const Status saved = file.save(Target, options);
    require(disk.temporaries == 0, "a temporary file is left");
    const auto holds = [&disk](const std::string& content) {
        const auto found = disk.files.find(Target);
        return found != disk.files.end() && found->second == content;
    };
    const bool intruded = holds(FaultyDisk::Intrusion), isThere = holds(wanted);
    require(!saved || isThere || intruded, "it is saved, and another file is there");
    require(saved || isThere || intruded || disk.files == filesBefore, "neither the old file nor the new one is there");
    require(saved || !saved.error().message.empty(), "a refusal gives no reason");
    require(file.bytes() == wanted, "saving changes the model");
    if (saved) require(!file.modified(), "a saved model counts as changed");
}

}  // namespace fuzz

FUZZ_WITH(fuzz::checkSaving)
