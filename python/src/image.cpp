#include "module.h"

namespace kdrpython {

void bindImage(py::module_&) {}
void bindMatrix(py::module_&) {}
void bindRegion(py::module_&) {}

} // namespace kdrpython
