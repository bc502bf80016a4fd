#include <veldata/velcodec_p.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

#include <veldata/velimagetype.h>
#include <veldata/velinput_p.h>
#include <veldata/vellimits_p.h>
#include <veldata/velmemory_p.h>
#include <veldata/veloutput_p.h>

namespace {

constexpr std::size_t fileHeaderSize = 14;
constexpr std::uint32_t coreHeaderSize = 12;
constexpr std::uint32_t infoHeaderSize = 40;
constexpr std::uint32_t longestHeaderSize = 124;
constexpr std::size_t maxColours = 256;

enum Compression : std::uint32_t { Uncompressed = 0, BitFields = 3 };

/// The beginning of a file, as far as headers and palette may reach; zeros behind a shorter file.
struct Beginning
{
    std::array<unsigned char, fileHeaderSize + longestHeaderSize + 4 * maxColours> bytes = {};
    std::size_t size = 0;

    std::uint32_t number16(std::size_t at) const
    {
        return bytes[at] | std::uint32_t{bytes[at + 1]} << 8;
    }

    std::uint32_t number32(std::size_t at) const { return number16(at) | number16(at + 2) << 16; }
};

struct Header
{
    std::uint32_t size;
    std::int64_t width;
    std::int64_t height; ///< negative where the top row comes first
    std::uint32_t bitsPerPixel;
    std::uint32_t compression;
    std::uint32_t colours;     ///< entries of the palette
    std::uint32_t colourBytes; ///< bytes of one entry
    std::uint32_t dataOffset;

    std::size_t rowBytes() const
    {
        return (static_cast<std::size_t>(width) * bitsPerPixel + 7) / 8;
    }

    /// Bytes behind each row that make it end at a multiple of four.
    std::size_t gap() const { return (4 - rowBytes() % 4) % 4; }
    std::size_t fileStep() const { return rowBytes() + gap(); }
    std::size_t rows() const { return static_cast<std::size_t>(std::abs(height)); }
    std::size_t paletteOffset() const { return fileHeaderSize + size; }
};

bool hasMasks(Beginning const& file, std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    constexpr std::size_t at = fileHeaderSize + infoHeaderSize;
    return file.number32(at) == red && file.number32(at + 4) == green &&
           file.number32(at + 8) == blue;
}

/// The masks lie behind the plain header for 16 bits and inside a longer header for 32, at the same
/// place.
bool isKnownLayout(Beginning const& file, Header const& header)
{
    constexpr std::size_t masksEnd = fileHeaderSize + infoHeaderSize + 16;
    switch (header.bitsPerPixel) {
    case 1:
    case 4:
    case 8:
    case 24:
        return header.compression == Uncompressed;
    case 16:
        if (header.compression == Uncompressed)
            return header.size != coreHeaderSize;
        return header.compression == BitFields && header.size == infoHeaderSize &&
               file.size >= masksEnd &&
               (hasMasks(file, 0xF800, 0x07E0, 0x001F) || hasMasks(file, 0x7C00, 0x03E0, 0x001F));
    case 32:
        if (header.compression == Uncompressed)
            return true;
        return header.compression == BitFields && header.size >= 56 &&
               hasMasks(file, 0x00FF0000, 0x0000FF00, 0x000000FF) &&
               file.number32(masksEnd - 4) == 0xFF000000;
    default:
        return false;
    }
}

/// The header of either generation.
Header headerOf(Beginning const& file)
{
    constexpr std::size_t at = fileHeaderSize;
    Header header = {};
    header.size = file.number32(at);
    header.dataOffset = file.number32(10);
    if (header.size == coreHeaderSize) {
        header.width = file.number16(at + 4);
        header.height = file.number16(at + 6);
        header.bitsPerPixel = file.number16(at + 10);
        header.compression = Uncompressed;
        header.colourBytes = 3;
    } else {
        header.width = static_cast<std::int32_t>(file.number32(at + 4));
        header.height = static_cast<std::int32_t>(file.number32(at + 8));
        header.bitsPerPixel = file.number16(at + 14);
        header.compression = file.number32(at + 16);
        header.colours = file.number32(at + 32);
        header.colourBytes = 4;
    }
    if (header.bitsPerPixel > 8)
        header.colours = 0;
    else if (header.colours == 0)
        header.colours = std::uint32_t{1} << header.bitsPerPixel;
    return header;
}

bool isKnownHeader(Beginning const& file)
{
    if (file.size < fileHeaderSize + coreHeaderSize)
        return false;
    std::uint32_t const size = file.number32(fileHeaderSize);
    bool const isKnownSize = size == coreHeaderSize || size == infoHeaderSize || size == 52 ||
                             size == 56 || size == 108 || size == longestHeaderSize;
    return isKnownSize && file.size >= fileHeaderSize + size;
}

/// Whether headers, palette and all rows lie in the file one after the other.
bool isWhole(Header const& header, std::uint64_t fileSize)
{
    constexpr auto side = static_cast<std::int64_t>(vellimits::side);
    if (header.width <= 0 || header.width > side || header.height == 0 ||
        std::abs(header.height) > side || header.colours > maxColours)
        return false;
    std::size_t const paletteBytes = std::size_t{header.colours} * header.colourBytes;
    return header.dataOffset >= header.paletteOffset() + paletteBytes &&
           header.dataOffset <= fileSize &&
           header.fileStep() * header.rows() <= fileSize - header.dataOffset;
}

/// The colours of the palette, blue, green and red; black where it has none.
class Palette
{
public:
    Palette(Beginning const& file, Header const& header)
    {
        std::size_t const step = header.colourBytes;
        for (std::size_t i = 0; i < header.colours; ++i)
            std::memcpy(entries[i].data(), &file.bytes[header.paletteOffset() + i * step], 3);
        std::size_t const used = std::size_t{1} << std::min<std::uint32_t>(header.bitsPerPixel, 8);
        for (std::size_t i = 0; i < used; ++i) {
            auto const& [blue, green, red] = entries[i];
            hasGreysOnly = hasGreysOnly && blue == green && green == red;
            isPlain = isPlain && blue == i;
        }
        isPlain = isPlain && hasGreysOnly;
    }

