// What the program says of the part that it draws, against the part's drawing figures, which are
// written down here once more.

#include "inspectrun.h"

#include <cmath>

namespace {

struct Number
{
    char const* name;
    double nominal;
    double tolerance;
};

struct Figure
{
    char const* name;
    char const* kind;
    char const* foundAs;
    std::vector<Number> numbers;
};

double const notchRadius = 36.0;

// The outline's corners without the notch, which is half a disk around a point on an edge.
double plateArea()
{
    std::vector<cv::Point2f> const corners = {
        {40, 60}, {380, 40}, {510, 265}, {470, 300}, {70, 300}};
    return cv::contourArea(corners) - CV_PI * notchRadius * notchRadius / 2.0;
}

double platePerimeter()
{
    std::vector<cv::Point2f> const corners = {
        {40, 60}, {380, 40}, {510, 265}, {470, 300}, {70, 300}};
    return cv::arcLength(corners, true) + (CV_PI - 2.0) * notchRadius;
}

std::vector<Figure> partFigures()
{
    return {
        {"plate",
         "polygon",
         "polygon",
         {{"area", plateArea(), 200.0}, {"perimeter", platePerimeter(), 7.0}}},
        {"notch",
         "arc",
         "arc",
         {{"x", 445.0, 0.4},
          {"y", 152.5, 0.4},
          {"radius", notchRadius, 0.4},
          {"start", 60.0, 2.0},
          {"end", 240.0, 2.0}}},
        {"upper slot",
         "ellipse",
         "ellipse",
         {{"x", 130.0, 0.2},
          {"y", 120.0, 0.2},
          {"half along", 48.0, 0.4},
          {"half across", 18.0, 0.4},
          {"angle", 25.0, 0.5}}},
        {"lower slot",
         "ellipse",
         "ellipse",
         {{"x", 130.0, 0.2},
          {"y", 230.0, 0.2},
          {"half along", 40.0, 0.4},
          {"half across", 14.0, 0.4},
          {"angle", 160.0, 0.5}}},
        {"ring",
         "torus",
         "torus",
         {{"x", 280.0, 0.2},
          {"y", 170.0, 0.2},
          {"inner", 30.0, 0.3},
          {"outer", 58.0, 0.3},
          {"start", 0.0, 0.0},
          {"end", 360.0, 0.0}}},
        {"arrow",
         "arrow",
         "line",
         {{"x", 380.0, 1.0}, {"y", 250.0, 1.0}, {"to x", 210.0, 2.5}, {"to y", 268.0, 1.0}}},
    };
}

// The numbers of a row of the report. Names have single spaces, columns more of them.
QStringList columns(QString const& row) { return row.trimmed().split(QRegularExpression(" {2,}")); }

TEST_F(example, inspect_measures_the_part_that_it_draws)
{
    Outcome const run = inspect({"--drawn-part"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(says(run, "Found 6 of 6 figures of the drawn part\\."));
    EXPECT_TRUE(run.out.endsWith(": " + QDir(file(".")).canonicalPath() + "/part-found.png\n"));

    QStringList const lines = run.out.split('\n');
    for (Figure const& figure : partFigures()) {
        SCOPED_TRACE(figure.name);
        QString const title =
            QString("  %1: %2, found as %3").arg(figure.name, figure.kind, figure.foundAs);
        int const row = lines.indexOf(title);
        ASSERT_GE(row, 0) << run.out.toStdString();
        QStringList const names = columns(lines[row + 1]);
        QStringList const nominal = columns(lines[row + 2]);
        QStringList const found = columns(lines[row + 3]);
        ASSERT_EQ(nominal.size(), names.size() + 1);
        ASSERT_EQ(found.size(), names.size() + 1);
        EXPECT_EQ(nominal[0], "nominal");
        EXPECT_EQ(found[0], "found");
        for (Number const& number : figure.numbers) {
            SCOPED_TRACE(number.name);
            int const column = names.indexOf(number.name);
            ASSERT_GE(column, 0) << lines[row + 1].toStdString();
            // A polygon's arc has corners; otherwise the nominal numbers are told as they are.
            bool const isPolygon = figure.foundAs == std::string("polygon");
            EXPECT_NEAR(nominal[column + 1].toDouble(), number.nominal, isPolygon ? 1.0 : 0.0);
            EXPECT_NEAR(found[column + 1].toDouble(), number.nominal, number.tolerance);
        }
    }
}

TEST_F(example, inspect_draws_what_it_found_on_the_part)
{
    ASSERT_EQ(inspect({"--drawn-part", "--out", "here.png"}).status, 0);
    EXPECT_EQ(files(), QStringList("here.png"));
    cv::Mat const drawing = picture("here.png");
    ASSERT_EQ(drawing.type(), CV_8UC3);
    ASSERT_EQ(drawing.size(), cv::Size(1120, 680)); // twice the picture's
    auto const at = [&](double x, double y) {
        return drawing.at<cv::Vec3b>(cvRound(2.0 * y + 0.5), cvRound(2.0 * x + 0.5));
    };
    auto const on = [](double x, double y, double radius, double degrees) {
        double const radians = degrees * CV_PI / 180.0;
        return cv::Point2d(x + radius * std::cos(radians), y + radius * std::sin(radians));
    };

    // Bright plate, dark ground, holes and mark. The slots lean the way that clockwise angles say.
    EXPECT_GT(at(220, 80)[0], 150);
    EXPECT_LT(at(20, 20)[0], 80);
    EXPECT_LT(at(445, 152)[0], 80);
    for (cv::Point2d const& inside :
         {on(130, 120, 40, 25), on(130, 230, 32, 160), on(280, 170, 44, 90)})
        EXPECT_LT(at(inside.x, inside.y)[0], 90) << inside;
    for (cv::Point2d const& outside :
         {on(130, 120, 40, -25), on(130, 230, 32, -160), on(280, 170, 20, 90)})
        EXPECT_GT(at(outside.x, outside.y)[0], 150) << outside;

    // Each figure in its colour, given as one that is greater than another: 0 blue, 1 green, 2 red.
    struct
    {
        cv::Point2d place;
        int much, little;
    } const lines[] = {
        {{220, 300}, 1, 2},              // the plate's edge, green
        {on(445, 152.5, 36, 150), 2, 1}, // the notch, red
        {on(130, 120, 48, 25), 0, 2},    // a slot, blue
        {on(130, 230, 40, 160), 0, 2},   // the other one
        {on(280, 170, 30, 45), 0, 1},    // the ring's inside, violet
        {on(280, 170, 58, 45), 2, 1},    // and its outside
        {{295, 259}, 2, 0},              // the arrow, yellow
    };
    for (auto const& [place, much, little] : lines) {
        SCOPED_TRACE(testing::Message() << place);
        cv::Vec3b const colour = at(place.x, place.y);
        EXPECT_GT(colour[much] - colour[little], 60);
    }
}

TEST_F(example, inspect_packs_the_part_into_a_recipe)
{
    Outcome const run = inspect({"--drawn-part"});
    int const start = run.out.indexOf("\nThe recipe, read back from a copy\n");
    ASSERT_GE(start, 0);
    Outcome const recipe{0, run.out.mid(start), ""};
    for (char const* line : {
             "  1800  nominal",
             "     5    upper slot +ellipse: x 130, y 120, half along 48, half across 18, angle 25",
             "     5    ring +torus: x 280, y 170, inner 30, outer 58, start 0, end 360",
             "     5    arrow +arrow: x 380, y 250, to x 210, to y 268",
             "  1800  found",
             "     5    arrow +line: x [\\d.]+, y [\\d.]+, to x [\\d.]+, to y [\\d.]+",
             "     1    reach +6  iType:1,Max:12,Min:1,step:1",
             "  1000    is found +6 of 6 yes",
         })
        EXPECT_TRUE(says(recipe, line)) << line << '\n' << recipe.out.toStdString();
}

} // namespace
