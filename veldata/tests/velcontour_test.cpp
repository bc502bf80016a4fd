#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/imgproc.hpp>

#include <veldata/velcontour.h>

namespace {

VelContour contourOf(std::vector<VelPoint> const& points)
{
    VelPointArray array;
    for (VelPoint const& point : points)
        array.Append(point);
    VelContour contour;
    contour.FromPointArray(array);
    return contour;
}

VelContour rectangle(double left, double top, double width, double height)
{
    return contourOf({VelPoint(left, top), VelPoint(left + width, top),
                      VelPoint(left + width, top + height), VelPoint(left, top + height)});
}

TEST(VelContour, DefaultHasNoPoints)
{
    VelContour const contour;
    EXPECT_EQ(contour.Length(), 0);
    EXPECT_EQ(contour.Perimeter(), 0.0);
    EXPECT_EQ(contour.Area(), 0.0);
}

TEST(VelContour, FromPointArrayReplacesThePoints)
{
    VelContour contour = rectangle(0, 0, 1, 1);
    VelPointArray points;
    points.Append(VelPoint(3, 4));
    EXPECT_EQ(contour.FromPointArray(points), 1);
    EXPECT_EQ(contour.Length(), 1);
    EXPECT_EQ(contour.FromPointArray(VelPointArray()), 1);
    EXPECT_EQ(contour.Length(), 0);
}

TEST(VelContour, ToPointArrayReplacesTheListsContents)
{
    VelContour const contour = contourOf({VelPoint(1, 2), VelPoint(3, 4)});
    VelPointArray points;
    for (int i = 0; i < 5; ++i)
        points.Append(VelPoint(9, 9));
    EXPECT_EQ(contour.ToPointArray(&points), 1);
    ASSERT_EQ(points.Length(), 2);
    EXPECT_EQ(points[0].x, 1.0);
    EXPECT_EQ(points[0].y, 2.0);
    EXPECT_EQ(points[1].x, 3.0);
    EXPECT_EQ(points[1].y, 4.0);
}

TEST(VelContour, ToPointArrayIntoNullIsRefused)
{
    EXPECT_EQ(rectangle(0, 0, 1, 1).ToPointArray(nullptr), 0);
}

TEST(VelContour, CopiesAreIndependentAndMovesLeaveNoPoints)
{
    VelContour source = rectangle(0, 0, 2, 3);
    VelContour copy(source);
    source.FromPointArray(VelPointArray());
    EXPECT_EQ(copy.Length(), 4);

    source = copy;
    EXPECT_EQ(source.Area(), 6.0);
    VelContour moved(std::move(source));
    EXPECT_EQ(source.Length(), 0);
    EXPECT_EQ(moved.Area(), 6.0);
    source = std::move(moved);
    EXPECT_EQ(moved.Length(), 0);
    EXPECT_EQ(source.Area(), 6.0);
}

TEST(VelContour, MeasuresOfARectangle)
{
    VelContour const contour = rectangle(-3, 7, 4, 2.5);
    EXPECT_EQ(contour.Length(), 4);
    EXPECT_EQ(contour.Perimeter(), 13.0);
    EXPECT_EQ(contour.Area(), 10.0);
}

TEST(VelContour, OnePointHasNoExtentAndTwoPointsAreWalkedThereAndBack)
{
    VelContour const point = contourOf({VelPoint(5, 6)});
    EXPECT_EQ(point.Perimeter(), 0.0);
    EXPECT_EQ(point.Area(), 0.0);

    VelContour const segment = contourOf({VelPoint(1, 1), VelPoint(4, 5)});
    EXPECT_EQ(segment.Perimeter(), 10.0);
    EXPECT_EQ(segment.Area(), 0.0);
}

TEST(VelContour, AreaIsPositiveWhicheverWayTheOutlineTurns)
{
    VelPoint const a(0, 0);
    VelPoint const b(4, 0);
    VelPoint const c(0, 3);
    EXPECT_EQ(contourOf({a, b, c}).Area(), 6.0);
    EXPECT_EQ(contourOf({c, b, a}).Area(), 6.0);
}

TEST(VelContour, LargeOffsetsLoseNoDigits)
{
    VelContour const contour = rectangle(1e12, -1e12, 3, 0.5);
    EXPECT_EQ(contour.Area(), 1.5);
    EXPECT_EQ(contour.Perimeter(), 7.0);
}

TEST(VelContour, MeasuresOfARegularPolygonFollowTheClosedForm)
{
    double const pi = std::acos(-1.0);
    int const corners = 360;
    double const radius = 250.0;
    std::vector<VelPoint> points;
    for (int i = 0; i < corners; ++i) {
        double const angle = 2.0 * pi * i / corners;
        points.push_back(
            VelPoint(1000 + radius * std::cos(angle), 2000 + radius * std::sin(angle)));
    }
    VelContour const contour = contourOf(points);
    EXPECT_NEAR(contour.Perimeter(), 2.0 * corners * radius * std::sin(pi / corners), 1e-8);
    EXPECT_NEAR(contour.Area(), 0.5 * corners * radius * radius * std::sin(2.0 * pi / corners),
                1e-6);
}

/// OpenCV measures in single precision, hence the small integer coordinates and the tolerance.
TEST(VelContour, MeasuresAgreeWithOpenCv)
{
    constexpr unsigned seed = 20230922;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> coordinate(-50, 50);
    for (int round = 0; round < 200; ++round) {
        std::vector<VelPoint> points;
        std::vector<cv::Point> witness;
        for (int i = 0; i < 3 + round % 20; ++i) {
            witness.emplace_back(coordinate(random), coordinate(random));
            points.push_back(VelPoint(witness.back().x, witness.back().y));
        }
        VelContour const contour = contourOf(points);
        EXPECT_EQ(contour.Area(), cv::contourArea(witness));
        EXPECT_NEAR(contour.Perimeter(), cv::arcLength(witness, true), 0.01);
    }
}

} // namespace
