#include <kdrdata/kdrdata.h>

#include <gtest/gtest.h>

#include <QtCore/qstring.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "../support/variantaccess.h"
#include "kindtable.h"

namespace {

std::string describe(KDRVariant& variant) { return variant.attribute().toUtf8().constData(); }

std::string describe(KDRVariant&& variant) { return describe(variant); }

KDRVariant rangedNumber(double maximum, double minimum, double step)
{
    KDRVariant variant(3);
    KDRNumber* number = nullptr;
    EXPECT_TRUE(variant.toNumberPtr(number));
    number->setMaxValue(maximum);
    number->setMinValue(minimum);
    number->setStep(step);
    return variant;
}

TEST(Attribute, OfANumberGivesItsRangeWithTheMinimumAsStep)
{
    EXPECT_EQ(describe(rangedNumber(10.0, 0.0, 0.5)), "iType:1,Max:10,Min:0,step:0");
    EXPECT_EQ(describe(rangedNumber(10.0, -2.5, 0.5)), "iType:1,Max:10,Min:-2.5,step:-2.5");
}

TEST(Attribute, WritesRangesInGeneralNotationWithSixDigits)
{
    EXPECT_EQ(describe(rangedNumber(1234567.0, 0.000012345678, 0.0)),
              "iType:1,Max:1.23457e+06,Min:1.23457e-05,step:1.23457e-05");
    KDRVariant variant{KDRNumber()};
    KDRNumber* number = nullptr;
    ASSERT_TRUE(variant.toNumberPtr(number));
    *number = KDRNumber();
    EXPECT_EQ(describe(variant), "iType:1,Max:999999,Min:-999999,step:-999999");
}

// Qt's own places in a template are the witness, for numbers of every size and for those that are
// none.
TEST(Attribute, WritesEveryNumberAsATemplateWould)
{
    std::vector<double> samples{0.0,
                                -0.0,
                                std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN(),
                                std::numeric_limits<double>::denorm_min(),
                                std::numeric_limits<double>::max(),
                                999999.5,
                                9999995.0};
    std::mt19937 random(7);
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
    std::uniform_int_distribution<int> exponent(-300, 300);
    std::uniform_int_distribution<int> small(-8, 8);
    for (int i = 0; i < 2000; ++i) {
        samples.push_back(mantissa(random) * std::pow(10.0, exponent(random)));
        samples.push_back(std::round(mantissa(random)) * std::pow(10.0, small(random)));
    }
    for (std::size_t i = 0; i + 1 < samples.size(); ++i) {
        double const a = samples[i];
        double const b = samples[i + 1];
        EXPECT_EQ(
            describe(rangedNumber(a, b, 0.0)),
            QString("iType:%1,Max:%2,Min:%3,step:%4").arg(1).arg(a).arg(b).arg(b).toStdString());
    }
}

TEST(Attribute, OfAClearedVariantDescribesWhatItWouldHold)
{
    KDRVariant number(5);
    VariantAccess::store(number).clear();
    EXPECT_EQ(describe(number), "iType:1,Max:999999,Min:-999999,step:-999999");
    KDRVariant text("ab");
    VariantAccess::store(text).clear();
    EXPECT_EQ(describe(text), "iType:2,length:0");
}

TEST(Attribute, OfANumberPutIntoAVariantHasNoRange)
{
    KDRNumber number;
    KDRVariant written;
    written.fromNumber(number);
    EXPECT_EQ(describe(KDRVariant(number)), "iType:1,Max:0,Min:0,step:0");
    EXPECT_EQ(describe(written), "iType:1,Max:0,Min:0,step:0");
    EXPECT_EQ(describe(KDRVariant(42)), "iType:1,Max:0,Min:0,step:0");
    EXPECT_EQ(describe(KDRVariant(4.2)), "iType:1,Max:0,Min:0,step:0");
}

TEST(Attribute, OfAStringGivesItsLengthInCodeUnits)
{
    EXPECT_EQ(describe(KDRVariant("ab")), "iType:2,length:2");
    EXPECT_EQ(describe(KDRVariant("")), "iType:2,length:0");
    EXPECT_EQ(describe(KDRVariant(KDRString())), "iType:2,length:0");
    EXPECT_EQ(describe(KDRVariant("\xF0\x9F\x98\x80")), "iType:2,length:2");
}

TEST(Attribute, OfAPointGivesBothRanges)
{
    EXPECT_EQ(describe(KDRVariant(KDRPoint(5.0, 6.0))),
              "iType:3,XMax:999999,XMin:-999999,XStep:1,YMax:999999,YMin:-999999,YStep:1");
    KDRPoint point;
    point.setXMaxVal(1.5);
    point.setXMinVal(2.5);
    point.setXStepVal(3.5);
    point.setYMaxVal(4.5);
    point.setYMinVal(5.5);
    point.setYStepVal(6.5);
    EXPECT_EQ(describe(KDRVariant(point)),
              "iType:3,XMax:1.5,XMin:2.5,XStep:3.5,YMax:4.5,YMin:5.5,YStep:6.5");
}

TEST(Attribute, OfEveryOtherKindIsEmpty)
{
    EXPECT_EQ(describe(KDRVariant()), "");
    for (KindEntry const& row : kindTable) {
        bool const described = row.kind >= KindNumber && row.kind <= KindPoint;
        EXPECT_EQ(describe(variantOf(row, 7)).empty(), !described) << row.name;
    }
    EXPECT_FALSE(KDRVariant().attribute().isNull());
}

TEST(Attribute, LeavesTheVariantAsItWas)
{
    KDRVariant variant = rangedNumber(10.0, 1.0, 0.5);
    KDRVariant const copy(variant);
    describe(variant);
    EXPECT_EQ(&VariantAccess::store(variant), &VariantAccess::store(copy));
    KDRNumber number;
    ASSERT_TRUE(variant.toNumber(&number));
    EXPECT_EQ(number.toInt(), 3);
    EXPECT_EQ(number.maxValue(), 10.0);
}

} // namespace
