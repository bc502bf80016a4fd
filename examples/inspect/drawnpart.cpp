#include "drawnpart.h"

#include "drawing.h"
#include "figures.h"
#include "fitting.h"
#include "recipe.h"

#include <opencv2/imgproc.hpp>

namespace inspect {

namespace {

int const pictureWidth = 560;
int const pictureHeight = 340;

// A line in a picture that is `factor` times as large, in whole pixels.
std::vector<cv::Point> enlarged(Line const& line, int factor)
{
    std::vector<cv::Point> points;
    for (cv::Point2f const& point : line)
        points.emplace_back(cvRound((point.x + 0.5) * factor - 0.5),
                            cvRound((point.y + 0.5) * factor - 0.5));
    return points;
}

// The points of all edges that lie at most `reach` pixels off a figure, edge by edge.
Line pointsNear(KDRShape const& figure, std::vector<Line> const& edges, int reach, cv::Size size)
{
    cv::Mat band(size, CV_8U, cv::Scalar(0));
    for (Line const& line : linesOf(figure))
        cv::polylines(band, std::vector<cv::Point>(line.begin(), line.end()), false, 255,
                      2 * reach + 1);
    Line points;
    for (Line const& edge : edges)
        for (cv::Point2f const& point : edge)
            if (band.at<uchar>(cv::Point(point)) != 0)
                points.push_back(point);
    return points;
}

} // namespace

Values planPart(Values const& given)
{
    // The notch is bitten out of a slanted edge, half a circle around a point on it.
    KDRPoint notchCentre(445.0, 152.5);
    KDRShape notch;
    notch.fromArc(notchCentre, 36.0, 60.0, 240.0);

    Line outline = {{40.0F, 60.0F}, {380.0F, 40.0F}};
    Line const bite = linesOf(notch).front();
    outline.insert(outline.end(), bite.rbegin(), bite.rend());
    outline.insert(outline.end(), {{510.0F, 265.0F}, {470.0F, 300.0F}, {70.0F, 300.0F}});
    KDRPointArray corners = pointsOf(outline);
    KDRShape plate;
    plate.fromPolygon(corners);

    KDRPoint upperCentre(130.0, 120.0);
    KDRShape upperSlot;
    upperSlot.fromEllipse(upperCentre, 48.0, 18.0, 25.0);

    KDRPoint lowerCentre(130.0, 230.0);
    KDRShape lowerSlot;
    lowerSlot.fromEllipse(lowerCentre, 40.0, 14.0, 160.0);

    KDRPoint ringCentre(280.0, 170.0);
    KDRShape ring;
    ring.fromTorus(ringCentre, 30.0, 58.0, 0.0, 360.0);

    KDRPoint tail(380.0, 250.0);
    KDRPoint head(210.0, 268.0);
    KDRShape arrow;
    arrow.fromArrow(tail, head);

    KDRShapeArray nominal;
    for (KDRShape const& figure : {plate, notch, upperSlot, lowerSlot, ring, arrow})
        nominal.push_back(figure);
    KDRStringArray names;
    for (char const* name : {"plate", "notch", "upper slot", "lower slot", "ring", "arrow"})
        names.push_back(KDRString(name));
    KDRNumber reach(6);
    reach.setMinValue(1.0);
    reach.setMaxValue(12.0);

    Values values = given;
    values["nominal"] = nominal;
    values["names"] = names;
    values["reach"] = withRange(reach);
    return values;
}

Values drawPart(Values const& given)
{
    KDRShapeArray const nominal = valueOf(given, "nominal", &KDRVariant::toShapeArray);

    // Eight times as large, then made small: pixels that an edge crosses become grey.
    int const factor = 8;
    cv::Mat fine(pictureHeight * factor, pictureWidth * factor, CV_8U, cv::Scalar(40));
    for (int i = 0; i < nominal.length(); ++i) {
        KDRShape const figure = nominal[i];
        if (figure.shapeType() == KDRShape::Arc)
            continue; // the notch is part of the plate's outline
        std::vector<std::vector<cv::Point>> lines;
        for (Line const& line : linesOf(figure))
            lines.push_back(enlarged(line, factor));
        cv::fillPoly(fine, lines, figure.shapeType() == KDRShape::Polygon ? 190 : 60);
    }
    cv::Mat picture;
    cv::resize(fine, picture, {pictureWidth, pictureHeight}, 0, 0, cv::INTER_AREA);
    cv::GaussianBlur(picture, picture, {}, 0.8);

    // The same noise in every run.
    cv::Mat noise(picture.size(), CV_16S);
    cv::RNG random(1);
    random.fill(noise, cv::RNG::NORMAL, 0, 3);
    cv::add(picture, noise, picture, cv::noArray(), CV_8U);

    Values values = given;
    values["image"] = imageOf(picture);
    return values;
}

Values followEdges(Values const& given)
{
    KDRImage const image = valueOf(given, "image", &KDRVariant::toImage);
    int const factor = 4;
    cv::Mat fine;
    cv::GaussianBlur(pixelsOf(image), fine, {}, 0.7);
    cv::resize(fine, fine, {}, factor, factor, cv::INTER_CUBIC);
    cv::threshold(fine, fine, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
    std::vector<std::vector<cv::Point>> borders;
    cv::findContours(fine, borders, cv::RETR_LIST, cv::CHAIN_APPROX_NONE);

    KDRContourArray edges;
    for (std::vector<cv::Point> const& border : borders) {
        Line line;
        for (cv::Point const& point : border)
            line.emplace_back((cv::Point2f(point) + cv::Point2f(0.5F, 0.5F)) / factor -
                              cv::Point2f(0.5F, 0.5F));
        edges.push_back(contourOf(line));
    }

    Values values = given;
    values["edges"] = edges;
    return values;
}

Values measurePart(Values const& given)
{
    KDRShapeArray const nominal = valueOf(given, "nominal", &KDRVariant::toShapeArray);
    KDRContourArray const edges = valueOf(given, "edges", &KDRVariant::toContourArray);
    KDRNumber const reach = valueOf(given, "reach", &KDRVariant::toNumber);
    KDRImage const image = valueOf(given, "image", &KDRVariant::toImage);
    cv::Size const size(image.width(), image.height());
    std::vector<Line> lines;
    lines.reserve(static_cast<std::size_t>(edges.length()));
    for (int i = 0; i < edges.length(); ++i)
        lines.push_back(lineOf(edges[i]));

    KDRShapeArray found;
    KDRBoolArray isFound;
    DataConvert converter;
    for (int i = 0; i < nominal.length(); ++i) {
        KDRShape wanted = nominal[i];
        VelROI wantedRecord;
        converter.ShapeToROI(wanted, &wantedRecord);
        VelROI foundRecord =
            figureAlong(pointsNear(wanted, lines, reach.toInt(), size), wantedRecord);
        KDRShape figure;
        converter.ROIToShape(foundRecord, &figure);
        found.push_back(figure);
        isFound.push_back(figure.shapeType() != KDRShape::Empty);
    }

    Values values = given;
    values["found"] = found;
    values["is found"] = isFound;
    return values;
}

Values drawFigures(Values const& given)
{
    Drawing drawing(valueOf(given, "image", &KDRVariant::toImage));
    drawing.draw(valueOf(given, "found", &KDRVariant::toShapeArray));

    Values values = given;
    values["drawing"] = drawing.image();
    return values;
}

Values packPart(Values const& given)
{
    KDRStringArray const names = valueOf(given, "names", &KDRVariant::toStringArray);
    KDRVariantArray recipe;
    add(recipe, "parameters", recipeOf(given, {"reach"}));
    add(recipe, "nominal", recipeOf(names, valueOf(given, "nominal", &KDRVariant::toShapeArray)));
    add(recipe, "found", recipeOf(names, valueOf(given, "found", &KDRVariant::toShapeArray)));
    add(recipe, "flags", recipeOf(given, {"is found"}));

    Values values = given;
    values["recipe"] = recipe;
    return values;
}

} // namespace inspect
