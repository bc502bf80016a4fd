"""Reads the program's memory and tells garbage from objects."""

import struct

import gdb

POINTER = 8


class Garbage(Exception):
    """What lies here is no object: never made, destroyed or overwritten."""


class NoObject(Garbage):
    """A null pointer where an object's own is."""

    def __init__(self):
        super().__init__("destroyed or never made")


def read(address, size):
    if size == 0:
        return b""
    try:
        return bytes(gdb.selected_inferior().read_memory(address, size))
    except (gdb.error, OverflowError, ValueError, TypeError) as error:
        raise Garbage("garbage: no memory at %#x" % address) from error


def number(address, form):
    return struct.unpack("<" + form, read(address, struct.calcsize("<" + form)))[0]


def pointer(address):
    """The pointer at an address; it may be null."""
    return number(address, "Q")


def target(address):
    """What the pointer at an address points to, which must be an object."""
    return checked(pointer(address))


def checked(place):
    if place == 0:
        raise NoObject()
    if place % POINTER:
        raise Garbage("garbage: no object at %#x" % place)
    read(place, 1)
    return place


def require(condition):
    if not condition:
        raise Garbage("garbage")


class Record:
    """The fields of an object by the table of its layout."""

    def __init__(self, layout, address):
        self._layout = layout
        self._address = address

    def at(self, field):
        return self._address + self._layout[field]

    def i32(self, field):
        return number(self.at(field), "i")

    def u32(self, field):
        return number(self.at(field), "I")

    def i64(self, field):
        return number(self.at(field), "q")

    def u8(self, field):
        return number(self.at(field), "B")

    def f64(self, field):
        return number(self.at(field), "d")

    def pointer(self, field):
        return pointer(self.at(field))

    def target(self, field):
        return target(self.at(field))
