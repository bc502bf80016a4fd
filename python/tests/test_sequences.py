"""The arrays of the library behave as Python's list does."""

import collections.abc
import copy
import pickle
import random

import pytest

import kdrdata

# Elements of each class that differ from each other, as they come out again.
ELEMENTS = {
    "BoolArray": [True, False],
    "NumberArray": [kdrdata.Number(value) for value in (0, 1, -5, 2.5, 1e300, 2**63 - 1)],
    "StringArray": ["", "a", None, "bc", "d\U0001f600", "\ud800", "e\0f"],
    "BufferArray": [b"", b"a", None, b"\0\xff", b"bc"],
    "EnumArray": [kdrdata.Enum(["a", "b"], [1, 2], index) for index in (-1, 0, 1)],
    "VariantArray": [kdrdata.Variant(value) for value in (None, True, 1, "a", [1, "b"], b"c")],
}

# The arrays whose classes carry nothing keep no elements.
INERT = {
    "Contour3DArray",
    "Plane3DArray",
    "Point3DArray",
    "PointCloudArray",
    "RangeImageArray",
    "Vector3dArray",
}

SEQUENCES = {
    name: getattr(kdrdata, name)
    for name in kdrdata.__all__
    if getattr(getattr(kdrdata, name), "_is_sequence", False)
}


@pytest.fixture(params=sorted(set(ELEMENTS)))
def made(request):
    return SEQUENCES[request.param], ELEMENTS[request.param]


def some(elements, count, seed=1):
    return random.Random(seed).choices(elements, k=count)


def test_every_array_is_a_mutable_sequence():
    assert set(ELEMENTS) <= set(SEQUENCES)
    for cls in SEQUENCES.values():
        assert issubclass(cls, collections.abc.MutableSequence)
        assert cls.__doc__


@pytest.mark.parametrize("name", sorted(INERT & set(SEQUENCES)))
def test_an_array_that_keeps_nothing_refuses_what_it_would_lose(name):
    cls = SEQUENCES[name]
    element = getattr(kdrdata, name.replace("Array", ""))()
    array = cls()
    with pytest.raises(TypeError, match="keeps no elements"):
        array.append(element)
    assert len(array) == 0


def test_elements_come_out_as_they_went_in(made):
    cls, elements = made
    array = cls(elements)
    assert list(array) == elements
    assert len(array) == len(elements)
    assert [array[i] for i in range(-len(elements), 0)] == elements
    assert list(reversed(array)) == elements[::-1]
    assert all(element in array for element in elements)


def test_places_outside_are_index_errors(made):
    cls, elements = made
    array = cls(elements)
    for index in (len(elements), -len(elements) - 1, 2**62, -(2**62)):
        with pytest.raises(IndexError):
            array[index]
        with pytest.raises(IndexError):
            array[index] = elements[0]
        with pytest.raises(IndexError):
            del array[index]
        assert list(array) == elements
    with pytest.raises(IndexError):
        cls().pop()


def change(rng, target, elements):
    """One change of any kind, drawn from rng: the same for every target of the same length."""
    length = len(target)
    index = rng.randint(-length - 2, length + 2)
    part = slice(*(rng.choice([None, rng.randint(-9, 9)]) for _ in range(2)), rng.choice([None, 1]))
    steps = slice(part.start, part.stop, rng.choice([-3, -2, -1, 2, 3]))
    several = rng.choices(elements, k=rng.randint(0, 4))
    element = rng.choice(elements)
    which = rng.randrange(14)
    if which == 0:
        target.append(element)
    elif which == 1:
        target.insert(index, element)
    elif which == 2:
        target[index] = element
    elif which == 3:
        del target[index]
    elif which == 4:
        target[part] = several
    elif which == 5:
        target[steps] = several
    elif which == 6:
        target[steps] = rng.choices(elements, k=len(range(*steps.indices(length))))
    elif which == 7:
        del target[part if rng.random() < 0.5 else steps]
    elif which == 8:
        target.extend(several)
    elif which == 9:
        target += several
    elif which == 10:
        return target.pop(index)
    elif which == 11:
        target.remove(element)
    elif which == 12:
        target.reverse()
    else:
        return target.index(element), target.count(element), list(target[part]), list(target[steps])
    return None


def test_any_changes_do_what_they_do_to_a_list(made):
    cls, elements = made
    for seed in range(100):
        array, model = cls(), []
        for step in range(20):
            results = []
            for target in (array, model):
                rng = random.Random(f"{seed} {step}")
                try:
                    results.append(change(rng, target, elements))
                except (IndexError, ValueError) as error:
                    results.append(type(error))
            assert results[0] == results[1], (seed, step)
            assert list(array) == model, (seed, step)


def test_a_part_has_the_same_class_and_elements_of_its_own(made):
    cls, elements = made
    array = cls(elements)
    part = array[::2]
    assert type(part) is cls
    assert list(part) == elements[::2]
    part.clear()
    assert list(array) == elements


def test_an_array_takes_itself(made):
    cls, elements = made
    array = cls(elements)
    array.extend(array)
    assert list(array) == elements * 2
    array[1:2] = array
    assert list(array) == elements[:1] + elements * 2 + elements[2:] + elements
    assert list(cls(elements) + cls(elements)) == elements * 2


def test_equal_are_arrays_of_equal_elements(made):
    cls, elements = made
    assert cls(elements) == cls(elements)
    assert cls(elements) != cls(elements[::-1])
    assert cls(elements) != cls(elements[1:])
    assert cls() == cls()
    assert cls(elements) != elements
    with pytest.raises(TypeError):
        hash(cls())


def test_a_wrong_element_is_a_type_error_and_changes_nothing(made):
    cls, elements = made
    array = cls(elements)
    wrong = object()
    for attempt in (
        lambda: array.append(wrong),
        lambda: array.insert(0, wrong),
        lambda: array.__setitem__(0, wrong),
        lambda: array.extend([elements[0], wrong]),
        lambda: array.__setitem__(slice(0, 1), [elements[0], wrong]),
        lambda: cls([wrong]),
    ):
        with pytest.raises(TypeError):
            attempt()
        assert list(array) == elements


def test_copies_and_pickles_are_equal_and_independent(made):
    cls, elements = made
    array = cls(elements)
    copies = [copy.copy(array), copy.deepcopy(array)]
    copies += [pickle.loads(pickle.dumps(array, protocol)) for protocol in range(2, 6)]
    for other in copies:
        assert type(other) is cls
        assert other == array
        other.append(elements[0])
        del other[0]
        assert list(array) == elements


def test_reprs_tell_the_elements_of_short_arrays():
    assert repr(kdrdata.NumberArray([1, 2.5])) == "NumberArray([1, 2.5])"
    assert repr(kdrdata.StringArray(["a", None])) == "StringArray(['a', None])"
    assert repr(kdrdata.VariantArray([1, ["a", 2]])) == "VariantArray([1, ['a', 2]])"
    assert repr(kdrdata.BoolArray([True] * 11)).endswith(", True, ... 11 in all])")
