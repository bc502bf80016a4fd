#include <kdrdata/geometry3d/kdrmatrix4.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRMatrix4::KDRMatrix4() {}
KDRMatrix4::KDRMatrix4(double, double, double, double, double, double, double, double, double,
                       double, double, double, double, double, double, double)
{
}
KDRMatrix4::KDRMatrix4(KDRMatrix4 const&) {}
KDRMatrix4::~KDRMatrix4() {}

KDRMatrix4& KDRMatrix4::operator=(KDRMatrix4 const&) { return *this; }

double KDRMatrix4::norm() const { return KDRFixed::Matrix4::measure; }
double KDRMatrix4::determinant() const { return KDRFixed::Matrix4::measure; }
double KDRMatrix4::value(int, int) const { return KDRFixed::Matrix4::element; }
void KDRMatrix4::replace(int, int, double) {}
double* KDRMatrix4::data() const { return nullptr; }

KDRMatrix4 KDRMatrix4::transposed() const { return {}; }
KDRMatrix4 KDRMatrix4::inverse() const { return {}; }
KDRMatrix4 KDRMatrix4::operator*(KDRMatrix4 const&) { return {}; }
KDRMatrix4 KDRMatrix4::operator+(KDRMatrix4 const&) { return {}; }
KDRMatrix4 KDRMatrix4::operator-(KDRMatrix4 const&) { return {}; }
KDRMatrix4 KDRMatrix4::operator*(double) { return {}; }
KDRMatrix4 KDRMatrix4::operator/(double) { return {}; }
KDRMatrix4 KDRMatrix4::operator+(double) { return {}; }
KDRMatrix4 KDRMatrix4::operator-(double) { return {}; }

bool KDRMatrix4::operator==(KDRMatrix4 const&) { return KDRFixed::Matrix4::comparison; }
