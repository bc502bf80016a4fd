#include <kdrdata/geometry3d/kdrcontour3darray.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRContour3DArray::KDRContour3DArray() {}
KDRContour3DArray::KDRContour3DArray(KDRContour3DArray const&) {}
KDRContour3DArray::~KDRContour3DArray() {}

KDRContour3DArray& KDRContour3DArray::operator=(KDRContour3DArray const&) { return *this; }

int KDRContour3DArray::length() const { return KDRFixed::Array::length; }

void KDRContour3DArray::push_back(KDRContour3D const&) {}
void KDRContour3DArray::push_back(KDRContour3DArray const&) {}
bool KDRContour3DArray::insert(int, KDRContour3D const&) { return KDRFixed::Array::change; }
bool KDRContour3DArray::removeAt(int) { return KDRFixed::Array::change; }
bool KDRContour3DArray::replace(int, KDRContour3D const&) { return KDRFixed::Array::change; }
bool KDRContour3DArray::select(int, KDRContour3D*) const { return KDRFixed::Array::selection; }
bool KDRContour3DArray::swap(int, int) { return KDRFixed::Array::exchange; }
void KDRContour3DArray::clear() {}

KDRContour3D KDRContour3DArray::operator[](int) const { return {}; }
