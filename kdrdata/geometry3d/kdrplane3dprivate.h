#ifndef KDRDATA_KDRPLANE3DPRIVATE_H
#define KDRDATA_KDRPLANE3DPRIVATE_H

#include <kdrdata/kdrdata_export.h>

/// The record for the data of a KDRPlane3D. It holds nothing, and nothing in the library creates
/// one. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRPlane3DPrivate
{
public:
    /// A record that holds nothing, like every other.
    KDRPlane3DPrivate();
    /// Copies nothing.
    KDRPlane3DPrivate(KDRPlane3DPrivate const&);
    /// Does nothing.
    ~KDRPlane3DPrivate();

    /// Copies nothing. Returns this record.
    KDRPlane3DPrivate& operator=(KDRPlane3DPrivate const&);
};

#endif
