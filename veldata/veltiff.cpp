#include <veldata/velcodec_p.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>

#include <tiffio.h>

#include <veldata/velimagetype.h>
#include <veldata/velinput_p.h>
#include <veldata/vellimits_p.h>
#include <veldata/velmemory_p.h>
#include <veldata/velorder_p.h>
#include <veldata/veloutput_p.h>
#include <veldata/veltiffdirectory_p.h>

namespace {

/// Bytes that take the place of those of a file.
struct Overlay
{
    std::uint64_t at = 0; ///< 0 for none
    std::array<unsigned char, 2> bytes = {};
};

/// What libtiff reads from and reports to.
struct Source
{
    VelInput const& input;
    std::array<Overlay, 2> overlays;
    std::uint64_t at = 0;
    std::uint64_t mayRead = vellimits::tiffDirectoryBytes;
    bool failed = false;
};

Source& sourceOf(thandle_t handle) { return *static_cast<Source*>(handle); }

tmsize_t readBytes(thandle_t handle, void* target, tmsize_t size)
{
    Source& source = sourceOf(handle);
    auto const wanted = static_cast<std::uint64_t>(size);
    if (source.at > source.input.size() || wanted > source.mayRead)
        return 0;
    source.mayRead -= wanted;
    std::size_t const count = source.input.readAt(source.at, target, wanted);
    for (Overlay const& overlay : source.overlays) {
        for (std::size_t i = 0; overlay.at != 0 && i < overlay.bytes.size(); ++i) {
            std::uint64_t const at = overlay.at + i;
            if (at >= source.at && at - source.at < count)
                static_cast<unsigned char*>(target)[at - source.at] = overlay.bytes[i];
        }
    }
    source.at += count;
    return static_cast<tmsize_t>(count);
}

tmsize_t writeNothing(thandle_t, void*, tmsize_t) { return 0; }

toff_t seek(thandle_t handle, toff_t offset, int whence)
{
    Source& source = sourceOf(handle);
    toff_t const base = whence == SEEK_CUR   ? source.at
                        : whence == SEEK_END ? source.input.size()
                                             : 0;
    source.at = base + offset;
    return source.at;
}

toff_t sizeOf(thandle_t handle) { return sourceOf(handle).input.size(); }

int closeNothing(thandle_t) { return 0; }

int mapNothing(thandle_t, void**, toff_t*) { return 0; }

void unmapNothing(thandle_t, void*, toff_t) {}

/// The handlers answer 1: the process-wide ones, which print, are not to be called.
int onError(TIFF*, void* failed, char const*, char const*, va_list)
{
    *static_cast<bool*>(failed) = true;
    return 1;
}

int onWarning(TIFF*, void*, char const*, char const*, va_list) { return 1; }

using Tiff = std::unique_ptr<TIFF, decltype(&TIFFClose)>;
using Options = std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)>;

/// Options that make libtiff silent and set @p failed where it reports an error.
Options optionsFor(bool& failed)
{
    Options options(TIFFOpenOptionsAlloc(), &TIFFOpenOptionsFree);
    if (options) {
        TIFFOpenOptionsSetErrorHandlerExtR(options.get(), onError, &failed);
        TIFFOpenOptionsSetWarningHandlerExtR(options.get(), onWarning, nullptr);
    }
    return options;
}

Tiff openToRead(Source& source)
{
    Options const options = optionsFor(source.failed);
    if (!options)
        return Tiff(nullptr, &TIFFClose);
    // The largest block is a strip as it lies in the file.
    constexpr std::uint64_t spare = 1 << 20;
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(),
                                        static_cast<tmsize_t>(source.input.size() + spare));
    return Tiff(TIFFClientOpenExt("", "rm", &source, readBytes, writeNothing, seek, closeNothing,
                                  sizeOf, mapNothing, unmapNothing, options.get()),
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
    bool hasUnassociatedAlpha = false;
    bool isComplete = false; ///< width, height and photometric were there

    bool isPalette() const noexcept { return photometric == PHOTOMETRIC_PALETTE; }
    bool isSeparate() const noexcept { return planes == PLANARCONFIG_SEPARATE && samples > 1; }

    /// Bytes of a row of the file, of one plane where they are separate.
    std::size_t rowBytes() const noexcept
    {
        std::size_t const values = std::size_t{width} * (isSeparate() ? 1 : samples);
        return (values * bits + 7) / 8;
    }
};

