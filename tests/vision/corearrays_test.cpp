#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/vision/kdrcontourarray.h>
#include <kdrdata/vision/kdrimagearray.h>
#include <kdrdata/vision/kdrmatrixarray.h>
#include <kdrdata/vision/kdrpointarray.h>
#include <kdrdata/vision/kdrregionarray.h>

#include <gtest/gtest.h>

#include <climits>
#include <type_traits>
#include <utility>

#include "../contract/arraysuite.h"
#include "../support/withoutobject.h"
#include "regions.h"

namespace {

struct PointArrayTraits
{
    using Array = KDRPointArray;
    using Element = KDRPoint;
    static constexpr bool insertsAtEnd = false;
    static KDRPoint make(int number) { return {number + 0.25, -number - 0.5}; }
    static int read(KDRPoint const& point)
    {
        int const number = static_cast<int>(point.x() - 0.25);
        EXPECT_EQ(point.y(), -number - 0.5);
        return number;
    }
};

struct ContourArrayTraits
{
    using Array = KDRContourArray;
    using Element = KDRContour;
    static constexpr bool insertsAtEnd = false;
    static KDRContour make(int number)
    {
        KDRPointArray points;
        points.push_back(PointArrayTraits::make(number));
        points.push_back(PointArrayTraits::make(number + 1));
        KDRContour contour;
        contour.FromPointArray(points);
        return contour;
    }
    static int read(KDRContour const& contour)
    {
        KDRPointArray points;
        contour.ToPointArray(&points);
        EXPECT_EQ(points.length(), 2);
        return PointArrayTraits::read(points[0]);
    }
};

struct ImageArrayTraits
{
    using Array = KDRImageArray;
    using Element = KDRImage;
    static constexpr bool insertsAtEnd = false;
    static KDRImage make(int number)
    {
        short pixel = static_cast<short>(number);
        return {&pixel, 1, 1, 1, 0, KDRImage::DataTypeInt16};
    }
    static int read(KDRImage const& image)
    {
        EXPECT_EQ(image.width(), 1);
        return *reinterpret_cast<short const*>(image.dataPtr());
    }
};

struct RegionArrayTraits
{
    using Array = KDRRegionArray;
    using Element = KDRRegion;
    static constexpr bool insertsAtEnd = false;
    static KDRRegion make(int number) { return regionOf({{number, -number, 2}}); }
    static int read(KDRRegion const& region)
    {
        Runs const runs = runsOf(region);
        EXPECT_EQ(runs.size(), 1U);
        return static_cast<int>(runs.front()[0]);
    }
};

struct MatrixArrayTraits
{
    using Array = KDRMatrixArray;
    using Element = KDRMatrix;
    static constexpr bool insertsAtEnd = false;
    static KDRMatrix make(int number)
    {
        KDRMatrix matrix(1, 2, KDRMatrix::MatrixTypeInt32);
        KDRNumber element(number);
        matrix.replace(0, 1, element);
        return matrix;
    }
    static int read(KDRMatrix const& matrix)
    {
        KDRNumber number;
        EXPECT_TRUE(matrix.select(0, 1, &number));
        return number.toInt();
    }
};

void expectDefault(KDRPoint const& point)
{
    EXPECT_EQ(point.x(), 0.0);
    EXPECT_EQ(point.y(), 0.0);
}
void expectDefault(KDRContour const& contour) { EXPECT_EQ(contour.length(), 0); }
void expectDefault(KDRImage const& image) { EXPECT_EQ(image.dataPtr(), nullptr); }
void expectDefault(KDRRegion const& region) { EXPECT_EQ(runsOf(region), Runs()); }
void expectDefault(KDRMatrix const& matrix) { EXPECT_EQ(matrix.rows(), 0); }

using CoreArrays = testing::Types<PointArrayTraits, ContourArrayTraits, ImageArrayTraits,
                                  RegionArrayTraits, MatrixArrayTraits>;
INSTANTIATE_TYPED_TEST_SUITE_P(CoreArrays, ArrayContract, CoreArrays, );

// The core library answers a default element for such an index.
template <class Traits>
class CoreArray : public testing::Test
{
};

TYPED_TEST_SUITE(CoreArray, CoreArrays, );

TYPED_TEST(CoreArray, IndexOutsideIsTheCoreLibrarysInDebugBuildsToo)
{
    typename TypeParam::Array array;
    array.push_back(TypeParam::make(4));
    for (int const index : {1, -1, INT_MAX, INT_MIN})
        expectDefault(array[index]);
}

TYPED_TEST(CoreArray, HandlesWithoutAnArrayReadAsDefaults)
{
    WithoutObject<typename TypeParam::Array> const empty;
    expectDefault(empty.handle[0]);
}

template <class Traits>
class AssignedCoreArray : public testing::Test
{
};

using AssignedCoreArrays = testing::Types<PointArrayTraits, ContourArrayTraits, ImageArrayTraits>;
TYPED_TEST_SUITE(AssignedCoreArray, AssignedCoreArrays, );

TYPED_TEST(AssignedCoreArray, HandlesWithoutAnArrayAreSkipped)
{
    WithoutObject<typename TypeParam::Array> empty;
    typename TypeParam::Array array;
    array.push_back(TypeParam::make(4));
    EXPECT_EQ(&(array = empty.handle), &array);
    ASSERT_EQ(array.length(), 1);
    EXPECT_EQ(TypeParam::read(array[0]), 4);
    EXPECT_EQ(&(empty.handle = array), &empty.handle);
    EXPECT_EQ(KDRInternal::pointer(empty.handle), nullptr);
}

TEST(PointArray, KeepsNoRanges)
{
    KDRPoint point(1.0, 2.0);
    point.setYMinVal(5.0);
    KDRPointArray array;
    array.push_back(point);
    ASSERT_TRUE(array.replace(0, point));
    ASSERT_TRUE(array.insert(0, point));
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(array[i].x(), 1.0);
        EXPECT_EQ(array[i].y(), 2.0);
        EXPECT_EQ(array[i].getYMinVal(), -999999.0);
    }
}

TEST(PointArray, SelectOverwritesCoordinatesAndLeavesRanges)
{
    KDRPointArray array;
    array.push_back(KDRPoint(1.0, 2.0));
    KDRPoint out(8.0, 9.0);
    out.setXMaxVal(50.0);
    out.setYStepVal(0.5);
    ASSERT_TRUE(array.select(0, &out));
    EXPECT_EQ(out.x(), 1.0);
    EXPECT_EQ(out.y(), 2.0);
    EXPECT_EQ(out.getXMaxVal(), 50.0);
    EXPECT_EQ(out.getYStepVal(), 0.5);
}

TEST(ImageArray, SharesPixelsWithWhatGoesInAndComesOut)
{
    KDRImage const image = ImageArrayTraits::make(3);
    KDRImageArray array;
    array.push_back(image);
    KDRImage out;
    ASSERT_TRUE(array.select(0, &out));
    EXPECT_EQ(out.dataPtr(), image.dataPtr());
    EXPECT_EQ(array[0].dataPtr(), image.dataPtr());
    KDRImageArray const copy(array);
    EXPECT_EQ(copy[0].dataPtr(), image.dataPtr());
}

} // namespace
