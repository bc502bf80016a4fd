#!/usr/bin/python3
"""usage: run.py BUILD_DIRECTORY [WORD...]

Looks at the built documentation, at the demo's reports and at the pages of saved values in a browser
without a window; with words, runs the tests alone whose names hold one of them. Leaves screenshots in BUILD_DIRECTORY/browser/screenshots.
"""

import os
import pathlib
import shutil
import sys
import unittest


def main():
    if len(sys.argv) < 2 or sys.argv[1].startswith("-"):
        sys.exit(__doc__.strip())
    os.environ["KDRDATA_BUILD"] = sys.argv[1]
    import setting  # it reads what was just set

    words = sys.argv[2:]
    if not words:
        shutil.rmtree(setting.OUTPUT, ignore_errors=True)
    setting.SCREENSHOTS.mkdir(parents=True, exist_ok=True)
    loader = unittest.TestLoader()
    if words:
        loader.testNamePatterns = [f"*{word}*" for word in words]
    suite = loader.discover(str(pathlib.Path(__file__).parent), pattern="*_test.py")
    result = unittest.TextTestRunner(verbosity=2).run(suite)
    print(f"the screenshots are in {setting.SCREENSHOTS}")
    return 0 if result.wasSuccessful() and result.testsRun else 1


if __name__ == "__main__":
    sys.exit(main())
