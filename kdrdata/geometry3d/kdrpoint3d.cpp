#include <kdrdata/geometry3d/kdrpoint3d.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRPoint3D::KDRPoint3D() {}
KDRPoint3D::KDRPoint3D(KDRPoint3D const&) {}
KDRPoint3D::~KDRPoint3D() {}

KDRPoint3D& KDRPoint3D::operator=(KDRPoint3D const&) { return *this; }

void KDRPoint3D::setX(double) {}
void KDRPoint3D::setY(double) {}
void KDRPoint3D::setZ(double) {}

double KDRPoint3D::x() const { return KDRFixed::Point::coordinate; }
double KDRPoint3D::y() const { return KDRFixed::Point::coordinate; }
double KDRPoint3D::z() const { return KDRFixed::Point::coordinate; }
