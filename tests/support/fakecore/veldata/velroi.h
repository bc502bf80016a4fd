#ifndef KDRDATA_TESTS_FAKECORE_VELROI_H
#define KDRDATA_TESTS_FAKECORE_VELROI_H

#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include <veldata/velpoint.h>
#include <veldata/velpointarray.h>

/// A core region of interest that does no work: it writes down each call with its arguments, is of
/// the type that the test says, and answers the same figure to everyone: points (1, 2) and (3, 4),
/// numbers 5 to 8. It has the operations that the library is built on and no others, and takes its
/// arguments as narrowly as a core library may.
class VelROI
{
public:
    VelROI() = default;
    VelROI(VelROI const&) = delete;
    VelROI& operator=(VelROI const& other)
    {
        note("operator=", {}, {});
        type = other.type;
        return *this;
    }

    unsigned int ROIType() const { return type; }

    int GenPoint(VelPoint& p) { return note("GenPoint", {p}, {}); }
    int GenRect1(VelPoint& p, VelPoint& q) { return note("GenRect1", {p, q}, {}); }
    int GenLine(VelPoint& p, VelPoint& q) { return note("GenLine", {p, q}, {}); }
    int GenCircle(VelPoint& p, double a) { return note("GenCircle", {p}, {a}); }
    int GenRect2(VelPoint& p, double a, double b, double c)
    {
        return note("GenRect2", {p}, {a, b, c});
    }
    int GenEllipse(VelPoint& p, double a, double b, double c)
    {
        return note("GenEllipse", {p}, {a, b, c});
    }
    int GenArc(VelPoint& p, double a, double b, double c) { return note("GenArc", {p}, {a, b, c}); }
    int GenTorus(VelPoint& p, double a, double b, double c, double e)
    {
        return note("GenTorus", {p}, {a, b, c, e});
    }
    int GenPolygon(VelPointArray& points) { return note("GenPolygon", points); }
    int GenIrregular(VelPointArray& points) { return note("GenIrregular", points); }

    int GetPoint(VelPoint* p) { return give("GetPoint", {p}, {}); }
    int GetRect1(VelPoint* p, VelPoint* q) const { return give("GetRect1", {p, q}, {}); }
    int GetLine(VelPoint* p, VelPoint* q) const { return give("GetLine", {p, q}, {}); }
    int GetCircle(VelPoint* p, double* a) const { return give("GetCircle", {p}, {a}); }
    int GetRect2(VelPoint* p, double* a, double* b, double* c) const
    {
        return give("GetRect2", {p}, {a, b, c});
    }
    int GetEllipse(VelPoint* p, double* a, double* b, double* c) const
    {
        return give("GetEllipse", {p}, {a, b, c});
    }
    int GetArc(VelPoint* p, double* a, double* b, double* c) const
    {
        return give("GetArc", {p}, {a, b, c});
    }
    int GetTorus(VelPoint* p, double* a, double* b, double* c, double* e) const
    {
        return give("GetTorus", {p}, {a, b, c, e});
    }
    int GetPolygon(VelPointArray* points) const { return give("GetPolygon", points); }
    int GetIrregular(VelPointArray* points) const { return give("GetIrregular", points); }

    static std::vector<std::string> calls;

    unsigned int type = 3;

private:
    static int note(char const* name, std::vector<VelPoint> const& points,
                    std::vector<double> const& numbers)
    {
        std::ostringstream call;
        call << name;
        for (VelPoint const& point : points)
            call << " (" << point.x << ", " << point.y << ')';
        for (double const number : numbers)
            call << ' ' << number;
        calls.push_back(call.str());
        return 1;
    }
    static int note(char const* name, VelPointArray const& points)
    {
        std::vector<VelPoint> all;
        all.reserve(static_cast<std::size_t>(points.Length()));
        for (int i = 0; i < points.Length(); ++i)
            all.push_back(points[i]);
        return note(name, all, {});
    }

    static int give(char const* name, std::initializer_list<VelPoint*> points,
                    std::initializer_list<double*> numbers)
    {
        double next = 1.0;
        for (VelPoint* const point : points) {
            point->x = next++;
            point->y = next++;
        }
        next = 5.0;
        for (double* const number : numbers)
            *number = next++;
        return note(name, {}, {});
    }
    static int give(char const* name, VelPointArray* points)
    {
        points->Append(VelPoint(1.0, 2.0));
        points->Append(VelPoint(3.0, 4.0));
        return note(name, {}, {});
    }
};

#endif
