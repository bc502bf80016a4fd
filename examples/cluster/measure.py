#!/usr/bin/python3
"""Measures what docs/scale.md calculates with, and prints it.

Times are those of the processor, which other programs on the machine lengthen little; what is measured
by the clock says so. Each is the median of several.
"""

from __future__ import annotations

import argparse
import operator
import os
import pathlib
import pickle
import platform
import statistics
import sys
import tempfile
import time
from collections.abc import Callable
from typing import Any

import dask
import distributed
import graph
import inspection
import kdrdata
import numpy
import psutil
import scipy
from distributed import Client, wait
from distributed.protocol.serialize import serialize
from distributed.utils import nbytes
from kdrdata import Image, Variant, VariantArray


def say(what: str, value: str) -> None:
    print(f"{what:<58}{value:>20}", flush=True)


def seconds(work: Callable[[], Any], times: int, clock: Callable[[], float]) -> float:
    """The median of what a call takes."""
    taken = []
    for _ in range(times):
        begin = clock()
        work()
        taken.append(clock() - begin)
    return statistics.median(taken)


def milliseconds(what: str, work: Callable[[], Any], times: int) -> None:
    say(what, f"{1000 * seconds(work, times, time.process_time):.2f} ms")


def machine() -> None:
    with open("/proc/cpuinfo", encoding="utf-8") as about:
        names = [line.partition(":")[2].strip() for line in about if line.startswith("model name")]
    say("processor", names[0] if names else platform.machine())
    say("cores", str(len(os.sched_getaffinity(0))))
    say("Python, NumPy", f"{platform.python_version()}, {numpy.__version__}")
    say("SciPy, distributed", f"{scipy.__version__}, {distributed.__version__}")
    say("programs at once in the minute before", f"{os.getloadavg()[0]:.1f}")


def in_transit(what: str, value: Variant) -> None:
    """The bytes of a value on its way, with the pixels in the pickle and beside it."""
    buffers: list[pickle.PickleBuffer] = []
    whole = pickle.dumps(value, protocol=5)
    parts = pickle.dumps(value, protocol=5, buffer_callback=buffers.append)
    header, frames = serialize(value)
    beside = sum(each.raw().nbytes for each in buffers)
    say(f"{what}: in band", f"{len(whole)} B")
    say(f"{what}: out of band", f"{len(parts)} + {beside} B")
    say(f"{what}: frames of the engine", f"{sum(map(nbytes, frames)) + len(pickle.dumps(header))} B")


def ten_times(picture: Image, parameters: Variant) -> tuple[Image, Variant]:
    """The picture ten times as wide and high, with the noise of a camera, and what fits it."""
    pixels = numpy.asarray(picture)[:, :, 0].repeat(10, 0).repeat(10, 1)
    noisy = pixels + numpy.random.default_rng(1).normal(0, 2, pixels.shape)
    values: dict[str, Any] = {
        name: value.value * (100 if name in ("smallest", "largest") else 10)
        for name, value in inspection.values_of(parameters).items()
    }
    large = Image.from_array(noisy.round().clip(0, 255).astype(numpy.uint8))
    return large, inspection.recipe_of(values)


def one_picture(what: str, picture: Image, parameters: Variant, times: int) -> None:
    height, width = picture.shape[:2]
    print(f"\n{what}, {width} x {height}")
    with tempfile.TemporaryDirectory() as scratch:
        path = str(pathlib.Path(scratch) / "picture.png")
        picture.save(path)
        say("file", f"{os.path.getsize(path)} B")
        milliseconds("read", lambda: inspection.read(path), times)
        value = inspection.read(path)
    smoothed = inspection.smooth(value, parameters)
    segments = inspection.segment(smoothed)
    result = inspection.measure(segments, parameters)
    milliseconds("smooth", lambda: inspection.smooth(value, parameters), times)
    milliseconds("segment", lambda: inspection.segment(smoothed), times)
    milliseconds("measure", lambda: inspection.measure(segments, parameters), times)
    in_transit("picture", value)
    in_transit("segments", segments)
    in_transit("result", result)
    values = inspection.values_of(result)
    say("coins", str(values["coins"].value))
    del values["region"]
    say("result without the region", f"{len(pickle.dumps(inspection.recipe_of(values)))} B")

    def within(value: Variant) -> None:
        pickle.loads(pickle.dumps(value, protocol=5))

    def beside() -> None:
        buffers: list[pickle.PickleBuffer] = []
        parts = pickle.dumps(value, protocol=5, buffer_callback=buffers.append)
        pickle.loads(parts, buffers=buffers)

    milliseconds("picture: pickled and back, in band", lambda: within(value), times)
    milliseconds("picture: pickled and back, out of band", beside, times)
    milliseconds("result: pickled and back", lambda: within(result), times)

    count = 1000
    results = inspection.joined([inspection.named(f"{i:06}", result) for i in range(count)])
    took = seconds(lambda: inspection.summarise(results, parameters), 3, time.process_time)
    say("summary, for a picture", f"{1000 * took / count:.3f} ms")
    summary = inspection.summarise(results, parameters)
    took = seconds(lambda: kdrdata.to_bytes(summary), 3, time.process_time)
    say("summary saved, for a picture", f"{1000 * took / count:.3f} ms")


def scheduling(client: Client, pictures: int) -> None:
    """As many tasks as those pictures have, with nothing to do in them."""
    print(f"\nscheduler and client in one process, {pictures} pictures of 5 tasks with nothing in them")
    chains: list[Any] = []
    for number in range(pictures):
        chain: Any = number
        for _ in range(5):
            chain = dask.delayed(operator.not_, pure=False)(chain)
        chains.append(chain)
    before = psutil.Process().memory_info().rss
    clock, processor = time.monotonic(), time.process_time()
    futures = client.compute(chains)
    wait(futures)
    clock, processor = time.monotonic() - clock, time.process_time() - processor
    tasks = 5 * pictures
    grown = psutil.Process().memory_info().rss - before
    say("tasks a second, by the clock", f"{tasks / clock:.0f}")
    say("processor time of a task", f"{1000 * processor / tasks:.3f} ms")
    say("memory of a task", f"{grown / tasks:.0f} B")
    say("tasks a second, if the process had a core for itself", f"{tasks / processor:.0f}")


def between_workers(client: Client, width: int, height: int, times: int) -> None:
    """A picture made by one worker, sent to the other and looked at there, by the clock."""
    print("\nfrom worker to worker on one machine, by the clock")
    first, second = sorted(client.scheduler_info()["workers"])
    taken = []
    for _ in range(times):
        sent = client.submit(Image, width, height, workers=[first], pure=False)
        wait(sent)
        begin = time.monotonic()
        client.submit(bool, sent, workers=[second], pure=False).result()
        taken.append(time.monotonic() - begin)
    took = statistics.median(taken)
    say("a picture", f"{1000 * took:.1f} ms")
    say("bytes a second", f"{width * height / took / 1e6:.0f} MB/s")


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("picture", type=pathlib.Path, help="a small picture, 8-bit grey")
    parser.add_argument("--tasks", type=int, default=2000, help="chains of tasks (%(default)s)")
    arguments = parser.parse_args()
    parameters = inspection.parameters_from(Variant(VariantArray()))
    small = Image.read(arguments.picture)
    machine()
    one_picture("the picture", small, parameters, 21)
    one_picture("ten times larger", *ten_times(small, parameters), 5)
    with graph.local_client(2) as client:
        scheduling(client, arguments.tasks)
        between_workers(client, 4000, 3000, 9)
    print()
    say("programs at once in the last minute", f"{os.getloadavg()[0]:.1f}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
