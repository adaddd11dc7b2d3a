"""bench/compare tells growth by the right exponent, on the models that are meant, of work that is done."""

import os
import resource
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROJECT = Path(os.environ.get("PROJECT_DIR") or Path(__file__).resolve().parents[2])
BINARIES = Path(os.environ.get("BINARY_DIR") or PROJECT / "build/release/bin")
sys.path.insert(0, str(PROJECT / "bench"))
import processes  # noqa: E402
from growth import exponents, lines, measuring, shapes, works  # noqa: E402
from growth.models import SYSTEM  # noqa: E402

SMALL = {"properties": 10, "set": 20, "type": 20, "classification": 20, "few": 100, "many": 100, "new": 10}


class Folder(unittest.TestCase):
    def setUp(self):
        kept = tempfile.TemporaryDirectory()
        self.addCleanup(kept.cleanup)
        self.folder = Path(kept.name)

    def case(self, name, size=None):
        shape = next(shape for shape in shapes.SHAPES if shape.name == name)
        return shape.case(BINARIES / "modelhost", self.folder, size or SMALL[name])


class Exponents(unittest.TestCase):
    def test_a_power_is_found_again_whatever_the_steps(self):
        sizes = [1, 10, 100, 1000, 32767]
        for power in (0, 0.5, 1, 1.5, 2, 3):
            for found in exponents.exponents(sizes, [3e-6 * size ** power for size in sizes]):
                self.assertAlmostEqual(found, power)

    def test_each_step_has_its_own(self):
        self.assertEqual([round(found, 6) for found in exponents.exponents([1, 2, 4, 8], [1, 2, 8, 8])], [1, 2, 0])

    def test_there_is_none_beside_a_time_that_is_missing(self):
        self.assertEqual(exponents.exponents([1, 2, 4, 8], [None, 1, None, 3]), [None, None, None])

    def test_what_is_left_without_the_start_is_nothing_where_it_is_too_short(self):
        self.assertEqual(exponents.above(3.5, 1), 2.5)
        self.assertIsNone(exponents.above(1.0049, 1))
        self.assertIsNotNone(exponents.above(1.0051, 1))
        self.assertIsNone(exponents.above(None, 1))
        self.assertIsNone(exponents.above(1, None))

    def test_above_the_limit_is_what_a_reader_sees_above_it(self):
        self.assertEqual([exponents.is_above(found, 1.1) for found in (None, 1.1, 1.104, 1.106)],
                         [False, False, False, True])


class Cells(Folder):
    """One element, whose rows cost 1 s for each of rows x properties, and 1 s to start."""

    def line(self, line, seconds, start=1):
        shape = next(shape for shape in shapes.SHAPES if shape.name == "many")
        cases = {size: works.Case("", self.folder, self.folder, 1, [(0, "Item 1")] * size) for size in (1, 10, 100)}
        times, starting = measuring.Times(), measuring.Times()
        starting.note((works.IMPORT.name, 1), processes.Figures(start, start, 0))
        for size in cases:
            times.note((works.IMPORT.name, size), processes.Figures(9, seconds(size), 0))
            times.note((works.IMPORT_ONE.name, size), processes.Figures(9, start, 0))
        return list(line.cells(shape, cases, times, starting))

    def test_growth_with_the_square_is_marked_and_told_from_what_is_asked_for(self):
        line = lines.Total(works.IMPORT, lambda size: size * size)
        self.assertEqual(self.line(line, lambda size: 1 + size * size),
                         ["2.00 s (9.00 s), 1.00 s/row", "101 s (9.00 s), 10.0 s/row, **n^2.00**, asked^1.00",
                          "10001 s (9.00 s), 100 s/row, **n^2.00**, asked^1.00"])

    def test_growth_with_the_size_is_not_marked_and_the_start_does_not_hide_it(self):
        line = lines.Total(works.IMPORT)
        self.assertEqual(self.line(line, lambda size: 1000 + size, 1000)[2], "1100 s (9.00 s), 1.00 s/row, n^1.00")

    def test_one_row_that_costs_more_in_a_larger_model_is_marked(self):
        line = lines.Further(works.IMPORT, works.IMPORT_ONE)
        self.assertEqual(self.line(line, lambda size: 1 + (size - 1) * 2), ["", "2.00 s", "2.00 s, n^0.00"])
        self.assertEqual(self.line(line, lambda size: 1 + (size - 1) * size), ["", "10.0 s", "100 s, **n^1.00**"])

    def test_a_reason_stands_in_place_of_a_time(self):
        case, times, starting = self.case("few", 10), measuring.Times(), measuring.Times()
        starting.note((works.IMPORT.name, 1), processes.Figures(1, 1, 0))
        times.note((works.IMPORT.name, 10), processes.Figures(1, 1, 0))
        times.note((works.IMPORT.name, 10), "over 600 s")
        cells = lines.Total(works.IMPORT).cells(shapes.SHAPES[0], {10: case}, times, starting)
        self.assertEqual(list(cells), ["over 600 s"])


