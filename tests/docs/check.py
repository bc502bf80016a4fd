#!/usr/bin/env python3
"""usage: check.py HTML_DIRECTORY EXPORTED_SYMBOLS PAGES_DIRECTORY

Checks the built documentation. Every link inside it leads to a file and, where it names one, to a
place in it, those of the search and of the menu included. Every page of PAGES_DIRECTORY is reached
from the landing page. Every exported operation of a class is documented, each overload by itself.
Prints what is wrong, and fails.
"""

import html
import html.parser
import pathlib
import re
import sys
import urllib.parse

# What the meta-object compiler adds to a QObject, and the data behind a class's static operations.
GENERATED = {"metaObject", "qt_metacall", "qt_metacast", "staticMetaObject", "m_instance"}


class Page(html.parser.HTMLParser):
    """The links of a page, the places that links may lead to, and the declarations in its summary with
    their descriptions, by the names that both rows carry."""

    def __init__(self, text):
        super().__init__()
        self.links = []
        self.places = set()
        self.declared = {}
        self.described = {}
        self.row = ("", "")
        self.cell = ""
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        for name in ("id", "name"):
            if attributes.get(name):
                self.places.add(attributes[name])
        for name in ("href", "src", "data"):
            if attributes.get(name):
                self.links.append(attributes[name])
        if tag == "tr":
            self.row = tuple((attributes.get("class") or "").split(" ")[0].split(":", 1))
        if tag == "td":
            self.cell = attributes.get("class")

    def handle_data(self, data):
        if self.cell == "memItemRight" and self.row[0] == "memitem":
            self.declared[self.row[1]] = self.declared.get(self.row[1], "") + data
        if self.cell == "mdescRight" and self.row[0] == "memdesc":
            self.described[self.row[1]] = self.described.get(self.row[1], "") + data


def links_of_script(text):
    """The links in the data of the search and of the menu."""
    return [html.unescape(link) for link in re.findall(r"""['"]([^'"\s]+\.html(?:#[^'"\s]*)?)['"]""", text)]


def load(directory):
    """The pages, and the links, by file."""
    pages = {}
    links = {}
    for path in sorted(directory.rglob("*.html")):
        # What shows the results inside of a page is made of the data next to it.
        if path.parent == directory:
            pages[path] = Page(path.read_text(encoding="utf-8"))
            links[path] = pages[path].links
    for path in [directory / "menudata.js", *sorted((directory / "search").glob("*_*.js"))]:
        links[path] = links_of_script(path.read_text(encoding="utf-8"))
    return pages, links


def target_of(path, link):
    """Where a link leads: a file and a place in it, or None for a link out of the documentation."""
    parts = urllib.parse.urlsplit(link)
    if parts.scheme or parts.netloc:
        return None
    file = path.parent / urllib.parse.unquote(parts.path) if parts.path else path
    return file.resolve(), urllib.parse.unquote(parts.fragment)


def broken_links(pages, links):
    for path, all_of_it in links.items():
        for link in all_of_it:
            target = target_of(path, link)
            if target is None:
                continue
            file, place = target
            if not file.is_file():
                yield f"{path.name}: {link} leads to no file"
            elif place and file in pages and place not in pages[file].places:
                yield f"{path.name}: {link} leads to no place of that page"


def unreached_pages(pages, links, landing, wanted):
    reached = set()
    waiting = [landing]
    while waiting:
        path = waiting.pop()
        if path in reached or path not in pages:
            continue
        reached.add(path)
        targets = (target_of(path, link) for link in links[path])
        waiting.extend(target[0] for target in targets if target is not None)
    for name in wanted:
        if landing.parent / name not in reached:
            yield f"{name} is not reached from {landing.name}"


def counts(names):
    result = {}
    for name in names:
        result[name] = result.get(name, 0) + 1
    return result


def exported_operations(symbols):
    for line in symbols.splitlines():
        match = re.match(r"((?:KDR|Data|Log)\w+)::(~?\w+|operator[^\w\s(]+|operator\(\))\(", line)
        if match and match[2] not in GENERATED:
            yield match[1], match[2]


def documented_operations(pages):
    for path, page in pages.items():
        of_class = re.fullmatch(r"class(\w+)\.html", path.name)
        for row, declaration in page.declared.items() if of_class else ():
            name = re.match(r"\s*(operator\s*(?:\(\)|[^\w\s(]+)|~?\w+)\s*\(", declaration)
            if name and page.described.get(row, "").strip():
                yield of_class[1], name[1].replace(" ", "")


def undocumented_operations(pages, symbols):
    documented = counts(documented_operations(pages))
    for operation, number in counts(exported_operations(symbols)).items():
        found = documented.get(operation, 0)
        if found < number:
            yield f"{operation[0]}::{operation[1]}: {found} of {number} documented"


def main():
    directory, symbols, sources = (pathlib.Path(argument) for argument in sys.argv[1:4])
    directory = directory.resolve()
    pages, links = load(directory)
    texts = [path.read_text(encoding="utf-8") for path in sorted(sources.glob("*.md"))]
    wanted = [re.search(r"^# .*\{#(\w+)\}$", text, re.MULTILINE)[1] for text in texts]
    wanted = [("index" if name == "mainpage" else name) + ".html" for name in wanted]
    exported = symbols.read_text(encoding="utf-8")

    wrong = [
        *broken_links(pages, links),
        *unreached_pages(pages, links, directory / "index.html", wanted),
        *undocumented_operations(pages, exported),
    ]
    print("\n".join(wrong), file=sys.stderr, end="\n" if wrong else "")
    print(f"{len(pages)} pages, {sum(map(len, links.values()))} links,"
          f" {len(list(exported_operations(exported)))} operations: {len(wrong)} mistakes")
    return 1 if wrong or not pages or not wanted else 0


if __name__ == "__main__":
    sys.exit(main())
