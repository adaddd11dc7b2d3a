"""Reports to hand on: valid pages that need nothing besides themselves, whatever the model's texts are."""

import json
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from modelhost import HOUSE, PROGRAM, PROJECT, elements, models, modelhost, write_updates
from page import Page

UPDATES = PROJECT / "samples/updates.txt"
HOSTILE = ["<script>alert(1)</script>", "</td></table></svg>", "\"'><img src=x onerror=y>", "&amp;&lt;",
           "a\u202eb\u2066c", "]]>", "<!--", "-->", "\u0085\u009f", "\ufffe", "{}", "%s", "\U0001F3E0", "x" * 500]


def run(*arguments):
    """Standard output; that rows are refused, status 2, is told in the report."""
    done = subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True)
    assert done.returncode in (0, 2), done.stderr.decode(errors="replace")
    return done.stdout.decode()


def tidy(html):
    """What the validator calls an error. It knows no links in drawings and calls them warnings."""
    done = subprocess.run(["tidy", "-quiet", "-errors", "-utf8", "--show-warnings", "yes"], input=html.encode(),
                          capture_output=True)
    return [line for line in done.stderr.decode().splitlines()
            if line and "proprietary attribute" not in line and "Warning: <a>" not in line]


def storey_of_walls(count):
    """A model of one storey, in which the walls stand in a row."""
    def guid(number):
        return "'" + str(number).rjust(22, "0") + "'"
    walls = range(100, 100 + 3 * count, 3)
    lines = [f"#1=IFCPROJECT({guid(1)},$,'P',$,$,$,$,$,$);",
             f"#2=IFCBUILDINGSTOREY({guid(2)},$,'Ground',$,$,$,$,$,.ELEMENT.,0.);",
             f"#3=IFCRELAGGREGATES({guid(3)},$,$,$,#1,(#2));",
             f"#4=IFCRELCONTAINEDINSPATIALSTRUCTURE({guid(4)},$,$,$,({','.join(f'#{wall}' for wall in walls)}),#2);",
             "#5=IFCBLOCK($,1.,1.,3.);", "#6=IFCSHAPEREPRESENTATION($,'Body','CSG',(#5));",
             "#7=IFCPRODUCTDEFINITIONSHAPE($,$,(#6));"]
    for wall in walls:
        lines += [f"#{wall}=IFCWALL({guid(wall)},$,'Wall',$,$,#{wall + 1},#7,$,$);",
                  f"#{wall + 1}=IFCLOCALPLACEMENT($,#{wall + 2});",
                  f"#{wall + 2}=IFCAXIS2PLACEMENT3D(#{10**6 + wall},$,$);",
                  f"#{10**6 + wall}=IFCCARTESIANPOINT(({2 * wall}.,0.,0.));"]
    return ("ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\nFILE_NAME('','',(''),(''),'','','');\n"
            "FILE_SCHEMA(('IFC4'));\nENDSEC;\nDATA;\n" + "\n".join(lines) + "\nENDSEC;\nEND-ISO-10303-21;\n")


