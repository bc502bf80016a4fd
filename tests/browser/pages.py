"""What all pages that show values have in common, those of the demo and those of saved values."""

import functools

import setting
from browser import Browser, variants


def lit(browser, kind):
    """The numbers of the lit figures or rows."""
    return browser.run("""return Array.from(document.querySelectorAll(arguments[0] + '.lit'),
        (each) => each.dataset.part);""", {"figures": "svg g", "rows": "tr"}[kind])


def for_each_page(test):
    """The test for every page, in which nothing goes wrong unseen."""
    @functools.wraps(test)
    def of_all(self):
        for name in self.addresses:
            with self.subTest(page=name):
                test(self, name)
                self.assertEqual(self.browser.errors(), [])
    return of_all


class Pages:
    """Tests of the pages that a class of tests makes: one file each, by name."""

    # The pages of values in which nothing unfolds.
    FLAT = ()

    @classmethod
    def setUpClass(cls):
        cls.addresses = {name: path.as_uri() for name, path in cls.made().items()}
        cls.browser = Browser(setting.SCREENSHOTS, with_requests=True)
        cls.addClassCleanup(cls.browser.close)

    def open(self, name, width="desktop", appearance="light"):
        self.browser.show_as(width, appearance)
        self.browser.open(self.addresses[name])

    @for_each_page
    def test_they_fit_every_window_in_the_appearance_asked_for(self, name):
        for width, appearance in variants():
            with self.subTest(width=width, appearance=appearance):
                self.open(name, width, appearance)
                self.assertEqual(self.browser.too_wide(), [])
                if appearance == "dark":
                    self.assertLess(self.browser.brightness(), 60)
                else:
                    self.assertGreater(self.browser.brightness(), 230)
                self.browser.take_picture(f"{name}-{width}-{appearance}")

    @for_each_page
    def test_they_ask_for_no_other_file(self, name):
        self.browser.requests()
        self.open(name)
        for row in self.browser.find_all("tr[data-part='1']"):
            row.click()
        self.assertEqual(self.browser.requests(), [self.addresses[name]])
        sizes = self.browser.run("""
            return Promise.all(Array.from(document.querySelectorAll('svg.picture image'),
                (each) => new Promise((done) => {
                    const size = (width, height) => done([Number(each.getAttribute('width')),
                        Number(each.getAttribute('height')), width, height]);
                    const image = new Image();
                    image.onload = () => size(image.naturalWidth, image.naturalHeight);
                    image.onerror = () => size(0, 0);
                    image.src = each.getAttribute('href');
                })));""")
        self.assertTrue(sizes)
        for told_width, told_height, width, height in sizes:
            self.assertEqual((width, height), (told_width, told_height))

    @for_each_page
    def test_the_tree_unfolds_and_folds(self, name):
        self.open(name)
        branches = self.browser.find_all(".tree details")
        self.assertEqual(bool(branches), name not in self.FLAT)
        for branch in branches:
            summary = branch.find_element("css selector", "summary")
            inner = branch.find_element("css selector", ".tree li")
            seen = "return arguments[0].checkVisibility();"
            before = self.browser.run(seen, inner)
            summary.click()
            self.assertNotEqual(self.browser.run(seen, inner), before)
            if not before:
                continue  # left open, so that what lies in it can be clicked
            summary.click()
            self.assertTrue(self.browser.run(seen, inner))
