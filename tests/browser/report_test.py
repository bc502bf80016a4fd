"""The demo's reports as they are seen and used."""

import re
import subprocess
import unittest

import setting
from browser import WIDTHS
from pages import Pages, for_each_page, lit

REPORTS = {"coins": [str(setting.COINS)], "part": ["--drawn-part"]}


def column(browser, index):
    return browser.run("""return Array.from(document.querySelector('table.parts').tBodies[0].rows,
        (row) => row.cells[arguments[0]].textContent);""", index)


class Reports(Pages, unittest.TestCase):
    @classmethod
    def made(cls):
        paths = {}
        for name, arguments in REPORTS.items():
            paths[name] = setting.OUTPUT / f"{name}-report.html"
            subprocess.run([setting.INSPECT, *arguments, "--out", setting.OUTPUT / f"{name}.png",
                            "--report", paths[name]], check=True, stdout=subprocess.DEVNULL)
        return paths

    @for_each_page
    def test_a_part_that_is_pointed_at_lights_its_row(self, name):
        self.open(name)
        for part in "123456":
            self.browser.point_at(f"svg g[data-part='{part}'] text")
            self.assertEqual(lit(self.browser, "rows"), [part])
            self.assertEqual(lit(self.browser, "figures"), [part])
            row = self.browser.find(f"tr[data-part='{part}'] td").text
            self.assertIn(row, self.browser.find(".readout").text)
        self.browser.take_picture(f"{name}-lit")
        self.browser.point_at("h1")
        self.assertEqual(lit(self.browser, "rows"), [])

    @for_each_page
    def test_a_figure_that_is_pointed_at_beside_its_label_lights_up(self, name):
        self.open(name)
        part, place, right, down = {"coins": ("6", "svg g[data-part='6'] circle", 0, -18),
                                    "part": ("1", "svg g[data-part='1'] path", -100, 0)}[name]
        self.browser.point_at(place, right, down)
        self.assertEqual(lit(self.browser, "rows"), [part])

    @for_each_page
    def test_a_row_that_is_pointed_at_lights_its_part(self, name):
        self.open(name)
        self.browser.point_at("tr[data-part='3'] td")
        self.assertEqual(lit(self.browser, "figures"), ["3"])
        self.assertEqual(lit(self.browser, "rows"), ["3"])

    @for_each_page
    def test_pointing_moves_nothing_and_hides_no_word(self, name):
        for width in WIDTHS:
            with self.subTest(width=width):
                self.open(name, width)
                moved = self.browser.run("""
                    const readout = document.querySelector('.readout');
                    const height = () => document.querySelector('main').offsetHeight;
                    const before = height();
                    return Array.from(document.querySelectorAll('tr[data-part]')).map((row) => {
                        row.dispatchEvent(
                            new PointerEvent('pointerover', {bubbles: true, pointerType: 'mouse'}));
                        return [height() - before, readout.scrollHeight > readout.clientHeight,
                            readout.textContent.includes(row.cells[0].textContent)];
                    });""")
                self.assertGreater(len(moved), 5)
                self.assertEqual(moved, [[0, False, True]] * len(moved))


    @for_each_page
    def test_a_tap_keeps_the_light_until_the_next(self, name):
        self.open(name, "phone")
        for place, part in (("svg g[data-part='2'] text", ["2"]), ("tr[data-part='1'] td", ["1"]),
                            ("h1", [])):
            self.browser.tap(place)
            # The click comes after the touch, in its own time.
            self.browser.wait_for(lambda: lit(self.browser, "rows") == part, f"{place}: not {part}")
            self.assertEqual(lit(self.browser, "figures"), part)

    @for_each_page
    def test_the_keyboard_lights_a_part_too(self, name):
        self.open(name)
        self.browser.run("document.querySelector('tr[data-part=\"2\"]').focus();")
        self.assertEqual(lit(self.browser, "figures"), ["2"])

    @for_each_page
    def test_each_column_sorts_both_ways(self, name):
        self.open(name)
        heads = self.browser.find_all("table.parts th")
        self.assertEqual(len(heads), {"coins": 11, "part": 5}[name])
        for index, head in enumerate(heads):
            with self.subTest(column=head.text):
                given = column(self.browser, index)
                head.find_element("css selector", "button").click()
                rising = column(self.browser, index)
                self.assertEqual(rising, self.sorted(given))
                self.assertEqual(head.get_attribute("aria-sort"), "ascending")
                head.find_element("css selector", "button").click()
                self.assertEqual(column(self.browser, index), rising[::-1])
                self.assertEqual(head.get_attribute("aria-sort"), "descending")
                sorted_by = self.browser.find_all("table.parts th:not([aria-sort='none'])")
                self.assertEqual(sorted_by, [head])
        numbers = [row.get_attribute("data-part")
                   for row in self.browser.find_all("table.parts tbody tr")]
        self.assertEqual(sorted(numbers, key=int), [str(i + 1) for i in range(len(numbers))])
        self.browser.point_at("table.parts tbody tr:first-child td")
        self.assertEqual(lit(self.browser, "figures"), numbers[:1])

    def sorted(self, texts):
        """Numbers by their values, texts as a reader would."""
        if all(re.fullmatch(r"-?[0-9.]+", text) for text in texts):
            return sorted(texts, key=float)
        return sorted(texts)

    @for_each_page
    def test_a_kind_of_figure_can_be_switched_off(self, name):
        self.open(name)
        switch = self.browser.find(".switches input")
        kind = switch.get_attribute("value")
        figures = self.browser.find_all(f"svg.picture [data-kind='{kind}']")
        others = self.browser.find_all(f"svg.picture [data-kind]:not([data-kind='{kind}'])")
        self.assertTrue(figures and others)
        switch.click()
        self.assertFalse(any(figure.is_displayed() for figure in figures))
        self.assertTrue(all(figure.is_displayed() for figure in others))
        switch.click()
        self.assertTrue(all(figure.is_displayed() for figure in figures))

    def test_the_histograms_count_every_part(self):
        self.open("coins")
        for chart in self.browser.find_all(".charts svg"):
            counts = [int(bar.text) for bar in chart.find_elements("css selector", "g text")]
            self.assertEqual(sum(counts), 24)
        self.assertEqual(len(self.browser.find_all(".charts svg")), 2)


if __name__ == "__main__":
    unittest.main()
