"""A report's page, read by the standard library's parser and checked for what a reader and a validator mind."""

import re
from html.parser import HTMLParser

VOID = {"meta", "link", "br", "img", "hr", "input"}
# Who may be whose parent; what is not listed may stand anywhere below the body.
PARENTS = {"li": {"ul"}, "dt": {"dl"}, "dd": {"dl"}, "thead": {"table"}, "tbody": {"table"}, "tr": {"thead", "tbody"},
           "td": {"tr"}, "th": {"tr"}, "figcaption": {"figure"}, "path": {"svg", "a"}, "circle": {"svg", "a"},
           "title": {"head", "a"}, "style": {"head"}, "meta": {"head"}, "head": {"html"}, "body": {"html"}}
KNOWN = set(PARENTS) | {"html", "main", "h1", "h2", "h3", "dl", "ul", "nav", "section", "a", "b", "em", "span", "p",
                        "figure", "svg", "table"}


class Page(HTMLParser):
    """Collects faults; `texts` holds the text of every table row, its cells parted by bars."""

    def __init__(self, html):
        super().__init__(convert_charrefs=True)
        self.faults, self.open, self.ids, self.links, self.texts = [], [], [], [], []
        if not html.startswith("<!DOCTYPE html>"):
            self.faults.append("no document type")
        self.feed(html)
        self.close()
        self.faults += [f"{tag} is never closed" for tag in self.open]
        self.faults += [f"id {name} is there twice" for name in {i for i in self.ids if self.ids.count(i) > 1}] \
            if len(self.ids) < 2000 else ([] if len(set(self.ids)) == len(self.ids) else ["an id is there twice"])
        known = set(self.ids)
        self.faults += [f"link to {link} leads nowhere" for link in self.links if link[1:] not in known]

    def handle_starttag(self, tag, attributes):
        where = f"line {self.getpos()[0]}: {tag}"
        if tag not in KNOWN:
            self.faults.append(f"{where} is no element of a report")
        parent = self.open[-1] if self.open else None
        if tag in PARENTS and parent not in PARENTS[tag]:
            self.faults.append(f"{where} stands in {parent}")
        for name, value in attributes:
            if name == "id":
                self.ids.append(value)
            if name == "href":
                self.links.append(value)
                if not value.startswith("#"):
                    self.faults.append(f"{where} leads out of the page, to {value}")
            if name.startswith("on") or name in ("src", "style", "srcdoc", "action"):
                self.faults.append(f"{where} has {name}")
        if tag == "tr":
            self.texts.append("")
        if tag in ("td", "th") and self.texts and self.texts[-1]:
            self.texts[-1] += "|"
        if tag not in VOID:
            self.open.append(tag)

    def handle_startendtag(self, tag, attributes):
        self.handle_starttag(tag, attributes)
        self.open.pop()

    def handle_endtag(self, tag):
        if not self.open or self.open[-1] != tag:
            self.faults.append(f"line {self.getpos()[0]}: {tag} ends in {self.open[-1:]}")
        else:
            self.open.pop()

    def handle_data(self, data):
        if "style" in self.open and re.search(r"url\(|@import|expression|</", data):
            self.faults.append("the style sheet asks for something outside")
        if "tr" in self.open:
            self.texts[-1] += data
        if re.search("[\x00-\x08\x0b-\x1f\x7f-\x9f\u202a-\u202e\u2066-\u2069]", data):
            self.faults.append(f"a character that no page may hold: {data!r}")
