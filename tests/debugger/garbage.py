"""Whatever the memory holds, a value prints in one line, and what is destroyed prints as such."""

import itertools
import os
import random
import struct
import sys

import gdb

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import gdbtest  # pylint: disable=wrong-import-position

WORDS = 4096
SEED = 20240607
ROUNDS = 60
GONE = "<destroyed or never made>"


def handles():
    """The classes with one pointer to what they hold."""
    import kdrdata_gdb.records  # loaded with the library
    return kdrdata_gdb.records.HANDLES


def looks(kind, place):
    """What a value of a class prints at a place."""
    value = gdb.Value(place).cast(kind.pointer()).dereference()
    printer = gdb.default_visualizer(value)
    gdbtest.check(printer is not None, "no printer for %s" % kind)
    text = printer.to_string()
    gdbtest.check(isinstance(text, str) and text and "\n" not in text,
                  "%s prints as %r" % (kind, text))
    for name, child in itertools.islice(getattr(printer, "children", list)(), 3):
        gdbtest.check(name and (isinstance(child, str) or looks_of_element(child)),
                      "an element of %s" % kind)
    return text


def looks_of_element(value):
    """What an element prints, which a plain one does by itself."""
    printer = gdb.default_visualizer(value)
    return printer.to_string() if printer else value.type.name == "bool"


def word(source, place):
    """A word of a kind that memory is full of."""
    return source.choice((
        lambda: 0,
        lambda: source.randrange(8),
        lambda: source.getrandbits(64),
        lambda: source.getrandbits(31) << 32 | source.randrange(3),
        lambda: source.choice((1, 1 << 32, 1 | 1 << 32, 0xFFFFFFFF, 24)),
        lambda: place + 8 * source.randrange(WORDS),
        lambda: place + 8 * source.randrange(WORDS),
        lambda: place + source.randrange(8 * WORDS),
    ))()


def body():
    gdbtest.run()
    values = gdb.parse_and_eval("values").referenced_value()
    kinds = {field.type.name: field.type for field in values.type.unqualified().fields()}
    gdbtest.check(set(kinds) == gdbtest.exported_classes(), "a class has no value")
    place = int(gdb.parse_and_eval("shown.garbage"))
    memory = gdb.selected_inferior()
    gdb.execute("set print kdrdata-elements on")
    size = 8 * WORDS

    for name, _ in gdbtest.members():
        kind = gdb.parse_and_eval("values." + name).type.unqualified()
        text = gdbtest.printed("shown.destroyed->" + name)
        gdbtest.check(kind.name not in handles() or text == GONE,
                      "destroyed: %s prints as %s" % (kind, text))

    for byte in (b"\x00", b"\x01", b"\x7f", b"\xa5", b"\xff"):
        memory.write_memory(place, byte * size)
        for name, kind in kinds.items():
            text = looks(kind, place)
            if name in handles():
                gdbtest.check(text == GONE if byte == b"\x00" else text.startswith("<garbage"),
                              "%r: %s prints as %s" % (byte, kind, text))

    memory.write_memory(place, struct.pack("<Q", 8))
    for name, kind in kinds.items():
        if name in handles():
            gdbtest.same("a wild pointer: %s" % kind, [looks(kind, place)],
                         ["<garbage: no memory at 0x8>"])

    memory.write_memory(place, struct.pack("<%dQ" % WORDS, *[place] * WORDS))
    for kind in kinds.values():
        looks(kind, place)
        looks(kind, 8)
        looks(kind, 2**64 - 8)
    memory.write_memory(place, struct.pack("<%dQ" % WORDS,
                                           *[int(gdb.parse_and_eval("(long)&stop")) & ~7] * WORDS))
    for kind in kinds.values():
        looks(kind, place)

    source = random.Random(SEED)
    for _ in range(ROUNDS):
        memory.write_memory(place, struct.pack("<%dQ" % WORDS,
                                               *[word(source, place) for _ in range(WORDS)]))
        for kind in kinds.values():
            for _ in range(3):
                looks(kind, place + 8 * source.randrange(WORDS // 2))


gdbtest.test(body)
