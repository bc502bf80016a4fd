#ifndef KDRDATA_KDRPLANE3DARRAYPRIVATE_H
#define KDRDATA_KDRPLANE3DARRAYPRIVATE_H

#include <kdrdata/kdrdata_export.h>

/// The record for the data of a KDRPlane3DArray. It holds nothing, and nothing in the library
/// creates one. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRPlane3DArrayPrivate
{
public:
    /// A record that holds nothing, like every other.
    KDRPlane3DArrayPrivate();
    /// Copies nothing.
    KDRPlane3DArrayPrivate(KDRPlane3DArrayPrivate const&);
    /// Does nothing.
    ~KDRPlane3DArrayPrivate();

    /// Copies nothing. Returns this record.
    KDRPlane3DArrayPrivate& operator=(KDRPlane3DArrayPrivate const&);
};

#endif
