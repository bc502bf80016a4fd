#ifndef EXAMPLES_INSPECT_DRAWNPART_H
#define EXAMPLES_INSPECT_DRAWNPART_H

#include "flow.h"

// The tools that draw a machine part from its nominal figures and measure it in the picture, in the
// order in which they run.

namespace inspect {

/// Needs nothing. Adds what the part should be: "nominal" (shape array): the polygon of the
/// outline, two elliptic slots, the arc of a notch, a ring and an arrow; "names" (string array): of
/// these figures; and "reach" (number): by how many pixels a figure may lie off its nominal place.
Values planPart(Values const& given);

/// "nominal": draw the part as a camera sees it, a little blurred and noisy. Adds "image" (image,
/// one 8-bit channel).
Values drawPart(Values const& given);

/// "image": follow the edges between bright and dark. Adds "edges" (contour array), to a quarter of
/// a pixel.
Values followEdges(Values const& given);

/// "nominal", "edges", "reach", "image": look for each figure around its nominal place, by way of
/// the core library's region-of-interest record. Adds "found" (shape array): the figures in the
/// order of the nominal ones, empty ones for those not found; and "is found" (bool array). An arrow
/// is found as a line, since the record has no arrows.
Values measurePart(Values const& given);

/// "image", "found": draw what was found. Adds "drawing" (image, three 8-bit channels).
Values drawFigures(Values const& given);

/// All that was planned and found: put it into one value, to be stored or shown. Adds "recipe"
/// (variant array); see recipe.h.
Values packPart(Values const& given);

} // namespace inspect

#endif
