#include <kdrdata/geometry3d/kdrplane3darray.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRPlane3DArray::KDRPlane3DArray() {}
KDRPlane3DArray::KDRPlane3DArray(KDRPlane3DArray const&) {}
KDRPlane3DArray::~KDRPlane3DArray() {}

KDRPlane3DArray& KDRPlane3DArray::operator=(KDRPlane3DArray const&) { return *this; }

int KDRPlane3DArray::length() const { return KDRFixed::Array::length; }

void KDRPlane3DArray::push_back(KDRPlane3D const&) {}
void KDRPlane3DArray::push_back(KDRPlane3DArray const&) {}
bool KDRPlane3DArray::insert(int, KDRPlane3D const&) { return KDRFixed::Array::change; }
bool KDRPlane3DArray::removeAt(int) { return KDRFixed::Array::change; }
bool KDRPlane3DArray::replace(int, KDRPlane3D const&) { return KDRFixed::Array::change; }
bool KDRPlane3DArray::select(int, KDRPlane3D*) const { return KDRFixed::Array::selection; }
bool KDRPlane3DArray::swap(int, int) { return KDRFixed::Array::exchange; }
void KDRPlane3DArray::clear() {}

KDRPlane3D KDRPlane3DArray::operator[](int) const { return {}; }
