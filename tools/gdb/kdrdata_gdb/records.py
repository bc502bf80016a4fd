"""The library's own records: where their fields lie, and what is told of them."""

from . import core, pieces, qt
from .memory import Record, number, require, target

LAYOUTS = {
    "KDRNumberPrivate": {"value": 0, "kind": 8, "maxValue": 16, "minValue": 24, "step": 32},
    "KDREnumPrivate": {"indexList": 0, "stringList": 8, "currentValue": 16},
    "KDRPointPrivate": {
        "d": 0, "m_xMaxVal": 8, "m_xMinVal": 16, "m_xStepVal": 24,
        "m_yMaxVal": 32, "m_yMinVal": 40, "m_yStepVal": 48,
    },
    "KDRShapePrivate": {
        "m_kind": 0, "m_refs": 4, "m_firstPoint": 16, "m_secondPoint": 24,
        "m_p0": 40, "m_p1": 48, "m_p2": 56, "m_p3": 64,
        "m_font": 72, "m_text": 80, "m_points": 88, "m_region": 96, "m_contours": 104,
        "m_numbers": 112,
    },
    "KDRVariantLock": {"d": 8},
    "KDRVariantPrivate": {"m_refs": 0, "m_kind": 4, "m_payload": 8},
    "KDRPose2D": {"m_x": 0, "m_y": 8, "m_Rz": 16},
    "KDRPose3D": {"m_x": 0, "m_y": 8, "m_z": 16, "m_Rx": 24, "m_Ry": 32, "m_Rz": 40},
}
DEFAULT_RANGE = (-999999.0, 999999.0, 1.0)

# A form takes an address, how deep in lists it stands and whether it says all, what the debugger
# alone adds included, or only what it is as a part of another. The address is that of the object
# itself or, for a handle, of what its pointer points to.


def record(name, place):
    return Record(LAYOUTS[name], place)


def with_holders(form):
    """A form of Qt's, which takes the address of the object with the pointer."""
    def text(place, _depth, full):
        said, holders = form(place)
        return said + pieces.shared(holders) if full else said
    return text


string = with_holders(qt.string)
byte_array = with_holders(qt.byte_array)


def character(place, _depth, _full):
    unit = number(place, "H")
    return "%s (U+%04x)" % (pieces.quoted((unit,), 1, "'"), unit)


def pattern(place, _depth, _full):
    return qt.pattern(place)


def in_slots(element_text, reach):
    """The form of an array over a QList; `reach` finds the element from its slot."""
    def text(place, depth, full):
        items = qt.List(place)
        said = pieces.list_text(
            items.length, depth, lambda i: element_text(reach(items.slot(i)), depth + 1, False))
        return said + pieces.shared(items.holders) if full else said
    return text


def itself(slot):
    return slot


def number_text(place, _depth, full):
    holder = record("KDRNumberPrivate", place)
    kind = holder.i32("kind")
    require(kind in (0, 1))
    text = str(holder.i64("value")) if kind == 0 else pieces.floating(holder.f64("value"))
    if not full:
        return text
    text += " (int" if kind == 0 else " (double"
    first, last, step = (holder.f64(field) for field in ("minValue", "maxValue", "step"))
    if first != 0 or last != 0:
        text += ", range %s..%s" % (pieces.decimal(first), pieces.decimal(last))
    if first != 0 or last != 0 or step != 0:
        text += ", step %s" % pieces.decimal(step)
    return text + ")"


def flag(place, _depth, _full):
    value = number(place, "B")
    require(value in (0, 1))
    return "true" if value else "false"


strings = in_slots(string, itself)
numbers = in_slots(number_text, target)


def selection(place, depth, _full):
    holder = record("KDREnumPrivate", place)
    chosen = holder.i32("currentValue")
    text = "none" if chosen == -1 else str(chosen)
    names = qt.List(holder.target("stringList"))
    if 0 <= chosen < names.length:
        text += " " + string(names.slot(chosen), depth, False)
    text += " of " + strings(holder.target("stringList"), depth, False)
    if qt.List(holder.target("indexList")).length:
        text += ", numbers " + numbers(holder.target("indexList"), depth, False)
    return text


def point(place, _depth, full):
    holder = record("KDRPointPrivate", place)
    text = pieces.pair(*core.coordinates(holder.target("d")))
    ranges = [tuple(holder.f64("m_" + axis + end) for end in ("MinVal", "MaxVal", "StepVal"))
              for axis in ("x", "y")]
    if not full or ranges == [DEFAULT_RANGE, DEFAULT_RANGE]:
        return text
    return "%s in %s" % (text, ", ".join(
        "%s %s..%s by %s" % ((axis,) + tuple(map(pieces.decimal, values)))
        for axis, values in zip("xy", ranges)))


def pose2d(place, _depth, _full):
    pose = record("KDRPose2D", place)
    return "%s, Rz %s" % (pieces.pair(pose.f64("m_x"), pose.f64("m_y")),
                          pieces.decimal(pose.f64("m_Rz")))


