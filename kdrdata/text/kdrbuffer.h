#ifndef KDRDATA_KDRBUFFER_H
#define KDRDATA_KDRBUFFER_H

#include <kdrdata/kdrdata_export.h>

class QByteArray;
struct KDRInternal;

/// A byte string.
///
/// A handle over one QByteArray that it owns alone. Copying costs one small allocation for the
/// holder; the bytes are shared by reference count until either copy is changed, and a change of
/// one never shows in the other. Sizes and positions are `int` counts of bytes; the bytes may hold
/// zeros.
///
/// Null and empty are distinct: a null buffer is an empty one that was given no bytes at all.
///
/// Failure: no operation reports one. An allocation that fails throws std::bad_alloc.
///
/// @code
/// KDRBuffer bytes("ab\0cd", 5);
/// KDRBuffer copy = bytes;     // shares the five bytes
/// copy.data()[0] = 'A';       // copy takes its own first
/// char const first = bytes.at(0); // still 'a'
/// @endcode
///
/// Threads: one buffer must not be used by two threads while either changes it, and the `const`
/// data() counts as a change. Buffers that merely share bytes may live in different threads.
class KDRDATA_EXPORT KDRBuffer
{
public:
    /// A null buffer.
    KDRBuffer();
    /// A copy of the @p size bytes at @p data; a negative @p size means up to the terminating
    /// zero. A null @p data gives a null buffer, whatever the size
    /// (QByteArray::QByteArray(char const*, int)).
    KDRBuffer(char const* data, int size = -1);
    /// @p size bytes, each @p ch. A size of zero or less gives an empty buffer that is not null.
    KDRBuffer(int size, char ch);
    /// Shares the bytes of @p other.
    KDRBuffer(KDRBuffer const& other);
    /// Shares the bytes of @p other, which keeps them: a moved-from buffer is unchanged. Costs the
    /// holder's allocation, so it may throw. Kept on purpose.
    KDRBuffer(KDRBuffer&& other);
    /// Gives up the bytes; the last buffer that shares them frees them.
    ~KDRBuffer();

    /// Shares the bytes of @p other. Returns this buffer.
    KDRBuffer& operator=(KDRBuffer const& other);
    /// Shares the bytes of @p other, which keeps them: a moved-from buffer is unchanged. Returns
    /// this buffer. Kept on purpose.
    KDRBuffer& operator=(KDRBuffer&& other);
    /// Takes a copy of the bytes of @p str up to its terminating zero; a null pointer makes this
    /// buffer null. Returns this buffer.
    KDRBuffer& operator=(char const* str);

    /// The number of bytes (QByteArray::size).
    int size() const;
    /// The number of bytes, as size().
    int length() const;
    /// Whether there are no bytes; true of a null buffer too (QByteArray::isEmpty).
    bool isEmpty() const;
    /// Whether this buffer was given no bytes at all (QByteArray::isNull).
    bool isNull() const;
    /// The byte at @p i. The caller sees to 0 <= @p i < size(): only builds with assertions check
    /// it (QByteArray::at).
    char at(int i) const;

    /// The bytes, for reading, followed by a zero byte. Never null and never a copy; valid until
    /// this buffer is next changed or destroyed (QByteArray::constData).
    char const* constData() const;
    /// The bytes, for writing, followed by a zero byte that must stay. Shared bytes are copied
    /// first, so that no other buffer sees the writing. Valid until this buffer is next changed
    /// or destroyed (QByteArray::data).
    char* data();
    /// The same, on a constant buffer: it too copies shared bytes first and lets them be written.
    /// For reading, constData() costs nothing. Kept on purpose.
    char* data() const;

private:
    friend struct KDRInternal;
    QByteArray* d;
};

#endif
