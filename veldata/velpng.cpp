#include <veldata/velcodec_p.h>

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstring>

#include <png.h>
#include <zlib.h>

#include <veldata/velimagetype.h>
#include <veldata/velinput_p.h>
#include <veldata/vellimits_p.h>
#include <veldata/veloutput_p.h>

namespace {

constexpr std::size_t signatureSize = 8;

/// libpng's answer to errors and warnings alike: the picture is refused.
[[noreturn]] void refuse(png_structp png, png_const_charp) { png_longjmp(png, 1); }

/// The answer to warnings where a picture is written. One comes from the middle of zlib where
/// memory runs out; jumping out of there would lose what zlib has got so far, and an error follows
/// anyway.
void passOver(png_structp, png_const_charp) {}

#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
constexpr bool isLittleEndian = true;
#else
constexpr bool isLittleEndian = false;
#endif

/// The chunks of a file without those that have no bearing on the pixels: nobody looks into them,
/// and so they may be damaged. The file ends at a chunk that is needed and that nobody knows;
/// libpng itself passes over it behind the pixels.
class Chunks
{
public:
    explicit Chunks(VelInput const& input) noexcept : fileSize(input.size()), stream(input)
    {
        stream.skip(signatureSize);
    }

    /// The next @p size bytes of these chunks; false at the end of the file.
    bool read(unsigned char* target, std::size_t size) noexcept
    {
        while (size > 0) {
            if (headerLeft == 0 && bodyLeft == 0 && !beginChunk())
                return false;
            bool const isHeader = headerLeft > 0;
            std::size_t& left = isHeader ? headerLeft : bodyLeft;
            std::size_t const part = std::min(size, left);
            if (isHeader)
                std::memcpy(target, header.data() + header.size() - headerLeft, part);
            else if (!stream.read(target, part))
                return false;
            left -= part;
            target += part;
            size -= part;
        }
        return true;
    }

private:
    /// Steps to the next chunk that bears on the pixels.
    bool beginChunk() noexcept
    {
        constexpr std::size_t checksumSize = 4;
        while (stream.read(header.data(), header.size())) {
            std::size_t const size = std::size_t{png_get_uint_32(header.data())} + checksumSize;
            if (size > fileSize - stream.offset() || (isCritical() && !isKnown()))
                return false;
            if (bearsOnPixels()) {
                headerLeft = header.size();
                bodyLeft = size;
                return true;
            }
            stream.skip(size);
        }
        return false;
    }

    bool is(char const* name) const noexcept
    {
        return std::memcmp(header.data() + 4, name, 4) == 0;
    }

    bool bearsOnPixels() const noexcept { return is("tRNS") || isCritical(); }
    bool isKnown() const noexcept { return is("IHDR") || is("PLTE") || is("IDAT") || is("IEND"); }

    /// Whether the picture cannot be understood without the chunk, as its name says.
    bool isCritical() const noexcept
    {
        constexpr unsigned char ancillary = 0x20;
        return (header[4] & ancillary) == 0;
    }

    std::uint64_t fileSize;
    VelInputStream stream;
    std::array<unsigned char, 8> header; ///< length and name
    std::size_t headerLeft = 0;          ///< not given out yet
    std::size_t bodyLeft = 0;            ///< of the contents and the checksum
};

void readBytes(png_structp png, png_bytep target, std::size_t size)
{
    if (!static_cast<Chunks*>(png_get_io_ptr(png))->read(target, size))
        png_longjmp(png, 1);
}

/// A libpng reader that refuses at the first warning.
class Reader
{
public:
    explicit Reader(VelInput const& input) noexcept
        : fileSize(input.size()),
          chunks(input),
          png(png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, refuse, refuse)),
          info(png ? png_create_info_struct(png) : nullptr)
    {
    }

    ~Reader() { png_destroy_read_struct(&png, &info, nullptr); }

    Reader(Reader const&) = delete;
    Reader& operator=(Reader const&) = delete;

