#include "sequence.h"

namespace kdrpython {

void bindScalars(py::module_&) {}

} // namespace kdrpython
