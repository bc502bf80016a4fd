#ifndef KDRDATA_KDRVARIANTPAYLOADS_H
#define KDRDATA_KDRVARIANTPAYLOADS_H

/// @file
/// The payload classes of the variant's kinds, declared and no more: include the header of a class
/// to use it.

class KDRBoolArray;
class KDRBuffer;
class KDRBufferArray;
class KDRChar;
class KDRContour;
class KDRContour3D;
class KDRContour3DArray;
class KDRContourArray;
class KDRDualQuaternion;
class KDRImage;
class KDRImageArray;
class KDRMatrix;
class KDRMatrix3;
class KDRMatrix4;
class KDRMatrixArray;
class KDRNumber;
class KDRNumberArray;
class KDRPlane3D;
class KDRPlane3DArray;
class KDRPoint;
class KDRPoint3D;
class KDRPoint3DArray;
class KDRPointArray;
class KDRPointCloud;
class KDRPointCloudArray;
class KDRPose2D;
class KDRPose3D;
class KDRQuaternion;
class KDRROIAlignment;
class KDRRangeImage;
class KDRRangeImageArray;
class KDRShape;
class KDRShape3D;
class KDRShape3DArray;
class KDRShapeArray;
class KDRString;
class KDRStringArray;
class KDRVariantArray;
class KDRVector3d;
class KDRVector3dArray;

#endif
