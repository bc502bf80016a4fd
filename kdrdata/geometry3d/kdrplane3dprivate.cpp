#include <kdrdata/geometry3d/kdrplane3dprivate.h>

KDRPlane3DPrivate::KDRPlane3DPrivate() {}
KDRPlane3DPrivate::KDRPlane3DPrivate(KDRPlane3DPrivate const&) {}
KDRPlane3DPrivate::~KDRPlane3DPrivate() {}

KDRPlane3DPrivate& KDRPlane3DPrivate::operator=(KDRPlane3DPrivate const&) { return *this; }
