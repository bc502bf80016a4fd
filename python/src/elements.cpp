#include "elements.h"

#include <iterator>
#include <string>

namespace kdrpython {

namespace {

constexpr char const* elementNames[] = {"uint8", "int8",    "uint16", "int16",
                                        "int32", "float32", "float64"};

} // namespace

py::dtype dtypeOf(int code)
{
    if (code < 0 || code >= static_cast<int>(std::size(elementNames)))
        throw py::value_error("NumPy has no elements of type " + std::to_string(code));
    return py::dtype(elementNames[code]);
}

int codeOf(py::handle dtype)
{
    py::dtype const wanted = py::dtype::from_args(py::reinterpret_borrow<py::object>(dtype));
    for (int code = 0; code < static_cast<int>(std::size(elementNames)); ++code) {
        if (wanted.equal(py::dtype(elementNames[code])))
            return code;
    }
    std::string all;
    for (char const* name : elementNames)
        all += std::string(all.empty() ? "" : ", ") + name;
    throw py::value_error("elements are of the types " + all + ", not " +
                          py::str(py::handle(wanted)).cast<std::string>());
}

py::array viewOver(int code, py::array::ShapeContainer shape, py::array::StridesContainer strides,
                   void* elements, py::handle base)
{
    if (!elements)
        return py::array(dtypeOf(code), std::move(shape));
    return py::array(dtypeOf(code), std::move(shape), std::move(strides), elements, base);
}

py::array arrayFor(py::array const& view, py::handle dtype, py::handle copy)
{
    bool const isOther =
        !dtype.is_none() &&
        !py::dtype::from_args(py::reinterpret_borrow<py::object>(dtype)).equal(view.dtype());
    bool const isForbidden = !copy.is_none() && !copy.cast<bool>();
    if (isOther && isForbidden)
        throw py::value_error("another element type cannot be had without a copy");
    if (isOther)
        return view.attr("astype")(dtype);
    return !copy.is_none() && copy.cast<bool>() ? view.attr("copy")().cast<py::array>() : view;
}

py::array withKnownElements(py::array const& array, int* code)
{
    py::object const native = array.dtype().attr("newbyteorder")("=");
    *code = codeOf(native);
    return array.attr("astype")(native, py::arg("copy") = false);
}

void requireUsableMemory(py::array const& array)
{
    if (!array.writeable())
        throw py::value_error("a read-only array can only be copied");
    if ((array.flags() & py::array::c_style) == 0)
        throw py::value_error("an array whose rows are not packed can only be copied");
    if (!array.attr("flags").attr("aligned").cast<bool>())
        throw py::value_error("an array that is not aligned can only be copied");
    codeOf(array.dtype());
}

} // namespace kdrpython
