#ifndef KDRDATA_PYTHON_VALUE_H
#define KDRDATA_PYTHON_VALUE_H

#include <kdrdata/variant/kdrvariant.h>

#include "module.h"

#include <string>

namespace kdrpython {

/// Any Python object that a variant can hold, as a variant; a Variant itself shares its store.
/// Raises TypeError for what it cannot hold, OverflowError for integers of more than 64 bits.
KDRVariant variantOf(py::handle value);

/// What the variant holds as an object of the package's own class; None for the empty variant and
/// True or False for a flag.
py::object contentOf(KDRVariant const& value);

/// What the variant holds as Python users have it.
py::object valueOf(KDRVariant const& value);

/// What stands for the value in a repr(): what Variant() would be given to make it again.
std::string inBrief(KDRVariant const& value);

/// Whether both hold the same: the kind, images by geometry and pixels, lists of variants element
/// by element, everything else by its saved bytes. What is shared plays no part.
bool equal(KDRVariant const& one, KDRVariant const& other);

} // namespace kdrpython

#endif
