#ifndef KDRDATA_KDR3DLINESET_H
#define KDRDATA_KDR3DLINESET_H

#include <kdrdata/kdrdata_export.h>

/// A set of line segments in space.
///
/// This version carries no data and declares nothing but the special members. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDR3DLineSet
{
public:
    /// A line set that holds nothing, like every other.
    KDR3DLineSet();
    /// Copies nothing.
    KDR3DLineSet(KDR3DLineSet const&);
    /// Does nothing.
    ~KDR3DLineSet();

    /// Copies nothing. Returns this line set.
    KDR3DLineSet& operator=(KDR3DLineSet const&);
};

#endif
