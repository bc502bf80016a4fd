"""Where Qt 5 keeps texts, bytes, lists and patterns, on 64-bit systems."""

import struct

import gdb

from . import pieces
from .memory import POINTER, Record, read, require, target

LAYOUTS = {
    "QArrayData": {"ref": 0, "size": 4, "offset": 16},
    "QListData::Data": {"ref": 0, "alloc": 4, "begin": 8, "end": 12, "array": 16},
}
# Its class is not in Qt's headers.
PATTERN = {"pattern": 8, "syntax": 16, "sensitivity": 20, "minimal": 24}

STATIC = -1


class ArrayData:
    """What a QString or a QByteArray points to."""

    def __init__(self, handle, unit):
        self._place = target(handle)
        header = Record(LAYOUTS["QArrayData"], self._place)
        self.holders = header.i32("ref")
        self.length = header.i32("size")
        self._first = self._place + header.i64("offset")
        self._unit = unit
        require(self.holders >= STATIC and self.length >= 0)
        if self.length:
            read(self._first + (self.length - 1) * unit, unit)

    def is_null(self):
        """Null is a certain empty block of Qt's own."""
        if self.holders != STATIC or self.length != 0:
            return False
        symbol = gdb.execute("info symbol %#x" % self._place, to_string=True)
        return symbol.startswith(("QArrayData::shared_null in", "_ZN10QArrayData11shared_nullE in"))

    def first(self, most):
        """The first units, no more than `most`."""
        shown = min(self.length, most)
        block = read(self._first, shown * self._unit)
        return block if self._unit == 1 else struct.unpack("<%dH" % shown, block)


def string(handle):
    """The form of a QString at an address, and how many hold its text."""
    data = ArrayData(handle, 2)
    if data.is_null():
        return "null", data.holders
    return pieces.quoted(data.first(pieces.LONGEST_TEXT + 1), data.length), data.holders


def byte_array(handle):
    """The form of a QByteArray at an address, and how many hold its bytes."""
    data = ArrayData(handle, 1)
    if data.is_null():
        return "null", data.holders
    return pieces.byte_text(data.first(pieces.LONGEST_BYTES), data.length), data.holders


class List:
    """A QList at an address. The elements lie in slots of a pointer's size, the small ones that may
    be moved in the slots themselves, the others where the slots point to."""

    def __init__(self, handle):
        place = target(handle)
        header = Record(LAYOUTS["QListData::Data"], place)
        begin, end, room = header.i32("begin"), header.i32("end"), header.i32("alloc")
        self.holders = header.i32("ref")
        require(self.holders >= STATIC and 0 <= begin <= end <= room)
        self.length = end - begin
        self._first = header.at("array") + begin * POINTER
        if self.length:
            read(self.slot(self.length - 1), POINTER)

    def slot(self, index):
        return self._first + index * POINTER


def pattern(handle):
    """The form of a QRegExp at an address."""
    record = Record(PATTERN, target(handle))
    syntax, sensitivity = record.u32("syntax"), record.u32("sensitivity")
    require(syntax <= 5 and sensitivity <= 1)
    names = ("regular expression", "wildcard", "fixed string", "regular expression 2",
             "Unix wildcard", "XML Schema 1.1")
    text = "%s, %s" % (string(record.at("pattern"))[0], names[syntax])
    if sensitivity == 0:
        text += ", any case"
    return text + ", minimal" if record.u8("minimal") else text
