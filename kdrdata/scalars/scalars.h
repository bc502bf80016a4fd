#ifndef KDRDATA_SCALARS_H
#define KDRDATA_SCALARS_H

/// @file
/// Numbers, selections, flags, colours and the arrays of them.

#include <kdrdata/scalars/kdrnumber.h>
#include <kdrdata/scalars/kdrnumberarray.h>

#endif
