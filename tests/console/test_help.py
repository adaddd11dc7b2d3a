"""Help, manual pages and completions say the same: they are made from one description, and each is read here as its own
reader reads it."""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

BINARIES = Path(os.environ.get("BINARY_DIR") or Path(__file__).resolve().parents[2] / "build/release/bin")
SHELLS = ("bash", "zsh", "fish")


def modelhost(*arguments):
    done = subprocess.run([BINARIES / "modelhost", *arguments], capture_output=True, text=True)
    if done.returncode:
        raise AssertionError(f"modelhost {arguments}: {done.stderr}")
    return done.stdout


def section(text, heading):
    """The lines below a heading, up to the next empty one."""
    found = re.search(rf"^{heading}:\n((?:.+\n)+)", text, re.MULTILINE)
    return found[1] if found else ""


def commands():
    return re.findall(r"^  (\w+) ", section(modelhost("help"), "Commands"), re.MULTILINE)


def options(command):
    """{"--output": "OUT.ifc", ...}: each name of each option with what stands behind it."""
    found = {}
    for names, value in re.findall(r"^  (-\S+?)(?:\[=| |\n)(\S*)", section(modelhost("help", command), "Options"),
                                   re.MULTILINE):
        for name in names.split(","):
            found[name] = value
    return found


class Pages(unittest.TestCase):
    def test_there_are_commands_and_options_to_compare(self):
        self.assertIn("import", commands())
        self.assertIn("--apply", options("import"))
        self.assertEqual(options("import")["--format"], "table|tsv|json")

    def shown(self, page):
        """A manual page as man(1) shows it; a page with a mistake in it fails."""
        command = ["groff", "-man", "-Tutf8", "-ww", "-P-cbou"]
        done = subprocess.run(command, input=page, capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout.replace("\u2010", "-").replace("\u2212", "-")

    @unittest.skipUnless(shutil.which("groff"), "groff is not installed")
    def test_manual_pages_have_what_the_help_has(self):
        for command in commands():
            page = self.shown(modelhost("help", command, "--man"))
            shown = " ".join(page.split())
            named = set(re.findall(r"^ +((?:--?[\w-]+,)*--?[\w-]+)(?:\[=| |$)", page, re.MULTILINE))
            self.assertLessEqual(set(options(command)), {name for names in named for name in names.split(",")}, command)
            self.assertIn(f"modelhost-{command} - ", shown)
            help_text = modelhost("help", command)
            for example in section(help_text, "Examples").splitlines():
                self.assertIn(" ".join(example.split()), shown)

    @unittest.skipUnless(shutil.which("groff"), "groff is not installed")
    def test_the_programs_page_names_every_command(self):
        page = self.shown(modelhost("help", "--man"))
        for command in commands():
            self.assertRegex(page, rf"(?m)^ +{command}\b")
            self.assertIn(f"modelhost-{command}(1)", "".join(page.split()))


class Bash(unittest.TestCase):
    def complete(self, *words):
        """What bash offers for the last word."""
        quoted = " ".join(f"'{word}'" for word in words)
        script = "\n".join((modelhost("completion", "bash"), f"COMP_WORDS=(modelhost {quoted})",
                            f"COMP_CWORD={len(words)}", "_modelhost", "printf '%s\\n' \"${COMPREPLY[@]}\""))
        done = subprocess.run(["bash", "--norc", "-c", script], capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return set(done.stdout.split())

    def test_commands(self):
        self.assertEqual(self.complete(""), set(commands()))
        self.assertEqual(self.complete("imp"), {"import"})

    def test_options_are_those_of_the_help(self):
        for command in commands():
            self.assertEqual(self.complete(command, "-"), set(options(command)), command)

    def test_values_are_those_of_the_help(self):
        for command in commands():
            for name, value in options(command).items():
                if "|" in value:
                    self.assertEqual(self.complete(command, name, ""), set(value.split("|")), (command, name))
                    self.assertEqual(self.complete(command, name, "=", ""), set(value.split("|")), (command, name))

    def test_arguments_that_are_words(self):
        self.assertEqual(self.complete("help", ""), set(commands()))
        self.assertEqual(self.complete("completion", ""), set(SHELLS))

    def test_files_are_left_to_the_shell(self):
        self.assertEqual(self.complete("import", "house"), set())


@unittest.skipUnless(shutil.which("fish"), "fish is not installed")
class Fish(unittest.TestCase):
    def complete(self, line):
        with tempfile.TemporaryDirectory() as folder:
            script = modelhost("completion", "fish") + f"\ncomplete -C '{line}'\n"
            done = subprocess.run(["fish", "--no-config", "-c", script], capture_output=True, text=True, cwd=folder,
                                  env=dict(os.environ, HOME=folder))
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            return {offer.split("\t")[0] for offer in done.stdout.splitlines()}

    def test_commands(self):
        self.assertEqual(self.complete("modelhost "), set(commands()))

    def test_options_are_those_of_the_help(self):
        for command in commands():
            long = {name for name in options(command) if name.startswith("--")}
            self.assertEqual(self.complete(f"modelhost {command} --"), long, command)

    def test_values_are_those_of_the_help(self):
        self.assertEqual(self.complete("modelhost list --format "), {"table", "tsv", "json"})


@unittest.skipUnless(shutil.which("zsh"), "zsh is not installed")
class Zsh(unittest.TestCase):
    def specifications(self, command):
        """What the completion hands to _arguments, which stands in for zsh's own here."""
        script = ("_arguments() { print -rl -- \"$@\" }\n_describe() { print -rl -- $commands }\n"
                  "compadd() { shift; print -rl -- \"$@\" }\n"
                  f"words=(modelhost {command} ''); CURRENT=3\n" + modelhost("completion", "zsh"))
        done = subprocess.run(["zsh", "-f", "-c", script], capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout.splitlines()

    def test_options_are_those_of_the_help(self):
        for command in commands():
            named = {match[1] for line in self.specifications(command) if (match := re.match(r"\*(-[\w-]+)", line))}
            self.assertEqual(named, set(options(command)), command)

    def test_values_are_those_of_the_help(self):
        formats = [line for line in self.specifications("list") if line.startswith("*--format[")]
        self.assertEqual([line.rpartition(":")[2] for line in formats], ["(table tsv json)"])


if __name__ == "__main__":
    sys.exit(unittest.main())
