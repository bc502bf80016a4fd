#ifndef KDRDATA_KDRBUFFERARRAY_H
#define KDRDATA_KDRBUFFERARRAY_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/text/kdrbuffer.h>

template <typename T>
class QList;
struct KDRInternal;

/// A list of buffers over Qt's `QList`.
///
/// The handle owns one list. Copying and assigning an array shares the list's storage (Qt's
/// implicit sharing, an atomic count); the first change on either side detaches, that is, copies
/// the list of handles. The bytes are shared all the while: an element that enters, leaves or is
/// copied costs its holder and copies no byte. Indexes are `int`, counted from 0.
///
/// Out of memory is std::bad_alloc and leaves the array as it was.
///
/// @code
/// KDRBufferArray parts;
/// parts.push_back(KDRBuffer("ab"));
/// parts.push_back(KDRBuffer("cd"));
/// KDRBuffer const whole = parts.join(); // "abcd"
/// @endcode
///
/// Threads: one array may be read from several threads while none changes it, and operator[]() and
/// join() count as changes. Arrays that share storage may be used from different threads.
class KDRDATA_EXPORT KDRBufferArray
{
public:
    /// An empty array.
    KDRBufferArray();
    /// Shares the storage of @p other.
    KDRBufferArray(KDRBufferArray const& other);
    /// Gives up this array's share of the storage.
    ~KDRBufferArray();

    /// Shares the storage of @p other and gives up the old one. Returns this array.
    KDRBufferArray& operator=(KDRBufferArray const& other);

    /// The number of elements.
    int length() const;

    /// Appends a buffer sharing the bytes of @p value.
    void push_back(KDRBuffer const& value);
    /// Appends all elements of @p other in order; @p other may be this array itself.
    void push_back(KDRBufferArray const& other);

    /// Inserts a buffer sharing the bytes of @p value before @p index. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and changes nothing. The end position is
    /// refused, so an empty array takes no element this way; append with push_back(). Kept on
    /// purpose.
    bool insert(int index, KDRBuffer const& value);
    /// Removes the element at @p index. Answers true when 0 <= @p index < length(); otherwise
    /// answers false and changes nothing.
    bool removeAt(int index);
    /// Makes the element at @p index share the bytes of @p value. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and changes nothing.
    bool replace(int index, KDRBuffer const& value);
    /// Makes @p out, which must not be null, share the bytes of the element at @p index. Answers
    /// true when 0 <= @p index < length(); otherwise answers false and leaves @p out untouched.
    /// Never detaches.
    bool select(int index, KDRBuffer* out) const;
    /// Exchanges the elements at @p i and @p j, which may be equal. Answers true when both lie in
    /// the array; otherwise answers false and changes nothing.
    bool swap(int i, int j);
    /// Removes all elements.
    void clear();

    /// A buffer sharing the bytes of the element at @p index, which the caller guarantees to lie in
    /// the array (asserted in debug builds). Detaches a shared list although the array is
    /// constant. Kept on purpose.
    KDRBuffer operator[](int index) const;

    /// All elements' bytes in order, with nothing between them; a null buffer where there are no
    /// elements or only null ones. One element alone is shared, not copied. Not for constant
    /// arrays: it detaches a shared list. Kept on purpose. Throws std::bad_alloc where the sum is
    /// more than an `int` counts.
    KDRBuffer join();

private:
    friend struct KDRInternal;
    QList<KDRBuffer>* d;
};

#endif
