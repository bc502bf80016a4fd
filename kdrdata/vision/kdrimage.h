#ifndef KDRDATA_KDRIMAGE_H
#define KDRDATA_KDRIMAGE_H

#include <kdrdata/kdrdata_export.h>

class KDRString;
class VelImage;
struct KDRInternal;

/// An image: pixels and their geometry, held by one core-library image (`VelImage`).
///
/// The handle owns its core image alone and forwards to it. Copying and assigning go through the
/// core image's assignment, which shares the pixels: writing through dataPtr() is then seen by
/// every image that shares them. Only clone() promises pixels of its own.
///
/// Geometry is in pixels, the row step in bytes. What GenImageExt(), read() and save() answer is
/// the core library's: non-zero for success, 0 for failure, which leaves the image as it was,
/// except as read() says.
///
/// Where memory runs out for the handle itself, or for the path of a file in its encoding, the
/// constructors, clone(), read() and save() throw std::bad_alloc, with nothing changed. Where it
/// runs out for pixels nothing is thrown: the operation fails, or the image is empty.
///
/// @code
/// KDRImage image;
/// if (image.read(KDRString("part.png")) == 0)
///     return false;
/// @endcode
///
/// Threads: one image may be read from several threads while none changes it. Images that share
/// pixels may be used from different threads while none of them changes the pixels.
class KDRDATA_EXPORT KDRImage
{
public:
    /// The element type of a pixel's channel; the values are the core library's image-type codes,
    /// passed on and reported without translation.
    enum DataType : int {
        DataTypeUInt8 = 0,   ///< unsigned 8-bit integer
        DataTypeInt8 = 1,    ///< signed 8-bit integer
        DataTypeUInt16 = 2,  ///< unsigned 16-bit integer
        DataTypeInt16 = 3,   ///< signed 16-bit integer
        DataTypeInt32 = 4,   ///< signed 32-bit integer
        DataTypeFloat32 = 5, ///< 32-bit floating point
        DataTypeFloat64 = 6  ///< 64-bit floating point; also reported for every code above 6
    };

    /// An empty image, 0 x 0.
    KDRImage();
    /// An image that shares the pixels of @p other.
    KDRImage(KDRImage const& other);
    /// An image made from pixels in memory, as by GenImageExt(); empty where that fails.
    KDRImage(void* data, int width, int height, int channels, int step, KDRImage::DataType type);
    /// Gives up this image's share of the pixels.
    ~KDRImage();

    /// Shares the pixels of @p other. Returns this image.
    KDRImage& operator=(KDRImage const& other);

    /// Makes the image anew from pixels in memory (the core image's `CreateImage`): @p width and
    /// @p height in pixels, @p channels interleaved elements of @p type a pixel, @p step bytes from
    /// one row to the next (0: tightly packed). The pixels are copied from @p data, which stays the
    /// caller's; null gives zeroed pixels. Images that shared the old pixels keep them. Returns the
    /// core library's result.
    int GenImageExt(void* data, int width, int height, int channels, int step,
                    KDRImage::DataType type);

    /// An image with a copy of the pixels that nothing else shares (the core image's `DeepCopy`);
    /// empty, 0 x 0, where memory runs out. Not for constant images. Kept on purpose.
    KDRImage clone();

    /// The width in pixels.
    int width() const;
    /// The height in pixels.
    int height() const;
    /// The bytes from one row to the next.
    int step() const;
    /// The number of channels a pixel.
    int channel() const;
    /// The core library's bit-depth code, unchanged.
    int depth() const;
    /// The bit-depth code as an element type; every code of 6 or more, and every negative one, is
    /// reported as 6.
    KDRImage::DataType dataType() const;
    /// The first byte of the first pixel, null for an empty image. The pixels stay the image's
    /// and may be shared; the pointer is good until the image is assigned, made anew, read into or
    /// destroyed.
    unsigned char* dataPtr() const;

    /// Reads the image file @p path, a name in the local 8-bit encoding (see
    /// KDRString::setLocalTextCodec), through the core image's `ReadImage`. Returns its result,
    /// except that an image whose depth() after reading is 5 or 6 gives 0, failure, whatever the
    /// core library said; the image is then not cleared. Kept on purpose.
    int read(KDRString const& path);
    /// Writes the image file @p path, as by save(path, 6). Not for constant images. Kept on
    /// purpose.
    int save(KDRString const& path);
    /// Writes the image file @p path, a name in the local 8-bit encoding, through the core image's
    /// `SaveImage`, which takes the format from the extension and @p effort from 0 (fast) to 9
    /// (small). Returns the core library's result. Not for constant images. Kept on purpose.
    int save(KDRString const& path, int effort);

private:
    friend struct KDRInternal;
    VelImage* d;
};

#endif
