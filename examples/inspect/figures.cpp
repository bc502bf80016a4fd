#include "figures.h"

#include <opencv2/imgproc.hpp>

namespace inspect {

namespace {

std::vector<Line> bordersOf(KDRRegion const& region)
{
    std::vector<std::vector<cv::Point>> borders;
    cv::findContours(maskOf(region), borders, cv::RETR_LIST, cv::CHAIN_APPROX_SIMPLE);
    std::vector<Line> lines;
    lines.reserve(borders.size());
    for (std::vector<cv::Point> const& border : borders) {
        lines.emplace_back(border.begin(), border.end());
        lines.back().push_back(lines.back().front());
    }
    return lines;
}

} // namespace

bool isSame(KDRShape const& a, KDRShape const& b)
{
    return a.shapeType() == b.shapeType() && quantitiesOf(a) == quantitiesOf(b);
}

std::vector<Line> linesOf(KDRShape const& figure)
{
    KDRRegion region;
    if (figure.toRegion(&region))
        return bordersOf(region);
    std::vector<Line> lines;
    for (page::Line const& each : page::linesOf(figure)) {
        lines.emplace_back();
        for (page::Place const& place : each)
            lines.back().emplace_back(static_cast<float>(place.x), static_cast<float>(place.y));
    }
    return lines;
}

} // namespace inspect
