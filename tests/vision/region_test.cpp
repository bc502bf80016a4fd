#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/vision/kdrimage.h>
#include <kdrdata/vision/kdrregion.h>

#include <QtCore/qlist.h>

#include <gtest/gtest.h>

#include "regions.h"

#include <climits>
#include <limits>
#include <random>
#include <vector>

namespace {

Runs const someRuns = {{1, 0, 3}, {1, 5, 9}, {2, 3, 4}};

void expectExtent(KDRRegion region, int width, int height)
{
    EXPECT_EQ(region.width(), width);
    EXPECT_EQ(region.height(), height);
}

TEST(Region, IsOnePointerWide) { EXPECT_EQ(sizeof(KDRRegion), sizeof(void*)); }

TEST(Region, StartsWithoutPixelsAndExtent)
{
    KDRRegion region;
    EXPECT_EQ(runsOf(region), Runs());
    expectExtent(region, 0, 0);
}

TEST(Region, RunListsComeBackFromARegion)
{
    RunLists lists({{1, 0, 3}, {1, 5, 9}, {2, 3, 4}});
    KDRRegion region;
    region.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, 10, 10);
    expectExtent(region, 10, 10);
    RunLists back;
    EXPECT_TRUE(region.toRunLengthEncodeing(&back.rows, &back.firsts, &back.lasts));
    EXPECT_EQ(back.runs(), Runs({{1, 0, 3}, {1, 5, 9}, {2, 3, 4}}));
    EXPECT_EQ(lists.runs(), back.runs());
}

TEST(Region, RunsComeBackInTheCoreLibrarysOrderAndForm)
{
    EXPECT_EQ(runsOf(regionOf({{7, 0, 0}, {-1, 5, 9}, {-1, -2, 4}, {3, 2, 1}})),
              Runs({{-1, -2, 9}, {7, 0, 0}}));
}

TEST(Region, HoldsThePixelsOfItsRuns)
{
    constexpr unsigned seed = 4711;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    for (int round = 0; round < 50; ++round) {
        Runs const runs = randomRuns(random, 40);
        KDRRegion const region = regionOf(runs);
        ASSERT_EQ(runsOf(region), PixelSet(runs).runs()) << "round " << round;
        ASSERT_EQ(runsOf(regionOf(runsOf(region))), runsOf(region)) << "round " << round;
    }
}

TEST(Region, NegativeWidthTakesTheListsAlone)
{
    for (int width : {-1, INT_MIN}) {
        for (int height : {-1, 0, 10}) {
            KDRRegion const region = regionOf(someRuns, width, height);
            EXPECT_EQ(runsOf(region), someRuns);
            expectExtent(region, 0, 0);
        }
    }
}

TEST(Region, WidthAloneDecidesWhetherThereIsAnExtent)
{
    expectExtent(regionOf(someRuns, 0, 10), 0, 10);
    expectExtent(regionOf(someRuns, 5, -3), 5, -3);
    expectExtent(regionOf(someRuns, 0, INT_MIN), 0, INT_MIN);
    EXPECT_EQ(runsOf(regionOf(someRuns, 5, -3)), someRuns);
}

TEST(Region, EmptyListsGiveAnEmptyRegion)
{
    RunLists none;
    for (int width : {-1, 10}) {
        KDRRegion region = regionOf(someRuns, 3, 4);
        region.fromRunLengthEncodeing(none.rows, none.firsts, none.lasts, width, 10);
        RunLists lists({{7, 8, 9}});
        EXPECT_TRUE(region.toRunLengthEncodeing(&lists.rows, &lists.firsts, &lists.lasts));
        EXPECT_EQ(lists.rows.length(), 0);
        EXPECT_EQ(lists.firsts.length(), 0);
        EXPECT_EQ(lists.lasts.length(), 0);
        expectExtent(region, width < 0 ? 0 : 10, width < 0 ? 0 : 10);
    }
}

TEST(Region, RunsReplaceWhatTheOutputsHeld)
{
    for (Runs const& runs : {Runs(), Runs({{1, 2, 3}})}) {
        RunLists lists;
        for (int i = 0; i < 3; ++i)
            lists.rows.push_back(KDRNumber(i));
        lists.lasts.push_back(KDRNumber(7.5));
        EXPECT_TRUE(regionOf(runs).toRunLengthEncodeing(&lists.rows, &lists.firsts, &lists.lasts));
        EXPECT_EQ(lists.runs(), runs);
    }
}

