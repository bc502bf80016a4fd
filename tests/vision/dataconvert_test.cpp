// Shapes into regions of interest and back, kind by kind.

#include <kdrdata/scalars/kdrnumberarray.h>
#include <kdrdata/vision/dataconvert.h>
#include <kdrdata/vision/kdrcontourarray.h>
#include <kdrdata/vision/kdrfont.h>
#include <kdrdata/vision/kdrregion.h>
#include <kdrdata/vision/kdrshape.h>
#include <kdrdata/vision/kdrshapeprivate.h>

#include <gtest/gtest.h>

#include <type_traits>

#include <veldata/vel3dshape.h>
#include <veldata/velpoint.h>
#include <veldata/velpointarray.h>
#include <veldata/velregion.h>
#include <veldata/velroi.h>
#include <veldata/velvar.h>
#include <veldata/velvararray.h>

#include "../support/shapeaccess.h"
#include "shapetable.h"

namespace {

// The types of VelROI::ROIType().
enum : unsigned int {
    rect1 = 0,
    circle = 1,
    torus = 2,
    empty = 3,
    polygon = 4,
    irregular = 5,
    rect2 = 6,
    line = 7,
    ellipse = 8,
    arc = 9,
    point = 10,
    region = 11
};

void expectPoint(VelPoint const& point, double x, double y)
{
    EXPECT_EQ(point.x, x);
    EXPECT_EQ(point.y, y);
}

void expectPoint(KDRPoint const& point, double x, double y)
{
    EXPECT_EQ(point.x(), x);
    EXPECT_EQ(point.y(), y);
    EXPECT_EQ(point.getXMaxVal(), 999999.0);
}

// A record that no conversion here writes, to see whether it is touched.
VelROI markedROI()
{
    VelPoint centre(11.0, 12.0);
    VelROI roi;
    roi.GenTorus(centre, 13.0, 14.0, 15.0, 16.0);
    return roi;
}

bool isMarked(VelROI const& roi)
{
    VelPoint centre;
    double p[4] = {};
    if (roi.ROIType() != torus)
        return false;
    roi.GetTorus(&centre, &p[0], &p[1], &p[2], &p[3]);
    return centre.x == 11.0 && centre.y == 12.0 && p[0] == 13.0 && p[1] == 14.0 && p[2] == 15.0 &&
           p[3] == 16.0;
}

VelROI toROI(KDRShape& shape)
{
    VelROI roi = markedROI();
    EXPECT_EQ(DataConvert().ShapeToROI(shape, &roi), 0);
    return roi;
}

KDRShape toShape(VelROI& roi)
{
    KDRShape shape;
    EXPECT_EQ(DataConvert().ROIToShape(roi, &shape), 0);
    return shape;
}

class ShapeToROI : public testing::Test
{
protected:
    KDRPoint first{3.0, 4.0};
    KDRPoint second{-10.5, 0.25};
    KDRShape shape;
    VelPoint a;
    VelPoint b;
    double p[4] = {};
};

TEST_F(ShapeToROI, WritesACircle)
{
    shape.fromCircle(first, 5.0);
    VelROI const roi = toROI(shape);
    ASSERT_EQ(roi.ROIType(), circle);
    roi.GetCircle(&a, &p[0]);
    expectPoint(a, 3.0, 4.0);
    EXPECT_EQ(p[0], 5.0);
}

TEST_F(ShapeToROI, WritesATorus)
{
    shape.fromTorus(first, 1.0, 2.0, 3.0, 4.0);
    VelROI const roi = toROI(shape);
    ASSERT_EQ(roi.ROIType(), torus);
    roi.GetTorus(&a, &p[0], &p[1], &p[2], &p[3]);
    expectPoint(a, 3.0, 4.0);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(p[i], i + 1.0);
}

TEST_F(ShapeToROI, WritesTheFiguresWithThreeNumbers)
{
    struct Row
    {
        unsigned type;
        void (KDRShape::*generate)(KDRPoint&, double, double, double);
        int (VelROI::*get)(VelPoint*, double*, double*, double*) const;
    };
    Row const rows[] = {{rect2, &KDRShape::fromRect2, &VelROI::GetRect2},
                        {ellipse, &KDRShape::fromEllipse, &VelROI::GetEllipse},
                        {arc, &KDRShape::fromArc, &VelROI::GetArc}};
    for (Row const& row : rows) {
        (shape.*row.generate)(first, 1.5, 2.5, 3.5);
        VelROI const roi = toROI(shape);
        ASSERT_EQ(roi.ROIType(), row.type);
        (roi.*row.get)(&a, &p[0], &p[1], &p[2]);
        expectPoint(a, 3.0, 4.0);
        EXPECT_EQ(p[0], 1.5);
        EXPECT_EQ(p[1], 2.5);
        EXPECT_EQ(p[2], 3.5);
    }
}

TEST_F(ShapeToROI, WritesALineFromTheFirstPointToTheSecond)
{
    shape.fromLine(first, second);
    VelROI const roi = toROI(shape);
    ASSERT_EQ(roi.ROIType(), line);
    roi.GetLine(&a, &b);
    expectPoint(a, 3.0, 4.0);
    expectPoint(b, -10.5, 0.25);
}

TEST_F(ShapeToROI, WritesAnArrowAsALineFromTailToHead)
{
    KDRPoint tail(0.0, 0.0);
    KDRPoint head(10.0, 0.0);
    shape.fromArrow(tail, head);
    VelROI roi = toROI(shape);
    ASSERT_EQ(roi.ROIType(), line);
    roi.GetLine(&a, &b);
    expectPoint(a, 0.0, 0.0);
    expectPoint(b, 10.0, 0.0);
    EXPECT_EQ(toShape(roi).shapeType(), 5u);
}

TEST_F(ShapeToROI, WritesOutlinesInOrderAlsoEmptyOnes)
{
    for (int const length : {0, 1, 7}) {
        KDRPointArray points;
        for (int i = 0; i < length; ++i)
            points.push_back(KDRPoint(i + 0.5, -i));
        for (unsigned const type : {polygon, irregular}) {
            if (type == polygon)
                shape.fromPolygon(points);
            else
                shape.fromIrregular(points);
            VelROI const roi = toROI(shape);
            ASSERT_EQ(roi.ROIType(), type);
            VelPointArray out;
            if (type == polygon)
                roi.GetPolygon(&out);
            else
                roi.GetIrregular(&out);
            ASSERT_EQ(out.Length(), length);
            for (int i = 0; i < length; ++i)
                expectPoint(out[i], i + 0.5, -i);
        }
    }
}

TEST_F(ShapeToROI, ResetsTheRecordForAnEmptyShape) { EXPECT_EQ(toROI(shape).ROIType(), empty); }

// No generator makes these two kinds; a record that is one by hand still converts.
TEST_F(ShapeToROI, WritesAPointAndARectangleOfARecordMadeByHand)
{
    shape.fromLine(first, second);
    ShapeAccess::kind(ShapeAccess::record(shape)) = KDRShape::Point;
    VelROI pointROI = toROI(shape);
    ASSERT_EQ(pointROI.ROIType(), point);
    pointROI.GetPoint(&a);
    expectPoint(a, 3.0, 4.0);

    ShapeAccess::kind(ShapeAccess::record(shape)) = KDRShape::Rect1;
    VelROI const rectangleROI = toROI(shape);
    ASSERT_EQ(rectangleROI.ROIType(), rect1);
    rectangleROI.GetRect1(&a, &b);
    expectPoint(a, 3.0, 4.0);
    expectPoint(b, -10.5, 0.25);
}

TEST_F(ShapeToROI, LeavesTheRecordAsItWasForRegionsAndKindsWithoutCounterpart)
{
    for (auto const& generator : shapeGenerators<KDRShape>) {
        SCOPED_TRACE(generator.name);
        ShapeValues in = shapeValues(5);
        KDRShape figure;
        generator.generate(figure, in);
        bool const untouched =
            figure.shapeType() == KDRShape::Region || figure.shapeType() == KDRShape::Text ||
            (figure.shapeType() >= KDRShape::Contours && figure.shapeType() < 99);
        EXPECT_EQ(isMarked(toROI(figure)), untouched);
    }
    for (unsigned const kind :
         {10u, 11u, 13u, 14u, 15u, 16u, 17u, 18u, 19u, 57u, 98u, 100u, 120u, 300u, 4294967295u}) {
        ShapeAccess::kind(ShapeAccess::record(shape)) = kind;
        EXPECT_TRUE(isMarked(toROI(shape))) << kind;
    }
}

TEST_F(ShapeToROI, LeavesTheShapeAsItWas)
{
    shape.fromCircle(first, 5.0);
    KDRShape const sharer(shape);
    toROI(shape);
    EXPECT_TRUE(ShapeAccess::shareRecord(shape, sharer));
    EXPECT_EQ(shape.shapeType(), 2u);
}

class ROIToShape : public testing::Test
{
protected:
    VelPoint first{3.0, 4.0};
    VelPoint second{-10.5, 0.25};
    VelROI roi;
    KDRPoint a;
    KDRPoint b;
    double p[4] = {};
};

TEST_F(ROIToShape, ReadsACircle)
{
    roi.GenCircle(first, 5.0);
    KDRShape const shape = toShape(roi);
    ASSERT_TRUE(shape.toCircle(&a, &p[0]));
    expectPoint(a, 3.0, 4.0);
    EXPECT_EQ(p[0], 5.0);
}

TEST_F(ROIToShape, ReadsATorus)
{
    roi.GenTorus(first, 1.0, 2.0, 3.0, 4.0);
    KDRShape const shape = toShape(roi);
    ASSERT_TRUE(shape.toTorus(&a, &p[0], &p[1], &p[2], &p[3]));
    expectPoint(a, 3.0, 4.0);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(p[i], i + 1.0);
}

TEST_F(ROIToShape, ReadsTheFiguresWithThreeNumbers)
{
    roi.GenRect2(first, 1.5, 2.5, 3.5);
    EXPECT_TRUE(toShape(roi).toRect2(&a, &p[0], &p[1], &p[2]));
    expectPoint(a, 3.0, 4.0);
    EXPECT_EQ(p[0], 1.5);
    EXPECT_EQ(p[1], 2.5);
    EXPECT_EQ(p[2], 3.5);
    roi.GenEllipse(second, 4.5, 5.5, 6.5);
    EXPECT_TRUE(toShape(roi).toEllipse(&a, &p[0], &p[1], &p[2]));
    expectPoint(a, -10.5, 0.25);
    EXPECT_EQ(p[0], 4.5);
    EXPECT_EQ(p[1], 5.5);
    EXPECT_EQ(p[2], 6.5);
    roi.GenArc(first, 7.5, 8.5, 9.5);
    EXPECT_TRUE(toShape(roi).toArc(&a, &p[0], &p[1], &p[2]));
    expectPoint(a, 3.0, 4.0);
    EXPECT_EQ(p[0], 7.5);
    EXPECT_EQ(p[1], 8.5);
    EXPECT_EQ(p[2], 9.5);
}

TEST_F(ROIToShape, ReadsALine)
{
    roi.GenLine(first, second);
    ASSERT_TRUE(toShape(roi).toLine(&a, &b));
    expectPoint(a, 3.0, 4.0);
    expectPoint(b, -10.5, 0.25);
}

TEST_F(ROIToShape, ReadsOutlinesInOrderAlsoEmptyOnes)
{
    for (int const length : {0, 1, 7}) {
        VelPointArray points;
        for (int i = 0; i < length; ++i)
            points.Append(VelPoint(i + 0.5, -i));
        KDRPointArray out;
        roi.GenPolygon(points);
        ASSERT_TRUE(toShape(roi).toPolygon(&out));
        ASSERT_EQ(out.length(), length);
        for (int i = 0; i < length; ++i)
            expectPoint(out[i], i + 0.5, -i);
        roi.GenIrregular(points);
        ASSERT_TRUE(toShape(roi).toIrregular(&out));
        ASSERT_EQ(out.length(), length);
        for (int i = 0; i < length; ++i)
            expectPoint(out[i], i + 0.5, -i);
    }
}

TEST_F(ROIToShape, ResetsTheShapeForAnEmptyRecord)
{
    KDRPoint centre;
    KDRShape shape;
    shape.fromCircle(centre, 5.0);
    KDRShape const sharer(shape);
    ASSERT_EQ(roi.ROIType(), empty);
    EXPECT_EQ(DataConvert().ROIToShape(roi, &shape), 0);
    EXPECT_EQ(shape.shapeType(), 99u);
    EXPECT_EQ(sharer.shapeType(), 2u);
}

TEST_F(ROIToShape, ARegionBecomesAnEmptyRegion)
{
    VelVarArray row;
    row.Append(VelVar(3L));
    VelRegion const pixels(10, 20, row, row, row);
    ASSERT_EQ(pixels.Width(), 10);
    roi.GenRegion(pixels);
    ASSERT_EQ(roi.ROIType(), region);
    KDRShape const shape = toShape(roi);
    EXPECT_EQ(shape.shapeType(), 10u);
    ShapeValues out = shapeValues(5);
    ASSERT_TRUE(shape.toRegion(&out.region));
    ShapeValues none = shapeValues(5);
    none.region = KDRRegion();
    EXPECT_EQ(describe(out), describe(none));
}

TEST_F(ROIToShape, PointAndRectangleOnlyMakeTheShapeStopSharing)
{
    KDRPoint centre;
    KDRShape circleShape;
    circleShape.fromCircle(centre, 5.0);
    for (unsigned const type : {point, rect1}) {
        if (type == point)
            roi.GenPoint(first);
        else
            roi.GenRect1(first, second);
        ASSERT_EQ(roi.ROIType(), type);
        EXPECT_EQ(DataConvert().ROIToShape(roi, &circleShape), 0);
        ASSERT_TRUE(circleShape.toCircle(&centre, &p[0]));
        EXPECT_EQ(p[0], 5.0);

        KDRShape sharer(circleShape);
        EXPECT_EQ(DataConvert().ROIToShape(roi, &sharer), 0);
        EXPECT_EQ(sharer.shapeType(), 99u);
        EXPECT_EQ(circleShape.shapeType(), 2u);
        EXPECT_EQ(ShapeAccess::record(circleShape).refCount(), 1);
    }
}

TEST(DataConvert, EveryKindThatHasACounterpartSurvivesBothWays)
{
    for (auto const& generator : shapeGenerators<KDRShape>) {
        SCOPED_TRACE(generator.name);
        ShapeValues in = shapeValues(5);
        // Ranges stay behind.
        in.first = KDRPoint(in.first.x(), in.first.y());
        in.second = KDRPoint(in.second.x(), in.second.y());
        KDRShape shape;
        ShapeFields fields;
        generator.generate(shape, in);
        generator.store(in, fields);
        if (fields.kind > KDRShape::Irregular)
            continue;
        VelROI roi = toROI(shape);
        KDRShape const back = toShape(roi);
        ASSERT_EQ(back.shapeType(), fields.kind);
        for (auto const& getter : shapeGetters<KDRShape>) {
            if (getter.kind != fields.kind)
                continue;
            ShapeValues expected;
            getter.expect(fields, expected);
            ShapeValues out;
            ASSERT_TRUE(getter.read(back, out));
            EXPECT_EQ(describe(out), describe(expected)) << getter.name;
        }
    }
}

TEST(DataConvert, NullOutputsAreLeftAlone)
{
    KDRShape shape;
    VelROI roi = markedROI();
    EXPECT_EQ(DataConvert().ShapeToROI(shape, nullptr), 0);
    EXPECT_EQ(DataConvert().ROIToShape(roi, nullptr), 0);
    EXPECT_TRUE(isMarked(roi));
}

TEST(DataConvert, FiguresInSpaceAreNotConverted)
{
    KDRPoint centre;
    KDRShape shape;
    shape.fromCircle(centre, 5.0);
    KDRShape const sharer(shape);
    DataConvert convert;
    Vel3DShape figure;
    EXPECT_EQ(convert.ShapeToVel3DShape(shape, &figure), 0);
    EXPECT_EQ(convert.ShapeToVel3DShape(shape, nullptr), 0);
    EXPECT_EQ(convert.Vel3dShapeToShape(figure, &shape), 0);
    EXPECT_EQ(convert.Vel3dShapeToShape(figure, nullptr), 0);
    EXPECT_TRUE(ShapeAccess::shareRecord(shape, sharer));
}

TEST(DataConvert, HoldsNothing)
{
    EXPECT_TRUE(std::is_empty<DataConvert>::value);
    EXPECT_FALSE(std::is_polymorphic<DataConvert>::value);
}

TEST(DataConvert, AMillionPointsPassBothWays)
{
    constexpr int length = 1000000;
    VelPointArray corners;
    for (int i = 0; i < length; ++i)
        corners.Append(VelPoint(i, -i));
    VelROI roi;
    roi.GenPolygon(corners);
    KDRShape shape = toShape(roi);
    VelROI const back = toROI(shape);
    VelPointArray out;
    back.GetPolygon(&out);
    ASSERT_EQ(out.Length(), length);
    expectPoint(out[length - 1], length - 1, 1 - length);
}

} // namespace
