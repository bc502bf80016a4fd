#ifndef KDRDATA_KDRTRIANGLEMESH_H
#define KDRDATA_KDRTRIANGLEMESH_H

#include <kdrdata/kdrdata_export.h>

class KDRString;

/// A surface in space made of triangles.
///
/// This version carries no data: every operation ignores its arguments, and the answers are
/// constants, not errors. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRTriangleMesh
{
public:
    /// A mesh that holds nothing, like every other.
    KDRTriangleMesh();
    /// Copies nothing.
    KDRTriangleMesh(KDRTriangleMesh const&);
    /// Does nothing.
    ~KDRTriangleMesh();

    /// Copies nothing. Returns this mesh.
    KDRTriangleMesh& operator=(KDRTriangleMesh const&);

    /// Answers false and reads no file. Kept on purpose.
    bool Load(KDRString const&, bool, bool);
    /// Answers false and writes no file. Kept on purpose.
    bool Save(KDRString const&, bool, bool) const;
};

#endif
