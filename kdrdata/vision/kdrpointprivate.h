#ifndef KDRDATA_KDRPOINTPRIVATE_H
#define KDRDATA_KDRPOINTPRIVATE_H

#include <kdrdata/kdrdata_export.h>

struct VelPoint;
struct KDRInternal;

/// The record behind a KDRPoint: coordinates in a core-library point, and an editing range per
/// axis.
///
/// The record owns its core point. Copies are deep. No setter checks anything: ranges are carried
/// and reported, never tested.
///
/// Threads: one record may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRPointPrivate
{
public:
    /// The point (0, 0) with the default range on both axes: maximum 999999.0, minimum -999999.0,
    /// step 1.0.
    KDRPointPrivate();
    /// Copies the coordinates and all six range values of @p other.
    KDRPointPrivate(KDRPointPrivate const& other);
    /// Frees the core point.
    ~KDRPointPrivate();

    /// Copies the coordinates, through the core point's assignment, and all six range values of
    /// @p other. Returns this record.
    KDRPointPrivate& operator=(KDRPointPrivate const& other);

    /// The x coordinate in pixels.
    double getXVal() const;
    /// Sets the x coordinate in pixels.
    void setXVal(double value);
    /// The y coordinate in pixels.
    double getYVal() const;
    /// Sets the y coordinate in pixels.
    void setYVal(double value);

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
    VelPoint* d;
    double m_xMaxVal;
    double m_xMinVal;
    double m_xStepVal;
    double m_yMaxVal;
    double m_yMinVal;
    double m_yStepVal;
};

#endif
