#include <kdrdata/text/kdrstring.h>

#include "../support/qtprinters.h"

#include <gtest/gtest.h>

#include <QtCore/QLocale>
#include <QtCore/QString>

#include <limits>

// Numbers filled with zeros to great widths, where the library does not leave it to Qt.

namespace {

KDRString textOf(QString const& text) { return {text.utf16(), text.size()}; }

char const* const templates[] = {"%1",        "a %1 b", "%1%1",      "%2 %1 %3 %1",
                                 "%L1",       "%1 %L1", "%L1 x %10", "%12 and %L1",
                                 "no marker", "%L2 %2", "%01 %1 %"};

constexpr int widths[] = {-2000, 0, 5, 999, 1000, 1001, 1002, 1500};

TEST(StringZeros, OfIntegersAreQts)
{
    for (char const* const pattern : templates) {
        for (int const width : widths) {
            for (long long const number :
                 {0LL, 5LL, -5LL, 1234567LL, -1234567LL, std::numeric_limits<long long>::min()}) {
                for (int const base : {2, 10, 16, 36}) {
                    QString const expected = QString(pattern).arg(number, width, base, QChar('0'));
                    EXPECT_EQ(KDRString(pattern).arg(number, width, base, KDRChar('0')),
                              textOf(expected))
                        << pattern << ' ' << number << ' ' << width << ' ' << base;
                }
            }
        }
    }
}

TEST(StringZeros, OfFloatingPointNumbersAreQts)
{
    double const infinity = std::numeric_limits<double>::infinity();
    for (char const* const pattern : templates) {
        for (int const width : widths) {
            for (double const number : {0.0, -0.0, 0.5, -0.5, 1e15, -1e300, infinity, -infinity,
                                        std::numeric_limits<double>::quiet_NaN()}) {
                QString const expected = QString(pattern).arg(number, width, 'f', 3, QChar('0'));
                EXPECT_EQ(KDRString(pattern).arg(number, width, KDRString::KDRFormatFixed, 3,
                                                 KDRChar('0')),
                          textOf(expected))
                    << pattern << ' ' << number << ' ' << width;
            }
        }
    }
}

TEST(StringZeros, OfANumberAsWideAsTheyShouldMakeItAreNone)
{
    for (int const width : {1002, 1003, 1004}) {
        QString const expected = QString("%1").arg(-2.5, width, 'f', 1000, QChar('0'));
        EXPECT_EQ(KDRString("%1").arg(-2.5, width, KDRString::KDRFormatFixed, 1000, KDRChar('0')),
                  textOf(expected))
            << width;
    }
}

TEST(StringZeros, FollowTheDefaultLocaleAtLocalisedMarkers)
{
    QLocale const before;
    for (char const* const name : {"de_DE", "ar_EG", "hi_IN", "fa_IR"}) {
        QLocale::setDefault(QLocale(name));
        for (long long const number : {-1234567LL, 42LL}) {
            QString const expected = QString("%L1 %1").arg(number, 1200, 10, QChar('0'));
            EXPECT_EQ(KDRString("%L1 %1").arg(number, 1200, 10, KDRChar('0')), textOf(expected))
                << name << ' ' << number;
        }
        QString const expected = QString("%L1").arg(-1234.5, 1200, 'f', 2, QChar('0'));
        EXPECT_EQ(KDRString("%L1").arg(-1234.5, 1200, KDRString::KDRFormatFixed, 2, KDRChar('0')),
                  textOf(expected))
            << name;
    }
    QLocale::setDefault(before);
}

TEST(StringZeros, AreNotNeededByNumbersLongerThanTheWidth)
{
    QString const expected = QString("%1").arg(-0.5, 1100, 'f', 1200, QChar('0'));
    EXPECT_EQ(KDRString("%1").arg(-0.5, 1100, KDRString::KDRFormatFixed, 1200, KDRChar('0')),
              textOf(expected));
}

// One by one, these would take hours.
TEST(StringZeros, AreWrittenAtOnce)
{
    constexpr int width = 20000000;
    KDRString const zeros = KDRString("%1").arg(-7, width, 10, KDRChar('0'));
    EXPECT_EQ(zeros.size(), width);
    EXPECT_EQ(zeros.left(3), KDRString("-00"));
    EXPECT_EQ(zeros.right(3), KDRString("007"));
}

} // namespace
