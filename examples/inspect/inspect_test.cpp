// What the program says of the parts in a picture.

#include "inspectrun.h"

#include <kdrdata/kdrdata.h>
#include <kdrio/kdrio.h>

#include <QtCore/qfile.h>
#include <algorithm>
#include <cmath>

namespace {

struct Part
{
    double x, y, area, perimeter, radius, halfLength, halfWidth, angle;
    bool round;
};

// The rows of the table of parts.
std::vector<Part> partsIn(Outcome const& run)
{
    QString const number = " +(-?[\\d.]+)";
    static QRegularExpression const row("^ +\\d+" + number.repeated(8) + "  (yes|no)$",
                                        QRegularExpression::MultilineOption);
    std::vector<Part> parts;
    for (auto rows = row.globalMatch(run.out); rows.hasNext();) {
        QRegularExpressionMatch const match = rows.next();
        auto const cell = [&](int column) { return match.captured(column).toDouble(); };
        parts.push_back({cell(1), cell(2), cell(3), cell(4), cell(5), cell(6), cell(7), cell(8),
                         match.captured(9) == "yes"});
    }
    return parts;
}

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
    std::vector<Part> const parts = partsIn(run);
    ASSERT_EQ(parts.size(), 3U);
    double const known[3][3] = {{100, 120, 30}, {300, 100, 40}, {520, 140, 50}};
    for (std::size_t i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        double const radius = known[i][2];
        EXPECT_NEAR(parts[i].x, known[i][0], 0.3);
        EXPECT_NEAR(parts[i].y, known[i][1], 0.3);
        EXPECT_NEAR(parts[i].area, CV_PI * radius * radius, 0.1 * CV_PI * radius * radius);
        EXPECT_NEAR(parts[i].perimeter, 2.0 * CV_PI * radius, 0.1 * 2.0 * CV_PI * radius);
        EXPECT_NEAR(parts[i].radius, radius, 1.0);
        EXPECT_NEAR(parts[i].halfLength, radius, 1.5);
        EXPECT_NEAR(parts[i].halfWidth, radius, 1.5);
        EXPECT_TRUE(parts[i].round);
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
    EXPECT_TRUE(says(run, "    10    features +3 x 24"));

    // Coins, not bits of them and not two in one: all round, none overlapping another.
    std::vector<Part> const parts = partsIn(run);
    ASSERT_EQ(parts.size(), 24U);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        SCOPED_TRACE(i + 1);
        Part const& part = parts[i];
        EXPECT_TRUE(part.round);
        EXPECT_GT(4.0 * CV_PI * part.area / (part.perimeter * part.perimeter), 0.8);
        for (std::size_t j = 0; j < i; ++j) {
            double const apart = std::hypot(part.x - parts[j].x, part.y - parts[j].y);
            EXPECT_GT(apart, std::sqrt(part.area / CV_PI) + std::sqrt(parts[j].area / CV_PI));
        }
    }
}

// Where a colour channel (0 blue, 1 green, 2 red) is well above both others. In a grey photograph,
// only drawn lines are.
cv::Mat linesIn(cv::Mat const& drawing, int channel)
{
    std::vector<cv::Mat> planes;
    cv::split(drawing, planes);
    cv::Mat others;
    cv::max(planes[static_cast<std::size_t>((channel + 1) % 3)],
            planes[static_cast<std::size_t>((channel + 2) % 3)], others);
    return planes[static_cast<std::size_t>(channel)] - others > 60;
}

// The share of points along a closed chain that have a set pixel of `lines` at most 2 pixels off.
double shareOn(cv::Mat const& lines, std::vector<cv::Point2d> const& chain)
{
    cv::Mat wide;
    cv::dilate(lines, wide, cv::Mat::ones(5, 5, CV_8U));
    cv::Rect const inside({}, lines.size());
    int on = 0;
    int all = 0;
    for (std::size_t i = 0; i < chain.size(); ++i) {
        cv::Point2d const step = (chain[(i + 1) % chain.size()] - chain[i]) / 20.0;
        for (int j = 0; j < 20; ++j) {
            cv::Point const place(chain[i] + step * j);
            if (!inside.contains(place))
                continue;
            ++all;
            on += wide.at<uchar>(place) != 0 ? 1 : 0;
        }
    }
    return static_cast<double>(on) / all;
}

