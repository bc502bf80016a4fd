"""The printers' tables say where the fields of every record lie, and how large elements are."""

import os
import sys

import gdb

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.environ["KDR_PRINTERS"])
import gdbtest  # pylint: disable=wrong-import-position
from kdrdata_gdb import core, qt, records  # pylint: disable=wrong-import-position


def field_of(kind, name):
    """The offset in bytes and the type of a field, of a base class's too; None if there is none."""
    for field in kind.strip_typedefs().fields():
        if not hasattr(field, "bitpos"):
            continue
        if field.is_base_class:
            found = field_of(field.type, name)
            if found:
                return field.bitpos // 8 + found[0], found[1]
        elif field.name == name:
            return field.bitpos // 8, field.type
    return None


def offset(record, path):
    total, kind = 0, gdb.lookup_type(record)
    for name in path.split("."):
        found = field_of(kind, name)
        gdbtest.check(found, "%s has no %s" % (record, path))
        total, kind = total + found[0], found[1]
    return total


def body():
    tables = [("records.py", records.LAYOUTS), ("qt.py", qt.LAYOUTS)]
    if os.environ["KDR_BUNDLED_CORE"] == "1":
        tables.append(("core.py", core.LAYOUTS))
        for name, size in core.SIZES.items():
            gdbtest.check(gdb.lookup_type(name).sizeof == size,
                          "tools/gdb/kdrdata_gdb/core.py: another size: " + name)
    checked = 0
    for file, table in tables:
        for record, fields in table.items():
            for path, place in fields.items():
                actual = offset(record, path)
                gdbtest.check(actual == place, "tools/gdb/kdrdata_gdb/%s: %s::%s lies at %d, not %d"
                              % (file, record, path, actual, place))
                checked += 1
    gdbtest.check(checked > 40, "hardly a field was looked at")


gdbtest.test(body)
