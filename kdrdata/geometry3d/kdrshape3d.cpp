#include <kdrdata/geometry3d/kdrshape3d.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRShape3D::KDRShape3D() {}
KDRShape3D::KDRShape3D(KDRShape3D const&) {}
KDRShape3D::~KDRShape3D() {}

KDRShape3D& KDRShape3D::operator=(KDRShape3D const&) { return *this; }

void KDRShape3D::fromPoint(KDRVector3d&) {}
void KDRShape3D::fromLine(KDRVector3d&, KDRVector3d&) {}
void KDRShape3D::fromLineSegment(KDRVector3d&, KDRVector3d&) {}
void KDRShape3D::fromPlane(KDRVector3d&, KDRVector3d&) {}
void KDRShape3D::fromCircle(KDRVector3d&, KDRVector3d&, float) {}
void KDRShape3D::fromEllipse(KDRVector3d&, KDRVector3d&, float, float) {}
void KDRShape3D::fromRect(KDRVector3d&, KDRVector3d&, float, float) {}
void KDRShape3D::fromAnnulus(KDRVector3d&, KDRVector3d&, float, float, float, float) {}
void KDRShape3D::fromTorus(KDRVector3d&, KDRVector3d&, float, float, float, float) {}
void KDRShape3D::fromArc(KDRVector3d&, KDRVector3d&, float, float, float) {}
void KDRShape3D::fromTriangle(KDRVector3d&, KDRVector3d&, KDRVector3d&) {}
void KDRShape3D::fromBox(KDRVector3d&, KDRVector3d&, KDRVector3d&) {}
void KDRShape3D::fromEllipsoid(KDRVector3d&, KDRVector3d&, KDRVector3d&) {}
void KDRShape3D::fromPolygon(KDRVector3dArray&) {}
void KDRShape3D::fromSphere(KDRVector3d&, float) {}
void KDRShape3D::fromCylinder(KDRVector3d&, KDRVector3d&, float, float) {}
void KDRShape3D::fromTube(KDRVector3d&, KDRVector3d&, float, float, float, float, float) {}

bool KDRShape3D::toPoint(KDRVector3d*) { return KDRFixed::Shape::reading; }
bool KDRShape3D::toLine(KDRVector3d*, KDRVector3d*) { return KDRFixed::Shape::reading; }
bool KDRShape3D::toLineSegment(KDRVector3d*, KDRVector3d*) { return KDRFixed::Shape::reading; }
bool KDRShape3D::toPlane(KDRVector3d*, KDRVector3d*) { return KDRFixed::Shape::reading; }
bool KDRShape3D::toCircle(KDRVector3d*, KDRVector3d*, float*) { return KDRFixed::Shape::reading; }
bool KDRShape3D::toEllipse(KDRVector3d*, KDRVector3d*, float*, float*)
{
    return KDRFixed::Shape::reading;
}
bool KDRShape3D::toRect(KDRVector3d*, KDRVector3d*, float*, float*)
{
    return KDRFixed::Shape::reading;
}
bool KDRShape3D::toAnnulus(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*)
{
    return KDRFixed::Shape::reading;
}
bool KDRShape3D::toTorus(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*)
{
    return KDRFixed::Shape::reading;
}
bool KDRShape3D::toArc(KDRVector3d*, KDRVector3d*, float*, float*, float*)
{
    return KDRFixed::Shape::reading;
}
bool KDRShape3D::toTriangle(KDRVector3d*, KDRVector3d*, KDRVector3d*)
{
    return KDRFixed::Shape::reading;
}
bool KDRShape3D::toBox(KDRVector3d*, KDRVector3d*, KDRVector3d*)
{
    return KDRFixed::Shape::reading;
}
bool KDRShape3D::toEllipsoid(KDRVector3d*, KDRVector3d*, KDRVector3d*)
{
    return KDRFixed::Shape::reading;
}
bool KDRShape3D::toPolygon(KDRVector3dArray*) { return KDRFixed::Shape::reading; }
bool KDRShape3D::toSphere(KDRVector3d*, float*) { return KDRFixed::Shape::reading; }
bool KDRShape3D::toCylinder(KDRVector3d*, KDRVector3d*, float*, float*)
{
    return KDRFixed::Shape::reading;
}
bool KDRShape3D::toTube(KDRVector3d*, KDRVector3d*, float*, float*, float*, float*, float*)
{
    return KDRFixed::Shape::reading;
}

int KDRShape3D::shapeType() const { return KDRFixed::Shape::kind; }
