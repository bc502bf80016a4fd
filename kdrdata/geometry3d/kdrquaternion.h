#ifndef KDRDATA_KDRQUATERNION_H
#define KDRDATA_KDRQUATERNION_H

#include <kdrdata/kdrdata_export.h>

class KDRMatrix3;
class KDRVector3d;

/// A quaternion: a rotation in space.
///
/// This version carries no data: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRQuaternion
{
public:
    /// A quaternion that holds nothing, like every other.
    KDRQuaternion();
    /// Ignores the angle and the axis.
    KDRQuaternion(double, KDRVector3d&);
    /// Copies nothing.
    KDRQuaternion(KDRQuaternion const&);
    /// Does nothing.
    ~KDRQuaternion();

    /// Copies nothing. Returns this quaternion.
    KDRQuaternion& operator=(KDRQuaternion const&);

    /// Does nothing.
    void genQuaternion(KDRVector3d&, double);
    /// Does nothing.
    void genQuaternion(KDRVector3d&, KDRVector3d&);
    /// Does nothing.
    void genQuaternion(KDRMatrix3 const&);
    /// Does nothing.
    void formatQuaterion();

    /// Does nothing and leaves the output untouched. Kept on purpose.
    void getAxisAngle(KDRVector3d*, float*);
    /// Does nothing and leaves the output untouched. Kept on purpose.
    void transformDirection(KDRVector3d&, KDRVector3d*);
    /// Does nothing and leaves the output untouched. Kept on purpose.
    void getTransMatrix(KDRMatrix3*);

    /// Answers false, whatever the tolerance. Not for constant quaternions. Kept on purpose.
    bool equals(KDRQuaternion const&, float);
    /// Answers false. Not for constant quaternions. Kept on purpose.
    bool isValid();
    /// Answers 0.0. Kept on purpose.
    double norm() const;
    /// Answers 0.0. Not for constant quaternions. Kept on purpose.
    double dot(KDRQuaternion&);

    /// A default quaternion. Not for constant quaternions. Kept on purpose.
    KDRQuaternion conjugate();
    /// A default quaternion. Not for constant quaternions. Kept on purpose.
    KDRQuaternion inverse();
    /// A default quaternion. Not for constant quaternions. Kept on purpose.
    KDRQuaternion normalized();
    /// A default quaternion. Not for constant quaternions. Kept on purpose.
    KDRQuaternion operator+(KDRQuaternion&);
    /// A default quaternion. Not for constant quaternions. Kept on purpose.
    KDRQuaternion operator-(KDRQuaternion&);
    /// A default quaternion. Not for constant quaternions. Kept on purpose.
    KDRQuaternion operator*(KDRQuaternion&);
    /// A default quaternion. Not for constant quaternions. Kept on purpose.
    KDRQuaternion operator/(KDRQuaternion&);
    /// A default quaternion. Not for constant quaternions. Kept on purpose.
    KDRQuaternion operator*(double);
    /// A default quaternion, also for the divisor 0. Not for constant quaternions. Kept on purpose.
    KDRQuaternion operator/(double);
};

#endif