def pose3d(place, _depth, _full):
    pose = record("KDRPose3D", place)
    return "(%s, %s, %s), Rx %s, Ry %s, Rz %s" % tuple(
        pieces.decimal(pose.f64("m_" + field)) for field in ("x", "y", "z", "Rx", "Ry", "Rz"))


class Shape:
    """The parameters of a shape's record, each after its name."""

    def __init__(self, place, depth):
        self._holder = record("KDRShapePrivate", place)
        self._depth = depth

    def part(self, name, field, form):
        text = form(self._holder.target(field), self._depth, False)
        return "%s %s" % (name, text) if name else text

    def first(self, name):
        return self.part(name, "m_firstPoint", point)

    def two(self, first, second):
        return [self.first(first), self.part(second, "m_secondPoint", point)]

    def points(self, name=""):
        return [self.part(name, "m_points", core.points)]

    def numbers(self, *names):
        return ["%s %s" % (name, pieces.decimal(self._holder.f64("m_p%d" % i)))
                for i, name in enumerate(names)]

    def count(self, field):
        return ["count %d" % int(self._holder.f64(field))]

    def label(self):
        return self.part("", "m_text", string), self.part("font", "m_font", core.font)


def label(shape):
    text, font = shape.label()
    return [text, shape.first("anchor"), font]


SHAPES = {
    0: ("point", lambda s: [s.first("")]),
    1: ("rect1", lambda s: s.two("first corner", "second corner")),
    2: ("circle", lambda s: [s.first("centre")] + s.numbers("radius")),
    3: ("torus", lambda s: [s.first("centre")] +
        s.numbers("inner radius", "outer radius", "start angle", "end angle")),
    4: ("rect2", lambda s: [s.first("centre")] + s.numbers("half length", "half width", "angle")),
    5: ("line", lambda s: s.two("start", "end")),
    6: ("ellipse", lambda s: [s.first("centre")] +
        s.numbers("half axis along", "half axis across", "angle")),
    7: ("arc", lambda s: [s.first("centre")] + s.numbers("radius", "start angle", "end angle")),
    8: ("polygon", lambda s: s.points()),
    9: ("irregular", lambda s: s.points()),
    10: ("region", lambda s: [s.part("", "m_region", core.region)]),
    11: ("text", label),
    12: ("arrow", lambda s: s.two("tail", "head")),
    13: ("contours", lambda s: [s.part("", "m_contours", core.contours)]),
    14: ("rect2 matrix", lambda s: s.points("centres") +
         s.numbers("half length", "half width", "angle") + s.count("m_p3")),
    15: ("circle matrix", lambda s: s.points("centres") +
         s.numbers("inner radius", "outer radius") + s.count("m_p2")),
    16: ("polyline", lambda s: s.points()),
    17: ("curve line", lambda s: s.points()),
    18: ("any polygon", lambda s: s.points() + [s.part("numbers", "m_numbers", numbers)]),
    99: ("empty", lambda s: []),
    120: ("3D text", lambda s: list(s.label())),
}


def shape(place, depth, full):
    holder = record("KDRShapePrivate", place)
    kind, holders = holder.u32("m_kind"), holder.i32("m_refs")
    require(kind in SHAPES and holders > 0)
    text, parameters = SHAPES[kind]
    said = parameters(Shape(place, depth))
    if said:
        text += " " + ", ".join(said)
    return text + pieces.shared(holders) if full else text


def no_data(_place, _depth, _full):
    return "no data"


# A variant's kinds: the words, and the class of the payload.
KINDS = {
    0: ("bool", "bool"), 1: ("number", "KDRNumber"), 2: ("string", "KDRString"),
    3: ("point", "KDRPoint"), 4: ("image", "KDRImage"), 5: ("shape", "KDRShape"),
    6: ("point cloud", "KDRPointCloud"), 7: ("contour", "KDRContour"),
    8: ("ROI alignment", "KDRROIAlignment"), 9: ("2D pose", "KDRPose2D"),
    10: ("matrix", "KDRMatrix"), 11: ("buffer", "KDRBuffer"), 12: ("char", "KDRChar"),
    500: ("3D point", "KDRPoint3D"), 501: ("3D vector", "KDRVector3d"),
    502: ("3D shape", "KDRShape3D"), 503: ("3D pose", "KDRPose3D"),
    504: ("range image", "KDRRangeImage"), 505: ("3D contour", "KDRContour3D"),
    506: ("3x3 matrix", "KDRMatrix3"), 507: ("4x4 matrix", "KDRMatrix4"),
    508: ("quaternion", "KDRQuaternion"), 509: ("dual quaternion", "KDRDualQuaternion"),
    1000: ("bool array", "KDRBoolArray"), 1001: ("number array", "KDRNumberArray"),
    1002: ("string array", "KDRStringArray"), 1003: ("point array", "KDRPointArray"),
    1004: ("image array", "KDRImageArray"), 1005: ("range image array", "KDRRangeImageArray"),
    1006: ("shape array", "KDRShapeArray"), 1007: ("point cloud array", "KDRPointCloudArray"),
    1008: ("contour array", "KDRContourArray"), 1009: ("matrix array", "KDRMatrixArray"),
    1010: ("buffer array", "KDRBufferArray"), 1500: ("3D point array", "KDRPoint3DArray"),
    1501: ("3D shape array", "KDRShape3DArray"), 1502: ("3D vector array", "KDRVector3dArray"),
    1503: ("3D contour array", "KDRContour3DArray"), 1800: ("variant array", "KDRVariantArray"),
    1801: ("3D plane", "KDRPlane3D"), 1802: ("3D plane array", "KDRPlane3DArray"),
    2000: ("empty", None),
}


