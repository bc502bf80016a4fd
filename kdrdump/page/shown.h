#ifndef KDRDUMP_PAGE_SHOWN_H
#define KDRDUMP_PAGE_SHOWN_H

#include <string>

#include <kdrdata/vision/kdrimage.h>

namespace page {

/// @p image as a screen shows it: 8-bit grey or colour (blue, green, red). Opacity is left out, and
/// values of other depths are stretched from the least to the greatest that is a number.
KDRImage shownOf(KDRImage const& image);

/// A `data:` address that holds the picture, as every browser shows it. Throws Failure where it
/// cannot be written among the temporary files.
std::string addressOf(KDRImage const& image);

} // namespace page

#endif
