#include "ResourceManager.hpp"
#include "Support.hpp"
#include "support/ScriptedView.hpp"
#include "support/TempFolder.hpp"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;
using testing_support::DebugOutput;
using testing_support::utf8;

namespace {

/// Sets the user's locale for as long as it lives.
class Locale {
public:
    explicit Locale(const char* all, const char* messages = nullptr, const char* lang = nullptr) {
        set("LC_ALL", all, before_[0]);
        set("LC_MESSAGES", messages, before_[1]);
        set("LANG", lang, before_[2]);
    }
    ~Locale() {
        std::optional<std::string> ignored;
        const char* const names[] = {"LC_ALL", "LC_MESSAGES", "LANG"};
        for (std::size_t i = 0; i < 3; ++i) set(names[i], before_[i] ? before_[i]->c_str() : nullptr, ignored);
    }
    Locale(const Locale&) = delete;
    Locale& operator=(const Locale&) = delete;

private:
    static void set(const char* name, const char* value, std::optional<std::string>& kept) {
        if (const char* const present = std::getenv(name)) kept = present;
        if (value == nullptr)
            unsetenv(name);
        else
            setenv(name, value, 1);
    }

    std::optional<std::string> before_[3];
};

class ResourceTest : public ::testing::Test {
protected:
    ~ResourceTest() override { RSCloseResourceFile(module_); }

    /// Writes a definition file below the bundle's resources.
    void define(const std::string& name, std::string_view text) {
        const fs::path relative = "Contents/Resources/" + name;
        fs::create_directories((bundle_.path() / relative).parent_path());
        bundle_.write(relative.native(), text);
    }
    bool open() {
        RSCloseResourceFile(module_);
        output_.text.clear();
        module_ = RSOpenResourceFile(bundle_.path().c_str());
        return module_ != InvalidResModule;
    }
    std::string text(Int32 list, Int32 index) {
        GS::UniString result("before");
        const bool found = RSGetIndString(&result, list, index, module_);
        return found ? utf8(result) : "none" + utf8(result);
    }
    std::string fixedText(Int32 list, Int32 index) {
        GS::UniString result("before");
        const bool found = RSGetIndFixString(&result, list, index, module_);
        return found ? utf8(result) : "none" + utf8(result);
    }

    testing_support::TempFolder bundle_;
    const Locale locale_{"C"};
    DebugOutput output_;
    GSResModule module_ = InvalidResModule;
};

}  // namespace

TEST_F(ResourceTest, TextsAreReadByListAndIndex) {
    define("a.res",
           "# texts\nstrings 32000\n    \"Quillmarsh Updates\"\n\n    \"what it does\"\n"
           "fixed 32600\n\t\"never translated\"\n"
           "menu 32500 \"Quillmarsh\"\n\"first item\"\n\"second item\"\n");
    ASSERT_TRUE(open()) << output_.text;
    EXPECT_EQ(text(32000, 1), "Quillmarsh Updates");
    EXPECT_EQ(text(32000, 2), "what it does");
    EXPECT_EQ(text(32500, 2), "second item");
    EXPECT_EQ(fixedText(32600, 1), "never translated");
    EXPECT_EQ(utf8(frontend::menuTitle(module_, 32500)), "Quillmarsh");
    EXPECT_EQ(frontend::stringList(module_, 32500).size(), 2U);
    EXPECT_EQ(output_.text, "");
}

TEST_F(ResourceTest, WhatIsNotThereIsAnsweredWithAnEmptyText) {
    define("a.res", "strings 1\n\"one\"\nfixed 2\n\"two\"\nstrings 3\n");
    ASSERT_TRUE(open());
    for (const Int32 index : {0, -1, 2, INT32_MAX, INT32_MIN}) EXPECT_EQ(text(1, index), "none") << index;
    for (const Int32 list : {0, -1, 3, 4, INT32_MAX, INT32_MIN}) EXPECT_EQ(text(list, 1), "none") << list;
    EXPECT_EQ(text(2, 1), "none") << "a fixed list is no translated one";
    EXPECT_EQ(fixedText(1, 1), "none") << "and the other way round";
    EXPECT_FALSE(RSGetIndString(nullptr, 1, 1, module_));
    const GSResModule known = module_;
    for (const GSResModule other : {GSResModule{0}, InvalidResModule, GSResModule{INT64_MAX}, known + 1}) {
        module_ = other;
        EXPECT_EQ(text(1, 1), "none") << other;
        EXPECT_TRUE(frontend::stringList(other, 1).empty());
        EXPECT_TRUE(frontend::menuTitle(other, 1).IsEmpty());
        EXPECT_EQ(RSCloseResourceFile(other), RSErrNoModule);
    }
    module_ = known;
}

