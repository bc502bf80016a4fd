#ifndef KDRDATA_PYTHON_ERRORS_H
#define KDRDATA_PYTHON_ERRORS_H

#include <kdrio/kdrio.h>

#include "module.h"

#include <string>

namespace kdrpython {

/// Raises what the saving library says: MemoryError where memory ran out, kdrdata.Error otherwise.
[[noreturn]] void raise(kdrio::Error const& error);

/// Raises OSError with the system's @p number (errno) and the name of the file.
[[noreturn]] void raiseSystemError(int number, py::handle path);

/// Raises TypeError: "@p where takes @p what, not <the type of @p given>".
[[noreturn]] void raiseWrongType(std::string const& where, std::string const& what,
                                 py::handle given);

/// The place that @p index, which counts from the end where it is negative, means among @p length;
/// raises IndexError where there is none.
int placeOf(py::ssize_t index, int length);

} // namespace kdrpython

#endif
