#ifndef VELDATA_TESTS_RAWPICTURES_H
#define VELDATA_TESTS_RAWPICTURES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>
#include <zlib.h>

#include "imagefiles.h"

// Picture files put together byte by byte: of any size at no cost, and of kinds that no library
// writes.

inline void appendBig(Bytes& bytes, std::uint64_t value, int size)
{
    for (int i = size - 1; i >= 0; --i)
        bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
}

inline void appendLittle(Bytes& bytes, std::uint64_t value, int size)
{
    for (int i = 0; i < size; ++i)
        bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
}

inline void append(Bytes& bytes, Bytes const& more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
}

/// Writes @p head and lets the file have @p size bytes; the others are zeros and take no place.
inline void writeSparse(std::string const& path, Bytes const& head, std::int64_t size)
{
    writeFile(path, head);
    ASSERT_EQ(::truncate(path.c_str(), size), 0);
}

/// A chunk of a PNG file.
inline Bytes chunkOf(char const* name, Bytes const& data)
{
    Bytes chunk;
    appendBig(chunk, data.size(), 4);
    append(chunk, Bytes(name, name + 4));
    append(chunk, data);
    appendBig(chunk, ::crc32(0, chunk.data() + 4, static_cast<uInt>(chunk.size() - 4)), 4);
    return chunk;
}

/// A PNG file, complete and black but for what is changed.
struct RawPng
{
    std::uint32_t width = 8;
    std::uint32_t height = 8;
    int bits = 8;
    int colourType = 0; ///< 0 grey, 2 colour, 3 palette, 4 grey and alpha, 6 colour and alpha
    bool isInterlaced = false;
    std::vector<Bytes> behindHeader = {}; ///< chunks
    std::vector<Bytes> behindPixels = {}; ///< chunks
    int surplusBytes = 0;                 ///< of pixels that are not asked for

    /// The bytes of all rows before they are packed, with the one before each that names its
    /// filter.
    std::uint64_t rowBytes() const
    {
        if (!isInterlaced)
            return rowBytes(width, height);
        struct
        {
            std::uint32_t x, y, stepX, stepY;
        } const passes[] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                            {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};
        std::uint64_t bytes = 0;
        for (auto const& pass : passes)
            bytes += rowBytes((width - pass.x + pass.stepX - 1) / pass.stepX,
                              (height - pass.y + pass.stepY - 1) / pass.stepY);
        return bytes;
    }

    Bytes header() const
    {
        Bytes fields;
        appendBig(fields, width, 4);
        appendBig(fields, height, 4);
        append(fields, {static_cast<unsigned char>(bits), static_cast<unsigned char>(colourType), 0,
                        0, static_cast<unsigned char>(isInterlaced)});
        Bytes file = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
        append(file, chunkOf("IHDR", fields));
        if (colourType == 3)
            append(file, chunkOf("PLTE", {1, 2, 3, 4, 5, 6}));
        return file;
    }

    Bytes bytes() const
    {
        Bytes file = header();
        for (Bytes const& chunk : behindHeader)
            append(file, chunk);
        append(file,
               chunkOf("IDAT", packedZeros(rowBytes() + static_cast<std::uint64_t>(surplusBytes))));
        for (Bytes const& chunk : behindPixels)
            append(file, chunk);
        append(file, chunkOf("IEND", {}));
        return file;
    }

private:
    std::uint64_t rowBytes(std::uint64_t columns, std::uint64_t rows) const
    {
        unsigned const samples[] = {1, 0, 3, 1, 2, 0, 4};
        return ((columns * samples[colourType] * static_cast<unsigned>(bits) + 7) / 8 + 1) * rows;
    }

    /// What unpacks to @p count zeros: one packed piece over and over, and the rest.
    static Bytes packedZeros(std::uint64_t count)
    {
        constexpr std::uint64_t piece = 1 << 20;
        Bytes packed = {0x78, 0x01};
        Bytes const onePiece = flushedZeros(piece);
        packed.reserve(onePiece.size() * (count / piece + 2));
        for (std::uint64_t i = 0; i < count / piece; ++i)
            append(packed, onePiece);
        append(packed, flushedZeros(count % piece));
        append(packed, {0x03, 0x00}); // the last block, an empty one
        constexpr std::uint64_t adlerModulus = 65521;
        appendBig(packed, count % adlerModulus << 16 | 1, 4);
        return packed;
    }