TEST_F(ResourceTest, ClosedModuleIsUnknownAndItsNumberNotGivenAgain) {
    define("a.res", "strings 1\n\"one\"\n");
    ASSERT_TRUE(open());
    const GSResModule closed = module_;
    RSRemoveModuleImageCache(closed);
    EXPECT_EQ(RSCloseResourceFile(closed), NoError);
    EXPECT_EQ(RSCloseResourceFile(closed), RSErrNoModule);
    ASSERT_TRUE(open());
    EXPECT_NE(module_, closed);
}

TEST_F(ResourceTest, EscapesAreResolved) {
    struct {
        const char *written, *expected;
    } const cases[] = {{R"("")", ""},
                       {R"("a \"b\" \\c")", "a \"b\" \\c"},
                       {R"("a\nb\tc")", "a\nb\tc"},
                       {R"("\u00fc\u20AC")", "\xC3\xBC\xE2\x82\xAC"},
                       {R"("\uD83C\uDFE0")", "\xF0\x9F\x8F\xA0"},
                       {"\"Gr\xC3\xBC\xC3\x9F # here\"", "Gr\xC3\xBC\xC3\x9F # here"}};
    for (const auto& each : cases) {
        define("a.res", std::string("strings 1\n") + each.written + "\r\n");
        ASSERT_TRUE(open()) << each.written << output_.text;
        EXPECT_EQ(text(1, 1), each.expected);
    }
}

TEST_F(ResourceTest, FilesOfTheFolderAreReadInNameOrder) {
    define("b.res", "\xEF\xBB\xBFstrings 2\n\"b\"\n");
    define("a.res", "strings 1\n\"a\"");
    define("c.txt", "no definition");
    ASSERT_TRUE(open()) << output_.text;
    EXPECT_EQ(text(1, 1), "a");
    EXPECT_EQ(text(2, 1), "b");
    define("c.res", "strings 1\n\"again\"\n");
    EXPECT_FALSE(open());
    const std::string folder = (bundle_.path() / "Contents/Resources").string();
    EXPECT_EQ(output_.text, folder + "/c.res:1: the number is taken by the list of " + folder + "/a.res:1\n");
}

TEST_F(ResourceTest, FaultIsReportedWithItsLineAndRefused) {
    struct {
        const char *line, *message;
    } const cases[] = {
        {"strings", "the list's number is missing"},
        {"strings x", "the list's number is 'x', not a number from 1 to 32767"},
        {"strings 0", "the list's number is '0', not a number from 1 to 32767"},
        {"strings 32768", "the list's number is '32768', not a number from 1 to 32767"},
        {"strings 9 \"Title\"", "something follows the end of the definition"},
        {"strings 1", "the number is taken by the list of FILE:1"},
        {"menu 1 \"Title\"", "the number is taken by the list of FILE:1"},
        {"menu 9", "the menu's title in quotes is missing"},
        {"string 9", "unknown definition 'string'"},
        {"\"text", "the text has no closing quote"},
        {"\"text\\\"", "the text has no closing quote"},
        {"\"a\\qb\"", "an unknown escape: use \\\" \\\\ \\n \\t or \\uXXXX"},
        {"\"a\\", "an unknown escape: use \\\" \\\\ \\n \\t or \\uXXXX"},
        {"\"\\u12\"", "\\u needs four hexadecimal digits, not all zero"},
        {"\"\\u0000\"", "\\u needs four hexadecimal digits, not all zero"},
        {"\"\\u+123\"", "\\u needs four hexadecimal digits, not all zero"},
        {"\"a\"b", "a blank is missing behind a text"},
        {"\"a\" \"b\"", "something follows the end of the definition"},
        {"\"a\" # b", "something follows the end of the definition"},
        {"\"Gr\xFC\xDF\"", "the line is not UTF-8 text"},
        {"button 1 at 0 0 size 1 1 \"x\"", "an item outside of a dialog"},
        {"dialog 9", "the dialog's title in quotes is missing"},
        {"dialog 9 \"Title\"", "size is missing"},
        {"dialog 9 \"Title\" at 1 1", "'at' stands where 'size' is expected"},
        {"dialog 9 \"Title\" size 100", "the height is missing"},
        {"dialog 9 \"Title\" size 0 100", "the width is '0', not a number from 1 to 32767"},
        {"dialog 9 \"Title\" size 100 100 grow", "the minimum width is missing"},
        {"dialog 9 \"Title\" size 100 100 shrink 1 1", "'shrink' stands where 'grow' is expected"},
        {"dialog 9 \"Title\" size 100 100 grow 101 100", "the minimum size exceeds the size"},
        {"dialog 9 \"Title\" size 100 100 grow 9 9 9", "something follows the end of the definition"},
        {"dialog 7 \"Title\" size 100 100", "the number is taken by the dialog of FILE:3"},
    };
    for (const auto& each : cases) {
        define("a.res",
               std::string("strings 1\n\"one\"\ndialog 7 \"Seven\" size 9 9\nstrings 2\n\"two\"\n") + each.line + "\n");
        EXPECT_FALSE(open()) << each.line;
        const std::string file = (bundle_.path() / "Contents/Resources/a.res").string();
        std::string message = each.message;
        if (const auto at = message.find("FILE"); at != message.npos) message.replace(at, 4, file);
        EXPECT_EQ(output_.text, file + ":6: " + message + "\n") << each.line;
    }
}

