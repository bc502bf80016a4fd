#!/usr/bin/python3
"""usage: witness.py MAKER DIRECTORY

Reads files of saved values with a CBOR library that is not Qt's, as docs/format.md describes them,
and compares every value with what the operations of the classes say. MAKER writes the files into
DIRECTORY; where it is empty, the files that are there are read.
"""

import pathlib
import struct
import subprocess
import sys

import cbor2
import png

KINDS = {
    "bool": 0, "number": 1, "string": 2, "point": 3, "image": 4, "shape": 5, "point cloud": 6,
    "contour": 7, "ROI alignment": 8, "2D pose": 9, "matrix": 10, "buffer": 11, "char": 12,
    "3D point": 500, "3D vector": 501, "3D shape": 502, "3D pose": 503, "range image": 504,
    "3D contour": 505, "3x3 matrix": 506, "4x4 matrix": 507, "quaternion": 508,
    "dual quaternion": 509, "bool array": 1000, "number array": 1001, "string array": 1002,
    "point array": 1003, "image array": 1004, "range image array": 1005, "shape array": 1006,
    "point cloud array": 1007, "contour array": 1008, "matrix array": 1009, "buffer array": 1010,
    "3D point array": 1500, "3D shape array": 1501, "3D vector array": 1502,
    "3D contour array": 1503, "variant array": 1800, "3D plane": 1801, "3D plane array": 1802,
    "empty": 2000,
}
SHAPES = {
    "circle": 2, "torus": 3, "rect2": 4, "line": 5, "ellipse": 6, "arc": 7, "polygon": 8,
    "irregular": 9, "region": 10, "text": 11, "arrow": 12, "contours": 13, "rect2 matrix": 14,
    "circle matrix": 15, "polyline": 16, "curve line": 17, "any polygon": 18, "empty": 99,
    "3D text": 120,
}
# By tag: the code of the type, the bytes of an element and how struct reads it.
ELEMENTS = {64: (0, 1, "B"), 72: (1, 1, "b"), 69: (2, 2, "H"), 77: (3, 2, "h"), 78: (4, 4, "i"),
            85: (5, 4, "f"), 86: (6, 8, "d"), 79: (7, 8, "q")}
DEFAULT_RANGE = {"maximum": 999999.0, "minimum": -999999.0, "step": 1.0}


def typed(tag):
    """The elements of a typed array; floating-point ones as their 64-bit patterns."""
    _, size, letter = ELEMENTS[tag.tag]
    count = len(tag.value) // size
    if letter == "d":
        return list(struct.unpack(f"<{count}Q", tag.value))
    if letter == "f":
        return [struct.unpack("<Q", struct.pack("<d", x))[0]
                for x in struct.unpack(f"<{count}f", tag.value)]
    return list(struct.unpack(f"<{count}{letter}", tag.value))


def bits(number):
    return struct.unpack("<Q", struct.pack("<d", number))[0]


