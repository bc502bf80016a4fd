// The conversion over a core region of interest that only takes notes: which of its operations is
// called with what, and types that the bundled one has no generator for.

#include <kdrdata/vision/dataconvert.h>
#include <kdrdata/vision/kdrregion.h>
#include <kdrdata/vision/kdrshape.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <veldata/velroi.h>

#include "../support/shapeaccess.h"
#include "shapetable.h"

std::vector<std::string> VelROI::calls;

namespace {

using Calls = std::vector<std::string>;

class DataConvertSeam : public testing::Test
{
protected:
    void SetUp() override { VelROI::calls.clear(); }

    Calls callsFor(unsigned kind)
    {
        VelROI::calls.clear();
        ShapeAccess::kind(ShapeAccess::record(shape)) = kind;
        EXPECT_EQ(convert.ShapeToROI(shape, &roi), 0);
        return VelROI::calls;
    }

    KDRShape fromType(unsigned type)
    {
        KDRPoint centre(9.0, 9.0);
        KDRShape result;
        result.fromCircle(centre, 9.0);
        roi.type = type;
        EXPECT_EQ(convert.ROIToShape(roi, &result), 0);
        return result;
    }

    DataConvert convert;
    VelROI roi;
    KDRShape shape;
};

TEST_F(DataConvertSeam, EachKindCallsItsGeneratorAlone)
{
    KDRPoint first(1.5, 2.5);
    KDRPoint second(-3.5, 4.5);
    KDRPointArray points;
    points.push_back(second);
    points.push_back(first);
    shape.fromTorus(first, 1.0, 2.0, 3.0, 4.0);
    shape.fromLine(first, second);
    shape.fromPolygon(points);

    EXPECT_EQ(callsFor(0), (Calls{"GenPoint (1.5, 2.5)"}));
    EXPECT_EQ(callsFor(1), (Calls{"GenRect1 (1.5, 2.5) (-3.5, 4.5)"}));
    EXPECT_EQ(callsFor(2), (Calls{"GenCircle (1.5, 2.5) 1"}));
    EXPECT_EQ(callsFor(3), (Calls{"GenTorus (1.5, 2.5) 1 2 3 4"}));
    EXPECT_EQ(callsFor(4), (Calls{"GenRect2 (1.5, 2.5) 1 2 3"}));
    EXPECT_EQ(callsFor(5), (Calls{"GenLine (1.5, 2.5) (-3.5, 4.5)"}));
    EXPECT_EQ(callsFor(6), (Calls{"GenEllipse (1.5, 2.5) 1 2 3"}));
    EXPECT_EQ(callsFor(7), (Calls{"GenArc (1.5, 2.5) 1 2 3"}));
    EXPECT_EQ(callsFor(8), (Calls{"GenPolygon (-3.5, 4.5) (1.5, 2.5)"}));
    EXPECT_EQ(callsFor(9), (Calls{"GenIrregular (-3.5, 4.5) (1.5, 2.5)"}));
    EXPECT_EQ(callsFor(12), (Calls{"GenLine (1.5, 2.5) (-3.5, 4.5)"}));
    EXPECT_EQ(callsFor(99), (Calls{"operator="}));
}

TEST_F(DataConvertSeam, AnEmptyOutlineIsGeneratedToo)
{
    EXPECT_EQ(callsFor(8), (Calls{"GenPolygon"}));
    EXPECT_EQ(callsFor(9), (Calls{"GenIrregular"}));
}

TEST_F(DataConvertSeam, KindsWithoutCounterpartCallNothing)
{
    for (unsigned const kind : {10u, 11u, 13u, 14u, 15u, 16u, 17u, 18u, 19u, 98u, 100u, 120u, 300u})
        EXPECT_EQ(callsFor(kind), Calls()) << kind;
}

TEST_F(DataConvertSeam, EachTypeBecomesItsKindWithTheFigureOfItsGetter)
{
    struct Row
    {
        unsigned type;
        unsigned kind;
        char const* call;
    };
    Row const rows[] = {{1, 2, "GetCircle"},    {2, 3, "GetTorus"}, {4, 8, "GetPolygon"},
                        {5, 9, "GetIrregular"}, {6, 4, "GetRect2"}, {7, 5, "GetLine"},
                        {8, 6, "GetEllipse"},   {9, 7, "GetArc"}};
    ShapeFields fields;
    fields.first = KDRPoint(1.0, 2.0);
    fields.second = KDRPoint(3.0, 4.0);
    fields.points.push_back(fields.first);
    fields.points.push_back(fields.second);
    for (int i = 0; i < 4; ++i)
        fields.p[i] = 5.0 + i;
    for (Row const& row : rows) {
        SCOPED_TRACE(row.call);
        VelROI::calls.clear();
        KDRShape const result = fromType(row.type);
        EXPECT_EQ(VelROI::calls, (Calls{row.call}));
        ASSERT_EQ(result.shapeType(), row.kind);
        for (auto const& getter : shapeGetters<KDRShape>) {
            if (getter.kind != row.kind)
                continue;
            ShapeValues expected;
            getter.expect(fields, expected);
            ShapeValues out;
            ASSERT_TRUE(getter.read(result, out));
            EXPECT_EQ(describe(out), describe(expected));
        }
    }
}

TEST_F(DataConvertSeam, ARegionBecomesAnEmptyRegion)
{
    KDRShape const result = fromType(11);
    EXPECT_EQ(result.shapeType(), 10u);
    ShapeValues out = shapeValues(5);
    ASSERT_TRUE(result.toRegion(&out.region));
    ShapeValues expected = shapeValues(5);
    expected.region = KDRRegion();
    EXPECT_EQ(describe(out), describe(expected));
    EXPECT_EQ(VelROI::calls, Calls());
}

TEST_F(DataConvertSeam, PointAndRectangleStoreNothing)
{
    EXPECT_EQ(fromType(0).shapeType(), 2u);
    EXPECT_EQ(fromType(10).shapeType(), 2u);
    EXPECT_EQ(VelROI::calls, (Calls{"GetRect1", "GetPoint"}));
}

TEST_F(DataConvertSeam, AnEmptyRecordResetsTheShape)
{
    EXPECT_EQ(fromType(3).shapeType(), 99u);
    EXPECT_EQ(VelROI::calls, Calls());
}

TEST_F(DataConvertSeam, UnknownTypesLeaveTheShapeAsItWas)
{
    KDRPoint centre;
    double radius = 0.0;
    for (unsigned const type : {12u, 13u, 99u, 4294967295u}) {
        KDRShape const result = fromType(type);
        ASSERT_TRUE(result.toCircle(&centre, &radius)) << type;
        EXPECT_EQ(radius, 9.0);
    }
    EXPECT_EQ(VelROI::calls, Calls());
}

} // namespace
