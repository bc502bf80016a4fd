"""The program inspect_folder.py: what it writes, says and refuses."""

from __future__ import annotations

import contextlib
import os
import pathlib
import pty
import re
import shutil
import subprocess
import sys
import threading
from collections.abc import Iterator

import graph
import inspect_folder
import inspection
import pytest
from conftest import COINS, COUNT, LONG, run_program, without_cluster
from kdrdata import Number, Variant, load, save, to_bytes, to_html

PROGRAMS = pathlib.Path(inspect_folder.__file__).parent


@pytest.fixture(scope="module")
def few(folder: pathlib.Path, tmp_path_factory: pytest.TempPathFactory) -> pathlib.Path:
    """Four pictures, the last of them damaged."""
    made = tmp_path_factory.mktemp("few")
    for path in sorted(folder.iterdir())[:3]:
        shutil.copy(path, made)
    (made / "picture-9999.png").write_bytes(b"no picture")
    (made / "notes.txt").write_text("no picture either")
    return made


def test_it_writes_a_summary_and_a_report_and_is_quiet(
    few: pathlib.Path, parameters: Variant, tmp_path: pathlib.Path
) -> None:
    done = run_program(few, "--out", tmp_path / "new" / "out", "--workers", 2, "--pictures", 1)
    summary = load(tmp_path / "new" / "out" / "summary.kdr")
    expected = without_cluster(graph.pictures_in(few), parameters, shown=1)
    assert to_bytes(summary) == to_bytes(expected)
    report = tmp_path / "new" / "out" / "report.html"
    assert report.read_text() == to_html(expected, "inspection of a folder")
    reason = inspection.values_of(inspection.values_of(expected)["overview"])["picture-9999.png"]
    assert reason.value.startswith("damaged: ")
    assert report.read_text().count(f">{reason.value}<") == 1
    coins = inspection.values_of(expected)["coins"].value
    assert done.stdout == f"4 pictures, 1 damaged, {coins} coins: {report}\n"
    assert (done.stderr, done.returncode) == ("", 0)


def test_programs_in_other_languages_load_the_summary(
    few: pathlib.Path, tmp_path: pathlib.Path
) -> None:
    run_program(few, "--out", tmp_path, "--workers", 1)
    shown = subprocess.run(
        [os.environ["KDRDUMP"], tmp_path / "summary.kdr"],
        stdout=subprocess.PIPE,
        text=True,
        timeout=LONG,
        check=True,
    )
    assert re.search(r"^ +1 +\[1\] pictures +4 ", shown.stdout, re.MULTILINE)
    assert re.search(r"\] picture-9999.png +damaged: not a picture", shown.stdout)


def on_a_terminal(*words: object) -> str:
    """What a run shows on a terminal, its results being sent elsewhere."""
    ours, theirs = pty.openpty()
    shown: list[bytes] = []

    def listen() -> None:
        # The last one to close the other end makes it an error.
        with contextlib.suppress(OSError):
            while part := os.read(ours, 4096):
                shown.append(part)

    listener = threading.Thread(target=listen)
    listener.start()
    try:
        run_program(*words, stderr=theirs)
    finally:
        os.close(theirs)
        listener.join()
        os.close(ours)
    return b"".join(shown).decode()


def test_it_shows_progress_on_a_terminal(few: pathlib.Path, tmp_path: pathlib.Path) -> None:
    lines = on_a_terminal(few, "--out", tmp_path, "--workers", 1).split("\r\x1b[K")
    assert lines[0] == ""
    assert [line.partition(",")[0] for line in lines[1:]] == [
        f"{done} of 4 pictures" for done in range(1, 5)
    ]
    assert all(re.fullmatch(r".* \d+\.\d s\s*", line) for line in lines[1:])


def test_parameters_come_from_a_saved_recipe(few: pathlib.Path, tmp_path: pathlib.Path) -> None:
    changed = {"name": "of another program", "smallest": Number(1400, minimum=5, maximum=30000)}
    save(inspection.recipe_of(changed), tmp_path / "parameters.kdr")
    run_program(few, "--out", tmp_path, "--parameters", tmp_path / "parameters.kdr", "--workers", 1)
    summary = load(tmp_path / "summary.kdr")
    used = inspection.parameters_from(inspection.recipe_of(changed))
    assert to_bytes(summary) == to_bytes(without_cluster(graph.pictures_in(few), used, shown=6))
    kept = inspection.values_of(inspection.values_of(summary)["parameters"])
    assert kept["smallest"] == Variant(Number(1400, minimum=5, maximum=30000))
    assert "name" not in kept


