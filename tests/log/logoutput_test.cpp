#include <kdrdata/log/logoutput.h>

#include <gtest/gtest.h>

#include <QtCore/qmetaobject.h>

#include <cstdlib>

namespace {

TEST(LogOutput, IsThereAfterLoadAndStaysTheSame)
{
    LogOutput* const instance = LogOutput::getInstance();
    ASSERT_NE(instance, nullptr);
    EXPECT_EQ(LogOutput::getInstance(), instance);
    EXPECT_EQ(instance->parent(), nullptr);
}

TEST(LogOutput, DiscardsEveryText)
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    LogOutput::getInstance()->outPutMsg(QString());
    LogOutput::getInstance()->outPutMsg(QStringLiteral("text"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(LogOutput, CastsByName)
{
    LogOutput* const log = LogOutput::getInstance();
    EXPECT_EQ(log->qt_metacast("LogOutput"), log);
    EXPECT_EQ(log->qt_metacast("QObject"), static_cast<QObject*>(log));
    EXPECT_EQ(log->qt_metacast("QThread"), nullptr);
    EXPECT_EQ(log->qt_metacast(nullptr), nullptr);
}

TEST(LogOutput, AddsNothingToTheMetaObjectButItsName)
{
    QMetaObject const& meta = LogOutput::staticMetaObject;
    EXPECT_STREQ(meta.className(), "LogOutput");
    EXPECT_EQ(meta.superClass(), &QObject::staticMetaObject);
    EXPECT_EQ(meta.methodCount(), meta.methodOffset());
    EXPECT_EQ(meta.propertyCount(), meta.propertyOffset());
    EXPECT_EQ(meta.enumeratorCount(), meta.enumeratorOffset());
    EXPECT_EQ(meta.classInfoCount(), meta.classInfoOffset());
    EXPECT_EQ(LogOutput::getInstance()->metaObject(), &meta);
}

TEST(LogOutput, ForwardsMetaCallsUnchanged)
{
    // An index past every method of QObject comes back less the methods that QObject has.
    int const beyond = QObject::staticMetaObject.methodCount();
    EXPECT_EQ(LogOutput::getInstance()->qt_metacall(QMetaObject::InvokeMetaMethod, beyond, nullptr),
              0);
}

// Destroying a sink ends the process-wide one, so these run in processes of their own.

TEST(LogOutputDeathTest, ASecondSinkLeavesTheInstanceAlone)
{
    auto const body = [] {
        LogOutput* const instance = LogOutput::getInstance();
        QObject parent;
        auto* const second = new LogOutput(&parent);
        bool const right = second->parent() == &parent && LogOutput::getInstance() == instance;
        std::_Exit(right ? 0 : 1);
    };
    EXPECT_EXIT(body(), testing::ExitedWithCode(0), "");
}

TEST(LogOutputDeathTest, DestroyingAnySinkEndsTheInstanceOnce)
{
    auto const body = [] {
        int ended = 0;
        QObject::connect(LogOutput::getInstance(), &QObject::destroyed, [&ended] { ++ended; });
        auto* const second = new LogOutput(nullptr);
        delete second;
        std::_Exit(ended == 1 && LogOutput::getInstance() == nullptr ? 0 : 1);
    };
    EXPECT_EXIT(body(), testing::ExitedWithCode(0), "");
}

TEST(LogOutputDeathTest, DestroyingTheInstanceTerminates)
{
    auto const body = [] {
        delete LogOutput::getInstance();
        bool const ended = LogOutput::getInstance() == nullptr;
        {
            LogOutput const later(nullptr);
        }
        std::_Exit(ended && LogOutput::getInstance() == nullptr ? 0 : 1);
    };
    EXPECT_EXIT(body(), testing::ExitedWithCode(0), "");
}

TEST(LogOutputDeathTest, AParentDestroysItsSink)
{
    auto const body = [] {
        {
            QObject parent;
            new LogOutput(&parent);
        }
        std::_Exit(LogOutput::getInstance() == nullptr ? 0 : 1);
    };
    EXPECT_EXIT(body(), testing::ExitedWithCode(0), "");
}

TEST(LogOutputDeathTest, DestroyingAChildOfTheInstanceTerminates)
{
    auto const child = [] {
        delete new LogOutput(LogOutput::getInstance());
        std::_Exit(LogOutput::getInstance() == nullptr ? 0 : 1);
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
    auto const grandchild = [] {
        auto* const between = new QObject(LogOutput::getInstance());
        delete new LogOutput(between);
        std::_Exit(LogOutput::getInstance() == nullptr ? 0 : 1);
    };
    EXPECT_EXIT(grandchild(), testing::ExitedWithCode(0), "");
}

} // namespace