class Measuring(Folder):
    def python(self, text, wrong=lambda _: None):
        return works.Work("python", lambda _: works.Run([sys.executable, "-c", text], wrong))

    def test_seconds_of_the_processor_are_not_those_on_the_clock_and_count_what_a_process_starts(self):
        burn = "import time\nwhile time.process_time() < 0.3: pass"
        waits = f"import subprocess, sys, time; time.sleep(1); subprocess.run([sys.executable, '-c', {burn!r}])"
        figures = processes.run([sys.executable, "-c", waits])
        self.assertGreaterEqual(figures.processor, 0.3)
        self.assertGreaterEqual(figures.wall, 1.3)
        self.assertLess(figures.processor, figures.wall - 0.9)

    def test_time_that_grows_with_the_square_is_told_as_such(self):
        square = works.Work(works.IMPORT.name, lambda case: works.Run(
            [sys.executable, "-c", f"import time\nwhile time.process_time() < 0.02 + {len(case.rows) ** 2 / 50}: pass"],
            lambda _: None), works.MOST_ROWS)
        cases = {size: works.Case("", self.folder, self.folder, 1, [(0, "Item 1")] * size) for size in (2, 6)}
        none = {1: works.Case("", self.folder, self.folder, 1, [])}
        start, times = (measuring.measure(some, [square], 3, self.folder) for some in (none, cases))
        seconds = [exponents.above(times.median((square.name, size)), start.median((square.name, 1))) for size in cases]
        found, = exponents.exponents(list(cases), seconds)
        self.assertAlmostEqual(found, 2, delta=0.3)

    def test_memory_is_at_hand_before_a_large_model_is_opened(self):
        def touched(size):
            (self.folder / "large.ifc").write_bytes(bytes(size))
            before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_minflt
            measuring.warm_up(self.folder / "large.ifc")
            return (resource.getrusage(resource.RUSAGE_CHILDREN).ru_minflt - before) * resource.getpagesize()
        self.assertEqual(touched(measuring.LARGE), 0)
        # Huge pages are one fault each.
        self.assertGreater(touched(measuring.LARGE + 1), 0)

    def test_what_failed_is_named_and_not_tried_again(self):
        fails = self.python(f"open({str(self.folder / 'tries')!r}, 'a').write('x'); raise SystemExit('no, thanks')")
        times = measuring.measure({1: works.Case("", self.folder, self.folder, 1, [])}, [fails], 3, self.folder)
        self.assertEqual(times.reasons, {("python", 1): "failed: no, thanks"})
        self.assertIsNone(times.median(("python", 1)))
        self.assertEqual((self.folder / "tries").read_text(), "x")

    def test_a_program_that_answers_nothing_has_no_figures(self):
        for work in (works.OPEN, works.ITEMS, works.DIFF, works.IMPORT):
            case = self.case("few")
            case.program = "true"
            self.assertEqual(measuring.run(work.prepare(case), self.folder / "answer"), "no answer", work.name)

    def test_a_program_that_writes_other_values_has_no_figures(self):
        case = self.case("few", 10)
        pretends = self.folder / "modelhost"
        pretends.write_text(f"#!/bin/sh\ncp '{case.model}' '{case.out}'; echo '{{\"summary\":{{\"done\":10}}}}'\n")
        pretends.chmod(0o755)
        case.program = pretends
        found = measuring.run(works.IMPORT.prepare(case), self.folder / "answer")
        self.assertEqual(found, "0 values written in place of 10")


