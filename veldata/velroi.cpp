#include <veldata/velroi.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

enum FigureType : unsigned int {
    Rect1 = 0,
    Circle = 1,
    Torus = 2,
    Empty = 3,
    Polygon = 4,
    Irregular = 5,
    Rect2 = 6,
    Line = 7,
    Ellipse = 8,
    Arc = 9,
    Point = 10,
    Region = 11
};

template <class... Output>
bool allGiven(Output*... outputs) noexcept
{
    return (outputs && ...);
}

} // namespace

VelROI::VelROI() noexcept : type(Empty), numbers() {}

VelROI::VelROI(VelROI const& other) = default;

VelROI::VelROI(VelROI&& other) noexcept : VelROI() { *this = std::move(other); }

VelROI::~VelROI() = default;

VelROI& VelROI::operator=(VelROI const& other)
{
    VelROI copy(other);
    return *this = std::move(copy);
}

VelROI& VelROI::operator=(VelROI&& other) noexcept
{
    if (this == &other)
        return *this;
    type = std::exchange(other.type, Empty);
    first = std::exchange(other.first, VelPoint());
    second = std::exchange(other.second, VelPoint());
    std::copy(std::begin(other.numbers), std::end(other.numbers), numbers);
    std::fill(std::begin(other.numbers), std::end(other.numbers), 0.0);
    points = std::move(other.points);
    area = std::move(other.area);
    return *this;
}

unsigned int VelROI::ROIType() const noexcept { return type; }

int VelROI::GenRect1(VelPoint& corner, VelPoint& opposite) noexcept
{
    return becomeEnds(Rect1, corner, opposite);
}

int VelROI::GenCircle(VelPoint& center, double radius) noexcept
{
    return becomeCentered(Circle, center, radius);
}

int VelROI::GenTorus(VelPoint& center, double innerRadius, double outerRadius, double startAngle,
                     double endAngle) noexcept
{
    return becomeCentered(Torus, center, innerRadius, outerRadius, startAngle, endAngle);
}

int VelROI::GenPolygon(VelPointArray& corners) { return becomeList(Polygon, corners); }

int VelROI::GenIrregular(VelPointArray& outline) { return becomeList(Irregular, outline); }

int VelROI::GenRect2(VelPoint& center, double halfLength, double halfWidth, double angle) noexcept
{
    return becomeCentered(Rect2, center, halfLength, halfWidth, angle);
}

int VelROI::GenLine(VelPoint& start, VelPoint& end) noexcept
{
    return becomeEnds(Line, start, end);
}

int VelROI::GenEllipse(VelPoint& center, double halfAxisAlong, double halfAxisAcross,
                       double angle) noexcept
{
    return becomeCentered(Ellipse, center, halfAxisAlong, halfAxisAcross, angle);
}

int VelROI::GenArc(VelPoint& center, double radius, double startAngle, double endAngle) noexcept
{
    return becomeCentered(Arc, center, radius, startAngle, endAngle);
}

int VelROI::GenPoint(VelPoint& point) noexcept { return becomeEnds(Point, point, VelPoint()); }

int VelROI::GenRegion(VelRegion const& region) noexcept
{
    VelROI figure;
    figure.type = Region;
    figure.area = region;
    *this = std::move(figure);
    return 1;
}

int VelROI::GetRect1(VelPoint* corner, VelPoint* opposite) const noexcept
{
    return readEnds(Rect1, corner, opposite);
}

int VelROI::GetCircle(VelPoint* center, double* radius) const noexcept
{
    if (type != Circle || !allGiven(center, radius))
        return 0;
    *center = first;
    *radius = numbers[0];
    return 1;
}

int VelROI::GetTorus(VelPoint* center, double* innerRadius, double* outerRadius, double* startAngle,
                     double* endAngle) const noexcept
{
    if (!endAngle || !readCentered(Torus, center, innerRadius, outerRadius, startAngle))
        return 0;
    *endAngle = numbers[3];
    return 1;
}

int VelROI::GetPolygon(VelPointArray* corners) const { return readList(Polygon, corners); }

int VelROI::GetIrregular(VelPointArray* outline) const { return readList(Irregular, outline); }

int VelROI::GetRect2(VelPoint* center, double* halfLength, double* halfWidth,
                     double* angle) const noexcept
{
    return readCentered(Rect2, center, halfLength, halfWidth, angle);
}

int VelROI::GetLine(VelPoint* start, VelPoint* end) const noexcept
{
    return readEnds(Line, start, end);
}

int VelROI::GetEllipse(VelPoint* center, double* halfAxisAlong, double* halfAxisAcross,
                       double* angle) const noexcept
{
    return readCentered(Ellipse, center, halfAxisAlong, halfAxisAcross, angle);
}

int VelROI::GetArc(VelPoint* center, double* radius, double* startAngle,
                   double* endAngle) const noexcept
{
    return readCentered(Arc, center, radius, startAngle, endAngle);
}

int VelROI::GetPoint(VelPoint* point) noexcept
{
    if (type != Point || !point)
        return 0;
    *point = first;
    return 1;
}

int VelROI::GetRegion(VelRegion* region) const noexcept
{
    if (type != Region || !region)
        return 0;
    *region = area;
    return 1;
}

int VelROI::becomeEnds(unsigned int newType, VelPoint const& start, VelPoint const& end) noexcept
{
    VelROI figure;
    figure.type = newType;
    figure.first = start;
    figure.second = end;
    *this = std::move(figure);
    return 1;
}

int VelROI::becomeCentered(unsigned int newType, VelPoint const& center, double a, double b,
                           double c, double e) noexcept
{
    VelROI figure;
    figure.type = newType;
    figure.first = center;
    figure.numbers[0] = a;
    figure.numbers[1] = b;
    figure.numbers[2] = c;
    figure.numbers[3] = e;
    *this = std::move(figure);
    return 1;
}

int VelROI::becomeList(unsigned int newType, VelPointArray const& list)
{
    VelROI figure;
    figure.type = newType;
    figure.points = list;
    *this = std::move(figure);
    return 1;
}

int VelROI::readEnds(unsigned int ofType, VelPoint* start, VelPoint* end) const noexcept
{
    if (type != ofType || !allGiven(start, end))
        return 0;
    *start = first;
    *end = second;
    return 1;
}

int VelROI::readCentered(unsigned int ofType, VelPoint* center, double* a, double* b,
                         double* c) const noexcept
{
    if (type != ofType || !allGiven(center, a, b, c))
        return 0;
    *center = first;
    *a = numbers[0];
    *b = numbers[1];
    *c = numbers[2];
    return 1;
}

int VelROI::readList(unsigned int ofType, VelPointArray* list) const
{
    if (type != ofType || !list)
        return 0;
    *list = points;
    return 1;
}