TEST_F(example, inspect_draws_borders_circles_and_rectangles_in_colour)
{
    Outcome const run = inspect({COINS});
    ASSERT_EQ(run.status, 0);
    EXPECT_EQ(files(), QStringList("coins-found.png"));
    cv::Mat const drawing = picture("coins-found.png");
    int const scale = 3;
    EXPECT_EQ(drawing.size(), cv::Size(scale * 384, scale * 303));
    ASSERT_EQ(drawing.type(), CV_8UC3);
    cv::Mat const green = linesIn(drawing, 1);
    cv::Mat const red = linesIn(drawing, 2);
    cv::Mat const blue = linesIn(drawing, 0);

    // The borders are 24 green rings.
    std::vector<std::vector<cv::Point>> borders;
    std::vector<cv::Vec4i> nesting;
    cv::findContours(green, borders, nesting, cv::RETR_CCOMP, cv::CHAIN_APPROX_NONE);
    int outer = 0;
    int withHole = 0;
    std::vector<Part> const parts = partsIn(run);
    ASSERT_EQ(parts.size(), 24U);
    for (std::size_t i = 0; i < borders.size(); ++i) {
        if (nesting[i][3] >= 0)
            continue;
        ++outer;
        withHole += nesting[i][2] >= 0 ? 1 : 0;

        // The part whose border it is.
        auto const part = std::find_if(parts.begin(), parts.end(), [&](Part const& each) {
            cv::Point2f const centre(static_cast<float>(scale * each.x),
                                     static_cast<float>(scale * each.y));
            return cv::pointPolygonTest(borders[i], centre, false) > 0;
        });
        ASSERT_NE(part, parts.end());
        SCOPED_TRACE(part - parts.begin() + 1);

        // Around it stands a blue rectangle, the smallest, as the table has it.
        cv::RotatedRect const box = cv::minAreaRect(borders[i]);
        double const longer = std::max(box.size.width, box.size.height) / scale;
        double const shorter = std::min(box.size.width, box.size.height) / scale;
        EXPECT_NEAR(part->halfLength, longer / 2.0, 1.0);
        EXPECT_NEAR(part->halfWidth, shorter / 2.0, 1.0);
        double const radians = part->angle * CV_PI / 180.0;
        cv::Point2d const along =
            cv::Point2d(std::cos(radians), std::sin(radians)) * (scale * part->halfLength);
        cv::Point2d const across =
            cv::Point2d(-std::sin(radians), std::cos(radians)) * (scale * part->halfWidth);
        cv::Point2d const middle = box.center;
        std::vector<cv::Point2d> const sides = {middle - along - across, middle + along - across,
                                                middle + along + across, middle - along + across};
        EXPECT_GT(shareOn(blue | green | red, sides), 0.9);
        EXPECT_GT(shareOn(blue, sides), 0.6);

        // And a circle, red where no border lies on it.
        std::vector<cv::Point2d> circle;
        for (int degrees = 0; degrees < 360; degrees += 4)
            circle.emplace_back(
                scale * (part->x + part->radius * std::cos(degrees * CV_PI / 180.0)),
                scale * (part->y + part->radius * std::sin(degrees * CV_PI / 180.0)));
        EXPECT_GT(shareOn(red | green, circle), 0.95);
        EXPECT_GT(shareOn(red, circle), 0.2);
    }
    EXPECT_EQ(outer, 24);
    EXPECT_EQ(withHole, 24);
}

TEST_F(example, inspect_writes_where_it_is_told)
{
    Outcome const run = inspect({"--out", "here.tif", COINS});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(files(), QStringList("here.tif"));
    EXPECT_EQ(picture("here.tif").size(), cv::Size(3 * 384, 3 * 303));
    EXPECT_TRUE(run.out.endsWith("/here.tif\n"));
}

TEST_F(example, inspect_tells_which_figures_survive_the_core_record)
{
    Outcome const run = inspect({COINS});
    // Figure, how many, kind, type of the record, kind that came back.
    for (char const* row : {
             "  circle +24 +2 +1 +2  survives",
             "  rectangle +24 +4 +6 +4  survives",
             "  line +1 +5 +7 +5  survives",
             "  arrow +1 +12 +7 +5  comes back as line",
             "  ellipse +1 +6 +8 +6  survives",
             "  arc +1 +7 +9 +7  survives",
             "  polygon +1 +8 +4 +8  survives",
             "  torus +1 +3 +2 +3  survives",
             "  text +1 +11 +3 +99  leaves no trace",
             "  region +1 +10 +3 +99  leaves no trace",
         })
        EXPECT_TRUE(says(run, row)) << row << '\n' << run.out.toStdString();
}

