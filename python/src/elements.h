#ifndef KDRDATA_PYTHON_ELEMENTS_H
#define KDRDATA_PYTHON_ELEMENTS_H

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

// The element types of images and of matrices, which the library numbers alike, and what NumPy
// calls them.

namespace kdrpython {

namespace py = pybind11;

/// An image has at most so many.
constexpr int mostChannels = 4;

/// NumPy's type of a code. Throws ValueError for a code that the library has no name for.
py::dtype dtypeOf(int code);

/// The code of whatever NumPy takes for a type. Throws ValueError for one that the library does not
/// have, those in the other byte order among them.
int codeOf(py::handle dtype);

/// Rows of elements as an array that is written through to them. The array keeps @p base, which
/// keeps the elements.
py::array viewOver(int code, py::array::ShapeContainer shape, py::array::StridesContainer strides,
                   void* elements, py::handle base);

/// What `__array__` answers: @p view, or a copy of it where one is asked for or another type is.
/// Throws ValueError where a copy is needed and forbidden.
py::array arrayFor(py::array const& view, py::handle dtype, py::handle copy);

/// @p array as the native elements of a type that the library has, with its code. Throws ValueError
/// for other types.
py::array withKnownElements(py::array const& array, int* code);

/// Throws ValueError where the library cannot work in the memory of @p array.
void requireUsableMemory(py::array const& array);

} // namespace kdrpython

#endif
