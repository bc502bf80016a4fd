#ifndef KDRDATA_KDRVECTOR3D_H
#define KDRDATA_KDRVECTOR3D_H

#include <kdrdata/kdrdata_export.h>

/// A vector of three components.
///
/// This version carries no data: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRVector3d
{
public:
    /// A vector that holds nothing, like every other.
    KDRVector3d();
    /// Ignores the three components.
    KDRVector3d(double, double, double);
    /// Copies nothing.
    KDRVector3d(KDRVector3d const&);
    /// Does nothing.
    ~KDRVector3d();

    /// Copies nothing. Returns this vector.
    KDRVector3d& operator=(KDRVector3d const&);

    /// A default vector.
    KDRVector3d operator+(KDRVector3d const&) const;
    /// A default vector.
    KDRVector3d operator-(KDRVector3d const&) const;
    /// A default vector.
    KDRVector3d operator*(double) const;
    /// A default vector, also for the divisor 0.
    KDRVector3d operator/(double) const;
    /// A default vector.
    KDRVector3d Minimum(KDRVector3d const&) const;
    /// A default vector.
    KDRVector3d Maximum(KDRVector3d const&) const;
    /// A default vector.
    KDRVector3d Abs() const;
    /// A default vector.
    KDRVector3d Cross(KDRVector3d const&) const;
    /// A default vector.
    KDRVector3d Normalized() const;

    /// Answers false, for the vector itself too. Kept on purpose.
    bool operator==(KDRVector3d const&) const;
    /// Answers false, whatever the tolerance. Kept on purpose.
    bool Equals(KDRVector3d const&, double) const;
    /// Answers false. Kept on purpose.
    bool IsNormalized() const;
    /// Answers false. Kept on purpose.
    bool IsValid() const;

    /// Answers 0.0. Kept on purpose.
    double Norm() const;
    /// Answers 0.0. Kept on purpose.
    double Dot(KDRVector3d const&) const;
    /// Answers 0.0. Not for constant vectors. Kept on purpose.
    double d1Value();
    /// Answers 0.0. Not for constant vectors. Kept on purpose.
    double d2Value();
    /// Answers 0.0. Not for constant vectors. Kept on purpose.
    double d3Value();

    /// Does nothing.
    void InValidate();
};

#endif
