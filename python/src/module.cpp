#include "module.h"

#include <kdrdata/kdrversion.h>

#include <cstddef>
#include <exception>

namespace kdrpython {

namespace {

void* raiseNoValue(std::size_t)
{
    throw py::type_error("the object has no value: __init__() was not called");
}

// An object that __new__() made has no value before __init__() was called, and would be given
// memory that nobody has filled as soon as it is used.
void refuseObjectsWithoutValue(py::module_ const& m)
{
    for (auto const& member : m.attr("__dict__").cast<py::dict>()) {
        if (PyType_Check(member.second.ptr()) == 0)
            continue;
        auto* const type = reinterpret_cast<PyTypeObject*>(member.second.ptr());
        auto* const known = py::detail::get_type_info(type);
        if (known && !known->operator_new)
            known->operator_new = &raiseNoValue;
    }
}

} // namespace

} // namespace kdrpython

PYBIND11_MODULE(_kdrdata, m)
{
    using namespace kdrpython;

    m.doc() = "The classes of the package kdrdata.";
    m.attr("__version__") = KDRDATA_VERSION_STRING;
    // Classes say that they are the package's, which is where users and pickle find them.
    auto const name = m.attr("__name__");
    m.attr("__name__") = "kdrdata";
    py::register_local_exception_translator([](std::exception_ptr failure) {
        try {
            if (failure)
                std::rethrow_exception(failure);
        } catch (py::cast_error const&) {
            PyErr_SetString(PyExc_TypeError, "an argument, or a part of one, is of another type");
        }
    });
    bindErrors(m);
    bindText(m);
    bindScalars(m);
    bindPoint(m);
    bindMatrix(m);
    bindImage(m);
    bindRegion(m);
    bindContour(m);
    bindFont(m);
    bindShape(m);
    bindModels(m);
    bindGeometry3d(m);
    bindVariant(m);
    bindIo(m);
    refuseObjectsWithoutValue(m);
    m.attr("__name__") = name;
}
