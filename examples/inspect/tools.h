#ifndef EXAMPLES_INSPECT_TOOLS_H
#define EXAMPLES_INSPECT_TOOLS_H

#include "flow.h"

// The tools that find the parts in a picture, in the order in which they run.

namespace inspect {

/// "path" (string): read the picture. Adds "image" (image).
Values loadImage(Values const& given);

/// "image": take the uneven ground away. Adds "relief" (image, one 8-bit channel): by how many grey
/// values each pixel stands out of the ground around it.
Values flattenGround(Values const& given);

/// "relief": propose what the user has not given. Adds "level" (number): the grey value of the
/// relief above which a pixel belongs to a part; "smallest" (number): the area in square pixels
/// below which a part counts as dirt; and "round from" (number): the roundness from which on a part
/// counts as round.
Values proposeParameters(Values const& given);

/// "relief", "level": tell parts from ground. Adds "mask" (shape, a region).
Values threshold(Values const& given);

/// "mask", "smallest": find the parts, in reading order. Adds "outlines" (contour array), "parts"
/// (shape, the region of all parts) and "cut" (number): how many parts were left out because the
/// picture's edge cuts them.
Values findParts(Values const& given);

/// "outlines": fit a figure to each part. Adds "circles" and "rectangles" (shape arrays), in the
/// order of the outlines.
Values fitFigures(Values const& given);

/// "outlines", "round from": measure the parts. Adds "features" (matrix): a column for each part
/// with its centre's x and y in pixels and its area in square pixels; "roundness" (number array): 1
/// for a disk, less for anything else; and "is round" (bool array).
Values measureParts(Values const& given);

/// "circles", "rectangles", "parts": send them, and one figure of each of some other kinds, to the
/// core library's region-of-interest record and back. Adds "conversions" (matrix): a column for
/// each figure with the kind sent, the record's type, the kind that came back, and 1 where the
/// figure came back unchanged.
Values convertFigures(Values const& given);

/// "image", "parts", "circles", "rectangles", "features": draw what was found. Adds "drawing"
/// (image, three 8-bit channels).
Values drawParts(Values const& given);

/// All that was found: put it into one value, to be stored or shown. Adds "recipe" (variant array);
/// see recipe.h.
Values packParts(Values const& given);

} // namespace inspect

#endif
