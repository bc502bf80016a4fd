#ifndef KDRDATA_KDRPOSE3D_H
#define KDRDATA_KDRPOSE3D_H

#include <kdrdata/kdrdata_export.h>

/// A position in space and the rotations about the three axes.
///
/// The numbers are carried as they are given: no unit is implied, no angle is normalised and
/// nothing is checked. A copy carries all of them and shares nothing.
///
/// @code
/// KDRPose3D pose;
/// pose.setX(12.5);
/// pose.setRz(90.0);
/// @endcode
///
/// Threads: one pose may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRPose3D
{
public:
    /// A pose with 0.0 in every field.
    KDRPose3D();
    /// Copies every field of @p other.
    KDRPose3D(KDRPose3D const& other);
    /// Does nothing.
    ~KDRPose3D();

    /// Copies every field of @p other. Returns this pose.
    KDRPose3D& operator=(KDRPose3D const& other);

    /// Sets the position along the x axis.
    void setX(double value);
    /// Sets the position along the y axis.
    void setY(double value);
    /// Sets the position along the z axis.
    void setZ(double value);
    /// Sets the rotation about the x axis.
    void setRx(double value);
    /// Sets the rotation about the y axis.
    void setRy(double value);
    /// Sets the rotation about the z axis.
    void setRz(double value);

    /// The position along the x axis.
    double x() const;
    /// The position along the y axis.
    double y() const;
    /// The position along the z axis.
    double z() const;
    /// The rotation about the x axis.
    double Rx() const;
    /// The rotation about the y axis.
    double Ry() const;
    /// The rotation about the z axis.
    double Rz() const;

private:
    double m_x;
    double m_y;
    double m_z;
    double m_Rx;
    double m_Ry;
    double m_Rz;
};

#endif
