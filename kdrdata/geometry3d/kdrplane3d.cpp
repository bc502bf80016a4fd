#include <kdrdata/geometry3d/kdrplane3d.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRPlane3D::KDRPlane3D() {}
KDRPlane3D::KDRPlane3D(KDRPlane3D const&) {}
KDRPlane3D::~KDRPlane3D() {}

KDRPlane3D& KDRPlane3D::operator=(KDRPlane3D const&) { return *this; }

void KDRPlane3D::setA(double) {}
void KDRPlane3D::setB(double) {}
void KDRPlane3D::setC(double) {}
void KDRPlane3D::setD(double) {}

double KDRPlane3D::a() const { return KDRFixed::Plane::coefficient; }
double KDRPlane3D::b() const { return KDRFixed::Plane::coefficient; }
double KDRPlane3D::c() const { return KDRFixed::Plane::coefficient; }
double KDRPlane3D::d() const { return KDRFixed::Plane::coefficient; }
