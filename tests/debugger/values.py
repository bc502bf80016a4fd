"""Every value prints as expected, and as the library's own text forms say where both can say it."""

import os
import sys

import gdb

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import gdbtest  # pylint: disable=wrong-import-position


def body():
    gdbtest.run()
    lines = gdbtest.shown_values()
    gdbtest.same("as expected", lines, gdbtest.lines_of(gdbtest.setting("EXPECTED")))
    gdbtest.same("as the text forms", [gdbtest.without_additions(line) for line in lines],
                 gdbtest.lines_of(gdbtest.setting("TEXTS")))
    if "KDR_WRITES_CORE" in os.environ:
        gdb.execute("generate-core-file " + os.environ["KDR_WRITES_CORE"])


gdbtest.test(body)