    VelPixels* read() noexcept
    {
        if (info && readHeader()) {
            pixels = velcodec::newPixels(png_get_image_width(png, info),
                                         png_get_image_height(png, info), channels(), type());
            if (pixels && readRows())
                return pixels;
        }
        VelPixels::release(pixels);
        return nullptr;
    }

private:
    /// This and readRows() hold no objects with destructors: refuse() jumps out of them.
    bool readHeader() noexcept
    {
        if (setjmp(png_jmpbuf(png)))
            return false;
        png_set_read_fn(png, &chunks, readBytes);
        png_set_sig_bytes(png, signatureSize);
        png_read_info(png, info);
        // Deflate packs 1032 bytes into one at best.
        constexpr std::uint64_t bestPacking = 1032;
        return std::uint64_t{png_get_rowbytes(png, info)} * png_get_image_height(png, info) <=
               bestPacking * fileSize;
    }

    bool readRows() noexcept
    {
        if (setjmp(png_jmpbuf(png)))
            return false;
        requestPixels();
        int const passes = png_set_interlace_handling(png);
        png_read_update_info(png, info);
        auto const rowBytes = static_cast<std::size_t>(pixels->geometry.rowBytes());
        if (png_get_rowbytes(png, info) != rowBytes)
            return false;
        for (int pass = 0; pass < passes; ++pass) {
            png_bytep row = pixels->data;
            for (int y = 0; y < pixels->geometry.height; ++y, row += rowBytes)
                png_read_row(png, row, nullptr);
        }
        png_read_end(png, nullptr);
        return true;
    }

    /// Asks for the image's own order and for whole bytes.
    void requestPixels() noexcept
    {
        if (type() == VEL_16U && isLittleEndian)
            png_set_swap(png);
        if (isPalette())
            png_set_palette_to_rgb(png);
        else if (hasTransparency() && channels() == 4)
            png_set_tRNS_to_alpha(png);
        if (isColour())
            png_set_bgr(png);
        else if (channels() == 4)
            png_set_gray_to_rgb(png);
        else
            png_set_expand_gray_1_2_4_to_8(png);
    }

    int colourType() const noexcept { return png_get_color_type(png, info); }
    bool isPalette() const noexcept { return colourType() == PNG_COLOR_TYPE_PALETTE; }
    bool isColour() const noexcept { return (colourType() & PNG_COLOR_MASK_COLOR) != 0; }
    bool hasTransparency() const noexcept { return png_get_valid(png, info, PNG_INFO_tRNS) != 0; }

    /// A transparent colour becomes alpha; a transparent grey is passed over.
    int channels() const noexcept
    {
        if ((colourType() & PNG_COLOR_MASK_ALPHA) != 0)
            return 4;
        if (!isColour())
            return 1;
        return hasTransparency() ? 4 : 3;
    }

    int type() const noexcept { return png_get_bit_depth(png, info) == 16 ? VEL_16U : VEL_8U; }

    std::uint64_t fileSize;
    Chunks chunks;
    png_structp png;
    png_infop info;
    VelPixels* pixels = nullptr;
};

/// Where a written file goes; nowhere, when only its size is wanted.
struct Sink
{
    VelOutput* output;
    std::uint64_t size;
};

void writeBytes(png_structp png, png_bytep data, std::size_t size)
{
    auto* const sink = static_cast<Sink*>(png_get_io_ptr(png));
    sink->size += size;
    if (sink->output && !sink->output->write(data, size))
        png_longjmp(png, 1);
}

void flushNothing(png_structp) {}

int colourTypeOf(VelGeometry const& geometry)
{
    switch (geometry.channels) {
    case 1:
        return PNG_COLOR_TYPE_GRAY;
    case 3:
        return PNG_COLOR_TYPE_RGB;
    default:
        return PNG_COLOR_TYPE_RGB_ALPHA;
    }
}

/// How rows are filtered and deflated.
struct Packing
{
    int filtersBetweenBands; ///< of the first row of a band, which the one above is not like
    int filters;
    int level;
    int strategy;
};

/// The quick ways. Noise, as in photographs, hides all repetitions but those of one value, and
/// looking for others costs much and gains nothing; masks have few others. Then there are smooth
/// pictures, and drawings, which repeat themselves.
constexpr Packing quickPackings[] = {
    {PNG_FILTER_SUB, PNG_FILTER_AVG, 1, Z_RLE},
    {PNG_FILTER_SUB, PNG_FILTER_PAETH, 1, Z_RLE},
    {PNG_FILTER_SUB, PNG_FILTER_UP, 5, Z_DEFAULT_STRATEGY},
    {PNG_FILTER_NONE, PNG_FILTER_NONE, 4, Z_DEFAULT_STRATEGY},
};

