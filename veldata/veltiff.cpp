#include <veldata/velcodec_p.h>

#include <algorithm>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>

#include <tiffio.h>

namespace {

using velcodec::Bytes;

/// Reads and changes the fields of the first directory where they lie in the file.
class Directory
{
public:
    explicit Directory(Bytes& fileBytes)
        : bytes(fileBytes), isBigEndian(bytes[0] == 'M'), isBig(number(2, 2) == 43)
    {
    }

    /// Whether the directory and the link to the next one behind it lie within the file.
    bool isWhole() const
    {
        return entriesAt() <= bytes.size() &&
               (bytes.size() - entriesAt()) / entrySize() >= entryCount() &&
               bytes.size() - entriesAt() - entryCount() * entrySize() >= linkSize();
    }

    /// Sets the single short value of the field @p tag to @p value; other kinds of the field and a
    /// missing one are left alone. The directory must be whole.
    void setShort(std::uint64_t tag, unsigned char value)
    {
        constexpr std::uint64_t shortType = 3;
        for (std::uint64_t i = 0; i < entryCount(); ++i) {
            std::size_t const at = entriesAt() + i * entrySize();
            std::size_t const valueAt = at + 4 + linkSize();
            if (number(at, 2) == tag && number(at + 2, 2) == shortType &&
                number(at + 4, linkSize()) == 1) {
                bytes[valueAt + (isBigEndian ? 0 : 1)] = 0;
                bytes[valueAt + (isBigEndian ? 1 : 0)] = value;
            }
        }
    }

private:
    std::size_t linkSize() const { return isBig ? 8 : 4; }
    std::size_t countSize() const { return isBig ? 8 : 2; }
    std::size_t entrySize() const { return isBig ? 20 : 12; }

    /// Where the directory begins; the end of the file for a place beyond it.
    std::size_t start() const
    {
        return std::min<std::size_t>(isBig ? number(8, 8) : number(4, 4), bytes.size());
    }

    std::uint64_t entryCount() const { return number(start(), countSize()); }
    std::size_t entriesAt() const { return start() + countSize(); }

    /// The number of @p size bytes at @p at; 0 where the file ends before.
    std::uint64_t number(std::size_t at, std::size_t size) const
    {
        if (at > bytes.size() || bytes.size() - at < size)
            return 0;
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < size; ++i)
            value = value << 8 | bytes[at + (isBigEndian ? i : size - 1 - i)];
        return value;
    }

    Bytes& bytes;
    bool isBigEndian;
    bool isBig;
};

/// What libtiff reads from and reports to.
struct Source
{
    Bytes* bytes;
    std::size_t at;
    bool failed;
};

Source& sourceOf(thandle_t handle) { return *static_cast<Source*>(handle); }

tmsize_t readBytes(thandle_t handle, void* target, tmsize_t size)
{
    Source& source = sourceOf(handle);
    std::size_t const left = source.bytes->size() - std::min(source.at, source.bytes->size());
    std::size_t const count = std::min(static_cast<std::size_t>(size), left);
    if (count > 0)
        std::memcpy(target, source.bytes->data() + source.at, count);
    source.at += count;
    return static_cast<tmsize_t>(count);
}

tmsize_t writeNothing(thandle_t, void*, tmsize_t) { return 0; }

toff_t seek(thandle_t handle, toff_t offset, int whence)
{
    Source& source = sourceOf(handle);
    toff_t const base = whence == SEEK_CUR   ? source.at
                        : whence == SEEK_END ? source.bytes->size()
                                             : 0;
    source.at = base + offset;
    return source.at;
}

int close(thandle_t) { return 0; }

toff_t sizeOf(thandle_t handle) { return sourceOf(handle).bytes->size(); }

int map(thandle_t handle, void** base, toff_t* size)
{
    *base = sourceOf(handle).bytes->data();
    *size = sourceOf(handle).bytes->size();
    return 1;
}

void unmap(thandle_t, void*, toff_t) {}

/// Both handlers answer 1: the process-wide handlers, which print, are not to be called.
int onError(TIFF*, void* source, char const*, char const*, va_list)
{
    static_cast<Source*>(source)->failed = true;
    return 1;
}

int onWarning(TIFF*, void*, char const*, char const*, va_list) { return 1; }

using Tiff = std::unique_ptr<TIFF, decltype(&TIFFClose)>;

Tiff open(Source& source)
{
    constexpr tmsize_t maxAllocation = 64 << 20;
    std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)> const options(
        TIFFOpenOptionsAlloc(), &TIFFOpenOptionsFree);
    if (!options)
        return Tiff(nullptr, &TIFFClose);
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), maxAllocation);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), onError, &source);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), onWarning, &source);
    return Tiff(TIFFClientOpenExt("", "r", &source, readBytes, writeNothing, seek, close, sizeOf,
                                  map, unmap, options.get()),
                &TIFFClose);
}

/// The fields that decide how a picture is decoded.
struct Layout
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t rowsPerStrip = 0;
    std::uint16_t bits = 1;
    std::uint16_t samples = 1;
    std::uint16_t format = SAMPLEFORMAT_UINT;
    std::uint16_t photometric = 0;
    std::uint16_t planes = PLANARCONFIG_CONTIG;
    std::uint16_t compression = COMPRESSION_NONE;
    std::uint16_t orientation = ORIENTATION_TOPLEFT;
    std::uint16_t extraSamples = 0;
    bool hasUnassociatedAlpha = false;
    bool isComplete = false; ///< width, height and photometric were there
};

