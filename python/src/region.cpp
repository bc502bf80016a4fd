#include "carried.h"
#include "elements.h"
#include "pictures.h"
#include "sequence.h"

#include <kdrio/inside_p.h>

#include <veldata/velregion.h>
#include <veldata/velregionarray.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <vector>

namespace kdrpython {

namespace {

// A run is its row, its first and its last column, both inclusive.
constexpr py::ssize_t numbersOfRun = 3;

VelRegion& core(KDRRegion& region) { return KDRInternal::wrapped(region); }
VelRegion const& core(KDRRegion const& region) { return KDRInternal::wrapped(region); }

std::vector<long> runsIn(KDRRegion const& region)
{
    std::vector<long> numbers(static_cast<std::size_t>(core(region).RunCount() * numbersOfRun));
    core(region).CopyRuns(numbers.data());
    return numbers;
}

bool areEqual(KDRRegion const& one, KDRRegion const& other)
{
    return core(one).Width() == core(other).Width() && core(one).Height() == core(other).Height() &&
           core(one).RunCount() == core(other).RunCount() && runsIn(one) == runsIn(other);
}

KDRRegion regionOf(int width, int height, long const* numbers, py::ssize_t count)
{
    KDRRegion region;
    core(region).SetRuns(width, height, numbers, count);
    return region;
}

// --- masks
// ----------------------------------------------------------------------------------------

// The first byte from `from` on that is not 0. Eight are looked at together: most of a mask is one
// or the other.
unsigned char const* nextSet(unsigned char const* from, unsigned char const* end)
{
    constexpr std::ptrdiff_t together = sizeof(unsigned long long);
    for (unsigned long long bytes = 0; end - from >= together; from += together) {
        std::memcpy(&bytes, from, sizeof bytes);
        if (bytes != 0)
            break;
    }
    while (from != end && *from == 0)
        ++from;
    return from;
}

unsigned char const* nextClear(unsigned char const* from, unsigned char const* end)
{
    void const* const found = std::memchr(from, 0, static_cast<std::size_t>(end - from));
    return found ? static_cast<unsigned char const*>(found) : end;
}

KDRRegion fromMask(py::object const& mask)
{
    using Bools = py::array_t<bool, py::array::c_style | py::array::forcecast>;
    Bools const pixels = Bools::ensure(mask);
    if (!pixels)
        throw py::error_already_set();
    if (pixels.ndim() != 2)
        throw py::value_error("a mask has the shape (height, width)");
    py::ssize_t const height = pixels.shape(0);
    py::ssize_t const width = pixels.shape(1);
    if (height > INT_MAX || width > INT_MAX)
        throw py::value_error("a mask of more rows or columns than a region has");
    // A view of other bytes as flags may hold more than 0 and 1.
    auto const* row = reinterpret_cast<unsigned char const*>(pixels.data());
    py::gil_scoped_release const unlocked;
    std::vector<long> numbers;
    for (py::ssize_t y = 0; y < height; ++y, row += width) {
        unsigned char const* const end = row + width;
        for (unsigned char const* first = nextSet(row, end); first != end;) {
            unsigned char const* const last = nextClear(first, end);
            numbers.insert(numbers.end(), {long(y), long(first - row), long(last - row - 1)});
            first = nextSet(last, end);
        }
    }
    return regionOf(static_cast<int>(width), static_cast<int>(height), numbers.data(),
                    static_cast<py::ssize_t>(numbers.size()) / numbersOfRun);
}

py::array toMask(KDRRegion const& region, py::object const& shape)
{
    py::ssize_t height = std::max(core(region).Height(), 0);
    py::ssize_t width = core(region).Width();
    if (!shape.is_none()) {
        auto const wanted = shape.cast<std::pair<py::ssize_t, py::ssize_t>>();
        height = wanted.first;
        width = wanted.second;
        if (height < 0 || width < 0)
            throw py::value_error("a mask has no negative number of rows or columns");
    }
    py::array_t<bool> mask({height, width});
    bool* const pixels = mask.mutable_data();
    py::gil_scoped_release const unlocked;
    std::fill_n(pixels, height * width, false);
    std::vector<long> const numbers = runsIn(region);
    for (std::size_t i = 0; i < numbers.size(); i += numbersOfRun) {
        long const row = numbers[i];
        long const first = std::max(numbers[i + 1], 0L);
        long const last = std::min(numbers[i + 2], static_cast<long>(width) - 1);
        if (row >= 0 && row < height && first <= last)
            std::fill(pixels + row * width + first, pixels + row * width + last + 1, true);
    }
    return mask;
}

// --- runs
// -----------------------------------------------------------------------------------------

KDRRegion fromRuns(py::object const& runs, int width, int height)
{
    if (width < 0 || height < 0)
        throw py::value_error("a region has no negative width or height");
    py::array const given = py::array::ensure(runs);
    if (!given)
        throw py::error_already_set();
    bool const isEmpty = given.size() == 0;
    char const kind = given.dtype().kind();
    if (!isEmpty && (given.ndim() != 2 || given.shape(1) != numbersOfRun))
        throw py::value_error("runs have the shape (n, 3): row, first and last column");
    if (!isEmpty && kind != 'i' && kind != 'u')
        throw py::type_error("the numbers of runs are integers");
    if (kind == 'u' && !isEmpty &&
        py::int_(given.attr("max")()) > py::int_(static_cast<long long>(LONG_MAX)))
        throw py::value_error("the numbers of runs have 64 bits with a sign");
    using Longs = py::array_t<long, py::array::c_style | py::array::forcecast>;
    Longs const numbers = Longs::ensure(given);
    if (!numbers)
        throw py::error_already_set();
    long const* const data = numbers.data();
    py::ssize_t const count = numbers.size() / numbersOfRun;
    py::gil_scoped_release const unlocked;
    return regionOf(width, height, data, count);
}

py::array toRuns(KDRRegion const& region)
{
    py::array_t<long> runs({py::ssize_t(core(region).RunCount()), numbersOfRun});
    long* const numbers = runs.mutable_data();
    py::gil_scoped_release const unlocked;
    core(region).CopyRuns(numbers);
    return runs;
}

unsigned long areaOf(KDRRegion const& region)
{
    unsigned long area = 0;
    std::vector<long> const numbers = runsIn(region);
    for (std::size_t i = 0; i < numbers.size(); i += numbersOfRun) {
        auto const length = static_cast<unsigned long>(numbers[i + 2]) -
                            static_cast<unsigned long>(numbers[i + 1]) + 1;
        if (length == 0 || __builtin_add_overflow(area, length, &area)) {
            PyErr_SetString(PyExc_OverflowError, "an area of more than 64 bits");
            throw py::error_already_set();
        }
    }
    return area;
}

// --- unions
// ---------------------------------------------------------------------------------------

KDRRegion unionOf(KDRRegionArray const& regions)
{
    // Another thread may change the list as soon as the lock is released.
    KDRRegionArray copy(regions);
    py::gil_scoped_release const unlocked;
    KDRRegion all;
    copy.toUnionedRegion(&all);
    return all;
}

KDRRegion unionOfTwo(KDRRegion const& one, KDRRegion const& other)
{
    KDRRegionArray both;
    both.push_back(one);
    both.push_back(other);
    return unionOf(both);
}

std::string regionText(KDRRegion const& region)
{
    return "<kdrdata.Region of " + std::to_string(core(region).RunCount()) + " runs in " +
           std::to_string(core(region).Width()) + " x " + std::to_string(core(region).Height()) +
           ">";
}

} // namespace

template <>
struct Item<KDRRegion>
{
    static py::object toPython(std::unique_ptr<KDRRegion> value)
    {
        return py::cast(std::move(value));
    }
    static KDRRegion const& fromPython(py::handle value, char const* array)
    {
        if (!py::isinstance<KDRRegion>(value))
            raiseWrongType(array, "Region", value);
        return value.cast<KDRRegion const&>();
    }
    static bool equal(KDRRegion const& one, KDRRegion const& other) { return areEqual(one, other); }
    static std::string inBrief(py::handle element) { return py::repr(element); }
};

void bindRegion(py::module_& m)
{
    py::class_<KDRRegion> region(
        m, "Region",
        R"(A set of image pixels, which does not change, and the extent of the image that they belong to.

The pixels are kept in runs: a row, a first and a last column, both inclusive. Runs are in order,
and those of a row do not touch. Coordinates may be negative and may lie outside the extent.

>>> region = kdrdata.Region.from_mask(numpy.asarray(image)[:, :, 0] > 128)
>>> region.to_runs().shape
(1298, 3)
)");
    region.def(py::init<>(), "A region without pixels, with the extent 0 x 0.")
        .def_static("from_mask", &fromMask, py::arg("mask"),
                    "The pixels that are true in an array of the shape (height, width), which is "
                    "the extent.")
        .def("to_mask", &toMask, py::arg("shape") = py::none(),
             "An array of bool of the extent, or of another shape (height, width), that is true at "
             "the pixels. Pixels outside of it are left out.")
        .def_static(
            "from_runs", &fromRuns, py::arg("runs"), py::arg("width") = 0, py::arg("height") = 0,
            "The pixels of an array of integers of the shape (n, 3): the row, the first and "
            "the last column of each run, in any order. Runs may overlap; one whose last "
            "column lies before its first has no pixels.")
        .def("to_runs", &toRuns, "The runs, as an array of int64 of the shape (n, 3).")
        .def_property_readonly(
            "width", [](KDRRegion const& self) { return core(self).Width(); },
            "The width of the extent in pixels.")
        .def_property_readonly(
            "height", [](KDRRegion const& self) { return core(self).Height(); },
            "The height of the extent in pixels.")
        .def_property_readonly("area", &areaOf, "The number of pixels.")
        .def("__or__", &unionOfTwo, py::is_operator(), py::arg("other"),
             "The pixels of both. The extent is the larger one of each axis.")
        .def("__eq__", &areEqual, py::is_operator(), py::arg("other"))
        .def("__bool__", [](KDRRegion const& self) { return core(self).RunCount() > 0; })
        .def("__repr__", &regionText)
        .def(
            "_repr_html_",
            [](KDRRegion const& self) {
                KDRRegion pixels(self);
                KDRShape shape;
                shape.fromRegion(pixels);
                return htmlOf({shape}, regionText(self));
            },
            "For notebooks: the pixels, drawn.");
    bindPickling(region);
    bindSequence<KDRRegionArray, KDRRegion>(m, "RegionArray", "A list of regions.")
        .def("union", &unionOf,
             "The pixels that lie in any of the regions. The extent is the largest of each axis.");
}

} // namespace kdrpython
