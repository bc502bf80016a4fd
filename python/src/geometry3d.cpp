#include "sequence.h"

#include <kdrdata/geometry3d/geometry3d.h>

namespace kdrpython {

namespace {

// A class that carries nothing in this version of the library: one object is like another. Variants
// hold them all the same.
template <class Class>
void bindPlaceholder(py::module_& m, char const* name, char const* what)
{
    std::string const doc =
        std::string(what) + "\n\nThis version carries no data: all are equal to each other.";
    py::class_<Class> cls(m, name, doc.c_str());
    std::string const text = std::string(name) + "()";
    cls.def(py::init<>()).def("__repr__", [text](Class const&) { return py::str(text); });
    bindEquality(cls);
    bindPickling(cls);
}

} // namespace

void bindGeometry3d(py::module_& m)
{
    bindPlaceholder<KDRPoint3D>(m, "Point3D", "A point in space.");
    bindPlaceholder<KDRVector3d>(m, "Vector3d", "A vector of three components.");
    bindPlaceholder<KDRShape3D>(m, "Shape3D", "A shape in space.");
    bindPlaceholder<KDRRangeImage>(m, "RangeImage", "A raster of heights, with colours.");
    bindPlaceholder<KDRContour3D>(m, "Contour3D", "A contour in space.");
    bindPlaceholder<KDRMatrix3>(m, "Matrix3", "A matrix of 3 x 3 numbers.");
    bindPlaceholder<KDRMatrix4>(m, "Matrix4", "A matrix of 4 x 4 numbers.");
    bindPlaceholder<KDRQuaternion>(m, "Quaternion", "A rotation in space.");
    bindPlaceholder<KDRDualQuaternion>(m, "DualQuaternion",
                                       "A rotation and a translation in space.");
    bindPlaceholder<KDRPointCloud>(m, "PointCloud",
                                   "A cloud of points in space, with colours and normals.");
    bindPlaceholder<KDRPlane3D>(m, "Plane3D", "A plane in space.");

    bindSequence<KDRShape3DArray, KDRShape3D>(m, "Shape3DArray", "A list of shapes in space.");
    constexpr char const* none = "A list that keeps no elements in this version.";
    bindSequence<KDRPoint3DArray, KDRPoint3D>(m, "Point3DArray", none);
    bindSequence<KDRVector3dArray, KDRVector3d>(m, "Vector3dArray", none);
    bindSequence<KDRContour3DArray, KDRContour3D>(m, "Contour3DArray", none);
    bindSequence<KDRRangeImageArray, KDRRangeImage>(m, "RangeImageArray", none);
    bindSequence<KDRPointCloudArray, KDRPointCloud>(m, "PointCloudArray", none);
    bindSequence<KDRPlane3DArray, KDRPlane3D>(m, "Plane3DArray", none);
}

} // namespace kdrpython
