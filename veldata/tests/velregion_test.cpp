#include <algorithm>
#include <climits>
#include <cmath>
#include <iterator>
#include <random>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <veldata/veldata.h>

#include "pixelset.h"

namespace {

/// The three lists that a region is made of.
struct Columns
{
    Columns() = default;

    explicit Columns(Runs const& runs)
    {
        for (auto const& [row, first, last] : runs) {
            rows.Append(VelVar(row));
            firsts.Append(VelVar(first));
            lasts.Append(VelVar(last));
        }
    }

    VelVarArray rows, firsts, lasts;
};

VelRegion regionOf(Runs const& runs, int width = -1, int height = -1)
{
    Columns const columns(runs);
    return VelRegion(width, height, columns.rows, columns.firsts, columns.lasts);
}

Runs runsOf(VelRegion const& region)
{
    Columns columns;
    EXPECT_EQ(region.GetRegionRuns(&columns.rows, &columns.firsts, &columns.lasts), 1);
    EXPECT_EQ(columns.firsts.Length(), columns.rows.Length());
    EXPECT_EQ(columns.lasts.Length(), columns.rows.Length());
    Runs runs;
    for (int i = 0; i < columns.rows.Length(); ++i)
        runs.push_back({columns.rows[i].L(), columns.firsts[i].L(), columns.lasts[i].L()});
    return runs;
}

Runs normalised(Runs const& runs) { return runsOf(regionOf(runs)); }

void expectExtent(VelRegion const& region, int width, int height)
{
    EXPECT_EQ(region.Width(), width);
    EXPECT_EQ(region.Height(), height);
}

TEST(VelRegion, IsAPlainValueThatCopiesWithoutFailing)
{
    EXPECT_FALSE(std::is_polymorphic<VelRegion>::value);
    EXPECT_TRUE(std::is_nothrow_default_constructible<VelRegion>::value);
    EXPECT_TRUE(std::is_nothrow_copy_constructible<VelRegion>::value);
    EXPECT_TRUE(std::is_nothrow_copy_assignable<VelRegion>::value);
    EXPECT_TRUE(std::is_nothrow_move_constructible<VelRegion>::value);
    EXPECT_TRUE(std::is_nothrow_move_assignable<VelRegion>::value);
}

TEST(VelRegion, StartsWithoutPixelsAndExtent)
{
    VelRegion const region;
    EXPECT_EQ(runsOf(region), Runs());
    expectExtent(region, 0, 0);
}

TEST(VelRegion, MadeOfListsAloneHasNoExtent)
{
    Columns const columns({{1, 2, 3}});
    VelRegion const region(columns.rows, columns.firsts, columns.lasts);
    EXPECT_EQ(runsOf(region), Runs({{1, 2, 3}}));
    expectExtent(region, 0, 0);
}

TEST(VelRegion, CarriesTheExtentAsGivenAndClipsNothing)
{
    Runs const outside = {{-5, -9, -7}, {1000, 1000, 2000}};
    VelRegion const region = regionOf(outside, 10, 20);
    EXPECT_EQ(runsOf(region), outside);
    expectExtent(region, 10, 20);
    expectExtent(regionOf({}, INT_MAX, INT_MAX), INT_MAX, INT_MAX);
    expectExtent(regionOf({}, 0, 7), 0, 7);
    expectExtent(regionOf({}, 7, -3), 7, -3);
}

TEST(VelRegion, NegativeWidthGivesNoExtent)
{
    expectExtent(regionOf({}, -1, 20), 0, 0);
    expectExtent(regionOf({}, INT_MIN, INT_MIN), 0, 0);
}

TEST(VelRegion, SortsRunsByRowThenColumn)
{
    EXPECT_EQ(normalised({{2, 0, 1}, {1, 5, 6}, {-1, 9, 9}, {1, 0, 1}}),
              Runs({{-1, 9, 9}, {1, 0, 1}, {1, 5, 6}, {2, 0, 1}}));
}

TEST(VelRegion, MergesOverlappingRuns)
{
    EXPECT_EQ(normalised({{1, 0, 4}, {1, 3, 8}}), Runs({{1, 0, 8}}));
    EXPECT_EQ(normalised({{1, 0, 9}, {1, 3, 4}, {1, 6, 7}}), Runs({{1, 0, 9}}));
    EXPECT_EQ(normalised({{1, 2, 3}, {1, 2, 3}, {1, 2, 8}}), Runs({{1, 2, 8}}));
}

TEST(VelRegion, MergesTouchingRunsAndKeepsGapsOfOnePixel)
{
    EXPECT_EQ(normalised({{1, 0, 4}, {1, 5, 8}}), Runs({{1, 0, 8}}));
    EXPECT_EQ(normalised({{1, 5, 5}, {1, 4, 4}}), Runs({{1, 4, 5}}));
    EXPECT_EQ(normalised({{1, 0, 4}, {1, 6, 8}}), Runs({{1, 0, 4}, {1, 6, 8}}));
}

TEST(VelRegion, DoesNotMergeRunsOfDifferentRows)
{
    Runs const apart = {{1, 0, 4}, {2, 0, 4}, {3, 5, 8}};
    EXPECT_EQ(normalised(apart), apart);
}

TEST(VelRegion, DropsRunsWhoseEndLiesBeforeTheirStart)
{
    EXPECT_EQ(normalised({{1, 5, 4}}), Runs());
    EXPECT_EQ(normalised({{1, LONG_MAX, LONG_MIN}, {2, 0, 0}}), Runs({{2, 0, 0}}));
    // An empty run merges nothing: this one would close the gap.
    EXPECT_EQ(normalised({{1, 0, 2}, {1, 3, 2}, {1, 4, 5}}), Runs({{1, 0, 2}, {1, 4, 5}}));
}

TEST(VelRegion, TakesCoordinatesAtTheEndsOfTheirRange)
{
    EXPECT_EQ(normalised({{LONG_MAX, LONG_MIN, LONG_MAX}, {LONG_MIN, 0, 0}}),
              Runs({{LONG_MIN, 0, 0}, {LONG_MAX, LONG_MIN, LONG_MAX}}));
    EXPECT_EQ(normalised({{0, 5, LONG_MAX}, {0, LONG_MIN, 4}}), Runs({{0, LONG_MIN, LONG_MAX}}));
    EXPECT_EQ(normalised({{0, 6, LONG_MAX}, {0, LONG_MIN, 4}}),
              Runs({{0, LONG_MIN, 4}, {0, 6, LONG_MAX}}));
    EXPECT_EQ(normalised({{0, LONG_MAX, LONG_MAX}, {0, LONG_MAX, LONG_MAX}}),
              Runs({{0, LONG_MAX, LONG_MAX}}));
    EXPECT_EQ(normalised({{0, LONG_MIN, LONG_MIN}, {0, LONG_MIN, LONG_MIN}}),
              Runs({{0, LONG_MIN, LONG_MIN}}));
}

/// Runs whose ends come from a few columns all over the range, against cells: one for each of the
/// columns and one for all that lies between two of them.
TEST(VelRegion, AgreesWithAModelOfCellsOverTheWholeRange)
{
    constexpr unsigned seed = 20230507;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    std::vector<long> const columns = {LONG_MIN, LONG_MIN + 1, LONG_MIN + 2, -2,      -1, 0, 1,
                                       4,        LONG_MAX - 3, LONG_MAX - 1, LONG_MAX};
    std::vector<long> cells; // the column, or 0 for a gap
    std::vector<bool> isGap;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (i > 0 && columns[i] - 1 != columns[i - 1]) {
            cells.push_back(0);
            isGap.push_back(true);
        }
        cells.push_back(columns[i]);
        isGap.push_back(false);
    }
    auto const pick = [&random, &isGap] {
        for (;;) {
            std::size_t const cell = random() % isGap.size();
            if (!isGap[cell])
                return cell;
        }
    };

