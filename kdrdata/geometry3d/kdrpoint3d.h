#ifndef KDRDATA_KDRPOINT3D_H
#define KDRDATA_KDRPOINT3D_H

#include <kdrdata/kdrdata_export.h>

/// A point in space.
///
/// This version carries no data: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRPoint3D
{
public:
    /// A point that holds nothing, like every other.
    KDRPoint3D();
    /// Copies nothing.
    KDRPoint3D(KDRPoint3D const&);
    /// Does nothing.
    ~KDRPoint3D();

    /// Copies nothing. Returns this point.
    KDRPoint3D& operator=(KDRPoint3D const&);

    /// Does nothing.
    void setX(double);
    /// Does nothing.
    void setY(double);
    /// Does nothing.
    void setZ(double);

    /// Answers -1.0. Kept on purpose.
    double x() const;
    /// Answers -1.0. Kept on purpose.
    double y() const;
    /// Answers -1.0. Kept on purpose.
    double z() const;
};

#endif
