#ifndef KDRDATA_KDRNUMBER_P_H
#define KDRDATA_KDRNUMBER_P_H

#include <cmath>
#include <limits>

/// What a number keeps behind its pointer.
///
/// A header of its own so that the variant's store can read and write the numbers that it holds
/// without a call.
class KDRNumberPrivate
{
public:
    enum Kind : int { Integer = 0, FloatingPoint = 1 };

    explicit KDRNumberPrivate(long long number) noexcept : kind(Integer) { value.integer = number; }
    explicit KDRNumberPrivate(double number) noexcept : kind(FloatingPoint)
    {
        value.floating = number;
    }

    // Carries the value without the range: the rule of copy construction.
    KDRNumberPrivate(KDRNumberPrivate const& other) noexcept : value(other.value), kind(other.kind)
    {
    }
    KDRNumberPrivate& operator=(KDRNumberPrivate const& other) noexcept = default;

    void set(long long number) noexcept
    {
        kind = Integer;
        value.integer = number;
    }
    void set(double number) noexcept
    {
        kind = FloatingPoint;
        value.floating = number;
    }

    // Through unsigned: the low 32 bits are the answer whatever the integer is.
    int toInt() const noexcept
    {
        return kind == Integer ? static_cast<int>(static_cast<unsigned int>(value.integer))
                               : truncated<int>(value.floating);
    }
    long long toLongLong() const noexcept
    {
        return kind == Integer ? value.integer : truncated<long long>(value.floating);
    }
    float toFloat() const noexcept
    {
        return kind == Integer ? static_cast<float>(value.integer)
                               : static_cast<float>(value.floating);
    }
    double toDouble() const noexcept
    {
        return kind == Integer ? static_cast<double>(value.integer) : value.floating;
    }

    union {
        long long integer;
        double floating;
    } value;
    int kind;
    double maxValue = 0.0;
    double minValue = 0.0;
    double step = 0.0;

private:
    // Truncation toward zero with the processor's answer for what does not fit: the smallest
    // integer. One comparison decides it: a magnitude of 2^(bits-1) or more is out of range, and
    // the one such value that does fit, the smallest integer itself, gives the same answer either
    // way. A NaN compares false and so falls out of range too.
    template <class Integral>
    static Integral truncated(double number) noexcept
    {
        constexpr int valueBits = std::numeric_limits<Integral>::digits;
        constexpr double limit = 2.0 * static_cast<double>(Integral(1) << (valueBits - 1));
        return std::fabs(number) < limit ? static_cast<Integral>(number)
                                         : std::numeric_limits<Integral>::min();
    }
};

// A double too large for a float is narrowed to an infinity, which the language promises for IEC
// 60559 alone.
static_assert(std::numeric_limits<float>::is_iec559 && std::numeric_limits<double>::is_iec559,
              "floating-point numbers are those of IEC 60559");

#endif
