#ifndef VELDATA_VELREGIONARRAY_H
#define VELDATA_VELREGIONARRAY_H

#include <veldata/veldata_export.h>
#include <veldata/velregion.h>

template <class E>
class VelList;

/// An ordered list of regions.
///
/// Regions share their runs when they are copied, in and out of an array as everywhere: a copy of
/// the array costs one small record per region.
///
/// Operations that answer an int answer 1 for success and 0 for failure; after a failure nothing
/// has changed. Growing throws std::bad_alloc when memory runs out, with nothing changed, and
/// answers 0 beyond INT_MAX elements. One array may be read from several threads at once, but not
/// while one of them changes it.
class VELDATA_EXPORT VelRegionArray
{
public:
    /// An empty array; allocates nothing.
    VelRegionArray() noexcept;

    /// A copy whose regions share their runs with those of @p other. Throws std::bad_alloc.
    VelRegionArray(VelRegionArray const& other);

    /// Takes the elements over; @p other is left empty.
    VelRegionArray(VelRegionArray&& other) noexcept;

    /// Destroys the elements.
    ~VelRegionArray();

    /// Becomes a copy, as by copy construction. Throws std::bad_alloc and is then unchanged.
    VelRegionArray& operator=(VelRegionArray const& other);

    /// Takes the elements over; @p other is left empty. Assigning an array to itself does nothing.
    VelRegionArray& operator=(VelRegionArray&& other) noexcept;

    /// Adds a copy of @p element, which may be one of this array's own, at the end.
    int Append(VelRegion const& element);

    /// Adds copies of all elements of @p other, in order, at the end. Appending an array to itself
    /// doubles it.
    int Append(VelRegionArray const& other);

    /// Puts a copy of @p element before the element at @p index, or at the end when @p index is
    /// Length(). Answers 0 for an index outside 0..Length().
    int Insert(int index, VelRegion const& element);

    /// Removes the element at @p index; those behind it move up. Answers 0 for an index outside
    /// 0..Length()-1.
    int Remove(int index);

    /// Overwrites the element at @p index with a copy of @p element. Answers 0 for an index outside
    /// 0..Length()-1.
    int Replace(int index, VelRegion const& element);

    /// Exchanges two elements; both indexes may be the same. Answers 0 when either is outside
    /// 0..Length()-1.
    int Swap(int first, int second);

    /// Removes all elements and releases their memory. Always answers 1.
    int Clear() noexcept;

    /// The number of elements, 0..INT_MAX.
    int Length() const noexcept;

    /// Copies the element at @p index into @p element. Answers 0, with the output untouched, for an
    /// index outside 0..Length()-1 or a null @p element.
    int Select(int index, VelRegion* element) const;

    /// A copy of the element at @p index; a default VelRegion for an index outside 0..Length()-1.
    VelRegion operator[](int index) const;

    /// Replaces @p region by the pixels that lie in any of the elements; its extent is the largest
    /// width and the largest height among them. An empty array gives an empty region with the
    /// extent 0 x 0. @p region may be an element's copy or hold any other pixels, which do not
    /// count. Answers 1, or 0 for null. Throws std::bad_alloc, with @p region unchanged.
    ///
    /// Takes n log n time for n runs in all the elements together.
    int Union(VelRegion* region) const;

private:
    VelList<VelRegion>* d;
};

#endif
