#!/usr/bin/env python3
"""usage: page_witness.py KDRDUMP FILE...

The pages of saved values are well-formed to a reader of XML and to one of HTML, and refer to nothing
outside of themselves.
"""

import html.parser
import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

VOID = {"meta", "input", "link", "br", "img", "hr"}
REFERRING = {"src", "srcset", "action", "data", "poster", "href", "background", "formaction"}


class Reader(html.parser.HTMLParser):
    """What a page has: its elements, whether they close in order, and what it refers to."""

    def __init__(self):
        super().__init__()
        self.open = []
        self.count = 0
        self.ids = set()
        self.mistakes = []

    def handle_starttag(self, tag, attrs):
        self.handle_startendtag(tag, attrs)
        if tag not in VOID:
            self.open.append(tag)

    def handle_startendtag(self, tag, attrs):
        self.count += 1
        for name, value in attrs:
            if name == "id":
                self.ids.add(value)
            if name.split(":")[-1] in REFERRING and not self.is_inside(value or ""):
                self.mistakes.append(f"{tag} refers to {value[:60]}")
            if name.startswith("on"):
                self.mistakes.append(f"{tag} has {name}")
        if tag in ("link", "iframe", "object", "base"):
            self.mistakes.append(f"there is a {tag}")

    def is_inside(self, address):
        """Whether an address is data, or a place further up on the page."""
        return address.startswith("data:") or (address[:1] == "#" and address[1:] in self.ids)

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.mistakes.append(f"{tag} is closed out of order")


def mistakes_in(page):
    reader = Reader()
    reader.feed(page)
    reader.close()
    elements = sum(1 for _ in xml.etree.ElementTree.fromstring(page).iter())
    mistakes = reader.mistakes
    if reader.open:
        mistakes.append(f"left open: {reader.open}")
    if elements != reader.count:
        mistakes.append(f"{elements} elements to one reader, {reader.count} to the other")
    for outside in re.findall(r"url\(|@import|(?<![\w/+])//|fetch\(|\bimport\b", page):
        mistakes.append(f"the page has {outside}")
    return mistakes, elements


def main():
    program, *files = sys.argv[1:]
    failed = False
    for file in files:
        with tempfile.TemporaryDirectory() as directory:
            path = os.path.join(directory, "page.html")
            subprocess.run([program, file, "--html", path], check=True, stdout=subprocess.DEVNULL)
            with open(path, encoding="utf-8") as page:
                mistakes, elements = mistakes_in(page.read())
        print(f"{file}: {elements} elements")
        for mistake in mistakes:
            print(f"{file}: {mistake}", file=sys.stderr)
        failed = failed or bool(mistakes) or elements < 20
    return 1 if failed or not files else 0


if __name__ == "__main__":
    sys.exit(main())
