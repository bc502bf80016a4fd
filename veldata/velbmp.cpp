#include <veldata/velcodec_p.h>

#include <cstddef>
#include <cstdlib>

namespace {

using velcodec::Bytes;

constexpr std::size_t fileHeaderSize = 14;
constexpr std::uint32_t coreHeaderSize = 12;
constexpr std::uint32_t infoHeaderSize = 40;

enum Compression : std::uint32_t { Uncompressed = 0, BitFields = 3 };

std::uint32_t number16(Bytes const& bytes, std::size_t at)
{
    return bytes[at] | std::uint32_t{bytes[at + 1]} << 8;
}

std::uint32_t number32(Bytes const& bytes, std::size_t at)
{
    return number16(bytes, at) | number16(bytes, at + 2) << 16;
}

struct Header
{
    std::int64_t width;
    std::int64_t height;
    std::uint32_t bitsPerPixel;
    std::uint32_t compression;
    std::uint32_t colours;     ///< entries of the palette
    std::uint32_t colourBytes; ///< bytes of one entry
};

bool hasMasks(Bytes const& bytes, std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    constexpr std::size_t at = fileHeaderSize + infoHeaderSize;
    return number32(bytes, at) == red && number32(bytes, at + 4) == green &&
           number32(bytes, at + 8) == blue;
}

/// The colour layouts that OpenCV reads right. Its masks lie behind the plain header for 16 bits
/// and inside a longer header for 32, at the same place.
bool isKnownLayout(Bytes const& bytes, Header const& header, std::uint32_t headerSize)
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
            return headerSize != coreHeaderSize;
        return header.compression == BitFields && headerSize == infoHeaderSize &&
               bytes.size() >= masksEnd &&
               (hasMasks(bytes, 0xF800, 0x07E0, 0x001F) || hasMasks(bytes, 0x7C00, 0x03E0, 0x001F));
    case 32:
        if (header.compression == Uncompressed)
            return true;
        return header.compression == BitFields && headerSize >= 56 && bytes.size() >= masksEnd &&
               hasMasks(bytes, 0x00FF0000, 0x0000FF00, 0x000000FF) &&
               number32(bytes, masksEnd - 4) == 0xFF000000;
    default:
        return false;
    }
}

/// The header of either generation; the sizes have been checked against the file.
Header headerOf(Bytes const& bytes, std::uint32_t headerSize)
{
    constexpr std::size_t at = fileHeaderSize;
    Header header = {};
    if (headerSize == coreHeaderSize) {
        header.width = number16(bytes, at + 4);
        header.height = number16(bytes, at + 6);
        header.bitsPerPixel = number16(bytes, at + 10);
        header.compression = Uncompressed;
        header.colourBytes = 3;
    } else {
        header.width = static_cast<std::int32_t>(number32(bytes, at + 4));
        header.height = std::abs(std::int64_t{static_cast<std::int32_t>(number32(bytes, at + 8))});
        header.bitsPerPixel = number16(bytes, at + 14);
        header.compression = number32(bytes, at + 16);
        header.colours = number32(bytes, at + 32);
        header.colourBytes = 4;
    }
    if (header.bitsPerPixel > 8)
        header.colours = 0;
    else if (header.colours == 0)
        header.colours = std::uint32_t{1} << header.bitsPerPixel;
    return header;
}

} // namespace

bool velcodec::prepareBmp(Bytes& bytes)
{
    if (bytes.size() < fileHeaderSize + coreHeaderSize)
        return false;
    std::uint32_t const dataOffset = number32(bytes, 10);
    std::uint32_t const headerSize = number32(bytes, fileHeaderSize);
    bool const knownHeader = headerSize == coreHeaderSize || headerSize == infoHeaderSize ||
                             headerSize == 52 || headerSize == 56 || headerSize == 108 ||
                             headerSize == 124;
    if (!knownHeader || bytes.size() < fileHeaderSize + headerSize)
        return false;

    Header const header = headerOf(bytes, headerSize);
    if (!isDecodableSize(header.width, header.height) ||
        !isKnownLayout(bytes, header, headerSize) || header.colours > 256)
        return false;

    std::size_t const coloursEnd =
        fileHeaderSize + headerSize + std::size_t{header.colours} * header.colourBytes;
    std::int64_t const rowBytes = (header.width * header.bitsPerPixel + 31) / 32 * 4;
    return dataOffset >= coloursEnd && dataOffset <= bytes.size() &&
           rowBytes * header.height <= static_cast<std::int64_t>(bytes.size() - dataOffset);
}
