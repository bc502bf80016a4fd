"""The tools that the workers run: each takes variants and gives one.

A recipe is a list of names and values by turns. A tool that cannot do its work with a picture gives a
recipe with an "error" instead of raising, and the tools behind it hand that on.
"""

from __future__ import annotations

import functools
import os
from collections.abc import Callable, Collection, Mapping, Sequence
from typing import Any, Optional

import numpy
from dask.sizeof import sizeof
from kdrdata import Image, Kind, Number, NumberArray, Region, Shape, ShapeArray, Variant, VariantArray
from numpy.typing import NDArray
from scipy import ndimage

ERROR = "error"


def recipe_of(values: Mapping[str, Any]) -> Variant:
    """The recipe with these names and values."""
    recipe = VariantArray()
    for name, value in values.items():
        recipe.append(Variant(name))
        recipe.append(Variant(value))
    return Variant(recipe)


def values_of(recipe: Variant) -> dict[str, Variant]:
    """The values of a recipe by their names."""
    parts = list(recipe.content) if recipe.kind == Kind.VARIANT_ARRAY else [recipe]
    if len(parts) % 2 != 0 or any(name.kind != Kind.STRING for name in parts[::2]):
        raise ValueError("a recipe is a list of names and values by turns")
    return {name.value: value for name, value in zip(parts[::2], parts[1::2])}


def default_parameters() -> dict[str, Number]:
    """The parameters, with the ranges that a user interface offers; coins have so many pixels."""
    return {
        "smoothing": Number(1.0, minimum=0, maximum=10, step=0.5),
        "ground": Number(91, minimum=0, maximum=1001, step=10),
        "smallest": Number(700, minimum=1, maximum=100_000_000, step=10),
        "largest": Number(12000, minimum=1, maximum=100_000_000, step=10),
    }


def parameters_from(given: Variant) -> Variant:
    """All parameters: those of a recipe, or of the "parameters" in one, and else the defaults."""
    found = values_of(given)
    if "parameters" in found:
        found = values_of(found["parameters"])
    parameters: dict[str, Any] = {}
    for name, usual in default_parameters().items():
        parameters[name] = found.get(name, usual)
        if name in found and found[name].kind != Kind.NUMBER:
            raise ValueError(f"the parameter {name} is no number")
    return recipe_of(parameters)


def failure(words: str) -> Variant:
    """What stands in place of a result."""
    return recipe_of({ERROR: words})


def _tool(work: Callable[..., Variant]) -> Callable[..., Variant]:
    """Turns what a picture makes a tool raise into its result; a bug of the tool still raises."""

    @functools.wraps(work)
    def guarded(before: Any, *others: Any) -> Variant:
        if isinstance(before, Variant) and error_of(before):
            return before
        try:
            return work(before, *others)
        except (OSError, ValueError, MemoryError) as error:
            words = str(error) or type(error).__name__
            if isinstance(before, str):
                # Results do not depend on where the folder lies.
                words = words.replace(before, os.path.basename(before))
            return failure(words)

    return guarded


def error_of(result: Variant) -> str:
    """Why a tool has no result; empty where it has one."""
    if result.kind != Kind.VARIANT_ARRAY or len(result.content) != 2:
        return ""
    return str(values_of(result).get(ERROR, Variant("")).value)


@_tool
def read(path: str) -> Variant:
    """The picture in a file."""
    return Variant(Image.read(path))


def _grey(image: Image) -> NDArray[numpy.float32]:
    pixels = numpy.asarray(image)
    weights = numpy.array([0.114, 0.587, 0.299] if image.channels >= 3 else [1.0], numpy.float32)
    weights *= 255 / numpy.iinfo(pixels.dtype).max
    return pixels[:, :, : len(weights)] @ weights


@_tool
def smooth(picture: Variant, parameters: Variant) -> Variant:
    """The picture in 8-bit grey, smoothed, on a ground that is dark everywhere."""
    values = values_of(parameters)
    grey = ndimage.gaussian_filter(_grey(picture.content), float(values["smoothing"].value))
    around = int(values["ground"].value)
    if around > 0:
        grey -= ndimage.uniform_filter(ndimage.minimum_filter(grey, around), around)
    return Variant(Image.from_array(grey.round().clip(0, 255).astype(numpy.uint8), copy=False))


def _otsu(grey: NDArray[numpy.uint8]) -> int:
    """The brightness that parts the pixels into the two classes that lie furthest from each other."""
    counts = numpy.bincount(grey.ravel(), minlength=256).astype(float)
    below = counts.cumsum()
    sums = (counts * numpy.arange(256)).cumsum()
    above = below[-1] - below
    apart = numpy.zeros(256)
    parts = (below > 0) & (above > 0)
    apart[parts] = (sums[-1] * below[parts] / below[-1] - sums[parts]) ** 2 / (below * above)[parts]
    return int(apart.argmax())


