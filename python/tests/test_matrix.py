"""Matrices: their elements as arrays, and who keeps what alive."""

import copy
import gc
import pickle
import weakref

import numpy
import pytest

import kdrdata

DTYPES = ["uint8", "int8", "uint16", "int16", "int32", "float32", "float64"]


def random_elements(seed, shape, dtype="float64"):
    return numpy.random.default_rng(seed).integers(0, 100, shape).astype(dtype)


@pytest.mark.parametrize("dtype", DTYPES)
def test_the_array_is_a_view_of_rows_and_columns(dtype):
    matrix = kdrdata.Matrix(3, 5, dtype)
    view = numpy.asarray(matrix)
    assert (matrix.rows, matrix.columns, matrix.shape) == (3, 5, (3, 5))
    assert view.shape == (3, 5) and view.dtype == numpy.dtype(dtype) == matrix.dtype
    assert not view.any() and view.flags.writeable and not view.flags.owndata
    view[2, 1] = 42
    assert numpy.asarray(matrix)[2, 1] == 42 and matrix[2, 1] == 42
    matrix[0, :] = 7
    assert view[0].tolist() == [7] * 5


def test_matrices_are_of_doubles_unless_told():
    assert kdrdata.Matrix(1, 1).dtype == numpy.dtype("float64")


def test_a_matrix_without_elements_keeps_its_extent():
    for shape in [(0, 0), (0, 3), (3, 0)]:
        matrix = kdrdata.Matrix(*shape)
        assert matrix.shape == shape and numpy.asarray(matrix).shape == shape
    assert kdrdata.Matrix().shape == (0, 0)


def test_impossible_matrices_are_refused():
    with pytest.raises(ValueError):
        kdrdata.Matrix(-1, 3)
    with pytest.raises(ValueError):
        kdrdata.Matrix(1, 3, "int64")
    with pytest.raises(MemoryError):
        kdrdata.Matrix(2**30, 2**30)


@pytest.mark.parametrize("dtype", DTYPES)
def test_arrays_of_any_strides_are_copied(dtype):
    elements = random_elements(1, (6, 8), dtype)
    for part in (elements, elements[::2, 1:7:3], elements.T, elements[::-1], elements[:0]):
        matrix = kdrdata.Matrix.from_array(part)
        assert numpy.array_equal(numpy.asarray(matrix), part)
        assert not numpy.shares_memory(numpy.asarray(matrix), elements)


def test_a_matrix_over_an_array_is_in_its_memory_and_keeps_it():
    elements = random_elements(2, (20, 30))
    alive = weakref.ref(elements)
    matrix = kdrdata.Matrix.from_array(elements, copy=False)
    elements[3, 4] = -5
    assert matrix[3, 4] == -5
    matrix[5, 6] = -7
    assert elements[5, 6] == -7
    expected = elements.copy()
    del elements
    gc.collect()
    assert numpy.array_equal(numpy.asarray(matrix), expected)
    assert alive() is not None
    del matrix
    gc.collect()
    assert alive() is None


def test_a_copy_of_a_matrix_over_an_array_is_its_own():
    elements = random_elements(3, (2, 3))
    matrix = kdrdata.Matrix.from_array(elements, copy=False)
    copies = [copy.copy(matrix), copy.deepcopy(matrix), matrix.clone()]
    copies.append(kdrdata.Variant(matrix).value)
    elements[0, 0] = -1
    assert all(each[0, 0] != -1 for each in copies)


def read_only():
    elements = numpy.zeros((3, 4))
    elements.flags.writeable = False
    return elements


@pytest.mark.parametrize(
    "array",
    [
        read_only(),
        numpy.zeros((3, 4))[:, ::2],
        numpy.zeros((3, 4), order="F"),
        numpy.zeros((3, 4), ">f8"),
        numpy.zeros((3, 4), "int64"),
        numpy.zeros(3),
        numpy.zeros((1, 2, 3)),
        numpy.zeros((0, 3)),
    ],
    ids=lambda array: f"{array.dtype}{array.shape}",
)
def test_no_matrix_is_made_over_memory_that_it_cannot_use(array):
    with pytest.raises(ValueError):
        kdrdata.Matrix.from_array(array, copy=False)


def test_a_refused_array_is_let_go():
    elements = numpy.zeros((0, 3))
    alive = weakref.ref(elements)
    with pytest.raises(ValueError):
        kdrdata.Matrix.from_array(elements, copy=False)
    del elements
    gc.collect()
    assert alive() is None


def test_a_view_keeps_the_matrix():
    elements = random_elements(4, (200, 300))
    matrix = kdrdata.Matrix.from_array(elements)
    view = numpy.asarray(matrix)[::2]
    del matrix
    gc.collect()
    for _ in range(20):
        kdrdata.Matrix(200, 300)  # would take the place of elements that were freed
    assert numpy.array_equal(view, elements[::2])


def test_a_view_of_an_element_is_none_of_the_list():
    matrices = kdrdata.MatrixArray([kdrdata.Matrix(2, 2)])
    view = numpy.asarray(matrices[0])
    view[0, 0] = 3
    assert matrices[0][0, 0] == 0
    matrices.clear()
    gc.collect()
    assert view.tolist() == [[3, 0], [0, 0]]


def test_equality_is_that_of_type_extent_and_elements():
    elements = random_elements(5, (2, 3), "int32")
    matrix = kdrdata.Matrix.from_array(elements)
    assert matrix == kdrdata.Matrix.from_array(elements)
    assert matrix != kdrdata.Matrix.from_array(elements.reshape(3, 2))
    assert matrix != kdrdata.Matrix.from_array(elements.astype("float32"))
    assert matrix != kdrdata.Matrix.from_array(elements + 1)


@pytest.mark.parametrize("protocol", [2, 4, 5])
@pytest.mark.parametrize("dtype", DTYPES)
def test_matrices_are_pickled(protocol, dtype):
    matrix = kdrdata.Matrix.from_array(random_elements(6, (3, 4), dtype))
    assert pickle.loads(pickle.dumps(matrix, protocol=protocol)) == matrix
