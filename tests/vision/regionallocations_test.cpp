#include <kdrdata/vision/kdrregionarray.h>

#include "../support/allocations.h"
#include "../support/failing.h"
#include "regions.h"

#include <gtest/gtest.h>

#include <new>

// What regions allocate, and what they do when there is not enough memory.

namespace {

Runs const oldRuns = {{-1, -1, -1}, {4, 4, 8}};
Runs const newRuns = {{1, 0, 3}, {1, 5, 9}, {2, 3, 4}, {3, 0, 0}};

Runs rowsOfPixels(int count)
{
    Runs runs;
    for (int i = 0; i < count; ++i)
        runs.push_back({i, 0, i});
    return runs;
}

void expectRegion(KDRRegion region, Runs const& runs, int width, int height)
{
    EXPECT_EQ(runsOf(region), runs);
    EXPECT_EQ(region.width(), width);
    EXPECT_EQ(region.height(), height);
}

TEST(RegionMemory, ARegionThatCannotBeReplacedStaysWhatItWas)
{
    RunLists lists(newRuns);
    for (int width : {-1, 30}) {
        KDRRegion region = regionOf(oldRuns, 10, 20);
        failAtEveryAllocation(
            [&] {
                region.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, width, 40);
            },
            [&] { expectRegion(region, oldRuns, 10, 20); });
        expectRegion(region, newRuns, width < 0 ? 0 : 30, width < 0 ? 0 : 40);
        EXPECT_EQ(lists.runs(), newRuns);
    }
}

TEST(RegionMemory, ListsThatCannotBeWrittenAreLeftEmpty)
{
    KDRRegion region = regionOf(newRuns, 10, 20);
    RunLists lists;
    failAtEveryAllocation(
        [&] { region.toRunLengthEncodeing(&lists.rows, &lists.firsts, &lists.lasts); },
        [&] { EXPECT_EQ(lists.runs(), Runs()); });
    EXPECT_EQ(lists.runs(), newRuns);
    EXPECT_EQ(runsOf(region), newRuns);
}

TEST(RegionMemory, ARegionThatCannotBeCopiedLeavesNothingBehind)
{
    KDRRegion const region = regionOf(newRuns, 10, 20);
    KDRRegionArray regions;
    regions.push_back(region);
    regions.push_back(region);
    failAtEveryAllocation([&] { KDRRegion(region).width(); }, [] {});
    failAtEveryAllocation([&] { KDRRegionArray(regions).length(); }, [] {});
    failAtEveryAllocation([&] { regions[1].width(); }, [] {});
    expectRegion(region, newRuns, 10, 20);
}

TEST(RegionMemory, ARegionThatCannotTakeAUnionStaysWhatItWas)
{
    KDRRegionArray regions;
    regions.push_back(regionOf({{1, 5, 9}, {3, 0, 0}}));
    regions.push_back(regionOf({{2, 3, 4}, {1, 0, 3}}, 30, 40));
    KDRRegion region = regionOf(oldRuns, 10, 20);
    failAtEveryAllocation([&] { regions.toUnionedRegion(&region); },
                          [&] { expectRegion(region, oldRuns, 10, 20); });
    expectRegion(region, newRuns, 30, 40);
}

TEST(RegionMemory, AnArrayThatCannotBeAssignedStaysWhatItWas)
{
    KDRRegionArray regions;
    regions.push_back(regionOf(oldRuns));
    KDRRegionArray other;
    other.push_back(regionOf(newRuns));
    other.push_back(regionOf(newRuns));
    auto const expectOld = [&] {
        ASSERT_EQ(regions.length(), 1);
        EXPECT_EQ(runsOf(regions[0]), oldRuns);
    };
    failAtEveryAllocation([&] { regions = other; }, expectOld);
    EXPECT_EQ(regions.length(), 2);
    EXPECT_EQ(runsOf(regions[1]), newRuns);
}

TEST(RegionMemory, AReplacedRegionIsFreed)
{
    RunLists lists(newRuns);
    KDRRegion region = regionOf(newRuns, 10, 20);
    long const live = allocations::live();
    region.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, 10, 20);
    EXPECT_EQ(allocations::live(), live);
}

TEST(RegionMemory, CopyingCostsTheSameForManyRunsAsForFew)
{
    auto const costOfCopy = [](int runs) {
        KDRRegion const region = regionOf(rowsOfPixels(runs));
        KDRRegion other;
        long const before = allocations::made();
        KDRRegion const copy(region);
        other = region;
        return allocations::made() - before;
    };
    EXPECT_EQ(costOfCopy(1), 1);
    EXPECT_EQ(costOfCopy(3000), 1);
}

/// Each number written is a record of its own; the handles on them lie in the lists' slots.
TEST(RegionMemory, WritingListsAllocatesWhatTheyHoldAndLittleMore)
{
    constexpr long runs = 3000;
    KDRRegion region = regionOf(rowsOfPixels(runs));
    RunLists lists;
    long const before = allocations::made();
    region.toRunLengthEncodeing(&lists.rows, &lists.firsts, &lists.lasts);
    long const made = allocations::made() - before;
    EXPECT_GE(made, 3 * runs);
    EXPECT_LT(made, 3 * runs + 100);
}

TEST(RegionMemory, ReadingListsCopiesNoNumbers)
{
    constexpr long runs = 3000;
    RunLists lists(rowsOfPixels(runs));
    RunLists const sharers(lists);
    KDRRegion region;
    long const before = allocations::made();
    region.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, -1, -1);
    EXPECT_LT(allocations::made() - before, 100);
}

} // namespace
