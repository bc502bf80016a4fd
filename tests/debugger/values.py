"""Every value prints as expected, and as the library's own text forms say where both can say it."""

import os
import sys

import gdb

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import session  # pylint: disable=wrong-import-position


def body():
    session.run()
    lines = session.shown_values()
    session.same("as expected", lines, session.lines_of(session.setting("EXPECTED")))
    session.same("as the text forms", [session.without_additions(line) for line in lines],
                 session.lines_of(session.setting("TEXTS")))
    if "KDR_WRITES_CORE" in os.environ:
        gdb.execute("generate-core-file " + os.environ["KDR_WRITES_CORE"])


session.test(body)
