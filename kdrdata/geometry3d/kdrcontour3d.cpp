#include <kdrdata/geometry3d/kdrcontour3d.h>

KDRContour3D::KDRContour3D() {}
KDRContour3D::KDRContour3D(KDRContour3D const&) {}
KDRContour3D::~KDRContour3D() {}

KDRContour3D& KDRContour3D::operator=(KDRContour3D const&) { return *this; }

void KDRContour3D::ToPointArray(KDRPoint3DArray*) const {}
void KDRContour3D::FromPointArray(KDRPoint3DArray&) {}
