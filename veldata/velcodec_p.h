#ifndef VELDATA_VELCODEC_P_H
#define VELDATA_VELCODEC_P_H

#include <cstdint>

#include <veldata/velfile_p.h>

/// The checks that the contents of an image file pass before they are decoded.
///
/// OpenCV and the libraries below it answer a damaged file with a half-grey picture, or with a
/// message on the console, or both. So every file is first read to its end here, in silence and
/// with little memory: a prepare function answers whether the bytes hold one complete, undamaged
/// picture of a variant that OpenCV decodes without changing the values, and takes out of them what
/// could only do harm. The bytes are unspecified where it answers false. May throw std::bad_alloc.
namespace velcodec {

using velfile::Bytes;

/// Whether OpenCV decodes a picture of this size: it stops at 2^20 pixels along a side and at 2^30
/// in all.
constexpr bool isDecodableSize(std::int64_t width, std::int64_t height) noexcept
{
    constexpr std::int64_t maxSide = std::int64_t{1} << 20;
    constexpr std::int64_t maxPixels = std::int64_t{1} << 30;
    return width > 0 && height > 0 && width <= maxSide && height <= maxSide &&
           width * height <= maxPixels;
}

/// Uncompressed Windows bitmaps of 1, 4, 8, 16, 24 and 32 bits per pixel.
bool prepareBmp(Bytes& bytes);

/// JPEG pictures that libjpeg decodes without a warning.
bool prepareJpeg(Bytes& bytes);

/// PNG pictures that libpng decodes without a warning; every chunk without a bearing on the pixels
/// is taken out.
bool preparePng(Bytes& bytes);

/// Portable bit, grey and pixel maps, ASCII and binary (P1 to P6); an ASCII one becomes binary.
bool preparePnm(Bytes& bytes);

/// TIFF files whose first directory holds an uncompressed or losslessly compressed picture; its
/// orientation and its kind of alpha are set to those that leave the values alone.
bool prepareTiff(Bytes& bytes);

/// The check for the format that the bytes begin like; false for any other.
bool prepare(Bytes& bytes);

} // namespace velcodec

#endif
