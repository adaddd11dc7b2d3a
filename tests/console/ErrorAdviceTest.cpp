// Every refusal says what, where and what to do; what stands in the way of saving is said before the work.

#include "ConsoleTest.hpp"
#include "support/ActingAsNobody.hpp"
#include "support/Places.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zip.h>

namespace console_tests {
namespace {

class Advice : public ConsoleTest {
protected:
    Advice() {
        updates({{WallGuid, "Name", "", "North wall"}});
        std::filesystem::create_directory(folder_.path() / "folder");
        pack("none.ifczip", {"letter.txt"});
        pack("two.ifczip", {"a.ifc", "b.ifc"});
        const std::string packed = pack("one.ifczip", {"a.ifc"});
        write("cut.ifczip", packed.substr(0, packed.size() / 2));
    }

    std::string pack(const std::string& name, const Fields& entries) {
        int error = 0;
        zip_t* archive = zip_open((folder_.path() / name).c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
        const std::string model = house();
        for (const std::string& entry : entries)
            zip_file_add(archive, entry.c_str(), zip_source_buffer(archive, model.data(), model.size(), 0), 0);
        EXPECT_EQ(zip_close(archive), 0);
        return bytes(name);
    }
};

struct Refusal {
    Fields arguments;
    const char* message;
};

class Refused : public Advice, public testing::WithParamInterface<Refusal> {};

TEST_P(Refused, SaysWhatWhereAndWhatToDo) {
    expectError(run(GetParam().arguments), {GetParam().message});
    EXPECT_EQ(bytes("house.ifc"), house());
}

Fields importTo(const char* target) {
    return {"import", "house.ifc", "updates.txt", "--apply", "-o", target};
}
Fields exportTo(const char* target) {
    return {"export", "house.ifc", "--items", "Name", "-o", target};
}

INSTANTIATE_TEST_SUITE_P(
    Models, Refused,
    testing::Values(
        Refusal{{"list", "none.ifc"}, "none.ifc: No such file or directory; check the name and the rights"},
        Refusal{{"list", "no/none.ifc"}, "no/none.ifc: No such file or directory; check the name and the rights"},
        Refusal{{"list", "folder"}, "the folder folder holds no .ifc or .ifczip file; name another one"},
        Refusal{{"list", "none.ifczip"}, "none.ifczip: the archive holds no .ifc file; choose another one, or export"},
        Refusal{{"list", "two.ifczip"}, "two.ifczip: the archive holds several .ifc files; unpack it and open one"},
        Refusal{{"list", "cut.ifczip"}, "cut.ifczip: the archive is damaged: Not a zip archive; fetch it again"}));

INSTANTIATE_TEST_SUITE_P(
    Targets, Refused,
    testing::Values(
        Refusal{importTo("no/dir/out.ifc"), "no/dir/out.ifc: there is no folder no/dir; make it first, or save in"},
        Refusal{importTo("updates.txt/out.ifc"), "there is no folder updates.txt; make it first, or save in another"},
        Refusal{importTo("folder"), "folder: it is a folder or a device, not a file; choose another name"},
        Refusal{importTo("updates.txt"), "-o updates.txt: that is the update file, which would be lost; name another"},
        Refusal{importTo("./updates.txt"), "that is the update file, which would be lost; name another file"},
        Refusal{exportTo("no/dir/x.txt"), "no/dir/x.txt: there is no folder no/dir; make it first, or choose another"},
        Refusal{exportTo("folder"), "cannot write folder: it is a folder; name a file in it"},
        Refusal{exportTo("house.ifc"), "-o house.ifc: that is the model, which would be lost; name another file"},
        Refusal{exportTo("./house.ifc"), "that is the model, which would be lost; name another file"}));

INSTANTIATE_TEST_SUITE_P(
    Others, Refused,
    testing::Values(
        Refusal{{"list", "house.ifc", "--type", "Wal"},
                "--type Wal: there is no such type; did you mean Wall? Else write one of Wall, Column"},
        Refusal{{"list", "house.ifc", "--class", "IfcWal"}, "IFC4 has no such class; did you mean IfcWall?"},
        Refusal{{"import", "house.ifc", "none.txt"},
                "update file none.txt: No such file or directory; check its name and that you may read it"},
        Refusal{{"import", "house.ifc", "folder"}, "the update file folder: it is a folder; name a file in it"}));

TEST_F(Advice, ATargetIsCheckedBeforeTheModelIsOpened) {
    EXPECT_THAT(run({"import", "none.ifc", "updates.txt", "--apply", "-o", "no/out.ifc"}).err,
                HasSubstr("there is no folder no;"));
    EXPECT_THAT(run({"export", "none.ifc", "--items", "Name", "-o", "no/out.txt"}).err,
                HasSubstr("there is no folder no;"));
}

TEST_F(Advice, AModelSavedWithoutItsEndingIsSaidToBeOne) {
    const Outcome outcome = run(importTo("out.txt"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, HasSubstr("out.txt: the name does not end in .ifc, so other programs may not take it"));
    EXPECT_EQ(run(importTo("out.IFC")).err, "");
}

TEST_F(Advice, TheNullGuidIsNotSaidToBeMalformed) {
    EXPECT_THAT(run({"lookup", "house.ifc", "00000000-0000-0000-0000-000000000000"}).err,
                HasSubstr("is the GUID of no element at all; 'modelhost list' prints those there are"));
}

/// Somebody without rights in a folder that everybody may enter.
class Rights : public Advice {
protected:
    Rights() { open(folder_.path(), 0755); }
    static void open(const std::filesystem::path& path, mode_t mode) { EXPECT_EQ(::chmod(path.c_str(), mode), 0); }
    /// A copy of the project below root's home can be reached by root alone.
    void SetUp() override {
        const testing_support::ActingAsNobody nobody;
        const auto program = testing_support::builtFile("modelhost");
        if (::faccessat(AT_FDCWD, program.c_str(), X_OK, AT_EACCESS) != 0)
            GTEST_SKIP() << "nobody but root can reach the folder of the program";
    }

    Outcome runAsSomebody(const Fields& arguments) { return modelhost().withoutPrivileges().run(arguments); }
};

TEST_F(Rights, ToReadAreMissed) {
    open(folder_.path() / "house.ifc", 0);
    expectError(runAsSomebody({"list", "house.ifc"}), {"house.ifc: Permission denied; check the name and the rights"});
    open(folder_.path() / "house.ifc", 0644);
    open(folder_.path() / "updates.txt", 0);
    expectError(runAsSomebody({"import", "house.ifc", "updates.txt"}),
                {"updates.txt: Permission denied; check its name and that you may read it"});
}

TEST_F(Rights, ToWriteAreMissedBeforeTheWork) {
    open(folder_.path() / "house.ifc", 0444);
    open(folder_.path() / "folder", 0555);
    expectError(runAsSomebody({"import", "house.ifc", "updates.txt", "--apply", "--in-place"}),
                {"house.ifc: the file is write-protected; save under another name"});
    expectError(
        runAsSomebody({"import", "none.ifc", "updates.txt", "--apply", "-o", "folder/out.ifc"}),
        {"folder/out.ifc: Permission denied; the folder or the file may not be written; save in another place"});
}

}  // namespace
}  // namespace console_tests
