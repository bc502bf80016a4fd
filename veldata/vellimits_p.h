#ifndef VELDATA_VELLIMITS_P_H
#define VELDATA_VELLIMITS_P_H

#include <climits>
#include <cstddef>
#include <cstdint>

/// What a picture file may ask for. All the limits there are, whatever the format, stand here.
namespace vellimits {

/// Most bytes of pixels that a picture is read to, and so that one is saved with.
constexpr std::uint64_t pictureBytes = std::uint64_t{1} << 30;

/// Most pixels along one side.
constexpr std::uint64_t side = std::uint64_t{1} << 20;

/// Most bytes of a file that is opened.
constexpr std::uint64_t fileBytes = INT_MAX;

/// Bytes that a file is read and written by where they do not go straight to their place.
constexpr std::size_t windowBytes = std::size_t{64} * 1024;

/// Most bytes of coefficients that a JPEG with several scans may need besides its pixels: two for
/// every value of the largest picture.
constexpr std::uint64_t jpegCoefficientBytes = 2 * pictureBytes;

/// More scans than any encoder makes.
constexpr int jpegScans = 500;

/// How often a JPEG of several scans may come back to its blocks: so many blocks for every byte of
/// the file read so far, and a number that is a fraction of a second's work whatever the file is. A
/// flat picture in the usual ten scans takes a quarter of that.
constexpr std::uint64_t jpegBlocksPerByte = 128;
constexpr std::uint64_t jpegFreeBlocks = std::uint64_t{1} << 22;

/// Most bytes that a JPEG is searched for what comes next. The longest row of blocks takes half of
/// that.
constexpr std::uint64_t jpegIdleBytes = std::uint64_t{64} << 20;

/// Most bytes of fields that the first directory of a TIFF is read with.
constexpr std::uint64_t tiffDirectoryBytes = std::uint64_t{24} << 20;

/// Most fields of that directory, libtiff's own limit.
constexpr std::uint64_t tiffFields = 4096;

/// Bytes that libtiff is not called without, besides those for what grows with the file: it does
/// not survive that there is no memory for some of its small blocks. Its tables for LZW are the
/// most.
constexpr std::size_t tiffSpareBytes = 1 << 20;

/// Longest side of a PNG, libpng's own limit, and of a JPEG that is written, libjpeg's.
constexpr int pngSide = 1000000;
constexpr int jpegSide = 65500;

} // namespace vellimits

#endif
