#ifndef KDRDATA_KDRVARIANTLOCK_H
#define KDRDATA_KDRVARIANTLOCK_H

#include <QtCore/qmutex.h>

#include <kdrdata/kdrdata_export.h>

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
    /// A lock with a store of kind 12.
    KDRVariantLock(KDRChar const& value);
    /// A lock with a store of kind 3.
    KDRVariantLock(KDRPoint const& value);
    /// A lock with a store of kind 4.
    KDRVariantLock(KDRImage const& value);
    /// A lock with a store of kind 7.
    KDRVariantLock(KDRContour const& value);
    /// A lock with a store of kind 11.
    KDRVariantLock(KDRBuffer const& value);
    /// A lock with a store of kind 1001.
    KDRVariantLock(KDRNumberArray const& value);
    /// A lock with a store of kind 1002.
    KDRVariantLock(KDRStringArray const& value);
    /// A lock with a store of kind 1003.
    KDRVariantLock(KDRPointArray const& value);
    /// A lock with a store of kind 1004.
    KDRVariantLock(KDRImageArray const& value);
    /// A lock with a store of kind 1008.
    KDRVariantLock(KDRContourArray const& value);
    /// A lock with a store of kind 1010.
    KDRVariantLock(KDRBufferArray const& value);
    /// Gives up the lock's count of the store, which frees the store if it was the last.
    ~KDRVariantLock();

    KDRVariantLock(KDRVariantLock const&) = delete;
    KDRVariantLock& operator=(KDRVariantLock const&) = delete;

    /// Locks the mutex; a second call from the same thread deadlocks.
    void lock();
    /// Unlocks the mutex.
    void unlock();

private:
    friend struct KDRInternal;
    QMutex m_mutex;
    KDRVariantPrivate* d;
};

#endif
