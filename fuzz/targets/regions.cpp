// Run-length lists and unions against a naive set of pixels.

#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/vision/kdrregion.h>
#include <kdrdata/vision/kdrregionarray.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <utility>

#include <veldata/tests/pixelset.h>

#include "../support/check.h"
#include "../support/script.h"

namespace {

struct Extent
{
    int width = 0;
    int height = 0;
};

/// Runs of up to 16 pixels, most of them close together and some at the ends of the numbers.
Runs readRuns(Script& script)
{
    Runs runs(script.below(16));
    for (Run& run : runs) {
        std::uint8_t const where = script.byte();
        long const row = where == 255 ? LONG_MAX : where == 254 ? LONG_MIN : where % 8 - 4;
        long const first = script.below(24) - 12L;
        long const length = script.between(-2, 16);
        switch (where / 64 == 3 ? where % 4 : 0) {
        case 1:
            run = {row, LONG_MAX - std::max(length, 0L), LONG_MAX};
            break;
        case 2:
            run = {row, LONG_MIN, LONG_MIN + std::max(length, 0L)};
            break;
        case 3:
            run = {row, LONG_MAX, LONG_MIN};
            break;
        default:
            run = {row, first, first + length};
            break;
        }
    }
    return runs;
}

KDRRegion regionOf(Runs const& runs, Extent const& extent)
{
    KDRNumberArray lists[3];
    for (Run const& run : runs)
        for (std::size_t i = 0; i < 3; ++i)
            lists[i].push_back(KDRNumber(run[i]));
    KDRRegion region;
    region.fromRunLengthEncodeing(lists[0], lists[1], lists[2], extent.width, extent.height);
    return region;
}

Runs runsOf(KDRRegion region)
{
    KDRNumberArray lists[3];
    check(region.toRunLengthEncodeing(&lists[0], &lists[1], &lists[2]), "runs can be had");
    check(lists[1].length() == lists[0].length() && lists[2].length() == lists[0].length(),
          "the three lists are equally long");
    Runs runs;
    for (int i = 0; i < lists[0].length(); ++i)
        runs.push_back({lists[0][i].toLong(), lists[1][i].toLong(), lists[2][i].toLong()});
    return runs;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    Script script(data, size);
    KDRRegionArray regions;
    PixelSet all;
    Extent largest;
    for (int step = 0; step < 8 && !script.atEnd(); ++step) {
        Extent const extent{script.between(-2, 200), script.between(0, 200)};
        Runs const runs = readRuns(script);
        KDRRegion region = regionOf(runs, extent);
        check(runsOf(region) == PixelSet(runs).runs(), "a region has the pixels of its runs");
        bool const given = extent.width >= 0;
        check(region.width() == (given ? extent.width : 0), "a width is kept, a negative one is 0");
        check(region.height() == (given ? extent.height : 0),
              "a height is kept where there is a width");
        check(runsOf(regionOf(runsOf(region), extent)) == runsOf(region),
              "a region is the same after a way through its runs");
        largest.width = std::max(largest.width, region.width());
        largest.height = std::max(largest.height, region.height());
        regions.push_back(region);
        all.add(runs);
    }
    KDRRegion united = regionOf({{1000, 0, 5}}, {7, 7});
    regions.toUnionedRegion(&united);
    check(runsOf(united) == all.runs(), "a union has the pixels of all its regions");
    check(united.width() == largest.width && united.height() == largest.height,
          "a union has the largest extent along each axis");
    return 0;
}
