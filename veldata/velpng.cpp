#include <veldata/velcodec_p.h>

#include <csetjmp>
#include <cstring>

#include <png.h>

namespace {

using velcodec::Bytes;

constexpr std::size_t signatureSize = 8;

struct Source
{
    unsigned char const* next;
    std::size_t left;
};

[[noreturn]] void refuse(png_structp png, png_const_charp) { png_longjmp(png, 1); }

void readBytes(png_structp png, png_bytep target, std::size_t size)
{
    auto* const source = static_cast<Source*>(png_get_io_ptr(png));
    if (size > source->left)
        png_longjmp(png, 1);
    std::memcpy(target, source->next, size);
    source->next += size;
    source->left -= size;
}

/// The next two hold no objects with destructors: refuse() jumps out of them.
bool readHeader(png_structp png, png_infop info)
{
    if (setjmp(png_jmpbuf(png)))
        return false;
    png_read_info(png, info);
    return true;
}

bool readRows(png_structp png, int height, png_bytep row)
{
    if (setjmp(png_jmpbuf(png)))
        return false;
    for (int pass = png_set_interlace_handling(png); pass > 0; --pass) {
        for (int y = 0; y < height; ++y)
            png_read_row(png, row, nullptr);
    }
    png_read_end(png, nullptr);
    return true;
}

/// A libpng reader that refuses at the first warning.
class Reader
{
public:
    explicit Reader(Bytes const& bytes)
        : source{bytes.data(), bytes.size()},
          png(png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, refuse, refuse)),
          info(png ? png_create_info_struct(png) : nullptr)
    {
        if (png)
            png_set_read_fn(png, &source, readBytes);
    }

    ~Reader() { png_destroy_read_struct(&png, &info, nullptr); }

    Reader(Reader const&) = delete;
    Reader& operator=(Reader const&) = delete;

    bool readsToTheEnd()
    {
        if (!info || !readHeader(png, info))
            return false;
        png_uint_32 const width = png_get_image_width(png, info);
        png_uint_32 const height = png_get_image_height(png, info);
        if (!velcodec::isDecodableSize(width, height))
            return false;
        Bytes row(png_get_rowbytes(png, info));
        return readRows(png, static_cast<int>(height), row.data());
    }

private:
    Source source;
    png_structp png;
    png_infop info;
};

bool bearsOnPixels(unsigned char const* name)
{
    for (char const* kept : {"IHDR", "PLTE", "tRNS", "IDAT", "IEND"}) {
        if (std::memcmp(name, kept, 4) == 0)
            return true;
    }
    return false;
}

/// Moves the chunks that bear on the pixels together and cuts the rest off; false where a chunk
/// reaches beyond the end or the last one is missing.
bool keepPixelChunks(Bytes& bytes)
{
    constexpr std::size_t overhead = 12; // length, name and checksum of a chunk
    std::size_t from = signatureSize;
    std::size_t to = signatureSize;
    while (from + overhead <= bytes.size()) {
        unsigned char const* const chunk = bytes.data() + from;
        std::size_t const size = std::size_t{png_get_uint_32(chunk)} + overhead;
        if (size > bytes.size() - from)
            return false;
        bool const isLast = std::memcmp(chunk + 4, "IEND", 4) == 0;
        if (bearsOnPixels(chunk + 4)) {
            std::memmove(bytes.data() + to, chunk, size);
            to += size;
        }
        if (isLast) {
            bytes.resize(to);
            return true;
        }
        from += size;
    }
    return false;
}

} // namespace

bool velcodec::preparePng(Bytes& bytes)
{
    return keepPixelChunks(bytes) && Reader(bytes).readsToTheEnd();
}