TEST(Region, RunsReplaceTheRegionBefore)
{
    KDRRegion region = regionOf({{100, 0, 50}}, 200, 200);
    RunLists lists(someRuns);
    region.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, 10, 20);
    EXPECT_EQ(runsOf(region), someRuns);
    expectExtent(region, 10, 20);
}

TEST(Region, ItsOwnListsMayComeBackIntoIt)
{
    KDRRegion region = regionOf(someRuns, 10, 10);
    RunLists lists;
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(region.toRunLengthEncodeing(&lists.rows, &lists.firsts, &lists.lasts));
        region.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, 10, 10);
    }
    EXPECT_EQ(runsOf(region), someRuns);
}

TEST(Region, NumbersAreReadAsLong)
{
    RunLists lists({{0, 0, 0}, {0, 0, 0}, {0, LONG_MIN, LONG_MAX}});
    lists.rows.replace(0, KDRNumber(-2.9));
    lists.firsts.replace(0, KDRNumber(std::numeric_limits<double>::quiet_NaN()));
    lists.lasts.replace(0, KDRNumber(2.9));
    lists.rows.replace(1, KDRNumber(5000000000LL));
    lists.firsts.replace(1, KDRNumber(1e300));
    KDRRegion region;
    region.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, -1, -1);
    // A NaN and a number beyond the range of long both read as the smallest long.
    EXPECT_EQ(runsOf(region),
              Runs({{-2, LONG_MIN, 2}, {0, LONG_MIN, LONG_MAX}, {5000000000L, LONG_MIN, 0}}));
}

TEST(Region, NumbersAreWrittenAsIntegersWithoutARange)
{
    RunLists lists;
    EXPECT_TRUE(regionOf({{-1, LONG_MIN, 5000000000L}})
                    .toRunLengthEncodeing(&lists.rows, &lists.firsts, &lists.lasts));
    for (KDRNumberArray const* list : {&lists.rows, &lists.firsts, &lists.lasts}) {
        ASSERT_EQ(list->length(), 1);
        KDRNumber number;
        EXPECT_TRUE(list->select(0, &number));
        EXPECT_EQ(number.numType(), 0);
        EXPECT_EQ(number.maxValue(), 0.0);
    }
    EXPECT_EQ(lists.runs(), Runs({{-1, LONG_MIN, 5000000000L}}));
}

TEST(Region, ReadingListsLeavesThemSharedAsTheyWere)
{
    RunLists lists(someRuns);
    RunLists const sharers(lists);
    KDRRegion region;
    region.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, 10, 10);
    EXPECT_TRUE(KDRInternal::wrapped(lists.rows).isSharedWith(KDRInternal::wrapped(sharers.rows)));
    EXPECT_TRUE(
        KDRInternal::wrapped(lists.firsts).isSharedWith(KDRInternal::wrapped(sharers.firsts)));
    EXPECT_TRUE(
        KDRInternal::wrapped(lists.lasts).isSharedWith(KDRInternal::wrapped(sharers.lasts)));
}

TEST(Region, WritingListsLeavesTheirCopiesAlone)
{
    RunLists lists({{7, 8, 9}});
    RunLists const copies(lists);
    EXPECT_TRUE(regionOf(someRuns).toRunLengthEncodeing(&lists.rows, &lists.firsts, &lists.lasts));
    EXPECT_EQ(lists.runs(), someRuns);
    EXPECT_EQ(copies.runs(), Runs({{7, 8, 9}}));
}

TEST(Region, OneListMayBeGivenMoreThanOnce)
{
    KDRNumberArray numbers;
    for (int number : {4, 1, 9})
        numbers.push_back(KDRNumber(number));
    KDRRegion region;
    region.fromRunLengthEncodeing(numbers, numbers, numbers, -1, -1);
    EXPECT_EQ(runsOf(region), Runs({{1, 1, 1}, {4, 4, 4}, {9, 9, 9}}));
}

TEST(Region, AListGivenTwiceAsOutputReceivesItsColumnsInTurn)
{
    KDRRegion region = regionOf({{1, 2, 3}, {4, 5, 6}});
    auto const numbersOf = [](KDRNumberArray const& list) {
        std::vector<int> numbers;
        for (int i = 0; i < list.length(); ++i)
            numbers.push_back(list[i].toInt());
        return numbers;
    };
    KDRNumberArray rows, columns;
    columns.push_back(KDRNumber(9));
    EXPECT_TRUE(region.toRunLengthEncodeing(&rows, &columns, &columns));
    EXPECT_EQ(numbersOf(rows), std::vector<int>({1, 4}));
    EXPECT_EQ(numbersOf(columns), std::vector<int>({2, 3, 5, 6}));
    EXPECT_TRUE(region.toRunLengthEncodeing(&rows, &rows, &rows));
    EXPECT_EQ(numbersOf(rows), std::vector<int>({1, 2, 3, 4, 5, 6}));
}

