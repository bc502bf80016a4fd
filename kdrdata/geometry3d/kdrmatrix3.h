#ifndef KDRDATA_KDRMATRIX3_H
#define KDRDATA_KDRMATRIX3_H

#include <kdrdata/geometry3d/kdrvector3d.h>
#include <kdrdata/kdrdata_export.h>

/// A matrix of 3 x 3 numbers.
///
/// This version carries no data: every operation ignores its arguments, and the answers are
/// constants, not errors. No operator takes a constant matrix on its left. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRMatrix3
{
public:
    /// A matrix that holds nothing, like every other.
    KDRMatrix3();
    /// Ignores the nine elements.
    KDRMatrix3(double, double, double, double, double, double, double, double, double);
    /// Copies nothing.
    KDRMatrix3(KDRMatrix3 const&);
    /// Does nothing.
    ~KDRMatrix3();

    /// Copies nothing. Returns this matrix.
    KDRMatrix3& operator=(KDRMatrix3 const&);

    /// Answers -1.0. Kept on purpose.
    double norm() const;
    /// Answers -1.0. Kept on purpose.
    double determinant() const;
    /// Answers -1.0 for every row and column, unlike the 4 x 4 matrix, which answers 0.0. Kept on
    /// purpose.
    double value(int, int) const;
    /// Does nothing.
    void replace(int, int, double);
    /// Answers null. Kept on purpose.
    double* data() const;

    /// A default matrix.
    KDRMatrix3 transposed() const;
    /// A default matrix.
    KDRMatrix3 inverse() const;
    /// A default matrix.
    KDRMatrix3 operator*(KDRMatrix3 const&);
    /// A default matrix.
    KDRMatrix3 operator+(KDRMatrix3 const&);
    /// A default matrix.
    KDRMatrix3 operator-(KDRMatrix3 const&);
    /// A default matrix.
    KDRMatrix3 operator*(double);
    /// A default matrix, also for the divisor 0.
    KDRMatrix3 operator/(double);
    /// A default matrix.
    KDRMatrix3 operator+(double);
    /// A default matrix.
    KDRMatrix3 operator-(double);
    /// A default vector.
    KDRVector3d operator*(KDRVector3d const&);

    /// Answers false, for the matrix itself too. Kept on purpose.
    bool operator==(KDRMatrix3 const&);
};

#endif
