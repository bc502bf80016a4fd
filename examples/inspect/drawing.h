#ifndef EXAMPLES_INSPECT_DRAWING_H
#define EXAMPLES_INSPECT_DRAWING_H

#include <string>

#include "pixels.h"

namespace inspect {

/// The colour (blue, green, red) in which figures of a kind are drawn.
cv::Scalar colourOfKind(unsigned int shapeKind);

/// A picture in colour to draw figures on. Small pictures are enlarged by a whole factor, so that
/// neighbouring lines can be told apart.
class Drawing
{
public:
    /// Starts with the pixels of @p image.
    explicit Drawing(KDRImage const& image);

    /// Draws a figure in the colour of its kind: regions and polygons green, circles and arcs red,
    /// rectangles and ellipses blue, rings violet, lines and arrows yellow.
    void draw(KDRShape const& figure);
    /// Draws each figure of @p figures.
    void draw(KDRShapeArray const& figures);

    /// Writes @p text around a point.
    void write(cv::Point2d const& centre, std::string const& text);

    /// The picture as it is now, three 8-bit channels.
    KDRImage image() const;

private:
    int factor;
    int width;
    cv::Mat pixels;
};

} // namespace inspect

#endif
