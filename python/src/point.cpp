#include "point.h"

#include "elements.h"
#include "errors.h"
#include "number.h"
#include "pickling.h"
#include "sequence.h"

#include <kdrio/inside_p.h>

#include <veldata/velpoint.h>
#include <veldata/velpointarray.h>

#include <climits>
#include <memory>

namespace kdrpython {

namespace {

bool isPair(py::handle value)
{
    return py::isinstance<py::sequence>(value) && !py::isinstance<py::str>(value) &&
           !py::isinstance<py::bytes>(value) && py::len(value) == 2;
}

// Whether an array has the shape (n, 2), or is empty as that of an empty list is.
bool holdsPoints(py::array const& array)
{
    return (array.ndim() == 2 && array.shape(1) == 2) || (array.ndim() == 1 && array.size() == 0);
}

KDRPointArray pointsIn(py::array const& array)
{
    using Doubles = py::array_t<double, py::array::c_style | py::array::forcecast>;
    if (!holdsPoints(array))
        throw py::value_error("points have the shape (n, 2)");
    char const kind = array.dtype().kind();
    if (kind != 'f' && kind != 'i' && kind != 'u')
        throw py::value_error("the coordinates of points are real numbers");
    Doubles const coordinates = Doubles::ensure(array);
    if (!coordinates)
        throw py::error_already_set();
    py::ssize_t const count = coordinates.size() / 2;
    if (count > INT_MAX)
        throw py::value_error("more points than a list holds");
    double const* const values = coordinates.data();
    KDRPointArray points;
    py::gil_scoped_release const unlocked;
    VelPointArray& core = KDRInternal::wrapped(points);
    for (py::ssize_t i = 0; i < count; ++i)
        core.Append(VelPoint(values[2 * i], values[2 * i + 1]));
    return points;
}

} // namespace

template <>
struct Item<KDRPoint>
{
    static py::object toPython(std::unique_ptr<KDRPoint> value)
    {
        return py::cast(std::move(value));
    }
    static KDRPoint fromPython(py::handle value, char const* array)
    {
        return toPoint(value, array);
    }
    /// Points in a list have no ranges.
    static bool equal(KDRPoint const& one, KDRPoint const& other)
    {
        using kdrio::inside::sameBits;
        return sameBits(one.x(), other.x()) && sameBits(one.y(), other.y());
    }
    static std::string inBrief(py::handle element)
    {
        auto const& point = element.cast<KDRPoint const&>();
        return "(" + numberText(point.x()) + ", " + numberText(point.y()) + ")";
    }
};

template <>
struct Whole<KDRPointArray>
{
    static bool take(py::handle values, KDRPointArray& array, std::string const&)
    {
        if (!py::isinstance<py::array>(values))
            return false;
        array = pointsIn(py::reinterpret_borrow<py::array>(values));
        return true;
    }
};

namespace {

std::string pointText(KDRPoint const& point)
{
    return "Point(" + numberText(point.x()) + ", " + numberText(point.y()) + ")";
}

void bindPoints(py::module_& m)
{
    py::class_<KDRPointArray> points = bindSequence<KDRPointArray, KDRPoint>(
        m, "PointArray", R"(A list of points, of which it keeps the coordinates alone.

Pairs of numbers are taken for points. ``PointArray(array)`` and ``numpy.asarray(points)`` copy
coordinates from and to arrays of the shape (n, 2).)");
    points.def("__array__", &copiedFor, py::arg("dtype") = py::none(), py::arg("copy") = py::none(),
               "The coordinates as an array of the shape (n, 2) of its own.");
}

} // namespace

KDRPoint toPoint(py::handle value, char const* where)
{
    if (py::isinstance<KDRPoint>(value))
        return value.cast<KDRPoint const&>();
    if (isPair(value)) {
        try {
            return KDRPoint(value[py::int_(0)].cast<double>(), value[py::int_(1)].cast<double>());
        } catch (py::cast_error const&) {
            // No numbers: said below.
        }
    }
    raiseWrongType(where, "a Point or a pair of numbers", value);
}

KDRPointArray toPoints(py::handle value, char const* where)
{
    if (py::isinstance<KDRPointArray>(value))
        return value.cast<KDRPointArray const&>();
    if (py::isinstance<py::array>(value))
        return pointsIn(py::reinterpret_borrow<py::array>(value));
    if (!py::isinstance<py::iterable>(value))
        raiseWrongType(where, "points", value);
    return *Sequence<KDRPointArray, KDRPoint>::make(py::reinterpret_borrow<py::iterable>(value),
                                                    where);
}

py::array coordinatesOf(KDRPointArray const& points)
{
    // Another thread may change the list as soon as the lock is released.
    KDRPointArray const copy(points); // NOLINT(performance-unnecessary-copy-initialization)
    VelPointArray const& core = KDRInternal::wrapped(copy);
    py::array_t<double> coordinates({py::ssize_t(core.Length()), py::ssize_t(2)});
    double* values = coordinates.mutable_data();
    py::gil_scoped_release const unlocked;
    VelPoint point;
    for (int i = 0; i < core.Length(); ++i) {
        core.Select(i, &point);
        *values++ = point.x;
        *values++ = point.y;
    }
    return coordinates;
}

py::array copiedFor(KDRPointArray const& points, py::handle dtype, py::handle copy)
{
    if (!copy.is_none() && !copy.cast<bool>())
        throw py::value_error("points are copied into arrays");
    return arrayFor(coordinatesOf(points), dtype, py::none());
}

void bindPoint(py::module_& m)
{
    py::class_<KDRPoint> point(
        m, "Point",
        R"(A point in image coordinates (pixels, x to the right, y down) with an editing range per axis.

The ranges are what a user interface offers. They are carried and never tested against the
coordinates.

>>> x, y = kdrdata.Point(192.0, 151.5)
)");
    point
        .def(py::init<double, double>(), py::arg("x") = 0.0, py::arg("y") = 0.0,
             "A point with the default ranges, from -999999 to 999999 in steps of 1.")
        .def_property("x", &KDRPoint::x, &KDRPoint::setX, "The x coordinate in pixels.")
        .def_property("y", &KDRPoint::y, &KDRPoint::setY, "The y coordinate in pixels.")
        .def_property("x_maximum", &KDRPoint::getXMaxVal, &KDRPoint::setXMaxVal,
                      "The maximum of x.")
        .def_property("x_minimum", &KDRPoint::getXMinVal, &KDRPoint::setXMinVal,
                      "The minimum of x.")
        .def_property("x_step", &KDRPoint::getXStepVal, &KDRPoint::setXStepVal, "The step of x.")
        .def_property("y_maximum", &KDRPoint::getYMaxVal, &KDRPoint::setYMaxVal,
                      "The maximum of y.")
        .def_property("y_minimum", &KDRPoint::getYMinVal, &KDRPoint::setYMinVal,
                      "The minimum of y.")
        .def_property("y_step", &KDRPoint::getYStepVal, &KDRPoint::setYStepVal, "The step of y.")
        .def("__iter__",
             [](KDRPoint const& self) { return py::iter(py::make_tuple(self.x(), self.y())); })
        .def("__repr__", &pointText);
    bindEquality(point);
    bindPickling(point);
    bindPoints(m);
}

} // namespace kdrpython
