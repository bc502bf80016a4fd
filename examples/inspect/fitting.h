#ifndef EXAMPLES_INSPECT_FITTING_H
#define EXAMPLES_INSPECT_FITTING_H

#include <veldata/velroi.h>

#include "pixels.h"

namespace inspect {

/// The circle with the least squared distances to @p points, as a shape. At least three points.
KDRShape circleThrough(Line const& points);

/// The smallest rectangle around @p points, as a shape: its angle is that of the longer side, from
/// 0 to below 180 degrees.
KDRShape rectangleAround(Line const& points);

/// Plays the kit's search library, which knows the core library's records only: fits the kind of
/// figure that @p nominal holds to the points of an edge, which lie near it and follow it in order.
/// Answers an empty record where there are too few points or the kind is not searched for.
VelROI figureAlong(Line const& edge, VelROI const& nominal);

} // namespace inspect

#endif