Layout layoutOf(TIFF* tiff)
{
    Layout layout;
    std::uint16_t extraSamples = 0;
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
    // Out of memory, libtiff may keep the number of values without the values, here and in
    // palettes.
    if (TIFFGetField(tiff, TIFFTAG_EXTRASAMPLES, &extraSamples, &extraKinds))
        layout.hasUnassociatedAlpha =
            !extraKinds ||
            std::count(extraKinds, extraKinds + extraSamples, EXTRASAMPLE_UNASSALPHA) > 0;
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

/// The element type of values that are kept as the file has them; -1 for those that cannot be.
int typeOf(Layout const& layout)
{
    bool const isUnsigned = layout.format == SAMPLEFORMAT_UINT;
    bool const isSigned = layout.format == SAMPLEFORMAT_INT;
    bool const isFloating = layout.format == SAMPLEFORMAT_IEEEFP;
    switch (layout.bits) {
    case 1:
        return isUnsigned ? VEL_8U : -1;
    case 8:
        return isUnsigned ? VEL_8U : isSigned ? VEL_8S : -1;
    case 16:
        return isUnsigned ? VEL_16U : isSigned ? VEL_16S : -1;
    case 32:
        return isFloating ? VEL_32F : isSigned ? VEL_32S : -1;
    case 64:
        return isFloating ? VEL_64F : -1;
    default:
        return -1;
    }
}

/// Whether there is an image for the colours and the values of a pixel.
bool isKnownPixel(Layout const& layout, int type)
{
    if (type < 0)
        return false;
    bool const isSingle = layout.samples == 1;
    switch (layout.photometric) {
    case PHOTOMETRIC_MINISBLACK:
        return isSingle;
    case PHOTOMETRIC_MINISWHITE:
        return isSingle && type == VEL_8U;
    case PHOTOMETRIC_PALETTE:
        return isSingle && type == VEL_8U && layout.bits == 8;
    case PHOTOMETRIC_RGB:
        return (layout.samples == 3 || layout.samples == 4) && layout.bits >= 8 &&
               type != VEL_32S && type != VEL_64F;
    default:
        return false;
    }
}

bool isDecodable(TIFF* tiff, Layout const& layout)
{
    return layout.isComplete && !TIFFIsTiled(tiff) && layout.rowsPerStrip > 0 &&
           isLossless(layout.compression) && isKnownPixel(layout, typeOf(layout)) &&
           layout.orientation == ORIENTATION_TOPLEFT && !layout.hasUnassociatedAlpha &&
           (layout.planes == PLANARCONFIG_CONTIG || layout.bits == 8);
}

/// The colours of a palette, blue, green and red.
class Palette
{
public:
    /// False for a picture that needs a palette and has none.
    bool read(TIFF* tiff)
    {
        std::uint16_t const* maps[3] = {}; // red, green, blue
        if (!TIFFGetField(tiff, TIFFTAG_COLORMAP, &maps[0], &maps[1], &maps[2]) ||
            std::count(std::begin(maps), std::end(maps), nullptr) > 0)
            return false;
        bool const isDeep = std::any_of(std::begin(maps), std::end(maps), [](auto const* map) {
            return std::any_of(map, map + size, [](std::uint16_t value) { return value > 255; });
        });
        for (std::size_t i = 0; i < size; ++i) {
            for (std::size_t c = 0; c < 3; ++c) {
                // Some programs write values of 8 bits where 16 are meant.
                unsigned const value = maps[2 - c][i];
                entries[i][c] = static_cast<unsigned char>(isDeep ? value >> 8 : value);
            }
        }
        return true;
    }

    unsigned char const* operator[](unsigned char index) const { return entries[index].data(); }

private:
    static constexpr std::size_t size = 256;
    std::array<std::array<unsigned char, 3>, size> entries;
};

class Reader
{
public:
    Reader(TIFF* file, Source& fileSource, Layout const& fileLayout)
        : tiff(file), source(fileSource), layout(fileLayout)
    {
    }

    VelPixels* read()
    {
        if (layout.isPalette() && !palette.read(tiff))
            return nullptr;
        // A deflated strip that ends in the middle of a repetition is taken for a whole one.
        auto const create =
            layout.compression == COMPRESSION_NONE ? velcodec::newPixels : velcodec::newBlankPixels;
        pixels = create(layout.width, layout.height, layout.isPalette() ? 3 : layout.samples,
                        typeOf(layout));
        if (pixels && readStrips() && !source.failed)
            return pixels;
        VelPixels::release(pixels);
        return nullptr;
    }

private:
    bool readStrips()
    {
        std::uint32_t const rowsPerStrip = std::min(layout.rowsPerStrip, layout.height);
        auto const rowBytes = static_cast<std::size_t>(pixels->geometry.rowBytes());
        if (layout.isSeparate()) {
            row = velAllocate(layout.rowBytes());
            if (!row)
                return false;
        }
        // Strips may share their bytes, but not so that a small file takes for ever.
        source.mayRead = 4 * source.input.size() + 16 * pixels->geometry.bytes();
        std::uint32_t strip = 0;
        for (std::uint32_t y = 0; y < layout.height; y += rowsPerStrip, ++strip) {
            std::uint32_t const rows = std::min(rowsPerStrip, layout.height - y);
            unsigned char* const to = pixels->data + y * rowBytes;
            if (layout.isSeparate() ? !readPlanes(strip, y, rows, to)
                                    : !readStrip(strip, rows, to + tailOf(rows)))
                return false;
            if (!layout.isSeparate())
                convert(to, rows);
        }
        return true;
    }

    /// What a picture takes more than its file has, for so many rows: what is spread out is read to
    /// the end of its place first.
    std::size_t tailOf(std::uint32_t rows) const
    {
        return (static_cast<std::size_t>(pixels->geometry.rowBytes()) - layout.rowBytes()) * rows;
    }

    /// Decodes a whole strip, with whatever lies behind its last row.
    bool readStrip(std::uint32_t strip, std::uint32_t rows, unsigned char* to)
    {
        std::size_t const size = layout.rowBytes() * rows;
        // libtiff takes the bytes behind an uncompressed strip that is too short.
        if (layout.compression == COMPRESSION_NONE && TIFFGetStrileByteCount(tiff, strip) < size)
            return false;
        return TIFFReadEncodedStrip(tiff, strip, to, static_cast<tmsize_t>(size)) ==
               static_cast<tmsize_t>(size);
    }

    /// Reads the planes of some rows, each first as a whole strip, for the verdict, and then row by
    /// row.
    bool readPlanes(std::uint32_t strip, std::uint32_t y, std::uint32_t rows, unsigned char* to)
    {
        std::uint32_t const stripsPerPlane = TIFFNumberOfStrips(tiff) / layout.samples;
        for (std::uint32_t plane = 0; plane < layout.samples; ++plane) {
            if (!readStrip(strip + plane * stripsPerPlane, rows, to))
                return false;
        }
        for (std::uint16_t plane = 0; plane < layout.samples; ++plane) {
            std::size_t const channel = plane < 3 ? 2U - plane : plane;
            unsigned char* value = to + channel;
            for (std::uint32_t i = 0; i < rows; ++i) {
                if (TIFFReadScanline(tiff, row.get(), y + i, plane) != 1)
                    return false;
                for (std::uint32_t x = 0; x < layout.width; ++x, value += layout.samples)
                    *value = row.get()[x];
            }
        }
        return true;
    }

    void convert(unsigned char* to, std::uint32_t rows) const
    {
        std::size_t const count = std::size_t{layout.width} * rows;
        VelGeometry const& geometry = pixels->geometry;
        bool const isInverted = layout.photometric == PHOTOMETRIC_MINISWHITE;
        if (layout.bits == 1)
            expandBits(to, rows, isInverted ? 0xFF : 0);
        else if (isInverted)
            std::transform(to, to + count, to, [](unsigned char value) { return ~value; });
        else if (layout.isPalette())
            expandIndexes(to, count);
        else if (geometry.channels > 1)
            velorder::exchangeRedAndBlue(to, count, geometry.channels, layout.bits / 8);
    }

    void expandBits(unsigned char* to, std::uint32_t rows, unsigned inversion) const
    {
        unsigned char const* from = to + tailOf(rows);
        for (std::uint32_t y = 0; y < rows; ++y, from += layout.rowBytes()) {
            for (std::uint32_t x = 0; x < layout.width; x += 8) {
                unsigned const byte = from[x / 8] ^ inversion;
                std::uint32_t const count = std::min(8U, layout.width - x);
                for (std::uint32_t i = 0; i < count; ++i)
                    *to++ = (byte >> (7 - i) & 1) != 0 ? 255 : 0;
            }
        }
    }

    void expandIndexes(unsigned char* to, std::size_t count) const
    {
        unsigned char const* from = to + 2 * count;
        for (std::size_t i = 0; i < count; ++i, to += 3)
            std::memcpy(to, palette[*from++], 3);
    }

    TIFF* tiff;
    Source& source;
    Layout layout;
    Palette palette;
    VelPixels* pixels = nullptr;
    VelBlock row = VelBlock(nullptr, &std::free);
};

struct Target
{
    VelOutput& output;
    bool failed = false;
};

tmsize_t readNothing(thandle_t, void*, tmsize_t) { return 0; }

tmsize_t writeBytes(thandle_t handle, void* data, tmsize_t size)
{
    auto& target = *static_cast<Target*>(handle);
    if (target.output.write(data, static_cast<std::size_t>(size)))
        return size;
    target.failed = true;
    return 0;
}

toff_t seekOutput(thandle_t handle, toff_t offset, int whence)
{
    auto& target = *static_cast<Target*>(handle);
    toff_t const base = whence == SEEK_CUR   ? target.output.offset()
                        : whence == SEEK_END ? target.output.size()
                                             : 0;
    if (!target.output.seek(base + offset))
        target.failed = true;
    return base + offset;
}

toff_t sizeOfOutput(thandle_t handle) { return static_cast<Target*>(handle)->output.size(); }

Tiff openToWrite(Target& target)
{
    Options const options = optionsFor(target.failed);
    if (!options)
        return Tiff(nullptr, &TIFFClose);
    return Tiff(TIFFClientOpenExt("", "w", &target, readNothing, writeBytes, seekOutput,
                                  closeNothing, sizeOfOutput, mapNothing, unmapNothing,
                                  options.get()),
                &TIFFClose);
}

int formatOf(int type)
{
    switch (type) {
    case VEL_8S:
    case VEL_16S:
    case VEL_32S:
        return SAMPLEFORMAT_INT;
    case VEL_32F:
    case VEL_64F:
        return SAMPLEFORMAT_IEEEFP;
    default:
        return SAMPLEFORMAT_UINT;
    }
}

void setFields(TIFF* tiff, VelGeometry const& geometry, int bits, std::uint32_t rowsPerStrip,
               bool isPacked)
{
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, geometry.width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, geometry.height);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, bits);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, geometry.channels);
    TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, formatOf(geometry.type));
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC,
                 geometry.channels == 1 ? PHOTOMETRIC_MINISBLACK : PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, rowsPerStrip);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, isPacked ? COMPRESSION_LZW : COMPRESSION_NONE);
    if (isPacked)
        TIFFSetField(tiff, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL);
}

