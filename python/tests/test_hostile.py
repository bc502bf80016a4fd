"""Arguments that nobody gives on purpose, and arguments that do more than to be given."""

import copy
import datetime
import gc
import os
import pickle
import weakref

import numpy
import pytest

import kdrdata
from kdrdata import Image, ImageArray, Number, NumberArray, Region, Variant


class Meddler:
    """An index that changes the list which it is used on."""

    def __init__(self, index, change):
        self.index = index
        self.change = change

    def __index__(self):
        self.change()
        return self.index


def test_an_index_that_empties_the_list_reaches_nothing():
    numbers = NumberArray(range(5))
    assert list(numbers[Meddler(1, numbers.clear) : 4]) == []
    numbers = NumberArray(range(5))
    numbers[Meddler(1, numbers.clear) : 4] = [9]
    assert list(numbers) == [9]
    numbers = NumberArray(range(5))
    with pytest.raises(IndexError):
        numbers[3] = Meddler(7, numbers.clear)
    numbers = NumberArray(range(5))
    numbers.insert(3, Meddler(7, numbers.clear))
    assert list(numbers) == [7]


def test_the_end_of_an_array_may_change_the_list_that_gave_it_up():
    images = ImageArray()

    class Array(numpy.ndarray):
        def __del__(self):
            for _ in range(200):
                images.insert(0, Image(99, 1))

    over = numpy.zeros((1, 2), numpy.uint8).view(Array)
    images.extend([Image(1, 1), Image.from_array(over, copy=False)])
    images.extend(Image(width, 1) for width in (3, 4, 5))
    gone = weakref.ref(over)
    del over
    del images[1]
    gc.collect()
    assert gone() is None
    assert [image.width for image in images] == [99] * 200 + [1, 3, 4, 5]


@pytest.mark.parametrize(
    "value",
    [
        numpy.clongdouble(1),
        numpy.complex64(1),
        numpy.datetime64("2020-01-01T00:00:00.000000000"),
        numpy.timedelta64(5, "Y"),
        datetime.date(2020, 1, 1),
    ],
)
def test_what_is_no_value_is_refused(value):
    with pytest.raises(TypeError):
        Variant(value)


def test_an_array_that_holds_itself_is_refused():
    array = numpy.empty((), object)
    array[()] = array
    with pytest.raises(RecursionError):
        Variant(array)


def test_variants_nested_too_deeply_are_not_compared():
    one, other = Variant([]), Variant([])
    for _ in range(1000):
        one, other = Variant([one]), Variant([other])
    with pytest.raises(RecursionError):
        one == other


@pytest.mark.parametrize("name", ["x.kdr\0.txt", b"x.kdr\0.txt"])
def test_a_name_with_a_zero_is_refused(name, tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    kdrdata.save(1, "x.kdr")
    for use in (
        lambda: kdrdata.load(name),
        lambda: kdrdata.save(2, name),
        lambda: Image.read(name),
        lambda: Image(3, 3).save(name),
    ):
        with pytest.raises(ValueError, match="null byte"):
            use()
    assert os.listdir() == ["x.kdr"]


def test_a_name_that_the_library_cannot_write_is_refused(tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    for use in (lambda: kdrdata.save(3, b"\xff.kdr"), lambda: Image(3, 3).save(b"\xff.png")):
        with pytest.raises(ValueError, match="encoding"):
            use()
    assert os.listdir() == []


def test_bytes_seen_as_flags_are_set_where_they_are_not_zero():
    flags = numpy.full((2, 5), 2, numpy.uint8).view(bool)
    assert Region.from_mask(flags).area == 10
    assert list(kdrdata.BoolArray(flags[0])) == [True] * 5
    assert Variant(flags[1]).value == [True] * 5


def test_numbers_are_equal_where_their_values_are():
    assert Number(2**53 + 1) != Number(2.0**53)
    assert Number(2**53) == Number(2.0**53)
    assert NumberArray([2**53 + 1]) != NumberArray([2.0**53])
    assert Number(2**63 - 1) != Number(2.0**63)


def test_arguments_of_another_type_raise_type_errors():
    for use in (
        lambda: Region().to_mask(5),
        lambda: Number(1, minimum="x"),
        lambda: Image._from_parts(kdrdata.to_bytes(1), [(b"a", "x", 1, 1, 0)]),
        lambda: Image._from_parts(kdrdata.to_bytes(1), [5]),
    ):
        with pytest.raises(TypeError):
            use()


CLASSES = [
    cls
    for cls in vars(kdrdata).values()
    if isinstance(cls, type) and cls.__module__ == "kdrdata" and not issubclass(cls, (int, Exception))
]


@pytest.mark.parametrize("cls", [each for each in CLASSES if each is not kdrdata.Buffer])
def test_an_object_that_was_never_made_is_refused(cls):
    without_value = cls.__new__(cls)
    special = {
        "__repr__": repr,
        "__copy__": copy.copy,
        "__deepcopy__": copy.deepcopy,
        "__reduce_ex__": pickle.dumps,
        "__eq__": lambda value: value == value,
    }
    uses = [use for name, use in special.items() if name in vars(cls)]
    uses += [each.fget for each in vars(cls).values() if isinstance(each, property)]
    for use in [Variant, *uses]:
        with pytest.raises(TypeError):
            use(without_value)


def test_bytes_that_were_never_made_are_null():
    without_value = kdrdata.Buffer.__new__(kdrdata.Buffer)
    assert bytes(memoryview(without_value)) == b""
    assert without_value.is_null
    view = memoryview(kdrdata.Buffer(b"x")).obj
    assert bytes(memoryview(type(view).__new__(type(view)))) == b""


def test_an_object_that_is_made_later_is_as_others():
    later = NumberArray.__new__(NumberArray)
    later.__init__([1, 2])
    assert later == NumberArray([1, 2])


@pytest.mark.parametrize("name", ["append", "__getitem__", "__delitem__", "__reduce_ex__"])
def test_operations_of_a_list_refuse_other_objects(name):
    for other in (5, kdrdata.BoolArray([True]), [1]):
        with pytest.raises(TypeError):
            getattr(NumberArray, name)(other, 0)


@pytest.mark.parametrize("size", [(2**31, 1), (1, 2**40), (0, 1), (1, -1), (2**30, 2**30)])
def test_images_of_impossible_sizes_are_refused(size):
    with pytest.raises((ValueError, MemoryError)):
        Image(*size)
