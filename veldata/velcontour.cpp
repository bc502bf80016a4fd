#include <veldata/velcontour.h>

#include <cmath>

VelContour::VelContour() noexcept = default;

VelContour::VelContour(VelContour const& other) = default;

VelContour::VelContour(VelContour&& other) noexcept = default;

VelContour::~VelContour() = default;

VelContour& VelContour::operator=(VelContour const& other) = default;

VelContour& VelContour::operator=(VelContour&& other) noexcept = default;

int VelContour::ToPointArray(VelPointArray* points) const
{
    if (!points)
        return 0;
    *points = outline;
    return 1;
}

int VelContour::FromPointArray(VelPointArray const& points)
{
    outline = points;
    return 1;
}

int VelContour::Length() const noexcept { return outline.Length(); }

double VelContour::Perimeter() const
{
    int const length = outline.Length();
    double sum = 0.0;
    VelPoint from = outline[length - 1];
    for (int i = 0; i < length; ++i) {
        VelPoint const to = outline[i];
        sum += std::hypot(to.x - from.x, to.y - from.y);
        from = to;
    }
    return sum;
}

double VelContour::Area() const
{
    int const length = outline.Length();
    VelPoint const origin = outline[0];
    double twice = 0.0;
    VelPoint from;
    for (int i = 1; i < length; ++i) {
        VelPoint const point = outline[i];
        VelPoint const to(point.x - origin.x, point.y - origin.y);
        twice += from.x * to.y - to.x * from.y;
        from = to;
    }
    return std::fabs(twice) / 2.0;
}
