#ifndef KDRDATA_KDRREGION_H
#define KDRDATA_KDRREGION_H

#include <kdrdata/kdrdata_export.h>

class KDRImage;
class KDRNumberArray;
class VelRegion;
struct KDRInternal;

/// A set of image pixels, such as the result of a threshold or a segmentation.
///
/// The pixels are kept in run-length form: each run is a row, a first column and a last column,
/// both inclusive, in pixels. Coordinates may be negative and may lie outside the extent (width and
/// height), which only tells the size of the image that the region belongs to.
///
/// The handle owns one core-library region (`VelRegion`) and forwards to it; copies go through the
/// core region's assignment and are independent of the original. Where memory runs out, operations
/// throw std::bad_alloc.
///
/// @code
/// KDRNumberArray rows, firstColumns, lastColumns;
/// rows.push_back(KDRNumber(12));
/// firstColumns.push_back(KDRNumber(3));
/// lastColumns.push_back(KDRNumber(7));
/// KDRRegion fivePixels;
/// fivePixels.fromRunLengthEncodeing(rows, firstColumns, lastColumns, 640, 480);
/// @endcode
///
/// Threads: one region may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRRegion
{
public:
    /// A region without pixels, with the extent 0 x 0.
    KDRRegion();
    /// Copies the pixels and the extent of @p other.
    KDRRegion(KDRRegion const& other);
    /// Destroys the core region.
    ~KDRRegion();

    /// Copies the pixels and the extent of @p other. Returns this region.
    KDRRegion& operator=(KDRRegion const& other);

    /// The width of the extent in pixels (the core region's `Width`). Not for constant regions.
    /// Kept on purpose.
    int width();
    /// The height of the extent in pixels (the core region's `Height`). Not for constant regions.
    /// Kept on purpose.
    int height();

    /// Does nothing, neither to the region nor to the image. Kept on purpose.
    void fromBinImage(KDRImage&);
    /// Answers false and writes nothing; the image may be null. Not for constant regions. Kept on
    /// purpose.
    bool toBinImage(KDRImage*);

    /// Replaces the region by the one made of the given runs: the numbers at equal positions of the
    /// three lists are the row, the first and the last column of one run, read by
    /// KDRNumber::toLong(). Runs may come in any order and may overlap; how they are put together
    /// is the core library's (`VelRegion`'s constructors).
    ///
    /// The first list tells the number of runs. The others must not be shorter (asserted in debug
    /// builds); where one is, its missing numbers count as 0, and what goes beyond the first list
    /// is passed over. The lists are not changed, and yet must not be constant; one list may be
    /// given more than once.
    ///
    /// The extent is @p width x @p height in pixels if @p width is 0 or more, whatever the height;
    /// if it is negative, the region is made from the lists alone and the height is ignored. Kept
    /// on purpose.
    ///
    /// Takes time in proportion to the number of runs where they come in order of row and column.
    /// Throws std::bad_alloc where memory runs out; the region is then what it was. The spelling is
    /// the interface's own. Kept on purpose.
    void fromRunLengthEncodeing(KDRNumberArray& rows, KDRNumberArray& firstColumns,
                                KDRNumberArray& lastColumns, int width, int height);
    /// Replaces the contents of the three lists by the region's runs, as integers without a range,
    /// in the order of the core region's `GetRegionRuns`. Always answers true. Not for constant
    /// regions. Kept on purpose.
    ///
    /// None of the lists may be null (asserted in debug builds). Each should be another one: a list
    /// given more than once receives the numbers of its columns in turn, run by run.
    ///
    /// Takes time in proportion to the number of runs. Throws std::bad_alloc where memory runs out;
    /// the lists are then empty.
    bool toRunLengthEncodeing(KDRNumberArray* rows, KDRNumberArray* firstColumns,
                              KDRNumberArray* lastColumns);

private:
    friend struct KDRInternal;
    VelRegion* d;
};

#endif