class Shapes(Folder):
    def items(self, case):
        listed = measuring.run(works.ITEMS.prepare(case), self.folder / "answer")
        self.assertIsInstance(listed, processes.Figures, listed)
        return {item["item"]: item["elements"] for item in works.answer(self.folder / "answer")["items"]}

    def test_every_work_of_every_shape_is_done(self):
        for shape in shapes.SHAPES:
            case = self.case(shape.name)
            for work in [*shape.works(), works.OPEN, works.ITEMS]:
                done = measuring.run(work.prepare(case), self.folder / "answer")
                self.assertIsInstance(done, processes.Figures, f"{shape.name}, {work.name}: {done}")

    def test_models_open_without_a_remark_and_all_their_global_ids_are_good(self):
        for name in SMALL:
            case = self.case(name)
            for path in (case.model, case.other):
                done = subprocess.run([case.program, "items", path, "--format", "json"], capture_output=True, text=True)
                self.assertEqual((done.returncode, done.stderr), (0, ""))
            measuring.run(works.OPEN.prepare(case), self.folder / "answer")
            told = works.answer(self.folder / "answer")["model"]
            self.assertEqual((told["duplicateGlobalIds"], told["invalidGlobalIds"], told["unknownClasses"]), (0, 0, []))

    def test_each_model_has_as_many_of_its_things_as_it_should(self):
        each = {f"Item {number}": 2000 for number in range(1, 11)}
        for name, expected in (("properties", each), ("set", {"Item 1": 20}), ("type", {"Item 1": 20}),
                               ("classification", {SYSTEM: 20}), ("new", {}),
                               ("few", {f"Item {number}": 1 for number in range(1, 41)}),
                               ("many", {f"Item {number}": 1 for number in range(1, 101)})):
            found = {item.split("[")[0]: count for item, count in self.items(self.case(name)).items()
                     if item.startswith(("Item ", SYSTEM))}
            self.assertEqual(found, expected, name)

    def test_what_is_said_to_be_shared_by_one_relation_is_in_one_relation(self):
        for name, relation in (("set", "IFCRELDEFINESBYPROPERTIES"), ("type", "IFCRELDEFINESBYTYPE"),
                               ("classification", "IFCRELASSOCIATESCLASSIFICATION")):
            text = self.case(name).model.read_text()
            self.assertEqual(text.count(relation), 1, name)

    def test_the_same_size_gives_the_same_bytes(self):
        for name in SMALL:
            first = self.case(name)
            model, updates = first.model.read_bytes(), first.updates(first.rows, "all").read_bytes()
            again = self.case(name)
            self.assertEqual(again.model.read_bytes(), model)
            self.assertEqual(again.updates(again.rows, "all").read_bytes(), updates)

    def test_sizes_go_to_what_is_promised(self):
        for shape in shapes.SHAPES:
            self.assertEqual(shape.sizes[-1], {"property": 1000, "element": 200_000, "row": 32_767}[shape.thing])

    def test_one_row_more_than_the_list_holds_is_refused_and_told(self):
        case = self.case("few", works.MOST_ROWS)
        case.rows.append((0, "Item 1"))
        found = measuring.run(works.importing("too many", works.MOST_ROWS + 1).prepare(case), self.folder / "answer")
        self.assertEqual(found, "32,767 rows done in place of 32,768")


class Program(Folder):
    def compare(self, programs, *options):
        command = [sys.executable, PROJECT / "bench/compare", "--only", "shapes", "--programs", programs, "--runs", "1",
                   "--work", self.folder, *options]
        return subprocess.run(command, capture_output=True, text=True)

    def test_prints_a_table_of_each_shape_and_leaves_no_file(self):
        done = self.compare(BINARIES, "--largest", "20")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        for shape in shapes.SHAPES:
            self.assertIn(f"\n{shape.title}\n\n| | {shape.sizes[0]:,} |", done.stdout)
            for line in shape.lines:
                self.assertIn(f"| {line.title()} |", done.stdout)
        self.assertEqual(list(self.folder.iterdir()), [])

    def test_a_program_that_does_not_do_it_is_told_of_and_the_status_says_so(self):
        (self.folder / "modelhost").symlink_to("/bin/false")
        done = self.compare(self.folder, "--shape", "few", "--largest", "10")
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        self.assertIn("| import, save | failed: status 1 | failed: status 1 |", done.stdout)


if __name__ == "__main__":
    unittest.main()
