#ifndef KDRDATA_KDRPOSE2D_H
#define KDRDATA_KDRPOSE2D_H

#include <kdrdata/kdrdata_export.h>

/// A position in the plane and the rotation about the axis that stands on it.
///
/// The numbers are carried as they are given: no unit is implied, no angle is normalised and
/// nothing is checked. A copy carries all of them and shares nothing.
///
/// @code
/// KDRPose2D pose;
/// pose.setX(12.5);
/// pose.setRz(90.0);
/// @endcode
///
/// Threads: one pose may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRPose2D
{
public:
    /// A pose with 0.0 in every field.
    KDRPose2D();
    /// Copies every field of @p other.
    KDRPose2D(KDRPose2D const& other);
    /// Does nothing.
    ~KDRPose2D();

    /// Copies every field of @p other. Returns this pose.
    KDRPose2D& operator=(KDRPose2D const& other);

    /// Sets the position along the x axis.
    void setX(double value);
    /// Sets the position along the y axis.
    void setY(double value);
    /// Sets the rotation about the z axis.
    void setRz(double value);

    /// The position along the x axis.
    double x() const;
    /// The position along the y axis.
    double y() const;
    /// The rotation about the z axis.
    double Rz() const;

private:
    double m_x;
    double m_y;
    double m_Rz;
};

#endif
