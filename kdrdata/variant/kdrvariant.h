#ifndef KDRDATA_KDRVARIANT_H
#define KDRDATA_KDRVARIANT_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/variant/kdrvariantkind.h>
#include <kdrdata/variant/kdrvariantpayloads.h>

class KDRVariantLock;
struct KDRInternal;

/// The tagged value through which every tool parameter and result passes.
///
/// A variant holds one value of one kind (see KDRVariantKindNumber). It is a handle: copies and
/// assignments share one reference-counted store, no payload is copied, and a writer called on a
/// handle whose store is shared first takes a fresh store, so that the other handles keep the old
/// value (copy on write). Only clone() makes a deep copy.
///
/// **Writers** (`from...`) take a copy of the value, made by its class's copy constructor; a
/// variant may be given its own payload. Where the copy throws, the handle keeps its value.
///
/// **Readers** (`to...`) copy the payload into the output by the payload class's assignment and
/// answer true, if the variant holds the kind they read, its payload was not lost (see clone()) and
/// the output is not null; otherwise they answer false and leave the output untouched. There is no
/// conversion between kinds: toInt() does not read a flag or a text. The five numeric readers all
/// read kind 1 and convert as KDRNumber says.
///
/// **Pointer readers** (`to...Ptr`) put the address of the store's own payload into the reference
/// and answer true if the kind matches, else answer false and leave the reference untouched. The
/// object is shared by every handle that shares the store and is never the caller's to delete: it
/// dies with the store's last handle and with the next writer on an unshared handle. A clone that
/// lost its payload still matches and hands out null.
///
/// Out of memory is std::bad_alloc; a constructor then leaves nothing behind.
///
/// @code
/// KDRVariant parameter(128);
/// KDRVariant copy(parameter);       // shares the store
/// copy.fromDouble(1.5);             // detaches; parameter still reads 128
/// int level = 0;
/// bool const read = parameter.toInt(&level);
/// @endcode
///
/// Threads: one variant may be read from several threads while none changes it; what is more, it
/// may be copied, and assigned from, while another thread assigns to it. Variants that share a
/// store may be used from different threads, but what a pointer reader hands out must not be
/// changed while another variant of that store is used.
///
/// Copy construction and assignment lock the two handles involved, and nothing else takes a lock:
/// to write to a handle or to destroy it while another thread uses it in any way, and to read,
/// describe or clone it while another thread assigns to it, is not protected. Assignment locks the
/// source first and then the target. Handles that are assigned in a ring by several threads at once
/// (a = b and b = a in two threads, or a = b, b = c and c = a in three) can therefore wait for each
/// other for ever, which is the callers' to avoid. Copy construction, which locks the new handle
/// first, has no part in that: no other thread knows the new handle yet.
class KDRDATA_EXPORT KDRVariant
{
public:
    /// An empty variant, kind 2000.
    KDRVariant();
    /// A variant of kind 1 holding KDRNumber(value). A `char` is such a number too: give a KDRChar
    /// for a character.
    KDRVariant(int value);
    /// @copydoc KDRVariant(int)
    KDRVariant(long value);
    /// @copydoc KDRVariant(int)
    KDRVariant(long long value);
    /// @copydoc KDRVariant(int)
    KDRVariant(float value);
    /// @copydoc KDRVariant(int)
    KDRVariant(double value);
    /// A variant of kind 0 holding the flag @p value. Every pointer but one to `char` turns into a
    /// flag too: dereference it.
    KDRVariant(bool value);
    /// A variant of kind 2 holding KDRString(text): UTF-8 up to the terminating zero; null gives a
    /// null string.
    KDRVariant(char const* text);
    /// A variant of kind 1 holding a copy of @p value, without its range. Kept on purpose.
    KDRVariant(KDRNumber const& value);
    /// A variant of kind 2 holding a copy of @p value that shares its text.
    KDRVariant(KDRString const& value);
    /// A variant of kind 3 holding a copy of @p value, ranges included.
    KDRVariant(KDRPoint const& value);
    /// A variant of kind 4 holding a copy of @p value that shares its pixels.
    KDRVariant(KDRImage const& value);
    /// A variant of kind 5 holding a copy of @p value that shares its record.
    KDRVariant(KDRShape const& value);
    /// A variant of kind 6 holding a copy of @p value.
    KDRVariant(KDRPointCloud const& value);
    /// A variant of kind 7 holding a copy of @p value.
    KDRVariant(KDRContour const& value);
    /// A variant of kind 8 holding a copy of @p value.
    KDRVariant(KDRROIAlignment const& value);
    /// A variant of kind 9 holding a copy of @p value.
    KDRVariant(KDRPose2D const& value);
    /// A variant of kind 10 holding a copy of @p value.
    KDRVariant(KDRMatrix const& value);
    /// A variant of kind 11 holding a copy of @p value that shares its bytes.
    KDRVariant(KDRBuffer const& value);
    /// A variant of kind 12 holding a copy of @p value.
    KDRVariant(KDRChar const& value);
    /// A variant of kind 500 holding a copy of @p value.
    KDRVariant(KDRPoint3D const& value);
    /// A variant of kind 501 holding a copy of @p value.
    KDRVariant(KDRVector3d const& value);
    /// A variant of kind 502 holding a copy of @p value.
    KDRVariant(KDRShape3D const& value);
    /// A variant of kind 503 holding a copy of @p value.
    KDRVariant(KDRPose3D const& value);
    /// A variant of kind 504 holding a copy of @p value.
    KDRVariant(KDRRangeImage const& value);
    /// A variant of kind 505 holding a copy of @p value.
    KDRVariant(KDRContour3D const& value);
    /// A variant of kind 1000 holding a copy of @p value that shares its list.
    KDRVariant(KDRBoolArray const& value);
    /// A variant of kind 1001 holding a copy of @p value that shares its list.
    KDRVariant(KDRNumberArray const& value);
    /// A variant of kind 1002 holding a copy of @p value that shares its list.
    KDRVariant(KDRStringArray const& value);
    /// A variant of kind 1003 holding a copy of @p value.
    KDRVariant(KDRPointArray const& value);
    /// A variant of kind 1004 holding a copy of @p value whose images share their pixels.
    KDRVariant(KDRImageArray const& value);
    /// A variant of kind 1005 holding a copy of @p value.
    KDRVariant(KDRRangeImageArray const& value);
    /// A variant of kind 1006 holding a copy of @p value that shares its list.
    KDRVariant(KDRShapeArray const& value);
    /// A variant of kind 1007 holding a copy of @p value.
    KDRVariant(KDRPointCloudArray const& value);
    /// A variant of kind 1008 holding a copy of @p value.
    KDRVariant(KDRContourArray const& value);
    /// A variant of kind 1009 holding a copy of @p value.
    KDRVariant(KDRMatrixArray const& value);
    /// A variant of kind 1010 holding a copy of @p value that shares its list.
    KDRVariant(KDRBufferArray const& value);
    /// A variant of kind 1500 holding a copy of @p value.
    KDRVariant(KDRPoint3DArray const& value);
    /// A variant of kind 1501 holding a copy of @p value that shares its list.
    KDRVariant(KDRShape3DArray const& value);
    /// A variant of kind 1502 holding a copy of @p value.
    KDRVariant(KDRVector3dArray const& value);
    /// A variant of kind 1503 holding a copy of @p value.
    KDRVariant(KDRContour3DArray const& value);
    /// A variant of kind 1800 holding a copy of @p value that shares its list, and the elements
    /// their stores.
    KDRVariant(KDRVariantArray const& value);
    /// A variant of kind 1801 holding a copy of @p value.
    KDRVariant(KDRPlane3D const& value);
    /// A variant of kind 1802 holding a copy of @p value.
    KDRVariant(KDRPlane3DArray const& value);

