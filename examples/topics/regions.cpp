// A region is a set of pixels, given and taken as runs: row, first and last column, both inclusive.
#include <cstdio>

#include <kdrdata/kdrdata.h>

namespace {

KDRRegion regionOf(int row, int first, int last)
{
    KDRNumberArray rows, firstColumns, lastColumns;
    rows.push_back(KDRNumber(row));
    firstColumns.push_back(KDRNumber(first));
    lastColumns.push_back(KDRNumber(last));
    KDRRegion region;
    region.fromRunLengthEncodeing(rows, firstColumns, lastColumns, 640, 480);
    return region;
}

void tell(char const* what, KDRRegion region)
{
    KDRNumberArray rows, firstColumns, lastColumns;
    region.toRunLengthEncodeing(&rows, &firstColumns, &lastColumns);
    long pixels = 0;
    std::printf("%s, in %d x %d:\n", what, region.width(), region.height());
    for (int i = 0; i < rows.length(); ++i) {
        long const first = firstColumns[i].toLong();
        long const last = lastColumns[i].toLong();
        std::printf("  row %ld, columns %ld to %ld\n", rows[i].toLong(), first, last);
        pixels += last - first + 1;
    }
    std::printf("  %ld pixels\n", pixels);
}

} // namespace

int main()
{
    KDRRegionArray parts;
    parts.push_back(regionOf(12, 3, 7));
    parts.push_back(regionOf(12, 6, 9));  // overlaps the first
    parts.push_back(regionOf(11, -2, 0)); // may lie outside the extent
    KDRRegion all;
    parts.toUnionedRegion(&all);
    tell("the union", all);

    // A variant has no kind for regions: they travel as shapes.
    KDRShape shape;
    shape.fromRegion(all);
    KDRVariant sent(shape);
    KDRShape received;
    KDRRegion pixels;
    if (sent.toShape(&received) && received.toRegion(&pixels))
        tell("received", pixels);
    return 0;
}
