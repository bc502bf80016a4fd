#ifndef KDRDATA_TESTS_FAKERECORDS_VELPOINT_H
#define KDRDATA_TESTS_FAKERECORDS_VELPOINT_H

#include "../fakecalls.h"

/// A core point that is not the origin by default and cannot be copy-constructed.
struct VelPoint
{
    VelPoint() : VelPoint(7.0, 8.0) {}
    VelPoint(double xValue, double yValue) : x(xValue), y(yValue) {}
    VelPoint(VelPoint const&) = delete;
    VelPoint& operator=(VelPoint const& other)
    {
        FakeCalls::note("point operator=");
        x = other.x;
        y = other.y;
        return *this;
    }

    double x;
    double y;
};

/// Spoils the point, so that nobody hands over one that he needs.
inline int numberOf(VelPoint& point)
{
    int const number = static_cast<int>(point.x);
    bool const isWhole = point.y == -point.x;
    point.x = point.y = -1.0;
    return isWhole ? number : -1;
}

inline void setNumber(VelPoint& point, int number)
{
    point.x = number;
    point.y = -number;
}

#endif
