"""Pixels travel in pickles as they lie."""

import gc
import copy
import pickle

import numpy
import pytest

import kdrdata
from kdrdata import Image, Variant

TYPES = ["uint8", "int8", "uint16", "int16", "int32", "float32", "float64"]


def an_image(kind="uint8", shape=(5, 7, 3)):
    return Image.from_array(numpy.arange(numpy.prod(shape)).reshape(shape).astype(kind))


def address(image):
    return numpy.asarray(image).__array_interface__["data"][0]


@pytest.mark.parametrize("kind", TYPES)
@pytest.mark.parametrize("shape", [(5, 7), (5, 7, 2), (1, 1, 4)])
def test_every_type_of_pixels_comes_back(kind, shape):
    image = an_image(kind, shape)
    for protocol in range(2, 6):
        other = pickle.loads(pickle.dumps(image, protocol))
        assert other == image
        assert numpy.asarray(other).dtype == kind
        numpy.asarray(other)[:] = 0
        assert other != image


def test_an_empty_image_comes_back():
    assert pickle.loads(pickle.dumps(Image())) == Image()
    assert copy.deepcopy(Image()) == Image()


def test_pixels_beside_the_pickle_are_never_copied():
    image = an_image()
    buffers = []
    data = pickle.dumps(Variant([image, "text", image]), 5, buffer_callback=buffers.append)
    assert len(buffers) == 1
    assert len(data) < 500
    other = pickle.loads(data, buffers=buffers)
    first, text, second = (each.content for each in other.content)
    assert address(first) == address(second) == address(image)
    assert other == Variant([image, "text", image])


def test_buffers_that_may_be_written_to_are_the_pixels():
    image = an_image()
    buffers = []
    data = pickle.dumps(image, 5, buffer_callback=buffers.append)
    received = bytearray(buffers[0].raw())
    other = pickle.loads(data, buffers=[received])
    received[0] ^= 255
    assert numpy.asarray(other).flat[0] == received[0]
    assert numpy.asarray(image).flat[0] != received[0]
    with pytest.raises(BufferError):
        received.append(1)
    del other
    gc.collect()  # a step of the interpreter, which lets go of what was given back
    received.append(1)


def test_buffers_that_may_not_be_written_to_are_copied():
    image = an_image()
    buffers = []
    data = pickle.dumps(image, 5, buffer_callback=buffers.append)
    received = bytes(buffers[0].raw())
    other = pickle.loads(data, buffers=[received])
    assert other == image
    numpy.asarray(other)[:] = 0
    assert received == bytes(buffers[0].raw())


def test_pixels_that_lie_at_odd_places_are_copied():
    image = an_image("float64")
    buffers = []
    data = pickle.dumps(image, 5, buffer_callback=buffers.append)
    raw = bytes(buffers[0].raw())
    for offset in range(8):
        place = bytearray(16 + len(raw))
        at = (offset - numpy.frombuffer(place, numpy.uint8).__array_interface__["data"][0]) % 8
        received = memoryview(place)[at : at + len(raw)]
        received[:] = raw
        other = pickle.loads(data, buffers=[received])
        assert other == image
        assert address(other) % 8 == 0


def test_pixels_of_another_size_are_refused():
    image = an_image()
    buffers = []
    data = pickle.dumps(image, 5, buffer_callback=buffers.append)
    raw = bytes(buffers[0].raw())
    for wrong in (raw[:-1], raw + b"\0", b""):
        with pytest.raises(ValueError):
            pickle.loads(data, buffers=[wrong])
    with pytest.raises(ValueError):
        pickle.loads(data, buffers=[numpy.frombuffer(raw * 2, numpy.uint8)[::2]])


def test_another_class_in_the_pickle_is_refused():
    _, (_, data, pictures) = kdrdata.Number(1).__reduce_ex__(5)
    with pytest.raises(ValueError, match="another class"):
        kdrdata.String._from_parts(data, pictures)


def test_copies_share_pixels_and_deep_copies_do_not():
    image = an_image()
    for value in (image, Variant(image)):
        shared, own = copy.copy(value), copy.deepcopy(value)
        pixels = [numpy.asarray(getattr(each, "content", each)) for each in (value, shared, own)]
        assert numpy.shares_memory(pixels[0], pixels[1])
        assert not numpy.shares_memory(pixels[0], pixels[2])
        assert own == value == shared
