#include <kdrdata/vision/kdrregionarray.h>

#include <gtest/gtest.h>

#include "regions.h"

#include <random>

namespace {

TEST(RegionArray, UnionHoldsThePixelsOfAllRegions)
{
    constexpr unsigned seed = 20230611;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    for (int count : {0, 1, 2, 300}) {
        KDRRegionArray regions;
        PixelSet pixels;
        for (int i = 0; i < count; ++i) {
            Runs const runs = randomRuns(random, 8, static_cast<long>(random() % 60),
                                         static_cast<long>(random() % 60));
            regions.push_back(regionOf(runs));
            pixels.add(runs);
        }
        KDRRegion region = regionOf({{1000, 0, 0}}, 5, 5);
        regions.toUnionedRegion(&region);
        EXPECT_EQ(runsOf(region), pixels.runs()) << count << " regions";
    }
}

TEST(RegionArray, UnionOfNothingIsEmptyWithoutExtent)
{
    KDRRegion region = regionOf({{1, 2, 3}}, 5, 6);
    KDRRegionArray().toUnionedRegion(&region);
    EXPECT_EQ(runsOf(region), Runs());
    EXPECT_EQ(region.width(), 0);
    EXPECT_EQ(region.height(), 0);
}

TEST(RegionArray, UnionTakesTheLargestExtentAlongEachAxis)
{
    KDRRegionArray regions;
    regions.push_back(regionOf({}, 30, 2));
    regions.push_back(regionOf({{0, 0, 0}}, 20, 40));
    KDRRegion region;
    regions.toUnionedRegion(&region);
    EXPECT_EQ(region.width(), 30);
    EXPECT_EQ(region.height(), 40);
}

TEST(RegionArray, UnionLeavesTheElementsAndMayGoIntoTheRegionOneWasCopiedFrom)
{
    KDRRegion region = regionOf({{1, 2, 3}});
    KDRRegionArray regions;
    regions.push_back(region);
    regions.push_back(regionOf({{1, 4, 5}, {2, 0, 0}}));
    regions.toUnionedRegion(&region);
    EXPECT_EQ(runsOf(region), Runs({{1, 2, 5}, {2, 0, 0}}));
    EXPECT_EQ(runsOf(regions[0]), Runs({{1, 2, 3}}));
    EXPECT_EQ(runsOf(regions[1]), Runs({{1, 4, 5}, {2, 0, 0}}));
    EXPECT_EQ(regions.length(), 2);
}

#ifndef NDEBUG
TEST(RegionArray, UnionIntoNullIsAssertedInDebugBuilds)
{
    EXPECT_DEATH(KDRRegionArray().toUnionedRegion(nullptr), "ASSERT");
}
#endif

TEST(RegionArray, ElementsCarryTheirExtent)
{
    KDRRegionArray regions;
    regions.push_back(regionOf({{1, 2, 3}}, 5, 6));
    KDRRegionArray const copy(regions);
    EXPECT_EQ(regions[0].width(), 5);
    EXPECT_EQ(copy[0].height(), 6);
    KDRRegion out;
    ASSERT_TRUE(copy.select(0, &out));
    EXPECT_EQ(out.width(), 5);
    EXPECT_EQ(out.height(), 6);
}

} // namespace
