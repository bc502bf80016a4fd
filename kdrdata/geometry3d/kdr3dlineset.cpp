#include <kdrdata/geometry3d/kdr3dlineset.h>

KDR3DLineSet::KDR3DLineSet() {}
KDR3DLineSet::KDR3DLineSet(KDR3DLineSet const&) {}
KDR3DLineSet::~KDR3DLineSet() {}

KDR3DLineSet& KDR3DLineSet::operator=(KDR3DLineSet const&) { return *this; }