    bool isGrey() const { return hasGreysOnly; }

    /// Whether every 8-bit value stands for itself.
    bool isIdentity() const { return isPlain; }

    /// Stores the colour, or the grey, of @p index.
    void put(std::size_t index, unsigned char*& to) const
    {
        if (hasGreysOnly) {
            *to++ = entries[index][0];
            return;
        }
        for (unsigned char value : entries[index])
            *to++ = value;
    }

private:
    std::array<std::array<unsigned char, 3>, maxColours> entries = {};
    bool hasGreysOnly = true;
    bool isPlain = true;
};

void expandIndexes(unsigned char const* from, std::size_t width, std::uint32_t bits,
                   Palette const& palette, unsigned char* to)
{
    std::size_t const perByte = 8 / bits;
    std::size_t const mask = (std::size_t{1} << bits) - 1;
    for (std::size_t x = 0; x < width; ++x) {
        std::size_t const shift = (perByte - 1 - x % perByte) * bits;
        palette.put(from[x / perByte] >> shift & mask, to);
    }
}

/// Five bits for each colour, or six for green; the bits that a byte has more are zero.
void expandWords(unsigned char const* from, std::size_t width, bool hasSixGreenBits,
                 unsigned char* to)
{
    for (std::size_t x = 0; x < width; ++x, from += 2, to += 3) {
        unsigned const word = from[0] | unsigned{from[1]} << 8;
        to[0] = static_cast<unsigned char>(word << 3);
        to[1] = static_cast<unsigned char>(hasSixGreenBits ? word >> 3 & 0xFC : word >> 2 & 0xF8);
        to[2] = static_cast<unsigned char>(hasSixGreenBits ? word >> 8 & 0xF8 : word >> 7 & 0xF8);
    }
}

void dropFourth(unsigned char const* from, std::size_t width, unsigned char* to)
{
    for (std::size_t x = 0; x < width; ++x, from += 4, to += 3)
        std::memcpy(to, from, 3);
}

class Reader
{
public:
    Reader(VelInput const& file, Beginning const& beginning, Header const& fileHeader)
        : input(file),
          header(fileHeader),
          palette(beginning, fileHeader),
          hasSixGreenBits(fileHeader.bitsPerPixel == 16 && fileHeader.compression == BitFields &&
                          hasMasks(beginning, 0xF800, 0x07E0, 0x001F))
    {
    }

    VelPixels* read() const
    {
        VelPixels* const pixels = velcodec::newPixels(static_cast<std::uint64_t>(header.width),
                                                      header.rows(), channels(), VEL_8U);
        if (!pixels)
            return nullptr;
        auto const step = static_cast<std::ptrdiff_t>(pixels->geometry.rowBytes());
        bool const isTopDown = header.height < 0;
        unsigned char* const first =
            isTopDown ? pixels->data
                      : pixels->data + step * static_cast<std::ptrdiff_t>(header.rows() - 1);
        if (isPlain() ? readPlain(first, isTopDown ? step : -step)
                      : readConverted(first, isTopDown ? step : -step))
            return pixels;
        VelPixels::release(pixels);
        return nullptr;
    }

private:
    int channels() const
    {
        if (header.bitsPerPixel <= 8)
            return palette.isGrey() ? 1 : 3;
        return header.bitsPerPixel == 32 && header.compression == BitFields ? 4 : 3;
    }

