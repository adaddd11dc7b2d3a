#!/usr/bin/env python3
"""Runs every test program of a build and every test script, and counts.

usage: run_tests.py BUILD [TEXT]         TEXT: only the tests whose name holds it
       run_tests.py --script FILE OUT [TEXT]   (its own: one test script in a process of its own)

A test program is BUILD/tests/*_tests (GoogleTest), a test script tests/*/test_*.py (unittest). Both find the project's
folder and the built programs in the environment: PROJECT_DIR, BINARY_DIR. A program that crashes, or says nothing about
its tests, counts as one failed test. What was skipped is listed at the end with its reason.
"""

import concurrent.futures
import importlib.util
import json
import os
import subprocess
import sys
import tempfile
import textwrap
import time
import unittest
import xml.etree.ElementTree
from pathlib import Path

PROJECT = Path(__file__).resolve().parent.parent
TIME_LIMIT = 900  # Seconds for one program.


class Outcome:
    """skipped: the reasons by the names of the tests."""

    def __init__(self, passed=0, failed=0, messages=(), skipped=None):
        self.passed, self.failed, self.messages, self.skipped = passed, failed, list(messages), skipped or {}

    def __add__(self, other):
        return Outcome(self.passed + other.passed, self.failed + other.failed, self.messages + other.messages,
                       self.skipped | other.skipped)

    def count(self):
        return self.passed + self.failed + len(self.skipped)


def outcome_of_program(report):
    """From GoogleTest's own report. Cases left out by the filter are not in it as run, and not counted."""
    total = Outcome()
    for case in xml.etree.ElementTree.fromstring(report).iter("testcase"):
        name = f"{case.get('classname')}.{case.get('name')}"
        failures, skip = case.findall("failure"), case.find("skipped")
        if failures:
            total += Outcome(failed=1, messages=[f"{name}\n{failure.get('message')}" for failure in failures])
        elif case.get("result") == "skipped" or case.get("name").startswith("DISABLED_"):
            # The message begins with the line of the source.
            reason = (skip.get("message") if skip is not None else "").partition("\n")[2].strip()
            total += Outcome(skipped={name: reason or "no reason given"})
        elif case.get("status") == "run":
            total += Outcome(passed=1)
    return total


def command_for(test, report, text):
    if test.suffix == ".py":
        return [sys.executable, __file__, "--script", str(test), str(report), text]
    return [str(test), f"--gtest_output=xml:{report}", "--gtest_brief=1", f"--gtest_filter=*{text}*"]


def run(test, build, text):
    """@return (seconds, Outcome)"""
    environment = dict(os.environ, PROJECT_DIR=str(PROJECT), BINARY_DIR=str(build / "bin"))
    environment.setdefault("LSAN_OPTIONS", f"print_suppressions=0:suppressions={PROJECT}/tests/support/leaks.supp")
    begin = time.monotonic()
    with tempfile.TemporaryDirectory() as folder:
        report = Path(folder) / "report"
        try:
            done = subprocess.run(command_for(test, report, text), env=environment, cwd=folder, timeout=TIME_LIMIT,
                                  stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            output, status = done.stdout.decode(errors="replace"), done.returncode
        except subprocess.TimeoutExpired as late:
            output, status = (late.stdout or b"").decode(errors="replace"), f"stopped after {TIME_LIMIT} s"
        outcome = Outcome()
        if report.exists():
            found = report.read_text(encoding="utf-8", errors="replace")
            outcome = Outcome(**json.loads(found)) if test.suffix == ".py" else outcome_of_program(found)
        # A status that the report does not account for: a crash, a leak found at exit, a hook that failed.
        if status != 0 and not outcome.failed:
            outcome += Outcome(failed=1, messages=[f"{test.name} ended with {status}\n{output[-4000:]}"])
    return time.monotonic() - begin, outcome


def run_script(path, report, text):
    """Runs one test script's unittest cases here and writes the counts."""
    sys.path.insert(0, str(path.parent))
    spec = importlib.util.spec_from_file_location(path.stem, path)
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    suite = unittest.TestSuite(case for case in cases(unittest.defaultTestLoader.loadTestsFromModule(module))
                               if text in case.id())
    result = Counts()
    suite.run(result)
    bad = result.failures + result.errors
    failed = {case.id().split(" (")[0] for case, _ in bad}  # A case's sub-tests bear its name and more in brackets.
    report.write_text(json.dumps({
        "passed": result.passed, "failed": len(failed), "messages": [f"{case.id()}\n{trace}" for case, trace in bad],
        "skipped": {case.id(): why for case, why in result.skipped}}), encoding="utf-8")
    return 1 if bad else 0


class Counts(unittest.TestResult):
    passed = 0

    def addSuccess(self, test):
        self.passed += 1


def cases(suite):
    for item in suite:
        yield from cases(item) if isinstance(item, unittest.TestSuite) else [item]


def main(build, text):
    tests = [*sorted(PROJECT.glob("tests/*/test_*.py")), *sorted((build / "tests").glob("*_tests"))]
    total = Outcome()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        waiting = {pool.submit(run, test, build, text): test for test in tests}
        for future in concurrent.futures.as_completed(waiting):
            seconds, outcome = future.result()
            total += outcome
            if text and not outcome.count():
                continue
            test = waiting[future]
            name = str(test.relative_to(PROJECT)) if test.suffix == ".py" else test.name
            print(f"{'FAILED' if outcome.failed else 'ok    '} {name:<44} {outcome.count():5} tests {seconds:7.1f} s")
            for message in outcome.messages:
                print("       " + message.rstrip().replace("\n", "\n       "))
            sys.stdout.flush()
    if not total.count():
        print(f"no test's name holds {text!r}" if text else "there is no test")
    tell_skipped(total.skipped)
    print(f"{total.passed} passed, {total.failed} failed, {len(total.skipped)} skipped")
    return 1 if total.failed or not total.count() else 0


def tell_skipped(skipped):
    """Those of one reason stand together."""
    for reason in sorted(set(skipped.values())):
        names = sorted(name for name, why in skipped.items() if why == reason)
        print(f"skipped: {reason}")
        print(textwrap.fill(", ".join(names), 118, initial_indent="    ", subsequent_indent="    ",
                            break_long_words=False, break_on_hyphens=False))
    if not any(Path(os.environ.get("REAL_MODELS") or PROJECT.parent / "shared/models").glob("*.ifc")):
        print("without real models: REAL_MODELS can name a folder of .ifc files to test on as well")


if __name__ == "__main__":
    if sys.argv[1] == "--script":
        sys.exit(run_script(Path(sys.argv[2]), Path(sys.argv[3]), sys.argv[4]))
    sys.exit(main(Path(sys.argv[1]).resolve(), sys.argv[2] if len(sys.argv) > 2 else ""))