    for (int round = 0; round < 500; ++round) {
        Runs runs;
        std::vector<bool> covered(cells.size(), false);
        for (auto count = random() % 5; count > 0; --count) {
            std::size_t const first = pick();
            std::size_t const last = pick();
            runs.push_back({7, cells[first], cells[last]});
            for (std::size_t cell = first; cell <= last; ++cell)
                covered[cell] = true;
        }
        Runs expected;
        for (std::size_t cell = 0; cell < cells.size(); ++cell) {
            if (!covered[cell])
                continue;
            if (cell == 0 || !covered[cell - 1])
                expected.push_back({7, cells[cell], cells[cell]});
            if (!isGap[cell])
                expected.back()[2] = cells[cell];
        }
        ASSERT_EQ(normalised(runs), expected) << "round " << round;
    }
}

TEST(VelRegion, HoldsThePixelsOfItsRunsInTheirShortestForm)
{
    constexpr unsigned seed = 20230415;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    std::vector<std::pair<long, long>> const origins = {
        {0, 0}, {LONG_MIN + 3, LONG_MIN + 14}, {LONG_MAX - 3, LONG_MAX - 12}};
    for (int round = 0; round < 150; ++round) {
        auto const [row, column] = origins[static_cast<std::size_t>(round) % origins.size()];
        Runs const runs = randomRuns(random, 40, row, column);
        ASSERT_EQ(normalised(runs), PixelSet(runs).runs()) << "round " << round;
    }
}

