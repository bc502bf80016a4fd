// Plain numbers through the store, the lock and the handle: what goes in at the full width of one
// type comes out as every type reads it.

#include <kdrdata/kdrdata.h>

#include <kdrdata/scalars/kdrnumber_p.h>

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "../support/variantaccess.h"

namespace {

constexpr int integerKind = 0;
constexpr int floatingKind = 1;

// What the five readers and the number's kind answer.
struct Readings
{
    int kind;
    int asInt;
    long asLong;
    long long asLongLong;
    float asFloat;
    double asDouble;
};

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float largestFloat = std::numeric_limits<float>::max();

// A number as its own type writes it, with the answers written out.
template <class Scalar>
struct Sample
{
    Scalar value;
    Readings expected;
};

Sample<int> const ints[] = {
    {-7, {integerKind, -7, -7L, -7LL, -7.0F, -7.0}},
    {INT_MAX, {integerKind, INT_MAX, 2147483647L, 2147483647LL, 2147483648.0F, 2147483647.0}},
    {INT_MIN, {integerKind, INT_MIN, -2147483648L, -2147483648LL, -2147483648.0F, -2147483648.0}},
    // One more than a float holds: 2^24 + 1.
    {16777217, {integerKind, 16777217, 16777217L, 16777217LL, 16777216.0F, 16777217.0}},
};

// Integers of 64 bits: 2^40 + 1, -2^40, the ends, 2^53 + 1, which a double does not hold, and
// 2^60 + 2^36 + 1, which a float that was a double in between would round the other way.
template <class Scalar>
std::vector<Sample<Scalar>> wideIntegers()
{
    return {
        {1099511627777, {integerKind, 1, 1099511627777, 1099511627777, 0x1p40F, 0x1.0000000001p40}},
        {-1099511627776, {integerKind, 0, -1099511627776, -1099511627776, -0x1p40F, -0x1p40}},
        {5000000000, {integerKind, 705032704, 5000000000, 5000000000, 5e9F, 5e9}},
        {LLONG_MAX, {integerKind, -1, LONG_MAX, LLONG_MAX, 0x1p63F, 0x1p63}},
        {LLONG_MIN, {integerKind, 0, LONG_MIN, LLONG_MIN, -0x1p63F, -0x1p63}},
        {9007199254740993, {integerKind, 1, 9007199254740993, 9007199254740993, 0x1p53F, 0x1p53}},
        {1152921573326323713,
         {integerKind, 1, 1152921573326323713, 1152921573326323713, 0x1.000002p60F, 0x1.000001p60}},
    };
}

Sample<float> const floats[] = {
    // The float nearest to 0.1 is another number than the double nearest to it.
    {0.1F, {floatingKind, 0, 0L, 0LL, 0.1F, 0x1.99999ap-4}},
    {-2.5F, {floatingKind, -2, -2L, -2LL, -2.5F, -2.5}},
    {0x1p40F, {floatingKind, INT_MIN, 1099511627776, 1099511627776, 0x1p40F, 0x1p40}},
    {largestFloat, {floatingKind, INT_MIN, LONG_MIN, LLONG_MIN, largestFloat, 0x1.fffffep127}},
};

Sample<double> const doubles[] = {
    {0.1, {floatingKind, 0, 0L, 0LL, 0.1F, 0.1}},
    {-0.1, {floatingKind, 0, 0L, 0LL, -0.1F, -0.1}},
    {2.9, {floatingKind, 2, 2L, 2LL, 2.9F, 2.9}},
    {1099511627777.5,
     {floatingKind, INT_MIN, 1099511627777, 1099511627777, 0x1p40F, 1099511627777.5}},
    {1e300, {floatingKind, INT_MIN, LONG_MIN, LLONG_MIN, infinity, 1e300}},
    {-1e300, {floatingKind, INT_MIN, LONG_MIN, LLONG_MIN, -infinity, -1e300}},
    {5e-324, {floatingKind, 0, 0L, 0LL, 0.0F, 5e-324}},
};

// What a holder of a number, store or handle, answers to all readers. The outputs start as
// something else.
template <class Holder>
void expectReadings(Holder const& holder, Readings const& expected)
{
    int asInt = 4711;
    long asLong = 4711;
    long long asLongLong = 4711;
    float asFloat = 4711.0F;
    double asDouble = 4711.0;
    KDRNumber number(4711);
    EXPECT_EQ(holder.variantType(), 1);
    EXPECT_TRUE(holder.toInt(&asInt));
    EXPECT_TRUE(holder.toLong(&asLong));
    EXPECT_TRUE(holder.toLongLong(&asLongLong));
    EXPECT_TRUE(holder.toFloat(&asFloat));
    EXPECT_TRUE(holder.toDouble(&asDouble));
    EXPECT_TRUE(holder.toNumber(&number));
    EXPECT_EQ(asInt, expected.asInt);
    EXPECT_EQ(asLong, expected.asLong);
    EXPECT_EQ(asLongLong, expected.asLongLong);
    EXPECT_EQ(asFloat, expected.asFloat);
    EXPECT_EQ(asDouble, expected.asDouble);
    EXPECT_EQ(number.numType(), expected.kind);
    EXPECT_EQ(number.toLongLong(), expected.asLongLong);
    EXPECT_EQ(number.toDouble(), expected.asDouble);
}

// Both ways into all three classes, each read through the store and, where there is one, through
// the handle.
template <class Scalar, class Samples>
void expectEveryWay(Samples const& samples, void (KDRVariantPrivate::*storeWriter)(Scalar),
                    void (KDRVariant::*writer)(Scalar))
{
    for (Sample<Scalar> const& sample : samples) {
        SCOPED_TRACE(testing::Message() << "value " << sample.value);
        Readings const& expected = sample.expected;
        {
            SCOPED_TRACE("store, constructed");
            expectReadings(KDRVariantPrivate(sample.value), expected);
        }
        {
            SCOPED_TRACE("store, written");
            KDRVariantPrivate store;
            (store.*storeWriter)(sample.value);
            expectReadings(store, expected);
        }
        {
            SCOPED_TRACE("lock, constructed");
            KDRVariantLock const lock(sample.value);
            expectReadings(VariantAccess::store(lock), expected);
        }
        {
            SCOPED_TRACE("handle, constructed");
            KDRVariant const variant(sample.value);
            expectReadings(VariantAccess::store(variant), expected);
            expectReadings(variant, expected);
            expectReadings(variant.clone(), expected);
        }
        for (bool const shared : {false, true}) {
            SCOPED_TRACE(shared ? "handle, written while shared" : "handle, written");
            KDRVariant variant("old");
            KDRVariant const sharer(shared ? variant : KDRVariant());
            (variant.*writer)(sample.value);
            expectReadings(VariantAccess::store(variant), expected);
            expectReadings(variant, expected);
        }
    }
}

TEST(PlainNumbers, IntsKeepTheirValueAndAreIntegers)
{
    expectEveryWay<int>(ints, &KDRVariantPrivate::fromInt, &KDRVariant::fromInt);
}

TEST(PlainNumbers, LongsKeepAllTheirBitsAndAreIntegers)
{
    expectEveryWay<long>(wideIntegers<long>(), &KDRVariantPrivate::fromLong, &KDRVariant::fromLong);
}

TEST(PlainNumbers, LongLongsKeepAllTheirBitsAndAreIntegers)
{
    expectEveryWay<long long>(wideIntegers<long long>(), &KDRVariantPrivate::fromLongLong,
                              &KDRVariant::fromLongLong);
}

TEST(PlainNumbers, FloatsAreWidenedExactlyAndAreFloatingPoint)
{
    expectEveryWay<float>(floats, &KDRVariantPrivate::fromFloat, &KDRVariant::fromFloat);
}

TEST(PlainNumbers, DoublesKeepAllTheirBitsAndAreFloatingPoint)
{
    expectEveryWay<double>(doubles, &KDRVariantPrivate::fromDouble, &KDRVariant::fromDouble);
}

// The number's own constructors and writers take the same values to the same answers, and an object
// of it carries them through every way in.
template <class Scalar, class Samples>
void expectNumbers(Samples const& samples, void (KDRNumber::*writer)(Scalar))
{
    for (Sample<Scalar> const& sample : samples) {
        SCOPED_TRACE(testing::Message() << "value " << sample.value);
        KDRNumber const constructed(sample.value);
        KDRNumber written;
        (written.*writer)(sample.value);
        for (KDRNumber const* const number :
             {&constructed, static_cast<KDRNumber const*>(&written)}) {
            expectReadings(KDRVariantPrivate(*number), sample.expected);
            KDRVariantLock const lock(*number);
            expectReadings(VariantAccess::store(lock), sample.expected);
            KDRVariant variant(*number);
            expectReadings(variant, sample.expected);
            variant.fromBool(true);
            variant.fromNumber(*number);
            expectReadings(variant, sample.expected);
            KDRVariantPrivate store;
            store.fromNumber(*number);
            expectReadings(store, sample.expected);
        }
    }
}

TEST(PlainNumbers, ANumberObjectCarriesTheSameValues)
{
    expectNumbers<int>(ints, &KDRNumber::fromInt);
    expectNumbers<long>(wideIntegers<long>(), &KDRNumber::fromLong);
    expectNumbers<long long>(wideIntegers<long long>(), &KDRNumber::fromLongLong);
    expectNumbers<float>(floats, &KDRNumber::fromFloat);
    expectNumbers<double>(doubles, &KDRNumber::fromDouble);
}

// A number that takes a new value where it lies is as a fresh one: without the range that somebody
// gave it through its address.
TEST(Numbers, AWrittenNumberHasNoRangeLeft)
{
    auto const ranged = [](KDRVariant& variant) -> KDRNumber& {
        KDRNumber* number = nullptr;
        EXPECT_TRUE(variant.toNumberPtr(number));
        number->setMaxValue(3.0);
        number->setMinValue(2.0);
        number->setStep(1.0);
        return *number;
    };
    auto const hasNoRange = [](KDRVariant& variant) {
        KDRNumber* number = nullptr;
        EXPECT_TRUE(variant.toNumberPtr(number));
        return number->maxValue() == 0.0 && number->minValue() == 0.0;
    };
    std::vector<std::function<void(KDRVariant&)>> const writers{
        [](KDRVariant& v) { v.fromInt(7); }, [](KDRVariant& v) { v.fromLong(7L); },
        [](KDRVariant& v) { v.fromLongLong(7LL); }, [](KDRVariant& v) { v.fromFloat(7.0F); },
        [](KDRVariant& v) { v.fromDouble(7.0); }};
    for (auto const& write : writers) {
        KDRVariant variant(0.5);
        ranged(variant);
        write(variant);
        EXPECT_TRUE(hasNoRange(variant));
        int value = 0;
        EXPECT_TRUE(variant.toInt(&value));
        EXPECT_EQ(value, 7);
    }
}

TEST(Numbers, OnesWithoutARecordReadAsZeroAndAreReplaced)
{
    KDRVariant variant(0.5);
    KDRNumber* number = nullptr;
    ASSERT_TRUE(variant.toNumberPtr(number));
    // What a handle looks like whose destructor has run.
    KDRNumber other;
    delete KDRInternal::pointer(other);
    KDRInternal::pointer(other) = std::exchange(KDRInternal::pointer(*number), nullptr);

    int asInt = 1;
    long asLong = 1;
    long long asLongLong = 1;
    float asFloat = 1.0F;
    double asDouble = 1.0;
    EXPECT_TRUE(variant.toInt(&asInt));
    EXPECT_TRUE(variant.toLong(&asLong));
    EXPECT_TRUE(variant.toLongLong(&asLongLong));
    EXPECT_TRUE(variant.toFloat(&asFloat));
    EXPECT_TRUE(variant.toDouble(&asDouble));
    EXPECT_EQ(asInt, 0);
    EXPECT_EQ(asLong, 0L);
    EXPECT_EQ(asLongLong, 0LL);
    EXPECT_EQ(asFloat, 0.0F);
    EXPECT_EQ(asDouble, 0.0);
    variant.fromInt(6);
    EXPECT_TRUE(variant.toInt(&asInt));
    EXPECT_EQ(asInt, 6);
    EXPECT_EQ(other.toDouble(), 0.5);
}

TEST(Numbers, AreWrittenIntoAStoreThatWasCleared)
{
    KDRVariant variant(5);
    VariantAccess::store(variant).clear();
    variant.fromInt(6);
    int value = 0;
    EXPECT_TRUE(variant.toInt(&value));
    EXPECT_EQ(value, 6);
}

} // namespace
