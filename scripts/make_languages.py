#!/usr/bin/env python3
"""Brings the translations in host/desktop/languages up to the texts of the sources: modelhost_*.ts with those of the
window, which lupdate finds in tr(), and host_*.ts with those from below the window, which stand in text::message(),
text::phrase() and text::counted(). Translations stay; what is new is marked as unfinished, for linguist or an editor.
"""

import pathlib
import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
from typing import NamedTuple
from xml.sax.saxutils import escape

PROJECT = pathlib.Path(__file__).resolve().parent.parent
FOLDER = PROJECT / "host/desktop/languages"
LANGUAGES = ("de",)
CONTEXT = "Host"
LUPDATE = shutil.which("lupdate", path="/usr/lib/qt6/bin") or shutil.which("lupdate6")
# How many texts each call has: their places are the first ones.
CALLS = {"message": 1, "phrase": 1, "counted": 2}

TOKEN = re.compile(r"""
    (?P<comment> //[^\n]* | /\*.*?\*/ )
  | (?P<raw> R"(?P<end>\w*)\( .*? \)(?P=end)" )
  | (?P<string> "(?: [^"\\\n] | \\. )*" )
  | (?P<character> '(?: [^'\\\n] | \\. )+' )
  | (?P<name> [A-Za-z_]\w* (?: ::[A-Za-z_]\w* )* )
  | (?P<number> \d[\w.']* )
  | (?P<sign> \S )
""", re.VERBOSE | re.DOTALL)
ESCAPE = re.compile(rb"\\(x[0-9A-Fa-f]+|[0-7]{1,3}|.)", re.DOTALL)
SIMPLE_ESCAPES = {b"n": b"\n", b"t": b"\t", b"r": b"\r"}


class Literal(NamedTuple):
    """Of a source: adjoining strings, which are one."""
    line: int
    text: str
    call: str  # the function that it is an argument of, "" for none
    said: bool  # as the text of a message


def decoded(string):
    """What the compiler makes of a string with its quotes."""
    def byte(match):
        code = match[1]
        if code[:1] == b"x":
            return bytes([int(code[1:], 16) & 0xFF])
        return bytes([int(code, 8) & 0xFF]) if code[:1].isdigit() else SIMPLE_ESCAPES.get(code, code)

    return ESCAPE.sub(byte, string[1:-1].encode()).decode(errors="replace")


def tokens(source):
    """(kind, text, line) of each token but comments; adjoining strings as one, decoded."""
    found, line, at = [], 1, 0
    for match in TOKEN.finditer(source):
        line += source.count("\n", at, match.start())
        at = match.start()
        kind, text = match.lastgroup, match[0]
        if kind == "comment":
            continue
        if kind == "string":
            text = decoded(text)
            if found and found[-1][0] == "string":
                found[-1] = ("string", found[-1][1] + text, found[-1][2])
                continue
        found.append((kind, text, line))
    return found


def literals(source):
    """Each Literal of a source, include lines left out."""
    calls = []  # of each parenthesis that is open: the function, and how many of its texts are still to come
    before = (("sign", ";", 0), ("sign", ";", 0))
    for kind, text, line in tokens(source):
        if kind == "sign" and text in "([{":
            function = before[1][1] if text == "(" and before[1][0] == "name" else ""
            space, _, name = function.rpartition("::")
            calls.append([function, CALLS.get(name, 0) if space == "text" else 0])
        elif kind == "sign" and text in ")]}" and calls:
            calls.pop()
        elif kind == "string" and before[1][1] != "include":
            function, texts = calls[-1] if calls else ("", 0)
            # A pattern follows the parenthesis, or the comma behind the pattern before it.
            said = texts > 0 and before[1][1] in "(,"
            if said:
                calls[-1][1] -= 1
            yield Literal(line, text, function, said)
        elif calls and text not in ",":
            calls[-1][1] = 0
        before = (before[1], (kind, text, line))


def host_texts():
    """The English texts in the order of the sources, each once."""
    texts = {}
    for path in sorted((PROJECT / "host").rglob("*.?pp")):
        for literal in literals(path.read_text(encoding="utf-8")):
            if literal.said:
                texts.setdefault(literal.text)
    return list(texts)


def messages(path):
    """(context, source, comment, translation element)"""
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            yield (context.findtext("name"), message.findtext("source"), message.findtext("comment") or "",
                   message.find("translation"))


def quoted(text):
    return escape(text, {'"': "&quot;", "'": "&apos;"})


def host_file(language, texts):
    """The file's content, with the translations that there are."""
    path = FOLDER / f"host_{language}.ts"
    known = {source: element for _, source, _, element in messages(path)} if path.exists() else {}
    lines = ['<?xml version="1.0" encoding="utf-8"?>', "<!DOCTYPE TS>",
             f'<TS version="2.1" language="{language}" sourcelanguage="en">',
             "<context>", f"    <name>{CONTEXT}</name>"]
    for text in texts:
        element = known.get(text)
        translation = quoted(element.text or "") if element is not None else ""
        unfinished = element is None or element.get("type") == "unfinished"
        kind = ' type="unfinished"' if unfinished else ""
        lines += ["    <message>", f"        <source>{quoted(text)}</source>",
                  f"        <translation{kind}>{translation}</translation>", "    </message>"]
    return "\n".join(lines + ["</context>", "</TS>", ""])


def update_window(path):
    """By lupdate, from what stands in tr()."""
    command = [LUPDATE, "-silent", "-I", "host", "host/desktop", "-extensions", "cpp,hpp", "-locations", "none",
               "-no-obsolete", "-ts", path]
    return subprocess.run(command, cwd=PROJECT, capture_output=True, text=True)


def main():
    if sys.argv[1:]:
        sys.exit(__doc__)
    texts = host_texts()
    for language in LANGUAGES:
        (FOLDER / f"host_{language}.ts").write_text(host_file(language, texts), encoding="utf-8")
        if LUPDATE is None:
            sys.exit("lupdate (qt6-l10n-tools) is not installed: the window's texts are as they were")
        done = update_window(FOLDER / f"modelhost_{language}.ts")
        if done.returncode != 0:
            sys.exit(done.stderr)


if __name__ == "__main__":
    main()
