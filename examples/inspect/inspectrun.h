#ifndef EXAMPLES_INSPECT_INSPECTRUN_H
#define EXAMPLES_INSPECT_INSPECTRUN_H

// The pictures of the tests are read and made with OpenCV, not with the library.

#include "../../tests/support/programrun.h"

#include <QtCore/qdir.h>
#include <QtCore/qregularexpression.h>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

// Whether the report has a line that matches the whole pattern.
inline bool says(Outcome const& run, QString const& pattern)
{
    return QRegularExpression("^" + pattern + "$", QRegularExpression::MultilineOption)
        .match(run.out)
        .hasMatch();
}

// An empty directory to run the program in.
class example : public ProgramRun
{
protected:
    Outcome inspect(QStringList const& arguments) const { return run(INSPECT, arguments); }

    QStringList files() const { return QDir(directory.path()).entryList(QDir::Files); }

    cv::Mat picture(QString const& name) const
    {
        return cv::imread(file(name).toStdString(), cv::IMREAD_UNCHANGED);
    }

    void write(QString const& name, cv::Mat const& pixels) const
    {
        ASSERT_TRUE(cv::imwrite(file(name).toStdString(), pixels));
    }
};

#endif