    /// Shares the store of @p other. Locks the new handle first, then @p other. Kept on purpose.
    KDRVariant(KDRVariant const& other);
    /// Gives up this handle's share of the store.
    ~KDRVariant();

    /// Shares the store of @p other, gives up the old one and returns this variant. Locks @p other
    /// first, then this handle. Kept on purpose.
    KDRVariant& operator=(KDRVariant const& other);

    /// A variant with a store and a payload object of its own. The payload is assigned, not
    /// copy-constructed: a number keeps its range, and what its class shares on assignment (text,
    /// lists, pixels) stays shared. Takes no lock. Kinds 6, 505, 1007 and 1503 keep their number
    /// and lose the payload. Kept on purpose.
    KDRVariant clone() const;

    /// The kind of the value, 2000 for an empty variant.
    KDRVariantKind variantType() const;

    /// A short text with the kind and the range facts of the value, for display:
    /// "iType:1,Max:%2,Min:%3,step:%4" of a number (where step is KDRNumber::step(), the minimum),
    /// "iType:2,length:%2" of a string, and
    /// "iType:3,XMax:%2,XMin:%3,XStep:%4,YMax:%5,YMin:%6,YStep:%7" of a point; empty for every
    /// other kind, but not null. Floating-point values have up to six significant digits. The
    /// variant is not changed, and yet the operation is not for constant ones. Kept on purpose.
    KDRString attribute();

