#ifndef VELDATA_VELREGION_H
#define VELDATA_VELREGION_H

#include <memory>

#include <veldata/veldata_export.h>

class VelRuns;
class VelVarArray;

/// A set of pixels, and the extent of the image that they belong to.
///
/// The pixels are held in runs: a row, a first column and a last column, both inclusive.
/// Coordinates are 64-bit, may be negative and are not clipped to the extent. Whatever runs a
/// region is made of, it keeps them sorted by row, then column, with overlapping and touching runs
/// of a row merged into one: regions of the same pixels have the same runs.
///
/// Copies share the runs, which never change once they are made, so that copying is cheap and never
/// fails; a moved-from region is empty. One region may be read from several threads at once, but
/// not while one of them changes it; regions that share runs may be copied, assigned and destroyed
/// in different threads.
class VELDATA_EXPORT VelRegion
{
public:
    /// A region without pixels, with the extent 0 x 0; allocates nothing.
    VelRegion() noexcept;

    /// The region of the given runs with the extent 0 x 0. The elements at equal positions of the
    /// three lists are one run, each read as VelVar::L() reads it. @p rows tells the number of
    /// runs: what the other lists lack counts as 0, what they have beyond is ignored. A run whose
    /// last column lies before its first has no pixels. Throws std::bad_alloc.
    ///
    /// Takes n log n time for n runs, and linear time where they are sorted already.
    VelRegion(VelVarArray const& rows, VelVarArray const& firstColumns,
              VelVarArray const& lastColumns);

    /// As above, with the extent @p width x @p height in pixels, carried as it is given; a negative
    /// @p width gives 0 x 0.
    VelRegion(int width, int height, VelVarArray const& rows, VelVarArray const& firstColumns,
              VelVarArray const& lastColumns);

    /// The same pixels and extent; the runs are shared.
    VelRegion(VelRegion const& other) noexcept;

    /// Takes pixels and extent over; @p other is left empty, with the extent 0 x 0.
    VelRegion(VelRegion&& other) noexcept;

    /// Releases the runs if no other region shares them.
    ~VelRegion();

    /// Becomes the same pixels and extent; the runs are shared.
    VelRegion& operator=(VelRegion const& other) noexcept;

    /// Takes pixels and extent over; @p other is left empty, with the extent 0 x 0. Assigning a
    /// region to itself does nothing.
    VelRegion& operator=(VelRegion&& other) noexcept;

    /// The width of the extent in pixels.
    int Width() const noexcept;

    /// The height of the extent in pixels.
    int Height() const noexcept;

    /// Replaces the contents of the three lists by the runs, in order: rows, first columns and last
    /// columns, all integers. Answers 1, or 0 with nothing changed if one of the lists is null, if
    /// two of them are the same one, or if there are more than INT_MAX runs. Throws std::bad_alloc,
    /// with nothing changed.
    int GetRegionRuns(VelVarArray* rows, VelVarArray* firstColumns, VelVarArray* lastColumns) const;

    /// Replaces the region by the one of @p count runs, of each of which @p numbers holds the row,
    /// the first and the last column, one behind the other; what the constructors say of runs and
    /// extents holds. Answers 1, or 0 with nothing changed for a negative count and for null with
    /// any other count than 0. Throws std::bad_alloc, with nothing changed.
    int SetRuns(int width, int height, long const* numbers, long count);

    /// The number of runs.
    long RunCount() const noexcept;

    /// Writes the runs, in order and as SetRuns() takes them, to @p numbers, which has room for
    /// three times RunCount().
    void CopyRuns(long* numbers) const noexcept;

private:
    friend class VelRegionArray;

    /// Null where there are no pixels.
    std::shared_ptr<VelRuns const> runs;
    int extentWidth;
    int extentHeight;
};

#endif
