#ifndef KDRDATA_PYTHON_MODULE_H
#define KDRDATA_PYTHON_MODULE_H

#include <pybind11/pybind11.h>

/// The pieces of the module. Each topic adds its classes and functions; a class is added before
/// those whose operations have it as a default argument.
namespace kdrpython {

namespace py = pybind11;

void bindErrors(py::module_& m);
void bindText(py::module_& m);
void bindScalars(py::module_& m);

void bindImage(py::module_& m);
void bindMatrix(py::module_& m);
void bindRegion(py::module_& m);
void bindPoint(py::module_& m);
void bindContour(py::module_& m);
void bindFont(py::module_& m);
void bindShape(py::module_& m);
void bindModels(py::module_& m);
void bindGeometry3d(py::module_& m);

void bindVariant(py::module_& m);
void bindIo(py::module_& m);

} // namespace kdrpython

#endif
