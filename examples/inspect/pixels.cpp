#include "pixels.h"

#include <opencv2/imgproc.hpp>

namespace inspect {

namespace {

// One or three 8-bit channels. The matrix may share the pixels of the image.
cv::Mat bytesOf(KDRImage const& image)
{
    cv::Mat pixels = pixelsOf(image);
    if (pixels.channels() % 2 == 0) {
        std::vector<cv::Mat> planes;
        cv::split(pixels, planes);
        planes.pop_back();
        pixels.release();
        cv::merge(planes, pixels);
    }
    if (pixels.depth() == CV_8U)
        return pixels;
    cv::Mat bytes;
    cv::normalize(pixels, bytes, 0, 255, cv::NORM_MINMAX, CV_8U);
    return bytes;
}

} // namespace

cv::Mat pixelsOf(KDRImage const& image)
{
    // Depth codes mean the same element types on both sides.
    return cv::Mat(image.height(), image.width(), CV_MAKETYPE(image.depth(), image.channel()),
                   image.dataPtr(), static_cast<std::size_t>(image.step()));
}

KDRImage imageOf(cv::Mat const& pixels)
{
    return KDRImage(pixels.data, pixels.cols, pixels.rows, pixels.channels(),
                    static_cast<int>(pixels.step), static_cast<KDRImage::DataType>(pixels.depth()));
}

cv::Mat greyOf(KDRImage const& image)
{
    cv::Mat bytes = bytesOf(image);
    if (bytes.channels() == 1)
        return bytes;
    cv::Mat grey;
    cv::cvtColor(bytes, grey, cv::COLOR_BGR2GRAY);
    return grey;
}

cv::Mat colourOf(KDRImage const& image)
{
    cv::Mat const bytes = bytesOf(image);
    if (bytes.channels() == 3)
        return bytes.clone();
    cv::Mat colour;
    cv::cvtColor(bytes, colour, cv::COLOR_GRAY2BGR);
    return colour;
}

std::vector<cv::Point> pointsOf(KDRContour const& outline)
{
    KDRPointArray points;
    outline.ToPointArray(&points);
    std::vector<cv::Point> result;
    result.reserve(static_cast<std::size_t>(points.length()));
    for (int i = 0; i < points.length(); ++i)
        result.emplace_back(cvRound(points[i].x()), cvRound(points[i].y()));
    return result;
}

KDRContour contourOf(std::vector<cv::Point> const& points)
{
    KDRPointArray corners;
    for (cv::Point const& point : points)
        corners.push_back(KDRPoint(point.x, point.y));
    KDRContour outline;
    outline.FromPointArray(corners);
    return outline;
}

cv::Point2d centreOf(std::vector<cv::Point> const& outline)
{
    cv::Moments const moments = cv::moments(outline);
    if (moments.m00 == 0.0)
        return outline.front();
    return {moments.m10 / moments.m00, moments.m01 / moments.m00};
}

} // namespace inspect
