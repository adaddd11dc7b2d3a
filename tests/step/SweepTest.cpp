// The sweep finds what the reader of tokens would, with whatever vectors the processor has, and however a file is
// shared out among threads.

#include "model/step/reading/Indexer.hpp"
#include "model/step/syntax/Tokens.hpp"
#include "step/StepText.hpp"

#include <hwy/targets.h>
#include <rapidcheck/gtest.h>

#include <bit>

namespace step_tests {
namespace {

/// What stands in an index, by values.
struct Found {
    struct Instance {
        std::uint64_t offset;
        std::uint32_t length;
        std::string keyword;
        KeywordCode code;
        Slot byId;
        bool operator==(const Instance&) const = default;
    };
    std::vector<Instance> instances;
    std::vector<std::string> remarks;
    std::vector<std::uint64_t> sections;
    bool operator==(const Found&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Found& found) {
    for (const auto& instance : found.instances)
        out << instance.offset << '+' << instance.length << ' ' << instance.keyword << '\n';
    for (const std::string& remark : found.remarks) out << remark << '\n';
    return out;
}

InstanceId idAt(const char* text) {
    Cursor cursor(std::string_view(text, 40));
    return scanId(cursor);
}

constexpr Sharing Alone{1U << 20U, 1U << 20U, 0};

Found indexed(const std::string& text, const Sharing& sharing) {
    const std::string padded = text + std::string(SlackBytes, '\0');
    Index index(std::string_view(padded).substr(0, text.size()));
    const Status read = indexFile(index, {}, sharing);
    EXPECT_TRUE(read);
    Found found;
    for (Slot slot = 0; slot < index.places.size(); ++slot) {
        const Place place = index.places[slot];
        found.instances.push_back({place.where(), index.lengths[slot],
                                   std::string(index.keywords.text(place.keyword())), place.keyword(),
                                   index.ids.find(idAt(padded.data() + place.where()))});
    }
    for (const Remark& remark : index.remarks) found.remarks.push_back(std::to_string(remark.line) + remark.message);
    for (const Section& section : index.sections) {
        found.sections.insert(found.sections.end(), {section.begin, section.end, section.insertAt});
    }
    return found;
}

/// Runs with the vectors of one target; with those of the processor again at its end.
class WithTarget {
public:
    explicit WithTarget(std::int64_t target) { hwy::SetSupportedTargetsForTest(target); }
    WithTarget(const WithTarget&) = delete;
    WithTarget& operator=(const WithTarget&) = delete;
    ~WithTarget() { hwy::SetSupportedTargetsForTest(0); }
};

/// The targets that were compiled, and that this processor has.
std::vector<std::int64_t> targets() {
    std::vector<std::int64_t> all;
    for (std::int64_t left = hwy::SupportedTargets() & HWY_TARGETS; left != 0; left &= left - 1)
        all.push_back(left & -left);
    return all;
}

template <class T>
T one(const std::vector<T>& of) {
    return *rc::gen::elementOf(of);
}

/// A sound instance of any form. Its string holds what means something elsewhere.
std::string soundInstance() {
    static const std::vector<std::string> Ids{
        "#1", "#12", "#1234567", "#12345678", "#123456789", "#007", "#18446744073709551615"};
    static const std::vector<std::string> Keywords{"A",
                                                   "IFCWALL",
                                                   "IfcWall",
                                                   "IFCDOOR",
                                                   "IFCPROPERTYSET",
                                                   "!MINE",
                                                   "IFCPROPERTYSINGLEVALUE",
                                                   "IFCRELDEFINESBYPROPERTIES",
                                                   "IFCRELCONTAINEDINSPATIALSTRUCTURE",
                                                   "IFC_9"};
    static const std::vector<std::string> Blanks{"", "", "", " ", "\n", "\r\n", "\t", "/* ' */", "/*;\n#9=A();*/"};
    static const std::vector<std::string> Values{"$",
                                                 "*",
                                                 "1.5",
                                                 "#3",
                                                 ".T.",
                                                 "'plain'",
                                                 "'it''s'",
                                                 "''''",
                                                 "'a;b'",
                                                 "';\n#77=B();\n'",
                                                 "'/*'",
                                                 "'*/'",
                                                 "'='",
                                                 "(1,(2,3))",
                                                 "IFCLABEL('x')",
                                                 "\"0F\"",
                                                 "'\\X2\\00FC\\X0\\'",
                                                 "'#5=('",
                                                 "()"};
    std::string text = one(Blanks) + one(Ids) + one(Blanks) + "=" + one(Blanks) + one(Keywords) + one(Blanks) + "(";
    const int count = *rc::gen::inRange(0, 6);
    for (int i = 0; i < count; ++i) text += (i == 0 ? "" : ",") + one(Blanks) + one(Values);
    return text + one(Blanks) + ")" + one(Blanks) + ";" + one(Blanks);
}

std::string soundData() {
    std::string data;
    const int count = *rc::gen::inRange(0, 30);
    for (int i = 0; i < count; ++i) data += soundInstance() + (*rc::gen::inRange(0, 3) == 0 ? "" : "\n");
    return data;
}

/// Anything at all, much of it malformed.
std::string anyData() {
    static const std::vector<std::string> Pieces{"#",
                                                 "1",
                                                 "23=",
                                                 "=",
                                                 "A",
                                                 "IFCWALL",
                                                 "(",
                                                 ")",
                                                 "'",
                                                 "''",
                                                 ";",
                                                 ";\n#4=B();",
                                                 "/*",
                                                 "*/",
                                                 "\n",
                                                 "\r",
                                                 " ",
                                                 "$",
                                                 ",",
                                                 "\"",
                                                 "ENDSEC;",
                                                 "DATA;",
                                                 "\xE9",
                                                 "#5=IFCDOOR('x',$);\n",
                                                 "#6=IFCWALL();\n",
                                                 "!",
                                                 "\\",
                                                 "-",
                                                 "x"};
    std::string data;
    const int count = *rc::gen::inRange(0, 60);
    for (int i = 0; i < count; ++i) data += one(Pieces);
    return data + "\n";
}

/// Token by token, as far as the section goes.
std::vector<std::string> byTokens(const std::string& data) {
    std::vector<std::string> texts;
    Cursor cursor(data);
    while (skipBlanks(cursor) && !cursor.atEnd()) {
        const char* begin = cursor.at;
        InstanceHead head;
        if (!scanInstance(cursor, head, nullptr)) break;
        texts.emplace_back(begin, cursor.at);
    }
    return texts;
}

TEST(Sweep, IsCompiledForSeveralProcessors) {
    EXPECT_GE(targets().size(), 1U);
    EXPECT_GT(std::popcount(static_cast<std::uint64_t>(HWY_TARGETS)), 1);
}

RC_GTEST_PROP(Sweep, FindsWhatTheReaderOfTokensFinds, ()) {
    const std::string data = soundData();
    const std::string text = fileOf(data);
    for (const std::int64_t target : targets()) {
        const WithTarget with(target);
        std::vector<std::string> found;
        for (const auto& instance : indexed(text, Alone).instances)
            found.push_back(text.substr(instance.offset, instance.length));
        RC_ASSERT(found == byTokens(data));
    }
}

RC_GTEST_PROP(Sweep, FindsTheSameWithEveryProcessorsVectors, ()) {
    const std::string text = fileOf(*rc::gen::arbitrary<bool>() ? soundData() : anyData());
    const Found found = indexed(text, Alone);
    for (const std::int64_t target : targets()) {
        const WithTarget with(target);
        RC_ASSERT(indexed(text, Alone) == found);
    }
}

/// Stretches of a few bytes begin in strings, comments and behind the section's end, too.
RC_GTEST_PROP(SweepInThreads, FindsTheSame, ()) {
    const std::string text = fileOf(*rc::gen::arbitrary<bool>() ? soundData() : anyData());
    const std::size_t stretch = *rc::gen::inRange<std::size_t>(1, 400);
    const unsigned threads = *rc::gen::inRange(1U, 4U);
    RC_ASSERT(indexed(text, {stretch, 0, threads}) == indexed(text, Alone));
}

TEST(SweepInThreads, BeginsWhereItIsWorthwhile) {
    const std::string text = fileOf("#1=A();\n#2=B();\n");
    const Found found = indexed(text, Alone);
    const std::size_t size = text.size() - text.find("\n#1=");
    for (const std::size_t worthwhile : {size - 1, size, size + 1}) EXPECT_EQ(indexed(text, {8, worthwhile, 2}), found);
}

/// More keywords than a stretch keeps from the ones before it.
TEST(SweepInThreads, CountsKeywordsAsOneThreadDoes) {
    std::string data;
    for (int i = 1; i <= 9000; ++i) data += "#" + std::to_string(i) + "=K" + std::to_string(i % 4500) + "();\n";
    const std::string text = fileOf(data);
    const Found found = indexed(text, {4096, 0, 2});
    EXPECT_EQ(found, indexed(text, Alone));
    EXPECT_EQ(found.instances.size(), 9000U);
    EXPECT_EQ(found.instances.back().code, 4500 - 1);
}

TEST(SweepInThreads, LeavesAFileOfMoreKeywordsThanThereAreCodesAsOneThreadDoes) {
    std::string data;
    for (int i = 1; i <= 66'000; ++i) data += "#" + std::to_string(i) + "=K" + std::to_string(i) + "();\n";
    const std::string text = fileOf(data);
    const Found found = indexed(text, {1U << 16U, 0, 2});
    EXPECT_EQ(found, indexed(text, Alone));
    EXPECT_EQ(found.instances.size(), 66'000U);
    EXPECT_EQ(found.instances.back().code, NoKeyword);
}

/// The threads are there for the whole file, whatever sections it has.
TEST(SweepInThreads, TakesAFileOfManySections) {
    std::string text = "ISO-10303-21;\nHEADER;\nFILE_SCHEMA(('IFC4'));\nENDSEC;\n";
    for (int i = 1; i <= 20'000; ++i) text += "DATA;\n#" + std::to_string(i) + "=A();\nENDSEC;\n";
    text += "END-ISO-10303-21;\n";
    const Found found = indexed(text, {1U << 12U, 0, 2});
    EXPECT_EQ(found, indexed(text, Alone));
    EXPECT_EQ(found.sections.size(), 60'000U);
}

}  // namespace
}  // namespace step_tests
