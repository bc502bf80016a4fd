#include <kdrdata/vision/kdrcontour.h>
#include <kdrdata/vision/kdrpointarray.h>

#include <gtest/gtest.h>

namespace {

KDRPointArray rectangle(double width, double height)
{
    KDRPointArray corners;
    corners.push_back(KDRPoint(0.0, 0.0));
    corners.push_back(KDRPoint(width, 0.0));
    corners.push_back(KDRPoint(width, height));
    corners.push_back(KDRPoint(0.0, height));
    return corners;
}

TEST(Contour, IsOnePointerWide) { EXPECT_EQ(sizeof(KDRContour), sizeof(void*)); }

TEST(Contour, StartsEmpty)
{
    KDRContour const contour;
    EXPECT_EQ(contour.length(), 0);
    EXPECT_EQ(contour.perimeter(), 0.0);
    EXPECT_EQ(contour.area(), 0.0);
}

TEST(Contour, MeasuresItsClosedOutline)
{
    KDRPointArray corners = rectangle(4.0, 3.0);
    KDRContour contour;
    contour.FromPointArray(corners);
    EXPECT_EQ(contour.length(), 4);
    EXPECT_EQ(contour.perimeter(), 14.0);
    EXPECT_EQ(contour.area(), 12.0);
}

TEST(Contour, HandsItsPointsOverInOrderInPlaceOfWhatTheListHeld)
{
    KDRPointArray corners = rectangle(4.0, 3.0);
    KDRContour contour;
    contour.FromPointArray(corners);
    KDRPointArray points;
    points.push_back(KDRPoint(77.0, 77.0));
    contour.ToPointArray(&points);
    ASSERT_EQ(points.length(), 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(points[i].x(), corners[i].x());
        EXPECT_EQ(points[i].y(), corners[i].y());
    }
}

TEST(Contour, FromPointArrayReplacesTheOldPointsAndLeavesTheList)
{
    KDRPointArray corners = rectangle(4.0, 3.0);
    KDRPointArray none;
    KDRContour contour;
    contour.FromPointArray(corners);
    contour.FromPointArray(none);
    EXPECT_EQ(contour.length(), 0);
    EXPECT_EQ(corners.length(), 4);
}

TEST(Contour, CopiesAreDeep)
{
    KDRPointArray corners = rectangle(4.0, 3.0);
    KDRContour original;
    original.FromPointArray(corners);
    KDRContour const copy(original);
    KDRContour assigned;
    KDRContour& result = (assigned = original);
    EXPECT_EQ(&result, &assigned);
    KDRPointArray larger = rectangle(10.0, 10.0);
    original.FromPointArray(larger);
    EXPECT_EQ(copy.area(), 12.0);
    EXPECT_EQ(assigned.area(), 12.0);
    EXPECT_EQ(original.area(), 100.0);
}

TEST(Contour, AssignmentToItselfChangesNothing)
{
    KDRPointArray corners = rectangle(4.0, 3.0);
    KDRContour contour;
    contour.FromPointArray(corners);
    KDRContour const& alias = contour;
    contour = alias;
    EXPECT_EQ(contour.area(), 12.0);
}

} // namespace
