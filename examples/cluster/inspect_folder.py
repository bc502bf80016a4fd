#!/usr/bin/python3
"""Finds the coins in all pictures of a folder, on the processors of this machine or on a cluster.

Writes summary.kdr, one recipe with the results of all pictures, and report.html. Both depend on the
pictures and the parameters alone, not on who did what when.
"""

from __future__ import annotations

import argparse
import logging
import os
import pathlib
import random
import sys
import time
from typing import Callable, Optional

import graph
import inspection
import kdrdata


def positive(text: str) -> int:
    number = int(text)
    if number < 1:
        raise argparse.ArgumentTypeError("it is at least 1")
    return number


def not_negative(text: str) -> int:
    number = int(text)
    if number < 0:
        raise argparse.ArgumentTypeError("it is at least 0")
    return number


def parser() -> argparse.ArgumentParser:
    made = argparse.ArgumentParser(description=__doc__)
    made.add_argument("folder", type=pathlib.Path, help="its pictures are inspected")
    made.add_argument("--out", type=pathlib.Path, required=True, help="the directory to write to")
    made.add_argument(
        "--scheduler",
        metavar="ADDRESS",
        help="use the workers of this scheduler, which see the folder under the same path; without "
        "it, processes on this machine",
    )
    made.add_argument(
        "--workers",
        type=positive,
        default=len(os.sched_getaffinity(0)),
        help="how many processes on this machine (%(default)s)",
    )
    made.add_argument(
        "--batch", type=positive, default=1, help="the pictures of one task (%(default)s)"
    )
    made.add_argument(
        "--parameters", type=pathlib.Path, metavar="FILE", help="a saved recipe with parameters"
    )
    made.add_argument(
        "--pictures",
        type=not_negative,
        default=6,
        help="so many results hold their picture, which the report shows (%(default)s)",
    )
    made.add_argument("--sample", type=positive, help="inspect so many, chosen by chance")
    made.add_argument("--seed", type=int, default=1, help="which ones those are (%(default)s)")
    return made


def progress(count: int) -> Optional[Callable[[int], None]]:
    """Who tells on a terminal how many pictures are done; nobody where there is none."""
    if not sys.stderr.isatty():
        return None
    begin = time.monotonic()

    def tell(done: int) -> None:
        took = time.monotonic() - begin
        end = "\n" if done == count else ""
        print(f"\r\033[K{done} of {count} pictures, {took:.1f} s", end=end, file=sys.stderr, flush=True)

    return tell


def sample(paths: graph.Paths, count: int, seed: int) -> graph.Paths:
    """So many of the pictures, chosen by chance."""
    chosen = random.Random(seed).sample(list(paths), min(count, len(paths)))
    return {name: paths[name] for name in sorted(chosen)}


def run(arguments: argparse.Namespace) -> str:
    """Does it all and tells the outcome in a line."""
    given = kdrdata.Variant(kdrdata.VariantArray())
    if arguments.parameters:
        given = kdrdata.load(arguments.parameters)
    parameters = inspection.parameters_from(given)
    paths = graph.pictures_in(arguments.folder)
    if not paths:
        raise ValueError(f"no pictures in {arguments.folder}")
    if arguments.sample:
        paths = sample(paths, arguments.sample, arguments.seed)
    arguments.out.mkdir(parents=True, exist_ok=True)

    if arguments.scheduler:
        connection = graph.remote_client(arguments.scheduler)
    else:
        connection = graph.local_client(arguments.workers)
    with connection as client:
        told = progress(len(paths))
        summary = graph.inspect(
            client, paths, parameters, arguments.batch, arguments.pictures, told
        )

    kdrdata.save(summary, arguments.out / "summary.kdr")
    report = arguments.out / "report.html"
    report.write_text(kdrdata.to_html(summary, "inspection of a folder"), encoding="utf-8")
    values = inspection.values_of(summary)
    return (
        f"{values['pictures'].value} pictures, {values['damaged'].value} damaged, "
        f"{values['coins'].value} coins: {report}"
    )


def main() -> int:
    made = parser()
    arguments = made.parse_args()
    # What fails is raised; what else the engine has to say is of workers that it does without.
    logging.disable(logging.CRITICAL)
    try:
        print(run(arguments))
    except (OSError, ValueError) as error:
        print(f"{made.prog}: {error}", file=sys.stderr)
        return 2
    return 0


if __name__ == "__main__":
    sys.exit(main())
