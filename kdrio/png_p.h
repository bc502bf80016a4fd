#ifndef KDRIO_PNG_P_H
#define KDRIO_PNG_P_H

#include <QtCore/qbytearray.h>
#include <QtCore/qstring.h>

class KDRImage;

/// Pixels as PNG pictures, without loss. The core library makes and reads them; it has files alone,
/// so each picture goes through one in the directory for temporary files.
namespace kdrio::png {

/// The picture of an image of unsigned elements of 8 or 16 bits; empty where the core library
/// writes none that it reads back with the same pixels.
QByteArray encode(KDRImage const& image);

/// Makes @p image from a picture of 8 or 16 bits a channel, not interlaced and without a palette,
/// of at most @p mostPixels pixels. Answers what is wrong, empty where nothing is.
QString decode(QByteArray const& picture, long long mostPixels, KDRImage& image);

} // namespace kdrio::png

#endif
