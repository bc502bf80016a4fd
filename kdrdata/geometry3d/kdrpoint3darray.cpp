#include <kdrdata/geometry3d/kdrpoint3darray.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRPoint3DArray::KDRPoint3DArray() {}
KDRPoint3DArray::KDRPoint3DArray(KDRPoint3DArray const&) {}
KDRPoint3DArray::~KDRPoint3DArray() {}

KDRPoint3DArray& KDRPoint3DArray::operator=(KDRPoint3DArray const&) { return *this; }

int KDRPoint3DArray::length() const { return KDRFixed::Array::length; }

void KDRPoint3DArray::push_back(KDRPoint3D const&) {}
void KDRPoint3DArray::push_back(KDRPoint3DArray const&) {}
bool KDRPoint3DArray::insert(int, KDRPoint3D const&) { return KDRFixed::Array::change; }
bool KDRPoint3DArray::removeAt(int) { return KDRFixed::Array::change; }
bool KDRPoint3DArray::replace(int, KDRPoint3D const&) { return KDRFixed::Array::change; }
bool KDRPoint3DArray::select(int, KDRPoint3D*) const { return KDRFixed::Array::selection; }
bool KDRPoint3DArray::swap(int, int) { return KDRFixed::Array::exchange; }
void KDRPoint3DArray::clear() {}

KDRPoint3D KDRPoint3DArray::operator[](int) const { return {}; }
