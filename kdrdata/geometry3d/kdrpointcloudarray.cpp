#include <kdrdata/geometry3d/kdrpointcloudarray.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRPointCloudArray::KDRPointCloudArray() {}
KDRPointCloudArray::KDRPointCloudArray(KDRPointCloudArray const&) {}
KDRPointCloudArray::~KDRPointCloudArray() {}

KDRPointCloudArray& KDRPointCloudArray::operator=(KDRPointCloudArray const&) { return *this; }

int KDRPointCloudArray::length() const { return KDRFixed::Array::length; }

void KDRPointCloudArray::push_back(KDRPointCloud const&) {}
void KDRPointCloudArray::push_back(KDRPointCloudArray const&) {}
bool KDRPointCloudArray::insert(int, KDRPointCloud const&) { return KDRFixed::Array::change; }
bool KDRPointCloudArray::removeAt(int) { return KDRFixed::Array::change; }
bool KDRPointCloudArray::replace(int, KDRPointCloud const&) { return KDRFixed::Array::change; }
bool KDRPointCloudArray::select(int, KDRPointCloud*) const { return KDRFixed::Array::selection; }
bool KDRPointCloudArray::swap(int, int) { return KDRFixed::Array::exchange; }
void KDRPointCloudArray::clear() {}

KDRPointCloud KDRPointCloudArray::operator[](int) const { return {}; }
