"""A program as users write it, to be checked by mypy and to be run."""

from pathlib import Path
from tempfile import TemporaryDirectory
from typing import Optional

import numpy

import kdrdata
from kdrdata import Error, Image, Kind, Limits, Number, NumberArray, StringArray, Variant


def first_text(recipe: Variant) -> Optional[str]:
    content = recipe.content
    texts: StringArray = content[1].content
    return texts[0]


def total(numbers: NumberArray) -> float:
    result = 0.0
    for number in numbers:
        result += number
    part: NumberArray = numbers[1:]
    one: Number = numbers[0]
    return result - float(one) + len(part)


def main(directory: Path) -> None:
    image: Image = Image.from_array(numpy.zeros((4, 5, 3), numpy.uint8))
    recipe = Variant([image, ["a", "b"], numpy.arange(3), 2.5])
    kdrdata.save(recipe, directory / "recipe.kdr", pixels="smaller")
    again: Variant = kdrdata.load(directory / "recipe.kdr", limits=Limits(nesting=5))
    assert again == recipe and again.kind is Kind.VARIANT_ARRAY
    assert first_text(again) == "a"
    numbers = NumberArray([1, 2.5, numpy.int8(3)])
    numbers.append(4)
    numbers[0] = Number(5, maximum=9)
    assert total(numbers) == 12.5
    try:
        kdrdata.from_bytes(b"")
    except Error as error:
        offset: Optional[int] = error.offset
        assert offset is not None and error.what
    text: str = kdrdata.to_json(recipe, longest=3)
    assert text


if __name__ == "__main__":
    with TemporaryDirectory() as name:
        main(Path(name))
    print("done")