Layout layoutOf(TIFF* tiff)
{
    Layout layout;
    std::uint16_t const* extraKinds = nullptr;
    layout.isComplete = TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &layout.width) &&
                        TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &layout.height) &&
                        TIFFGetField(tiff, TIFFTAG_PHOTOMETRIC, &layout.photometric);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_ROWSPERSTRIP, &layout.rowsPerStrip);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_BITSPERSAMPLE, &layout.bits);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLESPERPIXEL, &layout.samples);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLEFORMAT, &layout.format);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_PLANARCONFIG, &layout.planes);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_COMPRESSION, &layout.compression);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_ORIENTATION, &layout.orientation);
    if (TIFFGetField(tiff, TIFFTAG_EXTRASAMPLES, &layout.extraSamples, &extraKinds))
        layout.hasUnassociatedAlpha =
            std::count(extraKinds, extraKinds + layout.extraSamples, EXTRASAMPLE_UNASSALPHA) > 0;
    return layout;
}

bool isLossless(std::uint16_t compression)
{
    switch (compression) {
    case COMPRESSION_NONE:
    case COMPRESSION_LZW:
    case COMPRESSION_PACKBITS:
    case COMPRESSION_ADOBE_DEFLATE:
    case COMPRESSION_DEFLATE:
        return true;
    default:
        return false;
    }
}

/// Whether the colours and the values of a pixel are of a kind that OpenCV reads unchanged.
bool isKnownPixel(Layout const& layout)
{
    bool const isColour =
        layout.photometric == PHOTOMETRIC_RGB && (layout.samples == 3 || layout.samples == 4);
    bool const isGrey = layout.photometric == PHOTOMETRIC_MINISBLACK && layout.samples == 1;
    bool const isMapped = (layout.photometric == PHOTOMETRIC_MINISWHITE ||
                           layout.photometric == PHOTOMETRIC_PALETTE) &&
                          layout.samples == 1;
    bool const isUnsigned = layout.format == SAMPLEFORMAT_UINT;
    bool const isSigned = layout.format == SAMPLEFORMAT_INT;
    bool const isFloating = layout.format == SAMPLEFORMAT_IEEEFP;
    switch (layout.bits) {
    case 1:
        return isUnsigned && (isGrey || (isMapped && layout.photometric != PHOTOMETRIC_PALETTE));
    case 8:
        return (isUnsigned && (isGrey || isMapped || isColour)) ||
               (isSigned && (isGrey || isColour));
    case 16:
        return (isUnsigned || isSigned) && (isGrey || isColour);
    case 32:
        return (isFloating && (isGrey || isColour)) || (isSigned && isGrey);
    case 64:
        return isFloating && isGrey;
    default:
        return false;
    }
}

bool isDecodable(TIFF* tiff, Layout const& layout)
{
    // OpenCV decodes a strip at a time and refuses one of 1 GiB; it takes four bytes for every
    // pixel of up to eight bits.
    constexpr std::uint64_t maxStripBytes = std::uint64_t{1} << 30;
    std::uint64_t const pixelBytes =
        layout.bits <= 8 ? 4u : std::uint64_t{layout.samples} * layout.bits / 8;
    std::uint64_t const rows = std::min(layout.rowsPerStrip, layout.height);
    return layout.isComplete && velcodec::isDecodableSize(layout.width, layout.height) &&
           !TIFFIsTiled(tiff) && rows > 0 && rows * layout.width * pixelBytes < maxStripBytes &&
           isLossless(layout.compression) && isKnownPixel(layout) &&
           layout.orientation == ORIENTATION_TOPLEFT && !layout.hasUnassociatedAlpha &&
           (layout.planes == PLANARCONFIG_CONTIG || layout.bits == 8);
}

/// Decodes everything into one row, over and over: what this passes really holds as many pixels as
/// it claims.
bool readsByRows(TIFF* tiff, Layout const& layout)
{
    Bytes row(static_cast<std::size_t>(TIFFScanlineSize(tiff)));
    int const planes = layout.planes == PLANARCONFIG_SEPARATE ? layout.samples : 1;
    for (int plane = 0; plane < planes; ++plane) {
        for (std::uint32_t y = 0; y < layout.height; ++y) {
            if (TIFFReadScanline(tiff, row.data(), y, static_cast<std::uint16_t>(plane)) != 1)
                return false;
        }
    }
    return true;
}

/// Decodes everything strip by strip, as OpenCV does. That goes further than the rows: it reaches
/// what lies behind the last one, the checksum of a deflated strip for instance.
bool readsByStrips(TIFF* tiff)
{
    Bytes strip(static_cast<std::size_t>(TIFFStripSize(tiff)));
    for (std::uint32_t i = 0; i < TIFFNumberOfStrips(tiff); ++i) {
        if (TIFFReadEncodedStrip(tiff, i, strip.data(), static_cast<tmsize_t>(strip.size())) < 0)
            return false;
    }
    return true;
}

/// Whether libtiff can turn the picture into colours, as OpenCV asks it to for up to eight bits.
bool hasUsableColours(TIFF* tiff)
{
    TIFFRGBAImage image;
    char message[1024];
    if (!TIFFRGBAImageBegin(&image, tiff, 1, message))
        return false;
    TIFFRGBAImageEnd(&image);
    return true;
}

} // namespace

bool velcodec::prepareTiff(Bytes& bytes)
{
    Directory directory(bytes);
    if (!directory.isWhole())
        return false;
    directory.setShort(TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    directory.setShort(TIFFTAG_EXTRASAMPLES, EXTRASAMPLE_ASSOCALPHA);

    Source source = {&bytes, 0, false};
    Tiff const tiff = open(source);
    if (!tiff)
        return false;
    Layout const layout = layoutOf(tiff.get());
    return isDecodable(tiff.get(), layout) && readsByRows(tiff.get(), layout) &&
           readsByStrips(tiff.get()) && (layout.bits > 8 || hasUsableColours(tiff.get())) &&
           !source.failed;
}
