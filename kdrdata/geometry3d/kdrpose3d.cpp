#include <kdrdata/geometry3d/kdrpose3d.h>

KDRPose3D::KDRPose3D() : m_x(0.0), m_y(0.0), m_z(0.0), m_Rx(0.0), m_Ry(0.0), m_Rz(0.0) {}
KDRPose3D::KDRPose3D(KDRPose3D const& other) = default;
KDRPose3D::~KDRPose3D() {}
KDRPose3D& KDRPose3D::operator=(KDRPose3D const& other) = default;

void KDRPose3D::setX(double value) { m_x = value; }
void KDRPose3D::setY(double value) { m_y = value; }
void KDRPose3D::setZ(double value) { m_z = value; }
void KDRPose3D::setRx(double value) { m_Rx = value; }
void KDRPose3D::setRy(double value) { m_Ry = value; }
void KDRPose3D::setRz(double value) { m_Rz = value; }

double KDRPose3D::x() const { return m_x; }
double KDRPose3D::y() const { return m_y; }
double KDRPose3D::z() const { return m_z; }
double KDRPose3D::Rx() const { return m_Rx; }
double KDRPose3D::Ry() const { return m_Ry; }
double KDRPose3D::Rz() const { return m_Rz; }
