#ifndef EXAMPLES_INSPECT_PIXELS_H
#define EXAMPLES_INSPECT_PIXELS_H

#include <opencv2/core.hpp>
#include <vector>

#include <kdrdata/vision/vision.h>

namespace inspect {

/// The pixels of @p image as a matrix of the image processing library. Nothing is copied: the image
/// must outlive the matrix, and whoever writes into it writes into the image.
cv::Mat pixelsOf(KDRImage const& image);

/// An image with a copy of @p pixels.
KDRImage imageOf(cv::Mat const& pixels);

/// @p image in 8-bit grey. Opacity is left out, colour is weighted, and values of other depths are
/// stretched from the least to the greatest. The matrix may share the pixels of @p image, which
/// must outlive it.
cv::Mat greyOf(KDRImage const& image);

/// The same in 8-bit colour (blue, green, red), with pixels of its own to draw on.
cv::Mat colourOf(KDRImage const& image);

/// The outline in whole pixels.
std::vector<cv::Point> pointsOf(KDRContour const& outline);

/// The contour through @p points.
KDRContour contourOf(std::vector<cv::Point> const& points);

/// The centre of the area inside an outline.
cv::Point2d centreOf(std::vector<cv::Point> const& outline);

} // namespace inspect

#endif
