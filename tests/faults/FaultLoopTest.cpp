// modelhost while the system fails it: each call of each kind, once and from then on, and a kill at it.
//
// Whatever fails, the target is the old file or the complete new one, nothing else is left in the folder, no signal
// ends the program, and status and message are true. By default a stride of the calls is tried; FAULT_LOOP=all tries
// all.

#include "console/ModelHostRun.hpp"
#include "model/step/StepFile.hpp"
#include "support/Places.hpp"
#include "support/TempFolder.hpp"

#include <gmock/gmock.h>

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <map>
#include <set>
#include <sstream>

namespace {

/// In memory, where nothing waits for a disk: some thousand files are made and synced here.
[[maybe_unused]] const int inMemory = access("/dev/shm", W_OK) == 0 ? setenv("TMPDIR", "/dev/shm", 0) : 0;

namespace fs = std::filesystem;
using console_tests::ModelHostRun;
using console_tests::Outcome;
using testing_support::bytesOf;
using testing_support::TempFolder;

constexpr const char* Updates =
    "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9\tFireRating[WallCommon]\tF 90-AB\tF 120-AB\n"
    "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9\tNote[Handover]\t\tnew\n"
    "4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9\tUniFormat Classification\tB2010\tB2010.10{Exterior Wall Veneer}\n"
    "A32931C7-B3B2-4117-8D6A-3038DD4E9A78\tName\tHaustür\tHaustür (Eiche)\n";
constexpr const char* Steps =
    "{\"menu\":1}\n{\"file\":\"updates.txt\"}\n{\"click\":3}\n{\"click\":1}\n{\"click\":2}\n{\"save\":\"house.ifc\"}\n";

struct Job {
    const char* name;
    std::vector<std::string> arguments;
    const char* target;
};

const Job Jobs[] = {
    {"ImportInPlace", {"import", "house.ifc", "updates.txt", "--apply", "--in-place"}, "house.ifc"},
    {"Export", {"export", "house.ifc", "--items", "Name,FireRating,Reference", "-o", "values.txt"}, "values.txt"},
    {"Script", {"script", "house.ifc", "steps.jsonl"}, "house.ifc"},
    {"SaveAsArchive", {"import", "house.ifc", "updates.txt", "--apply", "-o", "house.ifczip"}, "house.ifczip"},
};

const std::vector<std::string> Kinds = {"open",  "read", "write",    "sync",  "rename", "link", "unlink",
                                        "close", "map",  "truncate", "state", "mode",   "lock", "memory"};

std::vector<std::string> waysOf(const std::string& kind) {
    if (kind == "memory") return {"once", "from-then-on"};
    std::vector<std::string> ways = {"once", "from-then-on", "kill-before", "kill-after"};
    if (kind == "read" || kind == "write") ways.insert(ways.end(), {"short", "interrupted"});
    return ways;
}

/// A folder with all that a job needs, and what one run makes of it.
class Workplace {
public:
    explicit Workplace(const Job& job) : job_(job) {
        fs::copy_file(testing_support::projectFile("samples/house.ifc"), folder_.path() / "house.ifc");
        folder_.write("updates.txt", Updates);
        folder_.write("steps.jsonl", Steps);
        if (!fs::exists(target())) folder_.write(job.target, "what was there before");
        before_ = names();
        log_ = logFolder_.write("log", "");
    }

    Outcome run() { return ModelHostRun(folder_.path()).run(job_.arguments); }
    Outcome runWith(const std::string& fault) {
        ModelHostRun run(folder_.path());
        run.with("LD_PRELOAD", FAULT_LIBRARY).with("FAULT_LOG", log_.string());
        if (!fault.empty()) run.with("FAULT", fault);
        return run.run(job_.arguments);
    }

    fs::path target() const { return folder_.path() / job_.target; }
    /// The model in an archive, which bears the time at which it was made; else the target's bytes.
    std::string result() const {
        const std::string bytes = bytesOf(target());
        if (!bytes.starts_with("PK")) return bytes;
        const auto archive = model::step::StepFile::open(target());
        return archive ? (*archive)->bytes() : "no archive: " + archive.error().message;
    }
    std::string log() const { return bytesOf(log_); }
    /// The files that were not there before.
    std::set<std::string> left() const {
        std::set<std::string> files = names();
        for (const std::string& name : before_) files.erase(name);
        return files;
    }

private:
    std::set<std::string> names() const {
        std::set<std::string> files;
        for (const auto& entry : fs::directory_iterator(folder_.path())) files.insert(entry.path().filename().string());
        return files;
    }

