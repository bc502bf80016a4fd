// Figures go to the core library as regions of interest and come back, most of them as they were.
#include <cstdio>
#include <veldata/velroi.h>

#include <kdrdata/vision/vision.h>

namespace {

// To a record and back into a new shape.
KDRShape thereAndBack(KDRShape shape)
{
    DataConvert convert;
    VelROI record;
    convert.ShapeToROI(shape, &record);
    KDRShape back;
    convert.ROIToShape(record, &back);
    std::printf("shape %2u -> record %2u -> shape %2u\n", shape.shapeType(), record.ROIType(),
                back.shapeType());
    return back;
}

} // namespace

int main()
{
    KDRPoint centre(192.0, 151.5);
    KDRPoint corner(10.0, 20.0);

    KDRShape shape;
    shape.fromRect2(centre, 40.0, 20.0, 30.0); // half the length, half the width, clockwise degrees
    KDRShape const rectangle = thereAndBack(shape);
    KDRPoint middle;
    double halfLength = 0.0;
    double halfWidth = 0.0;
    double angle = 0.0;
    if (rectangle.toRect2(&middle, &halfLength, &halfWidth, &angle))
        std::printf("(%g, %g), %g x %g, turned by %g degrees\n", middle.x(), middle.y(),
                    2.0 * halfLength, 2.0 * halfWidth, angle);

    shape.fromCircle(centre, 24.0);
    double radius = 0.0;
    if (thereAndBack(shape).toCircle(nullptr, &radius)) // a null output is passed over
        std::printf("radius %g\n", radius);
    std::printf("a circle is a line: %s\n", shape.toLine(&centre, &corner) ? "yes" : "no");

    shape.fromArrow(corner, centre);
    thereAndBack(shape); // a line: the head is lost
    KDRRegion pixels;
    shape.fromRegion(pixels);
    thereAndBack(shape); // nothing: pixels do not reach the record
    return 0;
}
