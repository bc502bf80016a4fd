#ifndef KDRDATA_KDRPLANE3D_H
#define KDRDATA_KDRPLANE3D_H

#include <kdrdata/kdrdata_export.h>

/// A plane in space, by the four coefficients of its equation.
///
/// This version carries no data: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRPlane3D
{
public:
    /// A plane that holds nothing, like every other.
    KDRPlane3D();
    /// Copies nothing.
    KDRPlane3D(KDRPlane3D const&);
    /// Does nothing.
    ~KDRPlane3D();

    /// Copies nothing. Returns this plane.
    KDRPlane3D& operator=(KDRPlane3D const&);

    /// Does nothing.
    void setA(double);
    /// Does nothing.
    void setB(double);
    /// Does nothing.
    void setC(double);
    /// Does nothing.
    void setD(double);

    /// Answers 0.0. Kept on purpose.
    double a() const;
    /// Answers 0.0. Kept on purpose.
    double b() const;
    /// Answers 0.0. Kept on purpose.
    double c() const;
    /// Answers 0.0. Kept on purpose.
    double d() const;
};

#endif
