#ifndef KDRDATA_VARIANT_H
#define KDRDATA_VARIANT_H

/// @file
/// The tagged value, its kinds, and the store and lock behind it.

#include <kdrdata/variant/kdrvariant.h>
#include <kdrdata/variant/kdrvariantarray.h>
#include <kdrdata/variant/kdrvariantkind.h>
#include <kdrdata/variant/kdrvariantlock.h>
#include <kdrdata/variant/kdrvariantpayloads.h>
#include <kdrdata/variant/kdrvariantprivate.h>

#endif
