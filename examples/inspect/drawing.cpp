#include "drawing.h"

#include "figures.h"

#include <algorithm>
#include <opencv2/imgproc.hpp>

namespace inspect {

cv::Scalar colourOfKind(unsigned int shapeKind)
{
    page::Colour const colour = page::colourOf(shapeKind);
    return cv::Scalar(colour.blue, colour.green, colour.red);
}

// The longer side comes to at most 1200 pixels, where it is not longer from the start; lines are
// thin in comparison with the shorter one.
Drawing::Drawing(KDRImage const& image)
    : factor(std::clamp(1200 / std::max(image.width(), image.height()), 1, 4)),
      width(std::max(1, std::min(image.width(), image.height()) * factor / 320))
{
    cv::resize(colourOf(image), pixels, {}, factor, factor, cv::INTER_NEAREST);
}

void Drawing::draw(KDRShape const& figure)
{
    // Lines are drawn to a 16th of a pixel. Whole coordinates are the middles of pixels, also of
    // the enlarged ones.
    int const shift = 4;
    double const scale = factor * (1 << shift);
    double const offset = (factor - 1) / 2.0 * (1 << shift);
    for (Line const& line : linesOf(figure)) {
        std::vector<cv::Point> points;
        for (cv::Point2f const& point : line)
            points.emplace_back(cvRound(point.x * scale + offset),
                                cvRound(point.y * scale + offset));
        cv::polylines(pixels, points, false, colourOfKind(figure.shapeType()), width, cv::LINE_AA,
                      shift);
    }
}

void Drawing::draw(KDRShapeArray const& figures)
{
    for (int i = 0; i < figures.length(); ++i)
        draw(figures[i]);
}

void Drawing::write(cv::Point2d const& centre, std::string const& text)
{
    double const letter = std::max(0.35, width * 0.55);
    int base = 0;
    cv::Size const size = cv::getTextSize(text, cv::FONT_HERSHEY_SIMPLEX, letter, width, &base);
    cv::Point const start(cvRound(centre.x * factor - size.width / 2.0),
                          cvRound(centre.y * factor + size.height / 2.0));
    cv::putText(pixels, text, start, cv::FONT_HERSHEY_SIMPLEX, letter, {0, 0, 0}, width + 2,
                cv::LINE_AA);
    cv::putText(pixels, text, start, cv::FONT_HERSHEY_SIMPLEX, letter, {255, 255, 255}, width,
                cv::LINE_AA);
}

KDRImage Drawing::image() const { return imageOf(pixels); }

} // namespace inspect
