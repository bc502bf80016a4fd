#ifndef VELDATA_VELVARARRAY_H
#define VELDATA_VELVARARRAY_H

#include <veldata/veldata_export.h>
#include <veldata/velvar.h>

template <class E>
class VelList;

/// An ordered list of variables, each of any type.
///
/// The array owns its elements; copying it copies them deeply.
///
/// Operations that answer an int answer 1 for success and 0 for failure; after a failure nothing
/// has changed. Growing throws std::bad_alloc when memory runs out, with nothing changed, and
/// answers 0 beyond INT_MAX elements. One array may be read from several threads at once, but not
/// while one of them changes it.
class VELDATA_EXPORT VelVarArray
{
public:
    /// An empty array; allocates nothing.
    VelVarArray() noexcept;

    /// A deep copy. Throws std::bad_alloc.
    VelVarArray(VelVarArray const& other);

    /// Takes the elements over; @p other is left empty.
    VelVarArray(VelVarArray&& other) noexcept;

    /// Destroys the elements.
    ~VelVarArray();

    /// Becomes a copy, as by copy construction. Throws std::bad_alloc and is then unchanged.
    VelVarArray& operator=(VelVarArray const& other);

    /// Takes the elements over; @p other is left empty. Assigning an array to itself does nothing.
    VelVarArray& operator=(VelVarArray&& other) noexcept;

    /// Adds a copy of @p element, which may be one of this array's own, at the end.
    int Append(VelVar const& element);

    /// Adds copies of all elements of @p other, in order, at the end. Appending an array to itself
    /// doubles it.
    int Append(VelVarArray const& other);

    /// Puts a copy of @p element before the element at @p index, or at the end when @p index is
    /// Length(). Answers 0 for an index outside 0..Length().
    int Insert(int index, VelVar const& element);

    /// Removes the element at @p index; those behind it move up. Answers 0 for an index outside
    /// 0..Length()-1.
    int Remove(int index);

    /// Overwrites the element at @p index with a copy of @p element. Answers 0 for an index outside
    /// 0..Length()-1.
    int Replace(int index, VelVar const& element);

    /// Exchanges two elements; both indexes may be the same. Answers 0 when either is outside
    /// 0..Length()-1.
    int Swap(int first, int second);

    /// Removes all elements and releases their memory. Always answers 1.
    int Clear() noexcept;

    /// The number of elements, 0..INT_MAX.
    int Length() const noexcept;

    /// Copies the element at @p index into @p element. Answers 0, with the output untouched, for an
    /// index outside 0..Length()-1 or a null @p element.
    int Select(int index, VelVar* element) const;

    /// A copy of the element at @p index; a default VelVar for an index outside 0..Length()-1.
    VelVar operator[](int index) const;

private:
    // Fills a list at once.
    friend class VelRegion;

    VelList<VelVar>* d;
};

#endif
