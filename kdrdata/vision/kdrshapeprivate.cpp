#include <kdrdata/vision/kdrshapeprivate.h>

#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/vision/kdrcontour.h>
#include <kdrdata/vision/kdrshapearray.h>

#include <algorithm>
#include <utility>

namespace {

// A null output is passed over.
template <class Value>
void put(Value const& value, Value* out)
{
    if (out)
        *out = value;
}

// All centres where the count is -1, and otherwise the first ones; none for other negative counts.
int cellCount(KDRPointArray const& centres, int count)
{
    constexpr int allCentres = -1;
    return count == allCentres ? centres.length() : std::min(centres.length(), count);
}

// Appends one shape for each centre that has a cell.
template <class MakeCell>
void appendCells(KDRShapeArray* cells, KDRPointArray const& centres, int count,
                 MakeCell const& makeCell)
{
    if (!cells)
        return;
    int const length = cellCount(centres, count);
    KDRShapeArray made;
    for (int i = 0; i < length; ++i) {
        KDRPoint centre = centres[i];
        KDRShape cell;
        makeCell(cell, centre);
        made.push_back(cell);
    }
    cells->push_back(made);
}

} // namespace

KDRShapePrivate::KDRShapePrivate()
    : m_kind(KDRShape::Empty),
      m_refs(1),
      m_mutex(QMutex::NonRecursive),
      m_p0(0.0),
      m_p1(0.0),
      m_p2(0.0),
      m_p3(0.0)
{
}

KDRShapePrivate::KDRShapePrivate(KDRShapePrivate const& other) : KDRShapePrivate()
{
    *this = other;
}

KDRShapePrivate::~KDRShapePrivate() = default;

// The contours and the numbers stay behind. What may run out of memory comes first.
KDRShapePrivate& KDRShapePrivate::operator=(KDRShapePrivate const& other)
{
    KDRFont font(other.m_font);
    KDRPointArray points(other.m_points);
    KDRRegion region(other.m_region);
    std::swap(KDRInternal::pointer(m_font), KDRInternal::pointer(font));
    std::swap(KDRInternal::pointer(m_points), KDRInternal::pointer(points));
    std::swap(KDRInternal::pointer(m_region), KDRInternal::pointer(region));
    m_kind = other.m_kind;
    m_firstPoint = other.m_firstPoint;
    m_secondPoint = other.m_secondPoint;
    m_p0 = other.m_p0;
    m_p1 = other.m_p1;
    m_p2 = other.m_p2;
    m_p3 = other.m_p3;
    m_text = other.m_text;
    m_anchor3D = other.m_anchor3D;
    return *this;
}

int KDRShapePrivate::refCount()
{
    m_mutex.lock();
    int const count = m_refs;
    m_mutex.unlock();
    return count;
}

int KDRShapePrivate::addRef()
{
    m_mutex.lock();
    int const count = ++m_refs;
    m_mutex.unlock();
    return count;
}

void KDRShapePrivate::decRef()
{
    m_mutex.lock();
    int const before = m_refs--;
    m_mutex.unlock();
    if (before < 2)
        delete this;
}

unsigned int KDRShapePrivate::shapeType() const { return m_kind; }

// The generators write first what may run out of memory, and what cannot fail, the kind among it,
// after that, so that a failure leaves the record as it was.

void KDRShapePrivate::storeTwo(KDRShapeKind kind, KDRPoint const& first, KDRPoint const& second)
{
    m_firstPoint = first;
    m_secondPoint = second;
    m_kind = kind;
}

void KDRShapePrivate::storeNumbers(KDRShapeKind kind, KDRPoint const& centre, double p0, double p1,
                                   double p2)
{
    m_firstPoint = centre;
    m_p0 = p0;
    m_p1 = p1;
    m_p2 = p2;
    m_kind = kind;
}

void KDRShapePrivate::storeList(KDRShapeKind kind, KDRPointArray const& points)
{
    m_points = points;
    m_kind = kind;
}

void KDRShapePrivate::storeLabel(KDRShapeKind kind, KDRString const& text, KDRFont const& font)
{
    m_font = font;
    m_text = text;
    m_kind = kind;
}

void KDRShapePrivate::fromPoint(KDRPoint&) {}
void KDRShapePrivate::fromRect1(KDRPoint&, KDRPoint&) {}

void KDRShapePrivate::fromCircle(KDRPoint& centre, double radius)
{
    m_firstPoint = centre;
    m_p0 = radius;
    m_kind = KDRShape::Circle;
}

void KDRShapePrivate::fromTorus(KDRPoint& centre, double innerRadius, double outerRadius,
                                double startAngle, double endAngle)
{
    storeNumbers(KDRShape::Torus, centre, innerRadius, outerRadius, startAngle);
    m_p3 = endAngle;
}

