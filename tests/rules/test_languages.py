"""Every text for people can be translated, and is: the German files have them all, with placeholders and keys."""

import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from project import PROJECT, Rules, files, read

sys.path.insert(0, str(PROJECT / "scripts"))
import make_languages  # noqa: E402
from make_languages import LANGUAGES, LUPDATE, Literal, literals, messages  # noqa: E402

SOURCES = "host/desktop"

# A text for people in a literal that nothing translates: two words, or one that begins as a sentence does.
LITERAL = re.compile(r'\b(?:QStringLiteral|QLatin1String|fromLatin1|fromUtf8)\(\s*"((?:[^"\\]|\\.)*)"')
FOR_PEOPLE = re.compile(r"[A-Za-z]{2,}[ &][A-Za-z]{2,}|^[A-Z][a-z]+[…:]?$|…")
# The program's name, style sheets, mark-up, and names that Qt's own classes have.
NOT_FOR_PEOPLE = re.compile(r"^Model Host$|[{<]|^Pset_$|^ISO-")
PLACEHOLDER = re.compile(r"%L?\d")

# What a window shows of what lies below it. The command line is English; what the frameworks say of an add-on's
# resources is debug output for those who write it.
NOT_BELOW = ("host/console/", "host/desktop/", "host/frameworks/", "host/include/", "host/text/")
# Two words with a blank between them, or a word beside a place.
SENTENCE = re.compile(r"[A-Za-z]{2,}[,;:.']?s? .*[A-Za-z]{2,}|[A-Za-z]{3,}[:;,]? [^ ]*\{|\}[^ ]* [A-Za-z]{3,}")
MARK_UP = re.compile(r"</|<!|<\w+( \w+=|>)|=\"")
NOT_SAID = {
    "classification relation ": "a new GlobalId is made of it",
    "property set ": "a new GlobalId is made of it",
    "property relation ": "a new GlobalId is made of it",
    "Property not found.": "the add-on's own, by which its rows are known",
    "Element / Type not found.": "the add-on's own, by which its rows are known",
    "Old and new values are the same.": "the add-on's own, by which its rows are known",
    "SpecSection Classification": "an item's name in files",
    "UniFormat Classification": "an item's name in files",
}
FOR_PROGRAMMERS = ("std::logic_error", "qFatal")
# In the window a text is in tr() or its like, which lupdate reads, or in a message as below it.
OF_THE_WINDOW = re.compile(r"(?:^|::)(?:tr|translate|QT_TRANSLATE_NOOP|QStringLiteral)$")
# The window's own command line is English like that of modelhost, and so is what is said before there is a window.
BEFORE_THE_WINDOW = ("host/desktop/CommandLine.cpp",)
TO_A_TERMINAL = ("std::fputs",)
PLACE = re.compile(r"\{(\d?)\}")


def language_file(language, name="modelhost"):
    return PROJECT / SOURCES / "languages" / f"{name}_{language}.ts"


def places(pattern):
    """The arguments that a pattern puts in; None where it numbers some of its places and not the others."""
    numbers = PLACE.findall(pattern)
    if "" not in numbers:
        return {int(number) for number in numbers}
    return set(range(len(numbers))) if set(numbers) == {""} else None


def escapes(path, others=(), translated=re.compile("(?!)")):
    """The texts for people that are in no message."""
    for literal in literals(read(path)):
        text = literal.text
        if not literal.said and SENTENCE.search(text) and not MARK_UP.search(text) and text not in NOT_SAID \
                and literal.call not in FOR_PROGRAMMERS + others and not translated.search(literal.call):
            yield f"{path}:{literal.line}: \"{text}\" is in no text::message(), text::phrase() or text::counted()"


def mnemonic(text):
    return bool(re.search(r"&(?!&)\w", text.replace("&&", "")))


class Languages(Rules):
    def test_no_text_for_people_escapes_the_translation(self):
        for path in files(".cpp", ".hpp"):
            if not path.as_posix().startswith(SOURCES):
                continue
            self.expect_none(f"{path}: \"{text}\" is in no tr()" for text in LITERAL.findall(read(path))
                             if FOR_PEOPLE.search(text) and not NOT_FOR_PEOPLE.search(text))

    def test_no_text_of_the_window_stands_in_a_plain_string(self):
        self.expect_none(complaint for path in files(".cpp", ".hpp")
                         if path.as_posix().startswith(SOURCES) and path.as_posix() not in BEFORE_THE_WINDOW
                         for complaint in escapes(path, TO_A_TERMINAL, OF_THE_WINDOW))

    @unittest.skipUnless(LUPDATE, "lupdate (qt6-l10n-tools) is not installed")
    def test_each_language_has_the_texts_of_the_sources_and_no_others(self):
        with tempfile.TemporaryDirectory() as folder:
            made = Path(folder) / "texts.ts"
            done = subprocess.run([LUPDATE, "-I", "host", SOURCES, "-extensions", "cpp,hpp", "-ts", made],
                                  cwd=PROJECT, capture_output=True, text=True)
            self.assertEqual(done.returncode, 0, done.stderr)
            wanted = {message[:3] for message in messages(made)}
        self.assertGreater(len(wanted), 200, "lupdate found too few texts: have the sources moved?")
        for language in LANGUAGES:
            known = {message[:3] for message in messages(language_file(language))}
            self.expect_none(f"{language}: not translated: {text}" for text in sorted(wanted - known))
            self.expect_none(f"{language}: in no source any more: {text}" for text in sorted(known - wanted))

    def test_each_text_is_translated_with_its_placeholders_and_its_key(self):
        for language in LANGUAGES:
            for context, source, _, translation in messages(language_file(language)):
                place = f"{language}, {context}, \"{source}\""
                text = translation.text or ""
                self.assertNotIn(translation.get("type"), ("unfinished", "vanished", "obsolete"), place)
                self.assertTrue(text.strip(), place)
                self.assertEqual(sorted(PLACEHOLDER.findall(text)), sorted(PLACEHOLDER.findall(source)), place)
                self.assertEqual(mnemonic(text), mnemonic(source), place)
                self.assertEqual(text.endswith("…"), source.endswith("…"), place)
                self.assertEqual(re.findall(r"\*\.\w+", text), re.findall(r"\*\.\w+", source), place)


