#ifndef KDRDATA_VISION_H
#define KDRDATA_VISION_H

/// @file
/// Shapes and their conversion, points, contours, images, regions, matrices and their arrays, and
/// the small records.

#include <kdrdata/vision/dataconvert.h>
#include <kdrdata/vision/kdrchunkdata.h>
#include <kdrdata/vision/kdrcontour.h>
#include <kdrdata/vision/kdrcontourarray.h>
#include <kdrdata/vision/kdrfont.h>
#include <kdrdata/vision/kdrimage.h>
#include <kdrdata/vision/kdrimagearray.h>
#include <kdrdata/vision/kdrmatchmodel.h>
#include <kdrdata/vision/kdrmatrix.h>
#include <kdrdata/vision/kdrmatrixarray.h>
#include <kdrdata/vision/kdrpoint.h>
#include <kdrdata/vision/kdrpointarray.h>
#include <kdrdata/vision/kdrpointprivate.h>
#include <kdrdata/vision/kdrregion.h>
#include <kdrdata/vision/kdrregionarray.h>
#include <kdrdata/vision/kdrroialignment.h>
#include <kdrdata/vision/kdrshape.h>
#include <kdrdata/vision/kdrshapearray.h>
#include <kdrdata/vision/kdrshapeprivate.h>

#endif
