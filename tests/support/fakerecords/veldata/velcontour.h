#ifndef KDRDATA_TESTS_FAKERECORDS_VELCONTOUR_H
#define KDRDATA_TESTS_FAKERECORDS_VELCONTOUR_H

#include <veldata/velpointarray.h>

/// A core contour with measures that no outline has together.
class VelContour
{
public:
    VelContour() = default;
    VelContour(VelContour const&) = delete;
    VelContour& operator=(VelContour const& other)
    {
        FakeCalls::note("contour operator=");
        number = other.number;
        return *this;
    }

    int ToPointArray(VelPointArray* points) const
    {
        FakeCalls::note("ToPointArray", points);
        return 0;
    }
    int FromPointArray(VelPointArray& points)
    {
        FakeCalls::note("FromPointArray", &points);
        return 0;
    }
    int Length() const { return -2147483647; }
    double Perimeter() const { return 0.1; }
    double Area() const { return -1e300; }

    int number = 0;

private:
    FakeCalls::Alive alive;
};

inline int numberOf(VelContour const& contour) { return contour.number; }
inline void setNumber(VelContour& contour, int number) { contour.number = number; }

#endif
