// Archives that other programs made: entries that are not ours stay byte for byte, large directories are read, and
// what claims to be too much is refused where the limit is.

#include "step/StepText.hpp"
#include "step/Zip.hpp"
#include "support/TempFolder.hpp"

namespace step_tests {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using testing_support::bytesOf;
using testing_support::TempFolder;

const std::string Before = fileOf("#1=A(1);\n");
const std::string After = fileOf("#1=A(2);\n");

/// An entry as it is packed, and all that the directory says of it.
struct Packed {
    std::string name{}, bytes{}, comment{}, extra{};
    std::uint64_t size = 0;
    std::uint32_t sum = 0, attributes = 0;
    std::uint16_t method = 0;
    std::time_t modified = 0;
    bool operator==(const Packed&) const = default;
};

Packed packed(const Zip& archive, zip_uint64_t at) {
    const zip_stat_t stat = archive.stat(at);
    Packed entry{stat.name, archive.bytes(at, ZIP_FL_COMPRESSED)};
    zip_uint32_t commentLength = 0;
    if (const char* comment = zip_file_get_comment(archive.zip, at, &commentLength, 0))
        entry.comment.assign(comment, commentLength);
    zip_uint16_t extraLength = 0;
    if (const zip_uint8_t* extra =
            zip_file_extra_field_get_by_id(archive.zip, at, 0x7777, 0, &extraLength, ZIP_FL_LOCAL))
        entry.extra.assign(extra, extra + extraLength);
    zip_uint8_t system = 0;
    zip_file_get_external_attributes(archive.zip, at, 0, &system, &entry.attributes);
    entry.size = stat.size;
    entry.sum = stat.crc;
    entry.method = stat.comp_method;
    entry.modified = stat.mtime;
    return entry;
}

std::string unpacked(const fs::path& path, zip_uint64_t at) {
    return Zip(path, ZIP_RDONLY | ZIP_CHECKCONS).bytes(at);
}

void editAndSave(const fs::path& path) {
    const auto file = StepFile::open(path);
    ASSERT_TRUE(file) << file.error().message;
    ASSERT_TRUE((*file)->begin());
    ASSERT_TRUE((*file)->replaceValue(0, argument(**file, 1, 0), "2"));
    ASSERT_TRUE((*file)->commit("Edit"));
    const Status saved = (*file)->save(path);
    ASSERT_TRUE(saved) << saved.error().message;
}

TEST(EditedArchive, KeepsItsOtherEntriesAsTheyWerePacked) {
    const TempFolder folder;
    const fs::path path = folder.path() / "a.ifczip";
    std::string text;
    for (int i = 0; i < 5000; ++i) text += "line " + std::to_string(i * i) + "\n";
    {
        Zip made(path, ZIP_CREATE);
        const auto notes = made.add("notes.txt", text, ZIP_CM_DEFLATE, 1);
        zip_file_set_comment(made.zip, notes, "of the survey", 13, 0);
        const zip_uint8_t extra[] = {'e', 'x', 't', 'r', 'a'};
        zip_file_extra_field_set(made.zip, notes, 0x7777, 0, extra, 5, ZIP_FL_LOCAL);
        zip_file_set_external_attributes(made.zip, notes, 0, ZIP_OPSYS_UNIX, 0100640U << 16U);
        made.add("house.ifc", Before, ZIP_CM_DEFLATE);
        made.add("pictures/\xC3\xA4.png", text, ZIP_CM_STORE);
        zip_dir_add(made.zip, "empty", 0);
        zip_set_archive_comment(made.zip, "whole", 5);
    }
    std::vector<Packed> others;
    {
        const Zip opened(path, ZIP_RDONLY);
        for (const zip_uint64_t at : {0U, 2U, 3U}) others.push_back(packed(opened, at));
        EXPECT_EQ(others[0].extra, "extra");
        EXPECT_EQ(others[0].comment, "of the survey");
    }
    editAndSave(path);
    EXPECT_EQ(unpacked(path, 1), After);
    const Zip opened(path, ZIP_RDONLY | ZIP_CHECKCONS);
    ASSERT_EQ(zip_get_num_entries(opened.zip, 0), 4);
    EXPECT_TRUE(packed(opened, 0) == others[0]);
    EXPECT_TRUE(packed(opened, 2) == others[1]);
    EXPECT_TRUE(packed(opened, 3) == others[2]);
    int length = 0;
    EXPECT_EQ(std::string(zip_get_archive_comment(opened.zip, &length, 0), 5), "whole");
}

/// A directory of more than 65,535 entries is one of the 64-bit form.
TEST(EditedArchive, MayHaveADirectoryOfThe64BitForm) {
    for (const std::size_t others : {65534U, 65535U}) {
        const TempFolder folder;
        const fs::path path = folder.path() / "a.ifczip";
        const std::string text = "x";
        {
            Zip made(path, ZIP_CREATE);
            for (std::size_t i = 0; i < others; ++i) made.add(std::to_string(i), text, ZIP_CM_STORE);
            made.add("house.ifc", Before, ZIP_CM_DEFLATE);
        }
        const bool wide = bytesOf(path).find("PK\x06\x06") != std::string::npos;
        EXPECT_EQ(wide, others >= 65535) << others;
        editAndSave(path);
        EXPECT_EQ(unpacked(path, others), After);
        EXPECT_EQ(unpacked(path, others - 1), text);
    }
}

std::string little(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(number >> (8 * i));
    return text;
}

/// An archive of one entry, "a.ifc", of that size by its directory; what is packed is no matter.
std::string claiming(std::uint64_t size, std::uint64_t packedSize) {
    const std::string name = "a.ifc";
    const std::string sizes = little(packedSize, 4) + little(size, 4) + little(name.size(), 2);
    const std::string common = little(20, 2) + little(0, 2) + little(8, 2) + little(0, 4) + little(0, 4) + sizes;
    const std::string local = "PK\x03\x04" + common + little(0, 2) + name + std::string(packedSize, '\0');
    const std::string entry = "PK\x01\x02" + little(20, 2) + common + std::string(2 + 2 + 2 + 2 + 4 + 4, '\0') + name;
    return local + entry + "PK\x05\x06" + std::string(4, '\0') + little(1, 2) + little(1, 2) + little(entry.size(), 4) +
           little(local.size(), 4) + little(0, 2);
}

/// The checksum of zip.
std::uint32_t sumOf(const std::string& bytes) {
    std::uint32_t sum = 0xFFFFFFFFU;
    for (const char c : bytes) {
        sum ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit) sum = sum >> 1U ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~sum;
}

/// An archive with the sizes in the 64-bit form, where the others are all ones.
std::string wideEntry(const std::string& model, std::uint64_t size, std::uint64_t packedSize) {
    const std::string name = "a.ifc", ones(4, '\xFF');
    const std::string extra = little(1, 2) + little(16, 2) + little(size, 8) + little(packedSize, 8);
    const std::string common = little(45, 2) + little(0, 2) + little(0, 2) + little(0, 2) + little(0x21, 2) +
                               little(sumOf(model), 4) + ones + ones + little(name.size(), 2) + little(extra.size(), 2);
    const std::string local = "PK\x03\x04" + common + name + extra + model;
    const std::string entry =
        "PK\x01\x02" + little(45, 2) + common + std::string(2 + 2 + 2 + 4 + 4, '\0') + name + extra;
    return local + entry + "PK\x05\x06" + std::string(4, '\0') + little(1, 2) + little(1, 2) + little(entry.size(), 4) +
           little(local.size(), 4) + little(0, 2);
}

TEST(EditedArchive, MayHaveEntriesOfThe64BitForm) {
    const TempFolder folder;
    const fs::path path = folder.write("a.ifczip", wideEntry(Before, Before.size(), Before.size()));
    editAndSave(path);
    EXPECT_EQ(unpacked(path, 0), After);
}

TEST(ArchiveOfTooMuch, IsRefusedByWhatItClaims) {
    constexpr std::uint64_t harmless = 64U << 20U, large = 80'000'000;
    struct Row {
        std::uint64_t size, packedSize;
        bool tooMuch;
    };
    // Up to 64 MiB anything goes, beyond that 200 times of what is packed.
    const Row table[] = {
        {harmless - 1, 1000, false},      {harmless, 1000, false},        {harmless + 1, 1000, true},
        {large - 1, large / 200, false},  {large, large / 200, false},    {large + 199, large / 200, false},
        {large + 200, large / 200, true}, {large, large / 200 - 1, true}, {0xFFFFFFFEU, 1000, true}};
    for (const Row& row : table) {
        const TempFolder folder;
        const auto file = StepFile::open(folder.write("a.ifczip", claiming(row.size, row.packedSize)));
        ASSERT_FALSE(file);
        // What is let through is read, and is found to be no packed data.
        EXPECT_THAT(file.error().message, HasSubstr(row.tooMuch ? "which no model does" : "damaged"))
            << row.size << " from " << row.packedSize;
    }
}

TEST(ArchiveOfTooMuch, IsRefusedWhateverSizesItsDirectoryNames) {
    constexpr std::uint64_t largest = ~std::uint64_t{0};
    for (const std::uint64_t size :
         {largest, largest - 63, largest - 126, largest - 127, largest - 128, largest - 200, largest / 2 + 1,
          largest / 2, std::uint64_t{1} << 47U, std::uint64_t{80'000'000}}) {
        for (const std::uint64_t packedSize : {largest, largest / 2, std::uint64_t{1} << 60U, std::uint64_t{1000}}) {
            const TempFolder folder;
            const auto file = StepFile::open(folder.write("a.ifczip", wideEntry(Before, size, packedSize)));
            ASSERT_FALSE(file) << size << " from " << packedSize;
            EXPECT_THAT(file.error().message, HasSubstr("which no model does")) << size << " from " << packedSize;
        }
    }
}

/// What is packed is never more than the archive, so that a directory that names more allows no more.
TEST(ArchiveOfTooMuch, IsMeasuredByWhatIsReallyThere) {
    const std::string model = Before + std::string(400'000 - Before.size(), ' ');
    const std::uint64_t whole = wideEntry(model, 0, 0).size();
    for (const std::uint64_t packedSize : {whole, std::uint64_t{1} << 40U}) {
        for (const bool tooMuch : {false, true}) {
            const TempFolder folder;
            const std::uint64_t size = whole * 200 + 199 + (tooMuch ? 1 : 0);
            const auto file = StepFile::open(folder.write("a.ifczip", wideEntry(model, size, packedSize)));
            ASSERT_FALSE(file);
            EXPECT_THAT(file.error().message, HasSubstr(tooMuch ? "which no model does" : "damaged")) << packedSize;
        }
    }
}

/// A name that has the same hash as all others of that length: "Ab" and "BA" have the same.
std::string crowdedName(std::size_t number) {
    std::string name;
    for (std::size_t bit = 0; bit < 17; ++bit) name += (number >> bit & 1U) != 0 ? "Ab" : "BA";
    return name;
}

/// An archive of that many empty entries, and the model.
fs::path archiveOf(const TempFolder& folder, std::size_t entries, std::string (*nameOf)(std::size_t)) {
    std::string locals, directory;
    const auto add = [&](const std::string& name, const std::string& bytes, std::uint32_t sum) {
        const std::string common = little(20, 2) + little(0, 2) + little(0, 2) + little(0, 2) + little(0x21, 2) +
                                   little(sum, 4) + little(bytes.size(), 4) + little(bytes.size(), 4) +
                                   little(name.size(), 2) + little(0, 2);
        directory +=
            "PK\x01\x02" + little(20, 2) + common + std::string(2 + 2 + 2 + 4, '\0') + little(locals.size(), 4) + name;
        locals += "PK\x03\x04" + common + name + bytes;
    };
    for (std::size_t i = 0; i < entries; ++i) add(nameOf(i), "", 0);
    add("a.ifc", Before, sumOf(Before));
    const std::string count = little(entries + 1, 2);
    return folder.write("a.ifczip", locals + directory + "PK\x05\x06" + std::string(4, '\0') + count + count +
                                        little(directory.size(), 4) + little(locals.size(), 4) + little(0, 2));
}

/// libzip alone needs a quarter of a minute for 60,000 of them, and four times that for twice as many.
TEST(ArchiveOfManyNames, IsRefusedWhereTheyWereChosenToKeepProgramsBusy) {
    const TempFolder folder;
    const auto file = StepFile::open(archiveOf(folder, 60000, crowdedName));
    ASSERT_FALSE(file);
    EXPECT_THAT(file.error().message, HasSubstr("names were chosen to keep programs busy"));
}

TEST(ArchiveOfManyNames, IsOpenedWhereTheyAreThoseOfFiles) {
    std::string (*const namings[])(std::size_t) = {[](std::size_t i) { return "IMG_" + std::to_string(i) + ".jpg"; },
                                                   [](std::size_t i) {
                                                       return "photos/" + std::to_string(i / 1000) + "/" +
                                                              std::string(i % 100 + 1, 'x') + std::to_string(i);
                                                   },
                                                   [](std::size_t i) { return std::to_string(i * 65536); }};
    for (const auto naming : namings) {
        const TempFolder folder;
        const auto file = StepFile::open(archiveOf(folder, 60000, naming));
        EXPECT_TRUE(file) << file.error().message;
    }
}

TEST(ArchiveOfManyNames, IsOpenedWhateverTheyAreUpToTheNumberThatIsReadFast) {
    for (const std::size_t entries : {16382U, 16383U, 16384U}) {
        const TempFolder folder;
        EXPECT_EQ(static_cast<bool>(StepFile::open(archiveOf(folder, entries, crowdedName))), entries < 16384)
            << entries;
    }
}

}  // namespace
}  // namespace step_tests
