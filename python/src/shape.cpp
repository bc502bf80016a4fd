#include "module.h"

namespace kdrpython {

void bindPoint(py::module_&) {}
void bindContour(py::module_&) {}
void bindFont(py::module_&) {}
void bindShape(py::module_&) {}

} // namespace kdrpython
