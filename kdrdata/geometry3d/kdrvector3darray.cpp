#include <kdrdata/geometry3d/kdrvector3darray.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRVector3dArray::KDRVector3dArray() {}
KDRVector3dArray::KDRVector3dArray(KDRVector3dArray const&) {}
KDRVector3dArray::~KDRVector3dArray() {}

KDRVector3dArray& KDRVector3dArray::operator=(KDRVector3dArray const&) { return *this; }

int KDRVector3dArray::length() const { return KDRFixed::VectorArray::length; }
int KDRVector3dArray::countValidElements() const { return KDRFixed::VectorArray::validElements; }

void KDRVector3dArray::push_back(KDRVector3d const&) {}
void KDRVector3dArray::push_back(KDRVector3dArray const&) {}
bool KDRVector3dArray::insert(int, KDRVector3d const&) { return KDRFixed::VectorArray::change; }
bool KDRVector3dArray::removeAt(int) { return KDRFixed::VectorArray::change; }
bool KDRVector3dArray::replace(int, KDRVector3d const&) { return KDRFixed::VectorArray::change; }
bool KDRVector3dArray::select(int, KDRVector3d*) const { return KDRFixed::VectorArray::selection; }
bool KDRVector3dArray::swap(int, int) { return KDRFixed::VectorArray::exchange; }
void KDRVector3dArray::clear() {}

KDRVector3d KDRVector3dArray::operator[](int) const { return {}; }
