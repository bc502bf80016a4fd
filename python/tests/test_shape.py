"""Shapes of every kind: made, read, compared, saved."""

import copy
import pickle

import numpy
import pytest

import kdrdata
from kdrdata import (
    Contour,
    ContourArray,
    Font,
    NumberArray,
    Point,
    PointArray,
    Region,
    Shape,
    ShapeArray,
    ShapeKind,
)

SPOTS = PointArray([(1, 2), (3, 4), (5.5, 6.5)])
REGION = Region.from_mask(numpy.eye(4, 5))
CONTOURS = ContourArray([Contour(SPOTS), Contour([(0, 0), (9, 9)])])
FONT = Font("DejaVu Sans", size=-7, weight=700, bold=True, italic=2, underline=1, strike_out=255)
NUMBERS = NumberArray([1, 2.5])


def ranged(x, y):
    point = Point(x, y)
    point.x_minimum, point.x_maximum, point.y_step = -3.0, 500.0, 0.25
    return point


# The kind, its maker, and its fields.
KINDS = [
    (ShapeKind.CIRCLE, "circle", dict(centre=ranged(1, 2), radius=3.5)),
    (
        ShapeKind.TORUS,
        "torus",
        dict(centre=ranged(1, 2), inner_radius=3.0, outer_radius=4.0, start_angle=-5.0, end_angle=400.0),
    ),
    (
        ShapeKind.RECT2,
        "rect2",
        dict(centre=ranged(1, 2), half_length=3.0, half_width=4.0, angle=5.0),
    ),
    (ShapeKind.LINE, "line", dict(start=ranged(1, 2), end=ranged(3, 4))),
    (
        ShapeKind.ELLIPSE,
        "ellipse",
        dict(centre=ranged(1, 2), half_axis_along=3.0, half_axis_across=4.0, angle=5.0),
    ),
    (
        ShapeKind.ARC,
        "arc",
        dict(centre=ranged(1, 2), radius=3.0, start_angle=4.0, end_angle=5.0),
    ),
    (ShapeKind.POLYGON, "polygon", dict(points=SPOTS)),
    (ShapeKind.IRREGULAR, "irregular", dict(points=SPOTS)),
    (ShapeKind.REGION, "region", dict(region=REGION)),
    (ShapeKind.TEXT, "text", dict(anchor=ranged(1, 2), text="grün", font=FONT)),
    (ShapeKind.ARROW, "arrow", dict(tail=ranged(1, 2), head=ranged(3, 4))),
    (ShapeKind.CONTOURS, "contours", dict(contours=CONTOURS)),
    (
        ShapeKind.RECT2_MATRIX,
        "rect2_matrix",
        dict(centres=SPOTS, half_length=3.0, half_width=4.0, angle=5.0, count=2),
    ),
    (
        ShapeKind.CIRCLE_MATRIX,
        "circle_matrix",
        dict(centres=SPOTS, inner_radius=3.0, outer_radius=4.0, count=2),
    ),
    (ShapeKind.POLYLINE, "polyline", dict(points=SPOTS)),
    (
        ShapeKind.CURVE_LINE,
        "curve_line",
        dict(first=Point(1, 2), second=Point(3, 4), third=Point(5, 6)),
    ),
    (ShapeKind.ANY_POLYGON, "any_polygon", dict(points=SPOTS, numbers=NUMBERS)),
    (ShapeKind.TEXT_3D, "text_3d", dict(text="grün", font=FONT)),
]
ALL_FIELDS = sorted({name for _, _, fields in KINDS for name in fields} | {"x", "y"})


def made(maker, fields):
    return getattr(Shape, maker)(**fields)


@pytest.fixture(params=KINDS, ids=lambda each: each[1])
def each(request):
    return request.param


def test_every_kind_keeps_its_fields(each):
    kind, maker, fields = each
    shape = made(maker, fields)
    assert shape.kind is kind
    for name, value in fields.items():
        assert getattr(shape, name) == value, name
    place = fields.get("centre", fields.get("anchor"))
    if place:
        assert (shape.x, shape.y) == (place.x, place.y)


def test_fields_of_other_kinds_are_attribute_errors(each):
    _, maker, fields = each
    shape = made(maker, fields)
    own = set(fields) | ({"x", "y"} if "centre" in fields or "anchor" in fields else set())
    for name in ALL_FIELDS:
        assert hasattr(shape, name) == (name in own), name


def test_arguments_come_by_place_too(each):
    _, maker, fields = each
    assert getattr(Shape, maker)(*fields.values()) == made(maker, fields)


def test_places_are_told_by_x_and_y_or_by_a_point(each):
    _, maker, fields = each
    name = "centre" if "centre" in fields else "anchor"
    if name not in fields:
        return
    rest = {key: value for key, value in fields.items() if key != name}
    make = getattr(Shape, maker)
    expected = make(**{name: Point(1, 2)}, **rest)
    assert make(x=1, y=2, **rest) == expected
    assert make(1, 2, *rest.values()) == expected
    assert make((1, 2), *rest.values()) == expected
    assert make(y=2, x=1, **rest) == expected


