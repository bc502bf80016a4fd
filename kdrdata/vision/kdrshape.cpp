#include <kdrdata/vision/kdrshape.h>

#include <kdrdata/vision/kdrshapeprivate.h>

#include <functional>
#include <memory>

namespace {

// Lets the store write the figure into the record, or, where other handles share it, into a fresh
// one that takes its place. The old record is given up last, so that a failure changes nothing.
template <class Store, class... Arguments>
void generate(KDRShapePrivate*& record, Store const& store, Arguments&... arguments)
{
    if (record->refCount() < 2) {
        std::invoke(store, *record, arguments...);
        return;
    }
    auto fresh = std::make_unique<KDRShapePrivate>();
    std::invoke(store, *fresh, arguments...);
    record->decRef();
    record = fresh.release();
}

void storeNothing(KDRShapePrivate&) {}

} // namespace

KDRShape::KDRShape() : d(new KDRShapePrivate) {}
KDRShape::KDRShape(KDRShape const& other) : d(other.d) { d->addRef(); }

KDRShape::~KDRShape()
{
    d->decRef();
    d = nullptr;
}

// The source first: the record may be the same.
KDRShape& KDRShape::operator=(KDRShape const& other)
{
    other.d->addRef();
    d->decRef();
    d = other.d;
    return *this;
}

unsigned int KDRShape::shapeType() const { return d->shapeType(); }

void KDRShape::fromPoint(KDRPoint& point) { generate(d, &KDRShapePrivate::fromPoint, point); }
void KDRShape::fromRect1(KDRPoint& firstCorner, KDRPoint& secondCorner)
{
    generate(d, &KDRShapePrivate::fromRect1, firstCorner, secondCorner);
}
void KDRShape::fromCircle(KDRPoint& centre, double radius)
{
    generate(d, &KDRShapePrivate::fromCircle, centre, radius);
}
void KDRShape::fromTorus(KDRPoint& centre, double innerRadius, double outerRadius,
                         double startAngle, double endAngle)
{
    generate(d, &KDRShapePrivate::fromTorus, centre, innerRadius, outerRadius, startAngle,
             endAngle);
}
void KDRShape::fromRect2(KDRPoint& centre, double halfLength, double halfWidth, double angle)
{
    generate(d, &KDRShapePrivate::fromRect2, centre, halfLength, halfWidth, angle);
}
void KDRShape::fromLine(KDRPoint& start, KDRPoint& end)
{
    generate(d, &KDRShapePrivate::fromLine, start, end);
}
void KDRShape::fromEllipse(KDRPoint& centre, double halfAxisAlong, double halfAxisAcross,
                           double angle)
{
    generate(d, &KDRShapePrivate::fromEllipse, centre, halfAxisAlong, halfAxisAcross, angle);
}
void KDRShape::fromArc(KDRPoint& centre, double radius, double startAngle, double endAngle)
{
    generate(d, &KDRShapePrivate::fromArc, centre, radius, startAngle, endAngle);
}
void KDRShape::fromPolygon(KDRPointArray& corners)
{
    generate(d, &KDRShapePrivate::fromPolygon, corners);
}
void KDRShape::fromIrregular(KDRPointArray& points)
{
    generate(d, [&points](KDRShapePrivate& record) { record.fromIrregular(points); });
}
void KDRShape::fromIrregular(KDRContour& contour)
{
    generate(d, [&contour](KDRShapePrivate& record) { record.fromIrregular(contour); });
}
void KDRShape::fromRegion(KDRRegion& region) { generate(d, &KDRShapePrivate::fromRegion, region); }
void KDRShape::fromText(KDRPoint& anchor, KDRString& text, KDRFont& font)
{
    generate(d, &KDRShapePrivate::fromText, anchor, text, font);
}
void KDRShape::fromArrow(KDRPoint& tail, KDRPoint& head)
{
    generate(d, &KDRShapePrivate::fromArrow, tail, head);
}
void KDRShape::fromContours(KDRContourArray& contours)
{
    generate(d, &KDRShapePrivate::fromContours, contours);
}
void KDRShape::fromRect2Matrix(KDRPointArray& centres, double halfLength, double halfWidth,
                               double angle, int count)
{
    generate(d, &KDRShapePrivate::fromRect2Matrix, centres, halfLength, halfWidth, angle, count);
}
void KDRShape::fromCircleMatrix(KDRPointArray& centres, double innerRadius, double outerRadius,
                                int count)
{
    generate(d, &KDRShapePrivate::fromCircleMatrix, centres, innerRadius, outerRadius, count);
}
void KDRShape::fromPolyLine(KDRPointArray& points)
{
    generate(d, &KDRShapePrivate::fromPolyLine, points);
}
void KDRShape::fromCurveLine(KDRPoint& first, KDRPoint& second, KDRPoint& third)
{
    generate(d, &KDRShapePrivate::fromCurveLine, first, second, third);
}
void KDRShape::fromAnyPolygon(KDRPointArray& points, KDRNumberArray& numbers)
{
    generate(d, &KDRShapePrivate::fromAnyPolygon, points, numbers);
}

