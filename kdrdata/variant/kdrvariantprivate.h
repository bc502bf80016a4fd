#ifndef KDRDATA_KDRVARIANTPRIVATE_H
#define KDRDATA_KDRVARIANTPRIVATE_H

#include <QtCore/qmutex.h>

#include <atomic>

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/variant/kdrvariantkind.h>

class KDRBuffer;
class KDRBufferArray;
class KDRChar;
class KDRContour;
class KDRContourArray;
class KDRImage;
class KDRImageArray;
class KDRNumber;
class KDRNumberArray;
class KDRPoint;
class KDRPointArray;
class KDRString;
class KDRStringArray;
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
    /// range.
    KDRVariantPrivate(KDRNumber const& value);
    /// A store of kind 2 holding a copy of @p value that shares its text.
    KDRVariantPrivate(KDRString const& value);
    /// A store of kind 12 holding a copy of @p value.
    KDRVariantPrivate(KDRChar const& value);
    /// A store of kind 3 holding a copy of @p value.
    KDRVariantPrivate(KDRPoint const& value);
    /// A store of kind 4 holding a copy of @p value that shares its pixels.
    KDRVariantPrivate(KDRImage const& value);
    /// A store of kind 7 holding a copy of @p value.
    KDRVariantPrivate(KDRContour const& value);
    /// A store of kind 11 holding a copy of @p value that shares its bytes.
    KDRVariantPrivate(KDRBuffer const& value);
    /// A store of kind 1001 holding a copy of @p value that shares its list.
    KDRVariantPrivate(KDRNumberArray const& value);
    /// A store of kind 1002 holding a copy of @p value that shares its list.
    KDRVariantPrivate(KDRStringArray const& value);
    /// A store of kind 1003 holding a copy of @p value.
    KDRVariantPrivate(KDRPointArray const& value);
    /// A store of kind 1004 holding a copy of @p value whose images share their pixels.
    KDRVariantPrivate(KDRImageArray const& value);
    /// A store of kind 1008 holding a copy of @p value.
    KDRVariantPrivate(KDRContourArray const& value);
    /// A store of kind 1010 holding a copy of @p value that shares its list.
    KDRVariantPrivate(KDRBufferArray const& value);

    /// A store of its own, count 1, with a deep copy of the payload of @p other: a payload object
    /// is made by default and assigned to, so that a number keeps its range. A null payload gives a
    /// null payload of the same kind.
    KDRVariantPrivate(KDRVariantPrivate const& other);
    /// Frees the payload. Whoever shares a store gives it up with decRef() instead.
    ~KDRVariantPrivate();

    /// Frees the payload, then takes over kind and `disposed` flag of @p other and a deep copy of
    /// its payload; the count is not touched. A null payload gives a null payload of the same kind,
    /// and so does assigning a store to itself, whose payload is gone by then. Where the copy
    /// throws, this store has the kind of @p other and no payload. Kept on purpose. Returns this
    /// store.
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
    /// Makes this a store of kind 1 holding a copy of @p value without its range.
    void fromNumber(KDRNumber const& value);
    /// Makes this a store of kind 2 holding a copy of @p value that shares its text.
    void fromString(KDRString const& value);
    /// Makes this a store of kind 12 holding a copy of @p value.
    void fromChar(KDRChar const& value);
    /// Makes this a store of kind 3 holding a copy of @p value.
    void fromPoint(KDRPoint const& value);
    /// Makes this a store of kind 4 holding a copy of @p value that shares its pixels.
    void fromImage(KDRImage const& value);
    /// Makes this a store of kind 7 holding a copy of @p value.
    void fromContour(KDRContour const& value);
    /// Makes this a store of kind 11 holding a copy of @p value that shares its bytes.
    void fromBuffer(KDRBuffer const& value);
    /// Makes this a store of kind 1001 holding a copy of @p value that shares its list.
    void fromNumberArray(KDRNumberArray const& value);
    /// Makes this a store of kind 1002 holding a copy of @p value that shares its list.
    void fromStringArray(KDRStringArray const& value);
    /// Makes this a store of kind 1003 holding a copy of @p value.
    void fromPointArray(KDRPointArray const& value);
    /// Makes this a store of kind 1004 holding a copy of @p value whose images share their pixels.
    void fromImageArray(KDRImageArray const& value);
    /// Makes this a store of kind 1008 holding a copy of @p value.
    void fromContourArray(KDRContourArray const& value);
    /// Makes this a store of kind 1010 holding a copy of @p value that shares its list.
    void fromBufferArray(KDRBufferArray const& value);

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
    /// Reads kind 12.
    bool toChar(KDRChar* out) const;
    /// Reads kind 3, ranges included.
    bool toPoint(KDRPoint* out) const;
    /// Reads kind 4; the output shares the pixels.
    bool toImage(KDRImage* out) const;
    /// Reads kind 7.
    bool toContour(KDRContour* out) const;
    /// Reads kind 11; the output shares the bytes.
    bool toBuffer(KDRBuffer* out) const;
    /// Reads kind 1001; the output shares the list.
    bool toNumberArray(KDRNumberArray* out) const;
    /// Reads kind 1002; the output shares the list.
    bool toStringArray(KDRStringArray* out) const;
    /// Reads kind 1003.
    bool toPointArray(KDRPointArray* out) const;
    /// Reads kind 1004; the images of the output share their pixels.
    bool toImageArray(KDRImageArray* out) const;
    /// Reads kind 1008.
    bool toContourArray(KDRContourArray* out) const;
    /// Reads kind 1010; the output shares the list.
    bool toBufferArray(KDRBufferArray* out) const;

    /// The payload of kind 1.
    bool toNumberPtr(KDRNumber*& out);
    /// The payload of kind 2.
    bool toStringPtr(KDRString*& out);
    /// The payload of kind 12.
    bool toCharPtr(KDRChar*& out);
    /// The payload of kind 3.
    bool toPointPtr(KDRPoint*& out);
    /// The payload of kind 4.
    bool toImagePtr(KDRImage*& out);
    /// The payload of kind 7.
    bool toContourPtr(KDRContour*& out);
    /// The payload of kind 11.
    bool toBufferPtr(KDRBuffer*& out);
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
    /// The payload of kind 1008.
    bool toContourArrayPtr(KDRContourArray*& out);
    /// The payload of kind 1010.
    bool toBufferArrayPtr(KDRBufferArray*& out);

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

    std::atomic<int> m_refs;
    KDRVariantKind m_kind;
    void* m_payload;
    QMutex m_mutex;
    bool m_disposed;
};

#endif
