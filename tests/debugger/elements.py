"""The elements of arrays unfold where that is asked for, every class has a printer, and a value may
be named in any way."""

import os
import sys

import gdb

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import gdbtest  # pylint: disable=wrong-import-position


def body():
    gdbtest.run()
    expected = {
        "values.numbers": "[1, 2.5, 3.0], shared by 4 = {1 (int), 2.5 (double), 3.0 (double)}",
        "values.strings": '["left", "", null], shared by 2 = {"left", "", null}',
        "values.points": "[(3, 4), (5, 6), (7.25, -8)] = {(3, 4), (5, 6), (7.25, -8)}",
        "values.flagsVariant": "bool array [true, false], shared by 2 = {true, false}",
        "values.noNumbers": "[]",
        "values.rangedNumber": "5 (int, range -10..10, step 1)",
        "values.matrices3": "[no data]",
        "shown.destroyed->numbers": "<destroyed or never made>",
    }
    gdb.execute("set print kdrdata-elements on")
    for expression, text in expected.items():
        gdbtest.same(expression, [gdbtest.printed(expression)], [text])
    unfolded = gdbtest.printed("values.arrayVariant")
    gdbtest.check(unfolded.endswith(
        "= {number 5 (int), string \"one two\", store shared by 2, empty, number 2.0 (double), "
        "number array [1, 2.5, 3.0], shared by 4, store shared by 2 = "
        "{1 (int), 2.5 (double), 3.0 (double)}}"), unfolded)
    gdb.execute("set print kdrdata-elements off")
    for expression, text in expected.items():
        gdbtest.same(expression, [gdbtest.printed(expression)], [text.split(" = ")[0]])

    printers = gdb.execute("info pretty-printer", to_string=True).split()
    gdbtest.same("printers", [name for name in printers if name in gdbtest.exported_classes()],
                 sorted(gdbtest.exported_classes()))

    gdb.execute("set var $number = &values.rangedNumber")
    for expression in ("*$number", "*(KDRNumber*)$number", "(KDRNumber const&)values.rangedNumber",
                       "values.rangedNumber"):
        gdbtest.same(expression, [gdbtest.printed(expression)],
                     ["5 (int, range -10..10, step 1)"])
    gdb.execute("set print pretty on")
    gdbtest.check("  rangedNumber = 5 (int, range -10..10, step 1),\n" in
                  gdbtest.printed("values"), "not inside of another value")

    gdb.execute("set target-charset ASCII")
    gdbtest.same("a terminal without UTF-8", [gdbtest.printed("values.foreignString")],
                 [r'"Gr\xfc\xdfe \u4e2d \U0001f642"'])


gdbtest.test(body)
