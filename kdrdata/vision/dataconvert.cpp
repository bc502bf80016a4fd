#include <kdrdata/vision/dataconvert.h>

#include <kdrdata/vision/corearray_p.h>
#include <kdrdata/vision/kdrpointarray.h>
#include <kdrdata/vision/kdrregion.h>
#include <kdrdata/vision/kdrshape.h>
#include <kdrdata/vision/kdrshapeprivate.h>

#include <utility>

#include <veldata/velpointarray.h>
#include <veldata/velroi.h>

namespace {

// What VelROI::ROIType() answers.
enum ROITypeCode : unsigned int {
    ROIRect1 = 0,
    ROICircle = 1,
    ROITorus = 2,
    ROIEmpty = 3,
    ROIPolygon = 4,
    ROIIrregular = 5,
    ROIRect2 = 6,
    ROILine = 7,
    ROIEllipse = 8,
    ROIArc = 9,
    ROIPoint = 10,
    ROIRegion = 11
};

using KDRCoreArray::core;

// The list of points inside a shape's record: the core library copies it, and so do lists that it
// fills take the place of it, without a copy in between.
KDRPointArray& outlineOf(KDRShape& shape)
{
    return KDRInternal::points(KDRInternal::wrapped(shape));
}

} // namespace

DataConvert::DataConvert() {}
DataConvert::~DataConvert() {}

// The core-library points inside the local points are handed over as they are; ranges stay behind.
int DataConvert::ShapeToROI(KDRShape& shape, VelROI* roi)
{
    if (!roi)
        return 0;
    KDRPoint first;
    KDRPoint second;
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    double e = 0.0;
    switch (shape.shapeType()) {
    case KDRShape::Point:
        shape.toPoint(&first);
        roi->GenPoint(core(first));
        break;
    case KDRShape::Rect1:
        shape.toRect1(&first, &second);
        roi->GenRect1(core(first), core(second));
        break;
    case KDRShape::Circle:
        shape.toCircle(&first, &a);
        roi->GenCircle(core(first), a);
        break;
    case KDRShape::Torus:
        shape.toTorus(&first, &a, &b, &c, &e);
        roi->GenTorus(core(first), a, b, c, e);
        break;
    case KDRShape::Rect2:
        shape.toRect2(&first, &a, &b, &c);
        roi->GenRect2(core(first), a, b, c);
        break;
    case KDRShape::Line:
        shape.toLine(&first, &second);
        roi->GenLine(core(first), core(second));
        break;
    case KDRShape::Arrow:
        shape.toArrow(&first, &second);
        roi->GenLine(core(first), core(second));
        break;
    case KDRShape::Ellipse:
        shape.toEllipse(&first, &a, &b, &c);
        roi->GenEllipse(core(first), a, b, c);
        break;
    case KDRShape::Arc:
        shape.toArc(&first, &a, &b, &c);
        roi->GenArc(core(first), a, b, c);
        break;
    case KDRShape::Polygon:
        roi->GenPolygon(core(outlineOf(shape)));
        break;
    case KDRShape::Irregular:
        roi->GenIrregular(core(outlineOf(shape)));
        break;
    case KDRShape::Empty:
        *roi = VelROI();
        break;
    default:
        break;
    }
    return 0;
}

int DataConvert::ROIToShape(VelROI& roi, KDRShape* shape)
{
    if (!shape)
        return 0;
    KDRPoint first;
    KDRPoint second;
    KDRPointArray points;
    KDRPointArray none;
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    double e = 0.0;
    switch (roi.ROIType()) {
    case ROIRect1:
        roi.GetRect1(&core(first), &core(second));
        shape->fromRect1(first, second);
        break;
    case ROICircle:
        roi.GetCircle(&core(first), &a);
        shape->fromCircle(first, a);
        break;
    case ROITorus:
        roi.GetTorus(&core(first), &a, &b, &c, &e);
        shape->fromTorus(first, a, b, c, e);
        break;
    case ROIEmpty:
        *shape = KDRShape();
        break;
    case ROIPolygon:
        roi.GetPolygon(&core(points));
        shape->fromPolygon(none);
        std::swap(KDRInternal::pointer(outlineOf(*shape)), KDRInternal::pointer(points));
        break;
    case ROIIrregular:
        roi.GetIrregular(&core(points));
        shape->fromIrregular(none);
        std::swap(KDRInternal::pointer(outlineOf(*shape)), KDRInternal::pointer(points));
        break;
    case ROIRect2:
        roi.GetRect2(&core(first), &a, &b, &c);
        shape->fromRect2(first, a, b, c);
        break;
    case ROILine:
        roi.GetLine(&core(first), &core(second));
        shape->fromLine(first, second);
        break;
    case ROIEllipse:
        roi.GetEllipse(&core(first), &a, &b, &c);
        shape->fromEllipse(first, a, b, c);
        break;
    case ROIArc:
        roi.GetArc(&core(first), &a, &b, &c);
        shape->fromArc(first, a, b, c);
        break;
    case ROIPoint:
        roi.GetPoint(&core(first));
        shape->fromPoint(first);
        break;
    case ROIRegion: {
        KDRRegion region;
        shape->fromRegion(region);
        break;
    }
    default:
        break;
    }
    return 0;
}

int DataConvert::ShapeToVel3DShape(KDRShape&, Vel3DShape*) { return 0; }
int DataConvert::Vel3dShapeToShape(Vel3DShape&, KDRShape*) { return 0; }
