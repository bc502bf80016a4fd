#include <kdrdata/testing/qtestprinters.h>

#include "../support/everyvalue.h"

#include <QtTest/QtTest>

#include <gtest/gtest.h>

#include <memory>
#include <string>

// What a user of Qt Test writes.
class Comparison : public QObject
{
    Q_OBJECT

private slots:
    void fails() { QCOMPARE(KDRString("left"), KDRString("right")); }
};

namespace {

// As QCOMPARE asks for the text of a value.
template <class Value>
std::string shown(Value const& value)
{
    using QTest::toString;
    std::unique_ptr<char[]> const text(toString(value));
    return text ? text.get() : "";
}

} // namespace

TEST(QTestPrinters, ShowTheTextFormOfEveryClass)
{
    EveryValue const values;
    values.visit([](char const* name, auto const& value) {
        EXPECT_EQ(shown(value), KDRDebug::text(value)) << name;
    });
}

TEST(QTestPrinters, ShowBothValuesOfAFailedComparison)
{
    Comparison comparison;
    testing::internal::CaptureStdout();
    int const failures = QTest::qExec(&comparison, QStringList("comparison"));
    std::string const report = testing::internal::GetCapturedStdout();
    EXPECT_EQ(failures, 1);
    EXPECT_NE(report.find("\"left\""), std::string::npos) << report;
    EXPECT_NE(report.find("\"right\""), std::string::npos) << report;
}

TEST(QTestPrinters, LeaveOtherTypesToQtTest)
{
    EXPECT_EQ(shown(QString("text")), "\"text\"");
    EXPECT_EQ(shown(5), "5");
}

#include "qtestprinters_test.moc"