TEST(Region, TheFirstListTellsTheNumberOfRuns)
{
    RunLists lists(someRuns);
    lists.firsts.push_back(KDRNumber(7));
    lists.lasts.push_back(KDRNumber(8));
    lists.lasts.push_back(KDRNumber(9));
    KDRRegion region;
    region.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, 10, 10);
    EXPECT_EQ(runsOf(region), someRuns);
    KDRNumberArray none;
    region.fromRunLengthEncodeing(none, lists.firsts, lists.lasts, 10, 10);
    EXPECT_EQ(runsOf(region), Runs());
}

TEST(Region, ShorterListsAreAssertedInDebugBuildsAndCountAsZeroInOthers)
{
    RunLists lists({{1, -2, -1}, {2, -2, 5}});
    KDRNumberArray shorter;
    shorter.push_back(KDRNumber(-3));
    KDRRegion region;
#ifndef NDEBUG
    EXPECT_DEATH(region.fromRunLengthEncodeing(lists.rows, shorter, lists.lasts, 1, 1), "ASSERT");
    EXPECT_DEATH(region.fromRunLengthEncodeing(lists.rows, lists.firsts, shorter, 1, 1), "ASSERT");
#else
    region.fromRunLengthEncodeing(lists.rows, shorter, lists.lasts, 1, 1);
    EXPECT_EQ(runsOf(region), Runs({{1, -3, -1}, {2, 0, 5}}));
    region.fromRunLengthEncodeing(lists.rows, lists.firsts, shorter, 1, 1);
    EXPECT_EQ(runsOf(region), Runs({{2, -2, 0}}));
#endif
}

#ifndef NDEBUG
TEST(Region, NullOutputsAreAssertedInDebugBuilds)
{
    KDRRegion region = regionOf(someRuns);
    KDRNumberArray a, b;
    EXPECT_DEATH(region.toRunLengthEncodeing(nullptr, &a, &b), "ASSERT");
    EXPECT_DEATH(region.toRunLengthEncodeing(&a, nullptr, &b), "ASSERT");
    EXPECT_DEATH(region.toRunLengthEncodeing(&a, &b, nullptr), "ASSERT");
}
#endif

TEST(Region, FromBinImageDoesNothing)
{
    unsigned char pixels[] = {0, 255, 255, 0};
    KDRImage image(pixels, 2, 2, 1, 0, KDRImage::DataTypeUInt8);
    KDRRegion region = regionOf(someRuns, 10, 20);
    region.fromBinImage(image);
    EXPECT_EQ(runsOf(region), someRuns);
    expectExtent(region, 10, 20);
    EXPECT_EQ(image.width(), 2);
}

TEST(Region, ToBinImageAnswersFalseAndWritesNothing)
{
    unsigned char pixels[] = {0, 255, 255, 7};
    KDRImage image(pixels, 2, 2, 1, 0, KDRImage::DataTypeUInt8);
    unsigned char const* const before = image.dataPtr();
    KDRRegion region = regionOf(someRuns, 10, 20);
    EXPECT_FALSE(region.toBinImage(&image));
    EXPECT_FALSE(region.toBinImage(nullptr));
    EXPECT_EQ(image.dataPtr(), before);
    EXPECT_EQ(image.width(), 2);
    EXPECT_EQ(image.dataPtr()[3], 7);
}

TEST(Region, CopiesAreIndependent)
{
    KDRRegion original = regionOf(someRuns, 10, 20);
    KDRRegion const copy(original);
    KDRRegion assigned = regionOf({{9, 9, 9}}, 1, 1);
    KDRRegion& result = (assigned = original);
    EXPECT_EQ(&result, &assigned);
    RunLists lists({{4, 5, 6}});
    original.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, 30, 40);
    for (KDRRegion const& region : {copy, assigned}) {
        EXPECT_EQ(runsOf(region), someRuns);
        expectExtent(region, 10, 20);
    }
    EXPECT_EQ(runsOf(original), Runs({{4, 5, 6}}));
}

TEST(Region, AssignmentToItselfChangesNothing)
{
    KDRRegion region = regionOf(someRuns, 10, 20);
    KDRRegion const& same = region;
    region = same;
    EXPECT_EQ(runsOf(region), someRuns);
    expectExtent(region, 10, 20);
}

} // namespace
