#ifndef VELDATA_VELCODEC_P_H
#define VELDATA_VELCODEC_P_H

#include <cstddef>
#include <cstdint>

#include <veldata/velpixels_p.h>

class VelInput;
class VelOutput;

/// The formats of picture files.
///
/// A format is one row of a table and a file with its two functions. Reading answers new pixels,
/// counted once, or null for what is not one complete, undamaged picture; writing answers whether
/// everything went out. Neither throws nor prints, and both jump out of the picture libraries only
/// over frames without destructors.
namespace velcodec {

/// Some element types and numbers of channels, as sets of bits by their number.
struct Kinds
{
    unsigned types;
    unsigned channels;
};

struct Format
{
    /// What its files begin with; null behind the last one.
    char const* signatures[5];
    std::size_t signatureSize;
    /// Of the file names it is written to, in small letters; null behind the last one.
    char const* extensions[3];
    /// What it holds unchanged, JPEG up to its compression: all combinations of each entry.
    Kinds kinds[2];
    int maxSide;
    VelPixels* (*read)(VelInput const& input);
    bool (*write)(VelPixels const& pixels, int effort, VelOutput& output);

    /// Whether a file of this format holds such pixels.
    bool holds(VelGeometry const& geometry) const noexcept;
};

/// The format that a file begins like, or null.
Format const* formatOf(VelInput const& input) noexcept;

/// The format of the extension of the file name @p path, in any case, or null.
Format const* formatNamed(char const* path) noexcept;

/// Whether pixels of this geometry are within the limits of what is read and written.
bool isWithinLimits(VelGeometry const& geometry) noexcept;

/// Pixels of any value for a picture that is being read, or null where it is beyond the limits or
/// there is no memory for them.
VelPixels* newPixels(std::uint64_t width, std::uint64_t height, int channels, int type) noexcept;

/// The same with zeros, for a library that may leave some of them as they are.
VelPixels* newBlankPixels(std::uint64_t width, std::uint64_t height, int channels,
                          int type) noexcept;

VelPixels* readBmp(VelInput const& input);
VelPixels* readJpeg(VelInput const& input);
VelPixels* readPng(VelInput const& input);
VelPixels* readPnm(VelInput const& input);
VelPixels* readTiff(VelInput const& input);

bool writeBmp(VelPixels const& pixels, int effort, VelOutput& output);
bool writeJpeg(VelPixels const& pixels, int effort, VelOutput& output);
bool writePng(VelPixels const& pixels, int effort, VelOutput& output);
bool writePnm(VelPixels const& pixels, int effort, VelOutput& output);
bool writeTiff(VelPixels const& pixels, int effort, VelOutput& output);

} // namespace velcodec

#endif
