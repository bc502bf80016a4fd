#ifndef KDRDATA_GEOMETRY3D_H
#define KDRDATA_GEOMETRY3D_H

/// @file
/// Three-dimensional values and the arrays of them.

#include <kdrdata/geometry3d/kdr3dlineset.h>
#include <kdrdata/geometry3d/kdrcontour3d.h>
#include <kdrdata/geometry3d/kdrcontour3darray.h>
#include <kdrdata/geometry3d/kdrdualquaternion.h>
#include <kdrdata/geometry3d/kdrmatrix3.h>
#include <kdrdata/geometry3d/kdrmatrix3array.h>
#include <kdrdata/geometry3d/kdrmatrix4.h>
#include <kdrdata/geometry3d/kdrmatrix4array.h>
#include <kdrdata/geometry3d/kdrplane3d.h>
#include <kdrdata/geometry3d/kdrplane3darray.h>
#include <kdrdata/geometry3d/kdrplane3darrayprivate.h>
#include <kdrdata/geometry3d/kdrplane3dprivate.h>
#include <kdrdata/geometry3d/kdrpoint3d.h>
#include <kdrdata/geometry3d/kdrpoint3darray.h>
#include <kdrdata/geometry3d/kdrpointcloud.h>
#include <kdrdata/geometry3d/kdrpointcloudarray.h>
#include <kdrdata/geometry3d/kdrpose2d.h>
#include <kdrdata/geometry3d/kdrpose3d.h>
#include <kdrdata/geometry3d/kdrquaternion.h>
#include <kdrdata/geometry3d/kdrrangeimage.h>
#include <kdrdata/geometry3d/kdrrangeimagearray.h>
#include <kdrdata/geometry3d/kdrshape3d.h>
#include <kdrdata/geometry3d/kdrshape3darray.h>
#include <kdrdata/geometry3d/kdrtrianglemesh.h>
#include <kdrdata/geometry3d/kdrvector3d.h>
#include <kdrdata/geometry3d/kdrvector3darray.h>

#endif
