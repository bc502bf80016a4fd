"""The inspection of a folder as a graph of tasks, and its run on a cluster."""

from __future__ import annotations

import contextlib
import os
import pathlib
import tempfile
import uuid
from collections.abc import Callable, Iterator, Sequence
from typing import Any, Optional

import dask
import inspection
from distributed import Client, Future, KilledWorker, LocalCluster, as_completed
from kdrdata import Variant

SUFFIXES = {".bmp", ".jpeg", ".jpg", ".pbm", ".pgm", ".png", ".pnm", ".ppm", ".tif", ".tiff"}
# A task that was on so many workers when they died is given up; it may be what they died of.
FAILURES_ALLOWED = 3
# Recipes that one task joins.
JOINED_AT_ONCE = 32

Paths = dict[str, str]


def pictures_in(folder: pathlib.Path) -> Paths:
    """The paths of the pictures in a folder by their names, sorted."""
    found = sorted(path for path in folder.iterdir() if path.suffix.lower() in SUFFIXES)
    # Names are texts, whatever bytes the file system has.
    names = [os.fsencode(path.name).decode("utf-8", "backslashreplace") for path in found]
    return {name: str(path.absolute()) for name, path in zip(names, found)}


@contextlib.contextmanager
def local_client(workers: int) -> Iterator[Client]:
    """The client of processes on this machine, which listen to it alone."""
    with contextlib.ExitStack() as stack:
        scratch = stack.enter_context(tempfile.TemporaryDirectory(prefix="inspect-folder-"))
        stack.enter_context(
            dask.config.set({"distributed.scheduler.allowed-failures": FAILURES_ALLOWED})
        )
        cluster = stack.enter_context(
            LocalCluster(
                n_workers=workers,
                threads_per_worker=1,
                processes=True,
                host="127.0.0.1",
                dashboard_address=None,
                local_directory=scratch,
            )
        )
        yield stack.enter_context(Client(cluster))


@contextlib.contextmanager
def remote_client(address: str) -> Iterator[Client]:
    """The client of a scheduler that runs already, whose workers get the tools."""
    with Client(address) as client:
        client.upload_file(inspection.__file__)
        yield client


def _tasks(paths: Paths, parameters: Variant, batch: int) -> list[tuple[list[str], Any]]:
    """The names of pictures and the task that ends in their results, for all pictures."""
    # Others may use the same scheduler.
    run = uuid.uuid4().hex
    # A task of its own: whoever loses them has them again.
    known = dask.delayed(parameters, name=f"parameters-{run}", traverse=False)

    def task(tool: Callable[..., Variant], number: int, *given: Any) -> Any:
        key = f"{tool.__name__}-{run}-{number}"
        return dask.delayed(tool, pure=False)(*given, dask_key_name=key)

    names = list(paths)
    if batch > 1:
        batches = [names[first : first + batch] for first in range(0, len(names), batch)]
        return [
            (part, task(inspection.inspect_batch, i, {name: paths[name] for name in part}, known))
            for i, part in enumerate(batches)
        ]
    tasks = []
    for i, name in enumerate(names):
        smoothed = task(inspection.smooth, i, task(inspection.read, i, paths[name]), known)
        measured = task(inspection.measure, i, task(inspection.segment, i, smoothed), known)
        tasks.append(([name], task(inspection.named, i, name, measured)))
    return tasks


def _survivors(names: list[str], future: Future) -> Any:
    """The future, or what is said of pictures that took every worker with them."""
    if future.status == "error" and isinstance(future.exception(), KilledWorker):
        words = "the worker died, again and again, while it had this picture"
        return inspection.recipe_of({name: inspection.failure(words) for name in names})
    return future


def inspect(
    client: Client,
    paths: Paths,
    parameters: Variant,
    batch: int = 1,
    told: Optional[Callable[[int], None]] = None,
) -> Variant:
    """The summary of the pictures, which depends on them and the parameters alone.

    With a batch of one, each tool is a task for each picture; else the tools run for that many
    pictures in one task. Who is told hears how many pictures are done.
    """
    tasks = _tasks(paths, parameters, batch)
    futures: list[Future] = client.compute([task for _, task in tasks])
    counts = {future.key: len(names) for future, (names, _) in zip(futures, tasks)}
    done = 0
    for future in as_completed(futures):
        done += counts[future.key]
        if told:
            told(done)

    parts: Sequence[Any] = [_survivors(names, each) for (names, _), each in zip(tasks, futures)]
    while len(parts) > 1:
        parts = [
            client.submit(inspection.joined, list(parts[i : i + JOINED_AT_ONCE]), pure=False)
            for i in range(0, len(parts), JOINED_AT_ONCE)
        ]
    summary: Variant = client.submit(
        inspection.summarise, parts[0], parameters, pure=False
    ).result()
    return summary
