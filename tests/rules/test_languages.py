"""Every text of the window can be translated, and is: the German file has them all, with placeholders and keys."""

import re
import shutil
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

from project import PROJECT, Rules, files, read

SOURCES = "host/desktop"
LANGUAGES = ("de",)
LUPDATE = shutil.which("lupdate", path="/usr/lib/qt6/bin") or shutil.which("lupdate6")

# A text for people in a literal that nothing translates: two words, or one that begins as a sentence does.
LITERAL = re.compile(r'\b(?:QStringLiteral|QLatin1String|fromLatin1|fromUtf8)\(\s*"((?:[^"\\]|\\.)*)"')
FOR_PEOPLE = re.compile(r"[A-Za-z]{2,}[ &][A-Za-z]{2,}|^[A-Z][a-z]+[…:]?$|…")
# The program's name, style sheets, mark-up, and names that Qt's own classes have.
NOT_FOR_PEOPLE = re.compile(r"^Model Host$|[{<]|^Pset_$|^ISO-")
PLACEHOLDER = re.compile(r"%L?\d")


def language_file(language):
    return PROJECT / SOURCES / "languages" / f"modelhost_{language}.ts"


def messages(path):
    """(context, source, comment, translation element)"""
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            yield (context.findtext("name"), message.findtext("source"), message.findtext("comment") or "",
                   message.find("translation"))


def mnemonic(text):
    return bool(re.search(r"&(?!&)\w", text.replace("&&", "")))


class Languages(Rules):
    def test_no_text_for_people_escapes_the_translation(self):
        for path in files(".cpp", ".hpp"):
            if not path.as_posix().startswith(SOURCES):
                continue
            self.expect_none(f"{path}: \"{text}\" is in no tr()" for text in LITERAL.findall(read(path))
                             if FOR_PEOPLE.search(text) and not NOT_FOR_PEOPLE.search(text))

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


if __name__ == "__main__":
    unittest.main()
