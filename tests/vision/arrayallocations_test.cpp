// What arrays and the conversion leave behind where memory runs out.

#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <veldata/velroi.h>

#include "../support/failing.h"

namespace {

KDRShape circle(double radius)
{
    KDRPoint centre(1.0, 2.0);
    KDRShape shape;
    shape.fromCircle(centre, radius);
    return shape;
}

double radiusOf(KDRShape const& shape)
{
    KDRPoint centre;
    double radius = -1.0;
    EXPECT_TRUE(shape.toCircle(&centre, &radius));
    return radius;
}

VelROI polygonRecord()
{
    VelPointArray points;
    for (int i = 0; i < 20; ++i) {
        VelPoint point(i, i);
        points.Append(point);
    }
    VelROI roi;
    roi.GenPolygon(points);
    return roi;
}

TEST(ConversionMemory, AShapeIsAsItWasWhereARecordCannotBeRead)
{
    DataConvert convert;
    VelROI polygon = polygonRecord();
    VelROI empty;
    for (VelROI* const roi : {&polygon, &empty}) {
        for (bool const shared : {false, true}) {
            KDRShape shape = circle(3.0);
            KDRShape const sharer(shared ? shape : KDRShape());
            EXPECT_GE(failAtEveryAllocation([&] { convert.ROIToShape(*roi, &shape); },
                                            [&] { EXPECT_EQ(radiusOf(shape), 3.0); }),
                      1);
            EXPECT_NE(shape.shapeType(), unsigned{KDRShape::Circle});
            if (shared) {
                EXPECT_EQ(radiusOf(sharer), 3.0);
            }
        }
    }
}

TEST(ConversionMemory, ARecordIsAsItWasWhereAShapeCannotBeWritten)
{
    DataConvert convert;
    KDRShape polygon;
    VelROI roi = polygonRecord();
    convert.ROIToShape(roi, &polygon);
    VelROI record;
    VelPoint centre(1.0, 2.0);
    record.GenCircle(centre, 3.0);
    EXPECT_GE(failAtEveryAllocation([&] { convert.ShapeToROI(polygon, &record); },
                                    [&] { EXPECT_EQ(record.ROIType(), 1U); }),
              1);
    EXPECT_EQ(record.ROIType(), 4U);
}

// Each change of an array of five.
template <class Array, class Element, class Read>
void expectChangesKeepTheArray(Element (*make)(double), Read const& read)
{
    auto const changes = {
        +[](Array& array, Element const& element) { array.push_back(element); },
        +[](Array& array, Element const& element) { array.insert(2, element); },
        +[](Array& array, Element const& element) { array.replace(2, element); },
        +[](Array& array, Element const&) { array.removeAt(2); },
        +[](Array& array, Element const&) { array.swap(1, 3); },
        +[](Array& array, Element const&) { array.push_back(array); },
    };
    Element const element = make(9.0);
    for (auto const change : changes) {
        Array array;
        for (int i = 0; i < 5; ++i)
            array.push_back(make(i));
        auto const expectUnchanged = [&](Array const& unchanged) {
            ASSERT_EQ(unchanged.length(), 5);
            for (int i = 0; i < 5; ++i) {
                Element out;
                ASSERT_TRUE(unchanged.select(i, &out));
                EXPECT_EQ(read(out), i);
            }
        };
        failAtEveryAllocation([&] { change(array, element); }, [&] { expectUnchanged(array); });
    }
}

TEST(ArrayMemory, AChangeThatFailsLeavesTheArrayAsItWas)
{
    expectChangesKeepTheArray<KDRShapeArray, KDRShape>(&circle, radiusOf);
    expectChangesKeepTheArray<KDRPointArray, KDRPoint>(
        +[](double n) { return KDRPoint(n, 0.0); },
        [](KDRPoint const& point) { return point.x(); });
    expectChangesKeepTheArray<KDRMatrixArray, KDRMatrix>(
        +[](double n) { return KDRMatrix(1, static_cast<int>(n) + 1, KDRMatrix::MatrixTypeUInt8); },
        [](KDRMatrix const& matrix) { return matrix.cols() - 1; });
    expectChangesKeepTheArray<KDRRegionArray, KDRRegion>(
        +[](double n) {
            KDRNumberArray none;
            KDRRegion region;
            region.fromRunLengthEncodeing(none, none, none, static_cast<int>(n), 1);
            return region;
        },
        [](KDRRegion region) { return region.width(); });
}

} // namespace
