#ifndef EXAMPLES_INSPECT_REPORT_H
#define EXAMPLES_INSPECT_REPORT_H

#include <ostream>
#include <vector>

#include "flow.h"

namespace inspect {

/// A table of the parts found: number, centre, perimeter, the radius of the circle and half length,
/// half width and angle of the rectangle in pixels and degrees, area in square pixels, and whether
/// the part is round.
void printParts(std::ostream& out, Values const& values);

/// For each kind of figure sent to the core library's record and back: how many, the kind numbers
/// on the way, and what became of them.
void printConversions(std::ostream& out, Values const& values);

/// For each figure of the drawn part, its nominal numbers and the ones found.
void printFigures(std::ostream& out, Values const& values);

/// For each value, how many of the handles in @p history hold it and how many stores those share.
/// @p history has the values after each tool.
void printSharing(std::ostream& out, std::vector<Values> const& history);

} // namespace inspect

#endif
