#ifndef KDRDUMP_NUMBERS_H
#define KDRDUMP_NUMBERS_H

#include <string>

#include "page/tree.h"

namespace kdrdump {

/// The part of a page with the table of a list of numbers, with a histogram, of a matrix or of a
/// list of points; nothing for other values. Of long ones, the first thousand rows.
std::string numbersIn(page::Entry const& entry);

} // namespace kdrdump

#endif
