#include "module.h"

#include <kdrdata/kdrversion.h>

#include <exception>

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
    m.attr("__name__") = name;
}
