// Texts for people: put together from patterns, looked up in a language, and never lost where that is at fault.

#include "text/Message.hpp"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using text::counted;
using text::message;
using text::phrase;

/// A language for the tests' own texts; what it does not know stays as it is.
std::string toGerman(const char* english) {
    static const std::map<std::string_view, std::string> texts{
        {"cannot open {}: {}", "{} kann nicht geöffnet werden: {}"},
        {"{} of {}", "von {1} sind es {0}"},
        {"{0} is {0}", "{0} ist {0}"},
        {"{} row", "{} Zeile"},
        {"{} rows", "{} Zeilen"},
        {"a folder", "ein Ordner"},
        {"it is {}", "das ist {}"},
        {"one place too few: {}", "ein Platz zu wenig"},
        {"one place too many: {}", "ein Platz zu viel: {} {}"},
        {"another place: {}", "ein anderer Platz: {1}"},
        {"both kinds: {} {}", "beide Arten: {} {1}"},
        {"twice instead: {} {}", "stattdessen doppelt: {0} {0}"},
    };
    const auto found = texts.find(english);
    return found == texts.end() ? english : found->second;
}

class Messages : public testing::Test {
protected:
    void TearDown() override { text::setTranslator(nullptr); }
};

TEST_F(Messages, AreEnglishWithoutALanguage) {
    EXPECT_EQ(message("there is no model"), "there is no model");
    EXPECT_EQ(message("cannot open {}: {}", std::string("a.ifc"), "no rights"), "cannot open a.ifc: no rights");
    EXPECT_EQ(message("{1}, then {0}", std::string_view("b"), "a"), "a, then b");
    EXPECT_EQ(message("{0} is {0}", "a"), "a is a");
}

TEST_F(Messages, TakeWholeNumbersOfEverySize) {
    EXPECT_EQ(message("{} {} {}", -1, 32767U, UINT64_MAX), "-1 32767 18446744073709551615");
}

TEST_F(Messages, KeepBracesThatArePlacesOfNothing) {
    EXPECT_EQ(message("the value holds a '{', which ends {}", "it"), "the value holds a '{', which ends it");
    EXPECT_EQ(message("{x} {10} { } } {"), "{x} {10} { } } {");
}

TEST_F(Messages, TakeArgumentsAsTheyAre) {
    EXPECT_EQ(message("{} and {}", "{}", "{1}%1\n"), "{} and {1}%1\n");
    EXPECT_EQ(message("<{}>", ""), "<>");
}

TEST_F(Messages, StandInTheLanguageThatWasSet) {
    text::setTranslator(&toGerman);
    EXPECT_EQ(message("cannot open {}: {}", "a.ifc", 5), "a.ifc kann nicht geöffnet werden: 5");
    EXPECT_EQ(message("{} of {}", 2, 14), "von 14 sind es 2");
    EXPECT_EQ(message("{0} is {0}", "a"), "a ist a");
    text::setTranslator(nullptr);
    EXPECT_EQ(message("{} of {}", 2, 14), "2 of 14");
}

TEST_F(Messages, StayEnglishWhereTheLanguageLacksThem) {
    text::setTranslator(&toGerman);
    EXPECT_EQ(message("unheard of: {}", 1), "unheard of: 1");
    EXPECT_EQ(phrase("unheard of").text(), "unheard of");
}

TEST_F(Messages, StayEnglishWhereTheTranslationHasOtherPlaces) {
    text::setTranslator(&toGerman);
    EXPECT_EQ(message("one place too few: {}", 1), "one place too few: 1");
    EXPECT_EQ(message("one place too many: {}", 1), "one place too many: 1");
    EXPECT_EQ(message("another place: {}", 1), "another place: 1");
    EXPECT_EQ(message("both kinds: {} {}", 1, 2), "both kinds: 1 2");
    EXPECT_EQ(message("twice instead: {} {}", 1, 2), "twice instead: 1 2");
}

TEST_F(Messages, DoNotTranslateWhatIsPutIn) {
    text::setTranslator(&toGerman);
    EXPECT_EQ(message("it is {}", "a folder"), "das ist a folder");
    EXPECT_EQ(message("it is {}", phrase("a folder")), "das ist ein Ordner");
    EXPECT_EQ(message("it is {}", text::Phrase("a folder")), "das ist ein Ordner");
}

TEST_F(Messages, CountWithOneTextForOneAndAnotherForMore) {
    EXPECT_EQ(counted("{} row", "{} rows", 0), "0 rows");
    EXPECT_EQ(counted("{} row", "{} rows", 1), "1 row");
    EXPECT_EQ(counted("{1} has {0} row", "{1} has {0} rows", 2, "it"), "it has 2 rows");
    text::setTranslator(&toGerman);
    EXPECT_EQ(counted("{} row", "{} rows", 1), "1 Zeile");
    EXPECT_EQ(counted("{} row", "{} rows", 2), "2 Zeilen");
}

TEST_F(Messages, KeepTheEnglishOfAPhraseForFiles) {
    text::setTranslator(&toGerman);
    const text::Phrase folder = phrase("a folder");
    EXPECT_EQ(folder.text(), "ein Ordner");
    EXPECT_STREQ(folder.english(), "a folder");
    EXPECT_EQ(folder, phrase("a folder"));
    EXPECT_FALSE(folder == phrase("a file"));
    EXPECT_FALSE(text::Phrase());
    EXPECT_EQ(text::Phrase().text(), "");
}

TEST_F(Messages, AreSaidOnSeveralThreadsWhileTheLanguageChanges) {
    constexpr int Rounds = 2000;
    std::vector<std::thread> speakers;
    for (int i = 0; i < 4; ++i) {
        speakers.emplace_back([] {
            for (int round = 0; round < Rounds; ++round) {
                const std::string said = counted("{} row", "{} rows", 2);
                ASSERT_TRUE(said == "2 rows" || said == "2 Zeilen") << said;
            }
        });
    }
    for (int round = 0; round < Rounds; ++round) text::setTranslator(round % 2 == 0 ? &toGerman : nullptr);
    for (std::thread& speaker : speakers) speaker.join();
}

// What the compiler asks of each pattern.
constexpr auto Nothing = [](std::size_t, std::size_t, std::size_t) {};
constexpr bool fits(std::string_view pattern, std::size_t count) {
    return text::forEachPlace(pattern, count, Nothing);
}
static_assert(fits("no place", 0) && !fits("no place", 1));
static_assert(fits("{}", 1) && !fits("{}", 0) && !fits("{} {}", 1));
static_assert(fits("{1} {0} {1}", 2) && !fits("{1}", 2) && !fits("{} {0}", 1) && !fits("{0} {}", 2));
static_assert(fits("{0}{1}{2}{3}{4}{5}{6}{7}{8}{9}", 10) && !fits("{}{}{}{}{}{}{}{}{}{}{}", 11));
static_assert(fits("{a} {10} {:x} { } {", 0));

}  // namespace
