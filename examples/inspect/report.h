#ifndef EXAMPLES_INSPECT_REPORT_H
#define EXAMPLES_INSPECT_REPORT_H

#include <array>
#include <ostream>
#include <string>
#include <vector>

#include "flow.h"

namespace inspect {

/// What was measured of a part: its centre's x and y, area and perimeter, the radius of the circle,
/// and half length, half width and angle of the rectangle, in pixels, square pixels and degrees;
/// and whether it is round.
struct Part
{
    std::array<double, 8> numbers;
    bool isRound;
};

/// The parts found, in the order of the outlines.
std::vector<Part> partsIn(Values const& values);

/// How many handles hold a value, and how many stores those share.
struct Sharing
{
    std::string name;
    int kind;
    int handles;
    int stores; ///< 0 where no pointer reader tells
};

/// The sharing of each value, by name. @p history has the values after each tool.
std::vector<Sharing> sharingIn(std::vector<Values> const& history);

/// A table of the parts found, in a line each.
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
