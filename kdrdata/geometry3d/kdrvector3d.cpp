#include <kdrdata/geometry3d/kdrvector3d.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRVector3d::KDRVector3d() {}
KDRVector3d::KDRVector3d(double, double, double) {}
KDRVector3d::KDRVector3d(KDRVector3d const&) {}
KDRVector3d::~KDRVector3d() {}

KDRVector3d& KDRVector3d::operator=(KDRVector3d const&) { return *this; }

KDRVector3d KDRVector3d::operator+(KDRVector3d const&) const { return {}; }
KDRVector3d KDRVector3d::operator-(KDRVector3d const&) const { return {}; }
KDRVector3d KDRVector3d::operator*(double) const { return {}; }
KDRVector3d KDRVector3d::operator/(double) const { return {}; }
KDRVector3d KDRVector3d::Minimum(KDRVector3d const&) const { return {}; }
KDRVector3d KDRVector3d::Maximum(KDRVector3d const&) const { return {}; }
KDRVector3d KDRVector3d::Abs() const { return {}; }
KDRVector3d KDRVector3d::Cross(KDRVector3d const&) const { return {}; }
KDRVector3d KDRVector3d::Normalized() const { return {}; }

bool KDRVector3d::operator==(KDRVector3d const&) const { return KDRFixed::Vector::comparison; }
bool KDRVector3d::Equals(KDRVector3d const&, double) const { return KDRFixed::Vector::comparison; }
bool KDRVector3d::IsNormalized() const { return KDRFixed::Vector::state; }
bool KDRVector3d::IsValid() const { return KDRFixed::Vector::state; }

double KDRVector3d::Norm() const { return KDRFixed::Vector::measure; }
double KDRVector3d::Dot(KDRVector3d const&) const { return KDRFixed::Vector::measure; }
double KDRVector3d::d1Value() { return KDRFixed::Vector::component; }
double KDRVector3d::d2Value() { return KDRFixed::Vector::component; }
double KDRVector3d::d3Value() { return KDRFixed::Vector::component; }

void KDRVector3d::InValidate() {}
