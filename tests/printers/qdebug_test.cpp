#include <kdrdata/debug/qdebug.h>

#include "../support/everyvalue.h"

#include <QtCore/QPoint>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace {

template <class Value, class = void>
struct IsStreamed : std::false_type
{
};

template <class Value>
struct IsStreamed<Value,
                  decltype(void(operator<<(std::declval<QDebug>(), std::declval<Value const&>())))>
    : std::true_type
{
};

struct NoValue
{
};

struct Number
{
    operator KDRNumber() const { return KDRNumber(1); }
};

} // namespace

TEST(QDebugStreaming, WritesTheTextFormOfEveryClass)
{
    EveryValue const values;
    values.visit([](char const* name, auto const& value) {
        QString written;
        QDebug(&written) << value;
        EXPECT_EQ(written.trimmed().toStdString(), KDRDebug::text(value)) << name;
    });
}

TEST(QDebugStreaming, KeepsTheSpacesAndTheQuotesOfTheStream)
{
    QString written;
    QDebug(&written) << "threshold" << KDRNumber(128) << QString("a") << KDRString("b") << 1;
    EXPECT_EQ(written.trimmed(), QString("threshold 128 (int) \"a\" \"b\" 1"));

    written.clear();
    QDebug(&written).nospace() << KDRNumber(1) << KDRNumber(2);
    EXPECT_EQ(written, QString("1 (int)2 (int)"));
}

TEST(QDebugStreaming, TakesNoValueThatMerelyConverts)
{
    EXPECT_TRUE(IsStreamed<KDRNumber>::value);
    EXPECT_FALSE(IsStreamed<NoValue>::value);
    EXPECT_FALSE(IsStreamed<Number>::value);
}
