"""Images: their pixels as arrays, files, and who keeps what alive."""

import copy
import ctypes
import gc
import pickle
import subprocess
import sys
import threading
import weakref

import numpy
import pytest

import kdrdata
from meanwhile import lets_others_run

DTYPES = ["uint8", "int8", "uint16", "int16", "int32", "float32", "float64"]


def random_pixels(seed, shape, dtype="uint8"):
    return numpy.random.default_rng(seed).integers(0, 100, shape).astype(dtype)


def test_a_new_image_is_zeroed_and_tells_its_geometry():
    image = kdrdata.Image(5, 3, channels=2, dtype="int16")
    assert (image.width, image.height, image.channels, image.step) == (5, 3, 2, 20)
    assert image.shape == (3, 5, 2)
    assert image.dtype == numpy.dtype("int16")
    assert not numpy.asarray(image).any()


def test_an_image_without_pixels_is_an_array_without_elements():
    image = kdrdata.Image()
    assert image.shape == (0, 0, 0)
    assert numpy.asarray(image).shape == (0, 0, 0)
    assert not image
    assert image.clone() == image and copy.deepcopy(image) == image


@pytest.mark.parametrize("dtype", DTYPES)
@pytest.mark.parametrize("channels", [1, 2, 3, 4])
def test_the_array_is_a_view_of_height_width_and_channels(dtype, channels):
    image = kdrdata.Image(7, 4, channels, dtype)
    view = numpy.asarray(image)
    size = numpy.dtype(dtype).itemsize
    assert view.shape == (4, 7, channels)
    assert view.dtype == numpy.dtype(dtype)
    assert view.strides == (image.step, channels * size, size)
    assert view.flags.writeable and not view.flags.owndata
    view[2, 5, channels - 1] = 42
    assert numpy.asarray(image)[2, 5, channels - 1] == 42


@pytest.mark.parametrize(
    "width, height, channels", [(0, 1, 1), (1, 0, 1), (-1, 5, 1), (1, 1, 0), (1, 1, 5)]
)
def test_impossible_geometries_are_refused(width, height, channels):
    with pytest.raises(ValueError):
        kdrdata.Image(width, height, channels)


def test_an_image_beyond_all_memory_is_a_memory_error():
    with pytest.raises(MemoryError):
        kdrdata.Image(2**30, 2**30)


@pytest.mark.parametrize("dtype", ["bool", "int64", "uint32", "float16", "complex64", ">u2", "U3"])
def test_element_types_that_the_library_lacks_are_refused(dtype):
    with pytest.raises(ValueError, match="uint8"):
        kdrdata.Image(1, 1, dtype=dtype)


# --- sharing --------------------------------------------------------------------------------------


def test_copies_share_pixels_and_clones_do_not():
    image = kdrdata.Image(4, 4)
    shared, cloned, deep = copy.copy(image), image.clone(), copy.deepcopy(image)
    numpy.asarray(image)[1, 2] = 9
    assert numpy.asarray(shared)[1, 2] == 9
    assert numpy.asarray(cloned)[1, 2] == 0 and numpy.asarray(deep)[1, 2] == 0
    assert image.shares_with(shared) and shared.shares_with(image)
    assert not image.shares_with(cloned) and not image.shares_with(deep)


def test_images_without_pixels_share_nothing():
    image = kdrdata.Image()
    assert not image.shares_with(image)


def test_what_is_written_through_a_view_is_seen_in_lists_and_variants():
    image = kdrdata.Image(4, 4)
    images = kdrdata.ImageArray([image])
    variant = kdrdata.Variant(image)
    numpy.asarray(image)[3, 3] = 17
    assert numpy.asarray(images[0])[3, 3] == 17
    assert numpy.asarray(variant.value)[3, 3] == 17


def test_equality_is_that_of_geometry_and_pixels():
    pixels = random_pixels(1, (3, 4, 2))
    image = kdrdata.Image.from_array(pixels)
    assert image == kdrdata.Image.from_array(pixels)
    other = pixels.copy()
    other[2, 3, 1] += 1
    assert image != kdrdata.Image.from_array(other)
    assert image != kdrdata.Image.from_array(pixels.reshape(4, 3, 2))
    assert image != kdrdata.Image.from_array(pixels.view("int8"))
    assert image != "an image"
    assert kdrdata.Image() == kdrdata.Image()


def test_images_cannot_be_hashed():
    with pytest.raises(TypeError):
        hash(kdrdata.Image())


