#include "pickling.h"
#include "pictures.h"
#include "point.h"
#include "sequence.h"

#include <kdrdata/vision/kdrcontour.h>
#include <kdrdata/vision/kdrcontourarray.h>
#include <page/figures.h>

namespace kdrpython {

namespace {

KDRContour through(py::object const& points)
{
    KDRPointArray corners = toPoints(points, "Contour");
    KDRContour contour;
    contour.FromPointArray(corners);
    return contour;
}

KDRPointArray pointsOf(KDRContour const& contour)
{
    KDRPointArray points;
    contour.ToPointArray(&points);
    return points;
}

std::string contourText(KDRContour const& contour)
{
    return "<kdrdata.Contour of " + std::to_string(contour.length()) + " points>";
}

} // namespace

void bindContour(py::module_& m)
{
    py::class_<KDRContour> contour(m, "Contour",
                                   "An ordered outline of points, which does not change.");
    contour.def(py::init<>(), "A contour without points.")
        .def(py::init(&through), py::arg("points"),
             "The contour through points: a PointArray, an array of the shape (n, 2) or a sequence "
             "of "
             "points.")
        .def_property_readonly("points", &pointsOf, "A copy of the points.")
        .def_property_readonly("perimeter", &KDRContour::perimeter,
                               "The length of the closed outline in pixels.")
        .def_property_readonly("area", &KDRContour::area,
                               "The enclosed area in square pixels, never negative.")
        .def("__len__", &KDRContour::length)
        .def(
            "__array__",
            [](KDRContour const& self, py::object const& dtype, py::object const& copy) {
                return copiedFor(pointsOf(self), dtype, copy);
            },
            py::arg("dtype") = py::none(), py::arg("copy") = py::none(),
            "The coordinates as an array of the shape (n, 2) of its own.")
        .def("__repr__", &contourText)
        .def(
            "_repr_html_",
            [](KDRContour const& self) {
                return htmlOf({page::polygonOf(self)}, contourText(self));
            },
            "For notebooks: the outline, drawn.");
    bindEquality(contour);
    bindPickling(contour);
    bindSequence<KDRContourArray, KDRContour>(m, "ContourArray", "A list of contours.");
}

} // namespace kdrpython
