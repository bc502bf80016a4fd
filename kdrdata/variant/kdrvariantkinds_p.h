#ifndef KDRDATA_KDRVARIANTKINDS_P_H
#define KDRDATA_KDRVARIANTKINDS_P_H

#include <kdrdata/geometry3d/kdrcontour3d.h>
#include <kdrdata/geometry3d/kdrcontour3darray.h>
#include <kdrdata/geometry3d/kdrdualquaternion.h>
#include <kdrdata/geometry3d/kdrmatrix3.h>
#include <kdrdata/geometry3d/kdrmatrix4.h>
#include <kdrdata/geometry3d/kdrplane3d.h>
#include <kdrdata/geometry3d/kdrplane3darray.h>
#include <kdrdata/geometry3d/kdrpoint3d.h>
#include <kdrdata/geometry3d/kdrpoint3darray.h>
#include <kdrdata/geometry3d/kdrpointcloud.h>
#include <kdrdata/geometry3d/kdrpointcloudarray.h>
#include <kdrdata/geometry3d/kdrpose2d.h>
#include <kdrdata/geometry3d/kdrpose3d.h>
#include <kdrdata/geometry3d/kdrquaternion.h>
#include <kdrdata/geometry3d/kdrrangeimage.h>
#include <kdrdata/geometry3d/kdrrangeimagearray.h>
#include <kdrdata/geometry3d/kdrshape3d.h>
#include <kdrdata/geometry3d/kdrshape3darray.h>
#include <kdrdata/geometry3d/kdrvector3d.h>
#include <kdrdata/geometry3d/kdrvector3darray.h>
#include <kdrdata/scalars/kdrboolarray.h>
#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/text/kdrbuffer.h>
#include <kdrdata/text/kdrbufferarray.h>
#include <kdrdata/text/kdrchar.h>
#include <kdrdata/text/kdrstring.h>
#include <kdrdata/text/kdrstringarray.h>
#include <kdrdata/variant/kdrvariantarray.h>
#include <kdrdata/variant/kdrvariantkind.h>
#include <kdrdata/vision/kdrcontour.h>
#include <kdrdata/vision/kdrcontourarray.h>
#include <kdrdata/vision/kdrimage.h>
#include <kdrdata/vision/kdrimagearray.h>
#include <kdrdata/vision/kdrmatrix.h>
#include <kdrdata/vision/kdrmatrixarray.h>
#include <kdrdata/vision/kdrpoint.h>
#include <kdrdata/vision/kdrpointarray.h>
#include <kdrdata/vision/kdrroialignment.h>
#include <kdrdata/vision/kdrshape.h>
#include <kdrdata/vision/kdrshapearray.h>

