// Runs the program as a user does and judges what it says and writes. Its pictures are read and
// made with OpenCV, not with the library.

#include <QtCore/qcoreapplication.h>
#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qprocess.h>
#include <QtCore/qregularexpression.h>
#include <QtCore/qtemporarydir.h>
#include <gtest/gtest.h>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

namespace {

struct Part
{
    double x, y, area, perimeter;
};

// What one run of the program left behind.
struct Outcome
{
    int status;
    QString out;
    QString err;

    std::vector<Part> parts() const
    {
        static QRegularExpression const row("^ +\\d+ +([\\d.]+) +([\\d.]+) +([\\d.]+) +([\\d.]+)$",
                                            QRegularExpression::MultilineOption);
        std::vector<Part> result;
        for (auto rows = row.globalMatch(out); rows.hasNext();) {
            QRegularExpressionMatch const match = rows.next();
            result.push_back({match.captured(1).toDouble(), match.captured(2).toDouble(),
                              match.captured(3).toDouble(), match.captured(4).toDouble()});
        }
        return result;
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

// Three disks of radius 30, 40 and 50 pixels, 640 x 240.
cv::Mat disks(int type, cv::Scalar const& ground, cv::Scalar const& part)
{
    cv::Mat pixels(240, 640, type, ground);
    cv::circle(pixels, {100, 120}, 30, part, cv::FILLED);
    cv::circle(pixels, {300, 100}, 40, part, cv::FILLED);
    cv::circle(pixels, {520, 140}, 50, part, cv::FILLED);
    return pixels;
}

void expectTheDisks(Outcome const& run)
{
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    std::vector<Part> const parts = run.parts();
    ASSERT_EQ(parts.size(), 3U);
    double const known[3][3] = {{100, 120, 30}, {300, 100, 40}, {520, 140, 50}};
    for (std::size_t i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        double const radius = known[i][2];
        EXPECT_NEAR(parts[i].x, known[i][0], 0.5);
        EXPECT_NEAR(parts[i].y, known[i][1], 0.5);
        EXPECT_NEAR(parts[i].area, CV_PI * radius * radius, 0.1 * CV_PI * radius * radius);
        EXPECT_NEAR(parts[i].perimeter, 2.0 * CV_PI * radius, 0.1 * 2.0 * CV_PI * radius);
    }
}

TEST_F(example, inspect_finds_24_coins)
{
    Outcome const run = inspect({COINS});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(run.out.contains("\nFound 24 parts in " COINS " (384 x 303 pixels).\n"))
        << run.out.toStdString();
    EXPECT_TRUE(run.out.endsWith(": " + QDir(file(".")).canonicalPath() + "/coins-found.png\n"))
        << run.out.toStdString();

    // Coins, not bits of them and not two in one: all round, none overlapping another.
    std::vector<Part> const parts = run.parts();
    ASSERT_EQ(parts.size(), 24U);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        SCOPED_TRACE(i + 1);
        Part const& part = parts[i];
        EXPECT_GT(4.0 * CV_PI * part.area / (part.perimeter * part.perimeter), 0.8);
        for (std::size_t j = 0; j < i; ++j) {
            double const apart = std::hypot(part.x - parts[j].x, part.y - parts[j].y);
            EXPECT_GT(apart, std::sqrt(part.area / CV_PI) + std::sqrt(parts[j].area / CV_PI));
        }
    }
}

TEST_F(example, inspect_draws_the_outlines_in_colour)
{
    ASSERT_EQ(inspect({COINS}).status, 0);
    EXPECT_EQ(files(), QStringList("coins-found.png"));
    cv::Mat const drawing = picture("coins-found.png");
    EXPECT_EQ(drawing.size(), cv::Size(384, 303));
    ASSERT_EQ(drawing.type(), CV_8UC3);

    // On a grey photograph, only the outlines are coloured: 24 rings, nothing else.
    std::vector<cv::Mat> planes;
    cv::split(drawing, planes);
    cv::Mat const coloured = planes[1] - planes[2] > 30;
    std::vector<std::vector<cv::Point>> rings;
    std::vector<cv::Vec4i> nesting;
    cv::findContours(coloured, rings, nesting, cv::RETR_CCOMP, cv::CHAIN_APPROX_NONE);
    int outer = 0;
    int withHole = 0;
    for (cv::Vec4i const& links : nesting) {
        bool const isOuter = links[3] < 0;
        outer += isOuter ? 1 : 0;
        withHole += isOuter && links[2] >= 0 ? 1 : 0;
    }
    EXPECT_EQ(outer, 24);
    EXPECT_EQ(withHole, 24);
}

TEST_F(example, inspect_writes_where_it_is_told)
{
    Outcome const run = inspect({"--out", "here.tif", COINS});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(files(), QStringList("here.tif"));
    EXPECT_EQ(picture("here.tif").size(), cv::Size(384, 303));
    EXPECT_TRUE(run.out.endsWith("/here.tif\n"));
}

TEST_F(example, inspect_describes_its_parameters)
{
    write("disks.png", disks(CV_8UC1, 40, 200));
    QString const out = inspect({"disks.png"}).out;
    EXPECT_TRUE(out.contains(QRegularExpression("\n  path +iType:2,length:9 +disks.png\n")));
    // The step reader answers the minimum.
    EXPECT_TRUE(out.contains(QRegularExpression("\n  level +iType:1,Max:254,Min:8,step:8 +\\d+\n")))
        << out.toStdString();
    EXPECT_TRUE(
        out.contains(QRegularExpression("\n  smallest +iType:1,Max:153600,Min:1,step:1 +154\n")))
        << out.toStdString();
}

TEST_F(example, inspect_shares_one_store_for_each_value)
{
    write("disks.png", disks(CV_8UC1, 40, 200));
    QString const out = inspect({"disks.png"}).out;
    // Name, kind, handles, stores: what the first tool adds is handed on by six more.
    EXPECT_TRUE(out.contains(QRegularExpression("\n  image +4 +7 +1\n"))) << out.toStdString();
    EXPECT_TRUE(out.contains(QRegularExpression("\n  drawing +4 +1 +1\n"))) << out.toStdString();
    EXPECT_TRUE(out.contains(QRegularExpression("\n  level +1 +5 +1\n"))) << out.toStdString();
    EXPECT_TRUE(out.contains(QRegularExpression("\n  areas +1001 +2 +- "))) << out.toStdString();
}

TEST_F(example, inspect_measures_parts_in_grey_colour_and_deep_pictures)
{
    struct
    {
        char const* name;
        cv::Mat pixels;
    } const pictures[] = {
        {"grey.png", disks(CV_8UC1, 40, 200)},
        {"dark-parts.png", disks(CV_8UC1, 220, 60)},
        {"colour.png", disks(CV_8UC3, {200, 180, 160}, {40, 60, 200})},
        {"opacity.png", disks(CV_8UC4, {30, 30, 30, 255}, {200, 150, 100, 255})},
        {"twelve-of-16-bits.png", disks(CV_16UC1, 300, 3800)},
        {"16-bit-colour.tif", disks(CV_16UC3, {300, 300, 300}, {9000, 50000, 60000})},
    };
    for (auto const& [name, pixels] : pictures) {
        SCOPED_TRACE(name);
        write(name, pixels);
        expectTheDisks(inspect({name, "--out", "out.png"}));
        EXPECT_EQ(picture("out.png").size(), pixels.size());
        EXPECT_EQ(picture("out.png").type(), CV_8UC3);
    }
}

TEST_F(example, inspect_leaves_out_parts_that_the_edge_cuts)
{
    cv::Mat pixels = disks(CV_8UC1, 40, 200);
    cv::circle(pixels, {639, 20}, 25, 200, cv::FILLED);
    write("cut.png", pixels);
    Outcome const run = inspect({"cut.png"});
    expectTheDisks(run);
    EXPECT_TRUE(run.out.contains("pixels), and 1 cut by its edge.\n")) << run.out.toStdString();
}

TEST_F(example, inspect_finds_nothing_in_an_even_picture)
{
    write("even.png", cv::Mat(100, 100, CV_8UC1, cv::Scalar(77)));
    write("dot.png", cv::Mat(1, 1, CV_8UC1, cv::Scalar(77)));
    for (char const* name : {"even.png", "dot.png"}) {
        SCOPED_TRACE(name);
        Outcome const run = inspect({name});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_TRUE(run.out.contains("\nFound 0 parts in "));
    }
}

TEST_F(example, inspect_refuses_in_one_line_with_status_2)
{
    write("good.png", disks(CV_8UC1, 40, 200));
    write("floating.tif", disks(CV_32FC1, 0.1, 0.9));
    QFile good(file("good.png"));
    ASSERT_TRUE(good.open(QIODevice::ReadOnly));
    QFile broken(file("broken.png"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write(good.readAll().left(500));
    broken.close();
    QStringList const before = files();

    std::pair<QStringList, char const*> const refusals[] = {
        {{}, "usage: inspect IMAGE [--out FILE]"},
        {{"good.png", "good.png"}, "usage: inspect IMAGE [--out FILE]"},
        {{"good.png", "--out"}, "usage: inspect IMAGE [--out FILE]"},
        {{"good.png", "--fast"}, "Unknown option 'fast'"},
        {{"missing.png"}, "there is no file 'missing.png'"},
        {{""}, "there is no file ''"},
        {{"broken.png"}, "'broken.png' cannot be read as a picture"},
        {{"."}, "'.' cannot be read as a picture"},
        {{"floating.tif"}, "'floating.tif' has floating-point values"},
        {{"good.png", "--out", "no/such/directory.png"}, "cannot write 'no/such/directory.png'"},
        {{"good.png", "--out", "out.gif"}, "cannot write 'out.gif'"},
        {{"good.png", "--out", ""}, "cannot write ''"},
    };
    for (auto const& [arguments, why] : refusals) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        Outcome const run = inspect(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_TRUE(run.err.startsWith("inspect: ")) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(why)) << run.err.toStdString();
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
        EXPECT_TRUE(run.err.endsWith('\n'));
        EXPECT_EQ(files(), before);
    }
}

} // namespace
