#include <kdrdata/geometry3d/kdrplane3darrayprivate.h>

KDRPlane3DArrayPrivate::KDRPlane3DArrayPrivate() {}
KDRPlane3DArrayPrivate::KDRPlane3DArrayPrivate(KDRPlane3DArrayPrivate const&) {}
KDRPlane3DArrayPrivate::~KDRPlane3DArrayPrivate() {}

KDRPlane3DArrayPrivate& KDRPlane3DArrayPrivate::operator=(KDRPlane3DArrayPrivate const&)
{
    return *this;
}
