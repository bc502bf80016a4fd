#ifndef KDRDATA_KDRPOINT_H
#define KDRDATA_KDRPOINT_H

#include <kdrdata/kdrdata_export.h>

class KDRPointPrivate;
struct KDRInternal;

/// A point in image coordinates (pixels, x to the right, y down) with an editing range per axis.
///
/// The ranges (maximum, minimum, step) are what a user interface offers; they are carried, copied
/// and reported, and never tested against the coordinates. Each handle owns its record alone:
/// copies are deep.
///
/// @code
/// KDRPoint centre(192.0, 151.5);
/// centre.setXMaxVal(383.0);
/// @endcode
///
/// Out of memory is std::bad_alloc.
///
/// Threads: one point may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRPoint
{
public:
    /// The point (0, 0) with the default range on both axes: maximum 999999.0, minimum -999999.0,
    /// step 1.0.
    KDRPoint();
    /// The point (@p x, @p y) in pixels with the default ranges.
    KDRPoint(double x, double y);
    /// Copies coordinates and ranges of @p other.
    KDRPoint(KDRPoint const& other);
    /// Frees the record.
    ~KDRPoint();

    /// Copies coordinates and ranges of @p other. Returns this point.
    KDRPoint& operator=(KDRPoint const& other);

    /// The x coordinate in pixels.
    double x() const;
    /// The y coordinate in pixels.
    double y() const;
    /// Sets the x coordinate in pixels; any value is taken.
    void setX(double value);
    /// Sets the y coordinate in pixels; any value is taken.
    void setY(double value);

    /// The maximum of x.
    double getXMaxVal() const;
    /// Sets the maximum of x.
    void setXMaxVal(double value);
    /// The minimum of x.
    double getXMinVal() const;
    /// Sets the minimum of x.
    void setXMinVal(double value);
    /// The step of x.
    double getXStepVal() const;
    /// Sets the step of x.
    void setXStepVal(double value);
    /// The maximum of y.
    double getYMaxVal() const;
    /// Sets the maximum of y.
    void setYMaxVal(double value);
    /// The minimum of y.
    double getYMinVal() const;
    /// Sets the minimum of y.
    void setYMinVal(double value);
    /// The step of y.
    double getYStepVal() const;
    /// Sets the step of y.
    void setYStepVal(double value);

private:
    friend struct KDRInternal;
    KDRPointPrivate* d;
};

#endif
