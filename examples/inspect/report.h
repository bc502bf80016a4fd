#ifndef EXAMPLES_INSPECT_REPORT_H
#define EXAMPLES_INSPECT_REPORT_H

#include <ostream>
#include <vector>

#include "tools.h"

namespace inspect {

/// Each parameter of the flow with its value and the description that its variant gives of it.
void printParameters(std::ostream& out, Values const& values);

/// A table of the parts found: number, centre and perimeter in pixels, area in square pixels.
void printParts(std::ostream& out, Values const& values);

/// For each value, how many of the handles in @p history hold it and how many stores those share.
/// @p history has the values after each tool.
void printSharing(std::ostream& out, std::vector<Values> const& history);

} // namespace inspect

#endif
