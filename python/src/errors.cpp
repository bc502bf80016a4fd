#include "errors.h"

#include "text.h"

namespace kdrpython {

namespace {

// Lives as long as the interpreter, which never lets go of a module of this kind.
py::handle errorClass;

} // namespace

void bindErrors(py::module_& m)
{
    PyObject* const made = PyErr_NewExceptionWithDoc(
        "kdrdata.Error",
        "What saved bytes are refused for, or why a value cannot be saved.\n\n"
        "``what`` is the reason, ``file`` the name of the file or None, ``path`` the piece of the\n"
        "value, such as ``[3].shape.circle``, and ``offset`` the place in the bytes or None.",
        PyExc_ValueError, nullptr);
    if (!made)
        throw py::error_already_set();
    errorClass = made;
    m.attr("Error") = errorClass;
}

void raise(kdrio::Error const& error)
{
    if (textOf(error.what) == "out of memory")
        throw std::bad_alloc();
    py::object const made = errorClass(toPython(error.line()));
    made.attr("what") = toPython(error.what);
    made.attr("file") = toPython(error.file);
    made.attr("path") = textOf(error.path);
    made.attr("offset") = error.offset >= 0 ? py::object(py::int_(error.offset)) : py::none();
    PyErr_SetObject(errorClass.ptr(), made.ptr());
    throw py::error_already_set();
}

void raiseSystemError(int number, py::handle path)
{
    errno = number;
    PyErr_SetFromErrnoWithFilenameObject(PyExc_OSError, path.ptr());
    throw py::error_already_set();
}

void raiseWrongType(std::string const& where, std::string const& what, py::handle given)
{
    throw py::type_error(where + " takes " + what + ", not " + Py_TYPE(given.ptr())->tp_name);
}

int placeOf(py::ssize_t index, int length)
{
    py::ssize_t const place = index < 0 ? index + length : index;
    if (place < 0 || place >= length)
        throw py::index_error("no element " + std::to_string(index) + " in a list of " +
                              std::to_string(length));
    return static_cast<int>(place);
}

} // namespace kdrpython
