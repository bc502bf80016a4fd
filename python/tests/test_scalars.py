"""Texts, bytes, characters, numbers and selections."""

import copy
import pickle

import numpy
import pytest

import kdrdata
from kdrdata import BoolArray, Buffer, Char, Enum, Number, NumberArray, RegExp, String


def ways(value):
    """The value on every way that shall not change it."""
    yield copy.copy(value)
    yield copy.deepcopy(value)
    for protocol in range(2, 6):
        yield pickle.loads(pickle.dumps(value, protocol))


# --- texts and bytes


@pytest.mark.parametrize("text", ["", "a", "\U0001f600", "\ud800", "a\ufeffb", "a\0b", "\u00e9"])
def test_texts_are_what_str_is(text):
    made = String(text)
    assert str(made) == text
    assert made.value == text
    assert not made.is_null
    assert len(made) == len(text)
    assert made == text
    assert hash(made) == hash(text)
    for other in ways(made):
        assert other.value == text


def test_the_null_text_is_no_text_and_reads_as_an_empty_one():
    null = String()
    assert null.is_null
    assert null.value is None
    assert str(null) == ""
    assert null == ""
    for other in ways(null):
        assert other.is_null
    with pytest.raises(TypeError):
        String(1)


def test_bytes_are_seen_where_they_are_and_stay():
    buffer = Buffer(b"some bytes")
    view = memoryview(buffer)
    array = numpy.frombuffer(buffer, dtype=numpy.uint8)
    kept = buffer.view()
    address = array.__array_interface__["data"][0]
    assert numpy.frombuffer(kept, dtype=numpy.uint8).__array_interface__["data"][0] == address
    assert view.readonly and kept.readonly and not array.flags.writeable
    del buffer
    assert bytes(view) == bytes(array) == bytes(kept) == b"some bytes"


def test_null_bytes_are_not_empty_ones():
    assert Buffer().value is None
    assert Buffer().is_null and not Buffer(b"").is_null
    assert bytes(Buffer()) == b""
    for value in (None, b"", b"a\0b"):
        for other in ways(Buffer(value)):
            assert other.value == value
    with pytest.raises(TypeError):
        Buffer("text")


def test_characters_are_code_units():
    assert Char("x").code == 120
    assert Char(0xD800).code == 0xD800
    assert str(Char("\u00e9")) == "\u00e9"
    assert Char("x") == Char(120) != Char("y")
    assert hash(Char("x")) == hash(Char(120))
    for bad in ("", "ab", "\U0001f600", -1, 65536):
        with pytest.raises(ValueError):
            Char(bad)
    for other in ways(Char("x")):
        assert other == Char("x")


def test_expressions_find_and_capture():
    expression = RegExp("a(b+)")
    assert expression.index_in("xabbb") == 1
    assert (expression.cap(1), expression.pos(1), expression.matched_length) == ("bbb", 2, 4)
    assert list(expression.captured_texts) == ["abbb", "bbb"]
    assert not expression.exact_match("xabbb")
    assert RegExp("A", case_sensitive=False).index_in("a") == 0
    assert RegExp("*.png", syntax="wildcard").exact_match("coins.png")
    assert not RegExp("(").is_valid
    with pytest.raises(ValueError, match="wildcard-unix"):
        RegExp("a", syntax="other")
    full = RegExp("a+", case_sensitive=False, syntax="regexp2", minimal=True)
    assert full != RegExp("a+")
    for other in ways(full):
        assert other == full


# --- numbers


def test_a_number_keeps_its_kind():
    assert type(Number(1).value) is int
    assert type(Number(1.0).value) is float
    number = Number(1)
    number.value = 2.5
    assert number.value == 2.5
    with pytest.raises(OverflowError):
        number.value = 2**63
    with pytest.raises(TypeError):
        number.value = "3"
    with pytest.raises(TypeError):
        Number(True)


def test_ranges_are_those_of_the_library():
    new = Number()
    assert (new.value, new.minimum, new.maximum) == (0, -999999.0, 999999.0)
    assert (Number(5).minimum, Number(5).maximum) == (0.0, 0.0)
    number = Number(5, minimum=1, maximum=9, step=2)
    assert number.step == number.minimum == 1.0
    number.value = 100
    assert (number.value, number.minimum, number.maximum) == (100, 1.0, 9.0)
    for other in ways(number):
        assert other == number
        assert "step=2.0" in repr(other)
    assert number != Number(100)


