#include <kdrdata/geometry3d/kdrquaternion.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRQuaternion::KDRQuaternion() {}
KDRQuaternion::KDRQuaternion(double, KDRVector3d&) {}
KDRQuaternion::KDRQuaternion(KDRQuaternion const&) {}
KDRQuaternion::~KDRQuaternion() {}

KDRQuaternion& KDRQuaternion::operator=(KDRQuaternion const&) { return *this; }

void KDRQuaternion::genQuaternion(KDRVector3d&, double) {}
void KDRQuaternion::genQuaternion(KDRVector3d&, KDRVector3d&) {}
void KDRQuaternion::genQuaternion(KDRMatrix3 const&) {}
void KDRQuaternion::formatQuaterion() {}

void KDRQuaternion::getAxisAngle(KDRVector3d*, float*) {}
void KDRQuaternion::transformDirection(KDRVector3d&, KDRVector3d*) {}
void KDRQuaternion::getTransMatrix(KDRMatrix3*) {}

bool KDRQuaternion::equals(KDRQuaternion const&, float) { return KDRFixed::Quaternion::comparison; }
bool KDRQuaternion::isValid() { return KDRFixed::Quaternion::state; }
double KDRQuaternion::norm() const { return KDRFixed::Quaternion::measure; }
double KDRQuaternion::dot(KDRQuaternion&) { return KDRFixed::Quaternion::measure; }

KDRQuaternion KDRQuaternion::conjugate() { return {}; }
KDRQuaternion KDRQuaternion::inverse() { return {}; }
KDRQuaternion KDRQuaternion::normalized() { return {}; }
KDRQuaternion KDRQuaternion::operator+(KDRQuaternion&) { return {}; }
KDRQuaternion KDRQuaternion::operator-(KDRQuaternion&) { return {}; }
KDRQuaternion KDRQuaternion::operator*(KDRQuaternion&) { return {}; }
KDRQuaternion KDRQuaternion::operator/(KDRQuaternion&) { return {}; }
KDRQuaternion KDRQuaternion::operator*(double) { return {}; }
KDRQuaternion KDRQuaternion::operator/(double) { return {}; }
