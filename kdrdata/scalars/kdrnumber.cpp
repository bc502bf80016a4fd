#include <kdrdata/scalars/kdrnumber.h>

#include <cmath>
#include <limits>

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

    union {
        long long integer;
        double floating;
    } value;
    int kind;
    double maxValue = 0.0;
    double minValue = 0.0;
    double step = 0.0;
};

namespace {

// Truncation toward zero with the processor's answer for what does not fit: the smallest integer.
// One comparison decides it: a magnitude of 2^(bits-1) or more is out of range, and the one such
// value that does fit, the smallest integer itself, gives the same answer either way. A NaN
// compares false and so falls out of range too.
template <class Integer>
Integer truncated(double number) noexcept
{
    constexpr int valueBits = std::numeric_limits<Integer>::digits;
    constexpr double limit = 2.0 * static_cast<double>(Integer(1) << (valueBits - 1));
    return std::fabs(number) < limit ? static_cast<Integer>(number)
                                     : std::numeric_limits<Integer>::min();
}

// A double too large for a float is narrowed to an infinity, which the language promises for IEC
// 60559 alone.
static_assert(std::numeric_limits<float>::is_iec559 && std::numeric_limits<double>::is_iec559,
              "floating-point numbers are those of IEC 60559");

} // namespace

KDRNumber::KDRNumber() : d(new KDRNumberPrivate(0LL))
{
    d->maxValue = 999999.0;
    d->minValue = -999999.0;
    d->step = 1.0;
}

KDRNumber::KDRNumber(int value) : KDRNumber(static_cast<long long>(value)) {}
KDRNumber::KDRNumber(long value) : KDRNumber(static_cast<long long>(value)) {}
KDRNumber::KDRNumber(long long value) : d(new KDRNumberPrivate(value)) {}
KDRNumber::KDRNumber(float value) : KDRNumber(static_cast<double>(value)) {}
KDRNumber::KDRNumber(double value) : d(new KDRNumberPrivate(value)) {}
KDRNumber::KDRNumber(KDRNumber const& other)
    : d(other.d ? new KDRNumberPrivate(*other.d) : new KDRNumberPrivate(0LL))
{
}

KDRNumber::~KDRNumber()
{
    delete d;
    d = nullptr;
}

KDRNumber& KDRNumber::operator=(KDRNumber const& other)
{
    if (d && other.d)
        *d = *other.d;
    return *this;
}

void KDRNumber::fromInt(int value) { fromLongLong(value); }
void KDRNumber::fromLong(long value) { fromLongLong(value); }
void KDRNumber::fromLongLong(long long value)
{
    if (d)
        d->set(value);
}
void KDRNumber::fromFloat(float value) { fromDouble(static_cast<double>(value)); }
void KDRNumber::fromDouble(double value)
{
    if (d)
        d->set(value);
}

int KDRNumber::toInt() const
{
    if (!d)
        return 0;
    // Through unsigned: the low 32 bits are the answer whatever the integer is.
    return d->kind == KDRNumberPrivate::Integer
               ? static_cast<int>(static_cast<unsigned int>(d->value.integer))
               : truncated<int>(d->value.floating);
}

long KDRNumber::toLong() const { return static_cast<long>(toLongLong()); }

long long KDRNumber::toLongLong() const
{
    if (!d)
        return 0;
    return d->kind == KDRNumberPrivate::Integer ? d->value.integer
                                                : truncated<long long>(d->value.floating);
}

float KDRNumber::toFloat() const
{
    if (!d)
        return 0.0F;
    return d->kind == KDRNumberPrivate::Integer ? static_cast<float>(d->value.integer)
                                                : static_cast<float>(d->value.floating);
}

double KDRNumber::toDouble() const
{
    if (!d)
        return 0.0;
    return d->kind == KDRNumberPrivate::Integer ? static_cast<double>(d->value.integer)
                                                : d->value.floating;
}

int KDRNumber::numType() { return d->kind; }

void KDRNumber::setMaxValue(double value) { d->maxValue = value; }
double KDRNumber::maxValue() const { return d->maxValue; }
void KDRNumber::setMinValue(double value) { d->minValue = value; }
double KDRNumber::minValue() const { return d->minValue; }
void KDRNumber::setStep(double value) { d->step = value; }
double KDRNumber::step() const { return d->minValue; }
