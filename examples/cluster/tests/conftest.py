"""What the tests have in common: the pictures, a cluster, and the results without one."""

from __future__ import annotations

import os
import pathlib
import subprocess
import sys
from collections.abc import Iterator, Mapping

import pytest
from distributed import Client
from kdrdata import Image, Variant, VariantArray

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent), str(HERE)]

import graph  # noqa: E402
import inspection  # noqa: E402
import make_pictures  # noqa: E402

COINS = HERE.parents[1] / "data" / "coins.png"
COUNT = 60
# No machine is so busy that it is not done by then.
LONG = 300


@pytest.fixture(scope="session")
def folder(tmp_path_factory: pytest.TempPathFactory) -> pathlib.Path:
    made = tmp_path_factory.mktemp("pictures")
    make_pictures.make_folder(Image.read(COINS), made, COUNT, seed=3)
    return made


@pytest.fixture(scope="session")
def parameters() -> Variant:
    return inspection.parameters_from(Variant(VariantArray()))


def without_cluster(paths: dict[str, str], parameters: Variant, shown: int = 0) -> Variant:
    """The summary, by one process that calls the tools one after the other."""
    parts = []
    for number, (name, path) in enumerate(sorted(paths.items())):
        picture = inspection.read(path)
        result = inspection.smooth(picture, parameters)
        result = inspection.measure(inspection.segment(result), parameters)
        parts.append(inspection.named(name, result, picture if number < shown else None))
    return inspection.summarise(inspection.joined(parts), parameters)


@pytest.fixture(scope="session")
def two_workers() -> Iterator[Client]:
    with graph.local_client(2) as client:
        yield client


def run_program(
    *words: object, stderr: int = subprocess.PIPE, env: Mapping[str, str] = {}
) -> subprocess.CompletedProcess[str]:
    program = HERE.parent / "inspect_folder.py"
    return subprocess.run(
        [sys.executable, str(program), *map(str, words)],
        stdout=subprocess.PIPE,
        stderr=stderr,
        text=True,
        timeout=LONG,
        env={**os.environ, **env},
        check=False,
    )