# --- arrays to images -----------------------------------------------------------------------------


@pytest.mark.parametrize("dtype", DTYPES)
@pytest.mark.parametrize("shape", [(3, 5), (3, 5, 1), (3, 5, 2), (3, 5, 3), (3, 5, 4)])
def test_arrays_are_copied_into_images(dtype, shape):
    pixels = random_pixels(2, shape, dtype)
    image = kdrdata.Image.from_array(pixels)
    view = numpy.asarray(image)
    assert numpy.array_equal(view.reshape(shape), pixels)
    assert not numpy.shares_memory(view, pixels)


def test_copies_are_made_of_rows_of_any_strides():
    pixels = random_pixels(3, (8, 10, 3))
    for part in (
        pixels[::2, 1:9:3],
        pixels[::-1, ::-1],
        pixels.transpose(1, 0, 2),
        pixels[:, :, ::-1],
        numpy.broadcast_to(pixels[:1], pixels.shape),
    ):
        assert numpy.array_equal(numpy.asarray(kdrdata.Image.from_array(part)), part)


def test_copies_are_made_of_the_other_byte_order():
    pixels = numpy.arange(12, dtype=">u2").reshape(3, 4)
    image = kdrdata.Image.from_array(pixels)
    assert image.dtype == numpy.dtype("uint16")
    assert numpy.array_equal(numpy.asarray(image)[:, :, 0], pixels)


def test_an_image_over_an_array_is_in_its_memory():
    pixels = random_pixels(4, (3, 5, 3))
    image = kdrdata.Image.from_array(pixels, copy=False)
    assert numpy.shares_memory(numpy.asarray(image), pixels)
    pixels[0, 0, 0] = 200
    assert numpy.asarray(image)[0, 0, 0] == 200
    numpy.asarray(image)[2, 4, 2] = 201
    assert pixels[2, 4, 2] == 201


def read_only():
    pixels = numpy.zeros((3, 4), "uint8")
    pixels.flags.writeable = False
    return pixels


def unaligned():
    return numpy.zeros(33, "uint8")[1:].view("float64").reshape(2, 2)


@pytest.mark.parametrize(
    "array",
    [
        read_only(),
        unaligned(),
        numpy.zeros((3, 8), "uint8")[:, ::2],
        numpy.zeros((3, 8), "uint8")[:, :4],
        numpy.zeros((3, 4), "uint8", order="F"),
        numpy.zeros((3, 4), ">i4"),
        numpy.zeros((3, 4), "int64"),
        numpy.zeros((3, 4), "bool"),
        numpy.zeros((0, 4), "uint8"),
        numpy.zeros(4, "uint8"),
        numpy.zeros((2, 2, 5), "uint8"),
        numpy.zeros((2, 2, 2, 2), "uint8"),
    ],
    ids=lambda array: f"{array.dtype}{array.shape}",
)
def test_no_image_is_made_over_memory_that_it_cannot_use(array):
    with pytest.raises(ValueError):
        kdrdata.Image.from_array(array, copy=False)


@pytest.mark.parametrize("array", [read_only(), unaligned(), numpy.zeros((3, 8), "uint8")[:, ::2]])
def test_what_cannot_be_used_can_be_copied(array):
    image = kdrdata.Image.from_array(array)
    assert numpy.array_equal(numpy.asarray(image)[:, :, 0], array)


def test_a_read_only_array_is_refused_for_that():
    with pytest.raises(ValueError, match="read-only"):
        kdrdata.Image.from_array(read_only(), copy=False)


def test_only_arrays_have_memory_to_be_used():
    with pytest.raises(TypeError):
        kdrdata.Image.from_array([[1, 2]], copy=False)


def test_an_array_is_asked_for_in_another_type_or_as_a_copy():
    image = kdrdata.Image.from_array(random_pixels(5, (2, 3)))
    assert numpy.asarray(image, dtype="float64").dtype == numpy.dtype("float64")
    assert numpy.shares_memory(image.__array__(copy=False), numpy.asarray(image))
    assert not numpy.shares_memory(image.__array__(copy=True), numpy.asarray(image))
    with pytest.raises(ValueError):
        image.__array__(dtype=numpy.dtype("float64"), copy=False)


# --- lifetimes ------------------------------------------------------------------------------------


