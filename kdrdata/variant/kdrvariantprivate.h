#ifndef KDRDATA_KDRVARIANTPRIVATE_H
#define KDRDATA_KDRVARIANTPRIVATE_H

#include <QtCore/qmutex.h>

#include <atomic>

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/variant/kdrvariantkind.h>
#include <kdrdata/variant/kdrvariantpayloads.h>

struct KDRInternal;

/// The reference-counted store behind every KDRVariant: one payload of one kind.
///
/// The payload is a heap object of exactly the class that the kind names, or null; the store is its
/// only owner. A store is born with a count of 1; whoever shares it adds one with incRef() and
/// gives it up with decRef(), and the call that gives up the last count frees the store. A store
/// that is not on the heap must not lose its last count.
///
/// **Writers** (`from...`) build the new payload, free the old one, and set the kind. A writer may
/// be given the store's own payload. Where the copy throws, the store stays as it was.
///
/// **Readers** (`to...`) copy the payload into an output by the payload class's assignment and
/// answer true, if the store holds the kind they read, its payload is not null and the output is
/// not null; otherwise they answer false and leave the output untouched. No kind is converted into
/// another; within kind 1 the number converts as KDRNumber says.
///
/// **Pointer readers** (`to...Ptr`) put the payload's own address into the reference and answer
/// true if the kind matches, else answer false and leave the reference untouched. The object stays
/// the store's: it dies with the store and with the next writer, clear() or assignment. After
/// clear() the kind still matches and the address handed out is null.
///
/// Threads: the count may be changed from several threads; refCount(), variantType() and the
/// readers take no lock, and the payload is not guarded.
class KDRDATA_EXPORT KDRVariantPrivate
{
public:
    /// An empty store: kind 2000, no payload, count 1.
    KDRVariantPrivate();
    /// A store of kind 1 holding KDRNumber(value).
    KDRVariantPrivate(int value);
    /// @copydoc KDRVariantPrivate(int)
    KDRVariantPrivate(long value);
    /// @copydoc KDRVariantPrivate(int)
    KDRVariantPrivate(long long value);
    /// @copydoc KDRVariantPrivate(int)
    KDRVariantPrivate(float value);
    /// @copydoc KDRVariantPrivate(int)
    KDRVariantPrivate(double value);
    /// A store of kind 2 holding KDRString(text): UTF-8 up to the terminating zero; null gives a
    /// null string.
    KDRVariantPrivate(char const* text);
    /// A store of kind 0 holding the flag @p value.
    KDRVariantPrivate(bool value);
    /// A store of kind 1 holding a copy of @p value, made by copy construction and so without the
    /// number's range.
    KDRVariantPrivate(KDRNumber const& value);
    /// A store of kind 2 holding a copy of @p value that shares its text.
    KDRVariantPrivate(KDRString const& value);
    /// A store of kind 3 holding a copy of @p value, ranges included.
    KDRVariantPrivate(KDRPoint const& value);
    /// A store of kind 4 holding a copy of @p value that shares its pixels.
    KDRVariantPrivate(KDRImage const& value);
    /// A store of kind 5 holding a copy of @p value that shares its record.
    KDRVariantPrivate(KDRShape const& value);
    /// A store of kind 6 holding a copy of @p value.
    KDRVariantPrivate(KDRPointCloud const& value);
    /// A store of kind 7 holding a copy of @p value.
    KDRVariantPrivate(KDRContour const& value);
    /// A store of kind 8 holding a copy of @p value.
    KDRVariantPrivate(KDRROIAlignment const& value);
    /// A store of kind 9 holding a copy of @p value.
    KDRVariantPrivate(KDRPose2D const& value);
    /// A store of kind 10 holding a copy of @p value.
    KDRVariantPrivate(KDRMatrix const& value);
    /// A store of kind 11 holding a copy of @p value that shares its bytes.
    KDRVariantPrivate(KDRBuffer const& value);
    /// A store of kind 12 holding a copy of @p value.
    KDRVariantPrivate(KDRChar const& value);
    /// A store of kind 500 holding a copy of @p value.
    KDRVariantPrivate(KDRPoint3D const& value);
    /// A store of kind 501 holding a copy of @p value.
    KDRVariantPrivate(KDRVector3d const& value);
    /// A store of kind 502 holding a copy of @p value.
    KDRVariantPrivate(KDRShape3D const& value);
    /// A store of kind 503 holding a copy of @p value.
    KDRVariantPrivate(KDRPose3D const& value);
    /// A store of kind 504 holding a copy of @p value.
    KDRVariantPrivate(KDRRangeImage const& value);
    /// A store of kind 505 holding a copy of @p value.
    KDRVariantPrivate(KDRContour3D const& value);
    /// A store of kind 1000 holding a copy of @p value that shares its list.
    KDRVariantPrivate(KDRBoolArray const& value);
    /// A store of kind 1001 holding a copy of @p value that shares its list.
    KDRVariantPrivate(KDRNumberArray const& value);
    /// A store of kind 1002 holding a copy of @p value that shares its list.
    KDRVariantPrivate(KDRStringArray const& value);
    /// A store of kind 1003 holding a copy of @p value.
    KDRVariantPrivate(KDRPointArray const& value);
    /// A store of kind 1004 holding a copy of @p value whose images share their pixels.
    KDRVariantPrivate(KDRImageArray const& value);
    /// A store of kind 1005 holding a copy of @p value.
    KDRVariantPrivate(KDRRangeImageArray const& value);
    /// A store of kind 1006 holding a copy of @p value that shares its list.
    KDRVariantPrivate(KDRShapeArray const& value);
    /// A store of kind 1007 holding a copy of @p value.
    KDRVariantPrivate(KDRPointCloudArray const& value);
    /// A store of kind 1008 holding a copy of @p value.
    KDRVariantPrivate(KDRContourArray const& value);
    /// A store of kind 1009 holding a copy of @p value.
    KDRVariantPrivate(KDRMatrixArray const& value);
    /// A store of kind 1010 holding a copy of @p value that shares its list.
    KDRVariantPrivate(KDRBufferArray const& value);
    /// A store of kind 1500 holding a copy of @p value.
    KDRVariantPrivate(KDRPoint3DArray const& value);
    /// A store of kind 1501 holding a copy of @p value that shares its list.
    KDRVariantPrivate(KDRShape3DArray const& value);
    /// A store of kind 1502 holding a copy of @p value.
    KDRVariantPrivate(KDRVector3dArray const& value);
    /// A store of kind 1503 holding a copy of @p value.
    KDRVariantPrivate(KDRContour3DArray const& value);
    /// A store of kind 1800 holding a copy of @p value that shares its list, and the elements their
    /// stores.
    KDRVariantPrivate(KDRVariantArray const& value);
    /// A store of kind 1801 holding a copy of @p value.
    KDRVariantPrivate(KDRPlane3D const& value);
    /// A store of kind 1802 holding a copy of @p value.
    KDRVariantPrivate(KDRPlane3DArray const& value);