bool KDRShape::toPoint(KDRPoint* point) const { return d->toPoint(point); }
bool KDRShape::toRect1(KDRPoint* firstCorner, KDRPoint* secondCorner) const
{
    return d->toRect1(firstCorner, secondCorner);
}
bool KDRShape::toCircle(KDRPoint* centre, double* radius) const
{
    return d->toCircle(centre, radius);
}
bool KDRShape::toTorus(KDRPoint* centre, double* innerRadius, double* outerRadius,
                       double* startAngle, double* endAngle) const
{
    return d->toTorus(centre, innerRadius, outerRadius, startAngle, endAngle);
}
bool KDRShape::toRect2(KDRPoint* centre, double* halfLength, double* halfWidth, double* angle) const
{
    return d->toRect2(centre, halfLength, halfWidth, angle);
}
bool KDRShape::toLine(KDRPoint* start, KDRPoint* end) const { return d->toLine(start, end); }
bool KDRShape::toEllipse(KDRPoint* centre, double* halfAxisAlong, double* halfAxisAcross,
                         double* angle) const
{
    return d->toEllipse(centre, halfAxisAlong, halfAxisAcross, angle);
}
bool KDRShape::toArc(KDRPoint* centre, double* radius, double* startAngle, double* endAngle) const
{
    return d->toArc(centre, radius, startAngle, endAngle);
}
bool KDRShape::toPolygon(KDRPointArray* corners) const { return d->toPolygon(corners); }
bool KDRShape::toIrregular(KDRPointArray* points) const { return d->toIrregular(points); }
bool KDRShape::toIrregular(KDRContour* contour) const { return d->toIrregular(contour); }
bool KDRShape::toRegion(KDRRegion* region) const { return d->toRegion(region); }
bool KDRShape::toText(KDRPoint* anchor, KDRString* text, KDRFont* font) const
{
    return d->toText(anchor, text, font);
}
bool KDRShape::toArrow(KDRPoint* tail, KDRPoint* head) const { return d->toArrow(tail, head); }
bool KDRShape::toContours(KDRContourArray* contours) const { return d->toContours(contours); }
bool KDRShape::toRect2Matrix(KDRShapeArray* cells, KDRPointArray* centres, double* halfLength,
                             double* halfWidth, double* angle, int* count) const
{
    return d->toRect2Matrix(cells, centres, halfLength, halfWidth, angle, count);
}
bool KDRShape::toCircleMatrix(KDRShapeArray* cells, KDRPointArray* centres, double* innerRadius,
                              double* outerRadius, int* count) const
{
    return d->toCircleMatrix(cells, centres, innerRadius, outerRadius, count);
}
bool KDRShape::toPolyLine(KDRPointArray* points) const { return d->toPolyLine(points); }
bool KDRShape::toCurveLine(KDRPoint* first, KDRPoint* second, KDRPoint* third) const
{
    return d->toCurveLine(first, second, third);
}
bool KDRShape::toAnyPolygon(KDRPointArray* points, KDRNumberArray* numbers) const
{
    return d->toAnyPolygon(points, numbers);
}

