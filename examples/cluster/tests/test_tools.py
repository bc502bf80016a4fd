"""The tools, each by itself, against pictures whose coins are known."""

from __future__ import annotations

import pathlib
import pickle

import inspection
import make_pictures
import numpy
import pytest
from conftest import COINS
from dask.sizeof import sizeof
from kdrdata import Image, Number, Variant, VariantArray, to_bytes
from numpy.typing import NDArray

# x, y and radius; the last one is cut by the edge.
DISCS = [(40.0, 50.0, 20.0), (120.5, 60.25, 31.0), (200.0, 150.0, 25.5), (290.0, 100.0, 30.0)]


def drawn() -> NDArray[numpy.uint8]:
    rows, columns = numpy.mgrid[0:200, 0:300]
    picture = 30.0 + columns / 10
    for x, y, radius in DISCS:
        picture[(columns - x) ** 2 + (rows - y) ** 2 <= radius**2] += 120
    chance = numpy.random.default_rng(7)
    noisy = picture + chance.normal(0, 4, picture.shape)
    return numpy.asarray(noisy.round(), numpy.uint8)


def circles_in(pixels: NDArray[numpy.generic], parameters: Variant) -> list[tuple[float, ...]]:
    picture = Variant(Image.from_array(pixels))
    segments = inspection.segment(inspection.smooth(picture, parameters))
    circles = inspection.values_of(inspection.measure(segments, parameters))["circles"].content
    return sorted((each.centre.x, each.centre.y, each.radius) for each in circles)


def test_whole_discs_are_found_and_measured(parameters: Variant) -> None:
    found = circles_in(drawn(), parameters)
    assert numpy.allclose(found, DISCS[:3], atol=0.5)


def test_depth_and_colour_change_nothing_much(parameters: Variant) -> None:
    grey = drawn()
    alike = [
        grey.astype(numpy.uint16) * 257,
        numpy.dstack([grey] * 3),
        numpy.dstack([grey, grey, grey, numpy.zeros_like(grey)]),
    ]
    for pixels in alike:
        assert numpy.allclose(circles_in(pixels, parameters), DISCS[:3], atol=0.5)


def test_grey_is_the_brightness_of_the_colour(parameters: Variant) -> None:
    values = {**inspection.values_of(parameters), "smoothing": Variant(0), "ground": Variant(0)}
    # Blue, green and red come in this order.
    colours = numpy.array([[[255, 0, 0], [0, 255, 0], [0, 0, 255], [255, 255, 255]]], numpy.uint8)
    picture = Variant(Image.from_array(colours))
    grey = inspection.smooth(picture, inspection.recipe_of(values)).content
    assert numpy.asarray(grey)[0, :, 0].tolist() == [29, 150, 76, 255]


def test_areas_outside_of_the_limits_are_left_out(parameters: Variant) -> None:
    values = inspection.values_of(parameters)
    values["smallest"] = Variant(3.14 * 22**2)
    values["largest"] = Variant(3.14 * 28**2)
    found = circles_in(drawn(), inspection.recipe_of(values))
    assert numpy.allclose(found, DISCS[2:3], atol=0.5)


def test_a_picture_of_one_brightness_has_no_coins(parameters: Variant) -> None:
    for grey in (0, 80, 255):
        assert circles_in(numpy.full((50, 60), grey, numpy.uint8), parameters) == []


def test_the_photograph_has_its_coins(parameters: Variant) -> None:
    name = "coins.png"
    results = inspection.inspect_batch({name: str(COINS)}, parameters, [])
    values = inspection.values_of(inspection.values_of(results)[name])
    assert values["coins"].value == 24 == len(values["circles"].content)
    region = values["region"].content.region
    assert sum(values["areas"].value) == region.area


def spread(grey: NDArray[numpy.uint8], threshold: int) -> float:
    """What is left of the differences of brightness within the two classes."""
    parts = (grey[grey <= threshold].astype(float), grey[grey > threshold].astype(float))
    return sum(float(((part - part.mean()) ** 2).sum()) for part in parts if part.size)


def test_the_threshold_leaves_the_least_spread() -> None:
    for seed in range(20):
        chance = numpy.random.default_rng(seed)
        low, high = sorted(chance.integers(10, 245, 2))
        grey = chance.normal(low, 8, 700).tolist() + chance.normal(high, 5, 300).tolist()
        pixels = numpy.array(grey).round().clip(0, 255).astype(numpy.uint8).reshape(20, 50)
        segments = inspection.segment(Variant(Image.from_array(pixels)))
        threshold = inspection.values_of(segments)["threshold"].value
        least = min(spread(pixels, each) for each in range(256))
        assert spread(pixels, threshold) == pytest.approx(least)


def test_a_reason_is_handed_on_and_a_bug_is_not_hidden(parameters: Variant) -> None:
    reason = inspection.read("/nowhere/picture.png")
    assert inspection.error_of(reason).endswith("No such file or directory: 'picture.png'")
    assert inspection.smooth(reason, parameters) == reason
    assert inspection.measure(inspection.segment(reason), parameters) == reason
    with pytest.raises(AttributeError):
        inspection.smooth(Variant(5), parameters)


def test_results_are_the_same_behind_a_pickle(parameters: Variant) -> None:
    result = inspection.inspect_batch({"coins": str(COINS)}, parameters, ["coins"])
    buffers: list[pickle.PickleBuffer] = []
    sent = pickle.dumps(result, protocol=5, buffer_callback=buffers.append)
    assert to_bytes(pickle.loads(sent, buffers=buffers)) == to_bytes(result)
    assert sum(each.raw().nbytes for each in buffers) == 384 * 303


def test_the_engine_hears_of_the_pixels() -> None:
    picture = Variant(Image(400, 300, 3))
    assert sizeof(picture) >= 400 * 300 * 3
    assert sizeof(inspection.recipe_of({"a": picture, "b": picture})) >= 2 * 400 * 300 * 3
    assert sizeof(Variant("short")) < 1000


def test_parameters_are_completed_and_told_from_others() -> None:
    few = inspection.recipe_of({"ground": 0, "name": "of another program"})
    for given in (few, inspection.recipe_of({"picture": Image(3, 3), "parameters": few})):
        used = inspection.values_of(inspection.parameters_from(given))
        assert list(used) == list(inspection.default_parameters())
        assert used["ground"].value == 0
        assert used["smoothing"] == Variant(inspection.default_parameters()["smoothing"])
    for wrong in (Variant(5), Variant(VariantArray(["a"])), Variant(VariantArray([1, 2]))):
        with pytest.raises(ValueError):
            inspection.parameters_from(wrong)


def test_a_number_in_a_recipe_keeps_its_range() -> None:
    number = Number(3, minimum=1, maximum=9, step=2)
    assert inspection.values_of(inspection.recipe_of({"n": number}))["n"] == Variant(number)


def test_pictures_depend_on_their_seed_and_number(tmp_path: pathlib.Path) -> None:
    coins = Image.read(COINS)
    assert make_pictures.make(coins, 1, 5) == make_pictures.make(coins, 1, 5)
    assert make_pictures.make(coins, 1, 5) != make_pictures.make(coins, 2, 5)
    assert make_pictures.make(coins, 1, 5) != make_pictures.make(coins, 1, 6)
    make_pictures.make_folder(coins, tmp_path, 3, 1)
    made = Image.read(tmp_path / "picture-0002.png")
    assert made == make_pictures.make(coins, 1, 2)
    assert made.shape == (227, 288, 1)
