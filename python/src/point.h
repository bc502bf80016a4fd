#ifndef KDRDATA_PYTHON_POINT_H
#define KDRDATA_PYTHON_POINT_H

#include <kdrdata/vision/kdrpoint.h>
#include <kdrdata/vision/kdrpointarray.h>

#include "module.h"

#include <pybind11/numpy.h>

#include <string>

namespace kdrpython {

/// A Point, or a pair of numbers as one with the default ranges. @p where is who takes it; raises
/// TypeError for everything else.
KDRPoint toPoint(py::handle value, char const* where);

/// A PointArray, an array of the shape (n, 2) or any other sequence of what toPoint() takes.
KDRPointArray toPoints(py::handle value, char const* where);

/// The coordinates as an array of the shape (n, 2) of its own.
py::array coordinatesOf(KDRPointArray const& points);

/// The same for `__array__`; raises ValueError where a copy is forbidden, as this always is one.
py::array copiedFor(KDRPointArray const& points, py::handle dtype, py::handle copy);

} // namespace kdrpython

#endif