bool writeStrips(TIFF* tiff, VelPixels const& pixels, std::uint32_t rowsPerStrip, int valueBytes)
{
    VelGeometry const& geometry = pixels.geometry;
    auto const rowBytes = static_cast<std::size_t>(geometry.rowBytes());
    // libtiff changes what it is given.
    VelBlock const window = velAllocate(rowBytes * rowsPerStrip);
    auto const height = static_cast<std::uint32_t>(geometry.height);
    std::uint32_t strip = 0;
    for (std::uint32_t y = 0; window && y < height; y += rowsPerStrip, ++strip) {
        std::size_t const size = rowBytes * std::min(rowsPerStrip, height - y);
        std::memcpy(window.get(), pixels.data + y * rowBytes, size);
        if (geometry.channels > 1) {
            auto const channels = static_cast<std::size_t>(geometry.channels);
            std::size_t const pixelBytes = channels * static_cast<std::size_t>(valueBytes);
            velorder::exchangeRedAndBlue(window.get(), size / pixelBytes, geometry.channels,
                                         valueBytes);
        }
        if (TIFFWriteEncodedStrip(tiff, strip, window.get(), static_cast<tmsize_t>(size)) < 0)
            return false;
    }
    return window != nullptr;
}

} // namespace

VelPixels* velcodec::readTiff(VelInput const& input)
{
    VelTiffDirectory const directory(input);
    // Values are read into one block and kept in another.
    if (!directory.isWhole() ||
        !velHasMemory(vellimits::tiffSpareBytes + 2 * directory.valueBytes()))
        return nullptr;
    // The marks that leave the values alone: an orientation is not applied, nor is an alpha.
    Source source = {
        input,
        {{{directory.shortAt(TIFFTAG_ORIENTATION), directory.shortOf(ORIENTATION_TOPLEFT)},
          {directory.shortAt(TIFFTAG_EXTRASAMPLES), directory.shortOf(EXTRASAMPLE_ASSOCALPHA)}}}};
    Tiff const tiff = openToRead(source);
    if (!tiff)
        return nullptr;
    Layout const layout = layoutOf(tiff.get());
    if (!isDecodable(tiff.get(), layout))
        return nullptr;
    return Reader(tiff.get(), source, layout).read();
}

bool velcodec::writeTiff(VelPixels const& pixels, int effort, VelOutput& output)
{
    VelGeometry const& geometry = pixels.geometry;
    int const valueBytes = geometry.rowBytes() / (geometry.width * geometry.channels);
    constexpr int usualStripBytes = 8192;
    int const rowsPerStrip = std::clamp(usualStripBytes / geometry.rowBytes(), 1, geometry.height);
    // The places and the sizes of all strips, as they are kept, as they are written, and once more.
    constexpr std::size_t stripBytes = 64;
    if (!velHasMemory(vellimits::tiffSpareBytes +
                      stripBytes * static_cast<std::size_t>(geometry.height)))
        return false;
    Target target = {output};
    Tiff tiff = openToWrite(target);
    if (!tiff)
        return false;
    // Values of 32 and 64 bits hardly ever repeat.
    setFields(tiff.get(), geometry, 8 * valueBytes, static_cast<std::uint32_t>(rowsPerStrip),
              effort > 0 && valueBytes <= 2);
    bool const done =
        writeStrips(tiff.get(), pixels, static_cast<std::uint32_t>(rowsPerStrip), valueBytes);
    tiff.reset(); // writes the directory
    return done && !target.failed;
}
