#include "figures.h"

#include <algorithm>
#include <cmath>

namespace page {

namespace {

Place placeOf(KDRPoint const& point) { return {point.x(), point.y()}; }

Place directionOf(double degrees)
{
    constexpr double pi = 3.14159265358979323846;
    double const radians = degrees * pi / 180.0;
    return {std::cos(radians), std::sin(radians)};
}

// A point given along and across an axis that starts at an origin.
Place placed(Place const& origin, Place const& axis, double along, double across)
{
    return {origin.x + axis.x * along - axis.y * across,
            origin.y + axis.y * along + axis.x * across};
}

Line placed(Place const& origin, Place const& axis, Line const& line)
{
    Line result;
    for (Place const& each : line)
        result.push_back(placed(origin, axis, each.x, each.y));
    return result;
}

// An ellipse around a centre, or, with two equal half axes, an arc or a circle. Never more than
// once around, whatever the angles are.
Line curve(KDRPoint const& centre, double along, double across, double angle, double start = 0.0,
           double end = 360.0)
{
    double const span = std::clamp(end - start, -360.0, 360.0);
    if (std::isnan(span))
        return {};
    int const steps = std::max(1, static_cast<int>(std::ceil(std::abs(span) / 2.0)));
    Line line;
    for (int i = 0; i <= steps; ++i) {
        Place const t = directionOf(start + span * i / steps);
        line.push_back(placed(placeOf(centre), directionOf(angle), along * t.x, across * t.y));
    }
    return line;
}

Line closed(Line line)
{
    if (!line.empty())
        line.push_back(line.front());
    return line;
}

Line rectangle(KDRPoint const& centre, double a, double b, double angle)
{
    return closed(
        placed(placeOf(centre), directionOf(angle), {{-a, -b}, {a, -b}, {a, b}, {-a, b}}));
}

Line arrowOutline(KDRPoint const& tail, KDRPoint const& head)
{
    double const x = head.x() - tail.x();
    double const y = head.y() - tail.y();
    double const length = std::hypot(x, y);
    if (length == 0.0)
        return {};
    double const neck = length - std::min(24.0, length / 2.0);
    return closed(placed(placeOf(tail), {x / length, y / length},
                         {{0.0, -3.0},
                          {neck, -3.0},
                          {neck, -10.0},
                          {length, 0.0},
                          {neck, 10.0},
                          {neck, 3.0},
                          {0.0, 3.0}}));
}

Line lineOf(KDRPointArray const& points)
{
    Line line;
    line.reserve(static_cast<std::size_t>(points.length()));
    for (int i = 0; i < points.length(); ++i)
        line.push_back(placeOf(points[i]));
    return line;
}

// The centre of the area inside of an outline.
Place centreOf(Line const& outline)
{
    Place const origin = outline.front(); // far from it, products would lose digits
    double twice = 0.0;
    double x = 0.0;
    double y = 0.0;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        Place const& a = outline[i];
        Place const& b = outline[(i + 1) % outline.size()];
        double const part =
            (a.x - origin.x) * (b.y - origin.y) - (b.x - origin.x) * (a.y - origin.y);
        twice += part;
        x += part * (a.x + b.x - 2.0 * origin.x);
        y += part * (a.y + b.y - 2.0 * origin.y);
    }
    if (twice == 0.0)
        return origin;
    return {origin.x + x / (3.0 * twice), origin.y + y / (3.0 * twice)};
}

std::vector<Quantity> quantitiesOfPolygon(KDRPointArray const& corners)
{
    KDRPointArray points(corners);
    KDRContour outline;
    outline.FromPointArray(points);
    Place const centre = centreOf(lineOf(corners));
    return {{"x", centre.x},
            {"y", centre.y},
            {"area", outline.area()},
            {"perimeter", outline.perimeter()}};
}

std::vector<Quantity> quantitiesOfRegion(std::vector<Run> const& runs)
{
    double pixels = 0.0;
    for (Run const& run : runs)
        pixels += run.last - run.first + 1.0;
    return {{"pixels", pixels}, {"runs", static_cast<double>(runs.size())}};
}

// What is made of several lines, or of points alone.
std::vector<Line> linesOfMany(KDRShape const& figure)
{
    KDRPointArray points;
    KDRPoint second;
    KDRPoint third;
    KDRPoint first;
    KDRNumberArray numbers;
    KDRContourArray contours;
    double a = 0.0;
    double b = 0.0;
    double angle = 0.0;
    int count = 0;
    std::vector<Line> lines;
    if (figure.toPolyLine(&points))
        lines.push_back(lineOf(points));
    else if (figure.toPolygon(&points) || figure.toIrregular(&points) ||
             figure.toAnyPolygon(&points, &numbers))
        lines.push_back(closed(lineOf(points)));
    else if (figure.toCurveLine(&first, &second, &third))
        lines.push_back({placeOf(first), placeOf(second), placeOf(third)});
    else if (figure.toContours(&contours))
        for (int i = 0; i < contours.length(); ++i) {
            contours[i].ToPointArray(&points);
            lines.push_back(closed(lineOf(points)));
        }
    else if (figure.toRect2Matrix(nullptr, &points, &a, &b, &angle, &count))
        for (int i = 0; i < points.length(); ++i)
            lines.push_back(rectangle(points[i], a, b, angle));
    else if (figure.toCircleMatrix(nullptr, &points, &a, &b, &count))
        for (int i = 0; i < points.length(); ++i) {
            lines.push_back(curve(points[i], a, a, 0.0));
            lines.push_back(curve(points[i], b, b, 0.0));
        }
    return lines;
}

} // namespace

