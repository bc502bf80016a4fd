"""Regions against masks of NumPy and labels of SciPy."""

import copy
import pickle

import numpy
import pytest

import kdrdata
from kdrdata import Region, RegionArray
from meanwhile import lets_others_run


def random_mask(seed, shape=None, density=None):
    random = numpy.random.default_rng(seed)
    shape = tuple(random.integers(1, 80, 2)) if shape is None else shape
    density = random.random() if density is None else density
    return random.random(shape) < density


def runs_of(mask):
    """The runs of a mask, by the places where its rows change."""
    edges = numpy.diff(numpy.pad(mask, ((0, 0), (1, 1))).astype("int8"), axis=1)
    rows, firsts = numpy.nonzero(edges == 1)
    _, ends = numpy.nonzero(edges == -1)
    return numpy.stack([rows, firsts, ends - 1], axis=1)


@pytest.mark.parametrize("seed", range(60))
def test_masks_become_runs_and_masks_again(seed):
    mask = random_mask(seed)
    region = Region.from_mask(mask)
    assert (region.height, region.width) == mask.shape
    assert region.area == numpy.count_nonzero(mask)
    runs = region.to_runs()
    assert runs.dtype == numpy.dtype("int64")
    assert numpy.array_equal(runs, runs_of(mask))
    back = region.to_mask()
    assert back.dtype == numpy.dtype("bool") and numpy.array_equal(back, mask)


@pytest.mark.parametrize("shape", [(0, 0), (0, 5), (5, 0), (1, 1), (1, 17), (3, 8), (3, 9)])
@pytest.mark.parametrize("full", [False, True])
def test_full_and_empty_masks(shape, full):
    mask = numpy.full(shape, full)
    region = Region.from_mask(mask)
    assert region.area == mask.sum() and bool(region) == bool(mask.any())
    assert numpy.array_equal(region.to_mask(), mask)
    assert region.to_runs().shape == ((shape[0] if mask.any() else 0), 3)


def test_masks_of_any_strides_and_types_are_taken():
    mask = random_mask(100, (40, 50))
    for part in (mask[::2, 1::3], mask.T, mask[::-1, ::-1]):
        assert numpy.array_equal(Region.from_mask(part).to_mask(), part)
    assert Region.from_mask(mask.astype("uint8") * 128) == Region.from_mask(mask)
    assert Region.from_mask(mask.tolist()) == Region.from_mask(mask)
    for shape in [(4,), (2, 2, 2)]:
        with pytest.raises(ValueError):
            Region.from_mask(numpy.zeros(shape, "bool"))


@pytest.mark.parametrize("seed", range(30))
def test_runs_in_any_order_that_overlap_become_the_pixels_that_they_cover(seed):
    random = numpy.random.default_rng(seed)
    count = random.integers(0, 200)
    rows, firsts = random.integers(0, 30, (2, count))
    lasts = (firsts + random.integers(-3, 8, count)).clip(0)
    mask = numpy.zeros((30, 40), "bool")
    for row, first, last in zip(rows, firsts, lasts):
        mask[row, first : last + 1] = True
    for dtype in ("int64", "int32", "int16", "uint8", ">i4", "uint64"):
        runs = numpy.stack([rows, firsts, lasts], axis=1).astype(dtype)
        region = Region.from_runs(runs, width=40, height=30)
        assert numpy.array_equal(region.to_mask(), mask)
        assert numpy.array_equal(region.to_runs(), runs_of(mask))


def test_runs_may_lie_outside_of_the_extent():
    far = 2**40
    runs = [[-5, -far, far], [2, -3, 1], [2, 3, 9], [7, 0, 0]]
    region = Region.from_runs(runs, width=5, height=4)
    assert region.to_runs().tolist() == runs
    assert region.area == 2 * far + 1 + 5 + 7 + 1
    expected = numpy.zeros((4, 5), "bool")
    expected[2] = [True, True, False, True, True]
    assert numpy.array_equal(region.to_mask(), expected)
    assert region.to_mask((8, 1)).ravel().tolist() == [False] * 2 + [True] + [False] * 4 + [True]


