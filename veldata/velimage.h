#ifndef VELDATA_VELIMAGE_H
#define VELDATA_VELIMAGE_H

#include <veldata/veldata_export.h>
#include <veldata/velimagetype.h>

class VelPixels;

/// An image: rows of pixels of one element type with 1 to 4 interleaved channels, top row first.
/// Colour pixels are ordered blue, green, red and, with four channels, alpha.
///
/// Copies share their pixels by an atomic reference count: copying is cheap, never fails, and who
/// writes through ImageData() of one copy is seen through all of them; DeepCopy() makes pixels of
/// its own. CreateImage() and ReadImage() give the image new pixels and leave earlier copies
/// theirs.
///
/// Operations that answer an int answer 1 for success and 0 for failure, and after a failure the
/// image, its pixels included, is what it was. No operation throws, out of memory included, and
/// none writes to the console. Images that share pixels may be copied, assigned and destroyed in
/// different threads at once; one image must not be changed while another thread uses it, nor
/// shared pixels be written while another thread reads them.
class VELDATA_EXPORT VelImage
{
public:
    /// The empty image, 0 x 0; allocates nothing.
    VelImage() noexcept;

    /// An image created as by CreateImage() with the same arguments; empty where that fails.
    VelImage(unsigned char* data, int width, int height, int channels, int step,
             VelImageType type) noexcept;

    /// An image that shares the pixels of @p other.
    VelImage(VelImage const& other) noexcept;

    /// Takes the pixels over; @p other is left empty.
    VelImage(VelImage&& other) noexcept;

    /// Releases the pixels if no other image shares them.
    ~VelImage();

    /// Shares the pixels of @p other from now on, and releases the former ones if nobody else
    /// shares them.
    VelImage& operator=(VelImage const& other) noexcept;

    /// Takes the pixels over; @p other is left empty. Assigning an image to itself does nothing.
    VelImage& operator=(VelImage&& other) noexcept;

    /// Gives the image new, tightly packed pixels, copied from @p data.
    ///
    /// @param data first byte of the top row, or null for zeroed pixels; may point into this
    ///             image's own pixels
    /// @param width, height in pixels, each at least 1, their product at most 2^30
    /// @param channels 1 to 4
    /// @param step bytes from one row of @p data to the next, at least one row of pixels, or 0 for
    ///             tightly packed rows; the bytes behind the last row's pixels are not read
    /// @param type element type of the pixels
    /// @return 1, or 0 with nothing changed for arguments outside these ranges, for rows longer
    /// than
    ///         INT_MAX bytes and when memory runs out
    int CreateImage(unsigned char* data, int width, int height, int channels, int step,
                    VelImageType type) noexcept;

    /// Gives the image pixels in the memory of the caller, without a copy: tightly packed rows from
    /// @p data on, in one block that stays good until release(@p owner) is called, which happens
    /// once, with the last image that shares the pixels, in whatever thread that ends. @p release
    /// must not throw and must not use an image that shares the pixels.
    ///
    /// Answers 1, or 0 with nothing changed and @p release never called for the arguments that
    /// CreateImage() refuses, for null @p data or @p release and when memory runs out.
    int CreateImageOver(unsigned char* data, int width, int height, int channels, VelImageType type,
                        void (*release)(void*), void* owner) noexcept;

    /// An image with the same pixels, shared with nobody; empty if memory runs out.
    VelImage DeepCopy() const noexcept;

    /// Pixels per row; 0 when empty.
    int Width() const noexcept;

    /// Number of rows; 0 when empty.
    int Height() const noexcept;

    /// Bytes from one row to the next; 0 when empty.
    int Step() const noexcept;

    /// Interleaved values per pixel, 1 to 4; 0 when empty.
    int Channels() const noexcept;

    /// The VelImageType code of the values; 0 when empty.
    int BitDepth() const noexcept;

    /// The first byte of the top row; null when empty. The image keeps owning the pixels: the
    /// pointer is good until the last image that shares them is changed or destroyed. Writing
    /// through it is seen by all images that share the pixels.
    unsigned char* ImageData() const noexcept;

    /// Replaces the image by the one in a file, with the bit depth and the channels the file holds,
    /// unrotated.
    ///
    /// The format (PNG, JPEG, TIFF, BMP, PNM) is recognised by the contents, not the name. @p path
    /// is any zero-terminated byte string the file system takes. Answers 0, with the image as it
    /// was, for a null or empty path, for what is not a readable regular file below 2 GiB, for a
    /// picture that is truncated, damaged, over 1 GiB of pixels or 2^20 pixels along one side, and
    /// when memory runs out.
    int ReadImage(char const* path) noexcept;

    /// Writes the image to a file, completely or not at all; what was in the file before is kept on
    /// failure.
    ///
    /// @param path the file name; its extension, in any case, tells the format: png, jpg, jpeg,
    /// tif,
    ///             tiff, bmp, pgm (one channel), ppm (three channels), pnm
    /// @param effort from 0, fastest, to 9, smallest; values outside are moved to the nearer end.
    ///               PNG: 0 uncompressed, up to 6 quick, above thorough. JPEG: a quality of 100 - 5
    ///               * effort. TIFF: uncompressed for 0, losslessly compressed otherwise. BMP and
    ///               PNM ignore it.
    /// @return 1, or 0 for the empty image, a null or empty path, another or no extension, an
    ///         element type or number of channels that the format cannot hold, more than 1 GiB of
    ///         pixels or 2^20 along one side, a path that cannot be written, and when
    ///         memory runs out
    int SaveImage(char const* path, int effort) const noexcept;

private:
    /// Takes over @p fresh and answers 1, or 0 with nothing changed where it is null.
    VELDATA_NO_EXPORT int replaceBy(VelPixels* fresh) noexcept;

    VelPixels* d;
};

#endif
