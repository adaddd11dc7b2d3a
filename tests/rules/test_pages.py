"""The pages for people: the README leads to each of them, and no link leads nowhere."""

import re
import unittest

from project import PROJECT, Rules, files, read

LINK = re.compile(r"\]\(([^)#\s]+)(?:#([^)\s]+))?\)")


def anchors(path):
    """The names of a page's headings, as a link has them."""
    headings = re.findall(r"^#+ (.+)$", read(path), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


class Pages(Rules):
    def test_the_readme_names_every_page(self):
        named = {target for target, _ in LINK.findall(read("README.md"))}
        pages = [path for path in files(".md") if path.as_posix() != "README.md" and path.parts[0] != "tests"]
        self.assertTrue(pages)
        self.expect_none(f"{page} is not named in README.md" for page in pages if page.as_posix() not in named)

    def test_no_link_leads_nowhere(self):
        for page in files(".md"):
            for target, anchor in LINK.findall(read(page)):
                if "://" in target:
                    continue
                file = (PROJECT / page).parent / target
                self.assertTrue(file.exists(), f"{page}: there is no {target}")
                if anchor:
                    there = anchors(file.resolve().relative_to(PROJECT.resolve()))
                    self.assertIn(anchor, there, f"{page}: {target} has no such heading")


if __name__ == "__main__":
    unittest.main()