    /// @p count zeros packed so that they end with a whole byte and nothing refers back to them.
    static Bytes flushedZeros(std::uint64_t count)
    {
        Bytes zeros(count), packed(count / 500 + 100);
        z_stream stream = {};
        ::deflateInit2(&stream, 9, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY);
        stream.next_in = zeros.data();
        stream.avail_in = static_cast<uInt>(zeros.size());
        stream.next_out = packed.data();
        stream.avail_out = static_cast<uInt>(packed.size());
        ::deflate(&stream, Z_FULL_FLUSH);
        packed.resize(packed.size() - stream.avail_out);
        ::deflateEnd(&stream);
        return packed;
    }
};

/// A JPEG file, complete and of one grey, whose pixels are packed as tightly as the format allows:
/// every bit of them is 0.
struct RawJpeg
{
    int width = 8;
    int height = 8;
    int components = 1;
    bool isProgressive = false;
    bool isInterleaved = true; ///< one scan for all components; for files that are not progressive
    int extraScans = 0;        ///< that say nothing; for progressive files

    Bytes bytes() const
    {
        Bytes file = {0xFF, 0xD8, 0xFF, 0xDB, 0, 67, 0};
        file.insert(file.end(), 64, 1);
        append(file, {0xFF, static_cast<unsigned char>(isProgressive ? 0xC2 : 0xC0)});
        appendBig(file, static_cast<unsigned>(8 + 3 * components), 2);
        file.push_back(8);
        appendBig(file, static_cast<unsigned>(height), 2);
        appendBig(file, static_cast<unsigned>(width), 2);
        file.push_back(static_cast<unsigned char>(components));
        for (int i = 1; i <= components; ++i)
            append(file, {static_cast<unsigned char>(i), 0x11, 0});
        appendTable(file, 0x00, 0);                        // differences: none
        appendTable(file, 0x10, isProgressive ? 0xE0 : 0); // end of 16384 blocks, or of one
        if (isProgressive)
            appendProgression(file);
        else if (isInterleaved)
            appendScan(file, components, 0, 63, 0,
                       blocks() * static_cast<unsigned>(components) * 2);
        else
            for (int i = 1; i <= components; ++i)
                appendScan(file, -i, 0, 63, 0, blocks() * 2);
        append(file, {0xFF, 0xD9});
        return file;
    }

    std::uint64_t blocks() const
    {
        return static_cast<std::uint64_t>((width + 7) / 8) *
               static_cast<std::uint64_t>((height + 7) / 8);
    }

private:
    /// A code of one bit, 0, for one symbol.
    static void appendTable(Bytes& file, unsigned char place, unsigned char symbol)
    {
        append(file, {0xFF, 0xC4, 0, 20, place, 1});
        file.insert(file.end(), 15, 0);
        file.push_back(symbol);
    }

    /// A scan of the first @p count components, or of the one whose negated number it is.
    static void appendScan(Bytes& file, int count, int first, int last, int levels,
                           std::uint64_t bits)
    {
        int const listed = count > 0 ? count : 1;
        append(file, {0xFF, 0xDA});
        appendBig(file, static_cast<unsigned>(6 + 2 * listed), 2);
        file.push_back(static_cast<unsigned char>(listed));
        for (int i = 1; i <= listed; ++i)
            append(file, {static_cast<unsigned char>(count > 0 ? i : -count), 0});
        append(file, {static_cast<unsigned char>(first), static_cast<unsigned char>(last),
                      static_cast<unsigned char>(levels)});
        file.insert(file.end(), bits / 8, 0);
        if (bits % 8)
            file.push_back(static_cast<unsigned char>(0xFF >> bits % 8));
    }

    void appendProgression(Bytes& file) const
    {
        appendScan(file, components, 0, 0, 0, blocks() * static_cast<unsigned>(components));
        // One frequency after the other, each in eight scans that bring one more bit of nothing.
        std::uint64_t const bits = (blocks() + 16383) / 16384 * 15;
        for (int i = 0; i < extraScans; ++i) {
            int const level = 7 - i % 8;
            int const before = level == 7 ? 0 : level + 1;
            appendScan(file, -1, 1 + i / 8, 1 + i / 8, before << 4 | level, bits);
        }
    }
};

