#include <veldata/velcodec_p.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include <veldata/velimagetype.h>
#include <veldata/velinput_p.h>
#include <veldata/vellimits_p.h>
#include <veldata/velmemory_p.h>
#include <veldata/velorder_p.h>
#include <veldata/veloutput_p.h>

namespace {

bool isDigit(int byte) { return byte >= '0' && byte <= '9'; }

bool isSpace(int byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

/// Reads the numbers of a portable map one after the other.
class Numbers
{
public:
    explicit Numbers(VelInput const& input) noexcept : stream(input) {}

    /// The digit that tells the kind of map; 0 where no space follows it.
    int kind() noexcept
    {
        unsigned char beginning[2] = {};
        return stream.read(beginning, sizeof beginning) && isSpace(stream.peek()) ? beginning[1]
                                                                                  : 0;
    }

    /// The next number; -1 where there is none up to @p maxValue.
    int next(int maxValue) noexcept
    {
        if (!skipSpaceAndComments())
            return -1;
        int value = 0;
        for (int digit = stream.peek(); isDigit(digit); digit = stream.peek()) {
            stream.step();
            value = value * 10 + (digit - '0');
            if (value > maxValue)
                return -1;
        }
        return value;
    }

    /// The next number of one digit; -1 where there is none up to 1.
    int nextBit() noexcept
    {
        if (!skipSpaceAndComments())
            return -1;
        int const digit = stream.peek();
        stream.step();
        return digit <= '1' ? digit - '0' : -1;
    }

    /// The next number of the header; -1 also where no space follows it, not even before a comment:
    /// programs differ in whether a comment there swallows the first pixel.
    int nextOfHeader(int maxValue) noexcept
    {
        int const value = next(maxValue);
        return isSpace(stream.peek()) ? value : -1;
    }

    /// Steps over the one space that ends the header.
    void endHeader() noexcept { stream.step(); }

    std::uint64_t offset() const noexcept { return stream.offset(); }

private:
    /// Whether a digit comes next.
    bool skipSpaceAndComments() noexcept
    {
        int byte = stream.peek();
        for (bool isComment = false; isComment || isSpace(byte) || byte == '#';
             byte = stream.peek()) {
            if (byte < 0)
                return false;
            isComment = (isComment || byte == '#') && byte != '\n' && byte != '\r';
            stream.step();
        }
        return isDigit(byte);
    }

    VelInputStream stream;
};

struct Header
{
    int width;
    int height;
    int channels;
    int maxValue;
    bool isBinary;
    bool isBitmap; ///< a value is one bit, 1 for black

    bool isDeep() const { return maxValue > 255; }
    std::size_t rowValues() const
    {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(channels);
    }

    /// Bytes of a row of a binary file; of an ASCII one, the fewest there can be.
    std::size_t rowBytes() const
    {
        if (!isBinary)
            return rowValues();
        return isBitmap ? (rowValues() + 7) / 8 : rowValues() * (isDeep() ? 2 : 1);
    }
};

Header headerOf(Numbers& numbers)
{
    constexpr int maxSide = static_cast<int>(vellimits::side);
    int const kind = numbers.kind();
    Header header = {};
    header.isBinary = kind > '3';
    header.isBitmap = kind == '1' || kind == '4';
    header.channels = kind == '3' || kind == '6' ? 3 : 1;
    header.width = kind > 0 ? numbers.nextOfHeader(maxSide) : -1;
    header.height = header.width > 0 ? numbers.nextOfHeader(maxSide) : -1;
    header.maxValue = header.isBitmap ? 1 : header.height > 0 ? numbers.nextOfHeader(65535) : -1;
    return header;
}

void exchangeColours(Header const& header, unsigned char* row)
{
    if (header.channels == 3)
        velorder::exchangeRedAndBlue(row, static_cast<std::size_t>(header.width), 3,
                                     header.isDeep() ? 2 : 1);
}

bool readAscii(Header const& header, Numbers& numbers, unsigned char* row, std::size_t rowBytes)
{
    for (int y = 0; y < header.height; ++y, row += rowBytes) {
        unsigned char* to = row;
        for (std::size_t i = 0; i < header.rowValues(); ++i) {
            int const value = header.isBitmap ? numbers.nextBit() : numbers.next(header.maxValue);
            if (value < 0)
                return false;
            if (header.isDeep()) {
                auto const word = static_cast<std::uint16_t>(value);
                std::memcpy(to, &word, sizeof word);
                to += sizeof word;
            } else {
                *to++ = static_cast<unsigned char>(!header.isBitmap ? value : value == 1 ? 0 : 255);
            }
        }
        exchangeColours(header, row);
    }
    return true;
}

/// Spreads the bits, which end the row of pixels, over all of it.
void expandBits(unsigned char* row, std::size_t width)
{
    unsigned char const* const bits = row + width - (width + 7) / 8;
    for (std::size_t x = 0; x < width; x += 8) {
        unsigned const byte = bits[x / 8];
        std::size_t const count = std::min<std::size_t>(8, width - x);
        for (std::size_t i = 0; i < count; ++i)
            row[x + i] = (byte >> (7 - i) & 1) != 0 ? 0 : 255;
    }
}

bool readBinary(Header const& header, VelInput const& input, std::uint64_t offset,
                unsigned char* data, std::size_t rowBytes)
{
    auto const rows = static_cast<std::size_t>(header.height);
    std::size_t const fileRow = header.rowBytes();
    // A window of rows at a time, which is still in the cache when it is turned round.
    bool const isTurned = header.channels == 3 || header.isDeep();
    std::size_t const rowsAtOnce =
        isTurned ? std::max<std::size_t>(1, vellimits::windowBytes / rowBytes) : rows;
    for (std::size_t done = 0; done < rows;) {
        std::size_t const count = std::min(rowsAtOnce, rows - done);
        unsigned char* const first = data + done * rowBytes;
        if (!input.readRows({offset + done * fileRow, fileRow, 0, count},
                            first + (rowBytes - fileRow), static_cast<std::ptrdiff_t>(rowBytes)))
            return false;
        if (header.isDeep())
            velorder::exchangeBytes(first, count * header.rowValues());
        for (std::size_t i = 0; i < count; ++i) {
            if (header.isBitmap)
                expandBits(first + i * rowBytes, header.rowValues());
            else
                exchangeColours(header, first + i * rowBytes);
        }
        done += count;
    }
    return true;
}

} // namespace

VelPixels* velcodec::readPnm(VelInput const& input)
{
    Numbers numbers(input);
    Header const header = headerOf(numbers);
    if (header.width < 1 || header.height < 1 || header.maxValue < 1)
        return nullptr;
    numbers.endHeader();
    if (header.rowBytes() * static_cast<std::size_t>(header.height) + numbers.offset() >
        input.size())
        return nullptr;
    VelPixels* const pixels = newPixels(static_cast<std::uint64_t>(header.width),
                                        static_cast<std::uint64_t>(header.height), header.channels,
                                        header.isDeep() ? VEL_16U : VEL_8U);
    if (!pixels)
        return nullptr;
    auto const rowBytes = static_cast<std::size_t>(pixels->geometry.rowBytes());
    if (header.isBinary ? readBinary(header, input, numbers.offset(), pixels->data, rowBytes)
                        : readAscii(header, numbers, pixels->data, rowBytes))
        return pixels;
    VelPixels::release(pixels);
    return nullptr;
}

bool velcodec::writePnm(VelPixels const& pixels, int, VelOutput& output)
{
    VelGeometry const& geometry = pixels.geometry;
    bool const isDeep = geometry.type == VEL_16U;
    char header[64];
    int const headerSize =
        std::snprintf(header, sizeof header, "P%c\n%d %d\n%d\n", geometry.channels == 1 ? '5' : '6',
                      geometry.width, geometry.height, isDeep ? 65535 : 255);
    if (!output.write(header, static_cast<std::size_t>(headerSize)))
        return false;
    if (geometry.channels == 1 && !isDeep)
        return output.write(pixels.data, geometry.bytes());

    auto const rowBytes = static_cast<std::size_t>(geometry.rowBytes());
    VelBlock const row = velAllocate(rowBytes);
    unsigned char const* from = pixels.data;
    for (int y = 0; row && y < geometry.height; ++y, from += rowBytes) {
        std::memcpy(row.get(), from, rowBytes);
        if (geometry.channels == 3)
            velorder::exchangeRedAndBlue(row.get(), static_cast<std::size_t>(geometry.width), 3,
                                         isDeep ? 2 : 1);
        if (isDeep)
            velorder::exchangeBytes(row.get(), rowBytes / 2);
        if (!output.write(row.get(), rowBytes))
            return false;
    }
    return row != nullptr;
}
