#ifndef KDRDATA_TESTS_PROGRAMRUN_H
#define KDRDATA_TESTS_PROGRAMRUN_H

// Tests that run a program as a user does and judge what it says and writes.

#include <QtCore/qcoreapplication.h>
#include <QtCore/qprocess.h>
#include <QtCore/qstring.h>
#include <QtCore/qtemporarydir.h>
#include <gtest/gtest.h>

/// What one run of a program left behind.
struct Outcome
{
    int status;
    QString out;
    QString err;
};

/// An empty directory to run a program in.
class ProgramRun : public testing::Test
{
protected:
    /// Runs @p program, a path, in the directory; fails where it does not end by itself in time.
    Outcome run(char const* program, QStringList const& arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(directory.path());
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished(100000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    QString file(QString const& name) const { return directory.filePath(name); }

private:
    int argc = 1;
    char word[5] = "test";
    char* argv[2] = {word, nullptr};
    QCoreApplication application{argc, argv};

protected:
    QTemporaryDir const directory;
};

#endif
