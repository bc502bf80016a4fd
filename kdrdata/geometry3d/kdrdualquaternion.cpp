#include <kdrdata/geometry3d/kdrdualquaternion.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRDualQuaternion::KDRDualQuaternion() : d(nullptr) {}
KDRDualQuaternion::KDRDualQuaternion(KDRQuaternion const&, KDRQuaternion const&) : d(nullptr) {}
KDRDualQuaternion::KDRDualQuaternion(KDRDualQuaternion const&) : d(nullptr) {}
KDRDualQuaternion::~KDRDualQuaternion() {}

KDRDualQuaternion& KDRDualQuaternion::operator=(KDRDualQuaternion const&) { return *this; }

void KDRDualQuaternion::genDualQuaternion(KDRVector3d&, double, KDRVector3d&, double) {}
void KDRDualQuaternion::genDualQuaternion(KDRQuaternion&, KDRVector3d&) {}
void KDRDualQuaternion::genDualQuaternion(KDRMatrix4 const&) {}

void KDRDualQuaternion::getTransformMatrix(KDRMatrix4*) {}
void KDRDualQuaternion::getRotateTrans(KDRQuaternion*, KDRVector3d*) {}
void KDRDualQuaternion::getScrew(KDRVector3d*, float*, KDRVector3d*, float*) {}
void KDRDualQuaternion::transformPoint(KDRVector3d&, KDRVector3d*) {}
void KDRDualQuaternion::slerp(KDRDualQuaternion&, double, KDRDualQuaternion*) {}
void KDRDualQuaternion::lerp(KDRDualQuaternion&, double, KDRDualQuaternion*) {}

bool KDRDualQuaternion::isValid() { return KDRFixed::DualQuaternion::state; }
double KDRDualQuaternion::norm() const { return KDRFixed::DualQuaternion::measure; }
double KDRDualQuaternion::dot(KDRDualQuaternion&) { return KDRFixed::DualQuaternion::measure; }

KDRDualQuaternion KDRDualQuaternion::conjugate() { return {}; }
KDRDualQuaternion KDRDualQuaternion::normalized() { return {}; }
KDRDualQuaternion KDRDualQuaternion::operator+(KDRDualQuaternion&) { return {}; }
KDRDualQuaternion KDRDualQuaternion::operator-(KDRDualQuaternion&) { return {}; }
KDRDualQuaternion KDRDualQuaternion::operator*(KDRDualQuaternion&) { return {}; }
KDRDualQuaternion KDRDualQuaternion::operator*(double) { return {}; }
KDRDualQuaternion KDRDualQuaternion::operator/(double) { return {}; }
