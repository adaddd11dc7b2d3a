// Models in .ifczip archives.

#include "step/StepText.hpp"
#include "step/Zip.hpp"
#include "support/TempFolder.hpp"

#include <fstream>
#include <map>

namespace step_tests {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using testing_support::bytesOf;
using testing_support::TempFolder;

const std::string Before = fileOf("#1=A(1);\n");
const std::string After = fileOf("#1=A(2);\n");

struct Entry {
    std::string name;
    std::string bytes;
    int method = ZIP_CM_DEFLATE;
};

class Archives : public ::testing::Test {
protected:
    fs::path archive(const std::string& name, const std::vector<Entry>& entries) {
        const fs::path path = folder_.path() / name;
        Zip zip(path, ZIP_CREATE | ZIP_TRUNCATE);
        for (const Entry& entry : entries) zip.add(entry.name, entry.bytes, entry.method);
        return path;
    }

    static std::vector<Entry> entries(const fs::path& path) {
        const Zip zip(path, ZIP_RDONLY | ZIP_CHECKCONS);
        std::vector<Entry> found;
        for (zip_int64_t i = 0; i < zip_get_num_entries(zip.zip, 0); ++i) {
            const auto at = static_cast<zip_uint64_t>(i);
            const zip_stat_t stat = zip.stat(at);
            found.push_back({stat.name, zip.bytes(at), stat.comp_method});
        }
        return found;
    }

    static std::unique_ptr<StepFile> open(const fs::path& path) {
        auto file = StepFile::open(path);
        if (!file) throw std::runtime_error(file.error().message);
        return std::move(*file);
    }

    static void edit(StepFile& file) {
        ASSERT_TRUE(file.begin());
        ASSERT_TRUE(file.replaceValue(0, argument(file, 1, 0), "2"));
        ASSERT_TRUE(file.commit("Edit"));
    }

    std::string openingError(const fs::path& path) {
        const auto file = StepFile::open(path);
        if (file) return "it was opened";
        EXPECT_EQ(file.error().kind, ErrorKind::CannotRead);
        EXPECT_THAT(file.error().message, HasSubstr(path.string()));
        return file.error().message;
    }

