#ifndef EXAMPLES_INSPECT_FIGURES_H
#define EXAMPLES_INSPECT_FIGURES_H

#include <string>
#include <vector>

#include "pixels.h"

namespace inspect {

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

/// What the figures of a shape kind are called.
std::string nameOf(unsigned int shapeKind);

/// The numbers of a figure, in pixels, square pixels and degrees (clockwise, 0 to the right). A
/// polygon is told by the centre, the area and the perimeter, a region by its size. Nothing for
/// kinds that tell no numbers.
std::vector<Quantity> quantitiesOf(KDRShape const& figure);

/// Whether two figures are of one kind and have the same numbers.
bool isSame(KDRShape const& a, KDRShape const& b);

/// The lines to draw a figure with; nothing for kinds that are not drawn here. An arrow is the
/// outline of one, from the middle of its flat tail to the tip of its head.
std::vector<Line> linesOf(KDRShape const& figure);

} // namespace inspect

#endif
