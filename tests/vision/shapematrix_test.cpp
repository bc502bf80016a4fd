// The grids: how the count is read back and which cells are appended.

#include <kdrdata/vision/kdrpoint.h>
#include <kdrdata/vision/kdrpointarray.h>
#include <kdrdata/vision/kdrshape.h>
#include <kdrdata/vision/kdrshapearray.h>
#include <kdrdata/vision/kdrshapeprivate.h>

#include <gtest/gtest.h>

#include <limits>

#include "../support/shapeaccess.h"

namespace {

constexpr int smallest = std::numeric_limits<int>::min();
constexpr int largest = std::numeric_limits<int>::max();

struct CountRow
{
    int count;
    int cells;
};

// For five centres.
constexpr CountRow countRows[] = {{3, 3}, {-1, 5}, {7, 5}, {0, 0},        {-5, 0},      {1, 1},
                                  {5, 5}, {4, 4},  {6, 5}, {smallest, 0}, {largest, 5}, {-2, 0}};

KDRPointArray fiveCentres()
{
    KDRPointArray centres;
    for (int i = 0; i < 5; ++i)
        centres.push_back(KDRPoint(10.0 * i, 0.5 - i));
    return centres;
}

void expectCentre(KDRPoint const& centre, int i)
{
    EXPECT_EQ(centre.x(), 10.0 * i);
    EXPECT_EQ(centre.y(), 0.5 - i);
    EXPECT_EQ(centre.getXMaxVal(), 999999.0);
}

TEST(ShapeMatrix, CirclesBecomeFullRingsForAsManyCentresAsTheCountSays)
{
    KDRPointArray centres = fiveCentres();
    for (CountRow const& row : countRows) {
        SCOPED_TRACE(row.count);
        KDRShape grid;
        grid.fromCircleMatrix(centres, 10.0, 20.0, row.count);
        EXPECT_EQ(grid.shapeType(), 15u);
        KDRShapeArray cells;
        KDRPointArray out;
        double inner = 0.0;
        double outer = 0.0;
        int count = 77;
        ASSERT_TRUE(grid.toCircleMatrix(&cells, &out, &inner, &outer, &count));
        EXPECT_EQ(out.length(), 5);
        EXPECT_EQ(inner, 10.0);
        EXPECT_EQ(outer, 20.0);
        EXPECT_EQ(count, row.count);
        ASSERT_EQ(cells.length(), row.cells);
        for (int i = 0; i < cells.length(); ++i) {
            KDRPoint centre;
            double p[4] = {};
            EXPECT_EQ(cells[i].shapeType(), 3u);
            ASSERT_TRUE(cells[i].toTorus(&centre, &p[0], &p[1], &p[2], &p[3]));
            expectCentre(centre, i);
            EXPECT_EQ(p[0], 10.0);
            EXPECT_EQ(p[1], 20.0);
            EXPECT_EQ(p[2], 0.0);
            EXPECT_EQ(p[3], 360.0);
        }
    }
}

TEST(ShapeMatrix, RectanglesBecomeRotatedOnesForAsManyCentresAsTheCountSays)
{
    KDRPointArray centres = fiveCentres();
    for (CountRow const& row : countRows) {
        SCOPED_TRACE(row.count);
        KDRShape grid;
        grid.fromRect2Matrix(centres, 1.5, 2.5, 3.5, row.count);
        EXPECT_EQ(grid.shapeType(), 14u);
        KDRShapeArray cells;
        KDRPointArray out;
        double p[3] = {};
        int count = 77;
        ASSERT_TRUE(grid.toRect2Matrix(&cells, &out, &p[0], &p[1], &p[2], &count));
        EXPECT_EQ(out.length(), 5);
        EXPECT_EQ(p[0], 1.5);
        EXPECT_EQ(p[1], 2.5);
        EXPECT_EQ(p[2], 3.5);
        EXPECT_EQ(count, row.count);
        ASSERT_EQ(cells.length(), row.cells);
        for (int i = 0; i < cells.length(); ++i) {
            KDRPoint centre;
            double cell[3] = {};
            EXPECT_EQ(cells[i].shapeType(), 4u);
            ASSERT_TRUE(cells[i].toRect2(&centre, &cell[0], &cell[1], &cell[2]));
            expectCentre(centre, i);
            EXPECT_EQ(cell[0], 1.5);
            EXPECT_EQ(cell[1], 2.5);
            EXPECT_EQ(cell[2], 3.5);
        }
    }
}

TEST(ShapeMatrix, CellsAreAppendedBehindWhatTheArrayHolds)
{
    KDRPointArray centres = fiveCentres();
    KDRPoint point(1.0, 1.0);
    KDRShape circle;
    circle.fromCircle(point, 2.0);
    KDRShapeArray cells;
    cells.push_back(circle);
    KDRPointArray out;
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    int count = 0;
    KDRShape grid;
    grid.fromCircleMatrix(centres, 1.0, 2.0, 2);
    ASSERT_TRUE(grid.toCircleMatrix(&cells, &out, &a, &b, &count));
    grid.fromRect2Matrix(centres, 1.0, 2.0, 3.0, -1);
    ASSERT_TRUE(grid.toRect2Matrix(&cells, &out, &a, &b, &c, &count));
    ASSERT_EQ(cells.length(), 8);
    EXPECT_EQ(cells[0].shapeType(), 2u);
    EXPECT_EQ(cells[1].shapeType(), 3u);
    EXPECT_EQ(cells[2].shapeType(), 3u);
    EXPECT_EQ(cells[3].shapeType(), 4u);
    EXPECT_EQ(cells[7].shapeType(), 4u);
    EXPECT_EQ(out.length(), 5);
}

TEST(ShapeMatrix, CellsShareNothingWithEachOtherOrWithTheGrid)
{
    KDRPointArray centres = fiveCentres();
    KDRShape grid;
    grid.fromCircleMatrix(centres, 1.0, 2.0, -1);
    KDRShapeArray cells;
    ASSERT_TRUE(grid.toCircleMatrix(&cells, nullptr, nullptr, nullptr, nullptr));
    ASSERT_EQ(cells.length(), 5);
    KDRShape first;
    KDRShape second;
    ASSERT_TRUE(cells.select(0, &first));
    ASSERT_TRUE(cells.select(1, &second));
    EXPECT_FALSE(ShapeAccess::shareRecord(first, second));
    EXPECT_FALSE(ShapeAccess::shareRecord(first, grid));
    EXPECT_EQ(ShapeAccess::record(grid).refCount(), 1);
}

TEST(ShapeMatrix, WithoutCentresThereAreNoCells)
{
    KDRPointArray none;
    for (int const count : {-1, 0, 3}) {
        KDRShape grid;
        grid.fromRect2Matrix(none, 1.0, 2.0, 3.0, count);
        KDRShapeArray cells;
        KDRPointArray out = fiveCentres();
        double p = 0.0;
        int back = 77;
        ASSERT_TRUE(grid.toRect2Matrix(&cells, &out, &p, &p, &p, &back));
        EXPECT_EQ(cells.length(), 0);
        EXPECT_EQ(out.length(), 0);
        EXPECT_EQ(back, count);
    }
}

TEST(ShapeMatrix, TheCountIsTruncatedTowardZeroOnReading)
{
    KDRPointArray centres = fiveCentres();
    KDRPoint point;
    KDRShape grid;
    for (double const stored : {2.9, -0.9, -1.9}) {
        // A count that is no integer, by way of a figure that keeps its numbers in the same places.
        grid.fromTorus(point, 1.0, 2.0, stored, stored);
        grid.fromPolygon(centres);
        int const whole = static_cast<int>(stored);
        int const cellCount = whole == -1 ? 5 : whole;
        double p = 0.0;
        KDRPointArray out;
        ShapeAccess::kind(ShapeAccess::record(grid)) = 15;
        KDRShapeArray rings;
        int count = 77;
        ASSERT_TRUE(grid.toCircleMatrix(&rings, &out, &p, &p, &count));
        EXPECT_EQ(count, whole);
        EXPECT_EQ(rings.length(), cellCount);
        ShapeAccess::kind(ShapeAccess::record(grid)) = 14;
        KDRShapeArray rectangles;
        count = 77;
        ASSERT_TRUE(grid.toRect2Matrix(&rectangles, &out, &p, &p, &p, &count));
        EXPECT_EQ(count, whole);
        EXPECT_EQ(rectangles.length(), cellCount);
    }
}

TEST(ShapeMatrix, TheRecordsOtherMatrixIsInert)
{
    KDRShapePrivate record;
    KDRPoint const corner(1.0, 2.0);
    record.fromMatrix(corner, 1.0, 2.0, 3.0, 4, 5, 6, 7.0, 8.0, true, false, 9.0, 10.0, true);
    EXPECT_EQ(record.shapeType(), 99u);
    KDRShapeArray cells;
    KDRPoint point(8.0, 9.0);
    double d[7] = {7.0, 7.0, 7.0, 7.0, 7.0, 7.0, 7.0};
    int n[3] = {7, 7, 7};
    bool flags[3] = {true, true, true};
    EXPECT_FALSE(record.toMatrix(&cells, &point, &d[0], &d[1], &d[2], &n[0], &n[1], &n[2], &d[3],
                                 &d[4], &flags[0], &flags[1], &d[5], &d[6], &flags[2]));
    EXPECT_EQ(cells.length(), 0);
    EXPECT_EQ(point.x(), 8.0);
    for (double const value : d)
        EXPECT_EQ(value, 7.0);
    for (int const value : n)
        EXPECT_EQ(value, 7);
    for (bool const value : flags)
        EXPECT_TRUE(value);
}

} // namespace