class Reports(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def imported(self, model, updates, *more):
        report = self.folder / "report.html"
        run("import", model, updates, "--report", report, *more)
        return report.read_text(encoding="utf-8")

    def check(self, html):
        page = Page(html)
        self.assertEqual(page.faults, [])
        return page

    def test_an_import_tells_old_and_new_and_what_was_not_stored(self):
        html = self.imported(HOUSE, UPDATES, "--apply", "-o", self.folder / "b.ifc")
        page = self.check(html)
        self.assertIn("FireRating[WallCommon]|F 90-AB|F 120-AB|Changed", page.texts)
        self.assertIn("<h1>Changes to house.ifc</h1>", html)
        self.assertIn("Asked and not stored", html)
        self.assertIn("&quot;CEILING&quot; is no item of IfcSlabTypeEnum", html)
        self.assertNotIn("APIERR", html)
        self.assertIn("<b>9</b> <span>changed as asked", html)
        self.assertIn("<b>7</b> <span>elements concerned", html)
        self.assertIn("<b>1</b> <span>line without a row", html)
        self.assertIn("<dd>b.ifc</dd>", html.replace(str(self.folder) + "/", ""))

    def test_a_dry_run_says_what_would_be(self):
        html = self.imported(HOUSE, UPDATES)
        page = self.check(html)
        self.assertIn("Proposed changes to house.ifc", html)
        self.assertIn("FireRating[WallCommon]|F 90-AB|F 120-AB|Would be changed", page.texts)
        self.assertIn("not saved", html)

    def test_a_plan_marks_the_changed_and_links_to_their_rows(self):
        html = self.imported(HOUSE, UPDATES)
        self.assertEqual(html.count("<svg "), 2)
        wall = html.index("<tbody id=\"e1\">")
        self.assertIn("Außenwand Süd", html[wall:wall + 200])
        self.assertIn("href=\"#e1\"><title>Außenwand Süd</title><path", html)

    def test_a_plan_draws_so_many_outlines_and_the_changed_in_any_case(self):
        most = 4000
        for count in (most - 1, most, most + 1):
            model = self.folder / "many.ifc"
            model.write_text(storey_of_walls(count))
            updates = self.folder / "updates.txt"
            write_updates(updates, [(elements(model)[-1]["guid"], "Name", "Last")])
            html = self.imported(model, updates)
            self.check(html)
            drawing = html[html.index("<svg"):html.index("</svg>")]
            self.assertEqual(drawing.count("<p"), min(count, most))
            self.assertIn("1 marked on the plan", html)
            self.assertEqual("1 elements more are not drawn" in html, count > most)
            self.assertEqual("more are not drawn" in html, count > most)

    def test_texts_of_models_are_never_markup(self):
        guids = [element["guid"] for element in elements(HOUSE) if element["name"]]
        updates = self.folder / "hostile.txt"
        write_updates(updates, [(guid, item, text) for guid, text in zip(guids, HOSTILE)
                                for item in ("Name", f"{text[:40]}[Hostile]", "Description")])
        other = self.folder / "b.ifc"
        html = self.imported(HOUSE, updates, "--apply", "-o", other)
        self.assertGreater(len(self.check(html).texts), 20)
        html = run("diff", HOUSE, other, "--format", "html")
        self.check(html)
        self.assertNotIn("<script", html)
        self.assertIn("&lt;script&gt;alert(1)&lt;/script&gt;", html)
        # A file's name is text, too.
        named = self.folder / "<b>&amp;.ifc"
        shutil.copy(HOUSE, named)
        self.assertIn("&lt;b&gt;&amp;amp;.ifc", run("diff", named, other, "--format", "html"))

    def test_every_model_has_valid_reports(self):
        for model in models():
            with self.subTest(model=model.name):
                guids = [element["guid"] for element in elements(model)][:400]
                updates, other = self.folder / "updates.txt", self.folder / "b.ifc"
                write_updates(updates, [(guid, "Description", f"{i}") for i, guid in enumerate(guids)])
                self.check(self.imported(model, updates, "--apply", "-o", other))
                self.check(run("diff", model, other, "--format", "html"))

    def test_a_script_tells_what_it_changed(self):
        steps, report = self.folder / "steps.jsonl", self.folder / "report.html"
        steps.write_text("\n".join(map(json.dumps, [{"file": str(UPDATES)}, {"menu": 1}, {"click": 3}, {"click": 1},
                                                    {"click": 2}, {"save": str(self.folder / "b.ifc")}])))
        run("script", HOUSE, steps, "--report", report)
        html = report.read_text(encoding="utf-8")
        page = self.check(html)
        self.assertIn("FireRating[WallCommon]|F 90-AB|F 120-AB|changed", page.texts)
        self.assertIn("<h2>Notes</h2>", html)
        self.assertIn("CEILING", html)

    def test_added_and_removed_elements_are_told_and_drawn(self):
        text = HOUSE.read_text(encoding="utf-8")
        other = self.folder / "b.ifc"
        wall = "1BT$3tXgf7hux8BKYFEwZP"
        self.assertIn(wall, text)
        other.write_text(text.replace(wall, "1BT$3tXgf7hux8BKYFEwZ0"), encoding="utf-8")
        html = run("diff", HOUSE, other, "--format", "html")
        self.check(html)
        self.assertIn("<em>added</em>", html)
        self.assertIn("<em>removed</em>", html)
        self.assertIn("class=\"good gone\"", html)

    def test_the_ending_says_the_form(self):
        other = self.folder / "b.ifc"
        run("import", HOUSE, UPDATES, "--apply", "-o", other)
        report = self.folder / "r.json"
        run("diff", HOUSE, other, "--report", report)
        document = json.loads(report.read_text(encoding="utf-8"))
        self.assertEqual(document["sums"]["elements changed"], modelhost("diff", HOUSE, other)["summary"]["changed"])
        self.assertIn({"item": "FireRating[WallCommon]", "old": "F 90-AB", "new": "F 120-AB", "asked": None,
                       "tone": "good", "remark": "changed"}, document["elements"][0]["rows"])
        workbook = self.folder / "r.xlsx"
        run("diff", HOUSE, other, "--report", workbook)
        self.assertEqual(workbook.read_bytes()[:2], b"PK")
        self.assertIn("0 updates", subprocess.run([PROGRAM, "import", HOUSE, workbook], capture_output=True,
                                                  text=True).stderr)

    def test_nothing_different_is_said(self):
        self.assertIn("Nothing is different", run("diff", HOUSE, HOUSE, "--format", "html"))

    @unittest.skipUnless(shutil.which("tidy"), "tidy is not installed; scripts/packages names it")
    def test_a_validator_finds_no_fault(self):
        other = self.folder / "b.ifc"
        self.assertEqual(tidy(self.imported(HOUSE, UPDATES, "--apply", "-o", other)), [])
        self.assertEqual(tidy(run("diff", HOUSE, other, "--format", "html")), [])
        self.assertNotEqual(tidy("<!DOCTYPE html><html><head><title>x</title></head><body><dl><b></body></html>"), [])


if __name__ == "__main__":
    unittest.main()
