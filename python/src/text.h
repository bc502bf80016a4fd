#ifndef KDRDATA_PYTHON_TEXT_H
#define KDRDATA_PYTHON_TEXT_H

#include <kdrdata/text/kdrbuffer.h>
#include <kdrdata/text/kdrstring.h>

#include "module.h"

#include <string>

namespace kdrpython {

/// The text as str, None where it is null. Unpaired surrogates stay what they are.
py::object toPython(KDRString const& text);

/// The text as UTF-8, for messages.
std::string textOf(KDRString const& text);

/// A str, a String, or None for the null text, as a string of the library. @p where is who takes
/// it; raises TypeError for everything else.
KDRString toString(py::handle text, char const* where);

/// The bytes, None where they are null.
py::object toPython(KDRBuffer const& bytes);

/// What has the buffer protocol, a Buffer, or None for null bytes, as bytes of the library.
KDRBuffer toBuffer(py::handle bytes, char const* where);

/// The bytes of the name of a file, given as str, bytes or os.PathLike; ValueError where one is 0.
std::string encodedPath(py::handle path);

/// The name of a file as a string of the library, which gives it to the system in the local
/// encoding; ValueError where that does not have it.
KDRString toPath(py::handle path);

} // namespace kdrpython

#endif