    const Job& job_;
    TempFolder folder_, logFolder_;
    fs::path log_;
    std::set<std::string> before_;
};

/// A job as it goes when nothing fails.
struct Sound {
    std::string before, after;
    Outcome outcome;
    std::map<std::string, long> calls;
};

const Sound& soundRunOf(const Job& job) {
    static std::map<std::string, Sound> known;
    const auto [at, isNew] = known.try_emplace(job.name);
    Sound& sound = at->second;
    if (!isNew) return sound;
    Workplace place(job);
    sound.before = place.result();
    sound.outcome = place.runWith("");
    sound.after = place.result();
    std::istringstream counts(place.log());
    std::string kind;
    for (long count = 0; counts >> kind >> count;) sound.calls[kind] = count;
    return sound;
}

bool anyOf(const std::string& text, std::initializer_list<const char*> words) {
    return std::any_of(words.begin(), words.end(), [&](const char* word) { return text.find(word) != text.npos; });
}

/// What is wrong with a run that was not killed; empty where nothing is.
/// @param mute  nothing can be written at all
std::string complaint(const Sound& sound, const Outcome& outcome, const std::string& result, bool mute) {
    if (outcome.signal != 0) return "signal " + std::to_string(outcome.signal);
    if (anyOf(outcome.out + outcome.err, {"crash", "internal error"})) return "a crash or an internal error";
    const bool isOld = result == sound.before, isNew = result == sound.after;
    if (!isOld && !isNew) return "neither the old file nor the new one";
    if (outcome.status == sound.outcome.status) {
        if (!isNew) return "done, and the old file is there";
        if (outcome.out != sound.outcome.out) return "done, and its output is another";
        return "";
    }
    if (outcome.status != 1) return "status " + std::to_string(outcome.status);
    const bool told = outcome.err.starts_with("modelhost: ") || outcome.out.find("\"error\":\"") != std::string::npos;
    if (!told && !mute) return "failed without a word";
    if (isNew && anyOf(outcome.err + outcome.out, {"untouched", "not saved", "not written", "nothing was saved"}))
        return "the new file is there, and it says that it is not";
    return "";
}

std::string shown(const Outcome& outcome) {
    return " (status " + std::to_string(outcome.status) + ", says: " + outcome.err.substr(0, 300) + ")";
}

struct Tally {
    long tried = 0, met = 0, refused = 0;
    std::map<std::string, std::pair<long, std::string>> complaints;  ///< How often, and where first.

    void add(const std::string& what, const std::string& where) {
        auto& [count, first] = complaints[what];
        if (count++ == 0) first = where;
    }
};

void tryOne(const Job& job, const std::string& kind, long number, const std::string& how, Tally& tally) {
    const Sound& sound = soundRunOf(job);
    const std::string fault = kind + ":" + std::to_string(number) + ":" + how;
    Workplace place(job);
    const Outcome outcome = place.runWith(fault);
    ++tally.tried;
    if (!place.log().empty()) ++tally.met;
    if (outcome.status == 1) ++tally.refused;
    if (outcome.signal == SIGKILL && how.starts_with("kill")) {
        const std::string result = place.result();
        if (result != sound.before && result != sound.after) tally.add("half a file after a kill", fault);
        // What a killed run leaves behind is the next one's to clear away.
        (void)place.run();
        if (!place.left().empty()) tally.add("the next run leaves " + std::string("a killed one's file"), fault);
        return;
    }
    const std::string what = complaint(sound, outcome, place.result(), kind == "write" && how == "from-then-on");
    if (!what.empty()) tally.add(what, fault + shown(outcome));
    if (!place.left().empty()) tally.add("something is left in the folder", fault + ": " + *place.left().begin());
}

/// The numbers from 1 to `last` that are tried: all, or as many as asked for, evenly, the first and the last with them.
std::vector<long> picked(long last, const std::string& kind) {
    long most = kind == "memory" ? 20 : 6;
    const char* wish = std::getenv("FAULT_LOOP");
    if ((wish != nullptr && std::string(wish) == "all") || last <= most) most = last;
    std::vector<long> numbers;
    for (long i = 0; i < most; ++i) numbers.push_back(most == 1 ? 1 : 1 + i * (last - 1) / (most - 1));
    // Files get their names and lose them near the end.
    if (kind == "memory" && most < last)
        for (long number = std::max(1L, last - 200); number < last; ++number) numbers.push_back(number);
    return numbers;
}

class FaultLoop : public ::testing::TestWithParam<std::tuple<Job, std::string>> {};

TEST_P(FaultLoop, LeavesTheOldFileOrTheNewOneAndTellsTheTruth) {
    const auto& [job, kind] = GetParam();
    const Sound& sound = soundRunOf(job);
    ASSERT_EQ(sound.outcome.status, 0) << sound.outcome.err;
    ASSERT_NE(sound.before, sound.after);
    const long calls = sound.calls.at(kind);
    Tally tally;
    for (const std::string& how : waysOf(kind))
        for (const long number : picked(calls, kind)) tryOne(job, kind, number, how, tally);
    std::cout << "FAULTS " << job.name << " " << kind << ": " << calls << " calls, " << tally.tried << " runs, "
              << tally.met << " with the fault, " << tally.refused << " ended with status 1\n";
    if (calls > 0) {
        EXPECT_GT(tally.met, tally.tried / 2) << "the faults do not reach the program";
    }
    for (const auto& [what, times] : tally.complaints)
        ADD_FAILURE() << times.first << " times: " << what << "; first at " << times.second;
}

INSTANTIATE_TEST_SUITE_P(Jobs, FaultLoop, ::testing::Combine(::testing::ValuesIn(Jobs), ::testing::ValuesIn(Kinds)),
                         [](const auto& row) {
                             return std::string(std::get<0>(row.param).name) + "_" + std::get<1>(row.param);
                         });

}  // namespace
