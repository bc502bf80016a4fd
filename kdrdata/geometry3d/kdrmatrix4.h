#ifndef KDRDATA_KDRMATRIX4_H
#define KDRDATA_KDRMATRIX4_H

#include <kdrdata/kdrdata_export.h>

/// A matrix of 4 x 4 numbers.
///
/// This version carries no data: every operation ignores its arguments, and the answers are
/// constants, not errors. No operator takes a constant matrix on its left. Kept on purpose.
///
/// Threads: safe from any thread; there is no state to touch.
class KDRDATA_EXPORT KDRMatrix4
{
public:
    /// A matrix that holds nothing, like every other.
    KDRMatrix4();
    /// Ignores the sixteen elements.
    KDRMatrix4(double, double, double, double, double, double, double, double, double, double,
               double, double, double, double, double, double);
    /// Copies nothing.
    KDRMatrix4(KDRMatrix4 const&);
    /// Does nothing.
    ~KDRMatrix4();

    /// Copies nothing. Returns this matrix.
    KDRMatrix4& operator=(KDRMatrix4 const&);

    /// Answers -1.0. Kept on purpose.
    double norm() const;
    /// Answers -1.0. Kept on purpose.
    double determinant() const;
    /// Answers 0.0 for every row and column, unlike the 3 x 3 matrix, which answers -1.0. Kept on
    /// purpose.
    double value(int, int) const;
    /// Does nothing.
    void replace(int, int, double);
    /// Answers null. Kept on purpose.
    double* data() const;

    /// A default matrix.
    KDRMatrix4 transposed() const;
    /// A default matrix.
    KDRMatrix4 inverse() const;
    /// A default matrix.
    KDRMatrix4 operator*(KDRMatrix4 const&);
    /// A default matrix.
    KDRMatrix4 operator+(KDRMatrix4 const&);
    /// A default matrix.
    KDRMatrix4 operator-(KDRMatrix4 const&);
    /// A default matrix.
    KDRMatrix4 operator*(double);
    /// A default matrix, also for the divisor 0.
    KDRMatrix4 operator/(double);
    /// A default matrix.
    KDRMatrix4 operator+(double);
    /// A default matrix.
    KDRMatrix4 operator-(double);

    /// Answers false, for the matrix itself too. Kept on purpose.
    bool operator==(KDRMatrix4 const&);
};

#endif