class TextsFromBelow(Rules):
    def test_no_text_for_people_escapes_the_translation(self):
        below = [path for path in files(".cpp", ".hpp") if path.as_posix().startswith("host/")
                 and not path.as_posix().startswith(NOT_BELOW) and not path.name.endswith("Tables.cpp")]
        self.assertGreater(len(below), 300, "too few sources: have they moved?")
        self.expect_none(complaint for path in below for complaint in escapes(path))

    def test_each_exception_is_still_there(self):
        texts = {literal.text for path in files(".cpp", ".hpp") if path.as_posix().startswith("host/")
                 for literal in literals(read(path)) if not literal.said}
        self.expect_none(f"\"{text}\" is in no source any more" for text in NOT_SAID if text not in texts)

    def test_each_language_has_the_texts_of_the_sources_and_no_others(self):
        wanted = make_languages.host_texts()
        self.assertGreater(len(wanted), 400, "too few texts: have the sources moved?")
        for language in LANGUAGES:
            known = [source for _, source, _, _ in messages(language_file(language, "host"))]
            self.expect_none(f"{language}: not translated: {text}" for text in wanted if text not in known)
            self.expect_none(f"{language}: in no source any more: {text}" for text in known if text not in wanted)
            self.assertEqual(known, wanted, f"{language}: run scripts/make_languages.py")

    def test_each_text_is_translated_with_its_places(self):
        for language in LANGUAGES:
            for context, source, _, translation in messages(language_file(language, "host")):
                place = f"{language}, \"{source}\""
                text = translation.text or ""
                self.assertEqual(context, make_languages.CONTEXT, place)
                self.assertIsNone(translation.get("type"), place)
                self.assertTrue(text.strip(), place)
                self.assertEqual(places(text), places(source), place)
                for side in (0, -1):  # what other texts are put before or behind
                    self.assertEqual(text[side] in " ;,:", source[side] in " ;,:", place)

    def test_names_in_translations_stay_as_they_are(self):
        name = re.compile(r"--[\w-]+|\.\w{3,5}\b|\b[A-Z][A-Z0-9_-]{3,}\b"
                          r"|\b(?:GlobalId|IFC\w+|UTF-\d+|[A-Z][a-z]+_\w+)\b")
        for language in LANGUAGES:
            for _, source, _, translation in messages(language_file(language, "host")):
                for word in name.findall(source):
                    self.assertIn(word, translation.text, f"{language}, \"{source}\"")


class TextsOfSources(unittest.TestCase):
    """How texts are found: what the rules above rest on."""

    def found(self, source):
        return list(literals(source))

    def test_a_text_is_said_in_a_call_and_nowhere_else(self):
        self.assertEqual(self.found('text::message("a {}", "b")'),
                         [Literal(1, "a {}", "text::message", True), Literal(1, "b", "text::message", False)])
        self.assertEqual([literal.said for literal in self.found('f("a"); g = "b"; message("c"); x::message("d");')],
                         [False] * 4)
        self.assertEqual([literal.said for literal in self.found('text::message(f("a"), x ? "b" : "c")')], [False] * 3)

    def test_a_count_has_two_texts(self):
        self.assertEqual([literal.said for literal in self.found('text::counted("a", "b", n, "c")')],
                         [True, True, False])

    def test_adjoining_strings_are_one_text_on_the_first_ones_line(self):
        self.assertEqual(self.found('\ntext::phrase("a "\n  "b")'), [Literal(2, "a b", "text::phrase", True)])

    def test_escapes_are_what_the_compiler_makes_of_them(self):
        self.assertEqual(self.found(r'"\xE2\x80\x9C\"\n\101\\"')[0].text, "\u201c\"\nA\\")

    def test_comments_characters_and_raw_strings_are_no_texts(self):
        self.assertEqual(self.found('// "a"\n/* "b" */ \'"\' R"x("c")x" #include "d.hpp"'), [])


if __name__ == "__main__":
    unittest.main()
