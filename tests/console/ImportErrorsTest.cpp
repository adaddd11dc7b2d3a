// What modelhost says of files that it cannot work with, and of a disk that is full.

#include "ConsoleTest.hpp"

#include <sys/mount.h>

namespace console_tests {
namespace {

class ImportErrors : public ConsoleTest {
protected:
    ImportErrors() { updates({{WallGuid, "Name", "", "North wall"}}); }
};

struct BadUpdates {
    const char* what;
    std::string bytes;
    const char* message;
};

class UnusableUpdateFile : public ImportErrors, public testing::WithParamInterface<BadUpdates> {};

TEST_P(UnusableUpdateFile, IsRefusedInOneLine) {
    write("bad.txt", GetParam().bytes);
    expectError(run({"import", "house.ifc", "bad.txt", "--apply", "-o", "out.ifc"}), {"bad.txt", GetParam().message});
    EXPECT_FALSE(exists("out.ifc"));
}

INSTANTIATE_TEST_SUITE_P(Files, UnusableUpdateFile,
                         testing::Values(BadUpdates{"empty", "", "holds no lines"},
                                         BadUpdates{"line ends", "\r\n\r\n", "holds no lines"},
                                         BadUpdates{"spreadsheet", "PK\x03\x04\x14", "no text file"},
                                         BadUpdates{"noise", std::string(600, '\x01'), "no text file"}));

TEST_F(ImportErrors, AMissingUpdateFileIsNamed) {
    expectError(run({"import", "house.ifc", "none.txt"}), {"none.txt", "No such file", "check"});
}

TEST_F(ImportErrors, AFolderIsNoUpdateFile) {
    expectError(run({"import", "house.ifc", "."}), {"folder"});
}

TEST_F(ImportErrors, AnUpdateFileWhoseReadingFailsIsNamed) {
    expectError(run({"import", "house.ifc", "/proc/self/mem"}), {"/proc/self/mem", "Input/output error"});
}

struct BadModel {
    const char* what;
    std::string bytes;
};

class UnusableModel : public ImportErrors, public testing::WithParamInterface<BadModel> {};

TEST_P(UnusableModel, IsRefusedInOneLineByEveryCommand) {
    write("bad.ifc", GetParam().bytes);
    write("steps.jsonl", "");
    expectError(run({"import", "bad.ifc", "updates.txt"}), {"bad.ifc"});
    expectError(run({"lookup", "bad.ifc"}), {"bad.ifc"});
    expectError(run({"list", "bad.ifc"}), {"bad.ifc"});
    expectError(run({"export", "bad.ifc", "--items", "Name"}), {"bad.ifc"});
    expectError(run({"script", "bad.ifc", "steps.jsonl"}), {"bad.ifc"});
}

const std::string UnknownSchema =
    "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\nFILE_NAME('','',(''),(''),'','','');\n"
    "FILE_SCHEMA(('AUTOMOTIVE_DESIGN'));\nENDSEC;\nDATA;\nENDSEC;\nEND-ISO-10303-21;\n";

INSTANTIATE_TEST_SUITE_P(Files, UnusableModel,
                         testing::Values(BadModel{"empty", ""}, BadModel{"text", "no model at all\n"},
                                         BadModel{"unknown schema", UnknownSchema}));

TEST_F(ImportErrors, AMissingModelIsNamed) {
    expectError(run({"import", "none.ifc", "updates.txt"}), {"none.ifc"});
}

TEST_F(ImportErrors, AMissingAddOnIsNamed) {
    expectError(run({"import", "house.ifc", "updates.txt", "--addon", "none.bundle"}), {"none.bundle"});
}

TEST_F(ImportErrors, ATargetThatCannotBeWrittenIsNamedAndTheModelStays) {
    const std::string before = bytes("house.ifc");
    expectError(run({"import", "house.ifc", "updates.txt", "--apply", "-o", "no/such/folder/out.ifc"}),
                {"no/such/folder/out.ifc"});
    EXPECT_EQ(bytes("house.ifc"), before);
}

TEST_F(ImportErrors, AFullDiskLeavesNoHalfFile) {
    const auto disk = folder_.path() / "disk";
    std::filesystem::create_directory(disk);
    if (mount("none", disk.c_str(), "tmpfs", 0, "size=4k") != 0) GTEST_SKIP() << "only root may mount a small disk";
    write("disk/filler", std::string(4096, 'x'));
    const Outcome outcome = run({"import", "house.ifc", "updates.txt", "--apply", "-o", "disk/out.ifc"});
    const bool half = exists("disk/out.ifc");
    const auto files = std::distance(std::filesystem::directory_iterator(disk), {});
    umount(disk.c_str());
    expectError(outcome, {"disk/out.ifc"});
    EXPECT_FALSE(half);
    EXPECT_EQ(files, 1);
}

TEST_F(ImportErrors, AResultThatCannotBePrintedIsAnError) {
    const Outcome outcome = modelhost().outputTo("/dev/full").run({"list", "house.ifc"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("standard output"));
    EXPECT_THAT(outcome.err, HasSubstr("No space left"));
}

struct WrongUsage {
    std::vector<std::string> arguments;
    const char* message;
};

class WrongUse : public ImportErrors, public testing::WithParamInterface<WrongUsage> {};

TEST_P(WrongUse, IsExplainedInOneLine) {
    expectError(run(GetParam().arguments), {GetParam().message});
}

INSTANTIATE_TEST_SUITE_P(
    CommandLines, WrongUse,
    testing::Values(WrongUsage{{}, "modelhost --help"}, WrongUsage{{"improt"}, "modelhost --help"},
                    WrongUsage{{"import"}, "modelhost import --help"}, WrongUsage{{"import", "house.ifc"}, "UPDATES"},
                    WrongUsage{{"import", "house.ifc", "updates.txt", "more"}, "more"},
                    WrongUsage{{"import", "house.ifc", "updates.txt", "--tick", "one"}, "'one' is no row"},
                    WrongUsage{{"import", "house.ifc", "updates.txt", "--tick", "0"}, "'0' is no row"},
                    WrongUsage{{"import", "house.ifc", "updates.txt", "--apply"}, "add -o OUT.ifc or --in-place"},
                    WrongUsage{{"import", "house.ifc", "updates.txt", "-o", "out.ifc"}, "add --apply"},
                    WrongUsage{{"import", "house.ifc", "updates.txt", "--in-place"}, "add --apply"},
                    WrongUsage{{"import", "house.ifc", "updates.txt", "--apply", "--in-place", "-o", "out.ifc"},
                               "exclude"},
                    WrongUsage{{"import", "house.ifc", "updates.txt", "--format", "xml"}, "xml"},
                    WrongUsage{{"list", "house.ifc", "--class", "IfcWal"}, "IfcWal"},
                    WrongUsage{{"list", "house.ifc", "--type", "Wal"}, "Wal"},
                    WrongUsage{{"export", "house.ifc"}, "--items"},
                    WrongUsage{{"export", "house.ifc", "--items", "Name,,Tag"}, "is no item"},
                    WrongUsage{{"export", "house.ifc", "--items", "[Set]"}, "is no item"},
                    WrongUsage{{"script", "house.ifc", "none.jsonl"}, "none.jsonl"},
                    WrongUsage{{"script", "house.ifc", "."}, "folder"}));

TEST_F(ImportErrors, HelpAndVersionAreNoErrors) {
    for (const char* command : {"import", "lookup", "list", "export", "script"}) {
        const Outcome help = run({command, "--help"});
        EXPECT_EQ(help.status, 0);
        EXPECT_THAT(help.out, HasSubstr("--format")) << command;
        EXPECT_THAT(help.out, HasSubstr("--addon")) << command;
        EXPECT_EQ(help.err, "");
    }
    EXPECT_THAT(run({"--help"}).out, HasSubstr("import"));
    EXPECT_THAT(run({"--version"}).out, testing::StartsWith("modelhost "));
}

}  // namespace
}  // namespace console_tests
