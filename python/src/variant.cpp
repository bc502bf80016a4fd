#include "errors.h"
#include "pickling.h"
#include "text.h"
#include "value.h"

namespace kdrpython {

KDRVariant variantOf(py::handle value)
{
    if (py::isinstance<KDRVariant>(value))
        return value.cast<KDRVariant const&>();
    return toString(value, "Variant");
}

bool equal(KDRVariant const& one, KDRVariant const& other)
{
    return one.variantType() == other.variantType();
}

void bindVariant(py::module_& m)
{
    py::class_<KDRVariant> cls(m, "Variant", "A value.");
    cls.def(py::init([](py::object const& value) { return variantOf(value); }), py::arg("value"));
}

} // namespace kdrpython