TEST(VelRegion, ReadsRunsBackAsItTakesThem)
{
    std::mt19937 random(99);
    for (int round = 0; round < 20; ++round) {
        Runs const runs = normalised(randomRuns(random, 40));
        EXPECT_EQ(normalised(runs), runs);
    }
}

TEST(VelRegion, CountsMissingEntriesAsZeroAndIgnoresSurplusOnes)
{
    Columns columns({{1, -4, -2}, {2, 3, 5}});
    columns.rows.Append(VelVar(9L));
    VelRegion const longer(columns.rows, columns.firsts, columns.lasts);
    EXPECT_EQ(runsOf(longer), Runs({{1, -4, -2}, {2, 3, 5}, {9, 0, 0}}));

    columns.rows.Remove(2);
    columns.rows.Remove(1);
    VelRegion const shorter(columns.rows, columns.firsts, columns.lasts);
    EXPECT_EQ(runsOf(shorter), Runs({{1, -4, -2}}));

    VelVarArray const none;
    EXPECT_EQ(runsOf(VelRegion(none, columns.firsts, columns.lasts)), Runs());
    EXPECT_EQ(runsOf(VelRegion(columns.rows, none, none)), Runs({{1, 0, 0}}));
}

TEST(VelRegion, ReadsEntriesOfOtherTypesAsIntegers)
{
    Columns columns;
    columns.rows.Append(VelVar("7"));
    columns.firsts.Append(VelVar(-2.9));
    columns.lasts.Append(VelVar(1e300));
    VelRegion const region(columns.rows, columns.firsts, columns.lasts);
    EXPECT_EQ(runsOf(region), Runs({{0, -2, LONG_MAX}}));
}