class Facts:
    def __init__(self):
        self.lines = []
        self.stores = {}
        self.pixels = {}
        self.kept = []  # so that no identity is used twice

    def say(self, line):
        self.lines.append(line)

    def pattern(self, pattern):
        self.say(f"double {pattern:016x}")

    def double(self, number):
        assert isinstance(number, float), number
        self.pattern(bits(number))

    def variant(self, value):
        # What is shared is a map that comes twice; what is in the short form is shared by nobody.
        self.kept.append(value)
        key = id(value) if isinstance(value, dict) else object()
        self.kept.append(key)
        is_new = key not in self.stores
        self.say(f"store {self.stores.setdefault(key, len(self.stores))}")
        if not is_new:
            return
        if isinstance(value, dict):
            [(kind, contents)] = value.items()
        else:
            kind, contents = self.short(value)
        self.say(f"kind {KINDS[kind]}")
        if contents is not cbor2.undefined:
            getattr(self, kind.replace(" ", "_").replace("3D", "of3D").replace("2D", "of2D"),
                    self.nothing)(contents)

    @staticmethod
    def short(value):
        for kind, types in (("bool", bool), ("number", (int, float)), ("string", str),
                            ("buffer", bytes), ("variant array", (list, tuple))):
            if isinstance(value, types):
                return kind, value
        if value is None:
            return "empty", None
        assert value.tag == 69, value
        return "string", value

    def nothing(self, contents):
        assert contents is None, contents

    def bool(self, flag):
        self.say("true" if flag else "false")

    def number(self, number):
        limits = {"maximum": 0.0, "minimum": 0.0, "step": 0.0}
        if isinstance(number, dict):
            limits = number
            number = number["value"]
        if isinstance(number, int):
            self.say(f"integer {number}")
        else:
            self.double(number)
        for name in ("maximum", "minimum", "step"):
            self.double(limits[name])

    def string(self, text):
        if text is None:
            self.say("null text")
        elif isinstance(text, str):
            self.say("text " + text.encode("utf-16-le").hex())
        else:
            assert text.tag == 69
            self.say("text " + text.value.hex())

    def buffer(self, data):
        self.say("null bytes" if data is None else "bytes " + data.hex())

    def char(self, unit):
        self.say(f"char {unit}")

    def point(self, point):
        self.double(point["x"])
        self.double(point["y"])
        for axis in ("xRange", "yRange"):
            for name in ("maximum", "minimum", "step"):
                self.double(point.get(axis, DEFAULT_RANGE)[name])

    def image(self, image):
        if image is None:
            self.say("pixels 0 0 0 0")
            return
        if isinstance(image, dict):
            height, width, channels, code, rows = picture(image["png"])
        else:
            (height, width, channels), elements = image.value
            code, size, _ = ELEMENTS[elements.tag]
            length = width * channels * size
            rows = [elements.value[i * length:(i + 1) * length] for i in range(height)]
        self.say(f"pixels {width} {height} {channels} {code}")
        self.kept.append(image)
        is_new = id(image) not in self.pixels
        self.say(f"block {self.pixels.setdefault(id(image), len(self.pixels))}")
        for row in rows if is_new else []:
            self.say("row " + row.hex())

    def matrix(self, matrix):
        assert matrix.tag == 40
        (rows, columns), elements = matrix.value
        code = ELEMENTS[elements.tag][0]
        self.say(f"matrix {rows} {columns} {code}")
        for element in typed(elements):
            if code < 5:
                self.say(f"integer {element}")
            else:
                self.pattern(element)
            for _ in range(3):
                self.pattern(0)

    def points(self, points):
        assert points.tag == 40
        (count, two), elements = points.value
        assert two == 2 and elements.tag == 86 and len(elements.value) == 16 * count
        self.say(f"length {count}")
        for element in typed(elements):
            self.pattern(element)

    contour = point_array = points

    def region(self, region):
        self.say(f"region {region['width']} {region['height']}")
        (count, three), elements = region["runs"].value
        assert three == 3 and elements.tag == 79
        numbers = typed(elements)
        assert len(numbers) == 3 * count
        for i in range(0, len(numbers), 3):
            self.say("run " + " ".join(map(str, numbers[i:i + 3])))

    def font(self, font):
        self.string(font["face"])
        for name in ("size", "weight", "bold", "italic", "underline", "strikeOut"):
            self.say(f"integer {int(font[name])}")

    def of2D_pose(self, pose):
        for name in ("x", "y", "Rz"):
            self.double(pose[name])

    def of3D_pose(self, pose):
        for name in ("x", "y", "z", "Rx", "Ry", "Rz"):
            self.double(pose[name])

    def shape(self, shape):
        [(kind, contents)] = shape.items()
        self.say(f"shape {SHAPES[kind]}")
        if kind in ("polygon", "irregular", "polyline"):
            self.points(contents)
        elif kind == "region":
            self.region(contents)
        elif kind == "contours":
            self.contour_array(contents)
        elif kind == "empty":
            assert contents is None
        else:
            self.shape_fields(dict(contents))

    def shape_fields(self, fields):
        """What is no number comes first; the numbers follow in the order of the file."""
        for name, reader in (("centres", self.points), ("points", self.points),
                             ("numbers", self.number_array), ("anchor", self.point),
                             ("text", self.string), ("font", self.font)):
            if name in fields:
                reader(fields.pop(name))
        for value in fields.values():
            if isinstance(value, dict):
                self.point(value)
            elif isinstance(value, int):
                self.say(f"integer {value}")
            else:
                self.double(value)

    def each(self, values, reader):
        self.say(f"length {len(values)}")
        for value in values:
            reader(value)

    def variant_array(self, values):
        self.each(values, self.variant)

    def bool_array(self, values):
        self.each(values, self.bool)

    def string_array(self, values):
        self.each(values, self.string)

    def buffer_array(self, values):
        self.each(values, self.buffer)

    def image_array(self, values):
        self.each(values, self.image)

    def shape_array(self, values):
        self.each(values, self.shape)

    def contour_array(self, values):
        self.each(values, self.points)

    def matrix_array(self, values):
        self.each(values, self.matrix)

    ROI_alignment = matrix_array

    def of3D_shape_array(self, values):
        assert all(value is None for value in values)
        self.say(f"length {len(values)}")

    def number_array(self, numbers):
        if isinstance(numbers, list):
            self.each(numbers, self.number)
            return
        values = typed(numbers)
        self.say(f"length {len(values)}")
        for value in values:
            if numbers.tag == 79:
                self.say(f"integer {value}")
            else:
                self.pattern(value)
            for _ in range(3):
                self.pattern(0)


def picture(data):
    """The pixels of a PNG picture, in the order of images: blue before red, low byte first."""
    width, height, lines, about = png.Reader(bytes=data).read()
    channels, size = about["planes"], about["bitdepth"] // 8
    rows = []
    for line in lines:
        pixels = [value.to_bytes(size, "little") for value in line]
        if channels > 2:
            for i in range(0, len(pixels), channels):
                pixels[i], pixels[i + 2] = pixels[i + 2], pixels[i]
        rows.append(b"".join(pixels))
    return height, width, channels, {1: 0, 2: 2}[size], rows


def facts_of(path):
    data = path.read_bytes()
    assert data.startswith(b"\xd9\xd9\xf7"), path
    name, version, value = cbor2.loads(data)
    assert (name, version) == ("KDRData", 1), path
    facts = Facts()
    facts.variant(value)
    return facts.lines


def main():
    maker, directory = sys.argv[1], pathlib.Path(sys.argv[2])
    directory.mkdir(parents=True, exist_ok=True)
    if maker:
        for old in directory.iterdir():
            old.unlink()
        subprocess.run([maker, str(directory)], check=True)
    failures = count = 0
    for path in sorted(directory.glob("*.kdr")):
        expected = path.with_suffix(".facts").read_text().splitlines()
        found = facts_of(path)
        count += 1
        if found != expected:
            failures += 1
            for line, (a, b) in enumerate(zip(found + [""], expected + [""])):
                if a != b:
                    print(f"{path}: line {line + 1}: the file says {a!r}, the value {b!r}")
                    break
    print(f"{count} files, {failures} differ")
    return 1 if failures or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
