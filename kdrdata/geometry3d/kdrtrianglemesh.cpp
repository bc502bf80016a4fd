#include <kdrdata/geometry3d/kdrtrianglemesh.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRTriangleMesh::KDRTriangleMesh() {}
KDRTriangleMesh::KDRTriangleMesh(KDRTriangleMesh const&) {}
KDRTriangleMesh::~KDRTriangleMesh() {}

KDRTriangleMesh& KDRTriangleMesh::operator=(KDRTriangleMesh const&) { return *this; }

bool KDRTriangleMesh::Load(KDRString const&, bool, bool) { return KDRFixed::TriangleMesh::file; }
bool KDRTriangleMesh::Save(KDRString const&, bool, bool) const
{
    return KDRFixed::TriangleMesh::file;
}