void KDRShape::from3DPoint(KDRVector3d&) { generate(d, storeNothing); }
void KDRShape::from3DLine(KDRVector3d&, KDRVector3d&) { generate(d, storeNothing); }
void KDRShape::from3DLineSegment(KDRVector3d&, KDRVector3d&) { generate(d, storeNothing); }
void KDRShape::from3DCircle(KDRVector3d&, KDRVector3d&, float) { generate(d, storeNothing); }
void KDRShape::from3DPlane(KDRVector3d&, KDRVector3d&) { generate(d, storeNothing); }
void KDRShape::from3DEllipse(KDRVector3d&, KDRVector3d&, float, float)
{
    generate(d, storeNothing);
}
void KDRShape::from3DRect(KDRVector3d&, KDRVector3d&, float, float) { generate(d, storeNothing); }
void KDRShape::from3DAnnulus(KDRVector3d&, KDRVector3d&, float, float, float, float)
{
    generate(d, storeNothing);
}
void KDRShape::from3DTorus(KDRVector3d&, KDRVector3d&, float, float, float, float)
{
    generate(d, storeNothing);
}
void KDRShape::from3DArc(KDRVector3d&, KDRVector3d&, float, float, float)
{
    generate(d, storeNothing);
}
void KDRShape::from3DTriangle(KDRVector3d&, KDRVector3d&, KDRVector3d&)
{
    generate(d, storeNothing);
}
void KDRShape::from3DPolygon(KDRVector3dArray&) { generate(d, storeNothing); }
void KDRShape::from3DBox(KDRVector3d&, KDRVector3d&, KDRVector3d&) { generate(d, storeNothing); }
void KDRShape::from3DSphere(KDRVector3d&, float) { generate(d, storeNothing); }
void KDRShape::from3DCylinder(KDRVector3d&, KDRVector3d&, float, float)
{
    generate(d, storeNothing);
}
void KDRShape::from3DEllipsoid(KDRVector3d&, KDRVector3d&, KDRVector3d&)
{
    generate(d, storeNothing);
}
void KDRShape::from3DTube(KDRVector3d&, KDRVector3d&, float, float, float, float, float)
{
    generate(d, storeNothing);
}
void KDRShape::from3DCone(KDRVector3d&, KDRVector3d&, float, float, float, float)
{
    generate(d, storeNothing);
}
void KDRShape::from3DEllipticCylinder(KDRVector3d&, KDRVector3d&, float, float, float)
{
    generate(d, storeNothing);
}
void KDRShape::from3DLineSet(KDR3DLineSet&) { generate(d, storeNothing); }

void KDRShape::from3DText(KDRVector3d& anchor, KDRString& text, KDRFont& font)
{
    generate(d, &KDRShapePrivate::from3DText, anchor, text, font);
}

bool KDRShape::to3DPoint(KDRVector3d*) { return false; }
bool KDRShape::to3DLine(KDRVector3d*, KDRVector3d*) { return false; }
bool KDRShape::to3DLineSegment(KDRVector3d*, KDRVector3d*) { return false; }
bool KDRShape::to3DCircle(KDRVector3d*, KDRVector3d*, float*) { return false; }
bool KDRShape::to3DPlane(KDRVector3d*, KDRVector3d*) { return false; }
bool KDRShape::to3DEllipse(KDRVector3d*, KDRVector3d*, float*, float*) { return false; }
bool KDRShape::to3DRect(KDRVector3d*, KDRVector3d*, float*, float*) { return false; }
bool KDRShape::to3DAnnulus(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*)
{
    return false;
}
bool KDRShape::to3DTorus(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*)
{
    return false;
}
bool KDRShape::to3DArc(KDRVector3d*, KDRVector3d*, float*, float*, float*) { return false; }
bool KDRShape::to3DTriangle(KDRVector3d*, KDRVector3d*, KDRVector3d*) { return false; }
bool KDRShape::to3DPolygon(KDRVector3dArray*) { return false; }
bool KDRShape::to3DBox(KDRVector3d*, KDRVector3d*, KDRVector3d*) { return false; }
bool KDRShape::to3DSphere(KDRVector3d*, float*) { return false; }
bool KDRShape::to3DCylinder(KDRVector3d*, KDRVector3d*, float*, float*) { return false; }
bool KDRShape::to3DEllipsoid(KDRVector3d*, KDRVector3d*, KDRVector3d*) { return false; }
bool KDRShape::to3DTube(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*, float*)
{
    return false;
}
bool KDRShape::to3DEllipticCylinder(KDRVector3d*, KDRVector3d*, float*, float*, float*)
{
    return false;
}
bool KDRShape::to3DLineSet(KDR3DLineSet*) { return false; }

bool KDRShape::to3DText(KDRVector3d* anchor, KDRString* text, KDRFont* font) const
{
    return d->to3DText(anchor, text, font);
}
