// The region handles over core regions that only take notes: what the library asks of the core
// library, and what it makes of answers that the bundled one never gives.

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/vision/kdrregionarray.h>

#include <gtest/gtest.h>

#include "regions.h"

#include <veldata/velregion.h>

#include <climits>
#include <stdexcept>

std::vector<std::string> VelRegion::calls;
std::vector<long> VelRegion::runs;
bool VelRegion::failing = false;
int VelRegion::alive = 0;

namespace {

using Calls = std::vector<std::string>;

class RegionSeam : public testing::Test
{
protected:
    void SetUp() override
    {
        VelRegion::calls.clear();
        VelRegion::runs.clear();
        VelRegion::failing = false;
    }
};

class RegionArraySeam : public RegionSeam
{
};

Runs const someRuns = {{1, 0, 3}, {1, 5, 9}, {2, 3, 4}};

TEST_F(RegionSeam, ListsAndExtentArePassedOnInTheirOrder)
{
    regionOf(someRuns, 10, 20);
    regionOf({}, 0, INT_MIN);
    EXPECT_EQ(VelRegion::calls,
              (Calls{"sized 10 20 [1 1 2] [0 5 3] [3 9 4]", "sized 0 -2147483648 [] [] []"}));
}

TEST_F(RegionSeam, NegativeWidthPassesTheListsAlone)
{
    regionOf(someRuns, -1, 20);
    regionOf({}, INT_MIN, 20);
    EXPECT_EQ(VelRegion::calls, (Calls{"lists [1 1 2] [0 5 3] [3 9 4]", "lists [] [] []"}));
}

TEST_F(RegionSeam, RunsAreReadInTheCoreLibrarysOrderWhateverItAnswers)
{
    VelRegion::runs = {50, 10, 30};
    RunLists lists(someRuns);
    EXPECT_TRUE(KDRRegion().toRunLengthEncodeing(&lists.rows, &lists.firsts, &lists.lasts));
    EXPECT_EQ(lists.runs(), Runs({{50, 51, 52}, {10, 11, 12}, {30, 31, 32}}));
    EXPECT_EQ(VelRegion::calls, Calls{"GetRegionRuns [] [] []"});
}

TEST_F(RegionSeam, ExtentIsTheCoreRegionsOwn)
{
    KDRRegion region;
    EXPECT_EQ(region.width(), 101);
    EXPECT_EQ(region.height(), 102);
}

TEST_F(RegionSeam, CopiesGoThroughTheCoreRegionsAssignment)
{
    KDRRegion region;
    KDRInternal::wrapped(region).width = 7;
    KDRRegion copy(region);
    KDRRegion assigned;
    assigned = region;
    EXPECT_EQ(copy.width(), 7);
    EXPECT_EQ(assigned.width(), 7);
    EXPECT_EQ(VelRegion::calls, (Calls{"operator=", "operator="}));
}

TEST_F(RegionSeam, ExceptionsOfTheCoreLibraryPassAndLeaveTheRegion)
{
    RunLists lists(someRuns);
    KDRRegion region;
    VelRegion const* const before = &KDRInternal::wrapped(region);
    VelRegion::failing = true;
    for (int width : {-1, 10}) {
        EXPECT_THROW(
            region.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, width, 10),
            std::runtime_error);
        EXPECT_EQ(&KDRInternal::wrapped(region), before);
    }
    EXPECT_THROW(KDRRegion{region}, std::runtime_error);
    EXPECT_EQ(lists.runs(), someRuns);
    EXPECT_THROW(region.toRunLengthEncodeing(&lists.rows, &lists.firsts, &lists.lasts),
                 std::runtime_error);
    EXPECT_EQ(lists.runs(), Runs());
    EXPECT_EQ(VelRegion::alive, 1);
}

TEST_F(RegionSeam, EveryCoreRegionIsDestroyed)
{
    {
        KDRRegion region = regionOf(someRuns, 10, 10);
        for (int i = 0; i < 3; ++i)
            region = regionOf(someRuns, -1, 10);
        RunLists lists;
        region.fromRunLengthEncodeing(lists.rows, lists.firsts, lists.lasts, 1, 1);
        EXPECT_EQ(VelRegion::alive, 1);
        KDRRegionArray const regions;
        regions[1].width();
    }
    EXPECT_EQ(VelRegion::alive, 0);
}

TEST_F(RegionArraySeam, OperationsReachTheCoreArray)
{
    KDRRegionArray regions;
    KDRRegion region;
    regions.push_back(region);
    regions.push_back(regions);
    EXPECT_TRUE(regions.insert(2, region));
    EXPECT_TRUE(regions.removeAt(1));
    EXPECT_TRUE(regions.replace(0, region));
    EXPECT_TRUE(regions.swap(2, 1));
    EXPECT_TRUE(regions.select(2, &region));
    EXPECT_EQ(region.width(), 2);
    regions.clear();
    EXPECT_EQ(regions.length(), 3);
    EXPECT_EQ(VelRegion::calls, (Calls{"Append one", "Append all", "Insert 2", "Remove 1",
                                       "Replace 0", "Swap 2 1", "Select 2", "Clear"}));
}

TEST_F(RegionArraySeam, CopiesGoThroughTheCoreArraysCopyConstruction)
{
    KDRRegionArray regions;
    KDRRegionArray const copy(regions);
    EXPECT_EQ(VelRegion::calls, Calls{"array copy"});
    regions = copy;
    EXPECT_EQ(VelRegion::calls, (Calls{"array copy", "array operator="}));
}

TEST_F(RegionArraySeam, AnyIndexIsPassedToTheCoreArray)
{
    KDRRegionArray const array;
    for (int const index : {0, 2, 3, -1, INT_MIN, INT_MAX}) {
        VelRegion::calls.clear();
        (void)array[index];
        EXPECT_EQ(VelRegion::calls.at(0), "operator[] " + std::to_string(index));
    }
}

TEST_F(RegionArraySeam, IndexReadAssignsTheCoreElement)
{
    KDRRegionArray const regions;
    KDRRegion const region = regions[1];
    EXPECT_EQ(VelRegion::calls, (Calls{"operator[] 1", "operator="}));
}

TEST_F(RegionArraySeam, UnionGoesIntoTheGivenRegionWhateverTheAnswer)
{
    KDRRegion region;
    KDRRegionArray().toUnionedRegion(&region);
    EXPECT_EQ(region.width(), 77);
    EXPECT_EQ(VelRegion::calls, Calls{"Union"});
}

} // namespace
