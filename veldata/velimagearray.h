#ifndef VELDATA_VELIMAGEARRAY_H
#define VELDATA_VELIMAGEARRAY_H

#include <veldata/veldata_export.h>
#include <veldata/velimage.h>

template <class E>
class VelList;

/// An ordered list of images.
///
/// Images share their pixels when they are copied, in and out of an array as everywhere: a copy of
/// the array costs one small record per image, and VelImage::DeepCopy() makes pixels independent.
///
/// Operations that answer an int answer 1 for success and 0 for failure; after a failure nothing
/// has changed. Growing throws std::bad_alloc when memory runs out, with nothing changed, and
/// answers 0 beyond INT_MAX elements. One array may be read from several threads at once, but not
/// while one of them changes it.
class VELDATA_EXPORT VelImageArray
{
public:
    /// An empty array; allocates nothing.
    VelImageArray() noexcept;

    /// A copy whose images share their pixels with those of @p other. Throws std::bad_alloc.
    VelImageArray(VelImageArray const& other);

    /// Takes the elements over; @p other is left empty.
    VelImageArray(VelImageArray&& other) noexcept;

    /// Destroys the elements.
    ~VelImageArray();

    /// Becomes a copy, as by copy construction. Throws std::bad_alloc and is then unchanged.
    VelImageArray& operator=(VelImageArray const& other);

    /// Takes the elements over; @p other is left empty. Assigning an array to itself does nothing.
    VelImageArray& operator=(VelImageArray&& other) noexcept;

    /// Adds a copy of @p element, which may be one of this array's own, at the end.
    int Append(VelImage const& element);

    /// Adds copies of all elements of @p other, in order, at the end. Appending an array to itself
    /// doubles it.
    int Append(VelImageArray const& other);

    /// Puts a copy of @p element before the element at @p index, or at the end when @p index is
    /// Length(). Answers 0 for an index outside 0..Length().
    int Insert(int index, VelImage const& element);

    /// Removes the element at @p index; those behind it move up. Answers 0 for an index outside
    /// 0..Length()-1.
    int Remove(int index);

    /// Overwrites the element at @p index with a copy of @p element. Answers 0 for an index outside
    /// 0..Length()-1.
    int Replace(int index, VelImage const& element);

    /// Exchanges two elements; both indexes may be the same. Answers 0 when either is outside
    /// 0..Length()-1.
    int Swap(int first, int second);

    /// Removes all elements and releases their memory. Always answers 1.
    int Clear() noexcept;

    /// The number of elements, 0..INT_MAX.
    int Length() const noexcept;

    /// Copies the element at @p index into @p element. Answers 0, with the output untouched, for an
    /// index outside 0..Length()-1 or a null @p element.
    int Select(int index, VelImage* element) const;

    /// A copy of the element at @p index; a default VelImage for an index outside 0..Length()-1.
    VelImage operator[](int index) const;

private:
    VelList<VelImage>* d;
};

#endif
