#ifndef KDRDATA_KDRDATA_H
#define KDRDATA_KDRDATA_H

/// @file
/// The whole library.

#include <kdrdata/geometry3d/geometry3d.h>
#include <kdrdata/kdrversion.h>
#include <kdrdata/log/log.h>
#include <kdrdata/scalars/scalars.h>
#include <kdrdata/text/text.h>
#include <kdrdata/variant/variant.h>
#include <kdrdata/vision/vision.h>

#endif