void KDRShapePrivate::fromRect2(KDRPoint& centre, double halfLength, double halfWidth, double angle)
{
    storeNumbers(KDRShape::Rect2, centre, halfLength, halfWidth, angle);
}

void KDRShapePrivate::fromLine(KDRPoint& start, KDRPoint& end)
{
    storeTwo(KDRShape::Line, start, end);
}

void KDRShapePrivate::fromEllipse(KDRPoint& centre, double halfAxisAlong, double halfAxisAcross,
                                  double angle)
{
    storeNumbers(KDRShape::Ellipse, centre, halfAxisAlong, halfAxisAcross, angle);
}

void KDRShapePrivate::fromArc(KDRPoint& centre, double radius, double startAngle, double endAngle)
{
    storeNumbers(KDRShape::Arc, centre, radius, startAngle, endAngle);
}

void KDRShapePrivate::fromPolygon(KDRPointArray& corners) { storeList(KDRShape::Polygon, corners); }

void KDRShapePrivate::fromIrregular(KDRPointArray& points)
{
    storeList(KDRShape::Irregular, points);
}

void KDRShapePrivate::fromIrregular(KDRContour& contour)
{
    KDRPointArray points;
    contour.ToPointArray(&points);
    fromIrregular(points);
}

void KDRShapePrivate::fromRegion(KDRRegion& region)
{
    m_region = region;
    m_kind = KDRShape::Region;
}

void KDRShapePrivate::fromText(KDRPoint& anchor, KDRString& text, KDRFont& font)
{
    storeLabel(KDRShape::Text, text, font);
    m_firstPoint = anchor;
}

void KDRShapePrivate::fromArrow(KDRPoint& tail, KDRPoint& head)
{
    storeTwo(KDRShape::Arrow, tail, head);
}

void KDRShapePrivate::fromContours(KDRContourArray& contours)
{
    m_contours = contours;
    m_kind = KDRShape::Contours;
}

void KDRShapePrivate::fromRect2Matrix(KDRPointArray& centres, double halfLength, double halfWidth,
                                      double angle, int count)
{
    storeList(KDRShape::Rect2Matrix, centres);
    m_p0 = halfLength;
    m_p1 = halfWidth;
    m_p2 = angle;
    m_p3 = count;
}

void KDRShapePrivate::fromCircleMatrix(KDRPointArray& centres, double innerRadius,
                                       double outerRadius, int count)
{
    storeList(KDRShape::CircleMatrix, centres);
    m_p0 = innerRadius;
    m_p1 = outerRadius;
    m_p2 = count;
}

void KDRShapePrivate::fromPolyLine(KDRPointArray& points) { storeList(KDRShape::PolyLine, points); }

void KDRShapePrivate::fromCurveLine(KDRPoint& first, KDRPoint& second, KDRPoint& third)
{
    KDRPointArray points;
    points.push_back(first);
    points.push_back(second);
    points.push_back(third);
    storeList(KDRShape::CurveLine, points);
}

void KDRShapePrivate::fromAnyPolygon(KDRPointArray& points, KDRNumberArray& numbers)
{
    storeList(KDRShape::AnyPolygon, points);
    m_numbers = numbers;
}

void KDRShapePrivate::fromMatrix(KDRPoint, double, double, double, int, int, int, double, double,
                                 bool, bool, double, double, bool)
{
}

bool KDRShapePrivate::readTwo(KDRShapeKind kind, KDRPoint* first, KDRPoint* second) const
{
    if (m_kind != kind)
        return false;
    put(m_firstPoint, first);
    put(m_secondPoint, second);
    return true;
}

bool KDRShapePrivate::readNumbers(KDRShapeKind kind, KDRPoint* centre, double* p0, double* p1,
                                  double* p2) const
{
    if (m_kind != kind)
        return false;
    put(m_firstPoint, centre);
    put(m_p0, p0);
    put(m_p1, p1);
    put(m_p2, p2);
    return true;
}

bool KDRShapePrivate::readList(KDRShapeKind kind, KDRPointArray* points) const
{
    if (m_kind != kind)
        return false;
    put(m_points, points);
    return true;
}

bool KDRShapePrivate::readLabel(KDRShapeKind kind, KDRString* text, KDRFont* font) const
{
    if (m_kind != kind)
        return false;
    put(m_text, text);
    put(m_font, font);
    return true;
}

bool KDRShapePrivate::toPoint(KDRPoint* point) const
{
    return readTwo(KDRShape::Point, point, nullptr);
}

bool KDRShapePrivate::toRect1(KDRPoint* firstCorner, KDRPoint* secondCorner) const
{
    return readTwo(KDRShape::Rect1, firstCorner, secondCorner);
}