    /// Whether the rows of the file are those of the image.
    bool isPlain() const
    {
        return header.bitsPerPixel == 24 || channels() == 4 ||
               (header.bitsPerPixel == 8 && palette.isIdentity());
    }

    bool readPlain(unsigned char* first, std::ptrdiff_t step) const
    {
        return input.readRows({header.dataOffset, header.rowBytes(), header.gap(), header.rows()},
                              first, step);
    }

    bool readConverted(unsigned char* row, std::ptrdiff_t step) const
    {
        std::size_t const fileStep = header.fileStep();
        std::size_t const rowsAtOnce = std::max<std::size_t>(1, vellimits::windowBytes / fileStep);
        VelBlock const window = velAllocate(rowsAtOnce * fileStep);
        if (!window)
            return false;
        std::uint64_t offset = header.dataOffset;
        for (std::size_t left = header.rows(); left > 0;) {
            std::size_t const count = std::min(left, rowsAtOnce);
            if (input.readAt(offset, window.get(), count * fileStep) != count * fileStep)
                return false;
            for (std::size_t i = 0; i < count; ++i, row += step)
                convert(window.get() + i * fileStep, row);
            offset += count * fileStep;
            left -= count;
        }
        return true;
    }

    void convert(unsigned char const* from, unsigned char* to) const
    {
        auto const width = static_cast<std::size_t>(header.width);
        if (header.bitsPerPixel <= 8)
            expandIndexes(from, width, header.bitsPerPixel, palette, to);
        else if (header.bitsPerPixel == 16)
            expandWords(from, width, hasSixGreenBits, to);
        else
            dropFourth(from, width, to);
    }

    VelInput const& input;
    Header header;
    Palette palette;
    bool hasSixGreenBits;
};

void put(unsigned char*& at, std::uint32_t value, int size)
{
    for (int i = 0; i < size; ++i)
        *at++ = static_cast<unsigned char>(value >> (8 * i));
}

} // namespace

VelPixels* velcodec::readBmp(VelInput const& input)
{
    Beginning file;
    file.size = input.readAt(0, file.bytes.data(), file.bytes.size());
    if (!isKnownHeader(file))
        return nullptr;
    Header const header = headerOf(file);
    if (!isKnownLayout(file, header) || !isWhole(header, input.size()))
        return nullptr;
    return Reader(input, file, header).read();
}

bool velcodec::writeBmp(VelPixels const& pixels, int, VelOutput& output)
{
    VelGeometry const& geometry = pixels.geometry;
    bool const isGrey = geometry.channels == 1;
    auto const rowBytes = static_cast<std::size_t>(geometry.rowBytes());
    std::size_t const gap = (4 - rowBytes % 4) % 4;
    std::size_t const paletteBytes = isGrey ? 4 * maxColours : 0;
    std::size_t const dataOffset = fileHeaderSize + infoHeaderSize + paletteBytes;
    std::size_t const fileSize =
        dataOffset + (rowBytes + gap) * static_cast<std::size_t>(geometry.height);

    std::array<unsigned char, fileHeaderSize + infoHeaderSize + 4 * maxColours> beginning;
    unsigned char* at = beginning.data();
    put(at, 'B' | 'M' << 8, 2);
    put(at, static_cast<std::uint32_t>(fileSize), 4);
    put(at, 0, 4);
    put(at, static_cast<std::uint32_t>(dataOffset), 4);
    put(at, infoHeaderSize, 4);
    put(at, static_cast<std::uint32_t>(geometry.width), 4);
    put(at, static_cast<std::uint32_t>(geometry.height), 4);
    put(at, 1, 2);
    put(at, isGrey ? 8 : 24, 2);
    for (int unused = 0; unused < 6; ++unused)
        put(at, 0, 4);
    for (std::uint32_t i = 0; isGrey && i < maxColours; ++i)
        put(at, i * 0x010101, 4);
    if (!output.write(beginning.data(), dataOffset))
        return false;

    constexpr unsigned char zeros[3] = {};
    unsigned char const* row = pixels.data + geometry.bytes();
    for (int y = 0; y < geometry.height; ++y) {
        row -= rowBytes;
        if (!output.write(row, rowBytes) || !output.write(zeros, gap))
            return false;
    }
    return true;
}
