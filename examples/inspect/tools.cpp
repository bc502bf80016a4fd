#include "tools.h"

#include "drawing.h"
#include "figures.h"
#include "fitting.h"
#include "recipe.h"

#include <QtCore/qfileinfo.h>
#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace inspect {

namespace {

std::string localText(KDRString const& text) { return text.toLocal8Bit().constData(); }

// Grows or shrinks what is set in a mask by a distance in pixels. Distance maps take the same time
// for every distance, and their disks are round.
cv::Mat grown(cv::Mat const& mask, double distance)
{
    cv::Mat distances;
    cv::distanceTransform(~mask, distances, cv::DIST_L2, cv::DIST_MASK_PRECISE);
    return distances <= distance;
}

cv::Mat shrunk(cv::Mat const& mask, double distance)
{
    cv::Mat distances;
    cv::distanceTransform(mask, distances, cv::DIST_L2, cv::DIST_MASK_PRECISE);
    return distances > distance;
}

// The ground under the parts, which are brighter. A rough ground, an opening wider than the parts,
// finds where parts are; the ground is then the weighted mean of what lies between them.
cv::Mat groundOf(cv::Mat const& grey)
{
    int const side = std::min(grey.cols, grey.rows);
    int const wide = side / 4 | 1;
    cv::Mat const element = cv::getStructuringElement(cv::MORPH_ELLIPSE, {wide, wide});
    cv::Mat rough;
    cv::morphologyEx(grey, rough, cv::MORPH_OPEN, element);
    cv::GaussianBlur(rough, rough, {}, wide / 8.0 + 0.5);

    cv::Mat parts;
    cv::threshold(grey - rough, parts, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
    cv::Mat weight;
    cv::Mat(~grown(parts, side / 50.0)).convertTo(weight, CV_32F, 1.0 / 255.0);
    cv::Mat sum;
    grey.convertTo(sum, CV_32F);
    sum = sum.mul(weight);
    double const reach = side / 12.0 + 0.5;
    cv::GaussianBlur(sum, sum, {}, reach, reach, cv::BORDER_REFLECT);
    cv::GaussianBlur(weight, weight, {}, reach, reach, cv::BORDER_REFLECT);

    // Far from any ground, in the middle of a very large part, the rough one has to do.
    cv::Mat ground;
    cv::Mat(sum / (weight + 1e-6F)).convertTo(ground, CV_8U);
    rough.copyTo(ground, weight < 1e-3F);
    return ground;
}

KDRNumber numberIn(double least, double most, double step, double value)
{
    KDRNumber number(value);
    number.setMinValue(least);
    number.setMaxValue(most);
    number.setStep(step);
    return number;
}

// The outer outlines of what is set in a mask.
std::vector<Line> outlinesIn(cv::Mat const& mask)
{
    std::vector<std::vector<cv::Point>> found;
    cv::findContours(mask, found, cv::RETR_EXTERNAL, cv::CHAIN_APPROX_NONE);
    std::vector<Line> outlines;
    outlines.reserve(found.size());
    for (std::vector<cv::Point> const& points : found)
        outlines.emplace_back(points.begin(), points.end());
    return outlines;
}

// Sets what lies inside an outline.
void fill(cv::Mat& mask, Line const& outline)
{
    std::vector<cv::Point> const points(outline.begin(), outline.end());
    cv::fillPoly(mask, std::vector<std::vector<cv::Point>>{points}, 255);
}

// Sorts outlines as one reads: rows from the top, each from the left. A part belongs to a row if
// its centre lies above the bottom of the row's first part.
void sortAsRead(std::vector<Line>& outlines)
{
    auto const higher = [](Line const& a, Line const& b) { return centreOf(a).y < centreOf(b).y; };
    auto const further = [](Line const& a, Line const& b) { return centreOf(a).x < centreOf(b).x; };
    std::sort(outlines.begin(), outlines.end(), higher);
    for (auto row = outlines.begin(); row != outlines.end();) {
        int const bottom = cv::boundingRect(*row).br().y;
        auto const next = std::find_if(row, outlines.end(), [bottom](Line const& outline) {
            return centreOf(outline).y >= bottom;
        });
        std::sort(row, next, further);
        row = next;
    }
}

// A line, an arrow, an ellipse, an arc, a polygon, a torus and a text.
KDRShapeArray oneOfEachOtherKind()
{
    KDRPoint here(20.0, 30.0);
    KDRPoint there(60.0, 50.0);
    KDRPointArray corners;
    corners.push_back(here);
    corners.push_back(there);
    corners.push_back(KDRPoint(20.0, 70.0));
    KDRString word("coin");
    KDRFont font;

    KDRShape line;
    KDRShape arrow;
    KDRShape ellipse;
    KDRShape arc;
    KDRShape polygon;
    KDRShape torus;
    KDRShape text;
    line.fromLine(here, there);
    arrow.fromArrow(here, there);
    ellipse.fromEllipse(here, 12.0, 7.0, 30.0);
    arc.fromArc(here, 12.0, 45.0, 180.0);
    polygon.fromPolygon(corners);
    torus.fromTorus(here, 7.0, 12.0, 0.0, 270.0);
    text.fromText(here, word, font);

    KDRShapeArray figures;
    for (KDRShape const& figure : {line, arrow, ellipse, arc, polygon, torus, text})
        figures.push_back(figure);
    return figures;
}

// The part with the greatest area, as a recipe of its own. Empty where there are no parts.
KDRVariantArray largestPart(Values const& values)
{
    KDRMatrix features = valueOf(values, "features", &KDRVariant::toMatrix);
    KDRNumberArray areas;
    features.getRowData(2, &areas);
    KDRVariantArray recipe;
    if (areas.length() == 0)
        return recipe;
    int largest = 0;
    for (int i = 1; i < areas.length(); ++i)
        largest = areas[i].toDouble() > areas[largest].toDouble() ? i : largest;
    add(recipe, "number", withRange(numberIn(1.0, areas.length(), 1.0, largest + 1)));
    add(recipe, "circle", valueOf(values, "circles", &KDRVariant::toShapeArray)[largest]);
    add(recipe, "rectangle", valueOf(values, "rectangles", &KDRVariant::toShapeArray)[largest]);
    return recipe;
}

} // namespace

Values loadImage(Values const& given)
{
    KDRString const path = valueOf(given, "path", &KDRVariant::toString);
    std::string const name = localText(path);
    QFileInfo const file(QString::fromLocal8Bit(name.c_str()));
    if (!file.exists())
        throw Failure("there is no file '" + name + "'");

    KDRImage image;
    if (image.read(path) == 0) {
        // A picture with floating-point values is refused only after it was read.
        bool const floating = image.depth() >= KDRImage::DataTypeFloat32;
        throw Failure("'" + name + "' " +
                      (floating ? "has floating-point values, which are not read"
                                : "cannot be read as a picture"));
    }
    Values values = given;
    values["image"] = image;
    return values;
}

Values flattenGround(Values const& given)
{
    KDRImage const image = valueOf(given, "image", &KDRVariant::toImage);
    int const side = std::min(image.width(), image.height());
    cv::Mat grey;
    cv::GaussianBlur(greyOf(image), grey, {}, std::max(0.5, side / 300.0));

    // What the picture shows along its edge is ground. Parts darker than it are turned into
    // brighter ones.
    int const band = side / 20 + 1;
    cv::Mat edge(grey.size(), CV_8U, cv::Scalar(255));
    cv::rectangle(edge, {band, band}, {grey.cols - band - 1, grey.rows - band - 1}, 0, -1);
    if (cv::mean(grey, edge)[0] > cv::mean(grey)[0])
        grey = ~grey;

    // The ground changes slowly: a small picture of it is enough.
    double const scale = std::min(1.0, 256.0 / side);
    cv::Mat ground;
    cv::resize(grey, ground, {}, scale, scale, cv::INTER_AREA);
    cv::resize(groundOf(ground), ground, grey.size(), 0, 0, cv::INTER_LINEAR);

    Values values = given;
    values["relief"] = imageOf(grey - ground);
    return values;
}

Values proposeParameters(Values const& given)
{
    KDRImage const relief = valueOf(given, "relief", &KDRVariant::toImage);
    Values values = given;

    // The level that separates ground from parts best lies amid the parts' own brightness; half of
    // it also catches the faint ones, and still lies above the ground. Below 8 grey values there is
    // only noise.
    cv::Mat ignored;
    double const best = cv::threshold(pixelsOf(relief), ignored, 0, 255, cv::THRESH_OTSU);
    double const level = std::max(8.0, std::round(best / 2.0));
    values.emplace("level", withRange(numberIn(8.0, 254.0, 1.0, level)));

    double const size = static_cast<double>(relief.width()) * relief.height();
    double const smallest = std::max(1.0, std::round(size / 1000.0));
    values.emplace("smallest", withRange(numberIn(1.0, size, 1.0, smallest)));

    values.emplace("round from", withRange(numberIn(0.0, 1.0, 0.05, 0.8)));
    return values;
}

Values threshold(Values const& given)
{
    KDRImage const relief = valueOf(given, "relief", &KDRVariant::toImage);
    KDRNumber const level = valueOf(given, "level", &KDRVariant::toNumber);

    Values values = given;
    values["mask"] = regionShapeOf(pixelsOf(relief) > level.toDouble());
    return values;
}

Values findParts(Values const& given)
{
    cv::Mat const mask = maskOf(regionOf(given, "mask"));
    KDRNumber const smallest = valueOf(given, "smallest", &KDRVariant::toNumber);
    int const side = std::min(mask.cols, mask.rows);

    // Close cracks, fill holes, take thin spurs off.
    double const crack = std::max(1.0, side / 150.0);
    cv::Mat cleaned = shrunk(grown(mask, crack), crack);
    for (Line const& outline : outlinesIn(cleaned))
        fill(cleaned, outline);
    double const spur = std::max(1.0, side / 60.0);
    cleaned = grown(shrunk(cleaned, spur), spur);

    KDRContourArray found;
    cv::Mat parts(mask.size(), CV_8U, cv::Scalar(0));
    int cut = 0;
    cv::Rect const inside(1, 1, mask.cols - 2, mask.rows - 2);
    std::vector<Line> outlines = outlinesIn(cleaned);
    sortAsRead(outlines);
    for (Line const& line : outlines) {
        KDRContour const outline = contourOf(line);
        cv::Rect const box = cv::boundingRect(line);
        if (outline.area() < smallest.toDouble())
            continue;
        if ((box & inside) != box) {
            ++cut;
            continue;
        }
        found.push_back(outline);
        fill(parts, line);
    }

    Values values = given;
    values["outlines"] = found;
    values["parts"] = regionShapeOf(parts);
    values["cut"] = cut;
    return values;
}

Values fitFigures(Values const& given)
{
    KDRContourArray const outlines = valueOf(given, "outlines", &KDRVariant::toContourArray);
    KDRShapeArray circles;
    KDRShapeArray rectangles;
    for (int i = 0; i < outlines.length(); ++i) {
        Line const points = lineOf(outlines[i]);
        circles.push_back(circleThrough(points));
        rectangles.push_back(rectangleAround(points));
    }

    Values values = given;
    values["circles"] = circles;
    values["rectangles"] = rectangles;
    return values;
}

Values measureParts(Values const& given)
{
    KDRContourArray const outlines = valueOf(given, "outlines", &KDRVariant::toContourArray);
    KDRNumber const roundFrom = valueOf(given, "round from", &KDRVariant::toNumber);
    KDRMatrix features(3, outlines.length(), KDRMatrix::MatrixTypeFloat64);
    KDRNumberArray roundness;
    KDRBoolArray isRound;
    for (int i = 0; i < outlines.length(); ++i) {
        KDRContour const outline = outlines[i];
        cv::Point2d const centre = centreOf(lineOf(outline));
        KDRNumber x(centre.x);
        KDRNumber y(centre.y);
        KDRNumber area(outline.area());
        features.replace(0, i, x);
        features.replace(1, i, y);
        features.replace(2, i, area);

        double const perimeter = outline.perimeter();
        roundness.push_back(4.0 * CV_PI * outline.area() / (perimeter * perimeter));
        isRound.push_back(roundness[i].toDouble() >= roundFrom.toDouble());
    }

    Values values = given;
    values["features"] = features;
    values["roundness"] = roundness;
    values["is round"] = isRound;
    return values;
}

Values convertFigures(Values const& given)
{
    KDRShapeArray figures = valueOf(given, "circles", &KDRVariant::toShapeArray);
    figures.push_back(valueOf(given, "rectangles", &KDRVariant::toShapeArray));
    figures.push_back(oneOfEachOtherKind());
    figures.push_back(valueOf(given, "parts", &KDRVariant::toShape));

    KDRMatrix conversions(4, figures.length(), KDRMatrix::MatrixTypeInt32);
    DataConvert converter;
    for (int i = 0; i < figures.length(); ++i) {
        KDRShape sent = figures[i];
        VelROI record;
        KDRShape returned;
        converter.ShapeToROI(sent, &record);
        converter.ROIToShape(record, &returned);

        unsigned int const column[] = {sent.shapeType(), record.ROIType(), returned.shapeType(),
                                       isSame(sent, returned) ? 1U : 0U};
        for (int row = 0; row < 4; ++row) {
            KDRNumber cell(static_cast<int>(column[row]));
            conversions.replace(row, i, cell);
        }
    }

    Values values = given;
    values["conversions"] = conversions;
    return values;
}

Values drawParts(Values const& given)
{
    KDRMatrix features = valueOf(given, "features", &KDRVariant::toMatrix);
    KDRNumberArray x;
    KDRNumberArray y;
    features.getRowData(0, &x);
    features.getRowData(1, &y);

    Drawing drawing(valueOf(given, "image", &KDRVariant::toImage));
    drawing.draw(valueOf(given, "rectangles", &KDRVariant::toShapeArray));
    drawing.draw(valueOf(given, "circles", &KDRVariant::toShapeArray));
    drawing.draw(valueOf(given, "parts", &KDRVariant::toShape));
    for (int i = 0; i < x.length(); ++i)
        drawing.write({x[i].toDouble(), y[i].toDouble()}, std::to_string(i + 1));

    Values values = given;
    values["drawing"] = drawing.image();
    return values;
}

Values packParts(Values const& given)
{
    KDRVariantArray results = recipeOf(given, {"features", "roundness", "conversions"});
    KDRVariantArray const largest = largestPart(given);
    if (largest.length() > 0)
        add(results, "largest part", largest);
    KDRVariantArray flags = recipeOf(given, {"is round"});
    add(flags, "all inside", valueOf(given, "cut", &KDRVariant::toNumber).toInt() == 0);

    // A variant array goes in as one value only if it is made a variant first: given as it is,
    // push_back() appends its elements.
    KDRVariantArray recipe;
    add(recipe, "parameters", recipeOf(given, {"path", "level", "smallest", "round from"}));
    add(recipe, "shapes", recipeOf(given, {"mask", "parts", "circles", "rectangles"}));
    add(recipe, "results", results);
    add(recipe, "flags", flags);

    Values values = given;
    values["recipe"] = recipe;
    return values;
}

} // namespace inspect
