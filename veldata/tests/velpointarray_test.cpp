#include <gtest/gtest.h>

#include <veldata/velimagearray.h>
#include <veldata/velpointarray.h>

namespace {

TEST(VelPoint, DefaultIsTheOrigin)
{
    VelPoint const point;
    EXPECT_EQ(point.x, 0.0);
    EXPECT_EQ(point.y, 0.0);
}

TEST(VelPoint, IsTwoDoublesXFirst)
{
    VelPoint const point(1.5, -2.5);
    double const* const values = reinterpret_cast<double const*>(&point);
    EXPECT_EQ(sizeof(VelPoint), 2 * sizeof(double));
    EXPECT_EQ(values[0], 1.5);
    EXPECT_EQ(values[1], -2.5);
}

TEST(VelPointArray, KeepsBothCoordinates)
{
    VelPointArray array;
    array.Append(VelPoint(1.25, -7.5));
    EXPECT_EQ(array[0].x, 1.25);
    EXPECT_EQ(array[0].y, -7.5);
}

TEST(VelPointArray, IndexedReadGivesACopy)
{
    VelPointArray array;
    array.Append(VelPoint(1, 2));
    VelPoint point = array[0];
    point.x = 9;
    EXPECT_EQ(point.x, 9.0);
    EXPECT_EQ(array[0].x, 1.0);
}

TEST(VelImageArray, ElementsShareTheirPixelsWithTheImagesPutIn)
{
    VelImage const image(nullptr, 2, 2, 1, 0, VEL_8U);
    VelImageArray array;
    array.Append(image);
    VelImageArray const copy(array);
    EXPECT_EQ(array[0].ImageData(), image.ImageData());
    EXPECT_EQ(copy[0].ImageData(), image.ImageData());
}

} // namespace