TEST(VelRegion, GivesRunsAsIntegersInPlaceOfWhatTheListsHeld)
{
    Columns columns({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
    EXPECT_EQ(regionOf({{-1, -2, 5000000000L}})
                  .GetRegionRuns(&columns.rows, &columns.firsts, &columns.lasts),
              1);
    VelVarArray const* const lists[] = {&columns.rows, &columns.firsts, &columns.lasts};
    long const expected[] = {-1, -2, 5000000000L};
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(lists[i]->Length(), 1);
        EXPECT_EQ((*lists[i])[0].ValType(), 0);
        EXPECT_EQ((*lists[i])[0].L(), expected[i]);
    }
    EXPECT_EQ(VelRegion().GetRegionRuns(&columns.rows, &columns.firsts, &columns.lasts), 1);
    for (VelVarArray const* list : lists)
        EXPECT_EQ(list->Length(), 0);
}

TEST(VelRegion, GivingRunsIntoNullOrIntoOneListTwiceIsRefused)
{
    VelRegion const region = regionOf({{1, 2, 3}, {4, 5, 6}});
    VelVarArray a, b;
    a.Append(VelVar(7L));
    b.Append(VelVar(8L));
    EXPECT_EQ(region.GetRegionRuns(nullptr, &a, &b), 0);
    EXPECT_EQ(region.GetRegionRuns(&a, nullptr, &b), 0);
    EXPECT_EQ(region.GetRegionRuns(&a, &b, nullptr), 0);
    EXPECT_EQ(region.GetRegionRuns(&a, &a, &b), 0);
    EXPECT_EQ(region.GetRegionRuns(&a, &b, &a), 0);
    EXPECT_EQ(region.GetRegionRuns(&b, &a, &a), 0);
    ASSERT_EQ(a.Length(), 1);
    ASSERT_EQ(b.Length(), 1);
    EXPECT_EQ(a[0].L(), 7);
    EXPECT_EQ(b[0].L(), 8);
}

TEST(VelRegion, CopiesAreIndependent)
{
    VelRegion source = regionOf({{1, 2, 3}}, 10, 20);
    VelRegion const copy(source);
    VelRegion assigned = regionOf({{9, 9, 9}}, 1, 1);
    VelRegion& result = (assigned = source);
    EXPECT_EQ(&result, &assigned);
    source = regionOf({{4, 5, 6}}, 30, 40);
    for (VelRegion const& region : {copy, assigned}) {
        EXPECT_EQ(runsOf(region), Runs({{1, 2, 3}}));
        expectExtent(region, 10, 20);
    }
    EXPECT_EQ(runsOf(source), Runs({{4, 5, 6}}));
    expectExtent(source, 30, 40);
}

TEST(VelRegion, MovingLeavesTheSourceEmpty)
{
    VelRegion source = regionOf({{1, 2, 3}}, 10, 20);
    VelRegion target(std::move(source));
    EXPECT_EQ(runsOf(source), Runs());
    expectExtent(source, 0, 0);
    EXPECT_EQ(runsOf(target), Runs({{1, 2, 3}}));
    expectExtent(target, 10, 20);

    source = std::move(target);
    EXPECT_EQ(runsOf(target), Runs());
    expectExtent(target, 0, 0);
    EXPECT_EQ(runsOf(source), Runs({{1, 2, 3}}));
    expectExtent(source, 10, 20);
}

TEST(VelRegion, AssignmentToItselfChangesNothing)
{
    VelRegion region = regionOf({{1, 2, 3}}, 10, 20);
    VelRegion& same = region;
    region = same;
    region = std::move(same);
    EXPECT_EQ(runsOf(region), Runs({{1, 2, 3}}));
    expectExtent(region, 10, 20);
}

TEST(VelRegionUnion, OfNoRegionsIsEmptyWithoutExtent)
{
    VelRegion region = regionOf({{1, 2, 3}}, 10, 20);
    EXPECT_EQ(VelRegionArray().Union(&region), 1);
    EXPECT_EQ(runsOf(region), Runs());
    expectExtent(region, 0, 0);

    VelRegionArray cleared;
    cleared.Append(regionOf({{1, 2, 3}}, 10, 20));
    cleared.Remove(0);
    region = regionOf({{1, 2, 3}}, 10, 20);
    EXPECT_EQ(cleared.Union(&region), 1);
    EXPECT_EQ(runsOf(region), Runs());
    expectExtent(region, 0, 0);
}

TEST(VelRegionUnion, OfEmptyRegionsIsEmptyWithTheirExtent)
{
    VelRegionArray regions;
    regions.Append(VelRegion());
    regions.Append(regionOf({}, 4, 5));
    VelRegion region = regionOf({{1, 2, 3}}, 10, 20);
    EXPECT_EQ(regions.Union(&region), 1);
    EXPECT_EQ(runsOf(region), Runs());
    expectExtent(region, 4, 5);
}

TEST(VelRegionUnion, TakesTheLargestExtentAlongEachAxis)
{
    VelRegionArray regions;
    regions.Append(regionOf({{0, 0, 0}}, 10, -5));
    VelRegion region;
    EXPECT_EQ(regions.Union(&region), 1);
    expectExtent(region, 10, -5);
    regions.Append(regionOf({{0, 1, 1}}, 30, 2));
    regions.Append(regionOf({{0, 2, 2}}, 20, 40));
    EXPECT_EQ(regions.Union(&region), 1);
    EXPECT_EQ(runsOf(region), Runs({{0, 0, 2}}));
    expectExtent(region, 30, 40);
}

TEST(VelRegionUnion, IntoNullIsRefused)
{
    VelRegionArray regions;
    EXPECT_EQ(regions.Union(nullptr), 0);
    regions.Append(regionOf({{1, 2, 3}}));
    EXPECT_EQ(regions.Union(nullptr), 0);
}

TEST(VelRegionUnion, ReplacesItsOutputWhichMayShareItsRunsWithAnElement)
{
    VelRegion region = regionOf({{1, 2, 3}});
    VelRegionArray regions;
    regions.Append(region);
    regions.Append(regionOf({{1, 4, 5}, {2, 0, 0}}));
    EXPECT_EQ(regions.Union(&region), 1);
    EXPECT_EQ(runsOf(region), Runs({{1, 2, 5}, {2, 0, 0}}));
    EXPECT_EQ(runsOf(regions[0]), Runs({{1, 2, 3}}));

    VelRegion other = regionOf({{100, 0, 0}});
    EXPECT_EQ(regions.Union(&other), 1);
    EXPECT_EQ(runsOf(other), runsOf(region));
}

TEST(VelRegionUnion, HoldsThePixelsOfHundredsOfRegions)
{
    constexpr unsigned seed = 20230501;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    for (int count : {1, 2, 3, 10, 400}) {
        VelRegionArray regions;
        PixelSet pixels;
        for (int i = 0; i < count; ++i) {
            Runs const runs = randomRuns(random, 8, static_cast<long>(random() % 60),
                                         static_cast<long>(random() % 60));
            regions.Append(regionOf(runs));
            pixels.add(runs);
        }
        VelRegion region;
        EXPECT_EQ(regions.Union(&region), 1);
        EXPECT_EQ(runsOf(region), pixels.runs()) << count << " regions";
    }
}

std::vector<long> flattened(Runs const& runs)
{
    std::vector<long> numbers;
    for (Run const& run : runs)
        numbers.insert(numbers.end(), run.begin(), run.end());
    return numbers;
}

TEST(VelRegionBulk, MakesTheRegionThatTheListsMake)
{
    constexpr unsigned seed = 20261122;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    for (int i = 0; i < 200; ++i) {
        Runs const runs = randomRuns(random, 40);
        std::vector<long> const numbers = flattened(runs);
        VelRegion region = regionOf({{7, 7, 7}}, 3, 4);
        EXPECT_EQ(region.SetRuns(640, 480, numbers.data(), static_cast<long>(runs.size())), 1);
        EXPECT_EQ(runsOf(region), PixelSet(runs).runs());
        EXPECT_EQ(region.Width(), 640);
        EXPECT_EQ(region.Height(), 480);
    }
}

TEST(VelRegionBulk, WritesTheRunsInOrder)
{
    VelRegion const region = regionOf({{2, 5, 6}, {1, 8, 9}, {1, -3, 2}, {1, 3, 3}});
    ASSERT_EQ(region.RunCount(), 3);
    std::vector<long> numbers(10, 77);
    region.CopyRuns(numbers.data());
    EXPECT_EQ(numbers, std::vector<long>({1, -3, 3, 1, 8, 9, 2, 5, 6, 77}));
}

TEST(VelRegionBulk, HasNoRunsWithoutPixels)
{
    VelRegion region;
    EXPECT_EQ(region.RunCount(), 0);
    long untouched = 77;
    region.CopyRuns(&untouched);
    EXPECT_EQ(untouched, 77);
    EXPECT_EQ(region.SetRuns(5, 6, nullptr, 0), 1);
    EXPECT_EQ(region.Width(), 5);
    EXPECT_EQ(region.RunCount(), 0);
}

TEST(VelRegionBulk, GivesANegativeWidthNoExtent)
{
    long const run[] = {1, 2, 3};
    VelRegion region;
    EXPECT_EQ(region.SetRuns(-1, 6, run, 1), 1);
    EXPECT_EQ(region.Width(), 0);
    EXPECT_EQ(region.Height(), 0);
    EXPECT_EQ(region.RunCount(), 1);
}

TEST(VelRegionBulk, RefusesWhatIsNoListAndChangesNothing)
{
    long const run[] = {1, 2, 3};
    VelRegion region = regionOf({{7, 8, 9}}, 3, 4);
    VelRegion const copy(region);
    EXPECT_EQ(region.SetRuns(5, 6, run, -1), 0);
    EXPECT_EQ(region.SetRuns(5, 6, nullptr, 1), 0);
    EXPECT_EQ(runsOf(region), Runs({{7, 8, 9}}));
    EXPECT_EQ(region.Width(), 3);
    EXPECT_EQ(region.SetRuns(5, 6, run, 1), 1);
    EXPECT_EQ(runsOf(region), Runs({{1, 2, 3}}));
    EXPECT_EQ(runsOf(copy), Runs({{7, 8, 9}}));
}

} // namespace
