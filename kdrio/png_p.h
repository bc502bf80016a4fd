#ifndef KDRIO_PNG_P_H
#define KDRIO_PNG_P_H

#include <QtCore/qbytearray.h>
#include <QtCore/qstring.h>

class KDRImage;

/// Pixels as PNG pictures in memory, without loss. The pixels are packed by Qt's zlib, and the core
/// library, which has files alone, is not needed.
namespace kdrio::png {

/// The picture of an image of unsigned elements of 8 or 16 bits; empty for all other images. Colour
/// is stored in the order of PNG: the first of three channels of an image is the blue one.
QByteArray encode(KDRImage const& image);

/// Makes @p image from a picture of 8 or 16 bits a channel, not interlaced and without a palette,
/// of at most @p mostPixels pixels. Answers what is wrong, empty where nothing is. Of packed bytes
/// that are damaged behind right checksums Qt warns on the console.
QString decode(QByteArray const& picture, long long mostPixels, KDRImage& image);

} // namespace kdrio::png

#endif
