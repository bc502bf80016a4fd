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

KDRShape regionShapeOf(cv::Mat const& mask)
{
    KDRNumberArray rows;
    KDRNumberArray firstColumns;
    KDRNumberArray lastColumns;
    for (int y = 0; y < mask.rows; ++y) {
        uchar const* const row = mask.ptr(y);
        for (int x = 0; x < mask.cols; ++x) {
            if (row[x] == 0)
                continue;
            rows.push_back(y);
            firstColumns.push_back(x);
            while (x + 1 < mask.cols && row[x + 1] != 0)
                ++x;
            lastColumns.push_back(x);
        }
    }
    KDRRegion region;
    region.fromRunLengthEncodeing(rows, firstColumns, lastColumns, mask.cols, mask.rows);
    KDRShape shape;
    shape.fromRegion(region);
    return shape;
}

cv::Mat maskOf(KDRRegion region)
{
    KDRNumberArray rows;
    KDRNumberArray firstColumns;
    KDRNumberArray lastColumns;
    region.toRunLengthEncodeing(&rows, &firstColumns, &lastColumns);
    cv::Mat mask(region.height(), region.width(), CV_8U, cv::Scalar(0));
    for (int i = 0; i < rows.length(); ++i) {
        cv::Range const columns(firstColumns[i].toInt(), lastColumns[i].toInt() + 1);
        mask.row(rows[i].toInt()).colRange(columns).setTo(255);
    }
    return mask;
}

Line lineOf(KDRPointArray const& points)
{
    Line line;
    line.reserve(static_cast<std::size_t>(points.length()));
    for (int i = 0; i < points.length(); ++i) {
        KDRPoint const point = points[i];
        line.emplace_back(static_cast<float>(point.x()), static_cast<float>(point.y()));
    }
    return line;
}

Line lineOf(KDRContour const& outline)
{
    KDRPointArray points;
    outline.ToPointArray(&points);
    return lineOf(points);
}

KDRPointArray pointsOf(Line const& line)
{
    KDRPointArray points;
    for (cv::Point2f const& point : line)
        points.push_back(KDRPoint(point.x, point.y));
    return points;
}

KDRContour contourOf(Line const& line)
{
    KDRPointArray points = pointsOf(line);
    KDRContour outline;
    outline.FromPointArray(points);
    return outline;
}

cv::Point2d centreOf(Line const& outline)
{
    cv::Moments const moments = cv::moments(outline);
    if (moments.m00 == 0.0)
        return outline.front();
    return {moments.m10 / moments.m00, moments.m01 / moments.m00};
}

} // namespace inspect