/// The kind table: one row for each kind whose payload is an object of a class, in the order of the
/// kind numbers. The members that a row stands for (constructor, writer, reader, pointer reader of
/// KDRVariantPrivate, KDRVariantLock and KDRVariant) are declared by hand in the headers and
/// defined from the row. The flag, kind 0, is a plain `bool`, taken by value, and stands beside the
/// table.
///
/// ROW(kind, payload class, name in the members, constructor, reader, pointer reader, copying)
///
/// - constructor: `Made`, or `NotMade` where there is none;
/// - reader: `Const`, `NonConst`, or `OfContour`, which reads kind 7 and changes nothing;
/// - pointer reader: `Handed` (the payload's address), `StoreOnly` (the handle has none), `None`,
///   `Tests` (takes a plain pointer, only tests the kind), `HandsNumber` and `HandsContour` (test
///   kind 1 or 7 and hand out that payload's address under this class's name);
/// - copying: what the store's copies do with the payload, see KDRPayloadCopying.
///
/// A plain row is what nearly all kinds are.
#define KDR_PLAIN_KIND(ROW, Kind, Payload, Name) ROW(Kind, Payload, Name, Made, Const, Handed, Kept)
#define KDR_VARIANT_KINDS(ROW)                                                                     \
    KDR_PLAIN_KIND(ROW, KindNumber, KDRNumber, Number)                                             \
    KDR_PLAIN_KIND(ROW, KindString, KDRString, String)                                             \
    KDR_PLAIN_KIND(ROW, KindPoint, KDRPoint, Point)                                                \
    KDR_PLAIN_KIND(ROW, KindImage, KDRImage, Image)                                                \
    KDR_PLAIN_KIND(ROW, KindShape, KDRShape, Shape)                                                \
    ROW(KindPointCloud, KDRPointCloud, PointCloud, Made, NonConst, StoreOnly, LostByConstruction)  \
    KDR_PLAIN_KIND(ROW, KindContour, KDRContour, Contour)                                          \
    KDR_PLAIN_KIND(ROW, KindROIAlignment, KDRROIAlignment, ROIAlignment)                           \
    KDR_PLAIN_KIND(ROW, KindPose2D, KDRPose2D, 2DPose)                                             \
    KDR_PLAIN_KIND(ROW, KindMatrix, KDRMatrix, Matrix)                                             \
    KDR_PLAIN_KIND(ROW, KindBuffer, KDRBuffer, Buffer)                                             \
    KDR_PLAIN_KIND(ROW, KindChar, KDRChar, Char)                                                   \
    KDR_PLAIN_KIND(ROW, KindPoint3D, KDRPoint3D, 3DPoint)                                          \
    KDR_PLAIN_KIND(ROW, KindVector3d, KDRVector3d, Vector3d)                                       \
    KDR_PLAIN_KIND(ROW, KindShape3D, KDRShape3D, 3DShape)                                          \
    KDR_PLAIN_KIND(ROW, KindPose3D, KDRPose3D, 3DPose)                                             \
    ROW(KindRangeImage, KDRRangeImage, RangeImage, Made, NonConst, StoreOnly, Kept)                \
    ROW(KindContour3D, KDRContour3D, 3DContour, Made, OfContour, HandsContour, LostAlways)         \
    ROW(KindMatrix3, KDRMatrix3, Matrix3, NotMade, Const, Tests, Kept)                             \
    ROW(KindMatrix4, KDRMatrix4, Matrix4, NotMade, Const, Tests, Kept)                             \
    ROW(KindQuaternion, KDRQuaternion, Quaternion, NotMade, Const, Tests, Kept)                    \
    ROW(KindDualQuaternion, KDRDualQuaternion, DualQuaternion, NotMade, Const, Tests, Kept)        \
    KDR_PLAIN_KIND(ROW, KindBoolArray, KDRBoolArray, BoolArray)                                    \
    ROW(KindNumberArray, KDRNumberArray, NumberArray, Made, Const, HandsNumber, Kept)              \
    KDR_PLAIN_KIND(ROW, KindStringArray, KDRStringArray, StringArray)                              \
    KDR_PLAIN_KIND(ROW, KindPointArray, KDRPointArray, PointArray)                                 \
    KDR_PLAIN_KIND(ROW, KindImageArray, KDRImageArray, ImageArray)                                 \
    ROW(KindRangeImageArray, KDRRangeImageArray, RangeImageArray, Made, NonConst, StoreOnly, Kept) \
    KDR_PLAIN_KIND(ROW, KindShapeArray, KDRShapeArray, ShapeArray)                                 \
    ROW(KindPointCloudArray, KDRPointCloudArray, PointCloudArray, Made, NonConst, StoreOnly,       \
        LostByConstruction)                                                                        \
    KDR_PLAIN_KIND(ROW, KindContourArray, KDRContourArray, ContourArray)                           \
    KDR_PLAIN_KIND(ROW, KindMatrixArray, KDRMatrixArray, MatrixArray)                              \
    KDR_PLAIN_KIND(ROW, KindBufferArray, KDRBufferArray, BufferArray)                              \
    KDR_PLAIN_KIND(ROW, KindPoint3DArray, KDRPoint3DArray, 3DPointArray)                           \
    KDR_PLAIN_KIND(ROW, KindShape3DArray, KDRShape3DArray, 3DShapeArray)                           \
    KDR_PLAIN_KIND(ROW, KindVector3dArray, KDRVector3dArray, Vector3dArray)                        \
    ROW(KindContour3DArray, KDRContour3DArray, 3DContourArray, Made, Const, Handed, LostAlways)    \
    KDR_PLAIN_KIND(ROW, KindVariantArray, KDRVariantArray, VariantArray)                           \
    ROW(KindPlane3D, KDRPlane3D, 3DPlane, Made, NonConst, None, Kept)                              \
    ROW(KindPlane3DArray, KDRPlane3DArray, 3DPlaneArray, Made, NonConst, None, Kept)

/// What becomes of a payload in a deep copy of its store.
enum class KDRPayloadCopying {
    Kept,               ///< copied by copy construction and by assignment
    LostByConstruction, ///< copied by assignment only
    LostAlways,         ///< never copied
};

/// Whether a store of @p kind that was copied by construction has no payload, as also for numbers
/// that the table does not have.
bool isLostByConstruction(KDRVariantKind kind);

#endif
