"""Variants are made of what Python users have, and give it back."""

import copy
import math
import pickle

import numpy
import pytest

import kdrdata
from kdrdata import Kind, Variant

# What is given, the kind that it becomes, and the value that comes back.
VALUES = [
    (None, Kind.NONE, None),
    (True, Kind.BOOL, True),
    (False, Kind.BOOL, False),
    (0, Kind.NUMBER, 0),
    (-(2**63), Kind.NUMBER, -(2**63)),
    (2**63 - 1, Kind.NUMBER, 2**63 - 1),
    (2.5, Kind.NUMBER, 2.5),
    (math.inf, Kind.NUMBER, math.inf),
    ("", Kind.STRING, ""),
    ("gr\u00fcn \U0001f600 \0 \ud800", Kind.STRING, "gr\u00fcn \U0001f600 \0 \ud800"),
    (b"", Kind.BUFFER, b""),
    (b"\0\xff", Kind.BUFFER, b"\0\xff"),
    (bytearray(b"ab"), Kind.BUFFER, b"ab"),
    (memoryview(b"abcd")[::2], Kind.BUFFER, b"ac"),
    (numpy.bool_(True), Kind.BOOL, True),
    (numpy.int8(-3), Kind.NUMBER, -3),
    (numpy.uint64(5), Kind.NUMBER, 5),
    (numpy.float32(0.5), Kind.NUMBER, 0.5),
    (numpy.float64(0.1), Kind.NUMBER, 0.1),
    (numpy.longdouble(0.25), Kind.NUMBER, 0.25),
    (numpy.str_("s"), Kind.STRING, "s"),
    (numpy.array(7), Kind.NUMBER, 7),
    (numpy.array([True, False]), Kind.BOOL_ARRAY, [True, False]),
    (numpy.arange(3, dtype=numpy.uint8), Kind.NUMBER_ARRAY, [0, 1, 2]),
    (numpy.array([0.5, 1.5], dtype=numpy.float32), Kind.NUMBER_ARRAY, [0.5, 1.5]),
    (numpy.arange(6)[::-2], Kind.NUMBER_ARRAY, [5, 3, 1]),
    (numpy.array([], dtype=int), Kind.NUMBER_ARRAY, []),
    ([], Kind.VARIANT_ARRAY, []),
    ((), Kind.VARIANT_ARRAY, []),
    ([True, numpy.bool_(False)], Kind.BOOL_ARRAY, [True, False]),
    ([1, 2.5, numpy.int16(3)], Kind.NUMBER_ARRAY, [1, 2.5, 3]),
    ((1, 2), Kind.NUMBER_ARRAY, [1, 2]),
    (["a", ""], Kind.STRING_ARRAY, ["a", ""]),
    ([b"a", bytearray(b"b")], Kind.BUFFER_ARRAY, [b"a", b"b"]),
    ([1, True], Kind.VARIANT_ARRAY, [1, True]),
    (["a", None], Kind.VARIANT_ARRAY, ["a", None]),
    ([1, "a", [2, [b"c"]], ()], Kind.VARIANT_ARRAY, [1, "a", [2, [b"c"]], []]),
    ([kdrdata.String(), "a"], Kind.STRING_ARRAY, [None, "a"]),
    (kdrdata.String(), Kind.STRING, None),
    (kdrdata.Buffer(), Kind.BUFFER, None),
    (kdrdata.Number(3), Kind.NUMBER, 3),
]


def identical(one, other):
    if isinstance(one, list):
        return (
            isinstance(other, list)
            and len(one) == len(other)
            and all(identical(*pair) for pair in zip(one, other))
        )
    return type(one) is type(other) and one == other


@pytest.mark.parametrize("given, kind, value", VALUES, ids=lambda each: repr(each)[:40])
def test_values_come_back_as_python_has_them(given, kind, value):
    variant = Variant(given)
    assert variant.kind is kind
    assert identical(variant.value, value)
    assert identical(Variant(variant.value).value, value) or value in (None, [])


@pytest.mark.parametrize("given, kind, value", VALUES, ids=lambda each: repr(each)[:40])
def test_values_stay_the_same_on_every_way(given, kind, value):
    variant = Variant(given)
    for other in (
        Variant(variant),
        variant.clone(),
        copy.copy(variant),
        copy.deepcopy(variant),
        kdrdata.from_bytes(kdrdata.to_bytes(variant)),
        *(pickle.loads(pickle.dumps(variant, protocol)) for protocol in range(2, 6)),
    ):
        assert other == variant
        assert other.kind is kind
        assert identical(other.value, value)
    if variant.content is not None:
        assert Variant(variant.content) == variant


