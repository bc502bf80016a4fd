"""The inspection of a folder as a graph of tasks, and its run on a cluster."""

from __future__ import annotations

import contextlib
import logging
import os
import pathlib
import tempfile
import uuid
from collections.abc import Callable, Iterator
from typing import Any, Optional

import dask
import inspection
from distributed import Client, Future, KilledWorker, LocalCluster, as_completed, wait
from kdrdata import Variant

SUFFIXES = {".bmp", ".jpeg", ".jpg", ".pbm", ".pgm", ".png", ".pnm", ".ppm", ".tif", ".tiff"}
# A task that was with more workers when they died is given up: it may be what they die of.
FAILURES_ALLOWED = 3
# Recipes that one task joins.
JOINED_AT_ONCE = 32

Paths = dict[str, str]


def pictures_in(folder: pathlib.Path) -> Paths:
    """The paths of the pictures in a folder by their names, sorted."""
    found = sorted(path for path in folder.iterdir() if path.suffix.lower() in SUFFIXES)
    # Names are texts, whatever bytes the file system has, and no two the same.
    names = [
        os.fsencode(path.name).replace(b"\\", b"\\\\").decode("utf-8", "backslashreplace")
        for path in found
    ]
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
                # There are no pages to look at, but counters are served in any case.
                scheduler_kwargs={"dashboard": False, "dashboard_address": "127.0.0.1:0"},
                worker_dashboard_address="127.0.0.1:0",
                local_directory=scratch,
                # What ends a task is raised here, too; the rest changes no result.
                silence_logs=logging.CRITICAL,
            )
        )
        yield stack.enter_context(Client(cluster))


@contextlib.contextmanager
def remote_client(address: str) -> Iterator[Client]:
    """The client of a scheduler that runs already, whose workers get the tools."""
    with Client(address) as client:
        client.upload_file(inspection.__file__)
        yield client


def _tasks(
    paths: Paths, parameters: Variant, batch: int, shown: int
) -> list[tuple[list[str], Any]]:
    """The names of pictures and the task that ends in their results, for all pictures."""
    # Others may use the same scheduler.
    run = uuid.uuid4().hex
    # A task of its own: whoever loses them has them again.
    known = dask.delayed(parameters, name=f"parameters-{run}", traverse=False)
    names = list(paths)

    def task(tool: Callable[..., Variant], number: int, *given: Any) -> Any:
        key = f"{tool.__name__}-{run}-{number}"
        return dask.delayed(tool, pure=False)(*given, dask_key_name=key)

    def all_in_one(number: int, part: list[str]) -> Any:
        some = {name: paths[name] for name in part}
        kept = [name for name in names[:shown] if name in some]
        return task(inspection.inspect_batch, number, some, known, kept)

    def one_by_one(number: int, name: str) -> Any:
        picture = task(inspection.read, number, paths[name])
        segments = task(inspection.segment, number, task(inspection.smooth, number, picture, known))
        measured = task(inspection.measure, number, segments, known)
        kept = [picture] if number < shown else []
        return task(inspection.named, number, name, measured, *kept)

    if batch == 1:
        return [([name], one_by_one(i, name)) for i, name in enumerate(names)]
    parts = [names[first : first + batch] for first in range(0, len(names), batch)]
    return [(part, all_in_one(i, part)) for i, part in enumerate(parts)]


def _was_killed(future: Future) -> bool:
    return future.status == "error" and isinstance(future.exception(), KilledWorker)


def _alone(client: Client, name: str, path: str, parameters: Variant, kept: list[str]) -> Variant:
    """The result of a picture while nothing else runs, so that it alone can be what kills."""
    tool = inspection.inspect_batch
    future = client.submit(tool, {name: path}, parameters, kept, pure=False)
    wait(future)
    if _was_killed(future):
        return inspection.named(name, inspection.failure("every worker with this picture dies"))
    result: Variant = future.result()
    return result


def inspect(
    client: Client,
    paths: Paths,
    parameters: Variant,
    batch: int = 1,
    shown: int = 0,
    told: Optional[Callable[[int], None]] = None,
) -> Variant:
    """The summary of the pictures, which depends on nothing but them, the parameters and shown.

    With a batch of one, each tool is a task for each picture; else the tools run for that many
    pictures in one task. The results of the first pictures, as many as are shown, hold the
    pictures. Who is told hears how many are done.
    """
    tasks = _tasks(paths, parameters, batch, shown)
    futures: list[Future] = client.compute([task for _, task in tasks])
    counts = {future.key: len(names) for future, (names, _) in zip(futures, tasks)}
    done = 0
    for future in as_completed(futures):
        done += counts[future.key]
        if told:
            told(done)

    # What a dying worker took with it is being done again.
    wait(futures)
    parts: list[Any] = futures
    suspects = [names for future, (names, _) in zip(futures, tasks) if _was_killed(future)]
    if suspects:
        # What stays with the workers would die with them, and be done again beside a suspect.
        parts = [future.result() for future in futures if not _was_killed(future)]
        for future in futures:
            future.release()
        found = inspection.values_of(inspection.joined(parts))
        kept = list(paths)[:shown]
        for name in [name for names in suspects for name in names]:
            alone = _alone(client, name, paths[name], parameters, kept)
            found.update(inspection.values_of(alone))
        parts = [inspection.recipe_of({name: found[name] for name in paths})]
    while len(parts) > 1:
        parts = [
            client.submit(inspection.joined, parts[i : i + JOINED_AT_ONCE], pure=False)
            for i in range(0, len(parts), JOINED_AT_ONCE)
        ]
    summary: Variant = client.submit(
        inspection.summarise, parts[0], parameters, pure=False
    ).result()
    return summary
