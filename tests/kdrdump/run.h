#ifndef KDRDATA_TESTS_KDRDUMP_RUN_H
#define KDRDATA_TESTS_KDRDUMP_RUN_H

// The tests run the program as a user does and judge what it says and writes.

#include <QtCore/qcoreapplication.h>
#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qprocess.h>
#include <QtCore/qtemporarydir.h>
#include <gtest/gtest.h>

#include <kdrdata/kdrdata.h>
#include <kdrio/kdrio.h>

/// What one run of the program left behind.
struct Outcome
{
    int status;
    QString out;
    QString err;
};

/// An empty directory to run in.
class Dump : public testing::Test
{
protected:
    Outcome run(QStringList const& arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(directory.path());
        process.start(KDRDUMP, arguments);
        EXPECT_TRUE(process.waitForFinished(100000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    /// What a run that succeeds prints.
    std::string printed(QStringList const& arguments) const
    {
        Outcome const outcome = run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err.toStdString();
        EXPECT_EQ(outcome.err, "");
        return outcome.out.toStdString();
    }

    /// What a run that fails says: one line, and nothing else.
    std::string refused(QStringList const& arguments) const
    {
        Outcome const outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err.count('\n'), 1) << outcome.err.toStdString();
        EXPECT_TRUE(outcome.err.endsWith('\n'));
        EXPECT_TRUE(outcome.err.startsWith("kdrdump: "));
        return outcome.err.mid(9).trimmed().toStdString();
    }

    QString file(QString const& name) const { return directory.filePath(name); }

    QStringList files() const
    {
        return QDir(directory.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    QByteArray read(QString const& name) const
    {
        QFile read(file(name));
        EXPECT_TRUE(read.open(QIODevice::ReadOnly)) << name.toStdString();
        return read.readAll();
    }

    /// Saves a value as `value.kdr`.
    void save(KDRVariant const& value) const
    {
        kdrio::Error error;
        QByteArray const path = file("value.kdr").toUtf8();
        EXPECT_TRUE(kdrio::save(value, KDRString().fromUtf8(path.constData()), &error))
            << error.line().toUtf8().constData();
    }

private:
    int argc = 1;
    char word[5] = "test";
    char* argv[2] = {word, nullptr};
    QCoreApplication application{argc, argv};
    QTemporaryDir directory;
};

/// A list of variants.
inline KDRVariant listOf(std::initializer_list<KDRVariant> values)
{
    KDRVariantArray list;
    for (KDRVariant const& value : values)
        list.push_back(value);
    return KDRVariant(list);
}

inline KDRShape circleAt(double x, double y, double radius)
{
    KDRPoint centre(x, y);
    KDRShape shape;
    shape.fromCircle(centre, radius);
    return shape;
}

#endif
