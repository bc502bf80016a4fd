#ifndef KDRDATA_KDRDEBUGGEOMETRY3D_H
#define KDRDATA_KDRDEBUGGEOMETRY3D_H

/// @file
/// The text forms of three-dimensional values: a part of kdrdebugtext.h, which is
/// to be included.

#include <kdrdata/debug/kdrdebugpieces.h>
#include <kdrdata/geometry3d/geometry3d.h>

/// @cond
namespace KDRDebug {

template <>
struct Form<KDRPose2D> : SameForm<Form<KDRPose2D>, KDRPose2D>
{
    static std::string full(KDRPose2D const& value, int)
    {
        return pair(value.x(), value.y()) + ", Rz " + decimal(value.Rz());
    }
};

template <>
struct Form<KDRPose3D> : SameForm<Form<KDRPose3D>, KDRPose3D>
{
    static std::string full(KDRPose3D const& value, int)
    {
        return '(' + decimal(value.x()) + ", " + decimal(value.y()) + ", " + decimal(value.z()) +
               "), Rx " + decimal(value.Rx()) + ", Ry " + decimal(value.Ry()) + ", Rz " +
               decimal(value.Rz());
    }
};

// The classes that carry nothing in this version.
template <>
struct Form<KDR3DLineSet> : NoDataForm<KDR3DLineSet>
{
};
template <>
struct Form<KDRContour3D> : NoDataForm<KDRContour3D>
{
};
template <>
struct Form<KDRContour3DArray> : NoDataForm<KDRContour3DArray>
{
};
template <>
struct Form<KDRDualQuaternion> : NoDataForm<KDRDualQuaternion>
{
};
template <>
struct Form<KDRMatrix3> : NoDataForm<KDRMatrix3>
{
};
template <>
struct Form<KDRMatrix4> : NoDataForm<KDRMatrix4>
{
};
template <>
struct Form<KDRPlane3D> : NoDataForm<KDRPlane3D>
{
};
template <>
struct Form<KDRPlane3DArray> : NoDataForm<KDRPlane3DArray>
{
};
template <>
struct Form<KDRPlane3DArrayPrivate> : NoDataForm<KDRPlane3DArrayPrivate>
{
};
template <>
struct Form<KDRPlane3DPrivate> : NoDataForm<KDRPlane3DPrivate>
{
};
template <>
struct Form<KDRPoint3D> : NoDataForm<KDRPoint3D>
{
};
template <>
struct Form<KDRPoint3DArray> : NoDataForm<KDRPoint3DArray>
{
};
template <>
struct Form<KDRPointCloud> : NoDataForm<KDRPointCloud>
{
};
template <>
struct Form<KDRPointCloudArray> : NoDataForm<KDRPointCloudArray>
{
};
template <>
struct Form<KDRQuaternion> : NoDataForm<KDRQuaternion>
{
};
template <>
struct Form<KDRRangeImage> : NoDataForm<KDRRangeImage>
{
};
template <>
struct Form<KDRRangeImageArray> : NoDataForm<KDRRangeImageArray>
{
};
template <>
struct Form<KDRShape3D> : NoDataForm<KDRShape3D>
{
};
template <>
struct Form<KDRTriangleMesh> : NoDataForm<KDRTriangleMesh>
{
};
template <>
struct Form<KDRVector3d> : NoDataForm<KDRVector3d>
{
};
template <>
struct Form<KDRVector3dArray> : NoDataForm<KDRVector3dArray>
{
};

// Lists of such values; they have a length all the same.
template <>
struct Form<KDRMatrix3Array> : ArrayForm<KDRMatrix3Array, KDRMatrix3>
{
};
template <>
struct Form<KDRMatrix4Array> : ArrayForm<KDRMatrix4Array, KDRMatrix4>
{
};
template <>
struct Form<KDRShape3DArray> : ArrayForm<KDRShape3DArray, KDRShape3D>
{
};

} // namespace KDRDebug
/// @endcond

#endif