/// Some rows of a picture: all of them, or bands that lie evenly over it.
class Excerpt
{
public:
    static Excerpt all(int height) noexcept { return {1, height, 0}; }

    static Excerpt sample(int height) noexcept
    {
        constexpr int bandRows = 8;
        constexpr int rowsPerBand = 512;
        int const bands = std::max(4, height / rowsPerBand);
        return height <= bands * bandRows ? all(height) : Excerpt(bands, bandRows, height / bands);
    }

    int rows() const noexcept { return bands * bandRows; }
    bool isFirst(int i) const noexcept { return i % bandRows == 0; }
    int rowAt(int i) const noexcept { return i / bandRows * step + i % bandRows; }

private:
    Excerpt(int bandCount, int rowsOfBand, int bandStep) noexcept
        : bands(bandCount), bandRows(rowsOfBand), step(bandStep)
    {
    }

    int bands;
    int bandRows;
    int step;
};

/// Holds no objects with destructors: refuse() jumps out of it.
bool writeRows(png_structp png, png_infop info, VelPixels const& pixels, Excerpt const& excerpt,
               Packing const& packing)
{
    if (setjmp(png_jmpbuf(png)))
        return false;
    VelGeometry const& geometry = pixels.geometry;
    bool const isDeep = geometry.type == VEL_16U;
    png_set_filter(png, PNG_FILTER_TYPE_BASE, packing.filters);
    png_set_compression_level(png, packing.level);
    png_set_compression_strategy(png, packing.strategy);
    png_set_IHDR(png, info, static_cast<png_uint_32>(geometry.width),
                 static_cast<png_uint_32>(excerpt.rows()), isDeep ? 16 : 8, colourTypeOf(geometry),
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    if (geometry.channels > 1)
        png_set_bgr(png);
    if (isDeep && isLittleEndian)
        png_set_swap(png);
    auto const rowBytes = static_cast<std::size_t>(geometry.rowBytes());
    for (int i = 0; i < excerpt.rows(); ++i) {
        // libpng keeps the row above only for filters that it was told of to begin with.
        if (i > 0)
            png_set_filter(png, PNG_FILTER_TYPE_BASE,
                           excerpt.isFirst(i) ? packing.filtersBetweenBands : packing.filters);
        png_write_row(png, pixels.data + static_cast<std::size_t>(excerpt.rowAt(i)) * rowBytes);
    }
    png_write_end(png, info);
    return true;
}

bool write(VelPixels const& pixels, Excerpt const& excerpt, Packing const& packing, Sink& sink)
{
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, refuse, passOver);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (info)
        png_set_write_fn(png, &sink, writeBytes, flushNothing);
    bool const done = info && writeRows(png, info, pixels, excerpt, packing);
    png_destroy_write_struct(&png, &info);
    return done;
}

/// The quick way that makes a sample of the picture smallest; the first where there is no memory to
/// try.
Packing quickPackingFor(VelPixels const& pixels)
{
    Excerpt const sample = Excerpt::sample(pixels.geometry.height);
    Packing best = quickPackings[0];
    std::uint64_t bestSize = UINT64_MAX;
    for (Packing const& packing : quickPackings) {
        Sink sink = {nullptr, 0};
        if (write(pixels, sample, packing, sink) && sink.size < bestSize) {
            best = packing;
            bestSize = sink.size;
        }
    }
    return best;
}

} // namespace

VelPixels* velcodec::readPng(VelInput const& input) { return Reader(input).read(); }

bool velcodec::writePng(VelPixels const& pixels, int effort, VelOutput& output)
{
    constexpr int mostQuickEffort = 6;
    bool const isQuick = effort > 0 && effort <= mostQuickEffort;
    Packing const packing =
        isQuick ? quickPackingFor(pixels)
                : Packing{PNG_ALL_FILTERS, PNG_ALL_FILTERS, effort, Z_DEFAULT_STRATEGY};
    Sink sink = {&output, 0};
    return write(pixels, Excerpt::all(pixels.geometry.height), packing, sink);
}
