#include <kdrdata/scalars/kdrnumber.h>

#include <kdrdata/scalars/kdrnumber_p.h>

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

int KDRNumber::toInt() const { return d ? d->toInt() : 0; }
long KDRNumber::toLong() const { return static_cast<long>(toLongLong()); }
long long KDRNumber::toLongLong() const { return d ? d->toLongLong() : 0; }
float KDRNumber::toFloat() const { return d ? d->toFloat() : 0.0F; }
double KDRNumber::toDouble() const { return d ? d->toDouble() : 0.0; }

int KDRNumber::numType() { return d->kind; }

void KDRNumber::setMaxValue(double value) { d->maxValue = value; }
double KDRNumber::maxValue() const { return d->maxValue; }
void KDRNumber::setMinValue(double value) { d->minValue = value; }
double KDRNumber::minValue() const { return d->minValue; }
void KDRNumber::setStep(double value) { d->step = value; }
double KDRNumber::step() const { return d->minValue; }