TEST_F(ResourceTest, FaultInADialogsItemIsReported) {
    struct {
        const char *line, *message;
    } const cases[] = {
        {"button", "the item's number is missing"},
        {"button 0 at 0 0 size 1 1", "the item's number is '0', not a number from 1 to 32767"},
        {"button 2 size 1 1", "'size' stands where 'at' is expected"},
        {"button 2 at -1 0 size 1 1", "the left edge is '-1', not a number from 0 to 32767"},
        {"button 2 at 0 1.5 size 1 1", "the top edge is '1.5', not a number from 0 to 32767"},
        {"button 2 at 0 0 size 1", "the height is missing"},
        {"button 2 at 30000 0 size 30000 1", "the item ends too far out"},
        {"list 2 at 0 0 size 1 1 \"text\"", "something follows the end of the definition"},
        {"edit 2 at 0 0 size 1 1 text", "something follows the end of the definition"},
        {"text 1 at 0 0 size 1 1 \"again\"", "the number is taken by the item of FILE:2"},
        {"\"text\"", "a text outside of a string list"},
    };
    for (const auto& each : cases) {
        define("a.res", std::string("dialog 7 \"Seven\" size 9 9\nbutton 1 at 0 0 size 1 1\n") + each.line + "\n");
        EXPECT_FALSE(open()) << each.line;
        const std::string file = (bundle_.path() / "Contents/Resources/a.res").string();
        std::string message = each.message;
        if (const auto at = message.find("FILE"); at != message.npos) message.replace(at, 4, file);
        EXPECT_EQ(output_.text, file + ":3: " + message + "\n") << each.line;
    }
}

TEST_F(ResourceTest, EveryFaultIsReportedOnceAndItsFollowersAreNot) {
    define("a.res", "menu x \"Title\"\n\"first\"\n\"second\"\ndialog 0 \"Title\" size 1 1\nbutton 1 at 0 0 size 1 1\n");
    define("b.res", "strings 5 5\n\"first\"\ndialgo 5\nbutton 1 at 0 0 size 1 1\nstring 6\n\"first\"\n");
    EXPECT_FALSE(open());
    EXPECT_EQ(std::count(output_.text.begin(), output_.text.end(), '\n'), 5) << output_.text;
}

TEST_F(ResourceTest, WhatCannotBeReadIsRefused) {
    EXPECT_FALSE(open()) << "there is no resource folder";
    EXPECT_EQ(output_.text, (bundle_.path() / "Contents/Resources").string() + ":0: the folder cannot be read\n");
    EXPECT_EQ(RSOpenResourceFile(nullptr), InvalidResModule);
    EXPECT_EQ(RSOpenResourceFile(""), InvalidResModule);
    fs::create_directories(bundle_.path() / "Contents/Resources/folder.res");
    EXPECT_FALSE(open());
    EXPECT_NE(output_.text.find("folder.res:0: the file cannot be read"), std::string::npos) << output_.text;
}

TEST_F(ResourceTest, FolderWithoutDefinitionsIsAnEmptyModule) {
    fs::create_directories(bundle_.path() / "Contents/Resources");
    ASSERT_TRUE(open());
    EXPECT_EQ(text(1, 1), "none");
}

RC_GTEST_FIXTURE_PROP(ResourceTest, AnyFileIsTakenOrItsFaultsAreReported, ()) {
    const std::vector<std::string> words = {
        "strings", "menu", "fixed", "dialog", "button", "edit", "text",     "list", "at", "size", "grow", "1", "2",
        "32767",   "-1",   "x",     "#",      "\n",     "\n",   "\"text\"", "\"",   "\\", "\xFF", "\t",   "\r"};
    std::string content;
    for (const std::string& word : *rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(words)))
        content += word + " ";
    define("a.res", content);
    const bool taken = open();
    RC_ASSERT(taken == output_.text.empty());
}

// --- The user's language -------------------------------------------------------------------------------------------

