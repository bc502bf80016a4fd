#!/usr/bin/python3
"""Makes many pictures of one: crops of it at chance places, brighter or darker, with noise.

Which ones depends on the seed alone.
"""

from __future__ import annotations

import argparse
import pathlib
import sys

import numpy
from kdrdata import Image


def make(picture: Image, seed: int, number: int, part: float = 0.75) -> Image:
    """The picture of this number: a part of each side of the given one."""
    chance = numpy.random.default_rng([seed, number])
    pixels = numpy.asarray(picture)
    height, width = (max(1, round(side * part)) for side in pixels.shape[:2])
    top = int(chance.integers(pixels.shape[0] - height + 1))
    left = int(chance.integers(pixels.shape[1] - width + 1))
    crop = pixels[top : top + height, left : left + width].astype(numpy.float32)
    crop = crop * chance.uniform(0.9, 1.1) + chance.normal(0.0, 3.0, crop.shape)
    return Image.from_array(crop.round().clip(0, 255).astype(numpy.uint8))


def make_folder(picture: Image, folder: pathlib.Path, count: int, seed: int) -> None:
    """Writes that many pictures into a folder."""
    folder.mkdir(parents=True, exist_ok=True)
    for number in range(count):
        make(picture, seed, number).save(folder / f"picture-{number:04}.png")


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("picture", type=pathlib.Path, help="a picture of 8 bits a channel")
    parser.add_argument("folder", type=pathlib.Path, help="where to put the new ones")
    parser.add_argument("--count", type=int, default=60, help="how many (%(default)s)")
    parser.add_argument("--seed", type=int, default=1, help="which ones (%(default)s)")
    arguments = parser.parse_args()
    try:
        picture = Image.read(arguments.picture)
        make_folder(picture, arguments.folder, arguments.count, arguments.seed)
    except OSError as error:
        print(f"{parser.prog}: {error}", file=sys.stderr)
        return 2
    return 0


if __name__ == "__main__":
    sys.exit(main())