def test_a_sample_depends_on_the_seed_alone(
    few: pathlib.Path, folder: pathlib.Path, tmp_path: pathlib.Path
) -> None:
    paths = graph.pictures_in(folder)
    first = inspect_folder.sample(paths, 5, 1)
    assert len(first) == 5 and list(first) == sorted(first)
    assert first == inspect_folder.sample(paths, 5, 1)
    assert first != inspect_folder.sample(paths, 5, 2)
    assert inspect_folder.sample(paths, COUNT + 1, 1) == paths
    run_program(few, "--out", tmp_path, "--sample", 2, "--seed", 4, "--workers", 1)
    overview = inspection.values_of(load(tmp_path / "summary.kdr"))["overview"]
    expected = inspect_folder.sample(graph.pictures_in(few), 2, 4)
    assert list(inspection.values_of(overview)) == list(expected)


@contextlib.contextmanager
def started(*words: str, until: str, where: pathlib.Path) -> Iterator[str]:
    """A program that runs meanwhile, and the line in which it says that it is there."""
    with subprocess.Popen(
        [sys.executable, "-m", *words],
        cwd=where,
        stderr=subprocess.PIPE,
        stdout=subprocess.DEVNULL,
        text=True,
    ) as process:
        assert process.stderr
        try:
            yield next(line for line in process.stderr if until in line)
            # What it says at its end is read so that it can end.
        finally:
            process.terminate()
            process.communicate(timeout=LONG)


def test_it_uses_the_scheduler_that_it_is_given(
    few: pathlib.Path, parameters: Variant, tmp_path: pathlib.Path
) -> None:
    scheduler = ("distributed.cli.dask_scheduler", "--host", "127.0.0.1", "--port", "0")
    pages = ("--no-dashboard", "--dashboard-address", "127.0.0.1:0")
    with started(*scheduler, *pages, until="Scheduler at", where=tmp_path) as line:
        address = line.split()[-1]
        # The worker runs elsewhere and knows nothing of the tools.
        worker = ("distributed.cli.dask_worker", address, "--nthreads", "1", "--no-dashboard")
        with started(*worker, until="Registered to", where=tmp_path):
            done = run_program(few, "--out", tmp_path / "out", "--scheduler", address)
    assert (done.stderr, done.returncode) == ("", 0)
    summary = load(tmp_path / "out" / "summary.kdr")
    expected = without_cluster(graph.pictures_in(few), parameters, shown=6)
    assert to_bytes(summary) == to_bytes(expected)


def test_what_it_cannot_do_is_one_line(few: pathlib.Path, tmp_path: pathlib.Path) -> None:
    empty = tmp_path / "empty"
    empty.mkdir()
    save(inspection.recipe_of({"smoothing": "much"}), tmp_path / "wrong.kdr")
    nobody = ("--scheduler", "tcp://127.0.0.1:1")
    quickly = {"DASK_DISTRIBUTED__COMM__TIMEOUTS__CONNECT": "1s"}
    for words, said in (
        ((empty,), f"no pictures in {empty}"),
        ((tmp_path / "nowhere",), "No such file or directory"),
        ((few, "--parameters", tmp_path / "none.kdr"), "No such file or directory"),
        ((few, "--parameters", COINS), str(COINS)),
        ((few, "--parameters", tmp_path / "wrong.kdr"), "the parameter smoothing is no number"),
        ((few, *nobody), "tcp://127.0.0.1:1"),
    ):
        done = run_program(*words, "--out", tmp_path / "out", env=quickly)
        assert (done.returncode, done.stdout) == (2, "")
        assert done.stderr.count("\n") == 1 and done.stderr.startswith("inspect_folder.py: ")
        assert said in done.stderr
    assert not (tmp_path / "out" / "summary.kdr").exists()


def test_there_are_as_many_pictures_as_asked_for(folder: pathlib.Path) -> None:
    assert len({path.read_bytes() for path in folder.iterdir()}) == COUNT


@pytest.mark.parametrize("name", ["inspect_folder.py", "make_pictures.py", "measure.py"])
def test_the_programs_start_by_their_names(name: str) -> None:
    done = subprocess.run([PROGRAMS / name, "--help"], capture_output=True, check=False)
    assert done.returncode == 0
    assert done.stdout.startswith(b"usage: " + name.encode())