def test_numbers_calculate_as_their_values_do():
    assert Number(3) + 1 == 4 and 2 * Number(3) == 6 and Number(7) // Number(2) == 3
    assert Number(1) / 2 == 0.5 and 2 ** Number(3) == 8 and -Number(3) == -3
    assert Number(2**62) - 1 == 2**62 - 1
    assert Number(3) > 2.5 and Number(3) <= Number(3) and 4 > Number(3)
    assert Number(3) == 3 and Number(3) != 4 and Number(3) != "3"
    assert int(Number(2.9)) == 2 and float(Number(2)) == 2.0 and abs(Number(-2)) == 2
    assert not Number(0) and Number(0.5)
    with pytest.raises(ZeroDivisionError):
        Number(1) % 0
    with pytest.raises(TypeError):
        Number(1) + "a"


def test_ranges_go_into_lists_and_out():
    ranged = Number(5, minimum=1, maximum=9, step=2)
    array = NumberArray([1, ranged])
    array.append(ranged)
    array.insert(0, ranged)
    array.extend([ranged])
    assert list(array) == [ranged, 1, ranged, ranged, ranged]
    assert array[::2] == NumberArray([ranged] * 3)
    for other in (copy.deepcopy(array), pickle.loads(pickle.dumps(array))):
        assert other == array


@pytest.mark.parametrize("kind", ["int8", "uint8", "int16", "uint32", "int64", "uint64"])
def test_integers_of_any_size_go_to_numpy_and_back(kind):
    values = numpy.array([0, 1, numpy.iinfo(kind).max // 2, numpy.iinfo(kind).max // 2], dtype=kind)
    array = NumberArray(values)
    assert array.tolist() == values.tolist()
    back = numpy.asarray(array)
    assert back.dtype == numpy.int64
    assert (back == values).all()
    assert numpy.asarray(array, dtype=kind).dtype == kind


def test_floating_point_goes_to_numpy_and_back():
    values = numpy.array([0.1, -0.0, numpy.inf, 1e-300])
    assert (numpy.asarray(NumberArray(values)) == values).all()
    assert numpy.asarray(NumberArray([1, 0.5])).tolist() == [1.0, 0.5]
    assert numpy.asarray(NumberArray()).dtype == numpy.float64
    assert NumberArray(numpy.float32([0.1])).tolist() == [float(numpy.float32(0.1))]
    for wrong in (numpy.zeros((2, 2)), numpy.float64(1), [[1]]):
        with pytest.raises((TypeError, ValueError)):
            NumberArray(wrong)


def test_flags_go_to_numpy_and_back():
    values = numpy.arange(10) % 3 == 0
    array = BoolArray(values)
    assert array.tolist() == values.tolist()
    assert numpy.asarray(array).dtype == bool
    assert (numpy.asarray(array) == values).all()
    with pytest.raises(TypeError):
        BoolArray(numpy.arange(2))


def test_a_copy_of_numbers_leaves_ranges_behind_where_it_is_changed_first():
    ranged = Number(5, minimum=1, maximum=9, step=2)
    array = NumberArray([ranged])
    shared = copy.copy(array)
    assert shared == array
    shared.append(1)
    assert shared[0] == 5
    assert array[0] == ranged


# --- selections


def test_selections_choose_by_place_and_by_name():
    edge = Enum(["dark", "bright"], [10, 20])
    assert (edge.index, edge.name) == (-1, "")
    edge.name = "bright"
    assert edge.index == 1
    edge.index = 7
    assert edge.name == ""
    edge.name = "none of them"
    assert edge.index == -1
    edge.names = ["a"]
    assert (list(edge.names), edge.numbers.tolist()) == (["a"], [10, 20])
    edge.names.append("a copy of them")
    assert len(edge.names) == 1
    for other in ways(edge):
        assert other == edge
        assert other != Enum()


def test_colours_hold_nothing():
    assert kdrdata.Color().red == -1
    assert kdrdata.ColorArray().width == -1
    for other in ways(kdrdata.Color()):
        assert other == kdrdata.Color()