    TempFolder folder_;
};

TEST_F(Archives, OpenTheOneModelInThem) {
    for (const char* name : {"house.ifc", "HOUSE.IFC", "a/b/house.ifc", "../../etc/house.ifc"}) {
        const auto file = open(archive("a.ifczip", {{"readme.txt", "hello"}, {name, Before}}));
        EXPECT_EQ(file->bytes(), Before) << name;
        EXPECT_EQ(file->byteCount(), Before.size());
    }
}

TEST_F(Archives, UneditedAreSavedByteForByte) {
    const fs::path path = archive("a.ifczip", {{"readme.txt", "hello"}, {"house.ifc", Before}});
    const std::string bytes = bytesOf(path);
    const auto file = open(path);
    ASSERT_TRUE(file->save(folder_.path() / "b.ifczip"));
    EXPECT_EQ(bytesOf(folder_.path() / "b.ifczip"), bytes);
    edit(*file);
    ASSERT_TRUE(file->undo());
    ASSERT_TRUE(file->save(path));
    EXPECT_EQ(bytesOf(path), bytes);
}

TEST_F(Archives, EditedKeepTheirOtherEntries) {
    const std::string picture(5000, 'p');
    for (const int method : {ZIP_CM_STORE, ZIP_CM_DEFLATE}) {
        const fs::path path = archive(
            "a.ifczip", {{"a.png", picture, ZIP_CM_STORE}, {"x/house.ifc", Before, method}, {"z.txt", "hello"}});
        const auto file = open(path);
        edit(*file);
        const Status saved = file->save(path);
        ASSERT_TRUE(saved) << saved.error().message;
        const auto now = entries(path);
        ASSERT_EQ(now.size(), 3U);
        EXPECT_EQ(now[0].bytes, picture);
        EXPECT_EQ(now[0].method, ZIP_CM_STORE);
        EXPECT_EQ(now[1].name, "x/house.ifc");
        EXPECT_EQ(now[1].bytes, After);
        EXPECT_EQ(now[1].method, method);
        EXPECT_EQ(now[2].bytes, "hello");
    }
}

TEST_F(Archives, OfTheSameEditsHaveTheSameBytes) {
    const fs::path path = archive("a.ifczip", {{"house.ifc", Before}});
    for (const char* name : {"b.ifczip", "c.ifczip"}) {
        const auto file = open(path);
        edit(*file);
        ASSERT_TRUE(file->save(folder_.path() / name));
    }
    EXPECT_EQ(bytesOf(folder_.path() / "b.ifczip"), bytesOf(folder_.path() / "c.ifczip"));
}

TEST_F(Archives, AreMadeAndUnpackedByTheTargetsName) {
    const auto plain = open(folder_.write("house.ifc", Before));
    edit(*plain);
    ASSERT_TRUE(plain->save(folder_.path() / "villa.IfcZip"));
    const auto made = entries(folder_.path() / "villa.IfcZip");
    ASSERT_EQ(made.size(), 1U);
    EXPECT_EQ(made[0].name, "villa.ifc");
    EXPECT_EQ(made[0].bytes, After);
    const auto packed = open(folder_.path() / "villa.IfcZip");
    ASSERT_TRUE(packed->save(folder_.path() / "back.ifc"));
    EXPECT_EQ(bytesOf(folder_.path() / "back.ifc"), After);
}

TEST_F(Archives, StayArchivesWhateverTheyAreNamed) {
    const fs::path path = archive("misnamed.ifc", {{"house.ifc", Before}});
    const auto file = open(path);
    edit(*file);
    ASSERT_TRUE(file->save(path));
    EXPECT_EQ(entries(path).at(0).bytes, After);
}

TEST_F(Archives, OverwrittenByOthersAreStillSavedWhole) {
    const fs::path path = archive("a.ifczip", {{"z.txt", "hello"}, {"house.ifc", Before}});
    const auto file = open(path);
    edit(*file);
    fs::resize_file(path, 0);
    ASSERT_TRUE(file->save(folder_.path() / "b.ifczip"));
    EXPECT_EQ(entries(folder_.path() / "b.ifczip").at(0).bytes, "hello");
}

TEST_F(Archives, WithoutExactlyOneModelAreRefused) {
    EXPECT_THAT(openingError(archive("a.ifczip", {{"readme.txt", "hello"}})), HasSubstr("no .ifc file"));
    EXPECT_THAT(openingError(archive("b.ifczip", {{"a.ifc", Before}, {"b.ifc", Before}})), HasSubstr("several"));
    EXPECT_THAT(openingError(archive("c.ifczip", {{".ifc", Before}})), HasSubstr("no .ifc file"));
    EXPECT_THAT(openingError(archive("d.ifczip", {{"a.ifc", "hello"}})), HasSubstr("ISO-10303-21"));
}

TEST_F(Archives, ThatAreDamagedAreRefused) {
    const fs::path path = archive("a.ifczip", {{"house.ifc", Before, ZIP_CM_STORE}});
    std::string bytes = bytesOf(path);
    const std::size_t wall = bytes.find("#1=A(1)");
    std::string flipped = bytes;
    flipped[wall + 5] = '7';
    EXPECT_THAT(openingError(folder_.write("flipped.ifczip", flipped)), HasSubstr("damaged"));
    EXPECT_THAT(openingError(folder_.write("cut.ifczip", bytes.substr(0, bytes.size() / 2))), HasSubstr("damaged"));
    EXPECT_THAT(openingError(folder_.write("start.ifczip", bytes.substr(0, 4))), HasSubstr("damaged"));
}

TEST_F(Archives, ThatWouldFillTheMemoryAreRefused) {
    const fs::path bomb = archive("bomb.ifczip", {{"house.ifc", Before + std::string(std::size_t{200} << 20U, ' ')}});
    EXPECT_LT(fs::file_size(bomb), 1000000U);
    EXPECT_THAT(openingError(bomb), HasSubstr("no model does"));
}

TEST_F(Archives, EncryptedAreRefused) {
    const fs::path path = archive("a.ifczip", {{"house.ifc", Before}});
    zip_t* zip = zip_open(path.c_str(), 0, nullptr);
    ASSERT_EQ(zip_file_set_encryption(zip, 0, ZIP_EM_AES_256, "secret"), 0);
    ASSERT_EQ(zip_close(zip), 0);
    EXPECT_THAT(openingError(path), HasSubstr("encrypted"));
}

}  // namespace
}  // namespace step_tests
