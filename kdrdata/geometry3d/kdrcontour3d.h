#ifndef KDRDATA_KDRCONTOUR3D_H
#define KDRDATA_KDRCONTOUR3D_H

#include <kdrdata/kdrdata_export.h>

class KDRPoint3DArray;

/// A contour in space.
///
/// This version carries no data: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRContour3D
{
public:
    /// A contour that holds nothing, like every other.
    KDRContour3D();
    /// Copies nothing.
    KDRContour3D(KDRContour3D const&);
    /// Does nothing.
    ~KDRContour3D();

    /// Copies nothing. Returns this contour.
    KDRContour3D& operator=(KDRContour3D const&);

    /// Does nothing and leaves the output untouched. Kept on purpose.
    void ToPointArray(KDRPoint3DArray*) const;
    /// Does nothing.
    void FromPointArray(KDRPoint3DArray&);
};

#endif
