"""The built documentation as a reader meets it, opened from the files."""

import collections
import pathlib
import re
import unittest
import urllib.parse

import setting
from browser import WIDTHS, Browser, served, variants

# Next to the pages of docs/pages and those they name: lists, and classes long and short.
LISTS = ["annotated", "pages", "functions", "files", "classKDRVariant", "classKDRRegion", "classKDRNumber",
         "classKDRRegion-members", "kdrvariantkind_8h"]


def topics():
    """The pages written by hand, by the names of their files."""
    names = [re.search(r"^# .*\{#(\w+)\}$", path.read_text(encoding="utf-8"), re.MULTILINE)[1]
             for path in sorted(setting.PAGES.glob("*.md"))]
    return ["index" if name == "mainpage" else name for name in names]


def address(name):
    return (setting.DOCUMENTATION / f"{name}.html").as_uri()


class Documentation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = Browser(setting.SCREENSHOTS)
        cls.addClassCleanup(cls.browser.close)

    def test_main_pages_fit_and_run_without_errors(self):
        written = {path.stem for path in setting.DOCUMENTATION.glob("md_docs_*.html")}
        names = [*topics(), *sorted(written), *LISTS]
        self.assertIn("index", names)
        self.assertTrue(written)
        for name in names:
            self.browser.open(address(name))
            for width in WIDTHS:
                with self.subTest(page=name, width=width):
                    self.browser.show_as(width, "light")
                    self.assertEqual(self.browser.errors(), [])
                    self.assertEqual(self.browser.too_wide(), [])

    def test_no_markup_is_left_in_the_topics(self):
        for name in topics():
            with self.subTest(page=name):
                self.browser.open(address(name))
                text = self.browser.run("""
                    document.querySelectorAll('.fragment').forEach((each) => each.remove());
                    return document.querySelector('.contents').textContent;""")
                self.assertGreater(len(text), 100)
                self.assertEqual(re.findall(r"\*\*\S.*|`.*|\\\w+", text), [])

    def test_the_appearance_is_the_one_that_the_system_asks_for(self):
        for width, appearance in variants():
            for name in ("index", "copies", "classKDRRegion"):
                with self.subTest(page=name, width=width, appearance=appearance):
                    self.browser.show_as(width, appearance)
                    self.browser.open(address(name))
                    if appearance == "dark":
                        self.assertLess(self.browser.brightness(), 60)
                    else:
                        self.assertGreater(self.browser.brightness(), 230)
                    self.browser.take_picture(f"{name}-{width}-{appearance}")

    def test_drawings_and_pictures_are_there(self):
        self.browser.show_as("desktop", "light")
        self.browser.open(address("index"))
        sizes = self.browser.run("""return Array.from(document.querySelectorAll('div.image img'),
            (each) => each.naturalWidth);""")
        self.assertEqual(len(sizes), 2)
        self.assertNotIn(0, sizes)
        self.browser.open(address("copies"))
        frames = self.browser.find_all(".dotgraph iframe")
        self.assertEqual(len(frames), 2)
        for frame in frames:
            self.browser.driver.switch_to.frame(frame)
            self.assertTrue(self.browser.find_all("svg .node"))
            self.browser.driver.switch_to.default_content()

    def test_the_search_finds_a_class_and_leads_to_it(self):
        for width in WIDTHS:
            with self.subTest(width=width), served(setting.DOCUMENTATION) as root:
                self.browser.show_as(width, "light")
                self.search_for_a_class(root, f"search-{width}")
                self.assertEqual(self.browser.errors(), [])

    def test_the_search_works_from_files_too(self):
        self.browser.show_as("desktop", "light")
        self.search_for_a_class(setting.DOCUMENTATION.as_uri(), "search-files")
        # The generator's frame of results cannot reach the page then, which leads on all the same.
        self.browser.errors()

    def search_for_a_class(self, root, picture):
        self.browser.open(f"{root}/index.html")
        self.browser.find("#MSearchField").send_keys("KDRRegion")
        self.browser.wait_for(lambda: self.browser.find("#MSearchResultsWindow").is_displayed(),
                              "no results are shown")
        self.assertEqual(self.browser.too_wide(), [])
        self.browser.driver.switch_to.frame(self.browser.find("#MSearchResults"))
        results = self.browser.wait_for(self.shown_results, "no results are listed")
        self.assertEqual([result.text for result in results], ["KDRRegion", "KDRRegionArray"])
        self.browser.driver.switch_to.default_content()
        self.browser.take_picture(picture)
        self.browser.driver.switch_to.frame(self.browser.find("#MSearchResults"))
        results[0].click()  # unfolds: the class, and its constructors
        found = self.browser.find("#SRResults a.SRScope[href$='/classKDRRegion.html']")
        self.browser.wait_for(found.is_displayed, "the class is not among the results")
        found.click()
        self.browser.driver.switch_to.default_content()
        self.browser.wait_for(
            lambda: self.browser.driver.current_url == f"{root}/classKDRRegion.html",
            "the result does not lead to its class")
        self.assertIn("KDRRegion", self.browser.find(".headertitle").text)

    def shown_results(self):
        return [each for each in self.browser.find_all("a.SRSymbol") if each.is_displayed()]

    def test_the_search_says_when_it_finds_nothing(self):
        self.browser.show_as("desktop", "light")
        self.browser.open(address("index"))
        self.browser.find("#MSearchField").send_keys("KDRNothing")
        self.browser.driver.switch_to.frame(self.browser.find("#MSearchResults"))
        self.browser.wait_for(lambda: self.browser.find("#NoMatches").is_displayed(),
                              "nothing is said")
        self.assertEqual(self.shown_results(), [])

    def test_the_menu_unfolds_on_a_phone_and_leads_on(self):
        self.browser.show_as("phone", "light")
        self.browser.open(address("index"))
        entry = self.browser.find("#main-menu a[href='pages.html']")
        self.assertFalse(entry.is_displayed())
        self.browser.find(".main-menu-btn").click()
        self.browser.wait_for(entry.is_displayed, "the menu does not unfold")
        self.browser.wait_for(lambda: not self.browser.find_all("#main-menu.sm-animating"), "it moves")
        self.browser.take_picture("menu-phone")
        entry.click()
        self.browser.wait_for(lambda: self.browser.driver.current_url == address("pages"),
                              "the entry does not lead to its page")

    def test_a_click_on_a_topic_of_the_landing_page_opens_it(self):
        self.browser.show_as("phone", "light")
        self.browser.open(address("index"))
        self.browser.find(".contents a[href='threads.html']").click()
        self.browser.wait_for(lambda: self.browser.driver.current_url == address("threads"),
                              "the link does not lead to its page")
        self.assertEqual(self.browser.find(".headertitle").text, "Threads")

    def test_links_of_the_menu_and_among_the_topics_lead_where_they_say(self):
        self.browser.show_as("phone", "light")
        places = collections.defaultdict(set)
        for name in topics():
            self.browser.open(address(name))
            for link in self.browser.run(
                    "return Array.from(document.querySelectorAll('a[href]'), (each) => each.href);"):
                target, place = urllib.parse.urldefrag(link)
                # tests/docs/check.py follows those to the many pages of classes, headers and letters.
                if re.search(r"^file:.*/(?!class|kdr|functions_)\w+\.html$", target):
                    places[target].add(urllib.parse.unquote(place))
        self.assertLessEqual({address(name) for name in [*topics(), "annotated", "pages"]}, set(places))
        self.browser.errors()
        for target, wanted in sorted(places.items()):
            with self.subTest(target=pathlib.PurePosixPath(target).name):
                self.browser.open(target)
                self.assertTrue(self.browser.find_all("#doc-content, .contents"), "this is no page")
                missing = self.browser.run("""return arguments[0].filter((place) => place &&
                    !document.getElementById(place) && !document.getElementsByName(place).length);
                    """, sorted(wanted))
                self.assertEqual(missing, [])
                self.assertEqual(self.browser.errors(), [])


if __name__ == "__main__":
    unittest.main()
