#ifndef KDRDATA_KDRNUMBER_H
#define KDRDATA_KDRNUMBER_H

#include <QtCore/qglobal.h>

#include <kdrdata/kdrdata_export.h>

class KDRNumberPrivate;
struct KDRInternal;

/// An integer or floating-point number with an advisory range.
///
/// The number is held either as a `long long` (kind 0) or as a `double` (kind 1). The range
/// (maximum, minimum, step) is what a user interface offers for a tool parameter; the number never
/// tests its value against it, neither on writing nor on reading.
///
/// Each handle owns its record alone: copies are deep, one heap allocation each, which throws
/// std::bad_alloc where memory runs out. Copy construction
/// carries the value without the range, assignment carries both.
///
/// @code
/// KDRNumber threshold(128);
/// threshold.setMaxValue(255.0);
/// threshold.setMinValue(0.0);
/// int const level = threshold.toInt();
/// @endcode
///
/// Threads: one number may be read from several threads while none changes it.
class KDRDATA_EXPORT KDRNumber
{
public:
    /// The integer 0 with the default range: maximum 999999.0, minimum -999999.0, step 1.0.
    KDRNumber();
    /// The integer @p value (kind 0). The range fields are zero until set or assigned.
    KDRNumber(int value);
    /// @copydoc KDRNumber(int)
    KDRNumber(long value);
    /// @copydoc KDRNumber(int)
    KDRNumber(long long value);
    /// The floating-point number @p value, widened exactly (kind 1). The range fields are zero
    /// until set or assigned.
    KDRNumber(float value);
    /// The floating-point number @p value (kind 1). The range fields are zero until set or
    /// assigned.
    KDRNumber(double value);
    /// Copies value and kind of @p other but not its range: the range fields of the new number are
    /// zero. Assign to carry the range too. Kept on purpose.
    KDRNumber(KDRNumber const& other);
    /// Frees the record.
    ~KDRNumber();

    /// Copies value, kind, maximum, minimum and step of @p other. Returns this number.
    KDRNumber& operator=(KDRNumber const& other);

    /// Makes this the integer @p value (kind 0); the range is kept.
    void fromInt(int value);
    /// @copydoc fromInt
    void fromLong(long value);
    /// @copydoc fromInt
    void fromLongLong(long long value);
    /// Makes this the floating-point number @p value, widened exactly (kind 1); the range is kept.
    void fromFloat(float value);
    /// Makes this the floating-point number @p value (kind 1); the range is kept.
    void fromDouble(double value);

    /// The number as `int`. An integer gives its low 32 bits, wrapped around; a floating-point
    /// number is truncated toward zero, and one outside the range of `int` (infinities and NaN
    /// included) gives -2147483648.
    int toInt() const;
    /// The number as `long`. A floating-point number is truncated toward zero; one outside the
    /// range of 64 bits (infinities and NaN included) gives -9223372036854775808.
    long toLong() const;
    /// The number as `long long`, by the rules of toLong().
    long long toLongLong() const;
    /// The number as `float`: an integer is rounded to the nearest, a floating-point number is
    /// narrowed (to an infinity where it is too large).
    float toFloat() const;
    /// The number as `double`: an integer is rounded to the nearest, a floating-point number is
    /// given as it is.
    double toDouble() const;

    /// The kind of the number: 0 integer, 1 floating point. Not for constant numbers. Kept on
    /// purpose.
    int numType();

    /// Sets the upper bound of the range. Nothing is checked.
    void setMaxValue(double value);
    /// The upper bound of the range.
    double maxValue() const;
    /// Sets the lower bound of the range. Nothing is checked.
    void setMinValue(double value);
    /// The lower bound of the range.
    double minValue() const;
    /// Sets the step of the range. It is kept and carried by assignment, but no operation reads it
    /// back: see step().
    void setStep(double value);
    /// Answers minValue(), not the step that setStep() stored. Kept on purpose.
    double step() const;

private:
    friend struct KDRInternal;
    KDRNumberPrivate* d;
};

/// A number may be moved in memory byte by byte, and a QList keeps it in its slots.
Q_DECLARE_TYPEINFO(KDRNumber, Q_MOVABLE_TYPE);

#endif
