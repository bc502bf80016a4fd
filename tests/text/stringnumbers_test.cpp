#include <kdrdata/text/text.h>

#include "../support/qtprinters.h"
#include "../support/qtvalues.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

namespace {

KDRString::KDRConversionFormat formatOf(int value)
{
    return static_cast<KDRString::KDRConversionFormat>(value);
}

template <class Text, class = void>
struct HasToInt : std::false_type
{
};
template <class Text>
struct HasToInt<Text, std::void_t<decltype(std::declval<Text>().toInt())>> : std::true_type
{
};
static_assert(!HasToInt<KDRString>::value);

KDRString const marker("%1");

TEST(StringArg, PutsTextsInPlaceOfTheLowestMarker)
{
    EXPECT_EQ(KDRString("%2 %1 %2").arg(KDRString("a")).arg(KDRString("b")), KDRString("b a b"));
    EXPECT_EQ(marker.arg(KDRString("ab"), 4), KDRString("  ab"));
    EXPECT_EQ(marker.arg(KDRString("ab"), -4, KDRChar('.')), KDRString("ab.."));
    EXPECT_EQ(marker.arg(KDRString()), KDRString(""));
    EXPECT_EQ(KDRString("%99").arg("x"), KDRString("x"));
    EXPECT_EQ(KDRString("none").arg(KDRString("x")), KDRString("none"));
    EXPECT_TRUE(KDRString().arg(KDRString("x")).isNull());
}

TEST(StringArg, WidensSignedNumbersWithTheirSign)
{
    EXPECT_EQ(marker.arg(short{-1}), KDRString("-1"));
    EXPECT_EQ(marker.arg(-1), KDRString("-1"));
    EXPECT_EQ(marker.arg(-1L), KDRString("-1"));
    EXPECT_EQ(marker.arg(-1LL), KDRString("-1"));
    EXPECT_EQ(marker.arg(LLONG_MIN), KDRString("-9223372036854775808"));
    EXPECT_EQ(marker.arg(short{-1}, 0, 16), KDRString("ffffffffffffffff"));
    EXPECT_EQ(marker.arg(-1, 0, 16), KDRString("ffffffffffffffff"));
    EXPECT_EQ(marker.arg(-1L, 0, 16), KDRString("ffffffffffffffff"));
    EXPECT_EQ(marker.arg(-1LL, 0, 2).size(), 64);
}

TEST(StringArg, WidensUnsignedNumbersWithoutSign)
{
    EXPECT_EQ(marker.arg(static_cast<unsigned short>(0xFFFF)), KDRString("65535"));
    EXPECT_EQ(marker.arg(0xFFFFFFFFU), KDRString("4294967295"));
    EXPECT_EQ(marker.arg(ULONG_MAX), KDRString("18446744073709551615"));
    EXPECT_EQ(marker.arg(ULLONG_MAX), KDRString("18446744073709551615"));
    EXPECT_EQ(marker.arg(static_cast<unsigned short>(0xFFFF), 0, 16), KDRString("ffff"));
    EXPECT_EQ(marker.arg(0xFFFFFFFFU, 0, 16), KDRString("ffffffff"));
}

TEST(StringArg, EveryIntegerTakesWidthBaseAndFill)
{
    KDRChar const fill('*');
    KDRString const left("**7z");
    EXPECT_EQ(marker.arg(short{287}, 4, 36, fill), left);
    EXPECT_EQ(marker.arg(287, 4, 36, fill), left);
    EXPECT_EQ(marker.arg(287L, 4, 36, fill), left);
    EXPECT_EQ(marker.arg(287LL, 4, 36, fill), left);
    EXPECT_EQ(marker.arg(static_cast<unsigned short>(287), 4, 36, fill), left);
    EXPECT_EQ(marker.arg(287U, 4, 36, fill), left);
    EXPECT_EQ(marker.arg(287UL, 4, 36, fill), left);
    EXPECT_EQ(marker.arg(287ULL, -4, 36, fill), KDRString("7z**"));
    EXPECT_EQ(marker.arg(255, 0, 16, KDRChar(' ')), KDRString("ff"));
    EXPECT_EQ(marker.arg(-5, 4, 10, KDRChar('0')), KDRString("-005"));
    EXPECT_EQ(marker.arg(-2.5, 6, KDRString::KDRFormatGeneral, -1, KDRChar('0')),
              KDRString("-002.5"));
}

TEST(StringArg, BasesZeroAndOneCountAsTen)
{
    for (int base : {0, 1}) {
        SCOPED_TRACE(base);
        EXPECT_EQ(marker.arg(short{-12}, 0, base), KDRString("-12"));
        EXPECT_EQ(marker.arg(-12, 0, base), KDRString("-12"));
        EXPECT_EQ(marker.arg(-12L, 0, base), KDRString("-12"));
        EXPECT_EQ(marker.arg(-12LL, 0, base), KDRString("-12"));
        EXPECT_EQ(marker.arg(static_cast<unsigned short>(12), 0, base), KDRString("12"));
        EXPECT_EQ(marker.arg(12U, 0, base), KDRString("12"));
        EXPECT_EQ(marker.arg(12UL, 0, base), KDRString("12"));
        EXPECT_EQ(marker.arg(12ULL, 0, base), KDRString("12"));
        KDRString text;
        EXPECT_EQ(text.setNum(short{-12}, base), KDRString("-12"));
        EXPECT_EQ(text.setNum(-13, base), KDRString("-13"));
        EXPECT_EQ(text.setNum(-12L, base), KDRString("-12"));
        EXPECT_EQ(text.setNum(-13LL, base), KDRString("-13"));
        EXPECT_EQ(text.setNum(static_cast<unsigned short>(12), base), KDRString("12"));
        EXPECT_EQ(text.setNum(13U, base), KDRString("13"));
        EXPECT_EQ(text.setNum(12UL, base), KDRString("12"));
        EXPECT_EQ(text.setNum(13ULL, base), KDRString("13"));
    }
}

TEST(StringArg, OtherBasesWithoutDigitsOfTheirOwnAreQts)
{
    QString const qts("%1");
    for (int base : {37, 40, 100, 65536, INT_MAX, -1, -2, -16, INT_MIN}) {
        SCOPED_TRACE(base);
        for (long long const n : {0LL, 5LL, -12LL, 255LL, 1LL << 40, LLONG_MAX, LLONG_MIN}) {
            auto const natural = static_cast<unsigned long long>(n);
            EXPECT_EQ(marker.arg(n, 0, base), handleOf(qts.arg(n, 0, base)));
            EXPECT_EQ(marker.arg(natural, 0, base), handleOf(qts.arg(natural, 0, base)));
            EXPECT_EQ(KDRString().setNum(n, base), handleOf(QString::number(n, base)));
            EXPECT_EQ(KDRString().setNum(natural, base), handleOf(QString::number(natural, base)));
        }
    }
    // A zero needs no division.
    for (int base : {0, 1}) {
        EXPECT_EQ(KDRString().setNum(0, base), handleOf(QString::number(0, base)));
        EXPECT_EQ(marker.arg(0ULL, 0, base), handleOf(qts.arg(0ULL, 0, base)));
    }
}

TEST(StringArg, MarkersAreThoseOfQtFromZeroOn)
{
    EXPECT_EQ(KDRString("%0 %1").arg(KDRString("x")), KDRString("x %1"));
    EXPECT_EQ(KDRString("%00 %0").arg(KDRString("x")), KDRString("x x"));
    EXPECT_EQ(KDRString("%99 %100").arg(KDRString("x")), KDRString("%99 x0"));
}

TEST(StringArg, ManySignificantDigitsAreAsManyAsThereAre)
{
    for (double const number : {0.1, 5e-324, 2.2250738585072011e-308, 1e-4, 1e22, 0.0,
                                std::numeric_limits<double>::max()}) {
        QString const all = QString::number(number, 'g', 1100);
        ASSERT_EQ(QString::number(number, 'g', 5000), all);
        for (int precision : {1100, 1101, 5000, 1 << 30, INT_MAX}) {
            EXPECT_EQ(KDRString().setNum(number, KDRString::KDRFormatGeneral, precision),
                      handleOf(all));
            EXPECT_EQ(marker.arg(number, 0, KDRString::KDRFormatGeneral, precision), handleOf(all));
        }
        EXPECT_EQ(KDRString().setNum(number, KDRString::KDRFormatGeneral, 400),
                  handleOf(QString::number(number, 'g', 400)));
        EXPECT_EQ(KDRString().setNum(number, KDRString::KDRFormatFixed, 2000),
                  handleOf(QString::number(number, 'f', 2000)));
        EXPECT_EQ(KDRString().setNum(number, KDRString::KDRFormatGeneral, -128),
                  handleOf(QString::number(number, 'g', -128)));
    }
}

TEST(StringArg, WhatIsNoNumberHasNoDigits)
{
    double const infinite = std::numeric_limits<double>::infinity();
    for (int precision : {-128, -1, 0, 6, 2000, INT_MAX}) {
        for (auto const format : {KDRString::KDRFormatGeneral, KDRString::KDRFormatFixed}) {
            EXPECT_EQ(KDRString().setNum(infinite, format, precision), KDRString("inf"));
            EXPECT_EQ(marker.arg(-infinite, 0, format, precision), KDRString("-inf"));
            EXPECT_EQ(marker.arg(std::nan(""), 0, format, precision), KDRString("nan"));
        }
    }
}

TEST(StringArg, AZeroCharacterGivesNoCharacterButThePadding)
{
    KDRString const text("x=%1");
    EXPECT_EQ(text.arg(KDRChar(0), 3, KDRChar(' ')), KDRString("x=   "));
    EXPECT_EQ(text.arg(KDRChar(0), -3, KDRChar('.')), KDRString("x=..."));
    EXPECT_EQ(text.arg(KDRChar(0)), KDRString("x="));
    EXPECT_EQ(text.arg(KDRChar('A'), 0), KDRString("x=A"));
    EXPECT_EQ(text.arg(KDRChar('A'), 3, KDRChar('.')), KDRString("x=..A"));
    EXPECT_EQ(text.arg(KDRChar(0x20AC)), KDRString("x=\xE2\x82\xAC"));
}

TEST(StringArg, ACharIsALatin1CharacterAlsoAZero)
{
    EXPECT_EQ(marker.arg('A', 3, KDRChar('.')), KDRString("..A"));
    EXPECT_EQ(marker.arg('\xE4'), KDRString("\xC3\xA4"));
    EXPECT_EQ(marker.arg('\0'), KDRString(KDRChar(0)));
}

TEST(StringArg, PrecisionsAreAsLargeAsTheyAreAskedFor)
{
    EXPECT_EQ(marker.arg(2.5, 0, KDRString::KDRFormatFixed, 100000).size(), 100002);
    EXPECT_EQ(marker.arg(2.5, 0, KDRString::KDRFormatGeneral, 100000), KDRString("2.5"));
    EXPECT_EQ(marker.arg(2.5, 0, KDRString::KDRFormatFixed, INT_MIN), KDRString("2.500000"));
}

TEST(StringNumbers, FloatingPoint)
{
    bool ok = false;
    EXPECT_EQ(KDRString(" -1.5e3 ").toDouble(&ok), -1500.0);
    EXPECT_TRUE(ok);
    EXPECT_EQ(KDRString("1.5").toFloat(&ok), 1.5F);
    EXPECT_TRUE(ok);
    for (char const* text : {"", " ", "1.5x", "1,5", "0x10", "--1", "one"}) {
        SCOPED_TRACE(text);
        ok = true;
        EXPECT_EQ(KDRString(text).toDouble(&ok), 0.0);
        EXPECT_FALSE(ok);
        ok = true;
        EXPECT_EQ(KDRString(text).toFloat(&ok), 0.0F);
        EXPECT_FALSE(ok);
    }
    EXPECT_EQ(KDRString("1e400").toDouble(&ok), std::numeric_limits<double>::infinity());
    EXPECT_FALSE(ok);
    EXPECT_EQ(KDRString("1e39").toDouble(&ok), 1e39);
    EXPECT_TRUE(ok);
    EXPECT_EQ(KDRString("1e39").toFloat(&ok), std::numeric_limits<float>::infinity());
    EXPECT_FALSE(ok);
    EXPECT_EQ(KDRString("2.5").toDouble(), 2.5);
    EXPECT_EQ(KDRString().toFloat(), 0.0F);
}

template <class Number>
void expectLimits(Number (KDRString::*convert)(bool*, int) const, char const* largest,
                  char const* tooLarge)
{
    bool ok = false;
    EXPECT_EQ((KDRString(largest).*convert)(&ok, 10), std::numeric_limits<Number>::max());
    EXPECT_TRUE(ok);
    EXPECT_EQ((KDRString(tooLarge).*convert)(&ok, 10), Number{0});
    EXPECT_FALSE(ok);
    EXPECT_EQ((KDRString(" 7 ").*convert)(&ok, 10), Number{7});
    EXPECT_TRUE(ok);
    EXPECT_EQ((KDRString("7f").*convert)(&ok, 16), Number{0x7F});
    EXPECT_EQ((KDRString("z").*convert)(&ok, 36), Number{35});
    EXPECT_EQ((KDRString("0x1F").*convert)(&ok, 0), Number{31});
    EXPECT_EQ((KDRString("017").*convert)(&ok, 0), Number{15});
    EXPECT_EQ((KDRString("17").*convert)(nullptr, 0), Number{17});
    for (int base : {1, 37, -1, INT_MIN, INT_MAX}) {
        ok = true;
        EXPECT_EQ((KDRString("12").*convert)(&ok, base), Number{0});
        EXPECT_FALSE(ok);
    }
    for (char const* text : {"", "x", "7 7", "1.5", "08x"}) {
        ok = true;
        EXPECT_EQ((KDRString(text).*convert)(&ok, 10), Number{0});
        EXPECT_FALSE(ok);
    }
    ok = true;
    if (std::is_signed_v<Number>) {
        EXPECT_EQ((KDRString("-1").*convert)(&ok, 10), static_cast<Number>(-1));
        EXPECT_TRUE(ok);
    } else {
        EXPECT_EQ((KDRString("-1").*convert)(&ok, 10), Number{0});
        EXPECT_FALSE(ok);
    }
}

TEST(StringNumbers, IntegersInEveryTypeAndBase)
{
    expectLimits(&KDRString::toLong, "9223372036854775807", "9223372036854775808");
    expectLimits(&KDRString::toLongLong, "9223372036854775807", "9223372036854775808");
    expectLimits(&KDRString::toUInt, "4294967295", "4294967296");
    expectLimits(&KDRString::toULong, "18446744073709551615", "18446744073709551616");
    expectLimits(&KDRString::toULongLong, "18446744073709551615", "18446744073709551616");
    expectLimits(&KDRString::toUShort, "65535", "65536");
    EXPECT_EQ(KDRString("12").toLong(), 12);
    EXPECT_EQ(KDRString("12").toLongLong(), 12);
    EXPECT_EQ(KDRString("12").toUInt(), 12U);
    EXPECT_EQ(KDRString("12").toULong(), 12U);
    EXPECT_EQ(KDRString("12").toULongLong(), 12U);
    EXPECT_EQ(KDRString("12").toUShort(), 12);
}

TEST(StringNumbers, SetNumReplacesTheText)
{
    KDRString text("before");
    EXPECT_EQ(&text.setNum(-1), &text);
    EXPECT_EQ(text, KDRString("-1"));
    EXPECT_EQ(text.setNum(short{-2}), KDRString("-2"));
    EXPECT_EQ(text.setNum(-3L), KDRString("-3"));
    EXPECT_EQ(text.setNum(-4LL), KDRString("-4"));
    EXPECT_EQ(text.setNum(static_cast<unsigned short>(0xFFFF)), KDRString("65535"));
    EXPECT_EQ(text.setNum(0xFFFFFFFFU), KDRString("4294967295"));
    EXPECT_EQ(text.setNum(ULONG_MAX), KDRString("18446744073709551615"));
    EXPECT_EQ(text.setNum(ULLONG_MAX, 16), KDRString("ffffffffffffffff"));
    EXPECT_EQ(text.setNum(short{-1}, 16), KDRString("ffffffffffffffff"));
    EXPECT_EQ(text.setNum(-1, 16), KDRString("ffffffffffffffff"));
    EXPECT_EQ(text.setNum(static_cast<unsigned short>(0xFFFF), 16), KDRString("ffff"));
    EXPECT_EQ(text.setNum(0xFFFFFFFFU, 16), KDRString("ffffffff"));
}

TEST(StringNumbers, SetNumWritesFloatingPointAndAnyFormatButZeroIsFixed)
{
    KDRString text;
    EXPECT_EQ(&text.setNum(2.5, KDRString::KDRFormatGeneral, 6), &text);
    EXPECT_EQ(text, KDRString("2.5"));
    EXPECT_EQ(text.setNum(2.5, KDRString::KDRFormatFixed, 2), KDRString("2.50"));
    for (int value : {2, -1, 101, INT_MIN}) {
        EXPECT_EQ(text.setNum(2.5, formatOf(value), 2), KDRString("2.50"));
        EXPECT_EQ(text.setNum(2.25F, formatOf(value), 1), KDRString("2.3"));
    }
    EXPECT_EQ(text.setNum(1e20), KDRString("1e+20"));
    EXPECT_EQ(text.setNum(1.0 / 3.0), KDRString("0.333333"));
    EXPECT_EQ(text.setNum(0.1F), KDRString("0.1"));
    EXPECT_EQ(text.setNum(0.1F, formatOf(0), 17), KDRString("0.10000000149011612"))
        << "widened to double first";
    EXPECT_EQ(text.setNum(std::nan("")), KDRString("nan"));
    EXPECT_EQ(text.setNum(-std::numeric_limits<double>::infinity()), KDRString("-inf"));
}

} // namespace
