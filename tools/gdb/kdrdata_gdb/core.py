"""Where the core data library keeps what it holds. These are the layouts of the bundled core
(veldata/), compiled with libstdc++; for another core this file is another."""

import array
import struct

from . import pieces
from .memory import Record, checked, number, pointer, read, require

LAYOUTS = {
    "VelVar": {"type": 0, "value": 8},
    "VelFont": {
        "faceName": 0, "size": 16, "weight": 24,
        "bold": 32, "italic": 33, "underline": 34, "strikeOut": 35,
    },
    "VelImage": {"d": 0},
    "VelPixels": {
        "geometry.width": 0, "geometry.height": 4, "geometry.channels": 8, "geometry.type": 12,
        "images": 24,
    },
    "VelMatrix": {"rowCount": 0, "columnCount": 4, "elementType": 8, "elements": 16},
    "VelPoint": {"x": 0, "y": 8},
    "VelPointArray": {"d": 0},
    "VelImageArray": {"d": 0},
    "VelMatrixArray": {"d": 0},
    "VelRegionArray": {"d": 0},
    "VelContourArray": {"d": 0},
    "VelContour": {"outline.d": 0},
    "VelRegion": {
        "runs._M_ptr": 0, "runs._M_refcount._M_pi": 8, "extentWidth": 16, "extentHeight": 20,
    },
    "VelRuns": {"items._M_impl._M_start": 0, "items._M_impl._M_finish": 8},
    "VelRun": {"row": 0, "first": 8, "last": 16},
    "VelMatchModel": {
        "type": 0, "payload._M_impl._M_start": 8, "payload._M_impl._M_finish": 16,
    },
    "VelChunkData": {"content._M_impl._M_start": 0, "content._M_impl._M_finish": 8},
    # What a std::shared_ptr counts its holders in.
    "SharedCount": {"_M_use_count": 8},
    "VelList<VelPoint>": {"items._M_impl._M_start": 0, "items._M_impl._M_finish": 8},
}
SIZES = {"VelPoint": 16, "VelImage": 8, "VelMatrix": 40, "VelRegion": 24, "VelContour": 8,
         "VelRun": 24}

TYPES = ("u8", "s8", "u16", "s16", "s32", "f32", "f64")
ELEMENTS = ("B", "b", "H", "h", "i", "f", "d")
MOST_RUNS = 50 * 1000 * 1000
MODEL_HEAD = 16
WIDE_TEXT = 3
LONGEST_NAME = 200


def record(name, place):
    return Record(LAYOUTS[name], place)


def type_name(code):
    return TYPES[code] if 0 <= code < len(TYPES) else "type %d" % code


class Vector:
    """A std::vector in a record."""

    def __init__(self, holder, field, size):
        self.first = holder.pointer(field + "._M_impl._M_start")
        end = holder.pointer(field + "._M_impl._M_finish")
        require(self.first <= end and (end - self.first) % size == 0)
        self.length = (end - self.first) // size
        if self.length:
            read(end - 1, 1)


class Elements:
    """The elements of an array of the core's, whose pointer is null where there are none."""

    def __init__(self, place, name):
        self.size = SIZES[name]
        items = pointer(place)
        self.length = 0
        self.first = 0
        if items:
            vector = Vector(record("VelList<VelPoint>", checked(items)), "items", self.size)
            self.length, self.first = vector.length, vector.first

    def at(self, index):
        return self.first + index * self.size


def array_text(place, depth, name, element_text):
    elements = Elements(place, name)
    return pieces.list_text(elements.length, depth,
                            lambda i: element_text(elements.at(i), depth + 1, False))


def coordinates(place):
    point = record("VelPoint", place)
    return point.f64("x"), point.f64("y")


def point(place, _depth, _full):
    return pieces.pair(*coordinates(place))


def points(place, depth, _full):
    return array_text(place, depth, "VelPoint", point)


def contour(place, depth, full):
    return points(record("VelContour", place).at("outline.d"), depth, full)


def contours(place, depth, _full):
    return array_text(place, depth, "VelContour", contour)