TEST_F(example, inspect_packs_parameters_shapes_results_and_flags_into_a_recipe)
{
    write("disks.png", disks(CV_8UC1, 40, 200));
    Outcome const run = inspect({"disks.png"});
    int const start = run.out.indexOf("\nThe recipe, read back from a copy\n");
    ASSERT_GE(start, 0);
    Outcome const recipe{0, run.out.mid(start), ""};
    // Kind, name and value; numbers with their range, of which the step reader answers the minimum.
    // What lies in a nested array is indented.
    for (char const* line : {
             "  1800  parameters",
             "     2    path +disks\\.png",
             "     1    level +\\d+  iType:1,Max:254,Min:8,step:8",
             "     1    smallest +154  iType:1,Max:153600,Min:1,step:1",
             "     1    round from +0\\.8  iType:1,Max:1,Min:0,step:0",
             "  1800  shapes",
             "     5    parts +region: pixels \\d+, runs \\d+",
             "  1006    circles +3 figures, the first a circle: x [\\d.]+, y [\\d.]+, radius .*",
             "  1006    rectangles +3 figures, the first a rectangle: .*",
             "  1800  results",
             "    10    features +3 x 3",
             "  1001    roundness +3 numbers: 0\\.\\d+, 0\\.\\d+, 0\\.\\d+",
             "    10    conversions +4 x 14",
             "  1800    largest part",
             "     1      number +3  iType:1,Max:3,Min:1,step:1",
             "     5      circle +circle: x (519|520)\\.?\\d*, y (139|140)\\.?\\d*, radius .*",
             "     5      rectangle +rectangle: .*",
             "  1800  flags",
             "  1000    is round +3 of 3 yes",
             "     0    all inside +yes",
         })
        EXPECT_TRUE(says(recipe, line)) << line << '\n' << recipe.out.toStdString();

    // The outlines run through the middles of a region's outermost pixels, half of each of which
    // lies outside. Outlines have fewer pixels than they are long, since they go across some.
    QRegularExpression const region("  parts +region: pixels (\\d+),");
    double const pixels = region.match(recipe.out).captured(1).toDouble();
    double areas = 0.0;
    double perimeters = 0.0;
    for (Part const& part : partsIn(run)) {
        areas += part.area;
        perimeters += part.perimeter;
    }
    EXPECT_GT(pixels, areas + 0.4 * perimeters);
    EXPECT_LT(pixels, areas + 0.5 * perimeters + 3.0);
}

TEST_F(example, inspect_tells_round_parts_from_others)
{
    cv::Mat pixels = disks(CV_8UC1, 40, 200);
    cv::rectangle(pixels, {180, 170}, {420, 200}, 200, cv::FILLED);
    write("bar.png", pixels);
    Outcome const run = inspect({"bar.png"});
    std::vector<Part> const parts = partsIn(run);
    ASSERT_EQ(parts.size(), 4U);
    for (Part const& part : parts) {
        SCOPED_TRACE(part.x);
        bool const isBar = part.halfLength > 100.0;
        EXPECT_EQ(part.round, !isBar);
        if (isBar) {
            EXPECT_NEAR(part.halfLength, 120.0, 3.0);
            EXPECT_NEAR(part.halfWidth, 15.0, 3.0);
            EXPECT_NEAR(std::remainder(part.angle, 180.0), 0.0, 1.0);
        }
    }
    EXPECT_TRUE(says(run, "  1000    is round +3 of 4 yes")) << run.out.toStdString();
}

TEST_F(example, inspect_shares_one_store_for_each_value)
{
    write("disks.png", disks(CV_8UC1, 40, 200));
    Outcome const run = inspect({"disks.png"});
    // Name, kind, handles, stores: what the first of ten tools adds is handed on by nine more.
    for (char const* row : {
             "  image +4 +10 +1",
             "  drawing +4 +2 +1",
             "  level +1 +8 +1",
             "  mask +5 +7 +1",
             "  circles +1006 +5 +1",
             "  features +10 +4 +1",
             "  is round +1000 +4 +1",
             "  recipe +1800 +1 +1",
             "  roundness +1001 +4 +-  .*",
         })
        EXPECT_TRUE(says(run, row)) << row << '\n' << run.out.toStdString();
}

