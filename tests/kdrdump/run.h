#ifndef KDRDATA_TESTS_KDRDUMP_RUN_H
#define KDRDATA_TESTS_KDRDUMP_RUN_H

#include "../support/programrun.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>

#include <kdrdata/kdrdata.h>
#include <kdrio/kdrio.h>

/// An empty directory to run kdrdump in.
class Dump : public ProgramRun
{
protected:
    Outcome run(QStringList const& arguments) const { return ProgramRun::run(KDRDUMP, arguments); }

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
