#ifndef EXAMPLES_INSPECT_INSPECTRUN_H
#define EXAMPLES_INSPECT_INSPECTRUN_H

// The tests run the program as a user does and judge what it says and writes. Their pictures are
// read and made with OpenCV, not with the library.

#include <QtCore/qcoreapplication.h>
#include <QtCore/qdir.h>
#include <QtCore/qprocess.h>
#include <QtCore/qregularexpression.h>
#include <QtCore/qtemporarydir.h>
#include <gtest/gtest.h>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

// What one run of the program left behind.
struct Outcome
{
    int status;
    QString out;
    QString err;

    // Whether the report has a line that matches the whole pattern.
    bool says(QString const& pattern) const
    {
        return QRegularExpression("^" + pattern + "$", QRegularExpression::MultilineOption)
            .match(out)
            .hasMatch();
    }
};

// An empty directory to run in.
class example : public testing::Test
{
protected:
    Outcome inspect(QStringList const& arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(directory.path());
        process.start(INSPECT, arguments);
        EXPECT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), QString::fromLocal8Bit(process.readAllStandardOutput()),
                QString::fromLocal8Bit(process.readAllStandardError())};
    }

    QString file(QString const& name) const { return directory.filePath(name); }

    QStringList files() const { return QDir(directory.path()).entryList(QDir::Files); }

    cv::Mat picture(QString const& name) const
    {
        return cv::imread(file(name).toStdString(), cv::IMREAD_UNCHANGED);
    }

    void write(QString const& name, cv::Mat const& pixels) const
    {
        ASSERT_TRUE(cv::imwrite(file(name).toStdString(), pixels));
    }

private:
    int argc = 1;
    char word[5] = "test";
    char* argv[2] = {word, nullptr};
    QCoreApplication application{argc, argv};
    QTemporaryDir directory;
};

#endif
