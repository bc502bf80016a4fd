#ifndef VELDATA_VELIMAGEFILE_P_H
#define VELDATA_VELIMAGEFILE_P_H

class VelPixels;

/// Image files: where the codecs meet the file system.
namespace velimagefile {

/// New pixels, counted once, with the picture in the file @p path, or null where it cannot be read
/// completely. @p path may be null.
VelPixels* read(char const* path) noexcept;

/// Writes @p pixels to the file @p path in the format of its extension; false leaves the file
/// system as it was. @p path may be null.
bool save(VelPixels const& pixels, char const* path, int effort) noexcept;

} // namespace velimagefile

#endif
