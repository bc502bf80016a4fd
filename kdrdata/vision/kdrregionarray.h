#ifndef KDRDATA_KDRREGIONARRAY_H
#define KDRDATA_KDRREGIONARRAY_H

#include <kdrdata/kdrdata_export.h>
#include <kdrdata/vision/kdrregion.h>

class VelRegionArray;
struct KDRInternal;

/// An ordered list of regions.
///
/// The handle owns one core-library array (`VelRegionArray`) and forwards to its operations of the
/// same names; regions enter and leave the list as copies. Indexes are `int`, counted from 0. Where
/// memory runs out, operations throw std::bad_alloc and the array stays as it was.
///
/// @code
/// KDRRegion all;
/// blobs.toUnionedRegion(&all);
/// @endcode
///
/// Threads: one array may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRRegionArray
{
public:
    /// An empty array.
    KDRRegionArray();
    /// Copies the elements of @p other through the core array's copy construction.
    KDRRegionArray(KDRRegionArray const& other);
    /// Destroys the core array.
    ~KDRRegionArray();

    /// Copies the elements of @p other through the core array's assignment. Returns this array.
    KDRRegionArray& operator=(KDRRegionArray const& other);

    /// The number of elements.
    int length() const;

    /// Appends a copy of @p value.
    void push_back(KDRRegion const& value);
    /// Appends all elements of @p other in order; @p other may be this array itself.
    void push_back(KDRRegionArray const& other);

    /// Removes the element at @p index. Answers true when 0 <= @p index < length(); otherwise
    /// answers false and changes nothing.
    bool removeAt(int index);
    /// Assigns the element at @p index to @p out, which must not be null. Answers true when
    /// 0 <= @p index < length(); otherwise answers false and leaves @p out untouched.
    bool select(int index, KDRRegion* out) const;
    /// Assigns @p value to the element at @p index. Answers true when 0 <= @p index < length();
    /// otherwise answers false and changes nothing.
    bool replace(int index, KDRRegion const& value);
    /// Inserts a copy of @p value before @p index. Answers true when 0 <= @p index < length();
    /// otherwise answers false and changes nothing. The end position is refused, so an empty array
    /// takes no element this way; append with push_back(). Kept on purpose.
    bool insert(int index, KDRRegion const& value);
    /// Removes all elements.
    void clear();
    /// Exchanges the elements at @p i and @p j, which may be equal. Answers true when both lie in
    /// the array; otherwise answers false and changes nothing.
    bool swap(int i, int j);

    /// A copy of the element at @p index. The index is not checked here: one outside the array goes
    /// to the core library as it is, and what comes back is that library's choice.
    KDRRegion operator[](int index) const;

    /// Replaces @p region, which must not be null, by the pixels that lie in any of the array's
    /// regions (the core array's `Union`): an empty region for an empty array. Its extent is the
    /// core library's choice. Nothing is reported; where memory runs out, @p region stays as it
    /// was. Not for constant arrays. Kept on purpose.
    void toUnionedRegion(KDRRegion* region);

private:
    friend struct KDRInternal;
    VelRegionArray* d;
};

#endif
