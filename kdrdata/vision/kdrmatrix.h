#ifndef KDRDATA_KDRMATRIX_H
#define KDRDATA_KDRMATRIX_H

#include <kdrdata/kdrdata_export.h>

class KDRNumber;
class KDRNumberArray;
class VelMatrix;
struct KDRInternal;

/// A dense matrix of numbers of one element type: a calibration, a transformation, a table of
/// features.
///
/// The handle owns one core-library matrix (`VelMatrix`) and forwards to it; copies are deep. The
/// elements lie row after row without gaps. Rows and columns are counted from 0.
///
/// Out of memory is std::bad_alloc, except where an operation answers failure.
///
/// @code
/// KDRMatrix features(3, 24, KDRMatrix::MatrixTypeFloat64);
/// KDRNumber area(1298.0);
/// features.replace(2, 0, area);
/// KDRNumberArray areas;
/// bool const read = features.getRowData(2, &areas);
/// @endcode
///
/// Threads: one matrix may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRMatrix
{
public:
    /// The type of the elements. The values are the core library's type codes, passed on and
    /// reported unchanged.
    enum KDRMatrixType : int {
        MatrixTypeUInt8 = 0,   ///< unsigned 8-bit integer
        MatrixTypeInt8 = 1,    ///< signed 8-bit integer
        MatrixTypeUInt16 = 2,  ///< unsigned 16-bit integer
        MatrixTypeInt16 = 3,   ///< signed 16-bit integer
        MatrixTypeInt32 = 4,   ///< signed 32-bit integer
        MatrixTypeFloat32 = 5, ///< 32-bit floating point
        MatrixTypeFloat64 = 6  ///< 64-bit floating point
    };

    /// An empty matrix without rows and columns.
    KDRMatrix();
    /// A matrix made by the core library's constructor from the same values: zeroed, or empty where
    /// the core library refuses them (negative sizes, unknown types, more elements than it can
    /// hold).
    KDRMatrix(int rows, int cols, KDRMatrixType type);
    /// A matrix of its own with the elements of @p other, through the core matrix's `DeepCopy`.
    KDRMatrix(KDRMatrix const& other);
    /// Destroys the core matrix.
    ~KDRMatrix();

    /// Takes over a deep copy of @p other, through the core matrix's `DeepCopy`. Returns this
    /// matrix.
    KDRMatrix& operator=(KDRMatrix const& other);

    /// Makes this matrix anew through the core matrix's `SetMatrix` and returns its result:
    /// non-zero for a zeroed matrix, 0 where the values are refused or memory runs out, with
    /// nothing changed.
    int setMatrix(int rows, int cols, KDRMatrixType type);

    /// The number of rows.
    int rows() const;
    /// The number of columns.
    int cols() const;
    /// The code of the element type, as the core library reports it: one beyond the enumerators
    /// too.
    KDRMatrixType type() const;

    /// The first element; element (r, c) is at index r x cols() + c of the element type. Null for
    /// an empty matrix. The matrix keeps owning the elements: the pointer is good until it is made
    /// anew, assigned to or destroyed. Not for constant matrices. Kept on purpose.
    void* dataPtr();

    /// Reads the element at (@p row, @p col) into @p out, which must not be null: an integer for
    /// integer types, a floating-point number for the others; the range of @p out stays as it is.
    /// Answers true, or false with @p out untouched for a position outside the matrix and for
    /// elements that are no numbers (core `Select`).
    bool select(int row, int col, KDRNumber* out) const;
    /// Sets the element at (@p row, @p col) to @p value; how it is brought to the element type is
    /// the core library's matter (`Replace`: rounded and saturated). Answers true whatever the core
    /// library does with it, and false with nothing changed for a position outside the matrix. Kept
    /// on purpose.
    bool replace(int row, int col, KDRNumber& value);

    /// Replaces the contents of @p out by the elements of a row, in order: integers for integer
    /// types, floating-point numbers for the others. Answers true, or false for a row outside the
    /// matrix. @p out is cleared in every case, running out of memory included. Of a matrix with an
    /// unknown type it reads nothing and answers true. Not for constant matrices. Kept on purpose.
    bool getRowData(int row, KDRNumberArray* out);
    /// The same for a column.
    bool getColData(int col, KDRNumberArray* out);

private:
    friend struct KDRInternal;
    VelMatrix* d;
};

#endif
