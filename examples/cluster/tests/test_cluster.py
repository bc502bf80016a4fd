"""The inspection over processes: what they do depends neither on their number nor on their fate."""

from __future__ import annotations

import os
import pathlib
import shutil
import signal
from collections import defaultdict
from typing import Any

import disturbed
import graph
import inspection
import psutil
import pytest
from conftest import COUNT, without_cluster
from distributed import Client
from distributed.diagnostics.plugin import SchedulerPlugin
from kdrdata import Variant, to_bytes


class Completions(SchedulerPlugin):
    """Who completed which task, in order."""

    name = "completions"

    def __init__(self, client: Client) -> None:
        self.workers: dict[str, list[str]] = defaultdict(list)
        cluster: Any = client.cluster
        cluster.scheduler.add_plugin(self)

    def transition(self, key: str, start: str, finish: str, *_: Any, **how: Any) -> None:
        if (start, finish) == ("processing", "memory"):
            self.workers[key].append(how["worker"])


def test_two_processes_give_the_bytes_of_one(
    two_workers: Client, folder: pathlib.Path, parameters: Variant
) -> None:
    paths = graph.pictures_in(folder)
    assert len(paths) == COUNT
    completions = Completions(two_workers)
    summary = graph.inspect(two_workers, paths, parameters, shown=3)
    assert len(set(sum(completions.workers.values(), []))) == 2
    assert to_bytes(summary) == to_bytes(without_cluster(paths, parameters, shown=3))
    assert inspection.values_of(summary)["coins"].value > COUNT


def test_batches_change_nothing(
    two_workers: Client, folder: pathlib.Path, parameters: Variant
) -> None:
    paths = graph.pictures_in(folder)
    summary = graph.inspect(two_workers, paths, parameters, batch=7, shown=9)
    assert to_bytes(summary) == to_bytes(without_cluster(paths, parameters, shown=9))


def test_who_is_told_hears_of_every_picture(
    two_workers: Client, folder: pathlib.Path, parameters: Variant
) -> None:
    paths = dict(list(graph.pictures_in(folder).items())[:10])
    for batch, expected in ((1, list(range(1, 11))), (10, [10])):
        told: list[int] = []
        graph.inspect(two_workers, paths, parameters, batch=batch, told=told.append)
        assert told == expected


def test_a_damaged_picture_is_an_entry_with_the_reason(
    two_workers: Client, folder: pathlib.Path, parameters: Variant, tmp_path: pathlib.Path
) -> None:
    whole = dict(list(graph.pictures_in(folder).items())[:4])
    for path in whole.values():
        shutil.copy(path, tmp_path)
    cut = tmp_path / "picture-0001b.png"
    cut.write_bytes((folder / "picture-0001.png").read_bytes()[:1000])
    for batch in (1, 3):
        summary = graph.inspect(two_workers, graph.pictures_in(tmp_path), parameters, batch, 5)
        values = inspection.values_of(summary)
        assert (values["pictures"].value, values["damaged"].value) == (5, 1)
        results = inspection.values_of(values["results"])
        reason = inspection.error_of(results.pop(cut.name))
        assert "not a picture that can be read: picture-0001b.png" in reason
        assert inspection.values_of(values["overview"])[cut.name].value == f"damaged: {reason}"
        good = inspection.values_of(without_cluster(whole, parameters, shown=5))
        assert results == inspection.values_of(good["results"])


def test_a_killed_worker_costs_its_repeats_alone(
    folder: pathlib.Path,
    parameters: Variant,
    tmp_path: pathlib.Path,
    monkeypatch: pytest.MonkeyPatch,
) -> None:
    gate = tmp_path / "gate"
    monkeypatch.setenv(disturbed.GATE, str(gate))
    monkeypatch.setattr(inspection, "named", disturbed.named)
    paths = graph.pictures_in(folder)
    killed = []
    with graph.local_client(2) as client:
        completions = Completions(client)
        processes = client.run(os.getpid)

        # Both workers have as many results as come before the gate, and go on behind it.
        def kill_one(done: int) -> None:
            if done == 2 * disturbed.BEFORE_THE_GATE:
                victim = sorted(processes)[0]
                os.kill(processes[victim], signal.SIGKILL)
                killed.append(victim)
                gate.touch()

        summary = graph.inspect(client, paths, parameters, told=kill_one)
    monkeypatch.undo()
    assert to_bytes(summary) == to_bytes(without_cluster(paths, parameters))

    def picture_of(key: str) -> str:
        return key.rpartition("-")[2]

    results = {key: by for key, by in completions.workers.items() if key.startswith("named-")}
    assert len(results) == COUNT
    lost = [key for key, by in results.items() if by[0] in killed]
    assert len(lost) == disturbed.BEFORE_THE_GATE
    assert {key for key, by in results.items() if len(by) > 1} == set(lost)
    touched = {picture_of(key) for key, by in completions.workers.items() if by[0] in killed}
    repeated = {picture_of(key) for key, by in completions.workers.items() if len(by) > 1}
    assert repeated <= touched


def test_a_picture_that_kills_is_damaged_and_no_other(
    folder: pathlib.Path,
    parameters: Variant,
    tmp_path: pathlib.Path,
    monkeypatch: pytest.MonkeyPatch,
) -> None:
    monkeypatch.setattr(inspection, "read", disturbed.read)
    monkeypatch.setattr(inspection, "inspect_batch", disturbed.inspect_batch)
    monkeypatch.setattr(graph, "FAILURES_ALLOWED", 1)
    whole = dict(list(graph.pictures_in(folder).items())[:5])
    for path in whole.values():
        shutil.copy(path, tmp_path)
    shutil.copy(folder / "picture-0002.png", tmp_path / "picture-0002-deadly.png")
    with graph.local_client(2) as client:
        summary = graph.inspect(client, graph.pictures_in(tmp_path), parameters)
    monkeypatch.undo()
    results = inspection.values_of(inspection.values_of(summary)["results"])
    reason = inspection.error_of(results.pop("picture-0002-deadly.png"))
    assert reason == "every worker with this picture dies"
    good = inspection.values_of(without_cluster(whole, parameters))
    assert results == inspection.values_of(good["results"])


def test_nobody_else_is_listened_to(two_workers: Client) -> None:
    this = psutil.Process()
    workers = two_workers.run(os.getpid).values()
    heard = [
        connection.laddr.ip
        for process in (this, *map(psutil.Process, workers))
        for connection in process.connections("inet")
        if connection.status == psutil.CONN_LISTEN
    ]
    assert len(heard) >= 1 + len(workers)
    assert set(heard) == {"127.0.0.1"}