def image(place, _depth, full):
    pixels = record("VelImage", place).pointer("d")
    if pixels == 0:
        return "empty"
    geometry = record("VelPixels", checked(pixels))
    width, height, channels, code = (
        geometry.i32("geometry." + field) for field in ("width", "height", "channels", "type"))
    holders = geometry.i32("images")
    require(width > 0 and height > 0 and 1 <= channels <= 4 and 0 <= code < 7 and holders > 0)
    text = "%dx%dx%d %s" % (width, height, channels, type_name(code))
    return text + pieces.shared(holders) if full else text


def images(place, depth, _full):
    return array_text(place, depth, "VelImage", image)


def region(place, _depth, full):
    holder = record("VelRegion", place)
    runs = holder.pointer("runs._M_ptr")
    length = pixels = holders = 0
    if runs:
        vector = Vector(record("VelRuns", checked(runs)), "items", SIZES["VelRun"])
        require(vector.length <= MOST_RUNS)
        numbers = array.array("q", read(vector.first, vector.length * SIZES["VelRun"]))
        length = vector.length
        # As the runs are counted by the operations that tell them.
        pixels = (sum(numbers[2::3]) - sum(numbers[1::3]) + length) % 2**64
        holders = record("SharedCount", holder.target("runs._M_refcount._M_pi")).i32("_M_use_count")
        require(holders > 0)
    text = "%s in %s of %dx%d" % (
        pieces.count(pixels, "pixel"), pieces.count(length, "run"),
        holder.i32("extentWidth"), holder.i32("extentHeight"))
    return text + pieces.shared(holders) if full else text


def regions(place, depth, _full):
    return array_text(place, depth, "VelRegion", region)


def matrix(place, _depth, _full):
    holder = record("VelMatrix", place)
    rows, columns, code = (
        holder.i32(field) for field in ("rowCount", "columnCount", "elementType"))
    require(rows >= 0 and columns >= 0 and 0 <= code < 7)
    text = "%dx%d %s" % (rows, columns, type_name(code))
    cells = rows * columns
    if not 1 <= cells <= pieces.MOST_CELLS:
        return text
    form = "<%d%s" % (cells, ELEMENTS[code])
    values = struct.unpack(form, read(holder.pointer("elements"), struct.calcsize(form)))
    texts = [pieces.floating(value) if isinstance(value, float) else str(value)
             for value in values]
    lines = [", ".join(texts[i:i + columns]) for i in range(0, cells, columns)]
    return "%s [%s]" % (text, "; ".join(lines))


def matrices(place, depth, _full):
    return array_text(place, depth, "VelMatrix", matrix)


def match_model(place, _depth, _full):
    model = record("VelMatchModel", place)
    length = MODEL_HEAD + Vector(model, "payload", 1).length
    return "type %d, record of %s" % (model.i32("type"), pieces.count(length, "byte"))


def chunk(place, _depth, full):
    content = Vector(record("VelChunkData", place), "content", 1)
    first = read(content.first, min(content.length, pieces.LONGEST_BYTES))
    return "chunk, " + pieces.byte_text(first, content.length) if full else "chunk"


def wide_text(place):
    """The code units of a zero-terminated UCS-4 text; null is the empty one."""
    units = []
    while place and len(units) < 2 * LONGEST_NAME:
        code = number(place + 4 * len(units), "I")
        if code == 0:
            break
        require(code <= 0x10FFFF)
        units.append(code)
    units = "".join(map(chr, units)).encode("utf-16-le", "surrogatepass")
    return struct.unpack("<%dH" % (len(units) // 2), units)


def font(place, _depth, _full):
    holder = record("VelFont", place)
    name = record("VelVar", holder.at("faceName"))
    kind = name.i32("type")
    require(0 <= kind <= WIDE_TEXT)
    units = wide_text(name.pointer("value")) if kind == WIDE_TEXT else ()
    text = "%s, size %d" % (pieces.quoted(units, len(units)), holder.i64("size"))
    if holder.i64("weight"):
        text += ", weight %d" % holder.i64("weight")
    for field, words in (("bold", "bold"), ("italic", "italic"), ("underline", "underlined"),
                         ("strikeOut", "struck out")):
        if holder.u8(field):
            text += ", " + words
    return text