def store_text(place, depth, full):
    """The kind and the payload of a store, and how many hold it."""
    holder = record("KDRVariantPrivate", place)
    kind, holders = holder.i32("m_kind"), holder.i32("m_refs")
    require(kind in KINDS and holders > 0)
    words, name = KINDS[kind]
    if name is None:
        return words, holders
    return words + " " + object_text(name, holder.pointer("m_payload"), depth, full), holders


def payload(place):
    """The class and the address of a store's payload."""
    holder = record("KDRVariantPrivate", place)
    return KINDS[holder.i32("m_kind")][1], holder.pointer("m_payload")


def store(place, depth, full):
    text, holders = store_text(place, depth, full)
    return text + pieces.shared(holders) if full else text


def lock(place, depth, full):
    if not full:
        return "lock"
    text, holders = store_text(record("KDRVariantLock", place).target("d"), depth, True)
    return "lock, store " + text + pieces.shared(holders)


def variant(place, depth, full):
    text, holders = store_text(record("KDRVariantLock", place).target("d"), depth, full)
    return text + pieces.shared(holders).replace(",", ", store", 1) if full else text


# What a handle's pointer points to, and its form.
HANDLES = {
    "KDRString": string, "KDRChar": character, "KDRRegExp": pattern, "KDRBuffer": byte_array,
    "KDRStringArray": strings, "KDRBufferArray": in_slots(byte_array, target),
    "KDRNumber": number_text, "KDRNumberArray": numbers, "KDRBoolArray": in_slots(flag, itself),
    "KDREnum": selection, "KDREnumArray": in_slots(selection, target),
    "KDRPoint": point, "KDRPointArray": core.points,
    "KDRContour": core.contour, "KDRContourArray": core.contours,
    "KDRImage": core.image, "KDRImageArray": core.images,
    "KDRRegion": core.region, "KDRRegionArray": core.regions,
    "KDRMatrix": core.matrix, "KDRMatrixArray": core.matrices, "KDRROIAlignment": core.matrices,
    "KDRMatchModel": core.match_model, "KDRChunkData": core.chunk, "KDRFont": core.font,
    "KDRShape": shape, "KDRShapeArray": in_slots(shape, target),
    "KDRMatrix3Array": in_slots(no_data, itself), "KDRMatrix4Array": in_slots(no_data, itself),
    "KDRShape3DArray": in_slots(no_data, itself),
    # A list keeps its variants apart: the slot points to the handle, which points to the lock.
    "KDRVariant": variant,
    "KDRVariantArray": in_slots(variant, lambda slot: target(target(slot))),
}
# Objects that are what they hold.
OBJECTS = {
    "bool": flag,
    "KDREnumPrivate": selection, "KDRPointPrivate": point, "KDRShapePrivate": shape,
    "KDRVariantPrivate": store, "KDRVariantLock": lock,
    "KDRPose2D": pose2d, "KDRPose3D": pose3d,
}
NO_DATA = (
    "DataConvert", "KDR3DLineSet", "KDRColor", "KDRColorArray", "KDRContour3D", "KDRContour3DArray",
    "KDRDualQuaternion", "KDRMatrix3", "KDRMatrix4", "KDRPlane3D", "KDRPlane3DArray",
    "KDRPlane3DArrayPrivate", "KDRPlane3DPrivate", "KDRPoint3D", "KDRPoint3DArray",
    "KDRPointCloud", "KDRPointCloudArray", "KDRQuaternion", "KDRRangeImage", "KDRRangeImageArray",
    "KDRShape3D", "KDRTriangleMesh", "KDRVector3d", "KDRVector3dArray", "LogOutput",
)


def handle_text(name, place, depth, full):
    """The form of a handle by what its pointer points to."""
    return HANDLES[name](place, depth, full)


def object_text(name, place, depth, full):
    """The form of an object at an address."""
    if name in NO_DATA:
        return "no data"
    require(place != 0)
    if name in HANDLES:
        return handle_text(name, target(place), depth, full)
    return OBJECTS[name](place, depth, full)
