#ifndef VELDATA_VELCONTOUR_H
#define VELDATA_VELCONTOUR_H

#include <veldata/veldata_export.h>
#include <veldata/velpointarray.h>

/// An outline: an ordered list of points, closed from the last point back to the first.
///
/// The contour owns its points; copies are deep and a moved-from contour has none. Measures are in
/// pixels and are worked out in double precision relative to the first point, so that an outline
/// far from the origin is measured as well as one near it. Copying throws std::bad_alloc when
/// memory runs out. One contour may be read from several threads at once, but not while one of them
/// changes it.
class VELDATA_EXPORT VelContour
{
public:
    /// A contour without points.
    VelContour() noexcept;

    /// A deep copy. Throws std::bad_alloc.
    VelContour(VelContour const& other);

    /// Takes the points over; @p other is left without any.
    VelContour(VelContour&& other) noexcept;

    /// Destroys the points.
    ~VelContour();

    /// Becomes a deep copy. Throws std::bad_alloc and is then unchanged.
    VelContour& operator=(VelContour const& other);

    /// Takes the points over; @p other is left without any. Assigning a contour to itself does
    /// nothing.
    VelContour& operator=(VelContour&& other) noexcept;

    /// Replaces the contents of @p points by a copy of the outline's points, in order. Answers 1,
    /// or 0 for null. Throws std::bad_alloc, with @p points unchanged.
    int ToPointArray(VelPointArray* points) const;

    /// Replaces the outline by a copy of @p points, in order; an empty list gives a contour without
    /// points. Answers 1. Throws std::bad_alloc and is then unchanged.
    int FromPointArray(VelPointArray const& points);

    /// The number of points.
    int Length() const noexcept;

    /// The length of the closed outline in pixels; 0 for fewer than two points, twice their
    /// distance for two.
    double Perimeter() const;

    /// The enclosed area in square pixels, never negative whichever way the outline turns; 0 for
    /// fewer than three points. Where an outline crosses itself, parts that turn opposite ways
    /// count against each other.
    double Area() const;

private:
    VelPointArray outline;
};

#endif