    /// A store of its own, count 1, with a deep copy of the payload of @p other: a payload object
    /// is made by default and assigned to, so that a number keeps its range. A null payload gives a
    /// null payload of the same kind, and so do kinds 6, 505, 1007 and 1503 and numbers that the
    /// library does not know. Kept on purpose.
    KDRVariantPrivate(KDRVariantPrivate const& other);
    /// Frees the payload. Whoever shares a store gives it up with decRef() instead.
    ~KDRVariantPrivate();

    /// Frees the payload, then takes over kind and `disposed` flag of @p other and a deep copy of
    /// its payload, and returns this store; the count is not touched. A null payload gives a null
    /// payload of the same kind, and so do kinds 505 and 1503 and numbers that the library does not
    /// know, but not 6 and 1007; so does assigning a store to itself, whose payload is gone by
    /// then. Where the copy throws, this store has the kind of @p other and no payload. Kept on
    /// purpose.
    KDRVariantPrivate& operator=(KDRVariantPrivate const& other);

    /// The kind.
    KDRVariantKind variantType() const;

    /// Frees the payload and leaves the kind as it is. A payload of a kind number that the library
    /// does not know is not freed, since its class is unknown. Kept on purpose.
    void clear();

    /// Makes this a store of kind 1 holding KDRNumber(value).
    void fromInt(int value);
    /// @copydoc fromInt
    void fromLong(long value);
    /// @copydoc fromInt
    void fromLongLong(long long value);
    /// @copydoc fromInt
    void fromFloat(float value);
    /// @copydoc fromInt
    void fromDouble(double value);
    /// Makes this a store of kind 0 holding @p value.
    void fromBool(bool value);
    /// Makes this a store of kind 1 holding a copy of @p value, made by copy construction and so
    /// without the number's range.
    void fromNumber(KDRNumber const& value);
    /// Makes this a store of kind 2 holding a copy of @p value that shares its text.
    void fromString(KDRString const& value);
    /// Makes this a store of kind 3 holding a copy of @p value, ranges included.
    void fromPoint(KDRPoint const& value);
    /// Makes this a store of kind 4 holding a copy of @p value that shares its pixels.
    void fromImage(KDRImage const& value);
    /// Makes this a store of kind 5 holding a copy of @p value that shares its record.
    void fromShape(KDRShape const& value);
    /// Makes this a store of kind 6 holding a copy of @p value. A copy of the store keeps the kind
    /// and loses the payload; an assignment carries both. Kept on purpose.
    void fromPointCloud(KDRPointCloud const& value);
    /// Makes this a store of kind 7 holding a copy of @p value.
    void fromContour(KDRContour const& value);
    /// Makes this a store of kind 8 holding a copy of @p value.
    void fromROIAlignment(KDRROIAlignment const& value);
    /// Makes this a store of kind 9 holding a copy of @p value.
    void from2DPose(KDRPose2D const& value);
    /// Makes this a store of kind 10 holding a copy of @p value.
    void fromMatrix(KDRMatrix const& value);
    /// Makes this a store of kind 11 holding a copy of @p value that shares its bytes.
    void fromBuffer(KDRBuffer const& value);
    /// Makes this a store of kind 12 holding a copy of @p value.
    void fromChar(KDRChar const& value);
    /// Makes this a store of kind 500 holding a copy of @p value.
    void from3DPoint(KDRPoint3D const& value);
    /// Makes this a store of kind 501 holding a copy of @p value.
    void fromVector3d(KDRVector3d const& value);
    /// Makes this a store of kind 502 holding a copy of @p value.
    void from3DShape(KDRShape3D const& value);
    /// Makes this a store of kind 503 holding a copy of @p value.
    void from3DPose(KDRPose3D const& value);
    /// Makes this a store of kind 504 holding a copy of @p value.
    void fromRangeImage(KDRRangeImage const& value);
    /// Makes this a store of kind 505 holding a copy of @p value. Copies of the store and
    /// assignments keep the kind and lose the payload. Kept on purpose.
    void from3DContour(KDRContour3D const& value);
    /// Makes this a store of kind 506 holding a copy of @p value. No constructor takes one. Kept on
    /// purpose.
    void fromMatrix3(KDRMatrix3 const& value);
    /// Makes this a store of kind 507 holding a copy of @p value. No constructor takes one. Kept on
    /// purpose.
    void fromMatrix4(KDRMatrix4 const& value);
    /// Makes this a store of kind 508 holding a copy of @p value. No constructor takes one. Kept on
    /// purpose.
    void fromQuaternion(KDRQuaternion const& value);
    /// Makes this a store of kind 509 holding a copy of @p value. Its one field is copied directly,
    /// since its assignment does nothing. No constructor takes one. Kept on purpose.
    void fromDualQuaternion(KDRDualQuaternion const& value);
    /// Makes this a store of kind 1000 holding a copy of @p value that shares its list.
    void fromBoolArray(KDRBoolArray const& value);
    /// Makes this a store of kind 1001 holding a copy of @p value that shares its list.
    void fromNumberArray(KDRNumberArray const& value);
    /// Makes this a store of kind 1002 holding a copy of @p value that shares its list.
    void fromStringArray(KDRStringArray const& value);
    /// Makes this a store of kind 1003 holding a copy of @p value.
    void fromPointArray(KDRPointArray const& value);
    /// Makes this a store of kind 1004 holding a copy of @p value whose images share their pixels.
    void fromImageArray(KDRImageArray const& value);
    /// Makes this a store of kind 1005 holding a copy of @p value.
    void fromRangeImageArray(KDRRangeImageArray const& value);
    /// Makes this a store of kind 1006 holding a copy of @p value that shares its list.
    void fromShapeArray(KDRShapeArray const& value);
    /// Makes this a store of kind 1007 holding a copy of @p value. A copy of the store keeps the
    /// kind and loses the payload; an assignment carries both. Kept on purpose.
    void fromPointCloudArray(KDRPointCloudArray const& value);
    /// Makes this a store of kind 1008 holding a copy of @p value.
    void fromContourArray(KDRContourArray const& value);
    /// Makes this a store of kind 1009 holding a copy of @p value.
    void fromMatrixArray(KDRMatrixArray const& value);
    /// Makes this a store of kind 1010 holding a copy of @p value that shares its list.
    void fromBufferArray(KDRBufferArray const& value);
    /// Makes this a store of kind 1500 holding a copy of @p value.
    void from3DPointArray(KDRPoint3DArray const& value);
    /// Makes this a store of kind 1501 holding a copy of @p value that shares its list.
    void from3DShapeArray(KDRShape3DArray const& value);
    /// Makes this a store of kind 1502 holding a copy of @p value.
    void fromVector3dArray(KDRVector3dArray const& value);
    /// Makes this a store of kind 1503 holding a copy of @p value. Copies of the store and
    /// assignments keep the kind and lose the payload. Kept on purpose.
    void from3DContourArray(KDRContour3DArray const& value);
    /// Makes this a store of kind 1800 holding a copy of @p value that shares its list, and the
    /// elements their stores.
    void fromVariantArray(KDRVariantArray const& value);
    /// Makes this a store of kind 1801 holding a copy of @p value.
    void from3DPlane(KDRPlane3D const& value);
    /// Makes this a store of kind 1802 holding a copy of @p value.
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
    /// Reads kind 1 by assignment, which carries the stored number's range.
    bool toNumber(KDRNumber* out) const;
    /// Reads kind 2; the output shares the text.
    bool toString(KDRString* out) const;
    /// Reads kind 3, ranges included.
    bool toPoint(KDRPoint* out) const;
    /// Reads kind 4; the output shares the pixels.
    bool toImage(KDRImage* out) const;
    /// Reads kind 5; the output shares the record.
    bool toShape(KDRShape* out) const;
    /// Reads kind 6. Not for constant stores. Kept on purpose.
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
    /// Reads kind 504. Not for constant stores. Kept on purpose.
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
    /// Reads kind 1005. Not for constant stores. Kept on purpose.
    bool toRangeImageArray(KDRRangeImageArray* out);
    /// Reads kind 1006; the output shares the list.
    bool toShapeArray(KDRShapeArray* out) const;
    /// Reads kind 1007. Not for constant stores. Kept on purpose.
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
    /// Reads kind 1801. Not for constant stores. Kept on purpose.
    bool to3DPlane(KDRPlane3D* out);
    /// Reads kind 1802. Not for constant stores. Kept on purpose.
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
    /// The payload of kind 6. The handle has no such reader. Kept on purpose.
    bool toPointCloudPtr(KDRPointCloud*& out);
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
    /// The payload of kind 504. The handle has no such reader. Kept on purpose.
    bool toRangeImagePtr(KDRRangeImage*& out);
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
    /// The payload of kind 1005. The handle has no such reader. Kept on purpose.
    bool toRangeImageArrayPtr(KDRRangeImageArray*& out);
    /// The payload of kind 1006.
    bool toShapeArrayPtr(KDRShapeArray*& out);
    /// The payload of kind 1007. The handle has no such reader. Kept on purpose.
    bool toPointCloudArrayPtr(KDRPointCloudArray*& out);
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

    /// Adds one to the count, under the store's mutex.
    void incRef();
    /// Takes one from the count, under the store's mutex; at zero, marks the store as disposed and,
    /// the mutex unlocked again, frees it.
    void decRef();
    /// The count, read without a lock.
    int refCount() const;

    /// Locks the store's mutex, which is not recursive, unless the store is disposed. Nothing in
    /// the library calls it: handles exchange stores under their own KDRVariantLock.
    void lock();
    /// Unlocks the store's mutex unless the store is disposed.
    void unlock();

private:
    friend struct KDRInternal;

    KDRDATA_NO_EXPORT KDRVariantPrivate(KDRVariantKind kind, void* payload) noexcept;
    KDRDATA_NO_EXPORT void install(KDRVariantKind kind, void* payload);
    KDRDATA_NO_EXPORT void const* payloadOf(KDRVariantKind kind) const;
    KDRDATA_NO_EXPORT KDRNumber const* number() const;
    template <class Value>
    KDRDATA_NO_EXPORT void writeNumber(Value value);

    std::atomic<int> m_refs;
    KDRVariantKind m_kind;
    void* m_payload;
    QMutex m_mutex;
    bool m_disposed;
    bool m_everShared;
};

#endif
