// PNG pictures: as they come, and once more with the checksums of their chunks mended, without
// which hardly a change would get past the first chunk.

#include <zlib.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "../support/picturefile.h"

namespace {

std::uint32_t bigEndian(std::uint8_t const* bytes)
{
    return std::uint32_t(bytes[0]) << 24 | std::uint32_t(bytes[1]) << 16 |
           std::uint32_t(bytes[2]) << 8 | bytes[3];
}

/// Makes every complete chunk's checksum the right one; answers whether one was wrong.
bool mendChecksums(std::vector<std::uint8_t>& png)
{
    constexpr std::size_t signature = 8;
    constexpr std::size_t around = 12; // length, name and checksum
    bool mended = false;
    std::size_t at = signature;
    while (at + around <= png.size()) {
        std::size_t const length = bigEndian(&png[at]);
        if (length > png.size() - at - around)
            break;
        auto const sum = static_cast<std::uint32_t>(
            crc32(0, &png[at + 4], static_cast<unsigned int>(length + 4)));
        std::uint8_t* const stored = &png[at + 8 + length];
        mended = mended || bigEndian(stored) != sum;
        for (int i = 0; i < 4; ++i)
            stored[i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
        at += around + length;
    }
    return mended;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static PictureFile file;
    // The other formats have targets of their own.
    if (size < 8 || data[0] != 0x89)
        return 0;
    file.read(data, size);
    std::vector<std::uint8_t> mended(data, data + size);
    if (mendChecksums(mended))
        file.read(mended.data(), mended.size());
    return 0;
}