    /// Makes this a variant of kind 1 holding KDRNumber(value).
    void fromInt(int value);
    /// @copydoc fromInt
    void fromLong(long value);
    /// @copydoc fromInt
    void fromLongLong(long long value);
    /// @copydoc fromInt
    void fromFloat(float value);
    /// @copydoc fromInt
    void fromDouble(double value);
    /// Makes this a variant of kind 0 holding @p value.
    void fromBool(bool value);
    /// Makes this a variant of kind 1 holding a copy of @p value, without its range. Kept on
    /// purpose.
    void fromNumber(KDRNumber const& value);
    /// Makes this a variant of kind 2 holding a copy of @p value that shares its text.
    void fromString(KDRString const& value);
    /// Makes this a variant of kind 3 holding a copy of @p value, ranges included.
    void fromPoint(KDRPoint const& value);
    /// Makes this a variant of kind 4 holding a copy of @p value that shares its pixels.
    void fromImage(KDRImage const& value);
    /// Makes this a variant of kind 5 holding a copy of @p value that shares its record.
    void fromShape(KDRShape const& value);
    /// Makes this a variant of kind 6 holding a copy of @p value. clone() keeps the kind and loses
    /// the payload. Kept on purpose.
    void fromPointCloud(KDRPointCloud const& value);
    /// Makes this a variant of kind 7 holding a copy of @p value.
    void fromContour(KDRContour const& value);
    /// Makes this a variant of kind 8 holding a copy of @p value.
    void fromROIAlignment(KDRROIAlignment const& value);
    /// Makes this a variant of kind 9 holding a copy of @p value.
    void from2DPose(KDRPose2D const& value);
    /// Makes this a variant of kind 10 holding a copy of @p value.
    void fromMatrix(KDRMatrix const& value);
    /// Makes this a variant of kind 11 holding a copy of @p value that shares its bytes.
    void fromBuffer(KDRBuffer const& value);
    /// Makes this a variant of kind 12 holding a copy of @p value.
    void fromChar(KDRChar const& value);
    /// Makes this a variant of kind 500 holding a copy of @p value.
    void from3DPoint(KDRPoint3D const& value);
    /// Makes this a variant of kind 501 holding a copy of @p value.
    void fromVector3d(KDRVector3d const& value);
    /// Makes this a variant of kind 502 holding a copy of @p value.
    void from3DShape(KDRShape3D const& value);
    /// Makes this a variant of kind 503 holding a copy of @p value.
    void from3DPose(KDRPose3D const& value);
    /// Makes this a variant of kind 504 holding a copy of @p value.
    void fromRangeImage(KDRRangeImage const& value);
    /// Makes this a variant of kind 505 holding a copy of @p value. clone() keeps the kind and
    /// loses the payload. Kept on purpose.
    void from3DContour(KDRContour3D const& value);
    /// Makes this a variant of kind 506 holding a copy of @p value. No constructor takes one. Kept
    /// on purpose.
    void fromMatrix3(KDRMatrix3 const& value);
    /// Makes this a variant of kind 507 holding a copy of @p value. No constructor takes one. Kept
    /// on purpose.
    void fromMatrix4(KDRMatrix4 const& value);
    /// Makes this a variant of kind 508 holding a copy of @p value. No constructor takes one. Kept
    /// on purpose.
    void fromQuaternion(KDRQuaternion const& value);
    /// Makes this a variant of kind 509 holding a copy of @p value. No constructor takes one. Kept
    /// on purpose.
    void fromDualQuaternion(KDRDualQuaternion const& value);
    /// Makes this a variant of kind 1000 holding a copy of @p value that shares its list.
    void fromBoolArray(KDRBoolArray const& value);
    /// Makes this a variant of kind 1001 holding a copy of @p value that shares its list.
    void fromNumberArray(KDRNumberArray const& value);
    /// Makes this a variant of kind 1002 holding a copy of @p value that shares its list.
    void fromStringArray(KDRStringArray const& value);
    /// Makes this a variant of kind 1003 holding a copy of @p value.
    void fromPointArray(KDRPointArray const& value);
    /// Makes this a variant of kind 1004 holding a copy of @p value whose images share their
    /// pixels.
    void fromImageArray(KDRImageArray const& value);
    /// Makes this a variant of kind 1005 holding a copy of @p value.
    void fromRangeImageArray(KDRRangeImageArray const& value);
    /// Makes this a variant of kind 1006 holding a copy of @p value that shares its list.
    void fromShapeArray(KDRShapeArray const& value);
    /// Makes this a variant of kind 1007 holding a copy of @p value. clone() keeps the kind and
    /// loses the payload. Kept on purpose.
    void fromPointCloudArray(KDRPointCloudArray const& value);
    /// Makes this a variant of kind 1008 holding a copy of @p value.
    void fromContourArray(KDRContourArray const& value);
    /// Makes this a variant of kind 1009 holding a copy of @p value.
    void fromMatrixArray(KDRMatrixArray const& value);
    /// Makes this a variant of kind 1010 holding a copy of @p value that shares its list.
    void fromBufferArray(KDRBufferArray const& value);
    /// Makes this a variant of kind 1500 holding a copy of @p value.
    void from3DPointArray(KDRPoint3DArray const& value);
    /// Makes this a variant of kind 1501 holding a copy of @p value that shares its list.
    void from3DShapeArray(KDRShape3DArray const& value);
    /// Makes this a variant of kind 1502 holding a copy of @p value.
    void fromVector3dArray(KDRVector3dArray const& value);
    /// Makes this a variant of kind 1503 holding a copy of @p value. clone() keeps the kind and
    /// loses the payload. Kept on purpose.
    void from3DContourArray(KDRContour3DArray const& value);
    /// Makes this a variant of kind 1800 holding a copy of @p value that shares its list, and the
    /// elements their stores.
    void fromVariantArray(KDRVariantArray const& value);
    /// Makes this a variant of kind 1801 holding a copy of @p value.
    void from3DPlane(KDRPlane3D const& value);
    /// Makes this a variant of kind 1802 holding a copy of @p value.
    void from3DPlaneArray(KDRPlane3DArray const& value);

