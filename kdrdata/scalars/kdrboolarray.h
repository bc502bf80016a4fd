#ifndef KDRDATA_KDRBOOLARRAY_H
#define KDRDATA_KDRBOOLARRAY_H

#include <kdrdata/kdrdata_export.h>

template <typename T>
class QList;
struct KDRInternal;

/// A list of flags over Qt's `QList<bool>`.
///
/// The handle owns one list. Copying and assigning an array shares the list's storage (Qt's
/// implicit sharing, an atomic count); the first change on either side detaches, that is, copies
/// the storage. Indexes are `int`, counted from 0. Out of memory is std::bad_alloc and leaves the
/// array as it was.
///
/// @code
/// KDRBoolArray passed;
/// passed.push_back(true);
/// passed[0] = false;
/// @endcode
///
/// Threads: one array may be read from several threads while none changes it, and both operator[]()
/// count as changes. Arrays that share storage may be used from different threads.
class KDRDATA_EXPORT KDRBoolArray
{
public:
    /// An empty array.
    KDRBoolArray();
    /// Shares the storage of @p other; a copy of an empty array has none to share.
    KDRBoolArray(KDRBoolArray const& other);
    /// Gives up this array's share of the storage.
    ~KDRBoolArray();

    /// Shares the storage of @p other and gives up the old one; does nothing where both share
    /// already. Returns this array.
    KDRBoolArray& operator=(KDRBoolArray const& other);

    /// The number of flags.
    int length() const;

    /// Appends @p value, which may be a flag of this array.
    void push_back(bool const& value);
    /// Appends all flags of @p other in order; @p other may be this array itself. A new list is
    /// built and installed; appending to an array that never held storage, or was cleared, shares
    /// the storage of @p other instead, and appending an empty array changes nothing.
    void push_back(KDRBoolArray const& other);

    /// Inserts @p value before @p index. Answers true when 0 <= @p index < length(); otherwise
    /// answers false and changes nothing. The end position is refused, so an empty array takes no
    /// flag this way; append with push_back(). Kept on purpose.
    bool insert(int index, bool const& value);
    /// Removes the flag at @p index. Answers true when 0 <= @p index < length(); otherwise answers
    /// false and changes nothing.
    bool removeAt(int index);
    /// Makes the flag at @p index @p value. Answers true when 0 <= @p index < length(); otherwise
    /// answers false and changes nothing.
    bool replace(int index, bool const& value);
    /// Writes the flag at @p index to @p out, which must not be null. Answers true when
    /// 0 <= @p index < length(), whatever the flag; otherwise answers false and leaves @p out
    /// untouched. Never detaches.
    bool select(int index, bool* out) const;
    /// Exchanges the flags at @p i and @p j, which may be equal. Answers true when both lie in the
    /// array; otherwise answers false and changes nothing.
    bool swap(int i, int j);
    /// Removes all flags.
    void clear();

    /// The flag at @p index, to be written to; the caller guarantees that @p index lies in the
    /// array (asserted in debug builds). Detaches a shared list. The reference is good until the
    /// array is next changed, assigned, copied or destroyed: what is written through it after a
    /// copy may reach the copy too.
    bool& operator[](int index);
    /// The flag at @p index, which the caller guarantees to lie in the array (asserted in debug
    /// builds). Detaches a shared list although the array is constant. Kept on purpose.
    bool operator[](int index) const;

private:
    friend struct KDRInternal;
    QList<bool>* d;
};

#endif
