#ifndef KDRDATA_KDRVARIANTLOCK_H
#define KDRDATA_KDRVARIANTLOCK_H

#include <QtCore/qmutex.h>

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/variant/kdrvariantpayloads.h>

class KDRVariantPrivate;
struct KDRInternal;

/// What each KDRVariant owns: a mutex and one count of a shared store.
///
/// The mutex, which is not recursive, guards this handle's store pointer while handles are copied
/// and assigned; it does not guard the payload. Handles that share a store have a lock each.
///
/// Each constructor makes the mutex, then a store of count 1 from the same argument; where making
/// the store throws, nothing is left behind. A lock is never copied: a handle makes a new one.
///
/// Threads: lock() and unlock() may be called from any thread, each unlock() from the one that
/// locked.
class KDRDATA_EXPORT KDRVariantLock
{
public:
    /// A lock with an empty store, kind 2000.
    KDRVariantLock();
    /// A lock with a store of kind 1.
    KDRVariantLock(int value);
    /// @copydoc KDRVariantLock(int)
    KDRVariantLock(long value);
    /// @copydoc KDRVariantLock(int)
    KDRVariantLock(long long value);
    /// @copydoc KDRVariantLock(int)
    KDRVariantLock(float value);
    /// @copydoc KDRVariantLock(int)
    KDRVariantLock(double value);
    /// A lock with a store of kind 2.
    KDRVariantLock(char const* text);
    /// A lock with a store of kind 0.
    KDRVariantLock(bool value);
    /// A lock with a store of kind 1, made without the number's range.
    KDRVariantLock(KDRNumber const& value);
    /// A lock with a store of kind 2.
    KDRVariantLock(KDRString const& value);
    /// A lock with a store of kind 3.
    KDRVariantLock(KDRPoint const& value);
    /// A lock with a store of kind 4.
    KDRVariantLock(KDRImage const& value);
    /// A lock with a store of kind 5.
    KDRVariantLock(KDRShape const& value);
    /// A lock with a store of kind 6.
    KDRVariantLock(KDRPointCloud const& value);
    /// A lock with a store of kind 7.
    KDRVariantLock(KDRContour const& value);
    /// A lock with a store of kind 8.
    KDRVariantLock(KDRROIAlignment const& value);
    /// A lock with a store of kind 9.
    KDRVariantLock(KDRPose2D const& value);
    /// A lock with a store of kind 10.
    KDRVariantLock(KDRMatrix const& value);
    /// A lock with a store of kind 11.
    KDRVariantLock(KDRBuffer const& value);
    /// A lock with a store of kind 12.
    KDRVariantLock(KDRChar const& value);
    /// A lock with a store of kind 500.
    KDRVariantLock(KDRPoint3D const& value);
    /// A lock with a store of kind 501.
    KDRVariantLock(KDRVector3d const& value);
    /// A lock with a store of kind 502.
    KDRVariantLock(KDRShape3D const& value);
    /// A lock with a store of kind 503.
    KDRVariantLock(KDRPose3D const& value);
    /// A lock with a store of kind 504.
    KDRVariantLock(KDRRangeImage const& value);
    /// A lock with a store of kind 505.
    KDRVariantLock(KDRContour3D const& value);
    /// A lock with a store of kind 1000.
    KDRVariantLock(KDRBoolArray const& value);
    /// A lock with a store of kind 1001.
    KDRVariantLock(KDRNumberArray const& value);
    /// A lock with a store of kind 1002.
    KDRVariantLock(KDRStringArray const& value);
    /// A lock with a store of kind 1003.
    KDRVariantLock(KDRPointArray const& value);
    /// A lock with a store of kind 1004.
    KDRVariantLock(KDRImageArray const& value);
    /// A lock with a store of kind 1005.
    KDRVariantLock(KDRRangeImageArray const& value);
    /// A lock with a store of kind 1006.
    KDRVariantLock(KDRShapeArray const& value);
    /// A lock with a store of kind 1007.
    KDRVariantLock(KDRPointCloudArray const& value);
    /// A lock with a store of kind 1008.
    KDRVariantLock(KDRContourArray const& value);
    /// A lock with a store of kind 1009.
    KDRVariantLock(KDRMatrixArray const& value);
    /// A lock with a store of kind 1010.
    KDRVariantLock(KDRBufferArray const& value);
    /// A lock with a store of kind 1500.
    KDRVariantLock(KDRPoint3DArray const& value);
    /// A lock with a store of kind 1501.
    KDRVariantLock(KDRShape3DArray const& value);
    /// A lock with a store of kind 1502.
    KDRVariantLock(KDRVector3dArray const& value);
    /// A lock with a store of kind 1503.
    KDRVariantLock(KDRContour3DArray const& value);
    /// A lock with a store of kind 1800.
    KDRVariantLock(KDRVariantArray const& value);
    /// A lock with a store of kind 1801.
    KDRVariantLock(KDRPlane3D const& value);
    /// A lock with a store of kind 1802.
    KDRVariantLock(KDRPlane3DArray const& value);
    /// Gives up the lock's count of the store, which frees the store if it was the last.
    ~KDRVariantLock();

    KDRVariantLock(KDRVariantLock const&) = delete;
    KDRVariantLock& operator=(KDRVariantLock const&) = delete;

    /// Locks the mutex; a second call from the same thread deadlocks.
    void lock();
    /// Unlocks the mutex.
    void unlock();

private:
    friend class KDRVariant;
    friend struct KDRInternal;

    // For a handle that is about to share a store.
    enum class Store { None };
    KDRDATA_NO_EXPORT explicit KDRVariantLock(Store) noexcept;

    QMutex m_mutex;
    KDRVariantPrivate* d;
};

#endif