// Pictures with the disks in them.
class pictures : public example
{
protected:
    void expectTheDisksIn(char const* name, cv::Mat const& pixels) const
    {
        SCOPED_TRACE(name);
        write(name, pixels);
        expectTheDisks(inspect({name, "--out", "out.png"}));
        EXPECT_EQ(picture("out.png").size(), pixels.size()); // large enough, not enlarged
        EXPECT_EQ(picture("out.png").type(), CV_8UC3);
    }
};

TEST_F(pictures, inspect_measures_parts_in_8_bits)
{
    expectTheDisksIn("grey.png", disks(CV_8UC1, 40, 200));
    expectTheDisksIn("dark-parts.png", disks(CV_8UC1, 220, 60));
    expectTheDisksIn("colour.png", disks(CV_8UC3, {200, 180, 160}, {40, 60, 200}));
    expectTheDisksIn("opacity.png", disks(CV_8UC4, {30, 30, 30, 255}, {200, 150, 100, 255}));
}

TEST_F(pictures, inspect_measures_parts_in_deep_pictures)
{
    expectTheDisksIn("twelve-of-16-bits.png", disks(CV_16UC1, 300, 3800));
    expectTheDisksIn("16-bit-colour.tif", disks(CV_16UC3, {300, 300, 300}, {9000, 50000, 60000}));
}

TEST_F(example, inspect_leaves_out_parts_that_the_edge_cuts)
{
    cv::Mat pixels = disks(CV_8UC1, 40, 200);
    cv::circle(pixels, {639, 20}, 25, 200, cv::FILLED);
    write("cut.png", pixels);
    Outcome const run = inspect({"cut.png"});
    expectTheDisks(run);
    EXPECT_TRUE(run.out.contains("pixels), and 1 cut by its edge.\n")) << run.out.toStdString();
    EXPECT_TRUE(says(run, "     0    all inside +no"));
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
        EXPECT_TRUE(says(run, "  1006    circles +0 figures")) << run.out.toStdString();
    }
}

// Each run says why in one line on the error output, and nothing else happens.
class refusals : public example
{
protected:
    void expectRefused(QStringList const& arguments, char const* why) const
    {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        QStringList const before = files();
        Outcome const run = inspect(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_TRUE(run.err.startsWith("inspect: ")) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(why)) << run.err.toStdString();
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
        EXPECT_TRUE(run.err.endsWith('\n'));
        EXPECT_EQ(files(), before);
    }
};

TEST_F(refusals, inspect_refuses_wrong_arguments)
{
    write("good.png", disks(CV_8UC1, 40, 200));
    char const* const usage = "usage: inspect IMAGE [--out FILE] [--report FILE] [--save FILE], or "
                              "inspect --drawn-part [--out FILE] [--report FILE] [--save FILE]\n";
    expectRefused({}, usage);
    expectRefused({"good.png", "good.png"}, usage);
    expectRefused({"good.png", "--out"}, usage);
    expectRefused({"good.png", "--report"}, usage);
    expectRefused({"good.png", "--drawn-part"}, "name no picture for the drawn part; usage: ");
    expectRefused({"good.png", "--fast"}, "Unknown option 'fast'");
}

