"""Nothing is left behind by many round trips: neither memory, nor references, nor pixels."""

import copy
import gc
import os
import pickle
import sys
import weakref

import numpy
import pytest

import kdrdata
from kdrdata import Image, Variant

# Of each of the tests; more than 10^5 in all.
ROUNDS = int(os.environ.get("KDRDATA_ROUNDS", "15000"))


def memory():
    """The bytes of this process in memory."""
    with open("/proc/self/statm", encoding="ascii") as file:
        return int(file.read().split()[1]) * os.sysconf("SC_PAGE_SIZE")


def flat(work, rounds=ROUNDS, allowed=4 << 20):
    """Runs work many times, and fails where the memory or Python's objects grow meanwhile.

    Rounds that leave an object behind are seen by the counts, and a picture by the memory.
    """
    for _ in range(rounds // 10):
        work()
    gc.collect()
    before, objects, blocks = memory(), len(gc.get_objects()), sys.getallocatedblocks()
    for _ in range(rounds - rounds // 10):
        work()
    gc.collect()
    assert len(gc.get_objects()) - objects < 100
    assert sys.getallocatedblocks() - blocks < 1000
    assert memory() - before < allowed


def test_values_in_and_out():
    given = [None, True, 2**40, 2.5, "a text", b"bytes", [1, 2], ["a", "b"], [[], "c"]]
    counts = [sys.getrefcount(each) for each in given]

    def work():
        variant = Variant(given)
        assert variant.value == given
        assert variant.content[2].value == 2**40
        assert variant.kind is kdrdata.Kind.VARIANT_ARRAY

    flat(work)
    # None, True and the like are held in many places.
    for index in (2, 3, 4, 5, 6, 7, 8):
        assert sys.getrefcount(given[index]) == counts[index]


@pytest.mark.parametrize("protocol", [2, 5])
def test_pickles(protocol):
    variant = Variant([1, "text", Image.from_array(numpy.zeros((20, 10, 3), numpy.uint8))])

    def work():
        assert pickle.loads(pickle.dumps(variant, protocol)).kind is variant.kind

    flat(work)


def test_pickles_with_buffers_beside_them():
    pixels = numpy.zeros((64, 64), numpy.uint8)
    variant = Variant(Image.from_array(pixels, copy=False))
    count = sys.getrefcount(pixels)

    def work():
        buffers = []
        data = pickle.dumps(variant, 5, buffer_callback=buffers.append)
        assert pickle.loads(data, buffers=buffers).kind is variant.kind

    flat(work)
    assert sys.getrefcount(pixels) == count


def test_copies_and_bytes():
    variant = Variant([1, "text", Image.from_array(numpy.zeros((20, 10), numpy.uint8))])

    def work():
        assert copy.deepcopy(variant).kind is copy.copy(variant).kind
        assert kdrdata.from_bytes(kdrdata.to_bytes(variant)).kind is variant.kind

    flat(work)


def test_views_of_pixels():
    image = Image.from_array(numpy.zeros((64, 64, 3), numpy.uint8))

    def work():
        view = numpy.asarray(image)
        assert view[::2, 1:, 0].sum() == 0

    flat(work)


def test_images_over_arrays_let_go_of_them():
    """Each block of pixels that is an array's counts among the array's references."""
    pixels = numpy.zeros((64, 64, 3), numpy.uint8)
    count = sys.getrefcount(pixels)

    def work():
        image = Image.from_array(pixels, copy=False)
        assert numpy.shares_memory(numpy.asarray(Variant(image).content), pixels)

    flat(work)
    assert sys.getrefcount(pixels) == count


def test_blocks_of_pixels_end_with_their_last_holder():
    class Pixels(numpy.ndarray):
        pass

    pixels = numpy.zeros((8, 8), numpy.uint8).view(Pixels)
    gone = weakref.ref(pixels)
    image = Image.from_array(pixels, copy=False)
    del pixels
    holders = [image, copy.copy(image), Variant(image), Variant([1, image]), numpy.asarray(image)]
    del image
    while holders:
        gc.collect()
        assert gone() is not None
        holders.pop()
    gc.collect()
    assert gone() is None


def test_refused_input():
    data = kdrdata.to_bytes([1, "text"])[:-1]

    def work():
        with pytest.raises(kdrdata.Error):
            kdrdata.from_bytes(data)
        with pytest.raises(TypeError):
            Variant([1, "a", object])

    flat(work, rounds=ROUNDS // 5)
