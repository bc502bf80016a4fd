#include "fitting.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace inspect {

namespace {

// The types of the core library's record that are searched for.
enum RecordType : unsigned int {
    RecordTorus = 2,
    RecordPolygon = 4,
    RecordLine = 7,
    RecordEllipse = 8,
    RecordArc = 9
};

struct Circle
{
    cv::Point2d centre;
    double radius;
};

// Where x and y count from the mean of the points, x^2 + y^2 = 2 a x + 2 b y + c is linear in the
// centre (a, b) and in c = radius^2 - a^2 - b^2.
Circle fitCircle(Line const& points)
{
    cv::Scalar const mean = cv::mean(points);
    int const count = static_cast<int>(points.size());
    cv::Mat left(count, 3, CV_64F);
    cv::Mat right(count, 1, CV_64F);
    for (int i = 0; i < count; ++i) {
        double const x = points[static_cast<std::size_t>(i)].x - mean[0];
        double const y = points[static_cast<std::size_t>(i)].y - mean[1];
        left.at<double>(i, 0) = 2.0 * x;
        left.at<double>(i, 1) = 2.0 * y;
        left.at<double>(i, 2) = 1.0;
        right.at<double>(i) = x * x + y * y;
    }
    cv::Mat solution;
    cv::solve(left, right, solution, cv::DECOMP_QR);
    double const a = solution.at<double>(0);
    double const b = solution.at<double>(1);
    return {{mean[0] + a, mean[1] + b}, std::sqrt(solution.at<double>(2) + a * a + b * b)};
}

// Half the longer side along the angle, half the shorter one across it.
struct Oriented
{
    cv::Point2d centre;
    double along, across, angle;
};

Oriented orientedOf(cv::RotatedRect const& box)
{
    bool const wide = box.size.width >= box.size.height;
    double const longer = wide ? box.size.width : box.size.height;
    double const shorter = wide ? box.size.height : box.size.width;
    double const angle = std::fmod(box.angle + (wide ? 180.0 : 270.0), 180.0);
    return {box.center, longer / 2.0, shorter / 2.0, angle};
}

double distance(VelPoint const& from, cv::Point2f const& to)
{
    return std::hypot(to.x - from.x, to.y - from.y);
}

VelROI ellipseAlong(Line const& edge)
{
    Oriented const found = orientedOf(cv::fitEllipse(edge));
    VelPoint centre(found.centre.x, found.centre.y);
    VelROI roi;
    roi.GenEllipse(centre, found.along, found.across, found.angle);
    return roi;
}

// A full ring: one circle through the points nearer to the inside, one through the others.
VelROI torusAlong(Line const& edge, VelROI const& nominal)
{
    VelPoint centre;
    double inner = 0.0;
    double outer = 0.0;
    double start = 0.0;
    double end = 0.0;
    nominal.GetTorus(&centre, &inner, &outer, &start, &end);
    Line inside;
    Line outside;
    for (cv::Point2f const& point : edge)
        (distance(centre, point) < (inner + outer) / 2.0 ? inside : outside).push_back(point);
    VelROI roi;
    if (inside.size() < 3 || outside.size() < 3)
        return roi;
    Circle const hole = fitCircle(inside);
    Circle const rim = fitCircle(outside);
    VelPoint middle((hole.centre.x + rim.centre.x) / 2.0, (hole.centre.y + rim.centre.y) / 2.0);
    roi.GenTorus(middle, hole.radius, rim.radius, 0.0, 360.0);
    return roi;
}

// The edge goes on beyond the ends of the arc. What lies off the circle is left out step by step;
// the ends are then the outermost of the points that are left.
VelROI arcAlong(Line edge, VelROI const& nominal)
{
    VelPoint centre;
    double radius = 0.0;
    double start = 0.0;
    double end = 0.0;
    nominal.GetArc(&centre, &radius, &start, &end);
    Circle found{};
    for (double const off : {4.0, 2.0, 1.0, 0.5}) {
        if (edge.size() < 3)
            return VelROI();
        found = fitCircle(edge);
        centre = VelPoint(found.centre.x, found.centre.y);
        auto const isOff = [&](cv::Point2f const& point) {
            return std::abs(distance(centre, point) - found.radius) > off;
        };
        edge.erase(std::remove_if(edge.begin(), edge.end(), isOff), edge.end());
    }
    double const middle = (start + end) / 2.0;
    double before = 0.0;
    double after = 0.0;
    for (cv::Point2f const& point : edge) {
        double const angle = std::atan2(point.y - centre.y, point.x - centre.x) * 180.0 / CV_PI;
        double const turn = std::remainder(angle - middle, 360.0);
        before = std::min(before, turn);
        after = std::max(after, turn);
    }
    VelROI roi;
    roi.GenArc(centre, found.radius, middle + before, middle + after);
    return roi;
}

VelROI polygonAlong(Line const& edge)
{
    Line corners;
    cv::approxPolyDP(edge, corners, 0.3, true);
    VelPointArray points;
    for (cv::Point2f const& corner : corners)
        points.Append(VelPoint(corner.x, corner.y));
    VelROI roi;
    roi.GenPolygon(points);
    return roi;
}

// The middle line of a mark, from one of its ends to the other, the way the nominal line goes.
VelROI lineAlong(Line const& edge, VelROI const& nominal)
{
    VelPoint start;
    VelPoint end;
    nominal.GetLine(&start, &end);
    cv::Vec4f fitted;
    cv::fitLine(edge, fitted, cv::DIST_L2, 0.0, 0.01, 0.01);
    cv::Point2d way(fitted[0], fitted[1]);
    cv::Point2d const origin(fitted[2], fitted[3]);
    if (way.dot({end.x - start.x, end.y - start.y}) < 0.0)
        way = -way;
    double first = 0.0;
    double last = 0.0;
    for (cv::Point2f const& point : edge) {
        double const along = way.dot(cv::Point2d(point) - origin);
        first = std::min(first, along);
        last = std::max(last, along);
    }
    start = VelPoint(origin.x + way.x * first, origin.y + way.y * first);
    end = VelPoint(origin.x + way.x * last, origin.y + way.y * last);
    VelROI roi;
    roi.GenLine(start, end);
    return roi;
}

} // namespace

KDRShape circleThrough(Line const& points)
{
    Circle const found = fitCircle(points);
    KDRPoint centre(found.centre.x, found.centre.y);
    KDRShape circle;
    circle.fromCircle(centre, found.radius);
    return circle;
}

KDRShape rectangleAround(Line const& points)
{
    Oriented const found = orientedOf(cv::minAreaRect(points));
    KDRPoint centre(found.centre.x, found.centre.y);
    KDRShape rectangle;
    rectangle.fromRect2(centre, found.along, found.across, found.angle);
    return rectangle;
}

VelROI figureAlong(Line const& edge, VelROI const& nominal)
{
    if (edge.size() < 20)
        return VelROI();
    switch (nominal.ROIType()) {
    case RecordTorus:
        return torusAlong(edge, nominal);
    case RecordPolygon:
        return polygonAlong(edge);
    case RecordLine:
        return lineAlong(edge, nominal);
    case RecordEllipse:
        return ellipseAlong(edge);
    case RecordArc:
        return arcAlong(edge, nominal);
    default:
        return VelROI();
    }
}

} // namespace inspect
