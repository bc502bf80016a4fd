#include "module.h"

namespace kdrpython {

void bindIo(py::module_&) {}

} // namespace kdrpython
