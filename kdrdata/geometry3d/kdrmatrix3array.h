#ifndef KDRDATA_KDRMATRIX3ARRAY_H
#define KDRDATA_KDRMATRIX3ARRAY_H

#include <kdrdata/geometry3d/kdrmatrix3.h>
#include <kdrdata/kdrdata_export.h>

template <typename T>
class QList;
struct KDRInternal;

/// A list of 3 x 3 matrices over Qt's `QList`.
///
/// The handle owns one list. Copying and assigning an array shares the list's storage (Qt's
/// implicit sharing, an atomic count); the first change on either side detaches, that is, copies
/// the storage. Indexes are `int`, counted from 0.
///
/// Length and positions are real, but the elements carry nothing in this version: replace() and
/// select() answer as in every array and change no value. Kept on
/// purpose.
///
/// Out of memory is std::bad_alloc.
///
/// Threads: one array may be read from several threads while none changes it, and operator[]()
/// counts as a change. Arrays that share storage may be used from different threads.
class KDRDATA_EXPORT KDRMatrix3Array
{
public:
    /// An empty array.
    KDRMatrix3Array();
    /// Shares the storage of @p other.
    KDRMatrix3Array(KDRMatrix3Array const& other);
    /// Gives up this array's share of the storage.
    ~KDRMatrix3Array();

    /// Shares the storage of @p other and gives up the old one. Returns this array.
    KDRMatrix3Array& operator=(KDRMatrix3Array const& other);

    /// The number of elements.
    int length() const;

    /// Appends a copy of @p value.
    void push_back(KDRMatrix3 const& value);
    /// Appends all elements of @p other in order; @p other may be this array itself.
    void push_back(KDRMatrix3Array const& other);

    /// Inserts a copy of @p value before @p index. Answers true when 0 <= @p index < length();
    /// otherwise answers false and changes nothing. The end position is refused, so an empty array
    /// takes no element this way; append with push_back(). Kept on purpose.
    bool insert(int index, KDRMatrix3 const& value);
    /// Removes the element at @p index. Answers true when 0 <= @p index < length(); otherwise
    /// answers false and changes nothing.
    bool removeAt(int index);
    /// Assigns @p value to the element at @p index, which carries nothing across. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and changes nothing.
    bool replace(int index, KDRMatrix3 const& value);
    /// Assigns the element at @p index to @p out, which must not be null; that carries nothing
    /// across. Answers true when 0 <= @p index < length(); otherwise answers false and leaves
    /// @p out untouched. Never detaches.
    bool select(int index, KDRMatrix3* out) const;
    /// Exchanges the elements at @p i and @p j, which may be equal. Answers true when both lie in
    /// the array; otherwise answers false and changes nothing.
    bool swap(int i, int j);
    /// Removes all elements.
    void clear();

    /// A copy of the element at @p index, which the caller guarantees to lie in the array (asserted
    /// in debug builds). Detaches a shared list although the array is constant. Kept on purpose.
    KDRMatrix3 operator[](int index) const;

private:
    friend struct KDRInternal;
    QList<KDRMatrix3>* d;
};

#endif
