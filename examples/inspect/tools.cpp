#include "tools.h"

#include "pixels.h"

#include <QtCore/qfileinfo.h>
#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace inspect {

namespace {

using Outline = std::vector<cv::Point>;

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

// Puts a number with a range into the values unless there is one. A number that is put into a
// variant leaves its range behind; it is assigned to the stored one.
void propose(Values& values, char const* name, KDRNumber const& proposal)
{
    if (values.count(name) > 0)
        return;
    KDRVariant& parameter = values[name];
    parameter.fromNumber(proposal);
    KDRNumber* stored = nullptr;
    if (parameter.toNumberPtr(stored))
        *stored = proposal;
}

// Sorts outlines as one reads: rows from the top, each from the left. A part belongs to a row if
// its centre lies above the bottom of the row's first part.
void sortAsRead(std::vector<Outline>& outlines)
{
    auto const higher = [](Outline const& a, Outline const& b) {
        return centreOf(a).y < centreOf(b).y;
    };
    auto const further = [](Outline const& a, Outline const& b) {
        return centreOf(a).x < centreOf(b).x;
    };
    std::sort(outlines.begin(), outlines.end(), higher);
    for (auto row = outlines.begin(); row != outlines.end();) {
        int const bottom = cv::boundingRect(*row).br().y;
        auto const next = std::find_if(row, outlines.end(), [bottom](Outline const& outline) {
            return centreOf(outline).y >= bottom;
        });
        std::sort(row, next, further);
        row = next;
    }
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
    KDRNumber level;
    level.setMaxValue(254.0);
    level.setMinValue(8.0);
    level.setStep(1.0);
    level.fromInt(std::max(static_cast<int>(level.minValue()), cvRound(best / 2.0)));
    propose(values, "level", level);

    double const size = static_cast<double>(relief.width()) * relief.height();
    KDRNumber smallest;
    smallest.setMaxValue(size);
    smallest.setMinValue(1.0);
    smallest.setStep(1.0);
    smallest.fromDouble(std::max(smallest.minValue(), std::round(size / 1000.0)));
    propose(values, "smallest", smallest);
    return values;
}

Values threshold(Values const& given)
{
    KDRImage const relief = valueOf(given, "relief", &KDRVariant::toImage);
    KDRNumber const level = valueOf(given, "level", &KDRVariant::toNumber);

    KDRImage const mask(nullptr, relief.width(), relief.height(), 1, 0, KDRImage::DataTypeUInt8);
    cv::Mat pixels = pixelsOf(mask);
    cv::threshold(pixelsOf(relief), pixels, level.toDouble(), 255, cv::THRESH_BINARY);

    Values values = given;
    values["mask"] = mask;
    return values;
}

Values findParts(Values const& given)
{
    KDRImage const mask = valueOf(given, "mask", &KDRVariant::toImage);
    KDRNumber const smallest = valueOf(given, "smallest", &KDRVariant::toNumber);
    int const side = std::min(mask.width(), mask.height());

    // Close cracks, fill holes, take thin spurs off.
    double const crack = std::max(1.0, side / 150.0);
    cv::Mat parts = shrunk(grown(pixelsOf(mask), crack), crack);
    std::vector<Outline> outlines;
    cv::findContours(parts, outlines, cv::RETR_EXTERNAL, cv::CHAIN_APPROX_NONE);
    cv::drawContours(parts, outlines, -1, 255, cv::FILLED);
    double const spur = std::max(1.0, side / 60.0);
    parts = grown(shrunk(parts, spur), spur);
    cv::findContours(parts, outlines, cv::RETR_EXTERNAL, cv::CHAIN_APPROX_NONE);

    KDRContourArray found;
    int cut = 0;
    cv::Rect const inside(1, 1, mask.width() - 2, mask.height() - 2);
    sortAsRead(outlines);
    for (Outline const& points : outlines) {
        KDRContour const outline = contourOf(points);
        cv::Rect const box = cv::boundingRect(points);
        if (outline.area() < smallest.toDouble())
            continue;
        if ((box & inside) != box)
            ++cut;
        else
            found.push_back(outline);
    }

    Values values = given;
    values["outlines"] = found;
    values["cut"] = cut;
    return values;
}

Values measureParts(Values const& given)
{
    KDRContourArray const outlines = valueOf(given, "outlines", &KDRVariant::toContourArray);
    KDRPointArray centres;
    KDRNumberArray areas;
    for (int i = 0; i < outlines.length(); ++i) {
        cv::Point2d const centre = centreOf(pointsOf(outlines[i]));
        centres.push_back(KDRPoint(centre.x, centre.y));
        areas.push_back(outlines[i].area());
    }

    Values values = given;
    values["centres"] = centres;
    values["areas"] = areas;
    return values;
}

Values drawParts(Values const& given)
{
    KDRImage const image = valueOf(given, "image", &KDRVariant::toImage);
    KDRContourArray const outlines = valueOf(given, "outlines", &KDRVariant::toContourArray);
    KDRPointArray const centres = valueOf(given, "centres", &KDRVariant::toPointArray);

    cv::Scalar const green(90, 230, 60);
    cv::Scalar const white(255, 255, 255);
    cv::Scalar const black(0, 0, 0);
    int const side = std::min(image.width(), image.height());
    int const width = std::max(1, side / 300);
    double const letter = std::max(0.35, side / 900.0);

    cv::Mat drawing = colourOf(image);
    for (int i = 0; i < outlines.length(); ++i) {
        cv::polylines(drawing, pointsOf(outlines[i]), true, green, width, cv::LINE_AA);

        std::string const number = std::to_string(i + 1);
        int base = 0;
        cv::Size const size =
            cv::getTextSize(number, cv::FONT_HERSHEY_SIMPLEX, letter, width, &base);
        cv::Point const start(cvRound(centres[i].x() - size.width / 2.0),
                              cvRound(centres[i].y() + size.height / 2.0));
        cv::putText(drawing, number, start, cv::FONT_HERSHEY_SIMPLEX, letter, black, width + 2,
                    cv::LINE_AA);
        cv::putText(drawing, number, start, cv::FONT_HERSHEY_SIMPLEX, letter, white, width,
                    cv::LINE_AA);
    }

    Values values = given;
    values["drawing"] = imageOf(drawing);
    return values;
}

} // namespace inspect
