#ifndef VELDATA_VELMATRIX_H
#define VELDATA_VELMATRIX_H

#include <veldata/veldata_export.h>
#include <veldata/veldatatype.h>

class VelVar;

/// A dense matrix of numbers of one element type, kept row after row without gaps.
///
/// Copies are deep; a moved-from matrix is empty. One matrix may be read from several threads at
/// once, but not while one of them changes it.
///
/// Operations that answer an int answer 1 for success and 0 for failure, running out of memory
/// among them; after a failure nothing has changed. Copies throw std::bad_alloc.
class VELDATA_EXPORT VelMatrix
{
public:
    /// A matrix without rows and columns, of type 0; allocates nothing.
    VelMatrix() noexcept;

    /// SetMatrix() on a new matrix: zeroed, and empty where that fails.
    VelMatrix(int rows, int columns, VelDataType type) noexcept;

    /// A deep copy. Throws std::bad_alloc.
    VelMatrix(VelMatrix const& other);

    /// Takes the elements over; @p other is left empty.
    VelMatrix(VelMatrix&& other) noexcept;

    /// Destroys the elements.
    ~VelMatrix();

    /// Becomes a deep copy. Throws std::bad_alloc and is then unchanged.
    VelMatrix& operator=(VelMatrix const& other);

    /// Takes the elements over; @p other is left empty. Assigning a matrix to itself does nothing.
    VelMatrix& operator=(VelMatrix&& other) noexcept;

    /// A matrix of its own with the same elements, as by copy construction. Throws std::bad_alloc.
    VelMatrix DeepCopy() const;

    /// Replaces the matrix by a zeroed one. Refused are types other than 0 to 6, negative sizes and
    /// more than 2^31 - 1 bytes of elements. Without rows or without columns there are no elements,
    /// and MatrixData() is null.
    int SetMatrix(int rows, int columns, VelDataType type) noexcept;

    /// The number of rows.
    int Rows() const noexcept;

    /// The number of columns.
    int Cols() const noexcept;

    /// The code of the element type.
    VelDataType Type() const noexcept;

    /// Replaces the matrix by one whose elements are in the memory of the caller, without a copy:
    /// row after row without gaps from @p data on, in one block, aligned for the element type, that
    /// stays good until release(@p owner) is called, which happens once, when the matrix that has
    /// taken the elements over is replaced or destroyed. Copies are deep as ever.
    ///
    /// Answers 1, or 0 with nothing changed and @p release never called for what SetMatrix()
    /// refuses, for matrices without elements and for null @p data or @p release.
    int SetMatrixOver(void* data, int rows, int columns, VelDataType type, void (*release)(void*),
                      void* owner) noexcept;

    /// The first element; element (r, c) is at index r x Cols() + c. The matrix keeps owning the
    /// elements: the pointer is good until the matrix is replaced, assigned to or destroyed.
    void* MatrixData() const noexcept;

    /// Assigns the element to @p value: an integer for types 0 to 4, a floating-point number for 5
    /// and 6. Refuses positions outside the matrix and a null @p value.
    int Select(int row, int column, VelVar* value) const noexcept;

    /// Sets the element to @p value, rounded to the nearest value of the element type (ties to
    /// even) and saturated; a NaN becomes 0 in integer types. Refuses positions outside the matrix
    /// and texts.
    int Replace(int row, int column, VelVar const& value) noexcept;

private:
    /// Null for positions outside the matrix.
    unsigned char* elementAt(int row, int column) const noexcept;
    /// Takes over the elements at @p data and gives up the former ones.
    VELDATA_NO_EXPORT void replaceBy(void* data, int rows, int columns, VelDataType type,
                                     void (*release)(void*), void* dataOwner) noexcept;
    void swap(VelMatrix& other) noexcept;

    int rowCount;
    int columnCount;
    VelDataType elementType;
    unsigned char* elements;
    /// Who is told, and what of, when the elements are not needed any more.
    void (*releaseOwner)(void*);
    void* owner;
};

#endif
