"""What the text forms are put together from; the same as in <kdrdata/debug/kdrdebugpieces.h>."""

import math

from .memory import Garbage

LONGEST_TEXT = 80
LONGEST_BYTES = 16
LONGEST_LIST = 10
DEEPEST_LIST = 3
MOST_CELLS = 16

HIDDEN = (
    (0x0, 0x1F), (0x7F, 0x9F), (0xAD, 0xAD), (0x200B, 0x200F), (0x2028, 0x202E),
    (0x2060, 0x206F), (0xD800, 0xDFFF), (0xFEFF, 0xFEFF), (0xFFF0, 0xFFFB), (0xFFFE, 0xFFFF),
)
ESCAPES = {0x0A: "\\n", 0x0D: "\\r", 0x09: "\\t"}


def decimal(value):
    if math.isnan(value):
        return "nan"
    if value == 0:
        return "-0" if math.copysign(1, value) < 0 else "0"
    for digits in (15, 16, 17):
        text = "%.*g" % (digits, value)
        if float(text) == value:
            break
    return text


def floating(value):
    text = decimal(value)
    return text if text.strip("-0123456789") else text + ".0"


def pair(x, y):
    return "(%s, %s)" % (decimal(x), decimal(y))


def count(value, noun):
    return "%d %s%s" % (value, noun, "" if value == 1 else "s")


def shared(holders):
    """What the debugger alone adds: how many hold what a value holds."""
    return ", shared by %d" % holders if holders > 1 else ""


def is_high(unit):
    return unit & 0xFC00 == 0xD800


def is_low(unit):
    return unit & 0xFC00 == 0xDC00


def escaped(code, quote):
    if chr(code) in (quote, "\\"):
        return "\\" + chr(code)
    if code in ESCAPES:
        return ESCAPES[code]
    if any(first <= code <= last for first, last in HIDDEN):
        return "\\u%04x" % code
    return chr(code)


def quoted(units, length, quote='"'):
    """`units` are the first code units, one more than are shown where there are as many."""
    shown = length
    if length > LONGEST_TEXT:
        shown = LONGEST_TEXT
        if is_high(units[shown - 1]) and is_low(units[shown]):
            shown -= 1
    text = quote
    i = 0
    while i < shown:
        code = units[i]
        if is_high(code) and i + 1 < shown and is_low(units[i + 1]):
            i += 1
            code = 0x10000 + ((code & 0x3FF) << 10) + (units[i] & 0x3FF)
        text += escaped(code, quote)
        i += 1
    text += quote
    return text if shown == length else "%s... (length %d)" % (text, length)


def byte_text(first, length):
    """`first` are the first bytes, as many as are shown."""
    text = count(length, "byte")
    if length:
        text += ": " + " ".join("%02x" % byte for byte in first[:LONGEST_BYTES])
    return text + " ..." if length > LONGEST_BYTES else text


def list_text(length, depth, element_text):
    if length <= 0:
        return "[]"
    shown = min(length, LONGEST_LIST if depth < DEEPEST_LIST else 0)
    texts = [guarded(element_text, i) for i in range(shown)]
    if shown == length:
        return "[%s]" % ", ".join(texts)
    return "[%s] (length %d)" % (", ".join(texts + ["..."]), length)


def guarded(function, *arguments):
    """A text, whatever the memory holds."""
    try:
        return function(*arguments)
    except Garbage as garbage:
        return "<%s>" % garbage
    except Exception as error:  # pylint: disable=broad-except
        # Looking at a value must not fail for what a program left behind.
        return "<garbage: %s>" % type(error).__name__
