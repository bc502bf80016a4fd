"""Points, lists of them, and contours, against arrays."""

import copy
import pickle

import numpy
import pytest

import kdrdata
from kdrdata import Contour, ContourArray, Point, PointArray
from meanwhile import lets_others_run


def random_points(seed, count):
    return numpy.random.default_rng(seed).normal(0, 1e3, (count, 2))


def test_a_point_has_coordinates_and_ranges():
    point = Point(192.0, 151.5)
    assert (point.x, point.y) == (192.0, 151.5)
    assert tuple(point) == (192.0, 151.5)
    assert (point.x_minimum, point.x_maximum, point.x_step) == (-999999.0, 999999.0, 1.0)
    assert (point.y_minimum, point.y_maximum, point.y_step) == (-999999.0, 999999.0, 1.0)
    names = ["x", "x_minimum", "x_maximum", "x_step", "y", "y_minimum", "y_maximum", "y_step"]
    for value, name in enumerate(names):
        setattr(point, name, value + 0.5)
    assert [getattr(point, name) for name in names] == [i + 0.5 for i in range(8)]
    for other in (copy.copy(point), copy.deepcopy(point), pickle.loads(pickle.dumps(point))):
        assert [getattr(other, name) for name in names] == [i + 0.5 for i in range(8)]
        assert other == point
    assert repr(Point(1, 2.5)) == "Point(1.0, 2.5)"


@pytest.mark.parametrize("name", ["x", "x_minimum", "x_step", "y", "y_maximum"])
def test_points_that_differ_in_one_number_differ(name):
    point = Point(1, 2)
    setattr(point, name, 77.0)
    assert point != Point(1, 2)
    assert Point(1, 2) == Point(1.0, 2.0) and Point(1, 2) != (1, 2)


@pytest.mark.parametrize("count", [0, 1, 2, 1000])
def test_arrays_become_points_and_arrays_again(count):
    coordinates = random_points(count, count)
    points = PointArray(coordinates)
    assert len(points) == count
    back = numpy.asarray(points)
    assert back.dtype == numpy.dtype("float64") and back.shape == (count, 2)
    assert numpy.array_equal(back, coordinates)
    assert [tuple(point) for point in points] == [tuple(row) for row in coordinates]
    points.extend(coordinates)
    assert numpy.array_equal(numpy.asarray(points), numpy.concatenate([coordinates] * 2))


def test_arrays_of_any_real_type_and_strides_are_taken():
    coordinates = numpy.arange(40).reshape(10, 4)
    for dtype in ("int64", "uint8", "float32", ">f8"):
        given = coordinates.astype(dtype)[::-2, 1:3]
        assert numpy.array_equal(numpy.asarray(PointArray(given)), given)


def test_other_arrays_are_refused():
    for array in (numpy.zeros(4), numpy.zeros((4, 3)), numpy.zeros((2, 2, 2))):
        with pytest.raises(ValueError):
            PointArray(array)
    for dtype in ("complex128", "bool", "U3", "O"):
        with pytest.raises(ValueError):
            PointArray(numpy.zeros((2, 2), dtype))


def test_pairs_are_taken_for_points():
    points = PointArray([(1, 2), [3, 4], Point(5, 6), numpy.array([7.0, 8.0])])
    assert numpy.asarray(points).tolist() == [[1, 2], [3, 4], [5, 6], [7, 8]]
    points[0] = (9, 10)
    assert points[0] == Point(9, 10)
    for wrong in ("ab", b"ab", (1, 2, 3), (1,), 3, ("a", 1), None):
        with pytest.raises(TypeError):
            points.append(wrong)
    assert len(points) == 4


def test_a_list_keeps_coordinates_and_no_ranges():
    point = Point(1, 2)
    point.x_maximum = 5
    assert PointArray([point])[0] == Point(1, 2)


def test_coordinates_are_copied():
    points = PointArray([(1, 2)])
    numpy.asarray(points)[0, 0] = 9
    assert points[0].x == 1
    with pytest.raises(ValueError):
        points.__array__(copy=False)
    assert points.__array__(dtype="float32").dtype == numpy.dtype("float32")


def shoelace(points):
    x, y = points.T
    return abs(numpy.dot(x, numpy.roll(y, -1)) - numpy.dot(y, numpy.roll(x, -1))) / 2


@pytest.mark.parametrize("seed", range(10))
def test_a_contour_tells_its_points_area_and_perimeter(seed):
    corners = random_points(seed, 3 + seed * 5)
    contour = Contour(corners)
    assert len(contour) == len(corners)
    assert numpy.array_equal(numpy.asarray(contour), corners)
    assert contour.points == PointArray(corners)
    assert contour.area == pytest.approx(shoelace(corners))
    sides = numpy.linalg.norm(corners - numpy.roll(corners, -1, axis=0), axis=1)
    assert contour.perimeter == pytest.approx(sides.sum())


def test_contours_are_equal_by_their_points_and_pickled():
    contour = Contour([(0, 0), (1, 0), (1, 1)])
    assert contour == Contour(numpy.array([[0, 0], [1, 0], [1, 1]]))
    assert contour != Contour([(0, 0), (1, 0), (1, 2)])
    contours = ContourArray([contour, Contour()])
    assert pickle.loads(pickle.dumps(contours)) == contours
    assert contours[0] == contour and contours[-1] == Contour()
    with pytest.raises(TypeError):
        Contour(3)


def test_other_threads_run_while_points_are_converted():
    coordinates = random_points(99, 100_000)
    points = PointArray(coordinates)
    assert lets_others_run(lambda: PointArray(coordinates))
    assert lets_others_run(lambda: numpy.asarray(points))
