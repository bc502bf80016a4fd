#ifndef EXAMPLES_INSPECT_FIGURES_H
#define EXAMPLES_INSPECT_FIGURES_H

#include <vector>

#include "page/figures.h"
#include "pixels.h"

// Figures for the image processing library.

namespace inspect {

using page::nameOf;
using page::quantitiesOf;
using page::Quantity;

/// Whether two figures are of one kind and have the same numbers.
bool isSame(KDRShape const& a, KDRShape const& b);

/// The lines to draw a figure with; nothing for kinds that are not drawn. Those of a region run
/// through its outermost pixels.
std::vector<Line> linesOf(KDRShape const& figure);

} // namespace inspect

#endif