def test_wrong_arguments_are_type_errors(each):
    _, maker, fields = each
    make = getattr(Shape, maker)
    values = list(fields.values())
    with pytest.raises(TypeError):
        make()
    with pytest.raises(TypeError):
        make(*values, 1, 2)
    with pytest.raises(TypeError):
        make(*values, nonsense=1)
    with pytest.raises(TypeError):
        make(values[0], **fields)
    for name in fields:
        with pytest.raises(TypeError):
            make(**{**fields, name: object()})
        left = {key: value for key, value in fields.items() if key != name}
        if name in ("font", "count"):
            assert make(**left).kind == make(**fields).kind
        else:
            with pytest.raises(TypeError, match=name):
                make(**left)


def test_fields_cannot_be_set(each):
    _, maker, fields = each
    shape = made(maker, fields)
    for name, value in fields.items():
        with pytest.raises(AttributeError):
            setattr(shape, name, value)


def test_a_field_is_a_copy(each):
    _, maker, fields = each
    shape = made(maker, fields)
    for name in fields:
        value = getattr(shape, name)
        if hasattr(value, "clear"):
            value.clear()
        elif isinstance(value, Point):
            value.x = 77
        elif isinstance(value, Font):
            value.size = 77
    assert shape == made(maker, fields)


def test_shapes_are_equal_by_kind_and_fields(each):
    _, maker, fields = each
    shape = made(maker, fields)
    assert shape == made(maker, fields)
    for _, other, other_fields in KINDS:
        assert (made(other, other_fields) == shape) == (other == maker)
    for name, value in fields.items():
        other = {
            float: lambda: value + 1,
            int: lambda: value + 1,
            str: lambda: value + "e",
            Point: lambda: Point(77, 78),
            PointArray: lambda: value + PointArray([(7, 8)]),
            NumberArray: lambda: value + NumberArray([7]),
            ContourArray: lambda: value[:1],
            Region: lambda: value | Region.from_runs([[9, 9, 9]]),
            Font: lambda: Font("Other"),
        }[type(value)]()
        assert made(maker, {**fields, name: other}) != shape, name


@pytest.mark.parametrize("protocol", [2, 5])
def test_shapes_are_pickled_and_copied(each, protocol):
    _, maker, fields = each
    shape = made(maker, fields)
    assert pickle.loads(pickle.dumps(shape, protocol=protocol)) == shape
    assert copy.copy(shape) == shape and copy.deepcopy(shape) == shape


def test_shapes_go_through_variants_and_lists(each):
    _, maker, fields = each
    shape = made(maker, fields)
    assert kdrdata.Variant(shape).value == shape
    shapes = ShapeArray([shape, Shape()])
    assert shapes[0] == shape and shapes[1] == Shape()
    assert pickle.loads(pickle.dumps(shapes)) == shapes


def test_the_repr_tells_kind_and_fields(each):
    _, maker, fields = each
    text = repr(made(maker, fields))
    assert text.startswith(f"Shape.{maker}(")
    assert all(f"{name}=" in text for name in fields)


def test_makers_tell_what_they_take(each):
    _, maker, _ = each
    doc = getattr(Shape, maker).__doc__
    assert doc.startswith(f"{maker}(") and len(doc.splitlines()) >= 3


def test_an_empty_shape_has_no_fields():
    shape = Shape()
    assert shape.kind is ShapeKind.EMPTY and shape.kind == 99
    assert not any(hasattr(shape, name) for name in ALL_FIELDS)
    assert repr(shape) == "Shape()"
    assert pickle.loads(pickle.dumps(shape)) == shape


def test_generators_that_store_nothing_are_not_offered():
    assert not hasattr(Shape, "point") and not hasattr(Shape, "rect1")
    assert [name for name in dir(Shape) if "3d" in name] == ["text_3d"]


def test_the_cells_of_grids_are_shapes():
    rectangles = Shape.rect2_matrix(SPOTS, 3, 4, 5)
    assert rectangles.count == -1
    assert rectangles.cells() == ShapeArray([Shape.rect2(point, 3, 4, 5) for point in SPOTS])
    rings = Shape.circle_matrix(SPOTS, 3, 4, count=2)
    assert rings.cells() == ShapeArray([Shape.torus(point, 3, 4, 0, 360) for point in SPOTS[:2]])
    assert len(Shape.rect2_matrix(SPOTS, 3, 4, 5, count=0).cells()) == 0
    with pytest.raises(AttributeError):
        Shape.circle(1, 2, 3).cells()


def test_points_are_taken_from_arrays_and_pairs():
    corners = numpy.array([[1, 2], [3, 4], [5.5, 6.5]])
    assert Shape.polygon(corners) == Shape.polygon(SPOTS)
    assert Shape.polygon(corners.tolist()) == Shape.polygon(SPOTS)
    assert Shape.line((1, 2), (3, 4)) == Shape.line(Point(1, 2), Point(3, 4))
