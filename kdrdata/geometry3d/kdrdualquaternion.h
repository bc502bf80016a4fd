#ifndef KDRDATA_KDRDUALQUATERNION_H
#define KDRDATA_KDRDUALQUATERNION_H

#include <kdrdata/kdrdata_export.h>

class KDRMatrix4;
class KDRQuaternion;
class KDRVector3d;
struct KDRInternal;

/// A dual quaternion: a rotation and a translation in space.
///
/// The one field, a pointer, is null in every object and never followed.
///
/// This version carries no data: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRDualQuaternion
{
public:
    /// A dual quaternion that holds nothing, like every other.
    KDRDualQuaternion();
    /// Ignores both parts.
    KDRDualQuaternion(KDRQuaternion const&, KDRQuaternion const&);
    /// Copies nothing.
    KDRDualQuaternion(KDRDualQuaternion const&);
    /// Does nothing.
    ~KDRDualQuaternion();

    /// Copies nothing. Returns this dual quaternion.
    KDRDualQuaternion& operator=(KDRDualQuaternion const&);

    /// Does nothing.
    void genDualQuaternion(KDRVector3d&, double, KDRVector3d&, double);
    /// Does nothing.
    void genDualQuaternion(KDRQuaternion&, KDRVector3d&);
    /// Does nothing.
    void genDualQuaternion(KDRMatrix4 const&);

    /// Does nothing and leaves the output untouched. Kept on purpose.
    void getTransformMatrix(KDRMatrix4*);
    /// Does nothing and leaves the output untouched. Kept on purpose.
    void getRotateTrans(KDRQuaternion*, KDRVector3d*);
    /// Does nothing and leaves the output untouched. Kept on purpose.
    void getScrew(KDRVector3d*, float*, KDRVector3d*, float*);
    /// Does nothing and leaves the output untouched. Kept on purpose.
    void transformPoint(KDRVector3d&, KDRVector3d*);
    /// Does nothing and leaves the output untouched. Kept on purpose.
    void slerp(KDRDualQuaternion&, double, KDRDualQuaternion*);
    /// Does nothing and leaves the output untouched. Kept on purpose.
    void lerp(KDRDualQuaternion&, double, KDRDualQuaternion*);

    /// Answers false. Not for constant dual quaternions. Kept on purpose.
    bool isValid();
    /// Answers 0.0. Kept on purpose.
    double norm() const;
    /// Answers 0.0. Not for constant dual quaternions. Kept on purpose.
    double dot(KDRDualQuaternion&);

    /// A default dual quaternion. Not for constant dual quaternions. Kept on purpose.
    KDRDualQuaternion conjugate();
    /// A default dual quaternion. Not for constant dual quaternions. Kept on purpose.
    KDRDualQuaternion normalized();
    /// A default dual quaternion. Not for constant dual quaternions. Kept on purpose.
    KDRDualQuaternion operator+(KDRDualQuaternion&);
    /// A default dual quaternion. Not for constant dual quaternions. Kept on purpose.
    KDRDualQuaternion operator-(KDRDualQuaternion&);
    /// A default dual quaternion. Not for constant dual quaternions. Kept on purpose.
    KDRDualQuaternion operator*(KDRDualQuaternion&);
    /// A default dual quaternion. Not for constant dual quaternions. Kept on purpose.
    KDRDualQuaternion operator*(double);
    /// A default dual quaternion, also for the divisor 0. Not for constant dual quaternions. Kept
    /// on purpose.
    KDRDualQuaternion operator/(double);

private:
    friend struct KDRInternal;
    void* d;
};

#endif
