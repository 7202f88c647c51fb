#!/usr/bin/env python3
"""Writes what the manual's search looks through: searchindex.py DIRECTORY-OF-THE-HTML

Each page is cut at its headings and at its documented members. A piece becomes one place of searchindex.js:
[heading, page, address, words of the heading, other words], the words in lower case with blanks around them. Names
such as stripPath count as a whole and by their parts, and so do anchors that are words, as in cb_distinct.
"""

import html.parser
import json
import pathlib
import re
import sys

HEADINGS = {"h1", "h2", "h3"}
VOID = {"br", "col", "hr", "img", "input", "link", "meta"}
LISTS = re.compile(r"(-members|^functions.*|^namespacemembers.*|^globals.*|^dir_.*|^annotated|^classes|^files|^pages)$")
KIND = re.compile(r" (Class|Struct|Namespace|File)( Template)? Reference$")
NAME = re.compile(r"[^\W\d_]+[\w]*")
ANCHOR = re.compile(r"[a-z]{2}(_[a-z]+)+")
ANCHOR_WORD = re.compile(r"[a-z]{3,}")
PART = re.compile(r"[A-Z]+(?![a-z])|[A-Z]?[a-z]+|[0-9]+")


def words(text):
    """The words of a text in lower case, names with their parts."""
    found = set()
    for name in NAME.findall(text):
        found.add(name.lower())
        found.update(part.lower() for part in PART.findall(name))
    return {word for word in found if len(word) > 1}


class Page(html.parser.HTMLParser):
    """The title of a page, and its pieces: [heading, anchor, text]."""

    def __init__(self):
        super().__init__()
        self.title = ""
        self.pieces = []
        self.anchor = ""
        self.heading = None  # the tag of the heading that is being read
        self.skipped = 0  # how many elements deep in one that is no text of the page
        self.contents = False

    def handle_starttag(self, tag, attributes):
        given = dict(attributes)
        classes = (given.get("class") or "").split()
        if self.skipped or tag in ("script", "style") or {"permalink", "toc", "overload"} & set(classes):
            self.skipped += tag not in VOID
            return
        if "contents" in classes:
            self.contents = True
            self.pieces.append([self.title, "", ""])
        if tag == "div" and "title" in classes:
            self.heading = "title"
        if tag == "a" and given.get("id"):
            self.anchor = given["id"]
            if self.heading in HEADINGS:
                self.pieces[-1][1] = self.anchor
        if self.contents and tag in HEADINGS and "groupheader" not in classes:
            self.heading = tag
            self.pieces.append(["", self.anchor, ""])

    def handle_endtag(self, tag):
        if self.skipped:
            self.skipped -= 1
        elif tag == self.heading or (self.heading == "title" and tag == "div"):
            self.heading = None

    def handle_data(self, data):
        if self.skipped:
            return
        if self.heading == "title":
            self.title += data
        elif self.heading:
            self.pieces[-1][0] += data
        elif self.contents:
            self.pieces[-1][2] += data


def places(file):
    """The places of the page that `file` holds."""
    page = Page()
    page.feed(file.read_text(encoding="utf-8"))
    title = KIND.sub("", " ".join(page.title.split()))
    for heading, anchor, text in page.pieces:
        heading = KIND.sub("", " ".join(heading.split())) or title
        named = " ".join(ANCHOR_WORD.findall(anchor)) if ANCHOR.fullmatch(anchor) else ""
        first = words(heading + " " + named)
        rest = words(text) - first
        address = file.name + ("#" + anchor if anchor else "")
        yield [heading, title, address, *(f" {' '.join(sorted(some))} " for some in (first, rest))]


def main():
    directory = pathlib.Path(sys.argv[1])
    files = [file for file in sorted(directory.glob("*.html")) if not LISTS.search(file.stem)]
    pages = sorted(files, key=lambda file: (file.name.startswith("class"), file.name.endswith("_8h.html"), file.name))
    index = [place for file in pages for place in places(file)]
    lines = ",\n".join(json.dumps(place, ensure_ascii=False) for place in index)
    (directory / "searchindex.js").write_text(f"const searchIndex = [\n{lines}\n];\n", encoding="utf-8")


main()
