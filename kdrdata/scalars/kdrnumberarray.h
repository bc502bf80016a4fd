#ifndef KDRDATA_KDRNUMBERARRAY_H
#define KDRDATA_KDRNUMBERARRAY_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/scalars/kdrnumber.h>

template <typename T>
class QList;
struct KDRInternal;

/// A list of numbers over Qt's `QList`.
///
/// The handle owns one list. Copying and assigning an array shares the list's storage (Qt's
/// implicit sharing, an atomic count); the first change on either side detaches, that is, copies
/// the storage. Indexes are `int`, counted from 0.
///
/// Numbers enter the list, and are copied when a shared list detaches, by copy construction, which
/// leaves their range behind (see KDRNumber). Only replace() stores a range into an element and
/// only select() reads it out. Out of memory is std::bad_alloc and leaves the array as it was.
///
/// @code
/// KDRNumberArray areas;
/// areas.push_back(KDRNumber(12.5));
/// KDRNumber first;
/// bool const found = areas.select(0, &first);
/// @endcode
///
/// Threads: one array may be read from several threads while none changes it, and operator[]()
/// counts as a change. Arrays that share storage may be used from different threads.
class KDRDATA_EXPORT KDRNumberArray
{
public:
    /// An empty array.
    KDRNumberArray();
    /// Shares the storage of @p other; a copy of an empty array has none to share.
    KDRNumberArray(KDRNumberArray const& other);
    /// Gives up this array's share of the storage.
    ~KDRNumberArray();

    /// Shares the storage of @p other and gives up the old one. Returns this array.
    KDRNumberArray& operator=(KDRNumberArray const& other);

    /// The number of elements.
    int length() const;

    /// Appends a copy of @p value; its range stays behind.
    void push_back(KDRNumber const& value);
    /// Appends all elements of @p other in order; @p other may be this array itself. A new list is
    /// built and installed, so that all ranges stay behind, those of the old elements too.
    /// Appending to an array that never held storage, or was cleared, shares the storage of
    /// @p other instead, ranges included; one emptied by removeAt() takes copies, without ranges.
    /// Appending an empty array changes nothing.
    void push_back(KDRNumberArray const& other);

    /// Inserts a copy of @p value before @p index. Answers true when 0 <= @p index < length();
    /// otherwise answers false and changes nothing. The end position is refused, so an empty array
    /// takes no element this way; append with push_back(). Kept on purpose.
    bool insert(int index, KDRNumber const& value);
    /// Removes the element at @p index. Answers true when 0 <= @p index < length(); otherwise
    /// answers false and changes nothing.
    bool removeAt(int index);
    /// Assigns @p value, its range included, to the element at @p index. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and changes nothing.
    bool replace(int index, KDRNumber const& value);
    /// Assigns the element at @p index, its range included, to @p out, which must not be null.
    /// Answers true when 0 <= @p index < length(); otherwise answers false and leaves @p out
    /// untouched. Never detaches.
    bool select(int index, KDRNumber* out) const;
    /// Exchanges the elements at @p i and @p j, which may be equal. Answers true when both lie in
    /// the array; otherwise answers false and changes nothing.
    bool swap(int i, int j);
    /// Removes all elements.
    void clear();

    /// A copy, without its range, of the element at @p index, which the caller guarantees to lie in
    /// the array (asserted in debug builds). Detaches a shared list although the array is
    /// constant. Kept on purpose.
    KDRNumber operator[](int index) const;

private:
    friend struct KDRInternal;
    QList<KDRNumber>* d;
};

#endif
