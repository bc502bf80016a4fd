#ifndef EXAMPLES_INSPECT_PIXELS_H
#define EXAMPLES_INSPECT_PIXELS_H

#include <opencv2/core.hpp>
#include <vector>

#include <kdrdata/vision/vision.h>

namespace inspect {

/// Points in order, in pixels. A closed line ends at the point it starts from.
using Line = std::vector<cv::Point2f>;

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

/// A shape with the region of all pixels that are not 0 in @p mask, run by run.
KDRShape regionShapeOf(cv::Mat const& mask);

/// The mask of @p region, as large as its extent: 255 where the region is, 0 elsewhere.
cv::Mat maskOf(KDRRegion region);

/// The coordinates of @p points.
Line lineOf(KDRPointArray const& points);

/// The points of an outline.
Line lineOf(KDRContour const& outline);

/// The points of @p line, for the library.
KDRPointArray pointsOf(Line const& line);

/// The contour through the points of @p line.
KDRContour contourOf(Line const& line);

/// The centre of the area inside an outline.
cv::Point2d centreOf(Line const& outline);

} // namespace inspect

#endif
