#include <kdrdata/geometry3d/kdrpose2d.h>

KDRPose2D::KDRPose2D() : m_x(0.0), m_y(0.0), m_Rz(0.0) {}
KDRPose2D::KDRPose2D(KDRPose2D const& other) = default;
KDRPose2D::~KDRPose2D() {}
KDRPose2D& KDRPose2D::operator=(KDRPose2D const& other) = default;

void KDRPose2D::setX(double value) { m_x = value; }
void KDRPose2D::setY(double value) { m_y = value; }
void KDRPose2D::setRz(double value) { m_Rz = value; }

double KDRPose2D::x() const { return m_x; }
double KDRPose2D::y() const { return m_y; }
double KDRPose2D::Rz() const { return m_Rz; }