namespace {

class TranslationTest : public ResourceTest {
protected:
    TranslationTest() {
        define("a.res",
               "strings 1\n\"one\"\n\"two\"\n\"three\"\nfixed 2\n\"fixed\"\nmenu 3 \"Menu\"\n\"item\"\n"
               "dialog 4 \"Title\" size 100 50\nbutton 1 at 1 2 size 3 4 \"Close\"\n");
    }
};

}  // namespace

TEST_F(TranslationTest, TextsOfTheUsersLanguageReplaceTheOriginals) {
    define("de.lproj/a.res", "strings 1\n\"eins\"\n\"\"\nmenu 3 \"Men\xC3\xBC\"\n\"Punkt\"\n");
    const Locale german("de_DE.UTF-8");
    ASSERT_TRUE(open()) << output_.text;
    EXPECT_EQ(text(1, 1), "eins");
    EXPECT_EQ(text(1, 2), "two") << "an empty text stays the original's";
    EXPECT_EQ(text(1, 3), "three") << "and so does one that is not there";
    EXPECT_EQ(text(3, 1), "Punkt");
    EXPECT_EQ(utf8(frontend::menuTitle(module_, 3)), "Men\xC3\xBC");
    EXPECT_EQ(fixedText(2, 1), "fixed");
}

TEST_F(TranslationTest, DialogKeepsItsPlacesAndGetsTheUsersTexts) {
    define("de.lproj/a.res",
           "dialog 4 \"Titel\" size 9 9\nbutton 1 at 9 9 size 9 9 \"Schlie\xC3\x9F"
           "en\"\n");
    const Locale german("de_DE.UTF-8");
    ASSERT_TRUE(open()) << output_.text;
    testing_support::ScriptedView view;
    view.inNextDialog([](frontend::Dialog& dialog) {
        EXPECT_EQ(utf8(dialog.title()), "Titel");
        EXPECT_EQ(dialog.width(), 100);
        EXPECT_EQ(utf8(dialog.item(1)->text),
                  "Schlie\xC3\x9F"
                  "en");
        EXPECT_EQ(dialog.item(1)->rect, (frontend::Rect{1, 2, 4, 6}));
    });
    DGModalDialog(
        module_, 4, module_, [](Int16, Int16, Int16, DGUserData, DGMessageData) { return Int16{0}; }, 0);
}

TEST_F(TranslationTest, LanguageIsTheFirstVariableThatIsSet) {
    define("de.lproj/a.res", "strings 1\n\"eins\"\n");
    define("fr.lproj/a.res", "strings 1\n\"un\"\n");
    struct {
        const char *all, *messages, *lang, *expected;
    } const cases[] = {{"de_DE.UTF-8", "fr_FR", "fr_FR", "eins"},
                       {nullptr, "fr_FR", "de_DE", "un"},
                       {"", "", "fr", "un"},
                       {nullptr, nullptr, "de@euro", "eins"},
                       {nullptr, nullptr, "DE_AT", "eins"},
                       {nullptr, nullptr, "it_IT", "one"},
                       {nullptr, nullptr, nullptr, "one"},
                       {"C", "de_DE", "de_DE", "one"},
                       {"C.UTF-8", "de_DE", "de_DE", "one"},
                       {"POSIX", nullptr, "de_DE", "one"},
                       {"den", nullptr, nullptr, "one"},
                       {"d", nullptr, nullptr, "one"},
                       {"..", nullptr, nullptr, "one"}};
    for (const auto& each : cases) {
        const Locale user(each.all, each.messages, each.lang);
        ASSERT_TRUE(open()) << output_.text;
        EXPECT_EQ(text(1, 1), each.expected) << (each.all != nullptr ? each.all : "-");
    }
}

TEST_F(TranslationTest, TranslationOfWhatIsNotThereIsRefused) {
    const Locale german("de_DE");
    for (const char* const wrong :
         {"strings 9\n\"neun\"\n", "menu 1 \"Menu\"\n", "strings 1\n\"1\"\n\"2\"\n\"3\"\n\"4\"\n",
          "fixed 2\n\"fest\"\n", "dialog 9 \"Titel\" size 1 1\n",
          "dialog 4 \"Titel\" size 1 1\nbutton 2 at 1 1 size 1 1\n",
          "dialog 4 \"Titel\" size 1 1\ntext 1 at 1 1 size 1 1\n", "nonsense\n"}) {
        define("de.lproj/a.res", wrong);
        EXPECT_FALSE(open()) << wrong;
        EXPECT_NE(output_.text.find("de.lproj/a.res:"), std::string::npos) << wrong;
    }
    const Locale other("en_US");
    EXPECT_TRUE(open()) << "a language that nobody asked for is not read";
}