@pytest.mark.parametrize(
    "given, error",
    [
        (2**63, OverflowError),
        (-(2**63) - 1, OverflowError),
        ([1, 2**63], OverflowError),
        (numpy.uint64(2**63), OverflowError),
        (numpy.array([2**63], dtype=numpy.uint64), OverflowError),
        ({}, TypeError),
        (object(), TypeError),
        (1j, TypeError),
        (numpy.complex64(1), TypeError),
        (numpy.datetime64("2020-01-01"), TypeError),
        (numpy.array(["a"]), TypeError),
        (numpy.array([1j]), TypeError),
        (numpy.array([object()]), TypeError),
        ([1, {}], TypeError),
        (numpy.zeros((1, 1, 1, 1)), ValueError),
        (range(3), TypeError),
    ],
    ids=lambda each: repr(each)[:40],
)
def test_what_no_variant_holds_is_refused(given, error):
    with pytest.raises(error):
        Variant(given)


def test_a_list_that_holds_itself_is_refused():
    endless = []
    endless.append(endless)
    with pytest.raises(RecursionError):
        Variant(endless)


def test_null_is_not_empty():
    assert Variant(kdrdata.String()) != Variant("")
    assert Variant(kdrdata.Buffer()) != Variant(b"")
    assert Variant(None) != Variant(kdrdata.String())


def test_equality_is_by_value_and_kind():
    assert Variant([1, ["a"]]) == Variant([1, ["a"]])
    assert Variant([1, ["a"]]) != Variant([1, ["b"]])
    assert Variant([1, "a"]) != Variant([1, "a", None])
    assert Variant(1) != Variant(1.0)
    assert Variant(1) != Variant(True)
    assert Variant([]) != Variant(numpy.array([], dtype=int))
    assert Variant(1) != 1
    with pytest.raises(TypeError):
        hash(Variant(1))


def test_handles_share_a_store_and_clones_do_not():
    variant = Variant([1, "a"])
    assert variant.shares_with(variant)
    assert variant.shares_with(Variant(variant))
    assert variant.shares_with(copy.copy(variant))
    assert not variant.shares_with(variant.clone())
    assert not variant.shares_with(copy.deepcopy(variant))
    assert not Variant(1).shares_with(Variant(1))
    assert variant.content[0].shares_with(variant.content[0])


def test_what_shares_inside_shares_after_pickle_and_deep_copy():
    part = Variant("part")
    whole = Variant([part, part, "part", 1])
    for other in (pickle.loads(pickle.dumps(whole)), copy.deepcopy(whole)):
        first, second, third, _ = other.content
        assert first.shares_with(second)
        assert not first.shares_with(third)
        assert not first.shares_with(part)


def test_a_change_of_the_content_does_not_reach_the_variant():
    variant = Variant([1, "a"])
    content = variant.content
    content.append(2)
    content[0] = "changed"
    assert variant.value == [1, "a"]
    assert len(content) == 3


def test_a_number_brings_its_range():
    number = kdrdata.Number(5, minimum=1, maximum=9, step=2)
    variant = Variant(number)
    assert variant.content == number
    assert variant.value == 5
    assert variant != Variant(5)
    assert variant.attribute() == "iType:1,Max:9,Min:1,step:1"
    assert pickle.loads(pickle.dumps(variant)).content == number
    assert Variant([number, 6]).content[0] == number


def test_attributes():
    assert Variant("four").attribute() == "iType:2,length:4"
    assert Variant(b"abc").attribute() == ""


def test_reprs():
    assert repr(Variant()) == "Variant()"
    assert repr(Variant([1, "two", [3.5, b"c", None], []])) == (
        "Variant([1, 'two', [3.5, Buffer(b'c'), None], []])"
    )
    assert repr(Variant(kdrdata.String())) == "Variant(String(None))"
    assert repr(Variant(list(range(11)) + ["a"])).endswith(" 8, 9, ... 12 in all])")


def test_there_are_42_kinds_and_all_have_classes():
    assert len(Kind) == 42
    assert [kind.value for kind in Kind] == sorted(kind.value for kind in Kind)
    plain = {Kind.NONE: None, Kind.BOOL: bool}
    for kind in Kind:
        if kind not in plain:
            assert isinstance(getattr(kdrdata, class_name(kind)), type), kind


def class_name(kind):
    words = [word if word in ("ROI", "2D", "3D") else word.title() for word in kind.name.split("_")]
    return "".join(words).replace("Vector3D", "Vector3d")


def test_every_kind_comes_back_from_its_class():
    for kind in Kind:
        if kind in (Kind.NONE, Kind.BOOL):
            continue
        cls = getattr(kdrdata, class_name(kind))
        variant = Variant(cls())
        assert variant.kind is kind
        assert type(variant.content) is cls
        assert Variant(variant.content) == variant
        assert pickle.loads(pickle.dumps(variant)) == variant
        assert copy.deepcopy(variant) == variant
        other = pickle.loads(pickle.dumps(cls()))
        assert type(other) is cls
        assert Variant(other) == variant