    /// Reads kind 1 as KDRNumber::toInt() gives it.
    bool toInt(int* out) const;
    /// Reads kind 1 as KDRNumber::toLong() gives it.
    bool toLong(long* out) const;
    /// Reads kind 1 as KDRNumber::toLongLong() gives it.
    bool toLongLong(long long* out) const;
    /// Reads kind 1 as KDRNumber::toFloat() gives it.
    bool toFloat(float* out) const;
    /// Reads kind 1 as KDRNumber::toDouble() gives it.
    bool toDouble(double* out) const;
    /// Reads kind 0.
    bool toBool(bool* out) const;
    /// Reads kind 1, the stored number's range included.
    bool toNumber(KDRNumber* out) const;
    /// Reads kind 2; the output shares the text.
    bool toString(KDRString* out) const;
    /// Reads kind 3, ranges included.
    bool toPoint(KDRPoint* out) const;
    /// Reads kind 4; the output shares the pixels.
    bool toImage(KDRImage* out) const;
    /// Reads kind 5; the output shares the record.
    bool toShape(KDRShape* out) const;
    /// Reads kind 6. Not for constant variants. Kept on purpose.
    bool toPointCloud(KDRPointCloud* out);
    /// Reads kind 7.
    bool toContour(KDRContour* out) const;
    /// Reads kind 8.
    bool toROIAlignment(KDRROIAlignment* out) const;
    /// Reads kind 9.
    bool to2DPose(KDRPose2D* out) const;
    /// Reads kind 10.
    bool toMatrix(KDRMatrix* out) const;
    /// Reads kind 11; the output shares the bytes.
    bool toBuffer(KDRBuffer* out) const;
    /// Reads kind 12.
    bool toChar(KDRChar* out) const;
    /// Reads kind 500.
    bool to3DPoint(KDRPoint3D* out) const;
    /// Reads kind 501.
    bool toVector3d(KDRVector3d* out) const;
    /// Reads kind 502.
    bool to3DShape(KDRShape3D* out) const;
    /// Reads kind 503.
    bool to3DPose(KDRPose3D* out) const;
    /// Reads kind 504. Not for constant variants. Kept on purpose.
    bool toRangeImage(KDRRangeImage* out);
    /// Reads kind 7, the two-dimensional contour, not 505: on a contour it answers true and changes
    /// nothing, since the output's assignment does nothing; on a three-dimensional contour it
    /// answers false. Kept on purpose.
    bool to3DContour(KDRContour3D* out) const;
    /// Reads kind 506.
    bool toMatrix3(KDRMatrix3* out) const;
    /// Reads kind 507.
    bool toMatrix4(KDRMatrix4* out) const;
    /// Reads kind 508.
    bool toQuaternion(KDRQuaternion* out) const;
    /// Reads kind 509.
    bool toDualQuaternion(KDRDualQuaternion* out) const;
    /// Reads kind 1000; the output shares the list.
    bool toBoolArray(KDRBoolArray* out) const;
    /// Reads kind 1001; the output shares the list.
    bool toNumberArray(KDRNumberArray* out) const;
    /// Reads kind 1002; the output shares the list.
    bool toStringArray(KDRStringArray* out) const;
    /// Reads kind 1003.
    bool toPointArray(KDRPointArray* out) const;
    /// Reads kind 1004; the images of the output share their pixels.
    bool toImageArray(KDRImageArray* out) const;
    /// Reads kind 1005. Not for constant variants. Kept on purpose.
    bool toRangeImageArray(KDRRangeImageArray* out);
    /// Reads kind 1006; the output shares the list.
    bool toShapeArray(KDRShapeArray* out) const;
    /// Reads kind 1007. Not for constant variants. Kept on purpose.
    bool toPointCloudArray(KDRPointCloudArray* out);
    /// Reads kind 1008.
    bool toContourArray(KDRContourArray* out) const;
    /// Reads kind 1009.
    bool toMatrixArray(KDRMatrixArray* out) const;
    /// Reads kind 1010; the output shares the list.
    bool toBufferArray(KDRBufferArray* out) const;
    /// Reads kind 1500.
    bool to3DPointArray(KDRPoint3DArray* out) const;
    /// Reads kind 1501; the output shares the list.
    bool to3DShapeArray(KDRShape3DArray* out) const;
    /// Reads kind 1502.
    bool toVector3dArray(KDRVector3dArray* out) const;
    /// Reads kind 1503.
    bool to3DContourArray(KDRContour3DArray* out) const;
    /// Reads kind 1800; the output shares the list.
    bool toVariantArray(KDRVariantArray* out) const;
    /// Reads kind 1801. Not for constant variants. Kept on purpose.
    bool to3DPlane(KDRPlane3D* out);
    /// Reads kind 1802. Not for constant variants. Kept on purpose.
    bool to3DPlaneArray(KDRPlane3DArray* out);