TEST_F(refusals, inspect_refuses_pictures_that_it_cannot_read)
{
    write("good.png", disks(CV_8UC1, 40, 200));
    write("floating.tif", disks(CV_32FC1, 0.1, 0.9));
    QFile good(file("good.png"));
    ASSERT_TRUE(good.open(QIODevice::ReadOnly));
    QFile broken(file("broken.png"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write(good.readAll().left(500));
    broken.close();
    expectRefused({"missing.png"}, "there is no file 'missing.png'");
    expectRefused({""}, "there is no file ''");
    expectRefused({"broken.png"}, "'broken.png' cannot be read as a picture");
    expectRefused({"."}, "'.' cannot be read as a picture");
    expectRefused({"floating.tif"}, "'floating.tif' has floating-point values");
}

TEST_F(refusals, inspect_refuses_a_report_in_place_of_a_picture)
{
    write("good.png", disks(CV_8UC1, 40, 200));
    char const* const why = "the report would overwrite the picture '";
    expectRefused({"good.png", "--report", "good.png"}, why);
    expectRefused({"good.png", "--report", "./good-found.png"}, why);
    expectRefused({"good.png", "--report", file("out.png"), "--out", "out.png"}, why);
    expectRefused({"--drawn-part", "--report", "part-found.png"}, why);
    ASSERT_TRUE(QFile::link(file("good.png"), file("link.html")));
    expectRefused({"good.png", "--report", "link.html"}, why);
    EXPECT_EQ(picture("good.png").size(), cv::Size(640, 240));
}

TEST_F(refusals, inspect_refuses_places_that_it_cannot_write_to)
{
    write("good.png", disks(CV_8UC1, 40, 200));
    expectRefused({"good.png", "--out", "no/such/directory.png"},
                  "cannot write 'no/such/directory.png'");
    expectRefused({"good.png", "--out", "out.gif"}, "cannot write 'out.gif'");
    expectRefused({"good.png", "--out", ""}, "cannot write ''");
    expectRefused({"--drawn-part", "--out", "out.gif"}, "cannot write 'out.gif'");
    expectRefused({"good.png", "--report", "no/such/directory.html"},
                  "cannot write 'no/such/directory.html'");
    expectRefused({"good.png", "--report", "."}, "cannot write '.'");
    expectRefused({"good.png", "--report", ""}, "cannot write ''");
    expectRefused({"--drawn-part", "--report", "no/such/directory.html"},
                  "cannot write 'no/such/directory.html'");
    expectRefused({"good.png", "--report", "page.html", "--out", "out.gif"},
                  "cannot write 'out.gif'");
}

// A saved value of which each part stands where the console tells it.
TEST_F(example, inspect_saves_the_picture_and_the_recipe)
{
    for (QStringList const& arguments : {QStringList(COINS), QStringList("--drawn-part")}) {
        Outcome const run = inspect(QStringList(arguments) << "--save"
                                                           << "value.kdr");
        EXPECT_EQ(run.status, 0) << run.err.toStdString();
        EXPECT_TRUE(says(run, "The saved value, for kdrdump: .*/value\\.kdr"));
        KDRVariant value;
        QByteArray const path = file("value.kdr").toUtf8();
        ASSERT_TRUE(kdrio::load(KDRString().fromUtf8(path.constData()), &value));
        KDRVariantArray list;
        ASSERT_TRUE(value.toVariantArray(&list));
        KDRImage image;
        ASSERT_TRUE(list[1].toImage(&image));
        if (arguments.contains(COINS)) {
            cv::Mat const saved(image.height(), image.width(), CV_8UC1, image.dataPtr(),
                                static_cast<std::size_t>(image.step()));
            cv::Mat const coins = cv::imread(COINS, cv::IMREAD_UNCHANGED);
            ASSERT_EQ(saved.size(), coins.size());
            EXPECT_EQ(cv::norm(saved, coins, cv::NORM_INF), 0.0);
        }
        QStringList names;
        for (int i = 0; i < list.length(); i += 2) {
            KDRString name;
            EXPECT_TRUE(list[i].toString(&name));
            names << name.toUtf8().constData();
            // All but the picture the console lists as the recipe, with kinds and names.
            KDRVariant held(list[i + 1]);
            EXPECT_EQ(says(run, QString(" *%1  %2").arg(held.variantType()).arg(names.last())),
                      i > 0)
                << names.last().toStdString();
        }
        EXPECT_EQ(names, arguments.contains(COINS)
                             ? QStringList({"image", "parameters", "shapes", "results", "flags"})
                             : QStringList({"image", "parameters", "nominal", "found", "flags"}));
    }
}

TEST_F(refusals, inspect_refuses_values_in_place_of_other_files)
{
    write("good.png", disks(CV_8UC1, 40, 200));
    expectRefused({"good.png", "--save", "good.png"},
                  "the saved value would overwrite the picture '");
    expectRefused({"good.png", "--save", "./good-found.png"},
                  "the saved value would overwrite the picture '");
    expectRefused({"good.png", "--save", "a", "--report", "./a"},
                  "the saved value would overwrite the report '");
    expectRefused({"good.png", "--save", "no/such/value.kdr"}, "cannot write 'no/such/value.kdr'");
    expectRefused({"good.png", "--save", ""}, "cannot write ''");
    expectRefused({"good.png", "--save", "value.kdr", "--out", "out.gif"},
                  "cannot write 'out.gif'");
    EXPECT_EQ(files(), QStringList("good.png"));
}

} // namespace
