#ifndef KDRDATA_SCALARS_H
#define KDRDATA_SCALARS_H

/// @file
/// Numbers, selections, flags, colours and the arrays of them.

#include <kdrdata/scalars/kdrboolarray.h>
#include <kdrdata/scalars/kdrcolor.h>
#include <kdrdata/scalars/kdrcolorarray.h>
#include <kdrdata/scalars/kdrenum.h>
#include <kdrdata/scalars/kdrenumarray.h>
#include <kdrdata/scalars/kdrenumprivate.h>
#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/scalars/kdrnumberarray.h>

#endif
