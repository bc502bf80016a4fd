#ifndef KDRDATA_KDRVARIANTKIND_H
#define KDRDATA_KDRVARIANTKIND_H

/// @file
/// The kinds of a variant.

/// The number of a variant's kind, as KDRVariant::variantType() answers it. A plain integer: code
/// that only passes kinds on need not know them all.
typedef int KDRVariantKind;

/// The kind numbers. They are part of the external interface and never change; the comment names
/// the class of the payload.
enum KDRVariantKindNumber : int {
    // Scalars and two-dimensional values.
    KindBool = 0,         ///< `bool`
    KindNumber = 1,       ///< KDRNumber; also holds `int`, `long`, `long long`, `float`, `double`
    KindString = 2,       ///< KDRString; also holds `char const*`
    KindPoint = 3,        ///< KDRPoint
    KindImage = 4,        ///< KDRImage
    KindShape = 5,        ///< KDRShape
    KindPointCloud = 6,   ///< KDRPointCloud
    KindContour = 7,      ///< KDRContour
    KindROIAlignment = 8, ///< KDRROIAlignment
    KindPose2D = 9,       ///< KDRPose2D
    KindMatrix = 10,      ///< KDRMatrix
    KindBuffer = 11,      ///< KDRBuffer
    KindChar = 12,        ///< KDRChar

    // Three-dimensional values.
    KindPoint3D = 500,        ///< KDRPoint3D
    KindVector3d = 501,       ///< KDRVector3d
    KindShape3D = 502,        ///< KDRShape3D
    KindPose3D = 503,         ///< KDRPose3D
    KindRangeImage = 504,     ///< KDRRangeImage
    KindContour3D = 505,      ///< KDRContour3D
    KindMatrix3 = 506,        ///< KDRMatrix3
    KindMatrix4 = 507,        ///< KDRMatrix4
    KindQuaternion = 508,     ///< KDRQuaternion
    KindDualQuaternion = 509, ///< KDRDualQuaternion

    // Arrays of scalars and two-dimensional values.
    KindBoolArray = 1000,       ///< KDRBoolArray
    KindNumberArray = 1001,     ///< KDRNumberArray
    KindStringArray = 1002,     ///< KDRStringArray
    KindPointArray = 1003,      ///< KDRPointArray
    KindImageArray = 1004,      ///< KDRImageArray
    KindRangeImageArray = 1005, ///< KDRRangeImageArray
    KindShapeArray = 1006,      ///< KDRShapeArray
    KindPointCloudArray = 1007, ///< KDRPointCloudArray
    KindContourArray = 1008,    ///< KDRContourArray
    KindMatrixArray = 1009,     ///< KDRMatrixArray
    KindBufferArray = 1010,     ///< KDRBufferArray

    // Arrays of three-dimensional values.
    KindPoint3DArray = 1500,   ///< KDRPoint3DArray
    KindShape3DArray = 1501,   ///< KDRShape3DArray
    KindVector3dArray = 1502,  ///< KDRVector3dArray
    KindContour3DArray = 1503, ///< KDRContour3DArray

    KindVariantArray = 1800, ///< KDRVariantArray
    KindPlane3D = 1801,      ///< KDRPlane3D
    KindPlane3DArray = 1802, ///< KDRPlane3DArray

    KindNone = 2000 ///< the empty variant, without a payload
};

#endif
