#include "figures.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace inspect {

namespace {

cv::Point2d pointOf(KDRPoint const& point) { return {point.x(), point.y()}; }

cv::Point2d directionOf(double degrees)
{
    double const radians = degrees * CV_PI / 180.0;
    return {std::cos(radians), std::sin(radians)};
}

// An ellipse around a centre, or, with two equal half axes, an arc or a circle.
Line curve(KDRPoint const& centre, double along, double across, double angle, double start = 0.0,
           double end = 360.0)
{
    cv::Point2d const u = directionOf(angle);
    cv::Point2d const v(-u.y, u.x);
    int const steps = std::max(1, cvCeil((end - start) / 2.0));
    Line line;
    for (int i = 0; i <= steps; ++i) {
        cv::Point2d const t = directionOf(start + (end - start) * i / steps);
        line.emplace_back(pointOf(centre) + u * (along * t.x) + v * (across * t.y));
    }
    return line;
}

Line closed(Line line)
{
    if (!line.empty())
        line.push_back(line.front());
    return line;
}

// Points given along and across an axis that starts at an origin.
Line placed(cv::Point2d const& origin, cv::Point2d const& u, std::vector<cv::Point2d> const& points)
{
    cv::Point2d const v(-u.y, u.x);
    Line line;
    for (cv::Point2d const& point : points)
        line.emplace_back(origin + u * point.x + v * point.y);
    return line;
}

Line arrowOutline(KDRPoint const& tail, KDRPoint const& head)
{
    cv::Point2d const way = pointOf(head) - pointOf(tail);
    double const length = cv::norm(way);
    if (length == 0.0)
        return {};
    double const neck = length - std::min(24.0, length / 2.0);
    return closed(placed(pointOf(tail), way / length,
                         {{0.0, -3.0},
                          {neck, -3.0},
                          {neck, -10.0},
                          {length, 0.0},
                          {neck, 10.0},
                          {neck, 3.0},
                          {0.0, 3.0}}));
}

std::vector<Line> bordersOf(KDRRegion const& region)
{
    std::vector<std::vector<cv::Point>> borders;
    cv::findContours(maskOf(region), borders, cv::RETR_LIST, cv::CHAIN_APPROX_SIMPLE);
    std::vector<Line> lines;
    lines.reserve(borders.size());
    for (std::vector<cv::Point> const& border : borders)
        lines.push_back(closed(Line(border.begin(), border.end())));
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
    case KDRShape::Region:
        return "region";
    case KDRShape::Text:
        return "text";
    case KDRShape::Arrow:
        return "arrow";
    case KDRShape::Empty:
        return "nothing";
    default:
        return "shape of kind " + std::to_string(shapeKind);
    }
}

std::vector<Quantity> quantitiesOf(KDRShape const& figure)
{
    KDRPoint centre;
    KDRPoint end;
    KDRPointArray corners;
    KDRRegion region;
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
        return {
            {"x", centre.x()}, {"y", centre.y()}, {"radius", a}, {"start", b}, {"end", c},
        };
    if (figure.toLine(&centre, &end) || figure.toArrow(&centre, &end))
        return {{"x", centre.x()}, {"y", centre.y()}, {"to x", end.x()}, {"to y", end.y()}};
    if (figure.toPolygon(&corners) && corners.length() > 0) {
        Line const line = lineOf(corners);
        KDRContour const outline = contourOf(line);
        return {{"x", centreOf(line).x},
                {"y", centreOf(line).y},
                {"area", outline.area()},
                {"perimeter", outline.perimeter()}};
    }
    if (figure.toRegion(&region)) {
        KDRNumberArray rows;
        KDRNumberArray firstColumns;
        KDRNumberArray lastColumns;
        region.toRunLengthEncodeing(&rows, &firstColumns, &lastColumns);
        double pixels = 0.0;
        for (int i = 0; i < rows.length(); ++i)
            pixels += lastColumns[i].toDouble() - firstColumns[i].toDouble() + 1.0;
        return {{"pixels", pixels}, {"runs", static_cast<double>(rows.length())}};
    }
    return {};
}

bool isSame(KDRShape const& a, KDRShape const& b)
{
    return a.shapeType() == b.shapeType() && quantitiesOf(a) == quantitiesOf(b);
}

std::vector<Line> linesOf(KDRShape const& figure)
{
    KDRPoint centre;
    KDRPoint end;
    KDRPointArray corners;
    KDRRegion region;
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
    double d = 0.0;
    if (figure.toCircle(&centre, &a))
        return {curve(centre, a, a, 0.0)};
    if (figure.toRect2(&centre, &a, &b, &c))
        return {
            closed(placed(pointOf(centre), directionOf(c), {{-a, -b}, {a, -b}, {a, b}, {-a, b}}))};
    if (figure.toEllipse(&centre, &a, &b, &c))
        return {curve(centre, a, b, c)};
    if (figure.toTorus(&centre, &a, &b, &c, &d))
        return {curve(centre, a, a, 0.0, c, d), curve(centre, b, b, 0.0, c, d)};
    if (figure.toArc(&centre, &a, &b, &c))
        return {curve(centre, a, a, 0.0, b, c)};
    if (figure.toLine(&centre, &end))
        return {{pointOf(centre), pointOf(end)}};
    if (figure.toArrow(&centre, &end))
        return {arrowOutline(centre, end)};
    if (figure.toPolygon(&corners))
        return {closed(lineOf(corners))};
    if (figure.toRegion(&region))
        return bordersOf(region);
    return {};
}

} // namespace inspect
