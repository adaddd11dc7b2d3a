// Two hosts on one file: who reads disturbs nobody, who edits is known to the others.

#include "ConsoleTest.hpp"

#include <sys/stat.h>

#include <fstream>
#include <optional>
#include <sstream>
#include <thread>

namespace console_tests {
namespace {

const char* const AnyStep = R"({"menus":true})";

class TwoHosts : public ConsoleTest {
protected:
    TwoHosts() { updates({{WallGuid, "Name", "", "North wall"}}); }

    /// Another modelhost that edits the model: once it has answered, it has opened it.
    void openElsewhere(const Fields& options = {}) {
        other_.emplace(modelhost(), "house.ifc", options);
        ASSERT_THAT(other_->perform(AnyStep), HasSubstr("menus"));
    }
    std::string holder() const { return "modelhost (process " + std::to_string(other_->process()) + ")"; }

    const std::string before_ = bytes("house.ifc");
    std::optional<ScriptedHost> other_;
};

TEST_F(TwoHosts, ReadingIsFreeWhileAnotherEdits) {
    openElsewhere();
    for (const Fields& arguments : {Fields{"list", "house.ifc"},
                                    {"lookup", "house.ifc", WallGuid},
                                    {"export", "house.ifc", "--items", "Name"},
                                    {"import", "house.ifc", "updates.txt"},
                                    {"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 0) << arguments.front();
        EXPECT_THAT(outcome.err, Not(HasSubstr("process"))) << arguments.front();
    }
    EXPECT_THAT(bytes("out.ifc"), HasSubstr("'North wall'"));
}

/// With more to print than a pipe holds, a reader is kept at work with the model open.
class Reader : public TwoHosts, public testing::WithParamInterface<Fields> {
protected:
    Reader() {
        testing_support::IfcText ifc;
        std::string lines;
        for (unsigned i = 1; i <= 3000; ++i) {
            ifc.element("IfcWall", testing_support::guidText(i), "Wall");
            lines += testing_support::guidText(i) + "\tName\t\tNorth wall\n";
        }
        write("house.ifc", ifc.text());
        write("updates.txt", lines);
    }
};

TEST_P(Reader, DoesNotLockTheModel) {
    ASSERT_EQ(mkfifo((folder_.path() / "pipe").c_str(), 0600), 0);
    Outcome outcome;
    std::thread reader([&] { outcome = modelhost().outputTo(folder_.path() / "pipe").run(GetParam()); });
    std::ifstream pipe(folder_.path() / "pipe");
    char first = 0;
    pipe.get(first);
    openElsewhere();
    EXPECT_THAT(other_->perform(R"({"save":"house.ifc"})"), Not(HasSubstr("error")));
    std::ostringstream rest;
    rest << pipe.rdbuf();
    reader.join();
    EXPECT_GT(rest.str().size(), 1U << 17U) << "not enough to keep the reader at work";
    EXPECT_EQ(outcome.status, 0) << outcome.err;
}

INSTANTIATE_TEST_SUITE_P(Commands, Reader,
                         testing::Values(Fields{"list", "house.ifc"}, Fields{"export", "house.ifc", "--items", "Name"},
                                         Fields{"import", "house.ifc", "updates.txt"},
                                         Fields{"import", "house.ifc", "updates.txt", "--apply", "-o", "out.ifc"}));

TEST_F(TwoHosts, InPlaceIsRefusedBeforeTheWorkWhileAnotherEdits) {
    openElsewhere();
    for (const Fields& target : {Fields{"--in-place"}, Fields{"-o", "house.ifc"}, Fields{"-o", "./house.ifc"},
                                 Fields{"--in-place", "--force"}}) {
        Fields arguments{"import", "house.ifc", "updates.txt", "--apply"};
        arguments.insert(arguments.end(), target.begin(), target.end());
        expectError(run(arguments),
                    {"house.ifc: the file is open in " + holder() + "; close it there, or save under another name"});
    }
    EXPECT_EQ(bytes("house.ifc"), before_);
}

TEST_F(TwoHosts, InPlaceWorksOnceTheOtherIsGone) {
    openElsewhere();
    EXPECT_EQ(other_->finish(), 0);
    EXPECT_EQ(run({"import", "house.ifc", "updates.txt", "--apply", "--in-place"}).status, 0);
    EXPECT_THAT(bytes("house.ifc"), HasSubstr("'North wall'"));
}

TEST_F(TwoHosts, AFileOpenElsewhereIsNoTargetEither) {
    write("copy.ifc", before_);
    openElsewhere();
    expectError(run({"import", "copy.ifc", "updates.txt", "--apply", "-o", "house.ifc"}), {"the file is open in"});
    EXPECT_EQ(bytes("house.ifc"), before_);
}

TEST_F(TwoHosts, ASecondScriptIsToldAndSavesUnderAnotherNameOnly) {
    openElsewhere();
    write("steps.jsonl", "{\"save\":\"house.ifc\"}\n{\"save\":\"other.ifc\"}\n");
    const Outcome outcome = run({"script", "house.ifc", "steps.jsonl"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("house.ifc is open in " + holder()));
    EXPECT_THAT(outcome.out, HasSubstr("the file is open in " + holder()));
    EXPECT_EQ(bytes("other.ifc"), before_);
}

TEST_F(TwoHosts, AFileChangedMeanwhileIsNotOverwritten) {
    openElsewhere();
    write("house.ifc", before_ + "\n");
    EXPECT_THAT(other_->perform(R"({"save":"house.ifc"})"),
                HasSubstr("house.ifc: another program has changed the file since it was opened; save under another "
                          "name, or overwrite it on purpose (--force)"));
    EXPECT_EQ(bytes("house.ifc"), before_ + "\n");
}

TEST_F(TwoHosts, ForceOverwritesAFileChangedMeanwhile) {
    openElsewhere({"--force"});
    write("house.ifc", before_ + "\n");
    EXPECT_THAT(other_->perform(R"({"save":"house.ifc"})"), Not(HasSubstr("error")));
    EXPECT_EQ(bytes("house.ifc"), before_);
}

}  // namespace
}  // namespace console_tests
