#ifndef KDRDATA_KDRENUMARRAY_H
#define KDRDATA_KDRENUMARRAY_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/scalars/kdrenum.h>

template <typename T>
class QList;
struct KDRInternal;

/// A list of selections over Qt's `QList`.
///
/// The handle owns one list. Copying and assigning an array shares the list's storage (Qt's
/// implicit sharing, an atomic count); the first change on either side detaches, that is, copies
/// the storage and every selection in it. Indexes are `int`, counted from 0. Out of memory is
/// std::bad_alloc and leaves the array as it was.
///
/// @code
/// KDREnumArray selections;
/// selections.push_back(KDREnum());
/// KDREnum first;
/// bool const found = selections.select(0, &first);
/// @endcode
///
/// Threads: one array may be read from several threads while none changes it, and operator[]()
/// counts as a change. Arrays that share storage may be used from different threads.
class KDRDATA_EXPORT KDREnumArray
{
public:
    /// An empty array.
    KDREnumArray();
    /// Shares the storage of @p other; a copy of an empty array has none to share.
    KDREnumArray(KDREnumArray const& other);
    /// Gives up this array's share of the storage.
    ~KDREnumArray();

    /// Shares the storage of @p other and gives up the old one. Returns this array.
    KDREnumArray& operator=(KDREnumArray const& other);

    /// The number of elements.
    int length() const;

    /// Appends a copy of @p value.
    void push_back(KDREnum const& value);
    /// Appends all elements of @p other in order; @p other may be this array itself. A new list is
    /// built and installed; appending to an array that never held storage, or was cleared, shares
    /// the storage of @p other instead, and appending an empty array changes nothing.
    void push_back(KDREnumArray const& other);

    /// Inserts a copy of @p value before @p index. Answers true when 0 <= @p index < length();
    /// otherwise answers false and changes nothing. The end position is refused, so an empty array
    /// takes no element this way; append with push_back(). Kept on purpose.
    bool insert(int index, KDREnum const& value);
    /// Removes the element at @p index. Answers true when 0 <= @p index < length(); otherwise
    /// answers false and changes nothing.
    bool removeAt(int index);
    /// Assigns @p value to the element at @p index. Answers true when 0 <= @p index < length();
    /// otherwise answers false and changes nothing.
    bool replace(int index, KDREnum const& value);
    /// Assigns the element at @p index to @p out, which must not be null. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and leaves @p out untouched. Never
    /// detaches.
    bool select(int index, KDREnum* out) const;
    /// Exchanges the elements at @p i and @p j, which may be equal. Answers true when both lie in
    /// the array; otherwise answers false and changes nothing.
    bool swap(int i, int j);
    /// Removes all elements.
    void clear();

    /// A copy of the element at @p index, which the caller guarantees to lie in the array (asserted
    /// in debug builds). Detaches a shared list although the array is constant. Kept on purpose.
    KDREnum operator[](int index) const;

private:
    friend struct KDRInternal;
    QList<KDREnum>* d;
};

#endif
