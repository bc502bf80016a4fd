#include <kdrdata/geometry3d/kdrpointcloud.h>

#include <kdrdata/internal/fixedresults_p.h>

KDRPointCloud::KDRPointCloud() {}
KDRPointCloud::KDRPointCloud(KDRPointCloud const&) {}
KDRPointCloud::~KDRPointCloud() {}

KDRPointCloud& KDRPointCloud::operator=(KDRPointCloud const&) { return *this; }

void KDRPointCloud::Append(KDRPointCloud const&) {}
void KDRPointCloud::SetPoints(KDRVector3dArray const&) {}
void KDRPointCloud::SetColors(KDRColorArray const&) {}
void KDRPointCloud::SetNormals(KDRVector3dArray const&) {}

bool KDRPointCloud::Load(KDRString const&, bool, bool) { return KDRFixed::PointCloud::file; }
bool KDRPointCloud::Save(KDRString const&, bool, bool) { return KDRFixed::PointCloud::file; }