std::string nameOf(unsigned int shapeKind)
{
    switch (shapeKind) {
    case KDRShape::Circle:
        return "circle";
    case KDRShape::Torus:
        return "torus";
    case KDRShape::Rect2:
        return "rectangle";
    case KDRShape::Line:
        return "line";
    case KDRShape::Ellipse:
        return "ellipse";
    case KDRShape::Arc:
        return "arc";
    case KDRShape::Polygon:
        return "polygon";
    case KDRShape::Irregular:
        return "irregular";
    case KDRShape::Region:
        return "region";
    case KDRShape::Text:
        return "text";
    case KDRShape::Arrow:
        return "arrow";
    case KDRShape::Contours:
        return "contours";
    case KDRShape::Rect2Matrix:
        return "rectangles";
    case KDRShape::CircleMatrix:
        return "circles";
    case KDRShape::PolyLine:
        return "polyline";
    case KDRShape::CurveLine:
        return "curve";
    case KDRShape::AnyPolygon:
        return "points";
    case KDRShape::Text3D:
        return "3D text";
    case KDRShape::Empty:
        return "nothing";
    default:
        return "shape of kind " + std::to_string(shapeKind);
    }
}

Colour colourOf(unsigned int shapeKind)
{
    switch (shapeKind) {
    case KDRShape::Circle:
    case KDRShape::Arc:
    case KDRShape::CircleMatrix:
        return {255, 50, 50};
    case KDRShape::Rect2:
    case KDRShape::Ellipse:
    case KDRShape::Rect2Matrix:
        return {30, 140, 255};
    case KDRShape::Torus:
        return {220, 60, 255};
    case KDRShape::Line:
    case KDRShape::Arrow:
    case KDRShape::PolyLine:
    case KDRShape::CurveLine:
        return {250, 220, 20};
    default:
        return {60, 220, 60};
    }
}

std::vector<Quantity> quantitiesOf(KDRShape const& figure)
{
    KDRPoint centre;
    KDRPoint end;
    KDRPointArray corners;
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    double d = 0.0;
    if (figure.toCircle(&centre, &a))
        return {{"x", centre.x()}, {"y", centre.y()}, {"radius", a}};
    if (figure.toRect2(&centre, &a, &b, &c))
        return {{"x", centre.x()},
                {"y", centre.y()},
                {"half length", a},
                {"half width", b},
                {"angle", c}};
    if (figure.toEllipse(&centre, &a, &b, &c))
        return {{"x", centre.x()},
                {"y", centre.y()},
                {"half along", a},
                {"half across", b},
                {"angle", c}};
    if (figure.toTorus(&centre, &a, &b, &c, &d))
        return {{"x", centre.x()}, {"y", centre.y()}, {"inner", a},
                {"outer", b},      {"start", c},      {"end", d}};
    if (figure.toArc(&centre, &a, &b, &c))
        return {{"x", centre.x()}, {"y", centre.y()}, {"radius", a}, {"start", b}, {"end", c}};
    if (figure.toLine(&centre, &end) || figure.toArrow(&centre, &end))
        return {{"x", centre.x()}, {"y", centre.y()}, {"to x", end.x()}, {"to y", end.y()}};
    if (figure.toPolygon(&corners) && corners.length() > 0)
        return quantitiesOfPolygon(corners);
    if (figure.shapeType() == KDRShape::Region)
        return quantitiesOfRegion(runsOf(figure));
    return {};
}

std::vector<Line> linesOf(KDRShape const& figure)
{
    KDRPoint centre;
    KDRPoint end;
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    double d = 0.0;
    if (figure.toCircle(&centre, &a))
        return {curve(centre, a, a, 0.0)};
    if (figure.toRect2(&centre, &a, &b, &c))
        return {rectangle(centre, a, b, c)};
    if (figure.toEllipse(&centre, &a, &b, &c))
        return {curve(centre, a, b, c)};
    if (figure.toTorus(&centre, &a, &b, &c, &d))
        return {curve(centre, a, a, 0.0, c, d), curve(centre, b, b, 0.0, c, d)};
    if (figure.toArc(&centre, &a, &b, &c))
        return {curve(centre, a, a, 0.0, b, c)};
    if (figure.toLine(&centre, &end))
        return {{placeOf(centre), placeOf(end)}};
    if (figure.toArrow(&centre, &end))
        return {arrowOutline(centre, end)};
    return linesOfMany(figure);
}

std::vector<Run> runsOf(KDRShape const& figure)
{
    KDRRegion region;
    if (!figure.toRegion(&region))
        return {};
    KDRNumberArray rows;
    KDRNumberArray firstColumns;
    KDRNumberArray lastColumns;
    region.toRunLengthEncodeing(&rows, &firstColumns, &lastColumns);
    std::vector<Run> runs;
    runs.reserve(static_cast<std::size_t>(rows.length()));
    for (int i = 0; i < rows.length(); ++i)
        runs.push_back({rows[i].toDouble(), firstColumns[i].toDouble(), lastColumns[i].toDouble()});
    return runs;
}

KDRShape polygonOf(KDRContour const& outline)
{
    KDRPointArray corners;
    outline.ToPointArray(&corners);
    KDRShape polygon;
    polygon.fromPolygon(corners);
    return polygon;
}

} // namespace page