@_tool
def segment(smoothed: Variant) -> Variant:
    """The threshold, and the region of what is brighter, without specks and holes."""
    grey = numpy.asarray(smoothed.content)[:, :, 0]
    threshold = _otsu(grey)
    bright = ndimage.binary_opening(ndimage.binary_fill_holes(grey > threshold), iterations=2)
    return recipe_of(
        {
            "threshold": Number(threshold, minimum=0, maximum=255, step=1),
            "region": Region.from_mask(bright),
        }
    )


@_tool
def measure(segments: Variant, parameters: Variant) -> Variant:
    """The recipe of a picture: its whole coins as circles with their areas, and their pixels."""
    values = values_of(segments)
    limits = values_of(parameters)
    mask = values["region"].content.region.to_mask()
    labels, count = ndimage.label(mask)
    places = numpy.arange(1, count + 1)
    areas = numpy.bincount(labels.ravel(), minlength=count + 1)[1:]
    radii = numpy.sqrt(areas / numpy.pi)
    fits = (areas >= limits["smallest"].value) & (areas <= limits["largest"].value)
    edges = numpy.concatenate([labels[0], labels[-1], labels[:, 0], labels[:, -1]])
    fits &= ~numpy.isin(places, edges)
    circles = ShapeArray()
    for (y, x), radius in zip(ndimage.center_of_mass(mask, labels, places[fits]), radii[fits]):
        circles.append(Shape.circle(x=float(x), y=float(y), radius=float(radius)))
    coins = Region.from_mask(numpy.isin(labels, places[fits]))
    return recipe_of(
        {
            "threshold": values["threshold"],
            "coins": Number(len(circles), minimum=0, maximum=count, step=1),
            "mean radius": Number(
                float(radii[fits].mean()) if fits.any() else 0.0,
                minimum=float(numpy.sqrt(limits["smallest"].value / numpy.pi)),
                maximum=float(numpy.sqrt(limits["largest"].value / numpy.pi)),
            ),
            "areas": NumberArray(
                [Number(int(area), minimum=0, maximum=mask.size) for area in areas[fits]]
            ),
            "circles": circles,
            "region": coins,
        }
    )


def named(name: str, result: Variant, picture: Optional[Variant] = None) -> Variant:
    """The recipe that has one result under the name of its picture, which it begins with if given."""
    if picture is not None and not error_of(result):
        result = joined([recipe_of({"picture": picture}), result])
    return recipe_of({name: result})


def inspect_batch(paths: Mapping[str, str], parameters: Variant, shown: Collection[str]) -> Variant:
    """The results of some pictures by their names, those of some with the picture; all in one call."""
    results = []
    for name, path in paths.items():
        picture = read(path)
        result = measure(segment(smooth(picture, parameters)), parameters)
        results.append(named(name, result, picture if name in shown else None))
    return joined(results)


def joined(recipes: Sequence[Variant]) -> Variant:
    """The recipes one behind the other."""
    parts = VariantArray()
    for recipe in recipes:
        parts.extend(recipe.content)
    return Variant(parts)


def _in_words(result: Variant) -> str:
    error = error_of(result)
    if error:
        return f"damaged: {error}"
    values = values_of(result)
    return f"{values['coins'].value} coins, mean radius {values['mean radius'].value:.1f}"


def summarise(results: Variant, parameters: Variant) -> Variant:
    """The recipe of the whole folder."""
    all_results = values_of(results)
    good = [values_of(each) for each in all_results.values() if not error_of(each)]
    coins = sum(each["coins"].value for each in good)
    radii = sum(each["coins"].value * each["mean radius"].value for each in good)
    count = len(all_results)
    return recipe_of(
        {
            "pictures": Number(count, minimum=0, maximum=count, step=1),
            "damaged": Number(count - len(good), minimum=0, maximum=count, step=1),
            "coins": coins,
            "mean radius": radii / coins if coins else 0.0,
            "parameters": parameters,
            "overview": recipe_of({name: _in_words(each) for name, each in all_results.items()}),
            "results": results,
        }
    )


def _bytes_of(value: Variant) -> int:
    """What the engine plans transfers and memory with: the pixels, and little for everything else."""
    if value.kind == Kind.IMAGE:
        return 100 + int(numpy.asarray(value.content).nbytes)
    if value.kind == Kind.VARIANT_ARRAY:
        return 100 + sum(map(_bytes_of, value.content))
    return 100


sizeof.register(Variant, _bytes_of)
