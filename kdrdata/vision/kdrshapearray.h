#ifndef KDRDATA_KDRSHAPEARRAY_H
#define KDRDATA_KDRSHAPEARRAY_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/vision/kdrshape.h>

template <typename T>
class QList;
struct KDRInternal;

/// A list of shapes over Qt's `QList`.
///
/// The handle owns one list. Copying and assigning an array shares the list's storage (Qt's
/// implicit sharing, an atomic count); the first change on either side detaches, that is, copies
/// the storage. Shapes that enter the list, leave it, or are copied when it detaches share their
/// records; a generator called on any of them leaves the others as they were. Indexes are `int`,
/// counted from 0.
///
/// Out of memory is std::bad_alloc and leaves the array as it was.
///
/// @code
/// KDRShapeArray cells;
/// cells.push_back(circle);
/// KDRShape first;
/// bool const found = cells.select(0, &first);
/// @endcode
///
/// Threads: one array may be read from several threads while none changes it, and operator[]()
/// counts as a change. Arrays that share storage may be used from different threads.
class KDRDATA_EXPORT KDRShapeArray
{
public:
    /// An empty array.
    KDRShapeArray();
    /// Shares the storage of @p other.
    KDRShapeArray(KDRShapeArray const& other);
    /// Gives up this array's share of the storage.
    ~KDRShapeArray();

    /// Shares the storage of @p other and gives up the old one. Returns this array.
    KDRShapeArray& operator=(KDRShapeArray const& other);

    /// The number of elements.
    int length() const;

    /// Appends @p value.
    void push_back(KDRShape const& value);
    /// Appends all elements of @p other in order; @p other may be this array itself. Appending to
    /// an empty array shares the storage of @p other instead, and appending an empty array changes
    /// nothing.
    void push_back(KDRShapeArray const& other);

    /// Inserts @p value before @p index. Answers true when 0 <= @p index < length(); otherwise
    /// answers false and changes nothing. The end position is refused, so an empty array takes no
    /// element this way; append with push_back(). Kept on purpose.
    bool insert(int index, KDRShape const& value);
    /// Removes the element at @p index. Answers true when 0 <= @p index < length(); otherwise
    /// answers false and changes nothing.
    bool removeAt(int index);
    /// Replaces the element at @p index by @p value. Answers true when 0 <= @p index < length();
    /// otherwise answers false and changes nothing.
    bool replace(int index, KDRShape const& value);
    /// Assigns the element at @p index to @p out, which must not be null. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and leaves @p out untouched. Never
    /// detaches.
    bool select(int index, KDRShape* out) const;
    /// Exchanges the elements at @p i and @p j, which may be equal. Answers true when both lie in
    /// the array; otherwise answers false and changes nothing.
    bool swap(int i, int j);
    /// Removes all elements.
    void clear();

    /// The element at @p index, which the caller guarantees to lie in the array (asserted in debug
    /// builds). Detaches a shared list although the array is constant. Kept on purpose.
    KDRShape operator[](int index) const;

private:
    friend struct KDRInternal;
    QList<KDRShape>* d;
};

#endif
