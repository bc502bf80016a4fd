#ifndef KDRDATA_KDRPOINTARRAY_H
#define KDRDATA_KDRPOINTARRAY_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/vision/kdrpoint.h>

class VelPointArray;
struct KDRInternal;

/// An ordered list of points.
///
/// Only coordinates (pixels) travel into and out of the list: the ranges of a point are not kept.
///
/// The handle owns one core-library array (`VelPointArray`) and forwards to its operations of the
/// same names. Copies are deep. Indexes are `int`, counted from 0.
///
/// Out of memory is std::bad_alloc and leaves the array as it was.
///
/// Threads: one array may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRPointArray
{
public:
    /// An empty array.
    KDRPointArray();
    /// Copies the elements of @p other through the core array's assignment.
    KDRPointArray(KDRPointArray const& other);
    /// Destroys the core array.
    ~KDRPointArray();

    /// Copies the elements of @p other through the core array's assignment. Returns this array.
    KDRPointArray& operator=(KDRPointArray const& other);

    /// The number of elements.
    int length() const;

    /// Appends the coordinates of @p value.
    void push_back(KDRPoint const& value);
    /// Appends all elements of @p other in order; @p other may be this array itself.
    void push_back(KDRPointArray const& other);

    /// Removes the element at @p index. Answers true when 0 <= @p index < length(); otherwise
    /// answers false and changes nothing.
    bool removeAt(int index);
    /// Writes the coordinates of the element at @p index into @p out, which must not be null; the
    /// ranges of @p out stay as they were. Answers true when 0 <= @p index < length();
    /// otherwise answers false and leaves @p out untouched.
    bool select(int index, KDRPoint* out) const;
    /// Replaces the element at @p index by the coordinates of @p value. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and changes nothing.
    bool replace(int index, KDRPoint const& value);
    /// Inserts the coordinates of @p value before @p index. Answers true when 0 <= @p index <
    /// length(); otherwise answers false and changes nothing. The end position is refused, so an
    /// empty array takes no element this way; append with push_back(). Kept on purpose.
    bool insert(int index, KDRPoint const& value);
    /// Removes all elements.
    void clear();
    /// Exchanges the elements at @p i and @p j, which may be equal. Answers true when both lie in
    /// the array; otherwise answers false and changes nothing.
    bool swap(int i, int j);

    /// A new point with the coordinates of the element at @p index and the default ranges. The
    /// index is not checked here: one outside the array goes to the core library as it is, and what
    /// comes back is that library's choice.
    KDRPoint operator[](int index) const;

private:
    friend struct KDRInternal;
    VelPointArray* d;
};

#endif
