#include <kdrdata/geometry3d/kdrmatrix3.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRMatrix3::KDRMatrix3() {}
KDRMatrix3::KDRMatrix3(double, double, double, double, double, double, double, double, double) {}
KDRMatrix3::KDRMatrix3(KDRMatrix3 const&) {}
KDRMatrix3::~KDRMatrix3() {}

KDRMatrix3& KDRMatrix3::operator=(KDRMatrix3 const&) { return *this; }

double KDRMatrix3::norm() const { return KDRFixed::Matrix3::measure; }
double KDRMatrix3::determinant() const { return KDRFixed::Matrix3::measure; }
double KDRMatrix3::value(int, int) const { return KDRFixed::Matrix3::element; }
void KDRMatrix3::replace(int, int, double) {}
double* KDRMatrix3::data() const { return nullptr; }

KDRMatrix3 KDRMatrix3::transposed() const { return {}; }
KDRMatrix3 KDRMatrix3::inverse() const { return {}; }
KDRMatrix3 KDRMatrix3::operator*(KDRMatrix3 const&) { return {}; }
KDRMatrix3 KDRMatrix3::operator+(KDRMatrix3 const&) { return {}; }
KDRMatrix3 KDRMatrix3::operator-(KDRMatrix3 const&) { return {}; }
KDRMatrix3 KDRMatrix3::operator*(double) { return {}; }
KDRMatrix3 KDRMatrix3::operator/(double) { return {}; }
KDRMatrix3 KDRMatrix3::operator+(double) { return {}; }
KDRMatrix3 KDRMatrix3::operator-(double) { return {}; }
KDRVector3d KDRMatrix3::operator*(KDRVector3d const&) { return {}; }

bool KDRMatrix3::operator==(KDRMatrix3 const&) { return KDRFixed::Matrix3::comparison; }
