#include "module.h"

namespace kdrpython {

void bindGeometry3d(py::module_&) {}

} // namespace kdrpython