def test_a_view_keeps_the_pixels_after_the_image():
    pixels = random_pixels(6, (200, 300, 3))
    image = kdrdata.Image.from_array(pixels)
    view = numpy.asarray(image)
    part = view[10:20, ::2]
    del image, view
    gc.collect()
    for _ in range(20):
        kdrdata.Image(300, 200, 3)  # would take the place of pixels that were freed
    assert numpy.array_equal(part, pixels[10:20, ::2])


def test_a_view_keeps_the_pixels_when_its_name_is_given_to_another_image():
    image = kdrdata.Image.from_array(random_pixels(7, (50, 60)))
    view = numpy.asarray(image)
    expected = view.copy()
    image = kdrdata.Image(60, 50)
    assert not image.shares_with(kdrdata.Image.from_array(view, copy=False))
    assert numpy.array_equal(view, expected)


def test_a_view_of_an_element_keeps_its_pixels_when_the_list_lets_go_of_it():
    images = kdrdata.ImageArray([kdrdata.Image.from_array(random_pixels(8, (50, 60)))])
    view = numpy.asarray(images[0])
    expected = view.copy()
    images[0] = kdrdata.Image(60, 50)
    del images[:]
    gc.collect()
    assert numpy.array_equal(view, expected)


def test_an_image_keeps_the_array_that_it_is_over_and_the_last_one_lets_it_go():
    pixels = random_pixels(9, (20, 30))
    expected = pixels.copy()
    alive = weakref.ref(pixels)
    image = kdrdata.Image.from_array(pixels, copy=False)
    del pixels
    gc.collect()
    assert alive() is not None
    variant = kdrdata.Variant(copy.copy(image))
    view = numpy.asarray(image)
    del image
    gc.collect()
    assert numpy.array_equal(view[:, :, 0], expected)
    del view
    assert alive() is not None
    del variant
    gc.collect()
    assert alive() is None


def test_a_refused_array_is_let_go():
    pixels = numpy.zeros((2, 2, 5), "uint8")
    alive = weakref.ref(pixels)
    with pytest.raises(ValueError):
        kdrdata.Image.from_array(pixels, copy=False)
    del pixels
    gc.collect()
    assert alive() is None


def test_the_last_image_over_an_array_may_end_in_another_thread():
    pixels = random_pixels(10, (20, 30))
    alive = weakref.ref(pixels)
    images = [kdrdata.Image.from_array(pixels, copy=False)]
    del pixels
    thread = threading.Thread(target=images.clear)
    thread.start()
    thread.join()
    gc.collect()
    assert alive() is None


def library(name):
    with open("/proc/self/maps") as maps:
        paths = {line.split()[-1] for line in maps if f"/{name}.so" in line}
    return ctypes.CDLL(paths.pop())


def test_pixels_may_end_where_nobody_holds_the_interpreters_lock():
    """As in a thread of the library: the handle is copied and destroyed by the library itself."""
    pixels = random_pixels(18, (20, 30))
    alive = weakref.ref(pixels)
    image = kdrdata.Image.from_array(pixels, copy=False)
    del pixels
    head = object.__basicsize__
    handle = ctypes.c_void_p.from_address(id(image) + head)
    library_of_values = library("libKDRData")  # whose calls give up the lock
    copied = ctypes.create_string_buffer(64)
    library_of_values._ZN8KDRImageC1ERKS_(copied, handle)
    del image
    gc.collect()
    assert alive() is not None
    thread = threading.Thread(target=library_of_values._ZN8KDRImageD1Ev, args=(copied,))
    thread.start()
    thread.join()
    for _ in range(1000):  # the interpreter's next steps
        if alive() is None:
            break
    assert alive() is None


def test_images_over_arrays_may_outlive_the_interpreter():
    script = """
import numpy, kdrdata, sys, time
class Pixels(numpy.ndarray):
    def __del__(self): time.sleep(0)
image = kdrdata.Image.from_array(numpy.zeros((9, 9), "uint8").view(Pixels), copy=False)
kept = kdrdata.Variant(image)
view = numpy.asarray(image)
sys.kept = [image, kept, view]
"""
    ended = subprocess.run([sys.executable, "-c", script], capture_output=True, text=True)
    assert (ended.returncode, ended.stderr) == (0, "")


# --- files ----------------------------------------------------------------------------------------


@pytest.mark.parametrize("name", ["colour.png", "grün.tif", "plain.bmp"])
def test_files_are_written_and_read(tmp_path, name):
    image = kdrdata.Image.from_array(random_pixels(11, (6, 7, 3)))
    image.save(tmp_path / name)
    assert kdrdata.Image.read(tmp_path / name) == image
    assert kdrdata.Image.read(str(tmp_path / name)) == image


