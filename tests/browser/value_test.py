"""The pages of saved values as they are seen and used."""

import hashlib
import subprocess
import unittest

import setting
from browser import WIDTHS
from pages import Pages, for_each_page, lit

# What the demo saves, and files with every kind of value and of picture.
COINS = "coins-value"
FILES = {name + "-value": setting.SAVED / f"{name}.kdr" for name in ("everything", "pictures")}


class Values(Pages, unittest.TestCase):
    FLAT = ("pictures-value",)

    @classmethod
    def made(cls):
        coins = setting.OUTPUT / "coins.kdr"
        subprocess.run([setting.INSPECT, str(setting.COINS), "--out", setting.OUTPUT / "coins.png",
                        "--save", coins], check=True, stdout=subprocess.DEVNULL)
        paths = {}
        for name, file in {COINS: coins, **FILES}.items():
            paths[name] = setting.OUTPUT / f"{name}.html"
            subprocess.run([setting.KDRDUMP, file, "--html", paths[name]], check=True,
                           stdout=subprocess.DEVNULL)
        return paths

    def painted(self, element):
        """What tells apart what is painted where an element is."""
        return hashlib.sha1(element.screenshot_as_png).hexdigest()

    def show(self, selector, is_shown):
        """Shows elements of the page or hides them."""
        self.browser.run("""for (const each of document.querySelectorAll(arguments[0]))
            each.style.display = arguments[1] ? '' : 'none';""", selector, is_shown)

    @for_each_page
    def test_every_picture_is_seen(self, name):
        for width in WIDTHS:
            with self.subTest(width=width):
                self.open(name, width)
                sizes = self.browser.run("""
                    return Array.from(document.querySelectorAll('svg.picture'), (each) => {
                        const ground = each.querySelector('image, use');
                        const box = each.getBoundingClientRect();
                        const inner = ground ? ground.getBoundingClientRect() : box;
                        return [box.width, box.height, inner.width, inner.height];
                    });""")
                self.assertTrue(sizes)
                for size in sizes:
                    self.assertGreater(min(size), 3)

    def test_pixels_that_several_pictures_share_are_seen_in_each(self):
        self.open("everything-value")
        self.show(".picture g", False)
        places = self.browser.find_all("svg.picture use")
        self.assertGreater(len(places), 3)
        for place in places:
            picture = place.find_element("xpath", "./..")
            seen = self.painted(picture)
            self.browser.run("arguments[0].style.display = 'none';", place)
            self.assertNotEqual(self.painted(picture), seen)
            # The pixels themselves in their place look the same.
            self.browser.run("""const [place, id] = arguments;
                place.replaceWith(document.querySelector(id).cloneNode());""",
                             place, place.get_attribute("href"))
            self.assertEqual(self.painted(picture), seen)
        self.assertEqual(self.browser.errors(), [])

    def test_the_picture_is_painted_with_the_figures_over_it(self):
        self.open(COINS)
        picture = self.browser.find("svg.picture")
        whole = self.painted(picture)
        for selector in (".picture image", ".picture g"):
            self.show(selector, False)
            self.assertNotEqual(self.painted(picture), whole)
            self.show(selector, True)
            self.assertEqual(self.painted(picture), whole)

    def test_figures_are_seen_where_their_rows_say(self):
        self.open(COINS)
        circles = self.browser.run("""
            const image = document.querySelector('.picture image').getBoundingClientRect();
            return Array.from(document.querySelectorAll('svg circle'), (each) => {
                const box = each.getBoundingClientRect();
                const scale = 384 / image.width;
                const part = each.closest('[data-part]').dataset.part;
                return [(box.left + box.width / 2 - image.left) * scale - 0.5,
                    (box.top + box.height / 2 - image.top) * scale - 0.5,
                    box.width / 2 * scale,
                    document.getElementById('row-' + part).cells[3].textContent];
            });""")
        self.assertEqual(len(circles), 25)
        for x, y, radius, row in circles:
            told = [float(word.split()[-1]) for word in row.removeprefix("circle: ").split(", ")]
            for seen, number in zip((x, y), told, strict=False):
                self.assertAlmostEqual(seen, number, delta=0.5)
            # The box is around the line, too.
            self.assertAlmostEqual(radius, told[2], delta=1.5)

    def test_a_row_lights_its_figure_in_its_own_picture(self):
        self.open("everything-value")
        pictures = self.browser.find_all(".beside")
        self.assertGreater(len(pictures), 1)
        for place in pictures:
            row = place.find_element("css selector", "tr[data-part]")
            part = row.get_attribute("data-part")
            self.browser.run("arguments[0].focus();", row)
            self.assertEqual(lit(self.browser, "figures"), [part])
            self.assertEqual(lit(self.browser, "rows"), [part])
            words = [each.text for each in self.browser.find_all(".readout")]
            told = place.find_element("css selector", ".readout").text
            self.assertIn(row.find_element("css selector", "td:nth-child(2)").text, told)
            self.assertEqual(words.count(told), 1)
        self.assertEqual(self.browser.errors(), [])


if __name__ == "__main__":
    unittest.main()
