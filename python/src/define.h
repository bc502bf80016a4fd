#ifndef KDRDATA_PYTHON_DEFINE_H
#define KDRDATA_PYTHON_DEFINE_H

#include "module.h"

#include <utility>

// Operations that many classes have alike. They take what they are called on as an object of
// Python's, so that the code around a call is compiled once and not for each class.

namespace kdrpython {

/// Adds an operation to a class, beside others of its name, as py::class_::def() does.
template <class Function, class... Extra>
void define(py::object const& cls, char const* name, Function&& function, Extra const&... extra)
{
    cls.attr(name) =
        py::cpp_function(std::forward<Function>(function), py::name(name), py::is_method(cls),
                         py::sibling(py::getattr(cls, name, py::none())), extra...);
}

/// The answer to an operand that an operation is not for.
inline py::object notImplemented() { return py::reinterpret_borrow<py::object>(Py_NotImplemented); }

} // namespace kdrpython

#endif
