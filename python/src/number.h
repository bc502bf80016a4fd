#ifndef KDRDATA_PYTHON_NUMBER_H
#define KDRDATA_PYTHON_NUMBER_H

#include <kdrdata/scalars/kdrboolarray.h>
#include <kdrdata/scalars/kdrnumberarray.h>

#include "module.h"

#include <string>

namespace kdrpython {

/// The number as int or float, whichever it is.
py::object toPython(KDRNumber const& number);

/// The repr() of a float.
std::string numberText(double value);

/// What stands for the number in a repr(): the value, and with its range a call that makes it.
std::string inBrief(KDRNumber const& number);

/// Gives @p number the value of an int, a float, a scalar of NumPy, or a Number with its range.
/// Answers false where @p value is none of these; raises OverflowError for integers of more than 64
/// bits. Flags are no numbers.
bool readNumber(py::handle value, KDRNumber& number);

/// The elements of an array of NumPy with one dimension, integers or floating-point numbers of any
/// size. @p where is who takes it; raises TypeError for other elements, OverflowError as above.
KDRNumberArray toNumberArray(py::handle array, char const* where);

/// The elements of an array of NumPy with one dimension, of flags.
KDRBoolArray toBoolArray(py::handle array);

/// Whether @p value is an array of NumPy's.
bool isArray(py::handle value);

/// The letter of NumPy for the kind of its elements: 'b' flags, 'i' and 'u' integers, 'f' floating
/// point.
char elementKindOf(py::handle array);

} // namespace kdrpython

#endif
