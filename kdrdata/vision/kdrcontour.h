#ifndef KDRDATA_KDRCONTOUR_H
#define KDRDATA_KDRCONTOUR_H

#include <kdrdata/kdrdata_export.h>

class KDRPointArray;
class VelContour;
struct KDRInternal;

/// A contour: an ordered outline of points with its length, perimeter and area.
///
/// The handle owns one core-library contour (`VelContour`) and forwards to it; copies are deep.
///
/// @code
/// KDRContour outline;
/// outline.FromPointArray(corners);
/// double const squarePixels = outline.area();
/// @endcode
///
/// Out of memory is std::bad_alloc.
///
/// Threads: one contour may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRContour
{
public:
    /// An empty contour.
    KDRContour();
    /// Copies the points of @p other.
    KDRContour(KDRContour const& other);
    /// Destroys the core contour.
    ~KDRContour();

    /// Copies the points of @p other. Returns this contour.
    KDRContour& operator=(KDRContour const& other);

    /// Replaces the contents of @p points by the contour's points, in order (the core contour's
    /// `ToPointArray`). @p points must not be null.
    void ToPointArray(KDRPointArray* points) const;
    /// Replaces the contour by @p points, in order (the core contour's `FromPointArray`); @p points
    /// is not changed, and yet must not be constant. Kept on purpose.
    void FromPointArray(KDRPointArray& points);

    /// The number of points (the core contour's `Length`).
    int length() const;
    /// The length of the closed outline in pixels (the core contour's `Perimeter`).
    double perimeter() const;
    /// The enclosed area in square pixels, never negative (the core contour's `Area`).
    double area() const;

private:
    friend struct KDRInternal;
    VelContour* d;
};

#endif
