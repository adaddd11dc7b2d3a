// The load-time binding as the host sees it: what the image shows, the record, the table, the wrappers, start and end.

#include "FakeHost.hpp"
#include "HostCalls.hpp"

#include <gmock/gmock.h>

#include <elf.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

using namespace testing_support;
using ::testing::HasSubstr;

namespace fs = std::filesystem;

namespace {

fs::path imageOf(const fs::path& bundle) {
    return bundle / "Contents" / "Linux" / bundle.stem();
}

/// A copy of the add-on's bundle: an image of its own, with module data of its own.
fs::path copyBundle(const fs::path& folder) {
    fs::create_directories(folder);
    const fs::path copy = folder / realBundle().filename();
    fs::copy(realBundle(), copy, fs::copy_options::recursive);
    return copy;
}

std::string addOnName(const RawAddOn& addOn) {
    API_EnvirParams envir{};
    EXPECT_EQ(addOn.exported.checkEnvironment(&envir), APIAddon_Normal);
    return envir.addOnInfo.name;
}

// --- What the image shows ------------------------------------------------------------------------------------------

template <class Record>
Record recordAt(const std::string& bytes, std::size_t offset) {
    Record record;
    EXPECT_LE(offset + sizeof record, bytes.size());
    std::memcpy(&record, bytes.data() + offset, sizeof record);
    return record;
}

std::vector<Elf64_Shdr> sectionsOf(const std::string& image) {
    const auto header = recordAt<Elf64_Ehdr>(image, 0);
    std::vector<Elf64_Shdr> sections;
    for (std::size_t i = 0; i < header.e_shnum; ++i)
        sections.push_back(recordAt<Elf64_Shdr>(image, header.e_shoff + i * sizeof(Elf64_Shdr)));
    return sections;
}

/// The names that an image offers to others: the defined symbols of its dynamic table.
std::vector<std::string> exportedNames(const fs::path& file) {
    const std::string image = bytesOf(file);
    const std::vector<Elf64_Shdr> sections = sectionsOf(image);
    const auto table = std::find_if(sections.begin(), sections.end(), [](auto& s) { return s.sh_type == SHT_DYNSYM; });
    if (table == sections.end()) return {};
    std::vector<std::string> names;
    for (std::size_t at = 0; at < table->sh_size; at += sizeof(Elf64_Sym)) {
        const auto symbol = recordAt<Elf64_Sym>(image, table->sh_offset + at);
        if (symbol.st_shndx == SHN_UNDEF) continue;
        names.emplace_back(image.c_str() + sections[table->sh_link].sh_offset + symbol.st_name);
    }
    return names;
}

TEST(Image, ShowsTheFourEntryPointsAndNothingElse) {
    EXPECT_THAT(
        exportedNames(imageOf(realBundle())),
        ::testing::UnorderedElementsAre("GetExportedFuncAddrs", "SetImportedFuncAddrs", "GSInitImage", "GSTermImage"));
}

// --- The record of exported functions ------------------------------------------------------------------------------

TEST(ExportedRecord, HoldsVersionsAndWrappersAndIsZeroElsewhere) {
    RawAddOn addOn;
    const auto fill = reinterpret_cast<GetExportedFuncAddrsProc*>(addOn.symbol("GetExportedFuncAddrs"));
    alignas(8) unsigned char bytes[136];
    std::memset(bytes, 0xEE, sizeof bytes);
    fill(reinterpret_cast<ExportedFunctions*>(bytes));

    const auto number = [&](std::size_t at) { return recordAt<UInt32>({reinterpret_cast<char*>(bytes), 120}, at); };
    EXPECT_EQ(number(0), 0x00130001U);
    EXPECT_EQ(number(4), 0U);
    EXPECT_EQ(number(40), 19000U);
    for (const std::size_t at : {8U, 16U, 24U, 32U})
        EXPECT_NE(recordAt<void*>({reinterpret_cast<char*>(bytes), 120}, at), nullptr) << at;
    EXPECT_TRUE(std::all_of(bytes + 44, bytes + 120, [](unsigned char byte) { return byte == 0; }));
    EXPECT_TRUE(std::all_of(bytes + 120, bytes + 136, [](unsigned char byte) { return byte == 0xEE; }));
}

// --- The host's table ----------------------------------------------------------------------------------------------

/// A table that ends where readable memory ends.
class TableAtTheEdge {
public:
    TableAtTheEdge() : page_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))) {
        memory_ =
            static_cast<char*>(mmap(nullptr, 2 * page_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        mprotect(memory_ + page_, page_, PROT_NONE);
    }
    ~TableAtTheEdge() { munmap(memory_, 2 * page_); }
    TableAtTheEdge(const TableAtTheEdge&) = delete;
    TableAtTheEdge& operator=(const TableAtTheEdge&) = delete;

    const HostFunction* table() const { return reinterpret_cast<HostFunction*>(memory_ + page_ - 4016); }

private:
    std::size_t page_;
    char* memory_;
};

TEST(HostTable, IsReadForExactlyItsSize) {
    RawAddOn addOn;
    const auto setImported = reinterpret_cast<SetImportedFuncAddrsProc*>(addOn.symbol("SetImportedFuncAddrs"));
    EXPECT_EQ(setImported(TableAtTheEdge().table()), NoError);
    EXPECT_EQ(addOn.exported.registerInterface(), APIERR_NOTSUPPORTED);
}

TEST(HostTable, EmptySlotsAnswerNotSupported) {
    DebugCapture debug;
    RawAddOn addOn;
    EXPECT_EQ(addOn.bind(), NoError);
    EXPECT_EQ(addOn.exported.registerInterface(), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn.initialize(&addOn), APIERR_NOTSUPPORTED);
    EXPECT_EQ(addOn.exported.freeData(), NoError);
}

// --- The wrappers --------------------------------------------------------------------------------------------------

TEST(UnboundAddOn, RefusesEveryCallAndDoesNothing) {
    TempFolder folder;
    DebugCapture debug;
    RawAddOn addOn(copyBundle(folder.path()));
    API_EnvirParams envir{};
    EXPECT_EQ(addOn.exported.checkEnvironment(&envir), APIAddon_DontRegister);
    EXPECT_STREQ(envir.addOnInfo.name, "");
    EXPECT_EQ(addOn.exported.registerInterface(), APIERR_GENERAL);
    EXPECT_EQ(addOn.initialize(&addOn), APIERR_GENERAL);
    EXPECT_EQ(addOn.exported.freeData(), APIERR_GENERAL);
    EXPECT_EQ(debug.text, "");
}

TEST(BoundAddOn, HandsItsClientHandleToTheHost) {
    static void* handed = nullptr;
    RawAddOn addOn;
    addOn.put<HostSlot::Install_MenuHandler>([](void* client, Int32, APIMenuCommandProc*) -> GSErrCode {
        handed = client;
        return NoError;
    });
    addOn.bind();
    EXPECT_EQ(addOn.initialize(&addOn), NoError);
    EXPECT_EQ(handed, &addOn);
    addOn.exported.freeData();
}

// --- Start and end of the image ------------------------------------------------------------------------------------

TEST(ImageStart, OpensTheResourcesOfItsOwnBundle) {
    TempFolder folder;
    RawAddOn addOn(copyBundle(folder.path() / "Ünïcode 施工"));
    addOn.bind();
    EXPECT_EQ(addOnName(addOn), "Quillmarsh Updates");
}

TEST(ImageStart, WaitsWhereTheRuntimeAsksForIt) {
    TempFolder folder;
    frontend::deferImageStarts(true);
    RawAddOn addOn(copyBundle(folder.path()));
    addOn.bind();
    EXPECT_EQ(addOnName(addOn), "");
    frontend::runDelayedStarts();
    EXPECT_EQ(addOnName(addOn), "Quillmarsh Updates");
}

TEST(ImageStart, LeavesNoCoreFoundationObjectBehind) {
    TempFolder folder;
    const std::size_t before = frontend::liveCoreFoundationObjects();
    RawAddOn addOn(copyBundle(folder.path()));
    EXPECT_EQ(frontend::liveCoreFoundationObjects(), before);
}

TEST(ImageStart, WithoutAPathHasNoResourcesAndLeaksNothing) {
    for (const char* function : {"CFURLCopyFileSystemPath", "CFStringCreateMutableCopy"}) {
        TempFolder folder;
        const NoCoreFoundation missing(function);
        const std::size_t before = frontend::liveCoreFoundationObjects();
        RawAddOn addOn(copyBundle(folder.path()));
        addOn.bind();
        EXPECT_EQ(addOnName(addOn), "") << function;
        EXPECT_EQ(frontend::liveCoreFoundationObjects(), before) << function;
    }
}

TEST(ImageStart, NeedsNoFileNameForItsResources) {
    TempFolder folder;
    const NoCoreFoundation missing("CFURLCopyLastPathComponent");
    const std::size_t before = frontend::liveCoreFoundationObjects();
    RawAddOn addOn(copyBundle(folder.path()));
    addOn.bind();
    EXPECT_EQ(addOnName(addOn), "Quillmarsh Updates");
    EXPECT_EQ(frontend::liveCoreFoundationObjects(), before);
}

TEST(ImageStart, FileNameThatDoesNotFitDoesNotMatterToThePath) {
    DebugCapture debug;
    const std::string folderName = "/" + std::string(300, 'x');
    const ScriptedBundlePath path(folderName + "/ZUNAC.bundle");
    FakeHost host;
    EXPECT_EQ(host.addOn.initialize(&host.client), NoError);
    EXPECT_THAT(debug.text, ::testing::HasSubstr("Additional Help at: \"" + folderName + "\"\n"));
}

/// A folder whose bundle has a path of exactly this many bytes.
fs::path folderForBundlePathOf(std::size_t length, const fs::path& root) {
    fs::path folder = root;
    const std::size_t bundle = 1 + realBundle().filename().string().size();
    while (folder.string().size() + bundle < length) {
        const std::size_t missing = length - folder.string().size() - bundle - 1;
        // The last name must not be left with no character at all.
        folder /= std::string(missing > 200 ? 100 : missing, 'd');
    }
    return folder;
}

TEST(ImageStart, LongestBundlePathIsKnown) {
    TempFolder folder;
    const fs::path bundle = copyBundle(folderForBundlePathOf(1023, folder.path()));
    ASSERT_EQ(bundle.string().size(), 1023U);
    RawAddOn addOn(bundle);
    addOn.bind();
    EXPECT_EQ(addOnName(addOn), "Quillmarsh Updates");
}

TEST(ImageStart, LongerBundlePathIsNoPathAndLeaksNothing) {
    TempFolder folder;
    DebugCapture debug;
    const std::size_t before = frontend::liveCoreFoundationObjects();
    const fs::path bundle = copyBundle(folderForBundlePathOf(1024, folder.path()));
    ASSERT_EQ(bundle.string().size(), 1024U);
    RawAddOn addOn(bundle);
    addOn.bind();
    EXPECT_EQ(addOnName(addOn), "");
    addOn.initialize(&addOn);
    EXPECT_THAT(debug.text, HasSubstr("helpLoc is error\nZUNACAddon:: Additional Help at: \"\"\n"));
    EXPECT_EQ(frontend::liveCoreFoundationObjects(), before);
    addOn.exported.freeData();
}

TEST(ImageEnd, IsSilentAfterARegularEnd) {
    DebugCapture debug;
    {
        RawAddOn addOn;
        addOn.bind();
        addOn.initialize(&addOn);
        addOn.exported.freeData();
        debug.text.clear();
    }
    EXPECT_EQ(debug.text, "");
}

TEST(ImageEnd, ReportsAHostThatNeverEndedItsUse) {
    DebugCapture debug;
    {
        RawAddOn addOn;
        addOn.bind();
        addOn.initialize(&addOn);
        debug.text.clear();
    }
    EXPECT_EQ(debug.text, "Abnormal add-on termination (\"" + realBundle().string() + "\")\n");
    DG::UnregisterAdditionalHelpLocation(0x58703953, -1312990621);
}

TEST(ImageEnd, ClosesTheResources) {
    RawAddOn* addOn = new RawAddOn;
    addOn->bind();
    const GSResModule last = RSOpenResourceFile(realBundle().c_str());  // Modules are numbered in order.
    RSCloseResourceFile(last);
    delete addOn;
    for (GSResModule module = 1; module < last; ++module) EXPECT_EQ(RSCloseResourceFile(module), RSErrNoModule);
}

}  // namespace