/// The beginning of an uncompressed grey TIFF file, up to its pixels.
struct RawTiff
{
    std::uint32_t width = 8;
    std::uint32_t height = 8;
    std::uint32_t rowsPerStrip = 64;
    /// Fields by tag that differ or come in addition: type and value.
    std::vector<std::pair<unsigned, std::pair<unsigned, std::uint32_t>>> changes = {};
    bool hasPalette = false;

    std::uint64_t pixelBytes() const { return std::uint64_t{width} * height; }

    Bytes header() const
    {
        constexpr unsigned shortType = 3, longType = 4;
        std::uint32_t const strips = (height - 1) / rowsPerStrip + 1;
        struct Field
        {
            unsigned tag, type;
            std::uint32_t count, value;
        };
        std::vector<Field> fields = {{256, longType, 1, width}, {257, longType, 1, height},
                                     {258, shortType, 1, 8},    {259, shortType, 1, 1},
                                     {262, shortType, 1, 1},    {273, longType, strips, 0},
                                     {277, shortType, 1, 1},    {278, longType, 1, rowsPerStrip},
                                     {279, longType, strips, 0}};
        if (hasPalette) {
            fields[4].value = 3;
            fields.push_back({320, shortType, 768, 0});
        }
        for (auto const& [tag, what] : changes) {
            auto field = fields.begin();
            while (field != fields.end() && field->tag < tag)
                ++field;
            if (field == fields.end() || field->tag != tag)
                field = fields.insert(field, {tag, 0, 1, 0});
            field->type = what.first;
            field->value = what.second;
        }
        auto const listsAt = static_cast<std::uint32_t>(8 + 2 + 12 * fields.size() + 4);
        std::uint32_t const paletteAt = strips > 1 ? listsAt + 8 * strips : listsAt;
        std::uint32_t const pixelsAt = paletteAt + (hasPalette ? 2 * 768 : 0);
        Bytes file = {'I', 'I', 42, 0, 8, 0, 0, 0};
        appendLittle(file, fields.size(), 2);
        for (Field const& field : fields) {
            std::uint32_t value = field.value;
            if (field.tag == 273)
                value = strips > 1 ? listsAt : pixelsAt;
            else if (field.tag == 279 && !value)
                value =
                    strips > 1 ? listsAt + 4 * strips : static_cast<std::uint32_t>(pixelBytes());
            else if (field.tag == 320)
                value = paletteAt;
            appendLittle(file, field.tag, 2);
            appendLittle(file, field.type, 2);
            appendLittle(file, field.count, 4);
            appendLittle(file, value, 4);
        }
        appendLittle(file, 0, 4);
        if (strips > 1) {
            for (std::uint32_t i = 0; i < strips; ++i)
                appendLittle(file, pixelsAt + std::uint64_t{i} * rowsPerStrip * width, 4);
            for (std::uint32_t i = 0; i < strips; ++i) {
                std::uint32_t const rows = std::min(rowsPerStrip, height - i * rowsPerStrip);
                appendLittle(file, std::uint64_t{rows} * width, 4);
            }
        }
        if (hasPalette)
            file.resize(file.size() + 2 * 768, 77);
        return file;
    }
};

/// The beginning of a bitmap, up to its pixels: a grey one of 8 bits, or one of 24 bits.
struct RawBitmap
{
    std::uint32_t width = 8;
    std::uint32_t height = 8;
    int bits = 8;
    std::uint32_t compression = 0;

    std::uint64_t pixelBytes() const
    {
        return (std::uint64_t{width} * static_cast<unsigned>(bits) + 31) / 32 * 4 * height;
    }

    Bytes header() const
    {
        unsigned const colours = bits == 8 ? 256 : 0;
        Bytes file = {'B', 'M'};
        appendLittle(file, 0, 8);
        appendLittle(file, 54 + 4 * colours, 4);
        appendLittle(file, 40, 4);
        appendLittle(file, width, 4);
        appendLittle(file, height, 4);
        appendLittle(file, 1, 2);
        appendLittle(file, static_cast<unsigned>(bits), 2);
        appendLittle(file, compression, 4);
        file.insert(file.end(), 20, 0);
        for (unsigned i = 0; i < colours; ++i)
            appendLittle(file, i * 0x010101, 4);
        return file;
    }
};

#endif
