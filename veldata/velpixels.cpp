#include <veldata/velpixels_p.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <new>

#include <veldata/velimagetype.h>

namespace {

constexpr int maxChannels = 4;

/// Bytes of one value of a type; 0 for an unknown type.
int valueBytes(int type)
{
    switch (type) {
    case VEL_8U:
    case VEL_8S:
        return 1;
    case VEL_16U:
    case VEL_16S:
        return 2;
    case VEL_32S:
    case VEL_32F:
        return 4;
    case VEL_64F:
        return 8;
    default:
        return 0;
    }
}

} // namespace

bool VelGeometry::isValid() const noexcept
{
    return width > 0 && height > 0 && std::int64_t{width} * height <= maxPixels && channels > 0 &&
           channels <= maxChannels && valueBytes(type) > 0 &&
           std::int64_t{width} * channels * valueBytes(type) <= INT_MAX;
}

int VelGeometry::rowBytes() const noexcept { return width * channels * valueBytes(type); }

std::size_t VelGeometry::bytes() const noexcept
{
    return static_cast<std::size_t>(rowBytes()) * static_cast<std::size_t>(height);
}

VelPixels::VelPixels(VelGeometry const& pixelGeometry, unsigned char* block,
                     void (*giveBack)(void*), void* blockOwner) noexcept
    : geometry(pixelGeometry), data(block), images(1), releaseOwner(giveBack), owner(blockOwner)
{
}

VelPixels::~VelPixels() { releaseOwner(owner); }

VelPixels* VelPixels::adopt(void* block, VelGeometry const& geometry) noexcept
{
    VelPixels* const pixels =
        block ? over(static_cast<unsigned char*>(block), geometry, &std::free, block) : nullptr;
    if (!pixels)
        std::free(block);
    return pixels;
}

VelPixels* VelPixels::over(unsigned char* data, VelGeometry const& geometry,
                           void (*giveBack)(void*), void* owner) noexcept
{
    return data && giveBack && geometry.isValid() ? new (std::nothrow)
                                                        VelPixels(geometry, data, giveBack, owner)
                                                  : nullptr;
}

VelPixels* VelPixels::create(VelGeometry const& geometry) noexcept
{
    return geometry.isValid() ? adopt(std::malloc(geometry.bytes()), geometry) : nullptr;
}

VelPixels* VelPixels::create(unsigned char const* data, VelGeometry const& geometry,
                             int step) noexcept
{
    if (!geometry.isValid() || (step != 0 && step < geometry.rowBytes()))
        return nullptr;
    // calloc hands out zeroed pages without touching them, so that a huge blank image costs nothing
    // until it is written.
    if (!data)
        return adopt(std::calloc(geometry.bytes(), 1), geometry);
    VelPixels* const pixels = create(geometry);
    if (!pixels)
        return nullptr;
    auto const rowBytes = static_cast<std::size_t>(geometry.rowBytes());
    auto const rowStep = step == 0 ? rowBytes : static_cast<std::size_t>(step);
    // One call for a block without gaps: for a large one memcpy then passes the cache by.
    if (rowStep == rowBytes) {
        std::memcpy(pixels->data, data, geometry.bytes());
        return pixels;
    }
    for (std::size_t row = 0; row < static_cast<std::size_t>(geometry.height); ++row)
        std::memcpy(pixels->data + row * rowBytes, data + row * rowStep, rowBytes);
    return pixels;
}

VelPixels* VelPixels::acquire(VelPixels* pixels) noexcept
{
    if (pixels)
        pixels->images.fetch_add(1, std::memory_order_relaxed);
    return pixels;
}

void VelPixels::release(VelPixels* pixels) noexcept
{
    if (pixels && pixels->images.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete pixels;
}
