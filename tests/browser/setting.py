"""Where the tests find what they look at. The build directory comes from the environment, which run.py
sets."""

import os
import pathlib

SOURCES = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ["KDRDATA_BUILD"]).resolve()
DOCUMENTATION = BUILD / "docs" / "html"
PAGES = SOURCES / "docs" / "pages"
KDRDUMP = BUILD / "kdrdump" / "kdrdump"
INSPECT = BUILD / "examples" / "inspect" / "inspect"
COINS = SOURCES / "examples" / "data" / "coins.png"
SAVED = SOURCES / "tests" / "kdrio" / "files" / "v1"
OUTPUT = BUILD / "browser"
SCREENSHOTS = OUTPUT / "screenshots"