bool KDRShapePrivate::toCircle(KDRPoint* centre, double* radius) const
{
    return readNumbers(KDRShape::Circle, centre, radius, nullptr, nullptr);
}

bool KDRShapePrivate::toTorus(KDRPoint* centre, double* innerRadius, double* outerRadius,
                              double* startAngle, double* endAngle) const
{
    if (!readNumbers(KDRShape::Torus, centre, innerRadius, outerRadius, startAngle))
        return false;
    put(m_p3, endAngle);
    return true;
}

bool KDRShapePrivate::toRect2(KDRPoint* centre, double* halfLength, double* halfWidth,
                              double* angle) const
{
    return readNumbers(KDRShape::Rect2, centre, halfLength, halfWidth, angle);
}

bool KDRShapePrivate::toLine(KDRPoint* start, KDRPoint* end) const
{
    return readTwo(KDRShape::Line, start, end);
}

bool KDRShapePrivate::toEllipse(KDRPoint* centre, double* halfAxisAlong, double* halfAxisAcross,
                                double* angle) const
{
    return readNumbers(KDRShape::Ellipse, centre, halfAxisAlong, halfAxisAcross, angle);
}

bool KDRShapePrivate::toArc(KDRPoint* centre, double* radius, double* startAngle,
                            double* endAngle) const
{
    return readNumbers(KDRShape::Arc, centre, radius, startAngle, endAngle);
}

bool KDRShapePrivate::toPolygon(KDRPointArray* corners) const
{
    return readList(KDRShape::Polygon, corners);
}

bool KDRShapePrivate::toIrregular(KDRPointArray* points) const
{
    return readList(KDRShape::Irregular, points);
}

bool KDRShapePrivate::toIrregular(KDRContour* contour) const
{
    KDRPointArray points;
    if (!toIrregular(&points))
        return false;
    if (contour)
        contour->FromPointArray(points);
    return true;
}

bool KDRShapePrivate::toRegion(KDRRegion* region) const
{
    if (m_kind != KDRShape::Region)
        return false;
    put(m_region, region);
    return true;
}

bool KDRShapePrivate::toText(KDRPoint* anchor, KDRString* text, KDRFont* font) const
{
    if (!readLabel(KDRShape::Text, text, font))
        return false;
    put(m_firstPoint, anchor);
    return true;
}

bool KDRShapePrivate::toArrow(KDRPoint* tail, KDRPoint* head) const
{
    return readTwo(KDRShape::Arrow, tail, head);
}

bool KDRShapePrivate::toContours(KDRContourArray* contours) const
{
    if (m_kind != KDRShape::Contours)
        return false;
    put(m_contours, contours);
    return true;
}

bool KDRShapePrivate::toRect2Matrix(KDRShapeArray* cells, KDRPointArray* centres,
                                    double* halfLength, double* halfWidth, double* angle,
                                    int* count) const
{
    if (!readList(KDRShape::Rect2Matrix, centres))
        return false;
    put(m_p0, halfLength);
    put(m_p1, halfWidth);
    put(m_p2, angle);
    int const stored = static_cast<int>(m_p3);
    put(stored, count);
    appendCells(cells, m_points, stored, [this](KDRShape& cell, KDRPoint& centre) {
        cell.fromRect2(centre, m_p0, m_p1, m_p2);
    });
    return true;
}

bool KDRShapePrivate::toCircleMatrix(KDRShapeArray* cells, KDRPointArray* centres,
                                     double* innerRadius, double* outerRadius, int* count) const
{
    if (!readList(KDRShape::CircleMatrix, centres))
        return false;
    put(m_p0, innerRadius);
    put(m_p1, outerRadius);
    int const stored = static_cast<int>(m_p2);
    put(stored, count);
    appendCells(cells, m_points, stored, [this](KDRShape& cell, KDRPoint& centre) {
        cell.fromTorus(centre, m_p0, m_p1, 0.0, 360.0);
    });
    return true;
}

bool KDRShapePrivate::toPolyLine(KDRPointArray* points) const
{
    return readList(KDRShape::PolyLine, points);
}

bool KDRShapePrivate::toCurveLine(KDRPoint* first, KDRPoint* second, KDRPoint* third) const
{
    if (m_kind != KDRShape::CurveLine)
        return false;
    put(m_points[0], first);
    put(m_points[1], second);
    put(m_points[2], third);
    return true;
}

bool KDRShapePrivate::toAnyPolygon(KDRPointArray* points, KDRNumberArray* numbers) const
{
    if (!readList(KDRShape::AnyPolygon, points))
        return false;
    put(m_numbers, numbers);
    return true;
}

bool KDRShapePrivate::toMatrix(KDRShapeArray*, KDRPoint*, double*, double*, double*, int*, int*,
                               int*, double*, double*, bool*, bool*, double*, double*, bool*)
{
    return false;
}