def test_runs_of_other_shapes_and_types_are_refused():
    for runs in ([1, 2, 3], [[1, 2]], [[1, 2, 3, 4]], [[[1, 2, 3]]]):
        with pytest.raises(ValueError):
            Region.from_runs(runs)
    for runs in ([[1.0, 2.0, 3.0]], [["a", "b", "c"]], [[True, True, True]]):
        with pytest.raises(TypeError):
            Region.from_runs(runs)
    with pytest.raises(ValueError):
        Region.from_runs(numpy.full((1, 3), 2**63, "uint64"))
    for extent in [(-1, 3), (3, -1)]:
        with pytest.raises(ValueError):
            Region.from_runs([[1, 2, 3]], *extent)
    assert Region.from_runs([]).to_runs().shape == (0, 3)


def test_an_area_beyond_64_bits_is_an_overflow():
    whole = [0, -(2**63), 2**63 - 1]
    with pytest.raises(OverflowError):
        Region.from_runs([whole]).area
    half = [[0, 0, 2**63 - 1], [1, 0, 2**63 - 1]]
    with pytest.raises(OverflowError):
        Region.from_runs(half).area
    assert Region.from_runs(half[:1]).area == 2**63


@pytest.mark.parametrize("seed", range(40))
def test_unions_are_those_of_masks(seed):
    one = random_mask(seed, (50, 60))
    other = random_mask(seed + 1000, (50, 60))
    union = Region.from_mask(one) | Region.from_mask(other)
    assert numpy.array_equal(union.to_mask(), one | other)
    assert union == Region.from_mask(one | other)


def test_the_extent_of_a_union_is_the_larger_one_of_each_axis():
    union = Region.from_mask(numpy.eye(2, 9)) | Region.from_mask(numpy.eye(7, 3))
    assert (union.height, union.width) == (7, 9)
    with pytest.raises(TypeError):
        union | 3


@pytest.mark.parametrize("seed", range(5))
def test_the_labelled_parts_of_a_mask_unite_to_the_mask(seed):
    mask = random_mask(seed, (60, 70), 0.4)
    count = 50
    labels = numpy.random.default_rng(seed).integers(1, count + 1, mask.shape) * mask
    regions = RegionArray(Region.from_mask(labels == i) for i in range(1, count + 1))
    assert [region.area for region in regions] == numpy.bincount(labels.ravel())[1:].tolist()
    assert regions.union() == Region.from_mask(mask)
    assert RegionArray().union() == Region()


def test_equality_is_that_of_pixels_and_extent():
    mask = random_mask(200, (20, 30), 0.5)
    region = Region.from_mask(mask)
    assert region == Region.from_runs(region.to_runs()[::-1], width=30, height=20)
    assert region != Region.from_runs(region.to_runs(), width=31, height=20)
    assert region != Region.from_runs(region.to_runs(), width=30, height=21)
    assert region != Region.from_runs(region.to_runs()[1:], width=30, height=20)
    moved = region.to_runs() + [[0, 1, 1]]
    assert region != Region.from_runs(moved, width=30, height=20)
    assert region != 3
    with pytest.raises(TypeError):
        hash(region)


@pytest.mark.parametrize("protocol", [2, 5])
def test_regions_are_pickled_and_copied(protocol):
    regions = RegionArray([Region.from_mask(random_mask(i)) for i in range(5)] + [Region()])
    assert pickle.loads(pickle.dumps(regions, protocol=protocol)) == regions
    assert pickle.loads(pickle.dumps(regions[0], protocol=protocol)) == regions[0]
    assert copy.copy(regions) == regions and copy.deepcopy(regions) == regions


def test_an_array_of_runs_is_the_callers():
    region = Region.from_mask(numpy.eye(3))
    region.to_runs()[:] = 9
    region.to_mask()[:] = True
    assert region == Region.from_mask(numpy.eye(3))


def test_other_threads_run_while_masks_runs_and_unions_are_made():
    mask = random_mask(300, (600, 600), 0.5)
    region = Region.from_mask(mask)
    runs = region.to_runs()
    assert not lets_others_run(lambda: region.width, calls=1000)
    assert lets_others_run(lambda: Region.from_mask(mask))
    assert lets_others_run(lambda: Region.from_runs(runs))
    assert lets_others_run(region.to_mask)
    assert lets_others_run(region.to_runs)
    assert lets_others_run(lambda: region | region)
    assert lets_others_run(RegionArray([region] * 5).union)
