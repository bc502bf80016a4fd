"""What the debugger's tests share: a program at its place, and what GDB prints there."""

import os
import re
import traceback

import gdb


def setting(name):
    return os.environ["KDR_" + name]


def run():
    """Runs the program until its values stand, unless a core file of it is open there."""
    if gdb.selected_inferior().pid:
        return
    gdb.execute("set args '%s'" % setting("TEXTS"))
    gdb.Breakpoint("stop")
    gdb.execute("run")


def printed(expression):
    """What `print` says, without the number of the answer."""
    return gdb.execute("print " + expression, to_string=True).split(" = ", 1)[1].rstrip("\n")


def members():
    """The names of the values, each with its class."""
    kind = gdb.parse_and_eval("values").referenced_value().type
    return [(field.name, field.type.name) for field in kind.unqualified().fields()]


def shown_values():
    """A line for every value, as in the file of what is expected."""
    lines = ["%s = %s" % (name, printed("values." + name)) for name, _ in members()]
    return lines + ["cyclic = " + printed("*shown.cyclic")]


def lines_of(path):
    with open(path, encoding="utf-8") as file:
        return file.read().splitlines()


def without_additions(line):
    """A line without what the debugger alone adds."""
    line = re.sub(r"^((?:chunk|noChunk) = chunk|lock = lock), .*", r"\1", line)
    line = re.sub(r", step [^,)]+\)", ")", line)
    return re.sub(r"(, (store )?shared by \d+)+$", "", line)


def exported_classes():
    """The classes of all exported operations, `Class::operation(...)`."""
    heads = [line.split("(")[0] for line in lines_of(setting("EXPORTED_SYMBOLS"))]
    return {head.split("::")[0].split(" ")[-1] for head in heads if "::" in head}


def same(what, actual, expected):
    """Fails with every difference."""
    differences = [
        "  printed:  %s\n  expected: %s" % pair
        for pair in zip(actual + [""] * len(expected), expected + [""] * len(actual))
        if pair[0] != pair[1]
    ]
    check(not differences, "%s:\n%s" % (what, "\n".join(differences)))


def check(condition, message):
    if not condition:
        raise AssertionError(message)


def test(body):
    """Runs a test's body; GDB leaves with its result."""
    try:
        gdb.execute("set width 0")
        gdb.execute("set height 0")
        body()
    except BaseException:
        traceback.print_exc()
        gdb.execute("quit 1")
    gdb.execute("quit 0")
