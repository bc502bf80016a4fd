"""A browser without a window, and what the tests ask of it."""

import base64
import contextlib
import functools
import http.server
import json
import os
import shutil
import tempfile
import threading

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.actions.action_builder import ActionBuilder
from selenium.webdriver.common.actions.pointer_input import PointerInput
from selenium.webdriver.support.ui import WebDriverWait

WIDTHS = {"desktop": (1280, 900), "phone": (390, 844)}
APPEARANCES = ("light", "dark")
# A busy machine may take its time; what never happens fails all the same.
PATIENCE = 60

# What sticks out of the page on the right, outermost first, but for what lies in a box that scrolls by
# itself. Only asked where the page is wider than the window.
STICKING_OUT = """
const width = document.documentElement.clientWidth;
const scrolls = (each) => each && each !== document.body && each !== document.documentElement &&
    (getComputedStyle(each).overflowX !== 'visible' || scrolls(each.parentElement));
return Array.from(document.body.querySelectorAll('*'))
    .filter((each) => each.getBoundingClientRect().right > width + 0.5 && !scrolls(each.parentElement))
    .slice(0, 3).map((each) => each.outerHTML.slice(0, 120));
"""


def variants():
    """Every width with every appearance."""
    return [(width, appearance) for width in WIDTHS for appearance in APPEARANCES]


class Quiet(http.server.SimpleHTTPRequestHandler):
    def do_GET(self):
        # No page names one; browsers ask all the same.
        if self.path == "/favicon.ico":
            self.send_response(204)
            self.end_headers()
        else:
            super().do_GET()

    def log_message(self, *_):
        """Says nothing."""


@contextlib.contextmanager
def served(directory):
    """The address at which the files of a directory are served as long as this is in use."""
    handler = functools.partial(Quiet, directory=directory)
    with http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler) as server:
        thread = threading.Thread(target=server.serve_forever)
        thread.start()
        try:
            yield f"http://127.0.0.1:{server.server_port}"
        finally:
            server.shutdown()
            thread.join()


class Browser:
    """Chromium under its driver, with a profile of its own that goes with it."""

    def __init__(self, screenshots, with_requests=False):
        # The driver listens on this machine, which no proxy reaches.
        os.environ["no_proxy"] = "localhost,127.0.0.1"
        self.screenshots = screenshots
        self.profile = tempfile.mkdtemp()
        options = webdriver.ChromeOptions()
        options.binary_location = shutil.which("chromium")
        for argument in (
            "headless=new", "no-sandbox", "disable-gpu", "disable-quic", "no-first-run",
            "disable-background-networking", "disable-component-update", "disable-sync",
            "disable-dev-shm-usage", "hide-scrollbars", f"user-data-dir={self.profile}",
        ):
            options.add_argument(f"--{argument}")
        logs = {"browser": "ALL", **({"performance": "ALL"} if with_requests else {})}
        options.set_capability("goog:loggingPrefs", logs)
        try:
            self.driver = webdriver.Chrome(
                service=Service(shutil.which("chromedriver")), options=options)
        except BaseException:
            shutil.rmtree(self.profile, ignore_errors=True)
            raise
        self.driver.set_page_load_timeout(PATIENCE)
        self.driver.set_script_timeout(PATIENCE)

    def close(self):
        self.driver.quit()
        shutil.rmtree(self.profile, ignore_errors=True)

    def show_as(self, width, appearance):
        """Sets the size of the page, by a name in WIDTHS, and what the system is said to prefer."""
        self.resize(*WIDTHS[width])
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {
            "features": [{"name": "prefers-color-scheme", "value": appearance}]})

    def resize(self, columns, lines):
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": columns, "height": lines, "deviceScaleFactor": 1, "mobile": False})

    def open(self, address):
        self.driver.get(address)

    def run(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def find(self, selector):
        return self.driver.find_element("css selector", selector)

    def find_all(self, selector):
        return self.driver.find_elements("css selector", selector)

    def point_at(self, selector, right=0, down=0):
        """Moves the mouse to a place so far from the middle of what is named."""
        ActionChains(self.driver, duration=0).move_to_element_with_offset(
            self.find(selector), right, down).perform()

    def tap(self, selector):
        """Touches the middle of a place with a finger, wherever it is."""
        place = self.find(selector)
        self.run("arguments[0].scrollIntoView({block: 'center', behavior: 'instant'});", place)
        self.driver.execute_cdp_cmd("Emulation.setTouchEmulationEnabled", {"enabled": True})
        finger = PointerInput("touch", "finger")
        actions = ActionBuilder(self.driver, mouse=finger, duration=0)
        actions.pointer_action.move_to(place).pointer_down().pointer_up()
        actions.perform()
        self.driver.execute_cdp_cmd("Emulation.setTouchEmulationEnabled", {"enabled": False})

    def wait_for(self, condition, what):
        return WebDriverWait(self.driver, PATIENCE).until(lambda _: condition(), what)

    def errors(self):
        """What went wrong since it was last asked: scripts that failed, files that were not there."""
        return [entry["message"] for entry in self.driver.get_log("browser")
                if entry["level"] == "SEVERE"]

    def requests(self):
        """The addresses that were asked for since that was last asked, but for data in the page. Only
        where the browser was made with them."""
        messages = (json.loads(entry["message"])["message"]
                    for entry in self.driver.get_log("performance"))
        addresses = [message["params"]["request"]["url"] for message in messages
                     if message["method"] == "Network.requestWillBeSent"]
        return [address for address in addresses if not address.startswith("data:")]

    def too_wide(self):
        """What makes the page wider than the window: nothing, where it fits."""
        if self.run("return document.documentElement.scrollWidth <= innerWidth"):
            return []
        return self.run(STICKING_OUT) or ["the page scrolls sideways"]

    def brightness(self, place="body"):
        """How bright the ground of the middle of the window's left edge is painted, 0 to 255."""
        picture = self.driver.execute_cdp_cmd("Page.captureScreenshot", {
            "format": "png", "clip": {"x": 1, "y": 300, "width": 1, "height": 1, "scale": 1}})
        return self.driver.execute_async_script("""
            const [data, done] = arguments;
            const image = new Image();
            image.onload = () => {
                const canvas = document.createElement('canvas');
                const context = canvas.getContext('2d');
                context.drawImage(image, 0, 0);
                const [r, g, b] = context.getImageData(0, 0, 1, 1).data;
                done((r + g + b) / 3);
            };
            image.src = 'data:image/png;base64,' + data;
        """, picture["data"])

    def take_picture(self, name):
        """Writes what is seen, to the end of the page but no further than a few windows."""
        columns = self.run("return innerWidth")
        lines = self.run("return Math.min(document.documentElement.scrollHeight, 4000)")
        # Drawings in frames outside of the window would not be painted.
        self.resize(columns, lines)
        picture = self.driver.execute_cdp_cmd("Page.captureScreenshot", {"format": "png"})
        (self.screenshots / f"{name}.png").write_bytes(base64.b64decode(picture["data"]))
