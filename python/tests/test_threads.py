"""What takes long lets other threads run."""

import copy
import os
import pickle
import subprocess
import sys
import textwrap
import threading

import numpy
import pytest

import kdrdata
from kdrdata import Image, Variant
from meanwhile import FOR_EVER, lets_others_run

def test_the_way_to_see_it_sees_what_does_not_let_go():
    variant = Variant(1)
    assert not lets_others_run(lambda: variant.value, calls=1000)


def everything_long(tmp_path):
    value = Variant([Image.from_array(numpy.zeros((100, 100), numpy.uint8)), "text"])
    same = kdrdata.from_bytes(kdrdata.to_bytes(value))
    data = kdrdata.to_bytes(value)
    pickled = pickle.dumps(value)
    path = tmp_path / "value.kdr"
    kdrdata.save(value, path)
    return {
        "save": lambda: kdrdata.save(value, path),
        "load": lambda: kdrdata.load(path),
        "to_bytes": lambda: kdrdata.to_bytes(value),
        "from_bytes": lambda: kdrdata.from_bytes(data),
        "to_json": lambda: kdrdata.to_json(value),
        "to_html": lambda: kdrdata.to_html(value),
        "equality": lambda: value == same,
        "pickle": lambda: pickle.dumps(value, 5),
        "unpickle": lambda: pickle.loads(pickled),
        "deepcopy": lambda: copy.deepcopy(value),
        "clone": lambda: value.clone(),
    }


LONG = [
    "save", "load", "to_bytes", "from_bytes", "to_json", "to_html", "equality", "pickle",
    "unpickle", "deepcopy", "clone",
]  # fmt: skip


@pytest.mark.parametrize("name", LONG)
def test_long_operations_let_go(name, tmp_path):
    operations = everything_long(tmp_path)
    assert sorted(operations) == sorted(LONG)
    assert lets_others_run(operations[name])


def run(code, *arguments):
    """Runs a program that never ends where the lock is held."""
    return subprocess.run(
        [sys.executable, "-c", textwrap.dedent(code), *map(str, arguments)],
        timeout=FOR_EVER,
        check=True,
        capture_output=True,
        text=True,
    ).stdout


def test_two_threads_load_while_a_third_counts(tmp_path):
    """Both wait for their files, which the third thread writes after it has counted."""
    pipes = [tmp_path / "one", tmp_path / "two"]
    for pipe in pipes:
        os.mkfifo(pipe)
    out = run(
        """
        import sys, threading, kdrdata
        loaded = {}
        def load(path):
            loaded[path] = kdrdata.load(path).value
        threads = [threading.Thread(target=load, args=(path,)) for path in sys.argv[1:]]
        for thread in threads:
            thread.start()
        counted = sum(range(10**6))
        for path in sys.argv[1:]:
            with open(path, "wb") as file:
                file.write(kdrdata.to_bytes([counted, path]))
        for thread in threads:
            thread.join()
        print(all(loaded[path] == [counted, path] for path in sys.argv[1:]))
        """,
        *pipes,
    )
    assert out == "True\n"


def test_variants_are_read_in_many_threads_at_once():
    value = Variant([1, "text", [Image.from_array(numpy.zeros((50, 50), numpy.uint8)), b"x"]])
    data = kdrdata.to_bytes(value)
    failed = []

    def work():
        for _ in range(200):
            if kdrdata.to_bytes(Variant(value)) != data or copy.deepcopy(value) != value:
                failed.append(True)

    threads = [threading.Thread(target=work) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not failed


def test_arrays_are_let_go_of_whichever_thread_gives_them_back():
    """The last image goes away in another thread, or at the end of the program."""
    out = run(
        """
        import gc, threading, weakref, numpy, kdrdata
        arrays = [numpy.zeros((9, 9), numpy.uint8) for _ in range(100)]
        kept = [weakref.ref(array) for array in arrays]
        images = [kdrdata.Image.from_array(array, copy=False) for array in arrays]
        arrays.clear()
        assert all(array() is not None for array in kept)
        thread = threading.Thread(target=images.clear)
        thread.start()
        thread.join()
        gc.collect()
        assert all(array() is None for array in kept)
        left = kdrdata.Image.from_array(numpy.zeros((9, 9), numpy.uint8), copy=False)
        kept = kdrdata.Variant([left, [left]])
        print("ended")
        """
    )
    assert out == "ended\n"


def test_lists_may_change_while_another_thread_reads_them():
    """What reads without the lock reads a copy."""
    points = kdrdata.PointArray(numpy.zeros((20_000, 2)))
    more = numpy.ones((20_000, 2))
    regions = kdrdata.RegionArray([kdrdata.Region.from_mask(numpy.eye(50))])
    region = regions[0]
    done = threading.Event()
    interval = sys.getswitchinterval()
    sys.setswitchinterval(1e-6)

    def change():
        while not done.is_set():
            points.clear()
            points.extend(more)
            regions.append(region)
            regions.append(region)
            del regions[0]
            del regions[0]

    thread = threading.Thread(target=change)
    thread.start()
    try:
        for _ in range(1000):
            coordinates = numpy.asarray(points)
            assert coordinates.shape[1:] == (2,)
            assert regions.union() in (region, kdrdata.Region())
    finally:
        done.set()
        thread.join()
        sys.setswitchinterval(interval)
