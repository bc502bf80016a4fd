#ifndef KDRDATA_KDRMATRIXARRAY_H
#define KDRDATA_KDRMATRIXARRAY_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/vision/kdrmatrix.h>

class VelMatrixArray;
struct KDRInternal;

/// An ordered list of matrices.
///
/// The handle owns one core-library array (`VelMatrixArray`) and forwards to its operations of the
/// same names. Copies are deep. Indexes are `int`, counted from 0.
///
/// Out of memory is std::bad_alloc and leaves the array as it was.
///
/// Threads: one array may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRMatrixArray
{
public:
    /// An empty array.
    KDRMatrixArray();
    /// Copies the elements of @p other through the core array's assignment.
    KDRMatrixArray(KDRMatrixArray const& other);
    /// Destroys the core array.
    ~KDRMatrixArray();

    /// Copies the elements of @p other through the core array's assignment. Returns this array.
    KDRMatrixArray& operator=(KDRMatrixArray const& other);

    /// The number of elements.
    int length() const;

    /// Appends a copy of @p value.
    void push_back(KDRMatrix const& value);
    /// Appends all elements of @p other in order; @p other may be this array itself.
    void push_back(KDRMatrixArray const& other);

    /// Removes the element at @p index. Answers true when 0 <= @p index < length(); otherwise
    /// answers false and changes nothing.
    bool removeAt(int index);
    /// Assigns the element at @p index to @p out, which must not be null. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and leaves @p out untouched.
    bool select(int index, KDRMatrix* out) const;
    /// Replaces the element at @p index by a copy of @p value. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and changes nothing.
    bool replace(int index, KDRMatrix const& value);
    /// Inserts a copy of @p value before @p index. Answers true when 0 <= @p index < length();
    /// otherwise answers false and changes nothing. The end position is refused, so an empty array
    /// takes no element this way; append with push_back(). Kept on purpose.
    bool insert(int index, KDRMatrix const& value);
    /// Removes all elements.
    void clear();
    /// Exchanges the elements at @p i and @p j, which may be equal. Answers true when both lie in
    /// the array; otherwise answers false and changes nothing.
    bool swap(int i, int j);

    /// A copy of the element at @p index, made through the core matrix's assignment. The index is
    /// not checked here: one outside the array goes to the core library as it is, and what comes
    /// back is that library's choice.
    KDRMatrix operator[](int index) const;

private:
    friend struct KDRInternal;
    VelMatrixArray* d;
};

#endif
