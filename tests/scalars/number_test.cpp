#include <kdrdata/internal/kdrinternal_p.h>
#include <kdrdata/scalars/kdrnumber.h>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <type_traits>
#include <utility>

#include "../support/withoutobject.h"

namespace {

KDRNumber ranged(double value)
{
    KDRNumber number;
    number.fromDouble(value);
    number.setMaxValue(10.0);
    number.setMinValue(-5.0);
    number.setStep(0.5);
    return number; // the one object, or the copy would lose its range
}

TEST(Number, IsOnePointerWide) { EXPECT_EQ(sizeof(KDRNumber), sizeof(void*)); }

TEST(Number, DefaultIsIntegerZeroWithTheDefaultRange)
{
    KDRNumber number;
    EXPECT_EQ(number.toInt(), 0);
    EXPECT_EQ(number.numType(), 0);
    EXPECT_EQ(number.maxValue(), 999999.0);
    EXPECT_EQ(number.minValue(), -999999.0);
    EXPECT_EQ(number.step(), -999999.0);
}

TEST(Number, IntegerConstructorsMakeKindZeroAndKeepTheSign)
{
    EXPECT_EQ(KDRNumber(-7).toLongLong(), -7);
    EXPECT_EQ(KDRNumber(-7L).toLongLong(), -7);
    EXPECT_EQ(KDRNumber(LLONG_MIN).toLongLong(), LLONG_MIN);
    EXPECT_EQ(KDRNumber(-7).numType(), 0);
    EXPECT_EQ(KDRNumber(-7L).numType(), 0);
    EXPECT_EQ(KDRNumber(-7LL).numType(), 0);
}

TEST(Number, FloatingConstructorsMakeKindOneAndWidenExactly)
{
    EXPECT_EQ(KDRNumber(0.1F).toDouble(), static_cast<double>(0.1F));
    EXPECT_EQ(KDRNumber(0.1).toDouble(), 0.1);
    EXPECT_EQ(KDRNumber(0.1F).numType(), 1);
    EXPECT_EQ(KDRNumber(0.1).numType(), 1);
}

TEST(Number, ValueConstructorsLeaveTheRangeZero)
{
    for (KDRNumber const& number :
         {KDRNumber(1), KDRNumber(1L), KDRNumber(1LL), KDRNumber(1.0F), KDRNumber(1.0)}) {
        EXPECT_EQ(number.maxValue(), 0.0);
        EXPECT_EQ(number.minValue(), 0.0);
        EXPECT_EQ(number.step(), 0.0);
    }
}

TEST(Number, StepAnswersTheMinimum)
{
    KDRNumber number;
    number.setMinValue(-5.0);
    number.setStep(0.5);
    EXPECT_EQ(number.step(), -5.0);
    number.setMinValue(3.0);
    EXPECT_EQ(number.step(), 3.0);
}

// The record behind a number, field by field in its order: the step is read by no operation.
struct Record
{
    union {
        long long integer;
        double floating;
    } value;
    int kind;
    double maxValue;
    double minValue;
    double step;
};

Record recordOf(KDRNumber const& number)
{
    Record record = {};
    std::memcpy(&record, &KDRInternal::wrapped(number), sizeof record);
    return record;
}

TEST(Number, TheRecordHoldsValueKindMaximumMinimumAndStep)
{
    Record const floating = recordOf(ranged(1.5));
    Record const fromRanged = [] {
        KDRNumber number;
        number.fromLongLong(LLONG_MIN + 1);
        number.setMaxValue(10.0);
        number.setMinValue(-5.0);
        number.setStep(0.5);
        return recordOf(number);
    }();
    EXPECT_EQ(floating.value.floating, 1.5);
    EXPECT_EQ(floating.kind, 1);
    EXPECT_EQ(fromRanged.value.integer, LLONG_MIN + 1);
    EXPECT_EQ(fromRanged.kind, 0);
    EXPECT_EQ(fromRanged.maxValue, 10.0);
    EXPECT_EQ(fromRanged.minValue, -5.0);
    EXPECT_EQ(fromRanged.step, 0.5);
}

TEST(Number, TheStepIsOneByDefaultAndKeptAsSet)
{
    KDRNumber number;
    EXPECT_EQ(recordOf(number).step, 1.0);
    number.setStep(0.5);
    EXPECT_EQ(recordOf(number).step, 0.5);
    number.fromInt(3);
    number.fromDouble(1.5);
    number.setMaxValue(7.0);
    number.setMinValue(-7.0);
    EXPECT_EQ(recordOf(number).step, 0.5);
    EXPECT_EQ(recordOf(KDRNumber(5)).step, 0.0);
    EXPECT_EQ(recordOf(KDRNumber(5.0)).step, 0.0);
}

TEST(Number, TheStepIsCarriedByAssignmentAndNotByCopyConstruction)
{
    KDRNumber number;
    number.setStep(0.5);
    KDRNumber const copy(number);
    KDRNumber assigned(3);
    assigned = number;
    EXPECT_EQ(recordOf(copy).step, 0.0);
    EXPECT_EQ(recordOf(assigned).step, 0.5);
    EXPECT_EQ(recordOf(number).step, 0.5);
}

TEST(Number, WithoutARecordTakesNoValueAndReadsAsZero)
{
    WithoutObject<KDRNumber> bare;
    KDRNumber& number = bare.handle;
    number.fromInt(1);
    number.fromLong(2L);
    number.fromLongLong(3LL);
    number.fromFloat(4.0F);
    number.fromDouble(5.0);
    EXPECT_EQ(KDRInternal::pointer(number), nullptr);
    EXPECT_EQ(number.toInt(), 0);
    EXPECT_EQ(number.toLong(), 0L);
    EXPECT_EQ(number.toLongLong(), 0LL);
    EXPECT_EQ(number.toFloat(), 0.0F);
    EXPECT_EQ(number.toDouble(), 0.0);
}

TEST(Number, WithoutARecordIsSkippedByAssignmentAndCopiedAsZero)
{
    WithoutObject<KDRNumber> bare;
    KDRNumber number = KDRNumber(1.5);
    number.setMaxValue(10.0);
    EXPECT_EQ(&(number = bare.handle), &number);
    EXPECT_EQ(number.toDouble(), 1.5);
    EXPECT_EQ(number.maxValue(), 10.0);
    EXPECT_EQ(&(bare.handle = number), &bare.handle);
    EXPECT_EQ(KDRInternal::pointer(bare.handle), nullptr);
    KDRNumber copy(bare.handle);
    EXPECT_NE(KDRInternal::pointer(copy), nullptr);
    EXPECT_EQ(copy.numType(), 0);
    EXPECT_EQ(copy.toLongLong(), 0);
    copy.fromInt(7);
    EXPECT_EQ(copy.toInt(), 7);
}

TEST(Number, CopyConstructionLeavesTheRangeBehind)
{
    KDRNumber const original = ranged(1.5);
    KDRNumber copy(original);
    EXPECT_EQ(copy.toDouble(), 1.5);
    EXPECT_EQ(copy.numType(), 1);
    EXPECT_EQ(copy.maxValue(), 0.0);
    EXPECT_EQ(copy.minValue(), 0.0);
    EXPECT_EQ(original.maxValue(), 10.0);
}

TEST(Number, AssignmentCarriesTheRange)
{
    KDRNumber const original = ranged(1.5);
    KDRNumber copy(3);
    KDRNumber& result = (copy = original);
    EXPECT_EQ(&result, &copy);
    EXPECT_EQ(copy.toDouble(), 1.5);
    EXPECT_EQ(copy.numType(), 1);
    EXPECT_EQ(copy.maxValue(), 10.0);
    EXPECT_EQ(copy.minValue(), -5.0);
}

TEST(Number, AssignmentToItselfChangesNothing)
{
    KDRNumber number = ranged(1.5);
    KDRNumber const& alias = number;
    number = alias;
    EXPECT_EQ(number.toDouble(), 1.5);
    EXPECT_EQ(number.maxValue(), 10.0);
}

TEST(Number, CopiesAreIndependent)
{
    KDRNumber original(1);
    KDRNumber copy(original);
    KDRNumber assigned;
    assigned = original;
    copy.fromInt(2);
    assigned.setMaxValue(7.0);
    EXPECT_EQ(original.toInt(), 1);
    EXPECT_EQ(original.maxValue(), 0.0);
}

TEST(Number, WritersSetTheKindAndKeepTheRange)
{
    KDRNumber number = ranged(0.0);
    auto const keepsRange = [&number] {
        return number.maxValue() == 10.0 && number.minValue() == -5.0;
    };
    number.fromInt(-1);
    EXPECT_TRUE(number.numType() == 0 && number.toLongLong() == -1 && keepsRange());
    number.fromFloat(0.25F);
    EXPECT_TRUE(number.numType() == 1 && number.toDouble() == 0.25 && keepsRange());
    number.fromLong(-2L);
    EXPECT_TRUE(number.numType() == 0 && number.toLongLong() == -2 && keepsRange());
    number.fromDouble(1.5);
    EXPECT_TRUE(number.numType() == 1 && number.toDouble() == 1.5 && keepsRange());
    number.fromLongLong(LLONG_MAX);
    EXPECT_TRUE(number.numType() == 0 && number.toLongLong() == LLONG_MAX && keepsRange());
}

TEST(Number, TheRangeNeverBoundsTheValue)
{
    KDRNumber number = ranged(0.0);
    number.fromDouble(1e9);
    EXPECT_EQ(number.toDouble(), 1e9);
    number.setMaxValue(-100.0);
    EXPECT_EQ(number.toDouble(), 1e9);
}

TEST(Number, IntegerToIntKeepsTheLowThirtyTwoBits)
{
    EXPECT_EQ(KDRNumber(5000000000LL).toInt(), 705032704);
    EXPECT_EQ(KDRNumber(2147483648LL).toInt(), INT_MIN);
    EXPECT_EQ(KDRNumber(-1LL).toInt(), -1);
    EXPECT_EQ(KDRNumber(LLONG_MIN).toInt(), 0);
    EXPECT_EQ(KDRNumber(LLONG_MAX).toInt(), -1);
}

TEST(Number, FloatingToIntegerTruncatesTowardZero)
{
    EXPECT_EQ(KDRNumber(2.9).toInt(), 2);
    EXPECT_EQ(KDRNumber(-2.9).toInt(), -2);
    EXPECT_EQ(KDRNumber(-0.9).toLong(), 0);
    EXPECT_EQ(KDRNumber(1e15 + 0.5).toLongLong(), 1000000000000000LL);
    EXPECT_EQ(KDRNumber(2147483647.9).toInt(), INT_MAX);
    EXPECT_EQ(KDRNumber(-2147483648.9).toInt(), INT_MIN);
    EXPECT_EQ(KDRNumber(9223372036854774784.0).toLongLong(), 9223372036854774784LL);
    EXPECT_EQ(KDRNumber(-9223372036854775808.0).toLongLong(), LLONG_MIN);
}

TEST(Number, FloatingOutOfRangeGivesTheSmallestInteger)
{
    double const infinity = std::numeric_limits<double>::infinity();
    double const nan = std::numeric_limits<double>::quiet_NaN();
    for (double const value : {3e10, -3e10, 2147483648.0, -2147483649.0, infinity, -infinity, nan,
                               -nan, DBL_MAX, -DBL_MAX})
        EXPECT_EQ(KDRNumber(value).toInt(), INT_MIN) << value;
    for (double const value : {9223372036854775808.0, -9223372036854777856.0, infinity, -infinity,
                               nan, -nan, DBL_MAX, -DBL_MAX}) {
        EXPECT_EQ(KDRNumber(value).toLong(), LONG_MIN) << value;
        EXPECT_EQ(KDRNumber(value).toLongLong(), LLONG_MIN) << value;
    }
}

TEST(Number, FloatingReadersConvertIntegersToTheNearest)
{
    EXPECT_EQ(KDRNumber(16777217).toFloat(), 16777216.0F);
    EXPECT_EQ(KDRNumber(9007199254740993LL).toDouble(), 9007199254740992.0);
    EXPECT_EQ(KDRNumber(-3).toDouble(), -3.0);
}

TEST(Number, ToFloatNarrowsADouble)
{
    EXPECT_EQ(KDRNumber(0.1).toFloat(), 0.1F);
    EXPECT_TRUE(std::isinf(KDRNumber(1e300).toFloat()));
    EXPECT_TRUE(std::isnan(KDRNumber(std::nan("")).toFloat()));
}

TEST(Number, NumTypeIsNotConstant)
{
    static_assert(std::is_same_v<decltype(&KDRNumber::numType), int (KDRNumber::*)()>);
    SUCCEED();
}

// The processor's own conversion is the witness, written out so that nothing in it is undefined.
long long truncatedByBits(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    int const exponent = static_cast<int>(bits >> 52 & 0x7FF) - 1023;
    if (exponent >= 63)
        return LLONG_MIN;
    if (exponent < 0)
        return 0;
    std::uint64_t const mantissa = (bits & 0xFFFFFFFFFFFFFULL) | 0x10000000000000ULL;
    auto const magnitude = static_cast<long long>(exponent >= 52 ? mantissa << (exponent - 52)
                                                                 : mantissa >> (52 - exponent));
    return bits >> 63 ? -magnitude : magnitude;
}

TEST(Number, AgreesWithTruncationBitByBitOnRandomDoubles)
{
    constexpr unsigned seed = 20240811;
    std::mt19937_64 random(seed);
    for (int i = 0; i < 200000; ++i) {
        // Exponents around the edges of both integer types matter; the rest is noise.
        std::uint64_t const exponent = 1023 - 2 + random() % 70;
        std::uint64_t const bits = (random() & 0x800FFFFFFFFFFFFFULL) | exponent << 52;
        double value = 0.0;
        std::memcpy(&value, &bits, sizeof value);
        long long const expected = truncatedByBits(value);
        ASSERT_EQ(KDRNumber(value).toLongLong(), expected) << value << ", seed " << seed;
        bool const fitsInt = expected >= INT_MIN && expected <= INT_MAX;
        ASSERT_EQ(KDRNumber(value).toInt(), fitsInt ? expected : INT_MIN)
            << value << ", seed " << seed;
    }
}

} // namespace
