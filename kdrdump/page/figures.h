#ifndef KDRDUMP_PAGE_FIGURES_H
#define KDRDUMP_PAGE_FIGURES_H

#include <string>
#include <vector>

#include <kdrdata/vision/vision.h>

// What figures are called, measure and look like.

namespace page {

/// One number of a figure and what it is called.
struct Quantity
{
    std::string name;
    double value;

    bool operator==(Quantity const& other) const
    {
        return name == other.name && value == other.value;
    }
};

/// A place in a picture. Whole coordinates are the middles of pixels.
struct Place
{
    double x;
    double y;
};

/// Places in order. A closed line ends at the place it starts from.
using Line = std::vector<Place>;

/// The pixels of a row of a region from the first column to the last, which belongs to them.
struct Run
{
    double row;
    double first;
    double last;
};

/// A colour with 8 bits a channel.
struct Colour
{
    int red;
    int green;
    int blue;
};

/// What the figures of a shape kind are called.
std::string nameOf(unsigned int shapeKind);

/// The colour in which figures of a kind are drawn.
Colour colourOf(unsigned int shapeKind);

/// The numbers of a figure, in pixels, square pixels and degrees (clockwise, 0 to the right). A
/// polygon is told by the centre, the area and the perimeter, a region by its size. Nothing for
/// kinds that tell no numbers.
std::vector<Quantity> quantitiesOf(KDRShape const& figure);

/// The lines to draw a figure with; nothing for kinds that are not drawn by lines, as regions. An
/// arrow is the outline of one, from the middle of its flat tail to the tip of its head.
std::vector<Line> linesOf(KDRShape const& figure);

/// The runs of a region, in their order; nothing for other figures.
std::vector<Run> runsOf(KDRShape const& figure);

/// The polygon along a contour.
KDRShape polygonOf(KDRContour const& outline);

} // namespace page

#endif
