#ifndef KDRDUMP_PAGE_SHOWN_H
#define KDRDUMP_PAGE_SHOWN_H

#include <QtCore/qbytearray.h>
#include <string>

#include <kdrdata/vision/kdrimage.h>

namespace page {

/// @p image as a screen shows it: 8-bit grey or colour (blue, green, red). Opacity is left out, and
/// values of other depths are stretched from the least to the greatest that is a number.
KDRImage shownOf(KDRImage const& image);

/// The picture as every browser shows it, as PNG. Throws Failure where it cannot be written among
/// the temporary files.
QByteArray pngOf(KDRImage const& image);

/// A `data:` address that holds pngOf().
std::string addressOf(KDRImage const& image);

} // namespace page

#endif
