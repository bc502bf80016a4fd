#include "elements.h"
#include "module.h"
#include "owner.h"
#include "pickling.h"
#include "sequence.h"

#include <kdrdata/vision/kdrmatrix.h>
#include <kdrdata/vision/kdrmatrixarray.h>
#include <kdrio/inside_p.h>

#include <veldata/velmatrix.h>

#include <climits>
#include <cstring>

namespace kdrpython {

namespace {

// A constant matrix does not tell where its elements are.
void* elementsOf(KDRMatrix const& matrix) { return const_cast<KDRMatrix&>(matrix).dataPtr(); }

// Made where it stays: a matrix that is handed on is copied, with its elements.
using Made = std::unique_ptr<KDRMatrix>;

Made newMatrix(py::ssize_t rows, py::ssize_t columns, py::object const& dtype)
{
    int const code = codeOf(dtype);
    if (rows < 0 || columns < 0)
        throw py::value_error("a matrix has no negative number of rows or columns");
    auto matrix = std::make_unique<KDRMatrix>();
    if (rows > INT_MAX || columns > INT_MAX ||
        matrix->setMatrix(static_cast<int>(rows), static_cast<int>(columns),
                          static_cast<KDRMatrix::KDRMatrixType>(code)) == 0) {
        PyErr_SetString(PyExc_MemoryError, "no memory for a matrix of this size");
        throw py::error_already_set();
    }
    return matrix;
}

// The array is of the matrix, and keeps it.
py::array elementsAsArray(py::object const& self)
{
    auto const& matrix = self.cast<KDRMatrix const&>();
    py::ssize_t const bytes = dtypeOf(matrix.type()).itemsize();
    return viewOver(matrix.type(), {matrix.rows(), matrix.cols()}, {bytes * matrix.cols(), bytes},
                    elementsOf(matrix), self);
}

void requireExtent(py::array const& array)
{
    if (array.ndim() != 2)
        throw py::value_error("a matrix has the shape (rows, columns)");
}

// A copy by NumPy, which reads rows of any strides.
Made matrixOfCopy(py::array const& array)
{
    int code = 0;
    requireExtent(array);
    py::array const known = withKnownElements(array, &code);
    Made matrix = newMatrix(array.shape(0), array.shape(1), dtypeOf(code));
    py::object const target = py::cast(matrix.get(), py::return_value_policy::reference);
    py::module_::import("numpy").attr("copyto")(elementsAsArray(target), known);
    return matrix;
}

Made matrixOver(py::array const& array)
{
    requireUsableMemory(array);
    requireExtent(array);
    auto matrix = std::make_unique<KDRMatrix>();
    void* const owner = ownerOf(array);
    int const made =
        array.size() == 0 || array.shape(0) > INT_MAX || array.shape(1) > INT_MAX
            ? 0
            : KDRInternal::wrapped(*matrix).SetMatrixOver(
                  py::array(array).mutable_data(), static_cast<int>(array.shape(0)),
                  static_cast<int>(array.shape(1)), codeOf(array.dtype()), releaseOwner, owner);
    if (made == 0) {
        releaseOwner(owner);
        throw py::value_error("the core library makes no matrix over this array");
    }
    return matrix;
}

Made matrixFromArray(py::object const& array, bool copy)
{
    if (py::isinstance<py::array>(array))
        return copy ? matrixOfCopy(array) : matrixOver(array);
    if (!copy)
        throw py::type_error("only the memory of an array can be used");
    return matrixOfCopy(py::array(array));
}

std::string matrixText(KDRMatrix const& matrix)
{
    return "<kdrdata.Matrix " + std::to_string(matrix.rows()) + " x " +
           std::to_string(matrix.cols()) + ", " +
           py::str(py::handle(dtypeOf(matrix.type()))).cast<std::string>() + ">";
}

} // namespace

void bindMatrix(py::module_& m)
{
    py::class_<KDRMatrix> matrix(m, "Matrix", R"(A dense matrix of numbers of one element type.

Copies are deep. ``numpy.asarray(matrix)`` is a view of the elements, which is written through
to the matrix and keeps it alive.

>>> matrix = kdrdata.Matrix(3, 24)
>>> numpy.asarray(matrix)[2, 0] = 1298.0
)");
    matrix.def(py::init<>(), "A matrix without rows and columns.")
        .def(py::init(&newMatrix), py::arg("rows"), py::arg("columns"),
             py::arg("dtype") = "float64",
             "A matrix of zeros. MemoryError where there is no room for it.")
        .def_static(
            "from_array", &matrixFromArray, py::arg("array"), py::arg("copy") = true,
            R"(A matrix with the elements of an array of the shape (rows, columns). Without a copy the
matrix is in the memory of the array, keeps it alive and is written through to it; ValueError
where that cannot be, as with arrays that are read-only or whose rows are not packed.)")
        .def_property_readonly("rows", &KDRMatrix::rows, "The number of rows.")
        .def_property_readonly("columns", &KDRMatrix::cols, "The number of columns.")
        .def_property_readonly(
            "dtype", [](KDRMatrix const& self) { return dtypeOf(self.type()); },
            "NumPy's type of the elements.")
        .def_property_readonly(
            "shape", [](KDRMatrix const& self) { return py::make_tuple(self.rows(), self.cols()); },
            "The rows and the columns.")
        .def(
            "clone", [](KDRMatrix const& self) { return std::make_unique<KDRMatrix>(self); },
            "A matrix of its own with the same elements.")
        .def(
            "__array__",
            [](py::object const& self, py::object const& dtype, py::object const& copy) {
                return arrayFor(elementsAsArray(self), dtype, copy);
            },
            py::arg("dtype") = py::none(), py::arg("copy") = py::none(),
            "The elements as an array, which is written through to them.")
        .def("__getitem__",
             [](py::object const& self, py::object const& at) {
                 return elementsAsArray(self).attr("__getitem__")(at);
             })
        .def("__setitem__",
             [](py::object const& self, py::object const& at, py::object const& value) {
                 elementsAsArray(self).attr("__setitem__")(at, value);
             })
        .def("__repr__", &matrixText);
    bindEquality(matrix);
    bindPickling(matrix);
    bindSequence<KDRMatrixArray, KDRMatrix>(m, "MatrixArray",
                                            "A list of matrices, copied in and out.");
}

} // namespace kdrpython