def test_the_effort_tells_the_size(tmp_path):
    image = kdrdata.Image(300, 300)
    image.save(tmp_path / "fast.png", effort=0)
    image.save(tmp_path / "small.png", effort=9)
    assert (tmp_path / "small.png").stat().st_size < (tmp_path / "fast.png").stat().st_size / 10


def test_a_missing_file_is_what_the_system_says(tmp_path):
    with pytest.raises(FileNotFoundError):
        kdrdata.Image.read(tmp_path / "none.png")
    with pytest.raises(IsADirectoryError):
        kdrdata.Image.read(tmp_path)


def test_what_is_no_picture_is_an_os_error(tmp_path):
    (tmp_path / "text.png").write_text("no picture")
    with pytest.raises(OSError, match="text.png"):
        kdrdata.Image.read(tmp_path / "text.png")


def test_what_cannot_be_written_is_an_os_error(tmp_path):
    image = kdrdata.Image(2, 2)
    for name in ("picture.unknown", "none/picture.png"):
        with pytest.raises(OSError):
            image.save(tmp_path / name)
    with pytest.raises(ValueError):
        kdrdata.Image().save(tmp_path / "empty.png")
    assert list(tmp_path.iterdir()) == []


def test_other_threads_run_while_pictures_are_read_written_copied_and_shown(tmp_path):
    image = kdrdata.Image.from_array(random_pixels(12, (200, 300, 3)))
    path = tmp_path / "picture.png"
    image.save(path)
    assert not lets_others_run(lambda: image.width, calls=1000)
    assert lets_others_run(lambda: image.save(path, effort=0))
    assert lets_others_run(lambda: kdrdata.Image.read(path))
    assert lets_others_run(image.clone)
    assert lets_others_run(image._repr_png_)
    assert lets_others_run(lambda: kdrdata.Image(300, 200))


# --- pickle ---------------------------------------------------------------------------------------


@pytest.mark.parametrize("protocol", range(pickle.HIGHEST_PROTOCOL + 1))
@pytest.mark.parametrize("dtype", DTYPES)
def test_images_are_pickled(protocol, dtype):
    image = kdrdata.Image.from_array(random_pixels(13, (4, 5, 3), dtype))
    back = pickle.loads(pickle.dumps(image, protocol=protocol))
    assert back == image and not back.shares_with(image)
    numpy.asarray(back)[0, 0, 0] = 99
    assert pickle.loads(pickle.dumps(kdrdata.Image(), protocol=protocol)) == kdrdata.Image()


def test_pixels_out_of_band_are_not_copied():
    image = kdrdata.Image.from_array(random_pixels(14, (3000, 4000)))
    buffers = []
    data = pickle.dumps(image, protocol=5, buffer_callback=buffers.append)
    assert len(data) < 1000
    back = pickle.loads(data, buffers=buffers)
    assert back == image
    address = numpy.asarray(image).__array_interface__["data"][0]
    assert numpy.asarray(back).__array_interface__["data"][0] == address
    assert back.shares_with(image)


def test_pixels_out_of_band_outlive_the_image_that_they_are_of():
    expected = random_pixels(15, (300, 400))
    image = kdrdata.Image.from_array(expected)
    buffers = []
    data = pickle.dumps(image, protocol=5, buffer_callback=buffers.append)
    del image
    back = pickle.loads(data, buffers=buffers)
    del buffers
    gc.collect()
    assert numpy.array_equal(numpy.asarray(back)[:, :, 0], expected)


def test_pixels_that_arrive_read_only_are_copied():
    image = kdrdata.Image.from_array(random_pixels(16, (30, 40)))
    buffers = []
    data = pickle.dumps(image, protocol=5, buffer_callback=buffers.append)
    arrived = [bytes(buffer) for buffer in buffers]
    back = pickle.loads(data, buffers=arrived)
    numpy.asarray(back)[:] = 0
    assert arrived == [bytes(buffer) for buffer in buffers]


# --- leaks ----------------------------------------------------------------------------------------


def test_a_hundred_thousand_round_trips_leave_nothing_behind():
    pixels = random_pixels(17, (4, 4))
    before = sys.getrefcount(pixels)
    for _ in range(100_000):
        image = kdrdata.Image.from_array(pixels, copy=False)
        view = numpy.asarray(image)
    assert sys.getrefcount(pixels) == before + 1
    del image, view
    gc.collect()
    assert sys.getrefcount(pixels) == before