void KDRShapePrivate::from3DPoint(KDRVector3d&) {}
void KDRShapePrivate::from3DLine(KDRVector3d&, KDRVector3d&) {}
void KDRShapePrivate::from3DLineSegment(KDRVector3d&, KDRVector3d&) {}
void KDRShapePrivate::from3DCircle(KDRVector3d&, KDRVector3d&, float) {}
void KDRShapePrivate::from3DPlane(KDRVector3d&, KDRVector3d&) {}
void KDRShapePrivate::from3DEllipse(KDRVector3d&, KDRVector3d&, float, float) {}
void KDRShapePrivate::from3DRect(KDRVector3d&, KDRVector3d&, float, float) {}
void KDRShapePrivate::from3DAnnulus(KDRVector3d&, KDRVector3d&, float, float, float, float) {}
void KDRShapePrivate::from3DTorus(KDRVector3d&, KDRVector3d&, float, float, float, float) {}
void KDRShapePrivate::from3DArc(KDRVector3d&, KDRVector3d&, float, float, float) {}
void KDRShapePrivate::from3DTriangle(KDRVector3d&, KDRVector3d&, KDRVector3d&) {}
void KDRShapePrivate::from3DPolygon(KDRVector3dArray&) {}
void KDRShapePrivate::from3DBox(KDRVector3d&, KDRVector3d&, KDRVector3d&) {}
void KDRShapePrivate::from3DSphere(KDRVector3d&, float) {}
void KDRShapePrivate::from3DCylinder(KDRVector3d&, KDRVector3d&, float, float) {}
void KDRShapePrivate::from3DEllipsoid(KDRVector3d&, KDRVector3d&, KDRVector3d&) {}
void KDRShapePrivate::from3DTube(KDRVector3d&, KDRVector3d&, float, float, float, float, float) {}
void KDRShapePrivate::from3DCone(KDRVector3d&, KDRVector3d&, float, float, float, float) {}
void KDRShapePrivate::from3DEllipticCylinder(KDRVector3d&, KDRVector3d&, float, float, float) {}
void KDRShapePrivate::from3DLineSet(KDR3DLineSet&) {}

void KDRShapePrivate::from3DText(KDRVector3d& anchor, KDRString& text, KDRFont& font)
{
    storeLabel(KDRShape::Text3D, text, font);
    m_anchor3D = anchor;
}

bool KDRShapePrivate::to3DPoint(KDRVector3d*) { return false; }
bool KDRShapePrivate::to3DLine(KDRVector3d*, KDRVector3d*) { return false; }
bool KDRShapePrivate::to3DLineSegment(KDRVector3d*, KDRVector3d*) { return false; }
bool KDRShapePrivate::to3DCircle(KDRVector3d*, KDRVector3d*, float*) { return false; }
bool KDRShapePrivate::to3DPlane(KDRVector3d*, KDRVector3d*) { return false; }
bool KDRShapePrivate::to3DEllipse(KDRVector3d*, KDRVector3d*, float*, float*) { return false; }
bool KDRShapePrivate::to3DRect(KDRVector3d*, KDRVector3d*, float*, float*) { return false; }
bool KDRShapePrivate::to3DAnnulus(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*)
{
    return false;
}
bool KDRShapePrivate::to3DTorus(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*)
{
    return false;
}
bool KDRShapePrivate::to3DArc(KDRVector3d*, KDRVector3d*, float*, float*, float*) { return false; }
bool KDRShapePrivate::to3DTriangle(KDRVector3d*, KDRVector3d*, KDRVector3d*) { return false; }
bool KDRShapePrivate::to3DPolygon(KDRVector3dArray*) { return false; }
bool KDRShapePrivate::to3DBox(KDRVector3d*, KDRVector3d*, KDRVector3d*) { return false; }
bool KDRShapePrivate::to3DSphere(KDRVector3d*, float*) { return false; }
bool KDRShapePrivate::to3DCylinder(KDRVector3d*, KDRVector3d*, float*, float*) { return false; }
bool KDRShapePrivate::to3DEllipsoid(KDRVector3d*, KDRVector3d*, KDRVector3d*) { return false; }
bool KDRShapePrivate::to3DTube(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*, float*)
{
    return false;
}
bool KDRShapePrivate::to3DEllipticCylinder(KDRVector3d*, KDRVector3d*, float*, float*, float*)
{
    return false;
}
bool KDRShapePrivate::to3DLineSet(KDR3DLineSet*) { return false; }

bool KDRShapePrivate::to3DText(KDRVector3d* anchor, KDRString* text, KDRFont* font) const
{
    if (!readLabel(KDRShape::Text3D, text, font))
        return false;
    put(m_anchor3D, anchor);
    return true;
}