    /// The payload of kind 1.
    bool toNumberPtr(KDRNumber*& out);
    /// The payload of kind 2.
    bool toStringPtr(KDRString*& out);
    /// The payload of kind 3.
    bool toPointPtr(KDRPoint*& out);
    /// The payload of kind 4.
    bool toImagePtr(KDRImage*& out);
    /// The payload of kind 5.
    bool toShapePtr(KDRShape*& out);
    /// The payload of kind 7.
    bool toContourPtr(KDRContour*& out);
    /// The payload of kind 8.
    bool toROIAlignmentPtr(KDRROIAlignment*& out);
    /// The payload of kind 9.
    bool to2DPosePtr(KDRPose2D*& out);
    /// The payload of kind 10.
    bool toMatrixPtr(KDRMatrix*& out);
    /// The payload of kind 11.
    bool toBufferPtr(KDRBuffer*& out);
    /// The payload of kind 12.
    bool toCharPtr(KDRChar*& out);
    /// The payload of kind 500.
    bool to3DPointPtr(KDRPoint3D*& out);
    /// The payload of kind 501.
    bool toVector3dPtr(KDRVector3d*& out);
    /// The payload of kind 502.
    bool to3DShapePtr(KDRShape3D*& out);
    /// The payload of kind 503.
    bool to3DPosePtr(KDRPose3D*& out);
    /// Tests kind 7, the two-dimensional contour, not 505: on a contour it hands out the address of
    /// the stored KDRContour under the name of a three-dimensional one, which **must not be
    /// dereferenced**; on a three-dimensional contour it answers false. Kept on purpose.
    bool to3DContourPtr(KDRContour3D*& out);
    /// Answers whether the kind is 506; hands out nothing and does not use its argument. Kept on
    /// purpose.
    bool toMatrix3Ptr(KDRMatrix3* out);
    /// Answers whether the kind is 507; hands out nothing and does not use its argument. Kept on
    /// purpose.
    bool toMatrix4Ptr(KDRMatrix4* out);
    /// Answers whether the kind is 508; hands out nothing and does not use its argument. Kept on
    /// purpose.
    bool toQuaternionPtr(KDRQuaternion* out);
    /// Answers whether the kind is 509; hands out nothing and does not use its argument. Kept on
    /// purpose.
    bool toDualQuaternionPtr(KDRDualQuaternion* out);
    /// The payload of kind 1000.
    bool toBoolArrayPtr(KDRBoolArray*& out);
    /// Tests kind 1, the number, not 1001: on a number it hands out the address of the stored
    /// KDRNumber under the name of a number array, which **must not be dereferenced**; on a number
    /// array it answers false. Use toNumberArray() to read one. Kept on purpose.
    bool toNumberArrayPtr(KDRNumberArray*& out);
    /// The payload of kind 1002.
    bool toStringArrayPtr(KDRStringArray*& out);
    /// The payload of kind 1003.
    bool toPointArrayPtr(KDRPointArray*& out);
    /// The payload of kind 1004.
    bool toImageArrayPtr(KDRImageArray*& out);
    /// The payload of kind 1006.
    bool toShapeArrayPtr(KDRShapeArray*& out);
    /// The payload of kind 1008.
    bool toContourArrayPtr(KDRContourArray*& out);
    /// The payload of kind 1009.
    bool toMatrixArrayPtr(KDRMatrixArray*& out);
    /// The payload of kind 1010.
    bool toBufferArrayPtr(KDRBufferArray*& out);
    /// The payload of kind 1500.
    bool to3DPointArrayPtr(KDRPoint3DArray*& out);
    /// The payload of kind 1501.
    bool to3DShapeArrayPtr(KDRShape3DArray*& out);
    /// The payload of kind 1502.
    bool toVector3dArrayPtr(KDRVector3dArray*& out);
    /// The payload of kind 1503.
    bool to3DContourArrayPtr(KDRContour3DArray*& out);
    /// The payload of kind 1800.
    bool toVariantArrayPtr(KDRVariantArray*& out);

private:
    friend struct KDRInternal;
    KDRVariantLock* d;
};

#endif
